#pragma once
// HOPixelPath: one part of a feature carried to device pixels and simplified to the pixel in the same
// pass — a vertex less than a pixel from the last one kept is dropped, the part's last vertex is
// always kept — into a buffer reused from part to part, so drawing allocates nothing per vertex.
#include <QPointF>
#include <QRectF>
#include <vector>

#include "HODisplayTransform.h"
#include "source/private/HOFeatureTopology.h"

namespace HXObjects {

class HOPixelPath {
public:
    explicit HOPixelPath(const HODisplayTransform& transform);

    void Clear();
    // Appends the vertices [first, last); returns how many points were kept.
    int Append(const HOVertex* first, const HOVertex* last);
    // Appends one point as it is (used to join rings).
    void AppendPoint(const QPointF& point) { m_points.push_back(point); }

    const QPointF* Points() const { return m_points.data(); }
    int Size() const { return int(m_points.size()); }
    // Width and height of the points appended since Clear(), in pixels.
    double Width() const { return m_maxX - m_minX; }
    double Height() const { return m_maxY - m_minY; }
    QPointF Centre() const { return {(m_minX + m_maxX) / 2, (m_minY + m_maxY) / 2}; }
    QPointF ToDevice(const HOVertex& v) const {
        return {v.x * m_scale + m_offsetX, m_offsetY - v.y * m_scale};
    }

private:
    double m_scale;
    double m_offsetX;
    double m_offsetY;
    std::vector<QPointF> m_points;
    double m_minX = 0, m_maxX = 0, m_minY = 0, m_maxY = 0;
};

}  // namespace HXObjects
