#pragma once
// HOLabelStyle: a layer's label settings made ready to measure and draw text at one resolution —
// the font at its pixel size, its metrics, the colours and the halo pen.
#include <QFont>
#include <QFontMetricsF>
#include <QPen>

#include "HOLabelSettings.h"

class QPainter;

namespace HXObjects {

class HOLabelStyle {
public:
    HOLabelStyle(const HOLabelSettings& settings, double dpi);

    QSizeF TextSize(const QString& text) const;
    // Draws the text centred on the painter's origin, halo first.
    void Draw(QPainter& painter, const QString& text) const;

private:
    QFont m_font;
    QFontMetricsF m_metrics;
    QColor m_color;
    QPen m_halo;
    double m_margin;  // the halo's reach beyond the glyphs
};

}  // namespace HXObjects
