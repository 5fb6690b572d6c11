#include "render/labels/private/HOFeatureLabeler.h"

#include "render/labels/private/HOLabelCandidates.h"

namespace HXObjects {

namespace {

constexpr std::size_t kCancelPollInterval = 4096;

}  // namespace

HOFeatureLabeler::HOFeatureLabeler(const HOFeatureStore& store, const HOLabelTexts& texts,
                                   const HOLabelSettings& settings, const HORenderContext& context,
                                   HOLabelEngine& engine, double symbolRadius)
    : m_store(store),
      m_texts(texts),
      m_settings(settings),
      m_context(context),
      m_engine(engine),
      m_symbolRadius(symbolRadius),
      m_style(engine.AddStyle(settings, context.dpi)) {}

bool HOFeatureLabeler::Run() {
    const std::vector<uint32_t> features = m_store.FeaturesIn(HOBoxOf(m_context.extent));
    std::size_t done = 0;
    for (const uint32_t feature : features) {
        if (++done % kCancelPollInterval == 0 && m_context.IsCancelled()) return false;
        label(feature);
    }
    return !m_context.IsCancelled();
}

void HOFeatureLabeler::label(uint32_t feature) {
    switch (m_store.Topology().Kind(feature)) {
        case HOFeatureKind::Point:
            labelPoint(feature);
            break;
        case HOFeatureKind::Line:
            labelLines(feature);
            break;
        case HOFeatureKind::Polygon:
            labelPolygon(feature);
            break;
        case HOFeatureKind::Empty:
            break;
    }
}

QPolygonF HOFeatureLabeler::pixels(uint32_t part) const {
    const HOFeatureTopology& t = m_store.Topology();
    const HOVertex* v = m_store.Vertices().data();
    QPolygonF polygon;
    polygon.reserve(int(t.VertexEnd(part) - t.VertexBegin(part)));
    for (uint32_t i = t.VertexBegin(part); i < t.VertexEnd(part); ++i) {
        const HOPoint p = m_context.transform.ToDevice(HOPoint(v[i].x, v[i].y));
        polygon.append(QPointF(p.x, p.y));
    }
    return polygon;
}

bool HOFeatureLabeler::textFor(uint32_t feature, const QPointF& anchor, QString& text) const {
    if (m_engine.Index().IsFull(anchor)) return false;
    const QStringRef value = m_texts.Text(feature);
    if (value.isEmpty()) return false;
    text = value.toString();
    return true;
}

void HOFeatureLabeler::offer(const QString& text, QSizeF size, const QPointF& anchor,
                             const std::vector<HOLabelCandidate>& candidates) {
    if (!m_engine.Offer(text, size, m_style, candidates)) m_engine.Index().NoteMiss(anchor);
}

void HOFeatureLabeler::labelPoint(uint32_t feature) {
    const HOFeatureTopology& t = m_store.Topology();
    const HOVertex& v = m_store.Vertices()[t.VertexBegin(t.PartBegin(feature))];
    const HOPoint p = m_context.transform.ToDevice(HOPoint(v.x, v.y));
    const QPointF anchor(p.x, p.y);
    QString text;
    if (!textFor(feature, anchor, text)) return;
    const QSizeF size = m_engine.Style(m_style).TextSize(text);
    offer(text, size, anchor, HOLabelCandidates::AroundPoint(anchor, m_symbolRadius, size));
}

void HOFeatureLabeler::labelLines(uint32_t feature) {
    const HOFeatureTopology& t = m_store.Topology();
    for (uint32_t part = t.PartBegin(feature); part < t.PartEnd(feature); ++part) {
        const QPolygonF line = pixels(part);
        const QPointF anchor = line.boundingRect().center();
        QString text;
        if (!textFor(feature, anchor, text)) return;
        const HOLabelStyle& style = m_engine.Style(m_style);
        const QSizeF size = style.TextSize(text);
        const auto characters = style.Characters(text);
        for (const auto& group :
             HOLabelCandidates::AlongLine(line, characters, size, m_settings.repeatDistance))
            offer(text, size, group.front().centre, group);
    }
}

void HOFeatureLabeler::labelPolygon(uint32_t feature) {
    const HOFeatureTopology& t = m_store.Topology();
    std::vector<QPolygonF> rings;
    for (uint32_t part = t.PartBegin(feature); part < t.PartEnd(feature); ++part)
        rings.push_back(pixels(part));
    QRectF bounds;
    for (const QPolygonF& ring : rings) bounds |= ring.boundingRect();
    QString text;
    if (!textFor(feature, bounds.center(), text)) return;
    const QSizeF size = m_engine.Style(m_style).TextSize(text);
    const QRectF visible(0, 0, m_context.size.width, m_context.size.height);
    const auto candidates = HOLabelCandidates::InsidePolygon(rings, visible, size);
    if (!candidates.empty()) offer(text, size, candidates.front().centre, candidates);
}

}  // namespace HXObjects
