#pragma once
// HOMapCache: the kinds of cached image a map view keeps; a refresh names the cache it invalidates.
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOMapCache {
public:
    enum CacheType {
        CacheAll = 0,       // every layer
        CacheLayer = 1,     // one layer's image
        CacheGraphics = 2,  // the graphics layer
    };
};

}  // namespace HXObjects
