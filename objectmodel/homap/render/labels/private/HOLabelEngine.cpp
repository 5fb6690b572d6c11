#include "render/labels/private/HOLabelEngine.h"

#include <QPainter>
#include <QTransform>
#include <algorithm>
#include <cmath>

namespace HXObjects {

HOLabelEngine::HOLabelEngine(QSize size) : m_index(size) {}

int HOLabelEngine::AddStyle(const HOLabelSettings& settings, double dpi) {
    m_styles.push_back(std::make_unique<HOLabelStyle>(settings, dpi));
    return int(m_styles.size()) - 1;
}

std::vector<QRectF> HOLabelEngine::boxesOf(const HOLabelCandidate& candidate, QSizeF size) {
    const double w = size.width();
    const double h = size.height();
    if (candidate.angle == 0.0) return {QRectF(candidate.centre - QPointF(w / 2, h / 2), size)};
    const int pieces = std::max(1, int(std::ceil(w / h)));
    const QTransform placed =
        QTransform().translate(candidate.centre.x(), candidate.centre.y()).rotate(candidate.angle);
    std::vector<QRectF> boxes;
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
        m_placed.push_back({text, candidate.centre, candidate.angle, std::move(boxes), style});
        return true;
    }
    return false;
}

void HOLabelEngine::Draw(QPainter& painter) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    for (const HOPlacedLabel& label : m_placed) {
        painter.save();
        painter.translate(label.centre);
        painter.rotate(label.angle);
        Style(label.style).Draw(painter, label.text);
        painter.restore();
    }
    painter.restore();
}

}  // namespace HXObjects
