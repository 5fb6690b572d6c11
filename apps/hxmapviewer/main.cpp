// hxmapviewer: a small desktop map viewer built on HXMapCanvas.
//   hxmapviewer [--size WxH] [--crs DEFINITION] [FILE...]
//   hxmapviewer --screenshot out.png [--size 1280x800] [--crs EPSG:4490] [--grid] [FILE...]
//   hxmapviewer --export-layout OUT.pdf|OUT.png [--paper A4] [--landscape] [--dpi N] [--title TEXT]
//               [--layout DOC] [FILE...]
#include <QApplication>
#include <QCommandLineParser>
#include <QRegularExpression>
#include <QTranslator>
#include <cstdio>
#include <cstring>

#include "HXLayoutExport.h"
#include "HXLayoutWindow.h"
#include "HXViewerWindow.h"

namespace {

// Each side of a window the viewer opens; outside this a window is unusable or its images do not fit
// in memory.
constexpr int kMinSide = 16;
constexpr int kMaxSide = 16384;

bool isHeadless(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--screenshot") == 0 || std::strcmp(argv[i], "--export-layout") == 0)
            return true;
    }
    return false;
}

// "WxH" with both sides in range; an invalid size otherwise.
QSize parseSize(const QString& text) {
    const QRegularExpressionMatch m = QRegularExpression("^(\\d{1,6})x(\\d{1,6})$").match(text);
    if (!m.hasMatch()) return QSize();
    const QSize size(m.captured(1).toInt(), m.captured(2).toInt());
    const auto inRange = [](int side) { return side >= kMinSide && side <= kMaxSide; };
    return inRange(size.width()) && inRange(size.height()) ? size : QSize();
}

int fail(const QString& message) {
    std::fprintf(stderr, "hxmapviewer: %s\n", qPrintable(message));
    return 2;
}

int takeScreenshot(HXViewerWindow& window, const QString& out, const QStringList& files) {
    const int failures = window.showAndOpen(files);
    const bool rendered = window.waitForRender(120000);
    if (!window.grab().save(out)) {
        std::fprintf(stderr, "hxmapviewer: cannot write '%s'\n", qPrintable(out));
        return 4;
    }
    for (const QString& error : window.errors()) std::fprintf(stderr, "hxmapviewer: %s\n", qPrintable(error));
    if (failures) return 2;
    if (!rendered) {
        std::fprintf(stderr, "hxmapviewer: the map did not finish rendering in time\n");
        return 3;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    // A screenshot needs no display.
    if (isHeadless(argc, argv) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    // Sharp on HiDPI screens: widgets sized in logical pixels, pixmaps and the map at device resolution.
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication app(argc, argv);
    QApplication::setApplicationName("hxmapviewer");
    QApplication::setOrganizationName("HXMapControls");
    // The viewer's own texts in the user's language, before any window is built (the library installs
    // the translation of its widgets itself).
    QTranslator translator;
    if (translator.load(QLocale(), "hxmapviewer", "_", ":/i18n"))
        QApplication::installTranslator(&translator);

    QCommandLineParser parser;
    parser.setApplicationDescription("A map viewer for vector and raster data.");
    parser.addHelpOption();
    parser.addPositionalArgument("files", "Vector or raster files to open.", "[FILE...]");
    QCommandLineOption screenshot("screenshot", "Render, write the window to a PNG and exit.", "out.png");
    QCommandLineOption size("size",
                            QString("Window size, each side %1 to %2 pixels (default for a screenshot: "
                                    "1280x800; otherwise the last size used, at first 3/4 of the screen).")
                                .arg(kMinSide)
                                .arg(kMaxSide),
                            "WxH", "1280x800");
    QCommandLineOption crs("crs",
                           "The map's coordinate system (EPSG code, WKT or PROJ); it must be geographic "
                           "or projected.",
                           "definition");
    QCommandLineOption grid("grid", "Show the map's grid and rulers (View > Grid).");
    QCommandLineOption exportLayout("export-layout", "Compose a page of the files, write it and exit.",
                                    "out.pdf");
    QCommandLineOption layoutDoc("layout", "A layout document: opened in the viewer, or exported.", "doc");
    QCommandLineOption paper("paper", "Paper for --export-layout (A0-A5, Letter, Legal).", "name", "A4");
    QCommandLineOption landscape("landscape", "Landscape paper for --export-layout.");
    QCommandLineOption dpi("dpi", "Resolution for --export-layout.", "N", "300");
    QCommandLineOption title("title", "Title for --export-layout.", "text");
    parser.addOptions({screenshot, size, crs, grid, exportLayout, layoutDoc, paper, landscape, dpi, title});
    parser.process(app);

    if (parser.isSet(exportLayout)) {
        HXLayoutExport::Options options;
        options.out = parser.value(exportLayout);
        options.layout = parser.value(layoutDoc);
        options.paper = parser.value(paper);
        options.landscape = parser.isSet(landscape);
        options.dpi = parser.value(dpi).toInt();
        options.title = parser.value(title);
        options.crs = parser.value(crs);
        options.files = parser.positionalArguments();
        return HXLayoutExport::Run(options);
    }

    const QSize wanted = parseSize(parser.value(size));
    if (!wanted.isValid()) {
        return fail(QString("--size '%1': expected WxH with each side %2 to %3 pixels")
                        .arg(parser.value(size))
                        .arg(kMinSide)
                        .arg(kMaxSide));
    }
    HXViewerWindow window;
    QString error;
    if (parser.isSet(crs) && !window.setCoordinateSystem(parser.value(crs), &error)) {
        return fail(QString("--crs: %1").arg(error));
    }
    if (parser.isSet(grid)) window.setGridShown(true);
    if (parser.isSet(screenshot) || parser.isSet(size)) window.resize(wanted);
    if (parser.isSet(screenshot))
        return takeScreenshot(window, parser.value(screenshot), parser.positionalArguments());
    // Layout documents open in a layout window; everything else on the map.
    QStringList files = parser.positionalArguments(), layouts;
    if (parser.isSet(layoutDoc)) layouts << parser.value(layoutDoc);
    for (const QString& file : parser.positionalArguments()) {
        if (!file.endsWith(".hxlayout", Qt::CaseInsensitive)) continue;
        layouts << file;
        files.removeOne(file);
    }
    window.show();
    window.openFiles(files);
    for (const QString& path : layouts) {
        auto* layout = new HXLayoutWindow(&window);
        layout->setWindowFlag(Qt::Window);
        layout->show();
        layout->openLayout(path);
    }
    return app.exec();
}
