#include "source/private/HOFeatureWriter.h"

#include <ogrsf_frmts.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFileInfo>

#include "source/private/HOOgrGeometry.h"
#include "source/private/HOShapefileWriter.h"
#include "source/private/HOTransactionWriter.h"

namespace HXObjects {

namespace {

// A geometry in a form that compares equal however a driver stored it: as a collection (a
// shapefile may hand back a polygon as a multipolygon), in GEOS's normal vertex and ring order
// (a shapefile turns rings round).
OGRGeometryUniquePtr Comparable(const OGRGeometry* geometry) {
    if (!geometry || geometry->IsEmpty()) return nullptr;
    const OGRwkbGeometryType flat = wkbFlatten(geometry->getGeometryType());
    OGRGeometryUniquePtr multi(OGRGeometryFactory::forceTo(
        geometry->clone(),
        OGR_GT_IsSubClassOf(flat, wkbGeometryCollection) ? flat : OGR_GT_GetCollection(flat)));
    OGRGeometryUniquePtr normal(multi ? multi->Normalize() : nullptr);
    return normal ? std::move(normal) : std::move(multi);
}

bool SameGeometry(const OGRGeometry* stored, const HOGeometry* expected) {
    const OGRGeometryUniquePtr wanted = expected ? HOOgrGeometry::ToOgr(*expected) : nullptr;
    const OGRGeometryUniquePtr a = Comparable(stored), b = Comparable(wanted.get());
    return (!a && !b) || (a && b && a->Equals(b.get()));
}

}  // namespace

HOFeatureWriter::~HOFeatureWriter() = default;

std::unique_ptr<HOFeatureWriter> HOFeatureWriter::For(const std::string& path, GDALDataset* dataset,
                                                      OGRLayer* layer, HOString* reason) {
    const std::string driver = dataset->GetDriverName();
    const std::string name = layer->GetName();
    if (driver == "PostgreSQL") {
        if (*layer->GetFIDColumn() == '\0') {
            *reason =
                QCoreApplication::translate("HXObjects::HOFeatureWriter", "the table has no primary key");
            return nullptr;
        }
        return std::make_unique<HOTransactionWriter>(path, name);
    }
    if (path.compare(0, 4, "/vsi") == 0 || path.find("://") != std::string::npos) {
        *reason = QCoreApplication::translate("HXObjects::HOFeatureWriter",
                                              "it is read over the network or from an archive");
        return nullptr;
    }
    if (driver == "GPKG") {
        if (!writable(path, reason)) return nullptr;
        return std::make_unique<HOTransactionWriter>(path, name);
    }
    if (driver == "ESRI Shapefile") {
        // A directory of shapefiles is edited file by file.
        const std::string file =
            QFileInfo(QString::fromStdString(path)).isDir() ? path + "/" + name + ".shp" : path;
        if (!writable(file, reason)) return nullptr;
        return std::make_unique<HOShapefileWriter>(file);
    }
    *reason = QCoreApplication::translate("HXObjects::HOFeatureWriter", "the %1 format cannot be edited")
                  .arg(QString::fromUtf8(dataset->GetDriver()->GetDescription()));
    return nullptr;
}

bool HOFeatureWriter::writable(const std::string& path, HOString* reason) {
    // A file without write permission is read-only even for a user who could override that.
    struct stat info;
    const std::string dir = QFileInfo(QString::fromStdString(path)).absolutePath().toStdString();
    if (::stat(path.c_str(), &info) != 0 || (info.st_mode & 0222) == 0 || ::access(path.c_str(), W_OK) != 0) {
        *reason = QCoreApplication::translate("HXObjects::HOFeatureWriter", "'%1' is read-only")
                      .arg(QString::fromUtf8(path.c_str()));
        return false;
    }
    // Journals and copies are written beside the file.
    if (::access(dir.c_str(), W_OK) != 0) {
        *reason = QCoreApplication::translate("HXObjects::HOFeatureWriter", "the folder '%1' is read-only")
                      .arg(QString::fromUtf8(dir.c_str()));
        return false;
    }
    return true;
}

GDALDatasetUniquePtr HOFeatureWriter::openForUpdate(const std::string& path, HOString* reason) {
    static const char* const options[] = {"AUTO_REPACK=NO", "DBF_DATE_LAST_UPDATE=2000-01-01", nullptr};
    CPLErrorReset();
    GDALDatasetUniquePtr dataset(
        GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE, nullptr, options));
    if (!dataset)
        *reason =
            QCoreApplication::translate("HXObjects::HOFeatureWriter", "cannot open '%1' for writing: %2")
                .arg(QString::fromUtf8(path.c_str()), QString::fromUtf8(CPLGetLastErrorMsg()));
    return dataset;
}

