// hxmapviewer: a small desktop map viewer built on HXMapCanvas.
//   hxmapviewer [FILE...]
//   hxmapviewer --screenshot out.png [--size 1280x800] [--crs EPSG:4490] [FILE...]
//   hxmapviewer --export-layout OUT.pdf|OUT.png [--paper A4] [--landscape] [--dpi N] [--title TEXT]
//               [--layout DOC] [FILE...]
#include <QApplication>
#include <QCommandLineParser>
#include <QRegularExpression>
#include <cstdio>
#include <cstring>

#include "HXLayoutExport.h"
#include "HXLayoutWindow.h"
#include "HXViewerWindow.h"

namespace {

bool isHeadless(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--screenshot") == 0 || std::strcmp(argv[i], "--export-layout") == 0)
            return true;
    }
    return false;
}

QSize parseSize(const QString& text) {
    const QRegularExpressionMatch m = QRegularExpression("^(\\d+)x(\\d+)$").match(text);
    return m.hasMatch() ? QSize(m.captured(1).toInt(), m.captured(2).toInt()) : QSize();
}

int takeScreenshot(HXViewerWindow& window, const QString& out, const QStringList& files) {
    window.show();
    const int failures = window.openFiles(files);
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
    // A screenshot or a page export needs no display.
    if (isHeadless(argc, argv) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName("hxmapviewer");
    QApplication::setOrganizationName("HXMapControls");

    QCommandLineParser parser;
    parser.setApplicationDescription("A map viewer for vector and raster data.");
    parser.addHelpOption();
    parser.addPositionalArgument("files", "Vector or raster files to open.", "[FILE...]");
    QCommandLineOption screenshot("screenshot", "Render, write the window to a PNG and exit.", "out.png");
    QCommandLineOption size("size", "Window size for the screenshot.", "WxH", "1280x800");
    QCommandLineOption crs("crs", "The map's coordinate system (EPSG code, WKT or PROJ).", "definition");
    QCommandLineOption exportLayout("export-layout", "Compose a page of the files, write it and exit.",
                                    "out.pdf");
    QCommandLineOption layoutDoc("layout", "A layout document: opened in the viewer, or exported.", "doc");
    QCommandLineOption paper("paper", "Paper for --export-layout (A0-A5, Letter, Legal).", "name", "A4");
    QCommandLineOption landscape("landscape", "Landscape paper for --export-layout.");
    QCommandLineOption dpi("dpi", "Resolution for --export-layout.", "N", "300");
    QCommandLineOption title("title", "Title for --export-layout.", "text");
    parser.addOptions({screenshot, size, crs, exportLayout, layoutDoc, paper, landscape, dpi, title});
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

    HXViewerWindow window;
    if (parser.isSet(crs)) window.setCoordinateSystem(parser.value(crs));
    if (parser.isSet(screenshot)) {
        const QSize wanted = parseSize(parser.value(size));
        window.resize(wanted.isValid() ? wanted : QSize(1280, 800));
        return takeScreenshot(window, parser.value(screenshot), parser.positionalArguments());
    }
    window.show();
    // Layout documents open in a layout window; everything else on the map.
    QStringList files = parser.positionalArguments(), layouts;
    if (parser.isSet(layoutDoc)) layouts << parser.value(layoutDoc);
    for (const QString& file : parser.positionalArguments()) {
        if (!file.endsWith(".hxlayout", Qt::CaseInsensitive)) continue;
        layouts << file;
        files.removeOne(file);
    }
    window.openFiles(files);
    for (const QString& path : layouts) {
        auto* layout = new HXLayoutWindow(&window);
        layout->setWindowFlag(Qt::Window);
        layout->show();
        layout->openLayout(path);
    }
    return app.exec();
}
