// hxbench: our figures on the benchmark GeoPackage, printed beside the peer renderers' and the plain
// OGR baseline.
//   hxbench --data bench.gpkg [--peers peers.tsv] [--peer-memory memory.tsv] [--out DIR]
//           [--layers polygons,lines,points]
//   hxbench --data bench.gpkg --peak-memory LAYER   (prints this process's peak after drawing LAYER)
#include <gdal_priv.h>

#include <QCommandLineParser>
#include <QDir>
#include <QGuiApplication>

#include "BenchReport.h"
#include "LayerBench.h"
#include "MemoryBench.h"
#include "PeerTimes.h"
#include "ViewBench.h"
#include "ViewPathBench.h"

namespace {

void addLayerFigures(BenchReport& report, const QString& dataset, const LayerFigures& f,
                     const ViewPathFigures& v, const PeerTimes& peers) {
    report.Add(dataset, QStringLiteral("open (read into memory)"), f.open, QStringLiteral("plain OGR read"),
               f.plainRead, QStringLiteral("<= 1.1x"));
    report.Add(dataset, QStringLiteral("index ready after open"), f.indexReady, QString(), 0);
    report.Add(dataset, QStringLiteral("geometry bytes / 16 per vertex"), f.memoryRatio,
               QStringLiteral("raw coordinates"), 1.0, QStringLiteral("<= 1.25x"));
    report.Add(dataset, QStringLiteral("layer's own warm render 1920x1080"), f.fullRender, QString(), 0);
    report.Add(dataset, QStringLiteral("layer's own render, 1% of the area"), f.zoomRender, QString(), 0);
    // What a host waits for: SetExtent, the finished render, the Draw into its surface.
    const QString full = QStringLiteral("view: SetExtent->finished->Draw");
    const QString goal =
        dataset == QLatin1String("points") ? QStringLiteral("<= 0.05x") : QStringLiteral("<= 0.10x");
    bool anyPeer = false;
    for (const QString& peer : peers.Peers()) {
        const double theirs = peers.Seconds(dataset, peer);
        if (theirs <= 0) continue;
        anyPeer = true;
        report.Add(dataset, full, v.full, peer + QStringLiteral(" read+draw"), theirs,
                   peer == QLatin1String("mapserver") ? goal : QString());
    }
    if (!anyPeer) report.Add(dataset, full, v.full, QString(), 0);
    report.Add(dataset, QStringLiteral("view: the same, 1% of the area"), v.zoom, QString(), 0,
               QStringLiteral("<= 0.005 s"));
    report.Add(dataset, QStringLiteral("view path over the layer's render"), v.full - f.fullRender, QString(),
               0);
    report.Add(dataset, QStringLiteral("view: the same, the layer hidden"), v.fixed, QString(), 0);
    std::printf("%-9s %lld features, %lld vertices\n", qPrintable(dataset), f.features, f.vertices);
}

// Our peak memory beside MapServer's for each dataset the peers' file names.
void addMemoryFigures(BenchReport& report, const QString& gpkg, const PeerTimes& peaks) {
    for (const QString& peer : peaks.Peers())
        for (const QString& dataset : peaks.Datasets(peer)) {
            const double ours = MemoryBench::PeakInOwnProcess(gpkg, dataset);
            report.Add(dataset, QStringLiteral("peak memory, open + render (MiB)"), ours,
                       peer + QStringLiteral(" peak"), peaks.Seconds(dataset, peer), QStringLiteral("<= 2x"));
        }
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QGuiApplication app(argc, argv);
    GDALAllRegister();
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({"data", "The benchmark GeoPackage.", "gpkg"});
    parser.addOption({"peers", "Peer timings (dataset, peer, seconds per line).", "tsv"});
    parser.addOption({"out", "Where the rendered images go.", "dir", QDir::currentPath()});
    parser.addOption({"layers", "Layers to measure.", "names", "polygons,lines,points"});
    parser.addOption({"view-path-only", "Only the view path figures, best of more runs (for profiling)."});
    parser.addOption({"peer-memory", "Peer peak memory (dataset, peer, MiB per line).", "tsv"});
    parser.addOption({"peak-memory", "Open and draw one layer, print the peak memory (MiB).", "layer"});
    parser.process(app);
    if (!parser.isSet("data")) parser.showHelp(2);
    const QSize size(1920, 1080);
    if (parser.isSet("peak-memory")) {
        const double peak = MemoryBench::PeakHere(parser.value("data"), parser.value("peak-memory"), size);
        std::printf("%.1f\n", peak);
        return peak > 0 ? 0 : 1;
    }
    PeerTimes peers;
    if (parser.isSet("peers") && !peers.Load(parser.value("peers")))
        std::fprintf(stderr, "hxbench: cannot read %s; no peer figures\n", qPrintable(parser.value("peers")));
    QDir().mkpath(parser.value("out"));

    BenchReport report;
    const QStringList layers = parser.value("layers").split(QLatin1Char(','), Qt::SkipEmptyParts);
    const bool viewPathOnly = parser.isSet("view-path-only");
    for (const QString& layer : layers) {
        std::printf("measuring %s...\n", qPrintable(layer));
        std::fflush(stdout);
        const ViewPathFigures view =
            ViewPathBench(parser.value("data"), layer, size, viewPathOnly ? 30 : 5).Run();
        if (viewPathOnly) {
            report.Add(layer, QStringLiteral("view: SetExtent->finished->Draw"), view.full, QString(), 0);
            report.Add(layer, QStringLiteral("view: the same, 1% of the area"), view.zoom, QString(), 0);
            report.Add(layer, QStringLiteral("view: the same, the layer hidden"), view.fixed, QString(), 0);
            continue;
        }
        const LayerFigures own = LayerBench(parser.value("data"), layer, size, parser.value("out")).Run();
        addLayerFigures(report, layer, own, view, peers);
    }
    if (!viewPathOnly) ViewBench(parser.value("data"), layers, size).Run(report);
    PeerTimes peaks;
    if (parser.isSet("peer-memory") && peaks.Load(parser.value("peer-memory")))
        addMemoryFigures(report, parser.value("data"), peaks);
    report.Print();
    return 0;
}
