#pragma once
// HOLabelStyle: a layer's label settings made ready to measure and draw text at one resolution —
// the font at its pixel size, its metrics, the colours and the halo.
#include <QFont>
#include <QFontMetricsF>
#include <QPointF>
#include <utility>
#include <vector>

#include "HOLabelSettings.h"

class QPainter;

namespace HXObjects {

class HOLabelStyle {
public:
    HOLabelStyle(const HOLabelSettings& settings, double dpi);

    QSizeF TextSize(const QString& text) const;
    // The text's characters (as a reader sees them) and their widths, for text bent along a line.
    std::vector<std::pair<QString, double>> Characters(const QString& text) const;
    // Draws the text centred on the painter's origin, halo first.
    void Draw(QPainter& painter, const QString& text) const;

private:
    QFont m_font;
    QFontMetricsF m_metrics;
    QColor m_color;
    QColor m_haloColor;
    double m_margin;  // the halo's reach beyond the glyphs
    std::vector<QPointF> m_haloOffsets;
};

}  // namespace HXObjects
