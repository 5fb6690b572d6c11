#include "render/labels/private/HOLabelEngine.h"

#include <QPainter>
#include <QTransform>

namespace HXObjects {

HOLabelEngine::HOLabelEngine(QSize size) : m_index(size) {}

int HOLabelEngine::AddStyle(const HOLabelSettings& settings, double dpi) {
    m_styles.push_back(std::make_unique<HOLabelStyle>(settings, dpi));
    return int(m_styles.size()) - 1;
}

bool HOLabelEngine::Offer(const QString& text, QSizeF size, int style,
                          const std::vector<HOLabelCandidate>& candidates) {
    const QRectF text0(-size.width() / 2, -size.height() / 2, size.width(), size.height());
    for (const HOLabelCandidate& candidate : candidates) {
        const QRectF box = candidate.angle == 0.0
                               ? text0.translated(candidate.centre)
                               : QTransform().translate(candidate.centre.x(), candidate.centre.y())
                                     .rotate(candidate.angle)
                                     .mapRect(text0);
        if (!m_index.IsFree(box)) continue;
        m_index.Insert(box);
        m_placed.push_back({text, candidate.centre, candidate.angle, box, style});
        return true;
    }
    return false;
}

void HOLabelEngine::Draw(QPainter& painter) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::NoPen);
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
