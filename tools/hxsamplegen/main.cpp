// hxsamplegen: writes the fictional sample region, or the benchmark load, for HXMapControls.

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

#include "SampleGenerator.h"

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName("hxsamplegen");
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Writes a deterministic fictional coastal region: region.gpkg (CGCS2000 / Gauss-Kruger CM 117E),\n"
        "region_4490.gpkg (geographic CGCS2000), elevation.tif and its shaded relief hillshade.tif; or, with "
        "--bench, bench.gpkg.");
    parser.addHelpOption();
    const QCommandLineOption out("out", "Directory to write the region into (default: current).", "DIR", ".");
    const QCommandLineOption scale("scale",
                                   "Multiplies the number of parcels, rivers, towns and roads\n(about 220 "
                                   "gives over a million features).",
                                   "N", "1");
    const QCommandLineOption seed("seed", "Seed of the region.", "S",
                                  QString::number(SampleOptions::kDefaultSeed));
    const QCommandLineOption pixel("pixel", "DEM pixel size in metres (default 50).", "M", "50");
    const QCommandLineOption bench("bench", "Write the benchmark load bench.gpkg into DIR instead.", "DIR");
    parser.addOptions({out, scale, seed, pixel, bench});
    parser.process(app);

    QTextStream err(stderr);
    SampleOptions options;
    bool scaleOk = false, seedOk = false, pixelOk = false;
    options.outDir = parser.value(out);
    options.scale = parser.value(scale).toDouble(&scaleOk);
    options.seed = parser.value(seed).toULongLong(&seedOk);
    options.demPixelSize = parser.value(pixel).toDouble(&pixelOk);
    if (!scaleOk || options.scale <= 0 || !seedOk || !pixelOk || options.demPixelSize <= 0) {
        err << "hxsamplegen: --scale and --pixel take positive numbers, --seed a non-negative integer\n";
        return 2;
    }

    QTextStream log(stdout);
    SampleGenerator generator([&log](const QString& message) { log << message << Qt::endl; });
    const bool ok = parser.isSet(bench) ? generator.writeBench(parser.value(bench), options.seed)
                                        : generator.writeRegion(options);
    if (!ok) err << "hxsamplegen: " << generator.error() << Qt::endl;
    return ok ? 0 : 1;
}
