#include "SampleLayer.h"

#include <ogr_geometry.h>

SampleLayer::SampleLayer(const QString& name, OGRwkbGeometryType type, std::vector<SampleField> fields)
    : m_name(name), m_type(type), m_fields(std::move(fields)) {}

SampleLayer::SampleLayer(SampleLayer&&) noexcept = default;
SampleLayer& SampleLayer::operator=(SampleLayer&&) noexcept = default;
SampleLayer::~SampleLayer() = default;

void SampleLayer::add(std::unique_ptr<OGRGeometry> geometry, std::vector<QVariant> values) {
    Q_ASSERT(values.size() == m_fields.size());
    m_features.push_back({std::move(geometry), std::move(values)});
}
