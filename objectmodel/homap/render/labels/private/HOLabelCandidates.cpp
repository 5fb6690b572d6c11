#include "render/labels/private/HOLabelCandidates.h"

#include <QLineF>
#include <algorithm>
#include <cmath>

#include "render/labels/private/HOPoleOfInaccessibility.h"

namespace HXObjects {

namespace {

// A line's stretch under a label may stray from the straight text this far, in text heights.
constexpr double kMaxBend = 1.0;
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
    // The text laid straight from s0 to s1, or nothing when the line bends away from it.
    bool Chord(double s0, double s1, double height, HOLabelCandidate& out) const {
        const QLineF chord(PointAt(s0), PointAt(s1));
        if (chord.length() < 0.9 * (s1 - s0)) return false;
        const QPointF unit = (chord.p2() - chord.p1()) / chord.length();
        for (std::size_t i = VertexAfter(s0); i < m_at.size() && m_at[i] < s1; ++i) {
            const QPointF d = m_line[int(i)] - chord.p1();
            if (std::abs(d.x() * unit.y() - d.y() * unit.x()) > kMaxBend * height) return false;
        }
        out.centre = chord.center();
        out.angle = HOLabelCandidates::Upright(std::atan2(unit.y(), unit.x()) * 180.0 / M_PI);
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

std::vector<HOLabelCandidates::Group> HOLabelCandidates::AlongLine(const QPolygonF& line, QSizeF text,
                                                                   double repeatDistance) {
    std::vector<Group> groups;
    if (line.size() < 2) return groups;
    const Course course(line);
    const double length = course.Length();
    const double width = text.width();
    if (length < width) return groups;
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
                    course.Chord(s - width / 2, s + width / 2, text.height(), candidate))
                    group.push_back(candidate);
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
