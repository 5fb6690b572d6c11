#include "HOPageText.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>

#include "HOPageRenderContext.h"

namespace HXObjects {

namespace {

constexpr int kLayoutPixels = 100;  // the font's size while laying out; the painter scales it

QFont layoutFont(const HOPageText::Style& style) {
    QFont font("DejaVu Sans");
    font.setPixelSize(kLayoutPixels);
    font.setBold(style.bold);
    return font;
}

}  // namespace

void HOPageText::Draw(QPainter& painter, const HOPageRenderContext& context, const QRectF& rect,
                      const QString& text, const Style& style, int flags) {
    const double scale = context.ToPixels(HeightMm(style)) / kLayoutPixels;
    if (!(scale > 0.0) || text.isEmpty()) return;
    painter.save();
    painter.translate(rect.topLeft());
    painter.scale(scale, scale);
    painter.setFont(layoutFont(style));
    painter.setPen(style.color);
    painter.drawText(QRectF(0, 0, rect.width() / scale, rect.height() / scale), flags, text);
    painter.restore();
}

double HOPageText::WidthMm(const QString& text, const Style& style) {
    return QFontMetricsF(layoutFont(style)).horizontalAdvance(text) * HeightMm(style) / kLayoutPixels;
}

}  // namespace HXObjects
