#include "PointIndex.h"

#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <cmath>
#include <unordered_map>

namespace bg = boost::geometry;
namespace bgi = boost::geometry::index;
using IndexPoint = bg::model::point<double, 2, bg::cs::cartesian>;
using IndexValue = std::pair<IndexPoint, int>;

struct PointIndex::Tree {
    bgi::rtree<IndexValue, bgi::quadratic<16>> rtree;
    std::unordered_map<int, QPointF> points;
};

PointIndex::PointIndex() : m_tree(std::make_unique<Tree>()) {}
PointIndex::~PointIndex() = default;

void PointIndex::insert(const QPointF& p, int id) {
    m_tree->rtree.insert({IndexPoint(p.x(), p.y()), id});
    m_tree->points[id] = p;
}

bool PointIndex::anyWithin(const QPointF& p, double radius) const {
    return nearestWithin(p, radius) >= 0;
}

int PointIndex::nearestWithin(const QPointF& p, double radius) const {
    const auto found = nearest(p, 1);
    return !found.empty() && distanceTo(found.front(), p) < radius ? found.front() : -1;
}

std::vector<int> PointIndex::nearest(const QPointF& p, int count) const {
    std::vector<IndexValue> values;
    m_tree->rtree.query(bgi::nearest(IndexPoint(p.x(), p.y()), unsigned(count)), std::back_inserter(values));
    std::vector<int> ids;
    for (const IndexValue& v : values) ids.push_back(v.second);
    std::sort(ids.begin(), ids.end(), [&](int a, int b) { return distanceTo(a, p) < distanceTo(b, p); });
    return ids;
}

QPointF PointIndex::point(int id) const {
    return m_tree->points.at(id);
}

double PointIndex::distanceTo(int id, const QPointF& p) const {
    const QPointF q = point(id);
    return std::hypot(q.x() - p.x(), q.y() - p.y());
}
