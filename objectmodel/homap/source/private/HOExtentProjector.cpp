#include "source/private/HOExtentProjector.h"

#include <ogr_spatialref.h>

#include <algorithm>
#include <memory>
#include <thread>

#include "HOCoordinateSystem.h"
#include "private/HOCoordinateSystemOgr.h"
#include "source/private/HOValidRegion.h"

namespace HXObjects {

namespace {

std::unique_ptr<OGRCoordinateTransformation> transformation(const HOCoordinateSystem* from,
                                                            const HOCoordinateSystem* to) {
    OGRSpatialReference source(*HOCoordinateSystemOgr::Ogr(from));
    OGRSpatialReference target(*HOCoordinateSystemOgr::Ogr(to));
    source.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    target.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    return std::unique_ptr<OGRCoordinateTransformation>(OGRCreateCoordinateTransformation(&source, &target));
}

constexpr std::size_t twoThreadThreshold = 200000;

// Transforms in place; a vertex that cannot be transformed becomes NaN.
void projectRange(OGRCoordinateTransformation& transform, HOVertex* first, HOVertex* last) {
    // OGR takes separate x and y arrays; go through them in blocks that stay in cache.
    constexpr std::size_t block = 16384;
    std::vector<double> xs(block), ys(block);
    std::vector<int> ok(block);
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);  // the handler stack is per thread
    for (HOVertex* v = first; v < last; v += block) {
        const std::size_t n = std::min(block, std::size_t(last - v));
        for (std::size_t i = 0; i < n; ++i) {
            xs[i] = v[i].x;
            ys[i] = v[i].y;
        }
        transform.Transform(int(n), xs.data(), ys.data(), nullptr, ok.data());
        for (std::size_t i = 0; i < n; ++i) {
            const bool good = ok[i] && std::isfinite(xs[i]) && std::isfinite(ys[i]);
            v[i] = good ? HOVertex{xs[i], ys[i]} : HOVertex{NAN, NAN};
        }
    }
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
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    const HOValidRegion region(to);
    const HOCoordinateSystem* degrees = region.Geographic().get();
    if (!degrees) return HORect();
    // Samples over the rectangle, carried to degrees, where the target shows them ...
    std::vector<HOVertex> points;
    constexpr int n = 32;
    for (int i = 0; i <= n; ++i)
        for (int j = 0; j <= n; ++j)
            points.push_back({rect.minx + rect.Width() * i / n, rect.miny + rect.Height() * j / n});
    Project(points, from, degrees);
    for (HOVertex& p : points) p = region.Home(p);
    points.erase(
        std::remove_if(points.begin(), points.end(), [&](const HOVertex& p) { return !region.Contains(p); }),
        points.end());
    // ... and the region's edge where it runs through the rectangle.
    std::vector<HOVertex> edge = region.Edge();
    if (!region.IsWholeWorld()) {
        std::vector<HOVertex> edgeThere = edge;
        Project(edgeThere, degrees, from);
        for (std::size_t i = 0; i < edge.size(); ++i) {
            const HOVertex& p = edgeThere[i];
            if (p.x >= rect.minx && p.x <= rect.maxx && p.y >= rect.miny && p.y <= rect.maxy)
                points.push_back(edge[i]);
        }
    }
    Project(points, degrees, to);
    HOBox box;
    for (const HOVertex& p : points) box.Add(p);
    return box.IsValid() ? HORect(box.min.x, box.max.x, box.min.y, box.max.y) : HORect();
}

bool HOExtentProjector::Project(std::vector<HOVertex>& vertices, const HOCoordinateSystem* from,
                                const HOCoordinateSystem* to) {
    if (IsIdentity(from, to)) return true;
    auto transform = transformation(from, to);
    if (!transform) return false;
    HOVertex* begin = vertices.data();
    HOVertex* end = begin + vertices.size();
    // A big layer is split over two cores, each half with its own transformation object.
    std::unique_ptr<OGRCoordinateTransformation> second;
    if (vertices.size() >= twoThreadThreshold && std::thread::hardware_concurrency() > 1)
        second.reset(transform->Clone());
    if (!second) {
        projectRange(*transform, begin, end);
        return true;
    }
    HOVertex* middle = begin + vertices.size() / 2;
    std::thread worker([&] { projectRange(*second, middle, end); });
    projectRange(*transform, begin, middle);
    worker.join();
    return true;
}

}  // namespace HXObjects
