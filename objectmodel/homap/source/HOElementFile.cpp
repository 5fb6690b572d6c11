#include "HOElementFile.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <QCoreApplication>
#include <QFile>
#include <memory>

#include "HOCoordinateSystem.h"
#include "HOGraphicsLayer.h"
#include "edit/HOGeometryWkt.h"
#include "edit/HOStyleJson.h"
#include "private/HOCoordinateSystemOgr.h"
#include "source/private/HOGdalEnvironment.h"

namespace HXObjects {

const char* const HOElementFile::kTable = "elements";

namespace {

bool Fail(HOString* error, const QString& path, const QString& reason) {
    if (error)
        *error = QCoreApplication::translate("HXObjects::HOElementFile", "cannot write '%1': %2")
                     .arg(path, reason)
                     .toUtf8()
                     .data();
    return false;
}

QString LastGdalError() {
    const QString message = QString::fromUtf8(CPLGetLastErrorMsg());
    return message.isEmpty() ? QString("unknown error") : message;
}

bool WriteRow(OGRLayer* table, const HOElement& element) {
    OGRGeometry* geometry = nullptr;
    const QByteArray wkt = HOGeometryWkt::ToWkt(*element.GetGeometry()).toQString().toUtf8();
    if (OGRGeometryFactory::createFromWkt(wkt.constData(), nullptr, &geometry) != OGRERR_NONE) return false;
    OGRFeature row(table->GetLayerDefn());
    row.SetGeometryDirectly(geometry);
    row.SetField("label", element.GetLabel().toQString().toUtf8().constData());
    if (element.GetStyle())
        row.SetField("style", HOStyleJson::Write(*element.GetStyle()).toUtf8().constData());
    return table->CreateFeature(&row) == OGRERR_NONE;
}

}  // namespace

bool HOElementFile::Save(const HOString& path, const std::vector<HORefPtr<HOElement>>& elements,
                         const HOCoordinateSystem* system, HOString* error) {
    HOGdalEnvironment::Prepare();
    const QString target = path.toQString();
    const QString part = target + ".part";
    QFile::remove(part);
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("GPKG");
    if (!driver) return Fail(error, target, "GeoPackage driver missing");
    {
        GDALDatasetUniquePtr file(driver->Create(part.toUtf8().constData(), 0, 0, 0, GDT_Unknown, nullptr));
        if (!file) return Fail(error, target, LastGdalError());
        // CreateLayer takes a non-const reference it only reads (and clones).
        std::unique_ptr<OGRSpatialReference> srs(system ? HOCoordinateSystemOgr::Ogr(system)->Clone()
                                                        : nullptr);
        OGRLayer* table = file->CreateLayer(kTable, srs.get(), wkbUnknown, nullptr);
        if (!table) return Fail(error, target, LastGdalError());
        OGRFieldDefn label("label", OFTString), style("style", OFTString);
        if (table->CreateField(&label) != OGRERR_NONE || table->CreateField(&style) != OGRERR_NONE)
            return Fail(error, target, LastGdalError());
        file->StartTransaction();
        for (const auto& element : elements) {
            if (!WriteRow(table, *element)) {
                file->RollbackTransaction();
                return Fail(error, target, LastGdalError());
            }
        }
        if (file->CommitTransaction() != OGRERR_NONE) return Fail(error, target, LastGdalError());
    }
    QFile::remove(target);
    if (!QFile::rename(part, target)) return Fail(error, target, "cannot replace the file");
    return true;
}

std::vector<HORefPtr<HOElement>> HOElementFile::Load(const HOString& path, HOString* error) {
    HOGdalEnvironment::Prepare();
    std::vector<HORefPtr<HOElement>> elements;
    const QByteArray name = path.toQString().toUtf8();
    GDALDatasetUniquePtr file(GDALDataset::Open(name.constData(), GDAL_OF_VECTOR | GDAL_OF_READONLY,
                                                std::vector<const char*>{"GPKG", nullptr}.data()));
    OGRLayer* table = file ? file->GetLayerByName(kTable) : nullptr;
    if (!table) {
        if (error)
            *error = QCoreApplication::translate("HXObjects::HOElementFile", "cannot read '%1': %2")
                         .arg(path.toQString(), LastGdalError())
                         .toUtf8()
                         .data();
        return elements;
    }
    for (auto& row : *table) {
        const OGRGeometry* geometry = row->GetGeometryRef();
        char* wkt = nullptr;
        if (!geometry || geometry->exportToWkt(&wkt) != OGRERR_NONE) continue;
        const auto parsed = HOGeometryWkt::FromWkt(wkt);
        CPLFree(wkt);
        if (parsed.size() != 1) continue;
        HORefPtr<HOStyle> style = HOStyleJson::Read(QString::fromUtf8(row->GetFieldAsString("style")));
        if (!style) style = HOGraphicsLayer::DefaultStyle(parsed.front()->GetType());
        elements.emplace_back(new HOElement(0, parsed.front(), style, row->GetFieldAsString("label")));
    }
    return elements;
}

}  // namespace HXObjects
