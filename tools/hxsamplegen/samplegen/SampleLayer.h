#pragma once

#include <ogr_core.h>

#include <QString>
#include <QVariant>
#include <memory>
#include <vector>

class OGRGeometry;

// One attribute column of a generated layer.
struct SampleField {
    QString name;
    OGRFieldType type;
};

// One generated feature: its geometry (owned) and its values in the layer's field order.
struct SampleFeature {
    std::unique_ptr<OGRGeometry> geometry;
    std::vector<QVariant> values;
};

// A generated layer held in memory until it is written, so the same features can go to the projected
// and the geographic GeoPackage.
class SampleLayer {
public:
    SampleLayer(const QString& name, OGRwkbGeometryType type, std::vector<SampleField> fields);
    SampleLayer(SampleLayer&&) noexcept;
    SampleLayer& operator=(SampleLayer&&) noexcept;
    ~SampleLayer();

    const QString& name() const { return m_name; }
    OGRwkbGeometryType geometryType() const { return m_type; }
    const std::vector<SampleField>& fields() const { return m_fields; }
    const std::vector<SampleFeature>& features() const { return m_features; }

    // Takes ownership of the geometry.
    void add(std::unique_ptr<OGRGeometry> geometry, std::vector<QVariant> values = {});

private:
    QString m_name;
    OGRwkbGeometryType m_type;
    std::vector<SampleField> m_fields;
    std::vector<SampleFeature> m_features;
};
