#include "source/private/HOOgrGeometry.h"

namespace HXObjects {

namespace {

template <class Curve>
Curve* MakeCurve(const HOGeometry::Part& part, bool close) {
    auto* curve = new Curve;
    for (const HOPoint& p : part) curve->addPoint(p.x, p.y);
    if (close && !part.empty() && (part.front().x != part.back().x || part.front().y != part.back().y))
        curve->addPoint(part.front().x, part.front().y);
    return curve;
}

OGRGeometry* MakePolygons(const std::vector<HOGeometry::Part>& rings) {
    std::vector<OGRGeometry*> polygons;
    for (const auto& ring : rings) {
        auto* polygon = new OGRPolygon;
        polygon->addRingDirectly(MakeCurve<OGRLinearRing>(ring, true));
        polygons.push_back(polygon);
    }
    int valid = 0;
    return OGRGeometryFactory::organizePolygons(polygons.data(), static_cast<int>(polygons.size()), &valid,
                                                nullptr);
}

OGRGeometry* Make(const HOGeometry& geometry) {
    const auto& parts = geometry.Parts();
    switch (geometry.GetType()) {
        case HOGeometry::GeoPoint:
            return new OGRPoint(parts[0][0].x, parts[0][0].y);
        case HOGeometry::GeoMultiPoint: {
            auto* points = new OGRMultiPoint;
            for (const auto& part : parts) points->addGeometryDirectly(new OGRPoint(part[0].x, part[0].y));
            return points;
        }
        case HOGeometry::GeoLineString:
            return MakeCurve<OGRLineString>(parts[0], false);
        case HOGeometry::GeoMultiLineString: {
            auto* lines = new OGRMultiLineString;
            for (const auto& part : parts) lines->addGeometryDirectly(MakeCurve<OGRLineString>(part, false));
            return lines;
        }
        case HOGeometry::GeoPolygon:
        case HOGeometry::GeoMultiPolygon:
            return MakePolygons(parts);
        default:
            return nullptr;
    }
}

HOGeometry::Part PartOf(const OGRSimpleCurve& curve) {
    HOGeometry::Part part;
    for (int i = 0; i < curve.getNumPoints(); ++i) part.emplace_back(curve.getX(i), curve.getY(i));
    return part;
}

void AppendRings(HOGeometry& target, const OGRPolygon& polygon) {
    for (const OGRLinearRing* ring : polygon) target.AddPart(PartOf(*ring));
}

}  // namespace

OGRGeometryUniquePtr HOOgrGeometry::ToOgr(const HOGeometry& geometry) {
    if (geometry.IsEmpty()) return nullptr;
    return OGRGeometryUniquePtr(Make(geometry));
}

HORefPtr<HOGeometry> HOOgrGeometry::FromOgr(const OGRGeometry& geometry) {
    if (geometry.IsEmpty()) return nullptr;
    const OGRwkbGeometryType flat = wkbFlatten(geometry.getGeometryType());
    HORefPtr<HOGeometry> result;
    if (flat == wkbPoint) {
        result = new HOGeometry(HOGeometry::GeoPoint);
        result->AddPart({HOPoint(geometry.toPoint()->getX(), geometry.toPoint()->getY())});
    } else if (flat == wkbMultiPoint) {
        result = new HOGeometry(HOGeometry::GeoMultiPoint);
        for (const OGRPoint* p : *geometry.toMultiPoint()) result->AddPart({HOPoint(p->getX(), p->getY())});
    } else if (flat == wkbLineString) {
        result = new HOGeometry(HOGeometry::GeoLineString);
        result->AddPart(PartOf(*geometry.toLineString()));
    } else if (flat == wkbMultiLineString) {
        result = new HOGeometry(HOGeometry::GeoMultiLineString);
        for (const OGRLineString* line : *geometry.toMultiLineString()) result->AddPart(PartOf(*line));
    } else if (flat == wkbPolygon) {
        result = new HOGeometry(HOGeometry::GeoPolygon);
        AppendRings(*result, *geometry.toPolygon());
    } else if (flat == wkbMultiPolygon) {
        result = new HOGeometry(HOGeometry::GeoMultiPolygon);
        for (const OGRPolygon* polygon : *geometry.toMultiPolygon()) AppendRings(*result, *polygon);
    }
    return result && !result->IsEmpty() ? result : nullptr;
}

}  // namespace HXObjects
