#include "HOGeometryWkt.h"

#include <cpl_error.h>
#include <ogr_geometry.h>

#include <QString>
#include <memory>

namespace HXObjects {

namespace {

struct OgrDeleter {
    void operator()(OGRGeometry* geometry) const { OGRGeometryFactory::destroyGeometry(geometry); }
};
using OgrGeometryPtr = std::unique_ptr<OGRGeometry, OgrDeleter>;

template <class Curve>
Curve* MakeCurve(const HOGeometry::Part& part, bool close) {
    auto* curve = new Curve;
    for (const HOPoint& p : part) curve->addPoint(p.x, p.y);
    if (close && !part.empty() && (part.front().x != part.back().x || part.front().y != part.back().y))
        curve->addPoint(part.front().x, part.front().y);
    return curve;
}

// Rings become polygons with their holes sorted out by OGR.
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

OGRGeometry* ToOgr(const HOGeometry& geometry) {
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

// One geometry of a simple or multi type; null for anything else.
HORefPtr<HOGeometry> FromOgr(const OGRGeometry& geometry) {
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

}  // namespace

HOString HOGeometryWkt::ToWkt(const HOGeometry& geometry) {
    if (geometry.IsEmpty()) return HOString();
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    OgrGeometryPtr ogr(ToOgr(geometry));
    return ogr ? HOString(ogr->exportToWkt().c_str()) : HOString();
}

std::vector<HORefPtr<HOGeometry>> HOGeometryWkt::FromWkt(const HOString& text) {
    const std::string wkt = text.toStdString();
    const char* rest = wkt.c_str();
    OGRGeometry* parsed = nullptr;
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    const OGRErr error = OGRGeometryFactory::createFromWkt(&rest, nullptr, &parsed);
    OgrGeometryPtr owner(parsed);
    // Text after the geometry makes the whole text something else.
    if (error != OGRERR_NONE || !parsed || !QString::fromUtf8(rest).trimmed().isEmpty()) return {};
    if (parsed->hasCurveGeometry()) owner.reset(parsed->getLinearGeometry());
    std::vector<HORefPtr<HOGeometry>> result;
    if (wkbFlatten(owner->getGeometryType()) == wkbGeometryCollection) {
        for (const OGRGeometry* member : *owner->toGeometryCollection()) {
            if (HORefPtr<HOGeometry> g = FromOgr(*member)) result.push_back(g);
        }
    } else if (HORefPtr<HOGeometry> g = FromOgr(*owner)) {
        result.push_back(g);
    }
    return result;
}

}  // namespace HXObjects
