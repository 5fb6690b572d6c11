#include "render/private/HOFeatureRenderer.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <thread>

#include "render/private/HOFeaturePainter.h"
#include "render/private/HORenderTasks.h"

namespace HXObjects {

namespace {

constexpr std::size_t cancelPollInterval = 2048;
// Below this many vertices a second thread costs more than it saves.
constexpr uint32_t splitVertexThreshold = 200000;

}  // namespace

HOFeatureRenderer::HOFeatureRenderer(const HOFeatureStore& store, const HOFeatureStyleSet& styles,
                                     const HORenderContext& context)
    : m_store(store), m_styles(styles), m_context(context) {}

void HOFeatureRenderer::Render() {
    if (!m_context.painter || m_context.extent.IsEmpty() || !(m_context.transform.unitsPerPixel > 0)) return;
    std::vector<uint32_t> features = m_store.FeaturesIn(HOBoxOf(m_context.extent));
    if (features.empty() || m_context.IsCancelled()) return;
    std::vector<uint32_t> selected;
    if (m_styles.HasSelection()) {
        const HOFeatureTopology& topology = m_store.Topology();
        const auto isSelected = [&](uint32_t f) { return m_styles.IsSelected(topology.Id(f)); };
        std::copy_if(features.begin(), features.end(), std::back_inserter(selected), isSelected);
        features.erase(std::remove_if(features.begin(), features.end(), isSelected), features.end());
    }
    const Range all{features.data(), features.data() + features.size()};
    // Feature painters change pen, brush and hints; the caller gets its painter back as it was.
    m_context.painter->save();
    const bool finished = canSplit(features.size()) ? drawInTwo(all) : draw(*m_context.painter, all, false);
    if (finished) draw(*m_context.painter, {selected.data(), selected.data() + selected.size()}, true);
    m_context.painter->restore();
}

bool HOFeatureRenderer::draw(QPainter& painter, Range features, bool highlighted) const {
    HOFeaturePainter featurePainter(painter, m_store, m_context.transform);
    const HOFeatureTopology& topology = m_store.Topology();
    // Only the context's own painter shows progress: a part drawn aside is not in its picture yet.
    const bool reports = &painter == m_context.painter;
    std::size_t done = 0;
    for (const uint32_t* f = features.first; f != features.second; ++f) {
        if (++done % cancelPollInterval == 0) {
            if (m_context.IsCancelled()) return false;
            if (reports) m_context.ReportProgress();
        }
        if (topology.IsMixed(*f)) {
            drawMembers(featurePainter, *f, highlighted);
            continue;
        }
        const HOFeatureKind kind = topology.Kind(*f);
        const HOStyle& style =
            highlighted ? m_styles.Highlight(kind) : m_styles.StyleFor(kind, *f, topology.Id(*f));
        featurePainter.Draw(kind, topology.PartBegin(*f), topology.PartEnd(*f), style,
                            !highlighted && &style == &m_styles.KindStyle(kind));
    }
    return true;
}

void HOFeatureRenderer::drawMembers(HOFeaturePainter& painter, uint32_t feature, bool highlighted) const {
    // Each run of parts of one kind is a member of the collection, drawn as what it is.
    const HOFeatureTopology& topology = m_store.Topology();
    const uint32_t end = topology.PartEnd(feature);
    for (uint32_t first = topology.PartBegin(feature), next; first < end; first = next) {
        const HOFeatureKind kind = topology.PartKind(feature, first);
        for (next = first + 1; next < end && topology.PartKind(feature, next) == kind;) ++next;
        const int64_t id = topology.Id(feature);
        const HOStyle& style =
            highlighted ? m_styles.Highlight(kind) : m_styles.MemberStyleFor(kind, feature, id);
        painter.Draw(kind, first, next, style, false);
    }
}

bool HOFeatureRenderer::canSplit(std::size_t count) const {
    if (count < 2 || std::thread::hardware_concurrency() < 2) return false;
    const QPainter& painter = *m_context.painter;
    const QPaintDevice* device = painter.device();
    if (!device || device->devType() != QInternal::Image || device->devicePixelRatioF() != 1.0 ||
        !painter.transform().isIdentity() || painter.hasClipping())
        return false;
    const HOFeatureTopology& t = m_store.Topology();
    const uint32_t vertices = t.VertexBegin(t.PartEnd(m_store.FeatureCount() - 1));
    // The layer as a whole is a cheap proxy for the work: a zoomed-in view of a big layer still
    // carries few features, so weigh by the share of features visible.
    return double(vertices) * double(count) / double(m_store.FeatureCount()) >= splitVertexThreshold;
}

HOFeatureRenderer::Range::first_type HOFeatureRenderer::balancedMiddle(Range features) const {
    const HOFeatureTopology& t = m_store.Topology();
    const auto firstVertex = [&](uint32_t f) { return t.VertexBegin(t.PartBegin(f)); };
    const uint32_t low = firstVertex(*features.first);
    const uint32_t high = t.VertexBegin(t.PartEnd(*(features.second - 1)));
    const uint32_t half = low + (high - low) / 2;
    // Features are in source order, so their first vertices ascend.
    return std::lower_bound(features.first, features.second, half,
                            [&](uint32_t f, uint32_t v) { return firstVertex(f) < v; });
}

bool HOFeatureRenderer::drawInTwo(Range features) const {
    QPainter& painter = *m_context.painter;
    const QPaintDevice* device = painter.device();
    QImage upper(device->width(), device->height(), QImage::Format_ARGB32_Premultiplied);
    upper.fill(Qt::transparent);
    const uint32_t* middle = balancedMiddle(features);
    bool upperDone = false;
    HORenderTasks upperHalf;
    upperHalf.Add([&] {
        QPainter upperPainter(&upper);
        upperPainter.setRenderHints(painter.renderHints());
        upperDone = draw(upperPainter, {middle, features.second}, false);
    });
    const bool lowerDone = draw(painter, {features.first, middle}, false);
    upperHalf.Wait();
    if (!lowerDone || !upperDone) return false;
    painter.drawImage(0, 0, upper);
    return true;
}

}  // namespace HXObjects
