// Builds against the installed headers and library only: a canvas in each drawing mode, the
// library's marker class, a coordinate system and the licence queries. Exits non-zero when a canvas
// comes up without its views or the object model does not answer.
#include <HOCoordinateSystem.h>
#include <HXLicense.h>
#include <HXMapCanvas.h>
#include <HXMapControls.h>

#include <QApplication>
#include <QStatusBar>
#include <cstdio>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    HXMapControls marker;
    marker = HXMapControls();

    HXMapCanvas map(HXMapCanvas::MapViewMode, nullptr);
    HXMapCanvas layout(HXMapCanvas::PageLayoutMode, nullptr);
    map.resize(640, 480);
    map.show();
    app.processEvents();
    const auto cgcs2000 = HXObjects::HOCoordinateSystem::FromUserInput("EPSG:4490");
    if (!cgcs2000 || !cgcs2000->IsGeographic() || HXLicense::status() != HXLicenseStatus::Absent) {
        std::fprintf(stderr, "hxhost: the object model did not answer\n");
        return 1;
    }
    if (!map.GetMapView() || !layout.GetPageLayoutView() || !map.StatusBar() || map.windowTitle() != "Map") {
        std::fprintf(stderr, "hxhost: the canvas came up incomplete\n");
        return 1;
    }
    std::printf("hxhost: canvas scale 1:%g\n", map.scale());
    return 0;
}
