#include "HXLayoutExport.h"

#include <QFileInfo>
#include <cstdio>

#include "HOCoordinateSystem.h"
#include "HODataFrame.h"
#include "HOFileFunc.h"
#include "HOLayoutComposer.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HOPageExporter.h"
#include "HOPageLayoutView.h"
#include "HXDataSources.h"
#include "HXLayerStyler.h"

using namespace HXObjects;

namespace {

// The page needs a size for its frames to be laid out; nothing is shown.
constexpr int kLayoutPixels = 1000;

void report(const QString& message) {
    std::fprintf(stderr, "hxmapviewer: %s\n", qPrintable(message));
}

int compose(HOPageLayoutView& layout, const HXLayoutExport::Options& o) {
    HOPageSetup setup;
    if (!setup.SetPaper(o.paper)) {
        report(
            QString("unknown paper '%1' (use one of %2)").arg(o.paper, HOPageSetup::PaperNames().join(", ")));
        return 1;
    }
    setup.SetLandscape(o.landscape);
    layout.SetPageSetup(setup);
    HORefPtr<HOMap> map(new HOMap);
    if (!o.crs.isEmpty()) {
        const HORefPtr<HOCoordinateSystem> system = HOCoordinateSystem::FromUserInput(o.crs);
        if (!system) {
            report(QString("cannot read the coordinate system '%1'").arg(o.crs));
            return 1;
        }
        map->SetSpatialReference(system);
    }
    int failures = 0;
    for (const QString& file : o.files) {
        QStringList errors;
        // The viewer's cartography and layer order, as on screen.
        for (const HORefPtr<HOLayer>& layer : HXDataSources::openLayers(file, &errors))
            HXLayerStyler::addLayer(map, layer);
        for (const QString& error : errors) report(error);
        failures += errors.size();
    }
    HXLayerStyler::styleMap(map);
    HORefPtr<HOMapView> view(new HOMapView("Map"));
    view->SetMap(map);
    HOLayoutComposer::ComposeDefault(layout, view, o.title);
    return failures ? 2 : 0;
}

int openDocument(HOPageLayoutView& layout, const QString& path) {
    HOFileFunc file(path);
    if (!layout.open(&file, 0)) {
        report(file.LastError());
        return 1;
    }
    for (const QString& warning : file.Warnings()) report(warning);
    return file.Warnings().isEmpty() ? 0 : 2;
}

}  // namespace

int HXLayoutExport::Run(const Options& o) {
    QString error;
    if (!HOPageExporter::CheckDpi(o.dpi, &error)) {
        report(error);
        return 1;
    }
    HORefPtr<HOPageLayoutView> layout(new HOPageLayoutView);
    layout->SetSize(kLayoutPixels, kLayoutPixels);
    const int opened = o.layout.isEmpty() ? compose(*layout, o) : openDocument(*layout, o.layout);
    layout->PauseRender();  // nothing is shown: the frames' maps need not render for a screen
    int result = opened == 1 ? 1 : 0;
    if (result == 0) {
        const bool pdf = QFileInfo(o.out).suffix().compare("pdf", Qt::CaseInsensitive) == 0;
        const bool written = pdf ? HOPageExporter::ExportPdf(*layout, o.out, o.dpi, o.title, &error)
                                 : HOPageExporter::ExportImage(*layout, o.out, o.dpi, &error);
        if (!written) report(error);
        result = written ? opened : 4;
    }
    // No frame's render may outlive the layout.
    for (const auto& element : layout->get_graphicscontainer()->GetElements()) {
        if (auto* frame = dynamic_cast<HODataFrame*>(element.get()))
            if (HOMapView* view = frame->get_map_view()) view->StopRender(true);
    }
    return result;
}
