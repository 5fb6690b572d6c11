#include "render/private/HOGridRuler.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace HXObjects {

namespace {

constexpr double kLabelGap = 6.0;  // pixels kept free between two labels
constexpr double kPadding = 2.0;

// The font of the labels: `height` pixels tall, stretched so that its average character is `width`.
QFont labelFont(int height, int width) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(std::max(height, 1));
    const double natural = QFontMetricsF(font).averageCharWidth();
    if (width > 0 && natural > 0.0)
        font.setStretch(std::clamp(int(std::lround(100.0 * width / natural)), 1, 4000));
    return font;
}

// Where segment a-b crosses the line coordinate == c (x when vertical), or NaN.
double crossing(const QPointF& a, const QPointF& b, double c, bool vertical) {
    const double ua = vertical ? a.x() : a.y(), ub = vertical ? b.x() : b.y();
    if ((ua - c) * (ub - c) > 0.0 || ua == ub) return std::nan("");
    const double t = (c - ua) / (ub - ua);
    return vertical ? a.y() + t * (b.y() - a.y()) : a.x() + t * (b.x() - a.x());
}

}  // namespace

HOGridRuler::HOGridRuler(const Look& look) : m_look(look) {}

double HOGridRuler::TickLength() const {
    return std::max(5.0, 0.5 * std::max(m_look.fontHeight, 0));
}

double HOGridRuler::Thickness() const {
    const double label = m_look.fontHeight > 0 ? m_look.fontHeight * 1.25 + kPadding : 0.0;
    return TickLength() + label + 2.0 * kPadding;
}

void HOGridRuler::Draw(QPainter& painter, const QRectF& inner, const std::vector<HOGridLine>& lines,
                       const Format& format) const {
    const double t = Thickness();
    const QRectF outer = inner.adjusted(-t, -t, t, t);
    painter.save();
    QPainterPath band;
    band.addRect(outer);
    band.addRect(inner);
    painter.fillPath(band, Qt::white);
    QPen pen(m_look.tickColor, std::max(m_look.tickWidth, 0.0));
    pen.setCapStyle(Qt::FlatCap);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(inner);
    painter.drawRect(outer);

    std::vector<Tick> ticks = crossings(inner, lines);
    std::sort(ticks.begin(), ticks.end(),
              [](const Tick& a, const Tick& b) { return a.edge != b.edge ? a.edge < b.edge : a.at < b.at; });
    for (const Tick& tick : ticks) drawTick(painter, inner, tick);

    if (m_look.fontHeight > 0) {
        painter.setFont(labelFont(m_look.fontHeight, m_look.fontWidth));
        painter.setPen(m_look.labelColor);
        std::vector<std::pair<double, double>> taken[4];
        for (const Tick& tick : ticks)
            drawLabel(painter, inner, tick, format(tick.value, tick.alongY), taken[tick.edge]);
    }
    painter.restore();
}

std::vector<HOGridRuler::Tick> HOGridRuler::crossings(const QRectF& inner,
                                                      const std::vector<HOGridLine>& lines) {
    std::vector<Tick> ticks;
    const struct {
        Edge edge;
        double c;
        bool vertical;
    } edges[] = {{Top, inner.top(), false},
                 {Bottom, inner.bottom(), false},
                 {Left, inner.left(), true},
                 {Right, inner.right(), true}};
    for (const HOGridLine& line : lines) {
        for (int i = 1; i < line.points.size(); ++i) {
            for (const auto& e : edges) {
                const double at = crossing(line.points[i - 1], line.points[i], e.c, e.vertical);
                const double lo = e.vertical ? inner.top() : inner.left();
                const double hi = e.vertical ? inner.bottom() : inner.right();
                if (std::isnan(at) || at < lo || at > hi) continue;
                // A line through a vertex is met by two segments: keep one tick.
                const bool twice = !ticks.empty() && ticks.back().edge == e.edge &&
                                   ticks.back().value == line.value && std::abs(ticks.back().at - at) < 0.5;
                if (!twice) ticks.push_back({e.edge, at, line.value, line.alongY});
            }
        }
    }
    return ticks;
}

void HOGridRuler::drawTick(QPainter& painter, const QRectF& inner, const Tick& tick) const {
    const double l = TickLength();
    switch (tick.edge) {
        case Top:
            painter.drawLine(QPointF(tick.at, inner.top()), QPointF(tick.at, inner.top() - l));
            break;
        case Bottom:
            painter.drawLine(QPointF(tick.at, inner.bottom()), QPointF(tick.at, inner.bottom() + l));
            break;
        case Left:
            painter.drawLine(QPointF(inner.left(), tick.at), QPointF(inner.left() - l, tick.at));
            break;
        case Right:
            painter.drawLine(QPointF(inner.right(), tick.at), QPointF(inner.right() + l, tick.at));
            break;
    }
}

bool HOGridRuler::drawLabel(QPainter& painter, const QRectF& inner, const Tick& tick, const QString& text,
                            std::vector<std::pair<double, double>>& taken) const {
    const QFontMetricsF metrics(painter.font());
    const double w = metrics.horizontalAdvance(text);
    const double lo = tick.at - w / 2.0, hi = tick.at + w / 2.0;
    const bool sides = tick.edge == Left || tick.edge == Right;
    const double edgeLo = sides ? inner.top() : inner.left();
    const double edgeHi = sides ? inner.bottom() : inner.right();
    if (lo < edgeLo || hi > edgeHi) return false;
    for (const auto& [a, b] : taken) {
        if (lo < b + kLabelGap && hi > a - kLabelGap) return false;
    }
    taken.emplace_back(lo, hi);
    // Baseline distance from the frame: past the tick, then the text's height.
    const double depth = TickLength() + kPadding + metrics.ascent();
    painter.save();
    switch (tick.edge) {
        case Top:
            painter.translate(tick.at, inner.top() - TickLength() - kPadding - metrics.descent());
            break;
        case Bottom:
            painter.translate(tick.at, inner.bottom() + depth);
            break;
        case Left:
            painter.translate(inner.left() - TickLength() - kPadding - metrics.descent(), tick.at);
            painter.rotate(-90.0);
            break;
        case Right:
            painter.translate(inner.right() + depth, tick.at);
            painter.rotate(-90.0);
            break;
    }
    painter.drawText(QPointF(-w / 2.0, 0.0), text);
    painter.restore();
    return true;
}

}  // namespace HXObjects
