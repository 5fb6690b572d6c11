#include "HOMapPainter.h"

#include <QPaintEngine>
#include <QPainter>

#include "HOCoordinateSystem.h"
#include "HOLabelPass.h"
#include "HOLayerBlend.h"
#include "HOMap.h"
#include "HOMapGridOverlay.h"
#include "HORenderContext.h"
#include "HORenderRequest.h"

namespace HXObjects {

namespace {

// Where a map is drawn: the device area with its origin at (0, 0), where rasters draw at device
// resolution, and the same area in screen pixels, which the painter scales to the device.
struct Area {
    HODisplayTransform device;
    HOSize size;
    double dpi;
    HODisplayTransform screen;
    HOSize screenSize;
    const HOCoordinateSystem* system;
    const HOTrackCancel* cancel;

    double Scale() const { return dpi / HOMapPainter::kScreenDpi; }
    bool IsCancelled() const { return cancel && cancel->IsCancelled(); }
    HORenderContext ContextFor(QPainter& painter, bool raster) const {
        HORenderContext context;
        context.painter = &painter;
        context.SetArea(raster ? device : screen, raster ? size : screenSize);
        context.mapSystem = system;
        context.cancel = cancel;
        context.dpi = raster ? dpi : HOMapPainter::kScreenDpi;
        return context;
    }
};

// Draws a layer with `painter`, whose transform maps the area's device pixels.
void drawLayer(QPainter& painter, HOLayer& layer, const Area& area) {
    const bool raster = layer.GetLayerType() == HOLayer::RasterLayer;
    painter.save();
    if (!raster) painter.scale(area.Scale(), area.Scale());
    layer.Render(area.ContextFor(painter, raster));
    painter.restore();
}

// Draws a layer into a transparent picture of its own and lays that over what is below with the
// layer's opacity and composition, as a map view composes its layer pictures.
void drawComposed(QPainter& painter, HOLayer& layer, const Area& area) {
    QImage picture(area.size.width, area.size.height, QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull()) return;
    picture.fill(Qt::transparent);
    {
        QPainter own(&picture);
        own.setRenderHint(QPainter::Antialiasing, true);
        drawLayer(own, layer, area);
    }
    painter.save();
    painter.setOpacity(layer.GetOpacity());
    painter.setCompositionMode(HOLayerBlend::ModeOf(layer.GetComposition()));
    painter.drawImage(QPointF(0, 0), picture);
    painter.restore();
}

// The visible layers and the graphics layer. `composes`: the device blends pictures (an image);
// otherwise (a PDF page, a printer) a translucent layer is drawn translucent and stays vector.
void drawLayers(QPainter& painter, const HOMap& map, const Area& area, bool composes) {
    for (const auto& layer : map.GetLayers(true)) {
        if (area.IsCancelled()) return;
        if (!layer->IsVisible()) continue;
        if (composes && !HOLayerBlend::IsPlain(*layer)) {
            drawComposed(painter, *layer, area);
            continue;
        }
        painter.save();
        painter.setOpacity(layer->GetOpacity());
        drawLayer(painter, *layer, area);
        painter.restore();
    }
    drawLayer(painter, *map.GetGraphicsLayer(), area);
}

bool blends(const HOMap& map) {
    for (const auto& layer : map.GetLayers(true))
        if (layer->IsVisible() && layer->GetComposition() != HOLayer::SourceOver) return true;
    return false;
}

// Qt's PDF output draws every composition mode as plain painting over. A map that blends is drawn
// into one picture at the device's resolution, so that it looks as on screen.
void drawBlendedLayers(QPainter& painter, const HOMap& map, const Area& area) {
    QImage picture(area.size.width, area.size.height, QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull()) return;
    picture.fill(map.GetBackgroundColor().toQColor());
    {
        QPainter own(&picture);
        own.setRenderHint(QPainter::Antialiasing, true);
        drawLayers(own, map, area, true);
    }
    painter.drawImage(QPointF(0, 0), picture);
}

}  // namespace

void HOMapPainter::Paint(QPainter& painter, const HOMap& map, const HODisplayTransform& transform,
                         const HOSize& size, double dpi, const HOMapRulerAndGrid* grid,
                         const HOTrackCancel* cancel) {
    if (size.width <= 0 || size.height <= 0 || dpi <= 0.0) return;
    const HORefPtr<HOCoordinateSystem> system = map.GetSpatialReference();
    Area area{transform, size, dpi, transform, {}, system.get(), cancel};
    area.device.deviceLeft = 0.0;
    area.device.deviceTop = 0.0;
    const double k = area.Scale();
    area.screen = area.device;
    area.screen.unitsPerPixel = transform.unitsPerPixel * k;
    area.screenSize = HOSize(qMax(1, qRound(size.width / k)), qMax(1, qRound(size.height / k)));

    painter.save();
    painter.translate(transform.deviceLeft, transform.deviceTop);
    painter.setClipRect(QRectF(0, 0, size.width, size.height), Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.fillRect(QRectF(0, 0, size.width, size.height), map.GetBackgroundColor().toQColor());
    const bool composes = painter.paintEngine()->type() == QPaintEngine::Raster;
    if (composes || !blends(map))
        drawLayers(painter, map, area, composes);
    else
        drawBlendedLayers(painter, map, area);
    // Labels and the grid stay vectors above the layers.
    painter.scale(k, k);
    HORenderRequest labels;
    labels.transform = area.screen;
    labels.size = area.screenSize;
    labels.dpi = kScreenDpi;
    // Labels lie wholly inside the clip and within the rulers, whose bands are drawn over the map.
    HOMapGridOverlay overlay;  // one page's worth: its projections are not worth keeping
    const HOMapGridOverlay::Target target{area.screen, area.screenSize, system, kScreenDpi};
    const bool gridded = grid && HOMapGridOverlay::IsEnabled(*grid);
    QRectF inside(0, 0, size.width / k, size.height / k);
    if (gridded) inside &= overlay.MapFrame(*grid, target);
    if (!area.IsCancelled())
        HOLabelPass::Paint(painter, map.GetLayers(true), labels, inside, system.get(), cancel);
    if (gridded) overlay.Draw(painter, *grid, target);
    painter.restore();
}

}  // namespace HXObjects
