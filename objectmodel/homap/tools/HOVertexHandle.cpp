#include "HOVertexHandle.h"

#include <QPainter>
#include <cmath>
#include <limits>

namespace HXObjects {

namespace {

bool IsClosed(const HOGeometry::Part& part) {
    return part.size() > 3 && part.front().x == part.back().x && part.front().y == part.back().y;
}

// The vertices a person handles: a ring's closing vertex is its first one again.
std::size_t HandleCount(const HOGeometry::Part& part) {
    return IsClosed(part) ? part.size() - 1 : part.size();
}

}  // namespace

HOVertexHandle HOVertexHandle::At(const std::vector<HORefPtr<HOElement>>& elements, const HOPoint& device,
                                  const HODisplayTransform& transform, double pixels) {
    HOVertexHandle best;
    double nearest = std::numeric_limits<double>::infinity();
    for (const auto& element : elements) {
        const auto& parts = element->GetGeometry()->Parts();
        for (std::size_t p = 0; p < parts.size(); ++p) {
            for (std::size_t v = 0; v < HandleCount(parts[p]); ++v) {
                const HOPoint d = transform.ToDevice(parts[p][v]);
                const double distance = std::hypot(d.x - device.x, d.y - device.y);
                if (distance <= pixels && distance < nearest) {
                    nearest = distance;
                    best = {element, int(p), int(v)};
                }
            }
        }
    }
    return best;
}

void HOVertexHandle::Draw(QPainter& painter, const HODisplayTransform& transform,
                          const std::vector<HORefPtr<HOElement>>& elements) {
    painter.save();
    painter.setPen(QPen(QColor(0, 90, 200), 1));
    painter.setBrush(Qt::white);
    for (const auto& element : elements) {
        for (const auto& part : element->GetGeometry()->Parts()) {
            for (std::size_t v = 0; v < HandleCount(part); ++v) {
                const HOPoint d = transform.ToDevice(part[v]);
                painter.drawRect(QRectF(d.x - kHalfSize, d.y - kHalfSize, 2 * kHalfSize, 2 * kHalfSize));
            }
        }
    }
    painter.restore();
}

HORefPtr<HOGeometry> HOVertexHandle::Moved(const HOPoint& to) const {
    HORefPtr<HOGeometry> geometry(element->GetGeometry()->Clone());
    HOGeometry::Part& points = geometry->Parts()[std::size_t(part)];
    const bool closed = IsClosed(points);
    points[std::size_t(vertex)] = to;
    if (closed && vertex == 0) points.back() = to;
    return geometry;
}

}  // namespace HXObjects
