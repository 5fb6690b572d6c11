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
constexpr std::size_t batchSize = 4096;

}  // namespace

HOStreamRenderer::HOStreamRenderer(const HOFeatureStream& stream, const HOFeatureOverview* overview,
                                   const HOFeatureStyleSet& styles, const HORenderContext& context,
                                   const HOCoordinateSystem* layerSystem)
    : m_stream(stream),
      m_overview(overview),
      m_styles(styles),
      m_context(context),
      m_layerSystem(layerSystem) {}

bool HOStreamRenderer::needsProjection() const {
    return !HOExtentProjector::IsIdentity(m_layerSystem, m_context.mapSystem);
}

void HOStreamRenderer::Render() {
    if (!m_context.painter || m_context.extent.IsEmpty() || !(m_context.transform.unitsPerPixel > 0)) return;
    if (drawOverview()) return;
    const HOBox area = areaInLayer();
    if (!area.IsValid()) return;
    // While the overview is being built a view at its scale is read from the source, until the
    // overview is ready: it then draws the whole view over what was read, far sooner than the rest
    // of the read would.
    bool overviewReady = false;
    m_stream.Read(area, batchSize, [&](const HOFeatureStore& batch) {
        overviewReady = overviewFits() && m_overview->Store();
        return !overviewReady && drawBatch(batch);
    });
    if (overviewReady) drawOverview();
}

HOBox HOStreamRenderer::areaInLayer() const {
    if (!needsProjection()) return HOBoxOf(m_context.extent);
    // The view's outline, densely sampled (a straight edge in one system is curved in another), in
    // the layer's system. Not cut to what the layer's system is meant for: the data may reach past it.
    constexpr int samples = 32;
    const HORect& e = m_context.extent;
    std::vector<HOVertex> outline;
    for (int i = 0; i <= samples; ++i) {
        const double fx = e.minx + e.Width() * i / samples, fy = e.miny + e.Height() * i / samples;
        outline.insert(outline.end(), {{fx, e.miny}, {fx, e.maxy}, {e.minx, fy}, {e.maxx, fy}});
    }
    if (!HOExtentProjector::Project(outline, m_context.mapSystem, m_layerSystem)) return HOBox();
    HOBox area;
    for (const HOVertex& v : outline) area.Add(v);
    // No point of the outline exists in the layer's system (a view of the whole world in a local
    // one): whatever of the layer is visible may lie anywhere in it.
    return area.IsValid() ? area : m_stream.Extent();
}

bool HOStreamRenderer::overviewFits() const {
    return m_overview && !needsProjection() && m_context.transform.unitsPerPixel >= m_overview->Tolerance();
}

bool HOStreamRenderer::drawOverview() const {
    const std::shared_ptr<const HOFeatureStore> overview = overviewFits() ? m_overview->Store() : nullptr;
    if (!overview) return false;
    HOFeatureRenderer(*overview, m_styles, m_context).Render();
    return true;
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
    m_context.ReportProgress();
    return !m_context.IsCancelled();
}

}  // namespace HXObjects
