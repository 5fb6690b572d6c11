// hxbigbench --data GPKG --layer NAME [--budget MIB] [--peers TSV]: a layer larger than the memory
// budget, drawn from its source as the feature layer draws it (HOFeatureStream, HOFeatureOverview,
// HOStreamRenderer) into 1920x1080 images:
//   open        until the layer can draw (the size check and the overview's build started)
//   first frame from the start of the open to the first batch drawn of the whole layer
//   overview    until the simplified copy is in memory, and its bytes
//   whole       the whole layer drawn from the overview
//   zoom, pan   a view of an eighth of the layer's width at its centre, then moved a quarter of a
//               view to the east: preview (first batch drawn) and final, read from the source
// and the peak memory of the process; with --out, the pictures too. Where the peers file (view <TAB> peer
// <TAB> seconds, views named whole, zoom, pan) has MapServer's time for a view, the final time is printed as
// a ratio.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>
#include <sys/resource.h>

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <chrono>
#include <cstdio>
#include <thread>

#include "PeerTimes.h"
#include "render/private/HOFeatureStyleSet.h"
#include "render/private/HOStreamRenderer.h"
#include "source/private/HOFeatureOverview.h"
#include "source/private/HOFeatureStream.h"
#include "source/private/HOGdalOpener.h"

using namespace HXObjects;

namespace {

const QSize kSize(1920, 1080);

struct Timing {
    double preview = 0;  // ms until the first batch was drawn
    double final = 0;    // ms until the whole view was drawn
};

double peakMiB() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) / 1024.0;
}

// The box of `width` map units centred on (cx, cy), at the image's aspect ratio.
HORect viewOf(double cx, double cy, double width) {
    const double height = width * kSize.height() / kSize.width();
    return HORect(cx - width / 2, cx + width / 2, cy - height / 2, cy + height / 2);
}

class Bench {
public:
    Bench(std::shared_ptr<const HOFeatureStream> stream, const HOFeatureOverview* overview)
        : m_stream(std::move(stream)),
          m_overview(overview),
          m_styles(HOStyle::NewFill(HOColor(170, 200, 150), HOColor(60, 90, 60), 1), {}, {}, nullptr) {}

    // Saves each picture drawn as <folder>/hxbigbench-<view>.png.
    void SetOutput(const QString& folder) { m_output = folder; }

