#pragma once
// HOSize: a width and a height in pixels.
#include "HXExport.h"

namespace HXObjects {

struct HX_EXPORT HOSize {
    int width = 0;
    int height = 0;

    HOSize() = default;
    HOSize(int w, int h) : width(w), height(h) {}
    bool operator==(const HOSize& o) const { return width == o.width && height == o.height; }
    bool operator!=(const HOSize& o) const { return !(*this == o); }
};

}  // namespace HXObjects
