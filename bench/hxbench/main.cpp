// hxbench: our figures on the benchmark GeoPackage, printed beside the peer renderers' and the plain
// OGR baseline.
//   hxbench --data bench.gpkg [--peers peers.tsv] [--out DIR] [--layers polygons,lines,points]
#include <gdal_priv.h>

#include <QCommandLineParser>
#include <QDir>
#include <QGuiApplication>

#include "BenchReport.h"
#include "LayerBench.h"
#include "PeerTimes.h"
#include "ViewBench.h"

namespace {

void addLayerFigures(BenchReport& report, const QString& dataset, const LayerFigures& f,
                     const PeerTimes& peers) {
    report.Add(dataset, QStringLiteral("open (read into memory)"), f.open, QStringLiteral("plain OGR read"),
               f.plainRead, QStringLiteral("<= 1.2x"));
    report.Add(dataset, QStringLiteral("index ready after open"), f.indexReady, QString(), 0);
    report.Add(dataset, QStringLiteral("geometry bytes / 16 per vertex"), f.memoryRatio,
               QStringLiteral("raw coordinates"), 1.0, QStringLiteral("<= 1.25x"));
    const QString full = QStringLiteral("warm full render 1920x1080");
    bool anyPeer = false;
    for (const QString& peer : peers.Peers()) {
        const double theirs = peers.Seconds(dataset, peer);
        if (theirs <= 0) continue;
        anyPeer = true;
        report.Add(dataset, full, f.fullRender, peer + QStringLiteral(" read+draw"), theirs,
                   peer == QLatin1String("mapserver") ? QStringLiteral("<= 0.15x") : QString());
    }
    if (!anyPeer) report.Add(dataset, full, f.fullRender, QString(), 0);
    report.Add(dataset, QStringLiteral("warm render, 1% of the area"), f.zoomRender, QString(), 0,
               QStringLiteral("<= 0.010 s"));
    std::printf("%-9s %lld features, %lld vertices\n", qPrintable(dataset), f.features, f.vertices);
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
    parser.process(app);
    if (!parser.isSet("data")) parser.showHelp(2);
    PeerTimes peers;
    if (parser.isSet("peers") && !peers.Load(parser.value("peers")))
        std::fprintf(stderr, "hxbench: cannot read %s; no peer figures\n", qPrintable(parser.value("peers")));
    QDir().mkpath(parser.value("out"));

    const QSize size(1920, 1080);
    BenchReport report;
    const QStringList layers = parser.value("layers").split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString& layer : layers) {
        std::printf("measuring %s...\n", qPrintable(layer));
        std::fflush(stdout);
        addLayerFigures(report, layer,
                        LayerBench(parser.value("data"), layer, size, parser.value("out")).Run(), peers);
    }
    ViewBench(parser.value("data"), layers, size).Run(report);
    report.Print();
    return 0;
}
