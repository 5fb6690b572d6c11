#pragma once
// HORasterLayer: a raster read through GDAL (GeoTIFF or any GDAL raster). Its size, extent and
// coordinate system are known from the moment it opens and never wait for a render. Each render
// reads only the visible window at output resolution through a dataset of its own: RGB(A) bands as
// they are, a paletted band through its colour table, a single band as grey stretched between its
// 2nd and 98th percentiles. A rotated raster, or one in another coordinate system than the map's,
// is warped north-up and is transparent outside its footprint; an image without georeferencing lies
// in pixel units. A raster too large to draw without overviews is drawn coarsely while overviews
// are built in the background into the application's cache folder.
#include <memory>

#include "HOEventSignal.h"
#include "HOLayer.h"
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HORasterLayer : public HOLayer {
public:
    LayerType GetLayerType() const override;
    HORefPtr<HOCoordinateSystem> GetSpatialReference() const override;
    HORect GetExtent() const override;
    void Render(const HORenderContext& context) override;

    int GetRasterWidth() const;
    int GetRasterHeight() const;
    int GetBandCount() const;

    // Overviews being built in the background: -1 when none are (or failed), 0..1 while they
    // are, 1 once the layer draws from them.
    double GetOverviewProgress() const;
    // Fires on the building thread as overview building advances and once when renders use the
    // overviews (a host then redraws the map).
    HOEventSignal OverviewProgressSignal;

protected:
    ~HORasterLayer() override;

private:
    HORasterLayer();
    friend class HORasterLayerLoader;
    class Private;
    std::unique_ptr<Private> d;
};

}  // namespace HXObjects
