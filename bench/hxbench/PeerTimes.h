#pragma once
// PeerTimes: the peer renderers' seconds per dataset, read from the tab-separated file bench/run
// writes (dataset, peer, seconds per line).
#include <QMap>
#include <QString>

class PeerTimes {
public:
    bool Load(const QString& path);
    // 0 when the peer has no figure for the dataset.
    double Seconds(const QString& dataset, const QString& peer) const;
    QStringList Peers() const;

private:
    QMap<QString, QMap<QString, double>> m_seconds;  // peer -> dataset -> seconds
};