bool HOFeatureWriter::write(OGRLayer* layer, std::vector<HOFeatureChange>& changes, bool keepsIds,
                            HOString* error) {
    const OGRwkbGeometryType layerType = layer->GetGeomType();
    for (HOFeatureChange& change : changes) {
        if (change.before && !matchesStored(layer, *change.before, error)) return false;
        CPLErrorReset();
        if (!change.after) {
            if (layer->DeleteFeature(change.before->GetID()) != OGRERR_NONE) {
                *error =
                    QCoreApplication::translate("HXObjects::HOFeatureWriter", "cannot delete feature %1: %2")
                        .arg(change.before->GetID())
                        .arg(QString::fromUtf8(CPLGetLastErrorMsg()));
                return false;
            }
            continue;
        }
        OGRFeatureUniquePtr feature;
        if (change.before)
            feature.reset(layer->GetFeature(change.before->GetID()));
        else
            feature.reset(OGRFeature::CreateFeature(layer->GetLayerDefn()));
        if (!fill(*feature, *change.after, layerType, error)) return false;
        OGRErr result;
        if (change.before) {
            result = layer->SetFeature(feature.get());
        } else {
            feature->SetFID(keepsIds && change.after->GetID() >= 0 ? change.after->GetID() : OGRNullFID);
            result = layer->CreateFeature(feature.get());
        }
        if (result != OGRERR_NONE) {
            *error = QCoreApplication::translate("HXObjects::HOFeatureWriter", "cannot write the feature: %1")
                         .arg(QString::fromUtf8(CPLGetLastErrorMsg()));
            return false;
        }
        if (!change.before)
            change.after = new HOFeature(int(feature->GetFID()), change.after->GetGeometry(),
                                         change.after->GetAttributes());
    }
    return true;
}

bool HOFeatureWriter::matchesStored(OGRLayer* layer, const HOFeature& expected, HOString* error) {
    OGRFeatureUniquePtr stored(layer->GetFeature(expected.GetID()));
    if (!stored) {
        *error = QCoreApplication::translate("HXObjects::HOFeatureWriter", "feature %1 no longer exists")
                     .arg(expected.GetID());
        return false;
    }
    bool same =
        !expected.GetGeometry() || SameGeometry(stored->GetGeometryRef(), expected.GetGeometry().get());
    for (const HOFeature::Attribute& attribute : expected.GetAttributes()) {
        const int field = stored->GetFieldIndex(attribute.first.c_str());
        const HOString value(
            field >= 0 && stored->IsFieldSetAndNotNull(field) ? stored->GetFieldAsString(field) : "");
        same = same && field >= 0 && value == attribute.second;
    }
    if (!same)
        *error = QCoreApplication::translate("HXObjects::HOFeatureWriter",
                                             "feature %1 was changed by someone else since it was read")
                     .arg(expected.GetID());
    return same;
}

bool HOFeatureWriter::fill(OGRFeature& target, const HOFeature& source, OGRwkbGeometryType layerType,
                           HOString* error) {
    if (!source.GetGeometry()) return fillAttributes(target, source, error);
    OGRGeometryUniquePtr geometry = HOOgrGeometry::ToOgr(*source.GetGeometry());
    if (geometry && !geometry->IsValid()) {
        *error = QCoreApplication::translate(
            "HXObjects::HOFeatureWriter",
            "the geometry is not valid (it crosses itself or has too few points)");
        return false;
    }
    // A single polygon in a layer of multipolygons (and the like) takes the layer's type.
    if (geometry && wkbFlatten(layerType) != wkbUnknown)
        geometry.reset(OGRGeometryFactory::forceTo(geometry.release(), layerType));
    if (geometry)
        geometry->assignSpatialReference(target.GetDefnRef()->GetGeomFieldCount() > 0
                                             ? target.GetDefnRef()->GetGeomFieldDefn(0)->GetSpatialRef()
                                             : nullptr);
    target.SetGeometryDirectly(geometry.release());
    return fillAttributes(target, source, error);
}

bool HOFeatureWriter::fillAttributes(OGRFeature& target, const HOFeature& source, HOString* error) {
    for (const HOFeature::Attribute& attribute : source.GetAttributes()) {
        const int field = target.GetFieldIndex(attribute.first.c_str());
        if (field < 0) {
            *error = QCoreApplication::translate("HXObjects::HOFeatureWriter", "the layer has no field '%1'")
                         .arg(QString::fromUtf8(attribute.first.c_str()));
            return false;
        }
        if (attribute.second.isEmpty())
            target.SetFieldNull(field);
        else
            target.SetField(field, attribute.second.c_str());
    }
    return true;
}

}  // namespace HXObjects
