#include "PeerTimes.h"

#include <QFile>
#include <QTextStream>

bool PeerTimes::Load(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return false;
    QTextStream in(&file);
    while (!in.atEnd()) {
        const QStringList fields = in.readLine().split(QLatin1Char('\t'));
        bool ok = false;
        const double seconds = fields.size() == 3 ? fields[2].toDouble(&ok) : 0.0;
        if (ok && seconds > 0) m_seconds[fields[1]][fields[0]] = seconds;
    }
    return true;
}

double PeerTimes::Seconds(const QString& dataset, const QString& peer) const {
    return m_seconds.value(peer).value(dataset, 0.0);
}

QStringList PeerTimes::Datasets(const QString& peer) const {
    return m_seconds.value(peer).keys();
}

QStringList PeerTimes::Peers() const {
    return m_seconds.keys();
}
