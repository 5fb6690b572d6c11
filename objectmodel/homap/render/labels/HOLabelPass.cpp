#include "HOLabelPass.h"

#include <QPainter>
#include <algorithm>

#include "HOCoordinateSystem.h"
#include "HOFeatureLayer.h"
#include "HOMap.h"
#include "HOMapScale.h"
#include "render/labels/private/HOLabelEngine.h"

namespace HXObjects {

std::vector<HOFeatureLayer*> HOLabelPass::PlacingOrder(const std::vector<HORefPtr<HOLayer>>& layers,
                                                       double scale) {
    std::vector<HOFeatureLayer*> labelled;
    for (auto it = layers.rbegin(); it != layers.rend(); ++it) {
        auto* features = dynamic_cast<HOFeatureLayer*>(it->get());
        if (!features || !(*it)->IsVisible()) continue;
        const HOLabelSettings settings = features->GetLabelSettings();
        if (settings.IsEnabled() && settings.ShowsAt(scale)) labelled.push_back(features);
    }
    std::stable_sort(labelled.begin(), labelled.end(), [](HOFeatureLayer* a, HOFeatureLayer* b) {
        return a->GetLabelSettings().priority > b->GetLabelSettings().priority;
    });
    return labelled;
}

bool HOLabelPass::IsCurrent(const HORenderRequest& request) const {
    return m_current && m_placedAt == request.transform &&
           m_placedSize == QSize(request.size.width, request.size.height);
}

bool HOLabelPass::place(HOLabelEngine& engine, const std::vector<HORefPtr<HOLayer>>& layers,
                        const HORenderRequest& request, HOCoordinateSystem* system,
                        const HOTrackCancel* cancel) {
    const HORenderContext context = request.Context(system, cancel);
    const double metresPerUnit = HOMapScale::MetresPerUnit(system ? system->GetUnit() : HOUnitMeter);
    const double scale = HOMapScale::Denominator(request.transform.unitsPerPixel, metresPerUnit, request.dpi);
    for (HOFeatureLayer* layer : PlacingOrder(layers, scale))
        if (!layer->PlaceLabels(context, engine)) return false;
    return !context.IsCancelled();
}

bool HOLabelPass::Paint(QPainter& painter, const std::vector<HORefPtr<HOLayer>>& layers,
                        const HORenderRequest& request, const QRectF& area, HOCoordinateSystem* system,
                        const HOTrackCancel* cancel) {
    HOLabelEngine engine(area);
    if (!place(engine, layers, request, system, cancel)) return false;
    engine.Draw(painter);
    return true;
}

bool HOLabelPass::Render(const std::vector<HORefPtr<HOLayer>>& layers, const HORenderRequest& request,
                         HOCoordinateSystem* system, const HOTrackCancel* cancel) {
    const QSize size(request.size.width, request.size.height);
    HOLabelEngine engine(QRectF(QPointF(0, 0), size));
    if (!place(engine, layers, request, system, cancel)) return false;
    // No labels, no picture: nothing to compose on every redraw.
    QImage image;
    if (!engine.Placed().empty()) {
        image = request.Picture();
        if (image.isNull()) return false;
        image.fill(Qt::transparent);
        QPainter painter(&image);
        engine.Draw(painter);
    }
    m_picture = HOViewFrame{std::move(image), request.transform};
    m_placedAt = request.transform;
    m_placedSize = size;
    m_current = true;
    return true;
}

void HOLabelPass::DrawInto(QPainter& painter, const HODisplayTransform& target) const {
    if (!m_picture.image.isNull()) m_picture.DrawInto(painter, target);
}

void HOLabelPass::Clear() {
    m_picture = HOViewFrame();
    m_current = false;
}

}  // namespace HXObjects
