#pragma once
// HOGridRuler: the ruler of one grid — a band of paper around the map's inner frame, with a tick
// mark wherever a grid line meets the frame and the line's value written beside it: along the top
// and bottom edges upright, along the left and right edges turned to read upwards. A label that
// would overlap one already written, or reach past its edge, is left out.
#include <QColor>
#include <QRectF>
#include <QString>
#include <functional>
#include <vector>

#include "render/private/HOGridLine.h"

class QPainter;

namespace HXObjects {

class HOGridRuler {
public:
    struct Look {
        double tickWidth = 1.0;
        QColor tickColor;
        int fontHeight = 12;  // pixels; 0 or less: no labels
        int fontWidth = 6;    // average character width, pixels
        QColor labelColor;
    };
    using Format = std::function<QString(double value, bool alongY)>;

    explicit HOGridRuler(const Look& look);

    // How deep the band is, pixels.
    double Thickness() const;
    double TickLength() const;
    // Draws the band between `inner` and `inner` grown by Thickness(), the frame lines, and the
    // ticks and labels of `lines` where they cross `inner`'s edges.
    void Draw(QPainter& painter, const QRectF& inner, const std::vector<HOGridLine>& lines,
              const Format& format) const;

private:
    enum Edge { Top, Bottom, Left, Right };
    struct Tick {
        Edge edge;
        double at;  // x along the top and bottom edges, y along the sides
        double value;
        bool alongY;
    };
    static std::vector<Tick> crossings(const QRectF& inner, const std::vector<HOGridLine>& lines);
    void drawTick(QPainter& painter, const QRectF& inner, const Tick& tick) const;
    // The label's box in edge coordinates is [at - w/2, at + w/2]; false when it does not fit.
    bool drawLabel(QPainter& painter, const QRectF& inner, const Tick& tick, const QString& text,
                   std::vector<std::pair<double, double>>& taken) const;

    Look m_look;
};

}  // namespace HXObjects
