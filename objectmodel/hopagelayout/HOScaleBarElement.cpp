#include "HOScaleBarElement.h"

#include <QPainter>
#include <cmath>

#include "HOPageText.h"

namespace HXObjects {

namespace {

constexpr double kLabelRoomMm = 6.0;  // at each end, for the first and last label
constexpr double kBarHeightMm = 2.0;
const HOPageText::Style kLabelStyle{7.0, false, Qt::black};
const HOPageText::Style kScaleStyle{8.0, false, Qt::black};

QString groupDigits(double value) {
    QString digits = QString::number(std::llround(value));
    for (int i = digits.size() - 3; i > 0; i -= 3) digits.insert(i, QChar(' '));
    return digits;
}

QString lengthText(double metres, bool km) {
    return km ? QString::number(metres / 1000.0, 'g', 6) : QString::number(metres, 'g', 6);
}

}  // namespace

HOScaleBarElement::HOScaleBarElement() : HOMapSurroundElement(HOElementScaleBar) {
    set_size(80.0, 14.0);
}

double HOScaleBarElement::BarLength(double scaleDenominator, double widthMm) {
    const double ground = (widthMm - 2 * kLabelRoomMm) * scaleDenominator / 1000.0;
    if (!(ground > 0.0) || !std::isfinite(ground)) return 0.0;
    const double power = std::pow(10.0, std::floor(std::log10(ground)));
    for (const double m : {5.0, 2.0, 1.0}) {
        if (m * power <= ground) return m * power;
    }
    return power;
}

QString HOScaleBarElement::ScaleText(double scaleDenominator) {
    return "1:" + groupDigits(scaleDenominator);
}

void HOScaleBarElement::draw(QPainter& painter, const HOPageRenderContext& context) {
    const HODataFrame* frame = get_frame();
    const double scale = frame ? frame->get_map_scale() : 0.0;
    const double length = BarLength(scale, get_width());
    if (length <= 0.0) return;
    const QRectF box = context.ToDevice(get_bounds());
    const double barPx = context.ToPixels(length * 1000.0 / scale);
    const double left = box.left() + (box.width() - barPx) / 2.0;
    const double labelPx = context.ToPixels(HOPageText::HeightMm(kLabelStyle) * 1.4);
    const double top = box.top() + labelPx;
    const double heightPx = context.ToPixels(kBarHeightMm);
    // Five segments of a 1 or 5, four of a 2: each a round length.
    const double mantissa = length / std::pow(10.0, std::floor(std::log10(length)));
    const int segments = std::lround(mantissa) == 2 ? 4 : 5;

    painter.save();
    painter.setPen(QPen(Qt::black, context.ToPixels(0.2)));
    for (int i = 0; i < segments; ++i) {
        painter.setBrush(i % 2 ? Qt::white : Qt::black);
        painter.drawRect(QRectF(left + barPx * i / segments, top, barPx / segments, heightPx));
    }
    painter.restore();

    const bool km = length >= 1000.0;
    const double labelW = context.ToPixels(2 * kLabelRoomMm);
    auto label = [&](double x, const QString& text) {
        HOPageText::Draw(painter, context, QRectF(x - labelW / 2, box.top(), labelW, labelPx), text,
                         kLabelStyle, Qt::AlignHCenter | Qt::AlignBottom);
    };
    label(left, "0");
    label(left + barPx / 2, lengthText(length / 2, km));
    label(left + barPx, lengthText(length, km) + (km ? " km" : " m"));
    HOPageText::Draw(painter, context,
                     QRectF(box.left(), top + heightPx, box.width(), box.bottom() - top - heightPx),
                     ScaleText(scale), kScaleStyle, Qt::AlignCenter);
}

}  // namespace HXObjects
