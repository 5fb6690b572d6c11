#include "DemWriter.h"

#include <cpl_string.h>
#include <gdal_priv.h>
#include <ogr_spatialref.h>

#include <QFile>
#include <cmath>
#include <vector>

#include "SampleCrs.h"
#include "Terrain.h"

namespace {
bool failed(QString* error, const QString& path, const QString& what) {
    if (error) *error = QString("cannot write '%1': %2: %3").arg(path, what, CPLGetLastErrorMsg());
    return false;
}

std::vector<float> sample(const Terrain& terrain, const QRectF& extent, double pixelSize, int columns,
                          int rows) {
    std::vector<float> values(size_t(columns) * rows);
    for (int row = 0; row < rows; ++row) {
        const double y = extent.bottom() - (row + 0.5) * pixelSize;  // north-up: row 0 is the northern edge
        for (int column = 0; column < columns; ++column) {
            const double z = terrain.elevation(QPointF(extent.left() + (column + 0.5) * pixelSize, y));
            values[size_t(row) * columns + column] = std::isnan(z) ? float(DemWriter::kNoData) : float(z);
        }
    }
    return values;
}
}  // namespace

bool DemWriter::write(const QString& path, const Terrain& terrain, const QRectF& extent, double pixelSize,
                      QString* error) {
    GDALAllRegister();
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("GTiff");
    if (!driver) return failed(error, path, "GDAL has no GeoTIFF driver");
    const int columns = int(std::ceil(extent.width() / pixelSize));
    const int rows = int(std::ceil(extent.height() / pixelSize));
    CPLStringList options;
    options.SetNameValue("TILED", "YES");
    options.SetNameValue("COMPRESS", "DEFLATE");
    options.SetNameValue("PREDICTOR", "3");
    QFile::remove(path);
    QFile::remove(path + ".aux.xml");  // statistics of an earlier run would describe other terrain
    GDALDataset* dataset =
        driver->Create(path.toUtf8().constData(), columns, rows, 1, GDT_Float32, options.List());
    if (!dataset) return failed(error, path, "cannot create the file");

    double transform[6] = {extent.left(), pixelSize, 0, extent.bottom(), 0, -pixelSize};
    dataset->SetGeoTransform(transform);
    dataset->SetSpatialRef(SampleCrs::fromEpsg(SampleCrs::kProjectedEpsg).get());
    GDALRasterBand* band = dataset->GetRasterBand(1);
    band->SetNoDataValue(kNoData);
    std::vector<float> values = sample(terrain, extent, pixelSize, columns, rows);
    bool ok = band->RasterIO(GF_Write, 0, 0, columns, rows, values.data(), columns, rows, GDT_Float32, 0,
                             0) == CE_None;
    const int levels[] = {2, 4, 8, 16, 32};
    ok = ok && GDALBuildOverviews(dataset, "AVERAGE", 5, levels, 0, nullptr, nullptr, nullptr) == CE_None;
    if (!ok) failed(error, path, "cannot write the elevations");
    CPLErrorReset();
    GDALClose(dataset);
    return ok && (CPLGetLastErrorType() < CE_Failure || failed(error, path, "cannot close the file"));
}
