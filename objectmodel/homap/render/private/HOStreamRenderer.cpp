#include "render/private/HOStreamRenderer.h"

#include "render/private/HOFeatureRenderer.h"
#include "source/private/HOExtentProjector.h"
#include "source/private/HOFeatureOverview.h"
#include "source/private/HOFeatureStream.h"
#include "source/private/HOStoreReprojector.h"

namespace HXObjects {

namespace {

// Large enough that a batch's overhead (one query step, one painter setup) is small, small enough
// that the first batch of a dense view shows well within a tenth of a second.
constexpr std::size_t batchSize = 20000;

}  // namespace

HOStreamRenderer::HOStreamRenderer(const HOFeatureStream& stream, const HOFeatureOverview* overview,
                                   const HOFeatureStyleSet& styles, const HORenderContext& context,
                                   const HOCoordinateSystem* layerSystem)
    : m_stream(stream), m_overview(overview), m_styles(styles), m_context(context), m_layerSystem(layerSystem) {}

bool HOStreamRenderer::needsProjection() const {
    return !HOExtentProjector::IsIdentity(m_layerSystem, m_context.mapSystem);
}

void HOStreamRenderer::Render() {
    if (!m_context.painter || m_context.extent.IsEmpty() || !(m_context.transform.unitsPerPixel > 0)) return;
    const std::shared_ptr<const HOFeatureStore> overview = m_overview ? m_overview->Store() : nullptr;
    if (overview && !needsProjection() && m_context.transform.unitsPerPixel >= m_overview->Tolerance()) {
        HOFeatureRenderer(*overview, m_styles, m_context).Render();
        return;
    }
    const HORect area = HOExtentProjector::Project(m_context.extent, m_context.mapSystem, m_layerSystem);
    if (area.IsEmpty()) return;
    m_stream.Read(HOBoxOf(area), batchSize, [this](const HOFeatureStore& batch) { return drawBatch(batch); });
}

bool HOStreamRenderer::drawBatch(const HOFeatureStore& batch) const {
    if (m_context.IsCancelled()) return false;
    if (needsProjection()) {
        const std::shared_ptr<const HOFeatureStore> projected =
            HOStoreReprojector::Project(batch, m_layerSystem, m_context.mapSystem);
        if (!projected) return false;
        HOFeatureRenderer(*projected, m_styles, m_context).Render();
    } else {
        HOFeatureRenderer(batch, m_styles, m_context).Render();
    }
    if (m_batchDrawn) m_batchDrawn();
    return !m_context.IsCancelled();
}

}  // namespace HXObjects
