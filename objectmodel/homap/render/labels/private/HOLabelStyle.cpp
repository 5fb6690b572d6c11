#include "render/labels/private/HOLabelStyle.h"

#include <QGlyphRun>
#include <QPainter>
#include <QTextBoundaryFinder>
#include <QTextLayout>
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
      m_haloColor(settings.haloColor.toQColor()),
      m_margin(std::max(0.0, settings.haloWidth)) {
    // Eight directions at the halo's width make a ring without gaps for widths up to a few pixels.
    for (int i = 0; i < 8; ++i)
        m_haloOffsets.push_back(QPointF(std::cos(i * M_PI / 4), std::sin(i * M_PI / 4)) * m_margin);
}

QSizeF HOLabelStyle::TextSize(const QString& text) const {
    return QSizeF(m_metrics.horizontalAdvance(text) + 2 * m_margin, m_metrics.height() + 2 * m_margin);
}

std::vector<std::pair<QString, double>> HOLabelStyle::Characters(const QString& text) const {
    std::vector<std::pair<QString, double>> characters;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (int start = 0, end = finder.toNextBoundary(); end > 0; start = end, end = finder.toNextBoundary()) {
        const QString character = text.mid(start, end - start);
        characters.emplace_back(character, m_metrics.horizontalAdvance(character));
    }
    return characters;
}

void HOLabelStyle::Draw(QPainter& painter, const QString& text) const {
    // Shaped once (with fallback fonts for scripts the font lacks), drawn nine times.
    QTextLayout layout(text, m_font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    const QPointF origin(-line.naturalTextWidth() / 2.0,
                         (m_metrics.ascent() - m_metrics.descent()) / 2.0 - line.ascent());
    // The halo is the text drawn around itself: glyphs come from the font cache, many times
    // faster than stroking the outlines.
    if (m_margin > 0) {
        painter.setPen(m_haloColor);
        for (const QPointF& offset : m_haloOffsets)
            for (const QGlyphRun& run : runs) painter.drawGlyphRun(origin + offset, run);
    }
    painter.setPen(m_color);
    for (const QGlyphRun& run : runs) painter.drawGlyphRun(origin, run);
}

}  // namespace HXObjects
