#include "render/private/HOFeatureRenderer.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <memory>
#include <thread>

#include "render/private/HOFeaturePainter.h"
#include "render/private/HORenderTasks.h"

namespace HXObjects {

namespace {

constexpr std::size_t cancelPollInterval = 2048;
// Below this much work (vertices, or fill pixels over fillPixelsPerVertex) bands cost more than
// they save.
constexpr double splitWork = 50000;
constexpr double fillPixelsPerVertex = 8;
// Features the bands draw between two looks at the whole picture (progress, cancel).
constexpr std::size_t bandRound = 65536;
// Features sampled to find where the work lies.
constexpr std::size_t workSample = 65536;

}  // namespace

// Rows [top, bottom) of the target image, drawn through a painter of their own: the features whose
// symbols reach those rows — whose boxes meet [low, high] in map units — in source order.
struct HOFeatureRenderer::Band {
    int top = 0;
    int bottom = 0;
    double low = 0;
    double high = 0;
    QImage picture;
    std::unique_ptr<QPainter> painter;
    std::unique_ptr<HOFeaturePainter> featurePainter;
    std::vector<uint32_t> round;  // the features of the current round that are the band's
};

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
    bool finished;
    const int bands = features.size() > 1 ? threads() : 1;
    const std::vector<double> work = bands > 1 ? workByRow(features) : std::vector<double>();
    if (bands > 1 && work.back() >= splitWork)
        finished = drawInBands(features, bandRows(work, bands));
    else
        finished = drawHere(features, false);
    if (finished) drawHere(selected, true);
}

bool HOFeatureRenderer::drawHere(const std::vector<uint32_t>& features, bool highlighted) const {
    // Feature painters change pen, brush and hints; the caller gets its painter back as it was.
    m_context.painter->save();
    bool finished;
    {
        HOFeaturePainter painter(*m_context.painter, m_store, m_context.transform);
        finished =
            draw(painter, {features.data(), features.data() + features.size()}, highlighted, !highlighted);
    }
    m_context.painter->restore();
    return finished;
}

bool HOFeatureRenderer::draw(HOFeaturePainter& featurePainter, Range features, bool highlighted,
                             bool reports) const {
    const HOFeatureTopology& topology = m_store.Topology();
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

int HOFeatureRenderer::threads() const {
    const int threads =
        m_context.parallelism > 0 ? m_context.parallelism : int(std::thread::hardware_concurrency());
    const QPainter& painter = *m_context.painter;
    const QPaintDevice* device = painter.device();
    // Bands share the target's pixels: only a plain image drawn without transform or clip.
    if (threads < 2 || !device || device->devType() != QInternal::Image ||
        device->devicePixelRatioF() != 1.0 || !painter.transform().isIdentity() || painter.hasClipping() ||
        device->height() < threads)
        return 1;
    return threads;
}

std::vector<double> HOFeatureRenderer::workByRow(const std::vector<uint32_t>& features) const {
    // From a sample of the features: a vertex each, and a pixel of fill for every few, at the
    // feature's middle row; summed down the rows.
    const QPaintDevice& device = *m_context.painter->device();
    const double height = device.height(), width = device.width();
    const double pixelsPerUnit = 1.0 / m_context.transform.unitsPerPixel;
    const double symbol = 2 * m_styles.Reach();
    std::vector<double> work(std::size_t(height) + 1, 0.0);
    const HOFeatureTopology& t = m_store.Topology();
    const std::size_t stride = std::max<std::size_t>(1, features.size() / workSample);
    for (std::size_t i = 0; i < features.size(); i += stride) {
        const uint32_t f = features[i];
        const HOBox box = m_store.FeatureBox(f);
        const double row = m_context.transform.ToDevice({box.min.x, (box.min.y + box.max.y) / 2}).y;
        // The pixels its symbols may cover: a point's marker too.
        const double area = std::min(width, (box.max.x - box.min.x) * pixelsPerUnit + symbol) *
                            std::min(height, (box.max.y - box.min.y) * pixelsPerUnit + symbol);
        const double vertices = t.VertexBegin(t.PartEnd(f)) - t.VertexBegin(t.PartBegin(f));
        work[std::size_t(std::clamp(row, 0.0, height))] +=
            double(stride) * (vertices + area / fillPixelsPerVertex);
    }
    for (std::size_t row = 1; row < work.size(); ++row) work[row] += work[row - 1];
    return work;
}

std::vector<int> HOFeatureRenderer::bandRows(const std::vector<double>& work, int bandCount) {
    // Bands of equal work; each at least one row.
    const int height = int(work.size()) - 1;
    std::vector<int> rows{0};
    for (int i = 1; i < bandCount; ++i) {
        const double share = work.back() * i / bandCount;
        const int row = int(std::lower_bound(work.begin(), work.end(), share) - work.begin());
        rows.push_back(std::clamp(row, rows.back() + 1, height - (bandCount - i)));
    }
    rows.push_back(height);
    return rows;
}

std::vector<HOFeatureRenderer::Band> HOFeatureRenderer::bandsOf(const std::vector<int>& rows) const {
    auto* image = static_cast<QImage*>(m_context.painter->device());
    const HODisplayTransform& t = m_context.transform;
    const double margin = std::ceil(m_styles.Reach());
    std::vector<Band> bands(rows.size() - 1);
    for (std::size_t i = 0; i < bands.size(); ++i) {
        Band& band = bands[i];
        band.top = rows[i];
        band.bottom = rows[i + 1];
        band.low = t.ToMap(0, band.bottom + margin).y;
        band.high = t.ToMap(0, band.top - margin).y;
        // The whole picture, drawn through a clip of the band's rows: the same arithmetic as in one
        // pass, and only the band's own pixels written.
        band.picture =
            QImage(image->bits(), image->width(), image->height(), image->bytesPerLine(), image->format());
        band.painter = std::make_unique<QPainter>(&band.picture);
        band.painter->setRenderHints(m_context.painter->renderHints());
        band.painter->setClipRect(0, band.top, image->width(), band.bottom - band.top);
        band.featurePainter = std::make_unique<HOFeaturePainter>(*band.painter, m_store, t);
    }
    return bands;
}

void HOFeatureRenderer::drawBand(Band& band, Range features) const {
    band.round.clear();
    for (const uint32_t* f = features.first; f != features.second; ++f) {
        const HOBox box = m_store.FeatureBox(*f);
        if (box.max.y >= band.low && box.min.y <= band.high) band.round.push_back(*f);
    }
    draw(*band.featurePainter, {band.round.data(), band.round.data() + band.round.size()}, false, false);
}

bool HOFeatureRenderer::drawInBands(const std::vector<uint32_t>& features,
                                    const std::vector<int>& rows) const {
    std::vector<Band> bands = bandsOf(rows);
    // In rounds: between two, no band is drawing and the picture may be shown as it stands.
    for (std::size_t next = 0; next < features.size() && !m_context.IsCancelled();) {
        const std::size_t end = std::min(features.size(), next + bandRound);
        const Range range{features.data() + next, features.data() + end};
        next = end;
        HORenderTasks round;
        for (Band& band : bands) round.Add([this, &band, range] { drawBand(band, range); });
        round.Wait();
        if (next < features.size()) m_context.ReportProgress();
    }
    // The painters draw what they queued as they go: that too at once.
    HORenderTasks finish;
    for (Band& band : bands) finish.Add([&band] { band.featurePainter.reset(); });
    finish.Wait();
    return !m_context.IsCancelled();
}

}  // namespace HXObjects
