#pragma once
// HORasterInfo: what is known about a raster once it is open — size, bands, where it lies, how its
// pixels become colours. Captured once by the loader and never changed afterwards, so any thread may
// read it without a lock while renders are reading pixels.
#include <QRgb>
#include <string>
#include <vector>

#include "HOCoordinateSystem.h"
#include "HORect.h"

class GDALDataset;

namespace HXObjects {

class HORasterInfo {
public:
    // Fills `info` from `dataset`; false with the reason when its georeferencing cannot be drawn.
    static bool Inspect(GDALDataset* dataset, HORasterInfo* info, HOString* reason);

    std::string path;  // what reopens the raster on another thread
    int width = 0;
    int height = 0;
    int bands = 0;
    // Pixel to map: x = geo[0] + col * geo[1] + row * geo[2], y = geo[3] + col * geo[4] + row * geo[5].
    // An image without georeferencing lies in pixel units, row 0 at the top (y = -row).
    double geo[6] = {0, 1, 0, 0, 0, -1};
    bool northUp = true;  // no rotation: drawn without a warp in its own system
    HORect extent;
    HORefPtr<HOCoordinateSystem> system;  // null for an image without a coordinate system
    bool rgb = false;                     // bands 1-3 are red, green and blue
    int alphaBand = 0;                    // 0: none
    bool hasNoData = false;
    double noData = 0;
    std::vector<QRgb> palette;  // colour (not premultiplied) per index; empty when not paletted
};

}  // namespace HXObjects