    // Draws the view; `clock` runs from when the caller started waiting. Stops after the first
    // batch when `firstOnly`.
    Timing Draw(const char* name, const HORect& view, QElapsedTimer& clock, bool firstOnly = false) const {
        QImage image(kSize, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        HODisplayTransform pixels;
        pixels.extentLeft = view.minx;
        pixels.extentTop = view.maxy;
        pixels.unitsPerPixel = view.Width() / kSize.width();
        HORenderContext context;
        context.painter = &painter;
        context.SetArea(pixels, {kSize.width(), kSize.height()});
        HOTrackCancel cancel;
        context.cancel = &cancel;
        Timing timing;
        context.progress = [&] {
            if (timing.preview == 0) timing.preview = ms(clock);
            if (firstOnly) cancel.Cancel();
        };
        HOStreamRenderer(*m_stream, m_overview, m_styles, context, nullptr).Render();
        timing.final = ms(clock);
        if (timing.preview == 0) timing.preview = timing.final;  // drawn in one pass (the overview)
        painter.end();
        if (!m_output.isEmpty()) image.save(QStringLiteral("%1/hxbigbench-%2.png").arg(m_output, name));
        return timing;
    }

    static double ms(const QElapsedTimer& clock) { return double(clock.nsecsElapsed()) / 1e6; }

private:
    std::shared_ptr<const HOFeatureStream> m_stream;
    const HOFeatureOverview* m_overview;
    HOFeatureStyleSet m_styles;
    QString m_output;
};

void printRow(const char* what, const Timing& t, double peerSeconds) {
    std::printf("%-34s %10.1f %10.1f", what, t.preview, t.final);
    if (peerSeconds > 0)
        std::printf(" %12.1f %8.2f\n", peerSeconds * 1000, t.final / (peerSeconds * 1000));
    else
        std::printf("\n");
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption data("data", "The GeoPackage.", "GPKG");
    const QCommandLineOption layerName("layer", "The layer (default landuse).", "NAME", "landuse");
    const QCommandLineOption budget("budget", "Memory budget in MiB (default 640).", "MIB", "640");
    const QCommandLineOption peers("peers", "Peer times: view, peer, seconds per line.", "TSV");
    const QCommandLineOption out("out", "Folder for the pictures drawn.", "DIR");
    parser.addOptions({data, layerName, budget, peers, out});
    parser.addHelpOption();
    parser.process(app);
    GDALAllRegister();
    PeerTimes peerTimes;
    if (parser.isSet(peers)) peerTimes.Load(parser.value(peers));
    const auto mapserver = [&](const char* view) { return peerTimes.Seconds(view, "mapserver"); };

    QElapsedTimer clock;
    clock.start();
    HOString reason;
    GDALDatasetUniquePtr dataset = HOGdalOpener::Open(parser.value(data).toStdString(), &reason);
    OGRLayer* layer = dataset ? dataset->GetLayerByName(parser.value(layerName).toUtf8()) : nullptr;
    if (!layer) {
        std::fprintf(stderr, "hxbigbench: cannot open the layer: %s\n", qPrintable(reason.toQString()));
        return 1;
    }
    const std::size_t budgetBytes = std::size_t(parser.value(budget).toDouble() * 1024 * 1024);
    if (!HOFeatureStream::Exceeds(layer, budgetBytes)) {
        std::fprintf(stderr, "hxbigbench: the layer fits the budget; give a smaller --budget\n");
        return 1;
    }
    OGREnvelope envelope;
    layer->GetExtent(&envelope, TRUE);
    HOBox extent;
    extent.min = {envelope.MinX, envelope.MinY};
    extent.max = {envelope.MaxX, envelope.MaxY};
    const std::size_t count = std::size_t(layer->GetFeatureCount(FALSE));
    auto stream = std::make_shared<const HOFeatureStream>(parser.value(data).toStdString(), layer->GetName(),
                                                          extent, count);
    auto overview = std::make_unique<HOFeatureOverview>(stream, budgetBytes);
    const double openMs = Bench::ms(clock);
    Bench bench(stream, overview.get());
    bench.SetOutput(parser.value(out));

    const double cx = (extent.min.x + extent.max.x) / 2, cy = (extent.min.y + extent.max.y) / 2;
    const double width =
        std::max(extent.max.x - extent.min.x, (extent.max.y - extent.min.y) * kSize.width() / kSize.height());
    const HORect whole = viewOf(cx, cy, width), zoom = viewOf(cx, cy, width / 8),
                 pan = viewOf(cx + width / 32, cy, width / 8);

    std::printf("layer %s: %zu features, budget %s MiB, %dx%d\n", layer->GetName(), count,
                qPrintable(parser.value(budget)), kSize.width(), kSize.height());
    std::printf("%-34s %10s %10s %12s %8s\n", "", "preview ms", "final ms", "mapserver ms", "ratio");
    std::printf("%-34s %10.1f\n", "open", openMs);
    const Timing first = bench.Draw("first", whole, clock, true);
    std::printf("%-34s %10.1f   (from the start of the open)\n", "first frame, whole layer", first.preview);

    QElapsedTimer view;
    view.start();
    printRow("zoom 1/8, from the source", bench.Draw("zoom", zoom, view), mapserver("zoom"));
    view.restart();
    printRow("pan 1/4 view, from the source", bench.Draw("pan", pan, view), mapserver("pan"));

    // The overview is built meanwhile; wait for it (a host sees the whole layer from the source
    // until then).
    while (overview->IsBuilding()) std::this_thread::sleep_for(std::chrono::milliseconds(50));
    if (!overview->Store()) {
        std::printf("overview given up: over the budget\n");
        return 1;
    }
    std::printf("%-34s %10.1f   (%.0f MiB in memory)\n", "overview built, after open", Bench::ms(clock),
                double(overview->Store()->GeometryBytes()) / 1048576.0);
    view.restart();
    printRow("whole layer, from the overview", bench.Draw("whole", whole, view), mapserver("whole"));
    std::printf("%-34s %10.0f MiB\n", "peak memory", peakMiB());
    return 0;
}
