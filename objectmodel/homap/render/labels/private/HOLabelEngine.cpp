#include "render/labels/private/HOLabelEngine.h"

#include <QPainter>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace HXObjects {

HOLabelEngine::HOLabelEngine(const QRectF& area) : m_index(area) {}

int HOLabelEngine::AddStyle(const HOLabelSettings& settings, double dpi) {
    m_styles.push_back(std::make_unique<HOLabelStyle>(settings, dpi));
    return int(m_styles.size()) - 1;
}

std::vector<QRectF> HOLabelEngine::boxesOf(const HOLabelCandidate& candidate, QSizeF size) {
    const double h = size.height();
    const auto rotated = [h](const QPointF& centre, double angle, double width) {
        return QTransform()
            .translate(centre.x(), centre.y())
            .rotate(angle)
            .mapRect(QRectF(-width / 2, -h / 2, width, h));
    };
    std::vector<QRectF> boxes;
    if (!candidate.glyphs.empty()) {
        // The halo's margin is in the label's width and height; each character takes a height's share of it.
        const double margin =
            size.width() - std::accumulate(candidate.glyphs.begin(), candidate.glyphs.end(), 0.0,
                                           [](double sum, const HOLabelGlyph& g) { return sum + g.width; });
        for (const HOLabelGlyph& glyph : candidate.glyphs)
            boxes.push_back(rotated(glyph.centre, glyph.angle, glyph.width + margin));
        return boxes;
    }
    const double w = size.width();
    if (candidate.angle == 0.0) return {QRectF(candidate.centre - QPointF(w / 2, h / 2), size)};
    const int pieces = std::max(1, int(std::ceil(w / h)));
    const QTransform placed =
        QTransform().translate(candidate.centre.x(), candidate.centre.y()).rotate(candidate.angle);
    for (int i = 0; i < pieces; ++i)
        boxes.push_back(placed.mapRect(QRectF(-w / 2 + i * w / pieces, -h / 2, w / pieces, h)));
    return boxes;
}

bool HOLabelEngine::Offer(const QString& text, QSizeF size, int style,
                          const std::vector<HOLabelCandidate>& candidates) {
    for (const HOLabelCandidate& candidate : candidates) {
        std::vector<QRectF> boxes = boxesOf(candidate, size);
        if (!std::all_of(boxes.begin(), boxes.end(), [&](const QRectF& box) { return m_index.IsFree(box); }))
            continue;
        for (const QRectF& box : boxes) m_index.Insert(box);
        m_placed.push_back(
            {text, candidate.centre, candidate.angle, candidate.glyphs, std::move(boxes), style});
        return true;
    }
    return false;
}

void HOLabelEngine::Draw(QPainter& painter) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    const auto drawAt = [&painter](const HOLabelStyle& style, const QPointF& centre, double angle,
                                   const QString& text) {
        painter.save();
        painter.translate(centre);
        painter.rotate(angle);
        style.Draw(painter, text);
        painter.restore();
    };
    for (const HOPlacedLabel& label : m_placed) {
        if (label.glyphs.empty()) drawAt(Style(label.style), label.centre, label.angle, label.text);
        for (const HOLabelGlyph& glyph : label.glyphs)
            drawAt(Style(label.style), glyph.centre, glyph.angle, glyph.text);
    }
    painter.restore();
}

}  // namespace HXObjects
