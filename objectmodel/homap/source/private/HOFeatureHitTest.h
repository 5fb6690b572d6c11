#pragma once
// HOFeatureHitTest: whether a feature's geometry (not just its box) meets a rectangle — a point
// inside it, a path crossing it, a polygon overlapping it or holding it.
#include "source/private/HOFeatureStore.h"

namespace HXObjects {

class HOFeatureHitTest {
public:
    static bool Meets(const HOFeatureStore& store, uint32_t feature, const HOBox& rect);

private:
    static bool segmentMeets(const HOVertex& a, const HOVertex& b, const HOBox& rect);
    static bool polygonHolds(const HOFeatureStore& store, uint32_t feature, const HOVertex& point);
};

}  // namespace HXObjects
