#include "source/private/HOFeatureIndex.h"

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/register/box.hpp>
#include <boost/geometry/geometries/register/point.hpp>
#include <boost/geometry/index/rtree.hpp>

BOOST_GEOMETRY_REGISTER_POINT_2D(HXObjects::HOVertex, double, boost::geometry::cs::cartesian, x, y)
BOOST_GEOMETRY_REGISTER_BOX(HXObjects::HOBox, HXObjects::HOVertex, min, max)

namespace HXObjects {

namespace bgi = boost::geometry::index;

namespace {

// The tree stores feature numbers; their boxes live in the store.
template <class Indexable>
struct ByNumber {
    using result_type = const Indexable&;
    const std::vector<Indexable>* items;
    result_type operator()(uint32_t i) const { return (*items)[i]; }
};

template <class Indexable>
using Tree = bgi::rtree<uint32_t, bgi::quadratic<16>, ByNumber<Indexable>>;

template <class Indexable, class Valid>
std::unique_ptr<Tree<Indexable>> pack(const std::vector<Indexable>& items, Valid valid) {
    std::vector<uint32_t> numbers;
    numbers.reserve(items.size());
    for (uint32_t i = 0; i < items.size(); ++i)
        if (valid(items[i])) numbers.push_back(i);
    return std::make_unique<Tree<Indexable>>(numbers, bgi::quadratic<16>(), ByNumber<Indexable>{&items});
}

}  // namespace

class HOFeatureIndex::Tree {
public:
    std::unique_ptr<HXObjects::Tree<HOBox>> boxes;
    std::unique_ptr<HXObjects::Tree<HOVertex>> points;
};

HOFeatureIndex::HOFeatureIndex(const std::vector<HOBox>* boxes, const std::vector<HOVertex>* points)
    : m_tree(std::make_unique<Tree>()) {
    if (boxes)
        m_tree->boxes = pack(*boxes, [](const HOBox& b) { return b.IsValid(); });
    else if (points)
        m_tree->points =
            pack(*points, [](const HOVertex& v) { return std::isfinite(v.x) && std::isfinite(v.y); });
}

HOFeatureIndex::~HOFeatureIndex() = default;

void HOFeatureIndex::Query(const HOBox& area, std::vector<uint32_t>& out) const {
    if (m_tree->boxes)
        m_tree->boxes->query(bgi::intersects(area), std::back_inserter(out));
    else if (m_tree->points)
        m_tree->points->query(bgi::intersects(area), std::back_inserter(out));
}

}  // namespace HXObjects
