#pragma once
// HOPageText: text on a page sized in points whatever the device: laid out with a large pixel font and
// scaled by the painter, so it keeps its proportions at any zoom and stays text in a PDF.
#include <QColor>
#include <QRectF>
#include <QString>

class QPainter;

namespace HXObjects {

struct HOPageRenderContext;

class HOPageText {
public:
    struct Style {
        double points = 10.0;
        bool bold = false;
        QColor color = Qt::black;
    };

    // Draws the text into the device rectangle with Qt alignment flags.
    static void Draw(QPainter& painter, const HOPageRenderContext& context, const QRectF& rect,
                     const QString& text, const Style& style, int flags);
    // The text's width in millimetres.
    static double WidthMm(const QString& text, const Style& style);
    static double HeightMm(const Style& style) { return style.points * 25.4 / 72.0; }
};

}  // namespace HXObjects
