#include "render/labels/private/HOLabelStyle.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace HXObjects {

namespace {

QFont fontOf(const HOLabelSettings& settings, double dpi) {
    QFont font(settings.fontFamily);
    // Pixels, not points: the picture's own resolution must not scale the text a second time.
    font.setPixelSize(std::max(1, int(std::lround(settings.fontSize * dpi / 72.0))));
    font.setBold(settings.bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

}  // namespace

HOLabelStyle::HOLabelStyle(const HOLabelSettings& settings, double dpi)
    : m_font(fontOf(settings, dpi)),
      m_metrics(m_font),
      m_color(settings.color.toQColor()),
      m_halo(settings.haloColor.toQColor(), 2.0 * settings.haloWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin),
      m_margin(std::max(0.0, settings.haloWidth)) {}

QSizeF HOLabelStyle::TextSize(const QString& text) const {
    return QSizeF(m_metrics.horizontalAdvance(text) + 2 * m_margin, m_metrics.height() + 2 * m_margin);
}

void HOLabelStyle::Draw(QPainter& painter, const QString& text) const {
    const double width = m_metrics.horizontalAdvance(text);
    const double baseline = (m_metrics.ascent() - m_metrics.descent()) / 2.0;
    QPainterPath path;
    path.addText(-width / 2.0, baseline, m_font, text);
    if (m_margin > 0) painter.strokePath(path, m_halo);
    painter.fillPath(path, m_color);
}

}  // namespace HXObjects
