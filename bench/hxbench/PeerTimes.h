#pragma once
// PeerTimes: the peer renderers' figures per dataset, read from a tab-separated file bench/run
// writes (dataset, peer, figure per line): seconds, or MiB in the peak-memory file.
#include <QMap>
#include <QString>

class PeerTimes {
public:
    bool Load(const QString& path);
    // 0 when the peer has no figure for the dataset.
    double Seconds(const QString& dataset, const QString& peer) const;
    QStringList Peers() const;
    QStringList Datasets(const QString& peer) const;

private:
    QMap<QString, QMap<QString, double>> m_seconds;  // peer -> dataset -> seconds
};
