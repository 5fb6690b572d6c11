#include "source/private/HORasterInfo.h"
#include "private/HOCoordinateSystemOgr.h"

#include <gdal_priv.h>

#include <QCoreApplication>
#include <algorithm>
#include <cmath>

namespace HXObjects {

namespace {

// Far beyond any real coordinate (metres or degrees), still well inside what a double draws exactly.
constexpr double coordinateLimit = 1e10;

// Why `geo` cannot place a raster of width x height, or an empty text when it can.
HOString impossibleGeoreferencing(const double geo[6], int width, int height) {
    if (!std::all_of(geo, geo + 6, [](double v) { return std::isfinite(v); }))
        return QCoreApplication::translate("HXObjects::HORasterInfo",
                                           "its georeferencing is not a finite number");
    if (geo[1] * geo[5] - geo[2] * geo[4] == 0)
        return QCoreApplication::translate("HXObjects::HORasterInfo", "its pixel size is zero");
    for (const double col : {0.0, double(width)}) {
        for (const double row : {0.0, double(height)}) {
            const double x = geo[0] + col * geo[1] + row * geo[2];
            const double y = geo[3] + col * geo[4] + row * geo[5];
            if (!(std::abs(x) <= coordinateLimit && std::abs(y) <= coordinateLimit))
                return QCoreApplication::translate("HXObjects::HORasterInfo",
                                                   "its georeferencing puts it beyond any coordinate system");
        }
    }
    return HOString();
}

HORect cornersExtent(const double geo[6], int width, int height) {
    HORect extent(HUGE_VAL, -HUGE_VAL, HUGE_VAL, -HUGE_VAL);
    for (const double col : {0.0, double(width)}) {
        for (const double row : {0.0, double(height)}) {
            const double x = geo[0] + col * geo[1] + row * geo[2];
            const double y = geo[3] + col * geo[4] + row * geo[5];
            extent = HORect(std::min(extent.minx, x), std::max(extent.maxx, x), std::min(extent.miny, y),
                            std::max(extent.maxy, y));
        }
    }
    return extent;
}

std::vector<QRgb> paletteOf(GDALRasterBand* band) {
    const GDALColorTable* table = band->GetColorTable();
    if (band->GetColorInterpretation() != GCI_PaletteIndex || !table) return {};
    std::vector<QRgb> palette(std::size_t(std::max(256, table->GetColorEntryCount())), 0);
    for (int i = 0; i < table->GetColorEntryCount(); ++i) {
        const GDALColorEntry* c = table->GetColorEntry(i);
        palette[std::size_t(i)] = qRgba(c->c1, c->c2, c->c3, c->c4);
    }
    return palette;
}

}  // namespace

bool HORasterInfo::Inspect(GDALDataset* dataset, HORasterInfo* info, HOString* reason) {
    info->path = dataset->GetDescription();
    info->width = dataset->GetRasterXSize();
    info->height = dataset->GetRasterYSize();
    info->bands = dataset->GetRasterCount();
    if (dataset->GetGeoTransform(info->geo) == CE_None) {
        *reason = impossibleGeoreferencing(info->geo, info->width, info->height);
        if (!reason->isEmpty()) return false;
    } else {
        const double pixels[6] = {0, 1, 0, 0, 0, -1};
        std::copy(pixels, pixels + 6, info->geo);
    }
    info->northUp = info->geo[2] == 0 && info->geo[4] == 0 && info->geo[1] > 0 && info->geo[5] < 0;
    info->extent = cornersExtent(info->geo, info->width, info->height);
    info->system = HOCoordinateSystemOgr::FromOgr(dataset->GetSpatialRef());

    GDALRasterBand* first = dataset->GetRasterBand(1);
    info->palette = paletteOf(first);
    info->rgb = info->palette.empty() && info->bands >= 3;
    if (info->bands >= 2 && dataset->GetRasterBand(info->bands)->GetColorInterpretation() == GCI_AlphaBand)
        info->alphaBand = info->bands;
    else if (info->rgb && info->bands >= 4)
        info->alphaBand = 4;
    int hasNoData = 0;
    info->noData = first->GetNoDataValue(&hasNoData);
    info->hasNoData = hasNoData != 0;
    return true;
}

}  // namespace HXObjects
