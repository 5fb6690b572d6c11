#include "GpkgWriter.h"

#include <cpl_conv.h>
#include <cpl_error.h>
#include <gdal_priv.h>
#include <ogr_feature.h>
#include <ogr_geometry.h>
#include <ogrsf_frmts.h>

#include <QFile>

#include "SampleCrs.h"

GpkgWriter::GpkgWriter(const QString& path, int epsg) : m_path(path), m_srs(SampleCrs::fromEpsg(epsg)) {
    GDALAllRegister();
    if (!m_srs) {
        fail(QString("EPSG:%1 is unknown").arg(epsg));
        return;
    }
    if (epsg != SampleCrs::kProjectedEpsg) {
        const auto source = SampleCrs::fromEpsg(SampleCrs::kProjectedEpsg);
        m_transform.reset(OGRCreateCoordinateTransformation(source.get(), m_srs.get()));
        if (!m_transform) {
            fail("no transformation to the target CRS");
            return;
        }
    }
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("GPKG");
    if (!driver) {
        fail("GDAL has no GeoPackage driver");
        return;
    }
    QFile::remove(path);
    // A large page cache: building the spatial index of a million features thrashes the default one.
    CPLConfigOptionSetter cache("OGR_SQLITE_CACHE", "512", true);
    m_dataset = driver->Create(path.toUtf8().constData(), 0, 0, 0, GDT_Unknown, nullptr);
    if (!m_dataset) fail("cannot create the file");
}

GpkgWriter::~GpkgWriter() {
    close();
}

bool GpkgWriter::fail(const QString& what) {
    const QString reason = CPLGetLastErrorMsg();
    m_error =
        QString("cannot write '%1': %2%3").arg(m_path, what, reason.isEmpty() ? QString() : ": " + reason);
    return false;
}

bool GpkgWriter::write(const SampleLayer& layer) {
    if (!begin(layer.name(), layer.geometryType(), layer.fields())) return false;
    for (const SampleFeature& feature : layer.features())
        if (!add(std::unique_ptr<OGRGeometry>(feature.geometry->clone()), feature.values)) return false;
    return commit();
}

bool GpkgWriter::begin(const QString& name, OGRwkbGeometryType type, const std::vector<SampleField>& fields) {
    if (!m_dataset) return false;
    m_layer = m_dataset->CreateLayer(name.toUtf8().constData(), m_srs.get(), type, nullptr);
    if (!m_layer) return fail("cannot create layer " + name);
    m_types.clear();
    for (const SampleField& field : fields) {
        OGRFieldDefn definition(field.name.toUtf8().constData(), field.type);
        if (m_layer->CreateField(&definition) != OGRERR_NONE)
            return fail("cannot create field " + field.name);
        m_types.push_back(field.type);
    }
    m_feature = std::make_unique<OGRFeature>(m_layer->GetLayerDefn());
    if (m_dataset->StartTransaction() != OGRERR_NONE) return fail("cannot start a transaction");
    return true;
}

bool GpkgWriter::add(std::unique_ptr<OGRGeometry> geometry, const std::vector<QVariant>& values) {
    if (m_transform && geometry->transform(m_transform.get()) != OGRERR_NONE) return fail("cannot reproject");
    for (int i = 0; i < int(m_types.size()); ++i) {
        switch (m_types[i]) {
            case OFTInteger:
                m_feature->SetField(i, values[i].toInt());
                break;
            case OFTInteger64:
                m_feature->SetField(i, GIntBig(values[i].toLongLong()));
                break;
            case OFTReal:
                m_feature->SetField(i, values[i].toDouble());
                break;
            default:
                m_feature->SetField(i, values[i].toString().toUtf8().constData());
                break;
        }
    }
    m_feature->SetGeometryDirectly(geometry.release());
    m_feature->SetFID(OGRNullFID);  // the feature object is reused; let the layer number each one
    if (m_layer->CreateFeature(m_feature.get()) != OGRERR_NONE) return fail("cannot add a feature");
    return true;
}

bool GpkgWriter::commit() {
    m_feature.reset();
    m_layer = nullptr;
    if (m_dataset->CommitTransaction() != OGRERR_NONE) return fail("cannot commit");
    return true;
}

bool GpkgWriter::close() {
    if (!m_dataset) return m_error.isEmpty();
    CPLErrorReset();
    GDALClose(m_dataset);  // flushes the file and its spatial indexes
    m_dataset = nullptr;
    return CPLGetLastErrorType() < CE_Failure ? m_error.isEmpty() : fail("cannot close");
}
