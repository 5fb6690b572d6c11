#pragma once
// MemoryBench: the peak memory of a process that opens one layer of the benchmark GeoPackage and
// draws it once, whole, as a host would show it — measured in a process of its own (this program
// run again with --peak-memory), so that nothing else measured before counts.
#include <QSize>
#include <QString>

class MemoryBench {
public:
    // In this process: opens and draws the layer, then returns the process's peak resident size, MiB.
    static double PeakHere(const QString& gpkg, const QString& layer, const QSize& size);
    // The same in a new process; 0 when it failed.
    static double PeakInOwnProcess(const QString& gpkg, const QString& layer);
};
