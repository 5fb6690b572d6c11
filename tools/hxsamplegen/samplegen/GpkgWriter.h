#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "SampleLayer.h"

class GDALDataset;
class OGRCoordinateTransformation;
class OGRFeature;
class OGRLayer;
class OGRSpatialReference;

// Writes layers of generated features, given in the region's projected CRS, to a new GeoPackage in the
// CRS of the given EPSG code, reprojecting on the way when the two differ. Each layer is written in one
// transaction; the file is complete when the writer is closed or destroyed.
class GpkgWriter {
public:
    GpkgWriter(const QString& path, int epsg);
    ~GpkgWriter();
    GpkgWriter(const GpkgWriter&) = delete;
    GpkgWriter& operator=(const GpkgWriter&) = delete;

    bool isOpen() const { return m_dataset != nullptr; }
    const QString& error() const { return m_error; }

    bool write(const SampleLayer& layer);

    // Streaming, for layers too large to hold in memory: begin, add each feature, commit.
    bool begin(const QString& name, OGRwkbGeometryType type, const std::vector<SampleField>& fields);
    bool add(std::unique_ptr<OGRGeometry> geometry, const std::vector<QVariant>& values);
    bool commit();

    bool close();

private:
    bool fail(const QString& what);

    QString m_path;
    std::unique_ptr<OGRSpatialReference> m_srs;
    std::unique_ptr<OGRCoordinateTransformation> m_transform;
    GDALDataset* m_dataset = nullptr;
    OGRLayer* m_layer = nullptr;
    std::unique_ptr<OGRFeature> m_feature;
    std::vector<OGRFieldType> m_types;
    QString m_error;
};
