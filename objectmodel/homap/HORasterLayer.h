#pragma once
// HORasterLayer: a raster read through GDAL (GeoTIFF or any GDAL raster). Each render reads only the
// visible window at output resolution (GDAL picks overviews when present) and draws RGB(A) bands as
// they are, a single band as grey stretched between the band's minimum and maximum. A map in another
// coordinate system gets a warped view of the raster, built once per system.
#include <memory>

#include "HOLayer.h"

namespace HXObjects {

class HORasterLayer : public HOLayer {
public:
    LayerType GetLayerType() const override;
    HORefPtr<HOCoordinateSystem> GetSpatialReference() const override;
    HORect GetExtent() const override;
    void Render(const HORenderContext& context) override;

    int GetRasterWidth() const;
    int GetRasterHeight() const;
    int GetBandCount() const;

protected:
    ~HORasterLayer() override;

private:
    HORasterLayer();
    friend class HORasterLayerLoader;
    class Private;
    std::unique_ptr<Private> d;
};

}  // namespace HXObjects
