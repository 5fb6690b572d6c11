#include "render/labels/private/HOLabelCandidates.h"

#include <QLineF>
#include <algorithm>
#include <cmath>

#include "render/labels/private/HOPoleOfInaccessibility.h"

namespace HXObjects {

namespace {

// Neighbouring characters along a line may turn this much (degrees), and each may lean this far
// from level before the text would read upside down.
constexpr double kMaxTurn = 35.0;
constexpr double kMaxLean = 100.0;
constexpr double kSmoothing = 1.5;  // text heights
// Positions tried for each label, this far apart along its share of the line, in text widths.
constexpr double kStep = 0.25;

// Distance along a polyline: the cumulative length at each vertex.
class Course {
public:
    explicit Course(const QPolygonF& line) : m_line(line), m_at(std::size_t(line.size()), 0.0) {
        for (int i = 1; i < line.size(); ++i)
            m_at[std::size_t(i)] = m_at[std::size_t(i - 1)] + QLineF(line[i - 1], line[i]).length();
    }
    double Length() const { return m_at.empty() ? 0.0 : m_at.back(); }
    std::size_t VertexAfter(double s) const {
        return std::size_t(std::upper_bound(m_at.begin(), m_at.end(), s) - m_at.begin());
    }
    QPointF PointAt(double s) const {
        const std::size_t i = std::clamp<std::size_t>(VertexAfter(s), 1, m_at.size() - 1);
        const double span = m_at[i] - m_at[i - 1];
        const double t = span > 0 ? (s - m_at[i - 1]) / span : 0.0;
        return m_line[int(i - 1)] + (m_line[int(i)] - m_line[int(i - 1)]) * t;
    }
    double AngleAt(double s, double span) const {
        const QLineF tangent(PointAt(s - span / 2), PointAt(s + span / 2));
        return std::atan2(tangent.dy(), tangent.dx()) * 180.0 / M_PI;
    }
    // The characters laid along the line from s0, reading left to right: false when the line turns
    // too sharply under them.
    bool Follow(double s0, const std::vector<std::pair<QString, double>>& characters, QSizeF text,
                HOLabelCandidate& out) const {
        const double width = text.width();
        // A character leans with the line over a stretch of a few text heights, so that a jagged
        // line still carries calm text.
        const double smoothing = kSmoothing * text.height();
        const double level = AngleAt(s0 + width / 2, width);
        const bool reversed = HOLabelCandidates::Upright(level) != std::remainder(level, 360.0);
        double along = 0.0;
        for (const auto& [text, advance] : characters) {
            const double middle = along + advance / 2;
            along += advance;
            const double s = reversed ? s0 + width - middle : s0 + middle;
            const double angle = std::remainder(AngleAt(s, smoothing) + (reversed ? 180.0 : 0.0), 360.0);
            if (std::abs(angle) > kMaxLean) return false;
            if (!out.glyphs.empty() &&
                std::abs(std::remainder(angle - out.glyphs.back().angle, 360.0)) > kMaxTurn)
                return false;
            out.glyphs.push_back({text, advance, PointAt(s), angle});
        }
        out.centre = PointAt(s0 + width / 2);
        out.angle = HOLabelCandidates::Upright(level);
        return true;
    }

private:
    const QPolygonF& m_line;
    std::vector<double> m_at;
};

}  // namespace

double HOLabelCandidates::Upright(double angle) {
    angle = std::remainder(angle, 360.0);  // (-180, 180]
    if (angle > 90.0) return angle - 180.0;
    if (angle <= -90.0) return angle + 180.0;
    return angle;
}

HOLabelCandidates::Group HOLabelCandidates::AroundPoint(const QPointF& point, double radius, QSizeF text) {
    const double dx = radius + text.width() / 2;
    const double dy = radius + text.height() / 2;
    const double d = radius * M_SQRT1_2;  // the symbol's diagonal reach
    const double cx = d + text.width() / 2;
    const double cy = d + text.height() / 2;
    // Upper right first, the habit of map readers; then the other corners, the sides, above, below.
    return {{point + QPointF(cx, -cy)}, {point + QPointF(-cx, -cy)}, {point + QPointF(cx, cy)},
            {point + QPointF(-cx, cy)}, {point + QPointF(dx, 0)},    {point + QPointF(-dx, 0)},
            {point + QPointF(0, -dy)},  {point + QPointF(0, dy)}};
}

std::vector<HOLabelCandidates::Group> HOLabelCandidates::AlongLine(
    const QPolygonF& line, const std::vector<std::pair<QString, double>>& characters, QSizeF text,
    double repeatDistance) {
    std::vector<Group> groups;
    if (line.size() < 2) return groups;
    const Course course(line);
    const double length = course.Length();
    double width = 0.0;
    for (const auto& character : characters) width += character.second;
    if (length < width || width <= 0) return groups;
    const int labels = std::max(1, int(length / std::max(repeatDistance, width * 2)));
    const double share = length / labels;
    for (int i = 0; i < labels; ++i) {
        // From the middle of the label's share of the line outwards, both ways.
        const double middle = (i + 0.5) * share;
        Group group;
        for (double shift = 0; shift <= share / 2; shift += kStep * width) {
            for (const double s : {middle - shift, middle + shift}) {
                HOLabelCandidate candidate;
                if (s - width / 2 >= 0 && s + width / 2 <= length &&
                    course.Follow(s - width / 2, characters, QSizeF(width, text.height()), candidate))
                    group.push_back(std::move(candidate));
                if (shift == 0) break;
            }
        }
        if (!group.empty()) groups.push_back(std::move(group));
    }
    return groups;
}

HOLabelCandidates::Group HOLabelCandidates::InsidePolygon(const std::vector<QPolygonF>& rings,
                                                          const QRectF& visible, QSizeF text) {
    QRectF bounds;
    for (const QPolygonF& ring : rings) bounds |= ring.boundingRect();
    const QRectF area = bounds & visible;
    if (area.width() < text.height() || area.height() < text.height()) return {};
    const double precision = std::max(1.0, text.height() / 8);
    const HOPoleOfInaccessibility::Result pole = HOPoleOfInaccessibility::Find(rings, area, precision);
    if (pole.distance < text.height() / 2) return {};
    return {{pole.point}};
}

}  // namespace HXObjects
