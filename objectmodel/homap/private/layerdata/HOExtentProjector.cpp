#include "HOExtentProjector.h"

#include <ogr_spatialref.h>

#include <memory>

#include "HOCoordinateSystem.h"

namespace HXObjects {

namespace {

std::unique_ptr<OGRCoordinateTransformation> transformation(const HOCoordinateSystem* from,
                                                            const HOCoordinateSystem* to) {
    OGRSpatialReference source(*from->Ogr());
    OGRSpatialReference target(*to->Ogr());
    source.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    target.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    return std::unique_ptr<OGRCoordinateTransformation>(OGRCreateCoordinateTransformation(&source, &target));
}

}  // namespace

bool HOExtentProjector::IsIdentity(const HOCoordinateSystem* from, const HOCoordinateSystem* to) {
    return !from || !to || from->IsSame(to);
}

HORect HOExtentProjector::Project(const HORect& rect, const HOCoordinateSystem* from,
                                  const HOCoordinateSystem* to) {
    // A single point's extent has no area but still has a place.
    const bool valid = rect.maxx >= rect.minx && rect.maxy >= rect.miny;
    if (!valid || IsIdentity(from, to)) return rect;
    auto transform = transformation(from, to);
    HORect out;
    if (!transform || !transform->TransformBounds(rect.minx, rect.miny, rect.maxx, rect.maxy, &out.minx,
                                                  &out.miny, &out.maxx, &out.maxy, 21))
        return HORect();
    return out;
}

bool HOExtentProjector::Project(std::vector<HOVertex>& vertices, const HOCoordinateSystem* from,
                                const HOCoordinateSystem* to) {
    if (IsIdentity(from, to)) return true;
    auto transform = transformation(from, to);
    if (!transform) return false;
    // OGR takes separate x and y arrays; go through them in blocks that stay in cache.
    constexpr std::size_t block = 16384;
    std::vector<double> xs(block), ys(block);
    std::vector<int> ok(block);
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    for (std::size_t first = 0; first < vertices.size(); first += block) {
        const std::size_t n = std::min(block, vertices.size() - first);
        for (std::size_t i = 0; i < n; ++i) {
            xs[i] = vertices[first + i].x;
            ys[i] = vertices[first + i].y;
        }
        transform->Transform(int(n), xs.data(), ys.data(), nullptr, ok.data());
        for (std::size_t i = 0; i < n; ++i) {
            const bool good = ok[i] && std::isfinite(xs[i]) && std::isfinite(ys[i]);
            vertices[first + i] = good ? HOVertex{xs[i], ys[i]} : HOVertex{NAN, NAN};
        }
    }
    return true;
}

}  // namespace HXObjects
