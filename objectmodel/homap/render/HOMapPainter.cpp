#include "HOMapPainter.h"

#include <QPainter>

#include "HOCoordinateSystem.h"
#include "HOMap.h"
#include "HOMapGridOverlay.h"
#include "HORenderContext.h"

namespace HXObjects {

namespace {

HORenderContext contextFor(QPainter& painter, const HODisplayTransform& transform, const HOSize& size,
                           const HOCoordinateSystem* system, const HOTrackCancel* cancel, double dpi) {
    HORenderContext context;
    context.painter = &painter;
    context.SetArea(transform, size);
    context.mapSystem = system;
    context.cancel = cancel;
    context.dpi = dpi;
    return context;
}

}  // namespace

void HOMapPainter::Paint(QPainter& painter, const HOMap& map, const HODisplayTransform& transform,
                         const HOSize& size, double dpi, const HOMapRulerAndGrid* grid,
                         const HOTrackCancel* cancel) {
    if (size.width <= 0 || size.height <= 0 || dpi <= 0.0) return;
    // The device area with its origin at (0, 0): rasters draw here, at device resolution.
    HODisplayTransform device = transform;
    device.deviceLeft = 0.0;
    device.deviceTop = 0.0;
    // The same area in screen pixels; the painter scales them to the device.
    const double k = dpi / kScreenDpi;
    HODisplayTransform screen = device;
    screen.unitsPerPixel = transform.unitsPerPixel * k;
    const HOSize screenSize(qMax(1, qRound(size.width / k)), qMax(1, qRound(size.height / k)));
    const HORefPtr<HOCoordinateSystem> system = map.GetSpatialReference();

    painter.save();
    painter.translate(transform.deviceLeft, transform.deviceTop);
    painter.setClipRect(QRectF(0, 0, size.width, size.height), Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.fillRect(QRectF(0, 0, size.width, size.height), map.GetBackgroundColor().toQColor());
    const QTransform atDevice = painter.transform();
    QTransform atScreen = atDevice;
    atScreen.scale(k, k);
    auto drawLayer = [&](HOLayer& layer) {
        const bool raster = layer.GetLayerType() == HOLayer::RasterLayer;
        painter.setTransform(raster ? atDevice : atScreen);
        layer.Render(raster ? contextFor(painter, device, size, system.get(), cancel, dpi)
                            : contextFor(painter, screen, screenSize, system.get(), cancel, kScreenDpi));
    };
    for (const auto& layer : map.GetLayers(true)) {
        if (cancel && cancel->IsCancelled()) break;
        if (layer->IsVisible()) drawLayer(*layer);
    }
    drawLayer(*map.GetGraphicsLayer());
    painter.setTransform(atScreen);
    if (grid && HOMapGridOverlay::IsEnabled(*grid)) {
        HOMapGridOverlay overlay;  // one page's worth: its projections are not worth keeping
        overlay.Draw(painter, *grid, {screen, screenSize, system, kScreenDpi});
    }
    painter.restore();
}

}  // namespace HXObjects
