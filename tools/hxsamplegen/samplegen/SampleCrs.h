#pragma once

#include <memory>

class OGRSpatialReference;

// The coordinate systems of the sample data, with x always east (longitude) whatever the EPSG axis
// order says: CGCS2000 / Gauss-Kruger CM 117E for the region itself and geographic CGCS2000.
class SampleCrs {
public:
    static constexpr int kProjectedEpsg = 4509;
    static constexpr int kGeographicEpsg = 4490;

    // Null if PROJ's database lacks the code.
    static std::unique_ptr<OGRSpatialReference> fromEpsg(int code);
};
