#include "edit/HOSnapper.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "HOCoordinateSystem.h"
#include "HOFeatureLayer.h"
#include "HOGraphicsLayer.h"
#include "HOMap.h"
#include "HOMapView.h"

namespace HXObjects {

namespace {

double Distance(const HOPoint& a, const HOPoint& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

// The point of segment ab nearest to p.
HOPoint Nearest(const HOPoint& p, const HOPoint& a, const HOPoint& b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length2 = dx * dx + dy * dy;
    if (length2 == 0) return a;
    const double t = std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length2, 0.0, 1.0);
    return HOPoint(a.x + t * dx, a.y + t * dy);
}

}  // namespace

HOSnapResult HOSnapper::Snap(const HOPoint& mapPoint, HOMapView* view, int ignoredElement) {
    HOMap* map = view ? view->GetMap() : nullptr;
    if (!map || map->GetSnapTolerance() <= 0) return {HOSnapResult::None, mapPoint};
    const double tolerance = map->GetSnapTolerance() * view->GetDisplayTransform().unitsPerPixel;
    const HORect area(mapPoint.x - tolerance, mapPoint.x + tolerance, mapPoint.y - tolerance,
                      mapPoint.y + tolerance);
    return SnapTo(mapPoint, candidates(view, area, ignoredElement), tolerance);
}

HOSnapResult HOSnapper::SnapTo(const HOPoint& point, const std::vector<HOGeometry::Part>& parts,
                               double tolerance) {
    HOSnapResult result{HOSnapResult::None, point};
    double best = std::numeric_limits<double>::infinity();
    const auto consider = [&](const HOPoint& candidate, HOSnapResult::Kind kind) {
        const double d = Distance(point, candidate);
        if (d <= tolerance && d < best) {
            best = d;
            result = {kind, candidate};
        }
    };
    for (const auto& part : parts)
        for (const HOPoint& vertex : part) consider(vertex, HOSnapResult::Vertex);
    if (result) return result;
    for (const auto& part : parts)
        for (std::size_t i = 1; i < part.size(); ++i)
            consider(Nearest(point, part[i - 1], part[i]), HOSnapResult::Segment);
    return result;
}

std::vector<HOGeometry::Part> HOSnapper::candidates(HOMapView* view, const HORect& area, int ignoredElement) {
    HOMap* map = view->GetMap();
    std::vector<HOGeometry::Part> parts;
    const auto system = map->GetSpatialReference();
    for (const auto& layer : map->GetLayers(true)) {
        auto* features = dynamic_cast<HOFeatureLayer*>(layer.get());
        if (!features || !features->IsVisible()) continue;
        auto found = features->PartsIn(area, system.get());
        parts.insert(parts.end(), std::make_move_iterator(found.begin()),
                     std::make_move_iterator(found.end()));
    }
    const auto graphics = map->GetGraphicsLayer();
    if (!graphics->IsVisible()) return parts;
    for (const auto& element : graphics->GetElements()) {
        const HORefPtr<HOGeometry> geometry = element->GetGeometry();
        if (element->GetID() == ignoredElement || !geometry || !geometry->GetEnvelope().Intersects(area))
            continue;
        parts.insert(parts.end(), geometry->Parts().begin(), geometry->Parts().end());
    }
    return parts;
}

}  // namespace HXObjects
