#include "HillshadeWriter.h"

#include <cpl_string.h>
#include <gdal_priv.h>
#include <gdal_utils.h>

#include <QFile>
#include <memory>

namespace {

struct CloseDataset {
    void operator()(GDALDatasetH dataset) const { GDALClose(dataset); }
};
using Dataset = std::unique_ptr<void, CloseDataset>;

bool failed(QString* error, const QString& path, const QString& what) {
    if (error) *error = QString("cannot write '%1': %2: %3").arg(path, what, CPLGetLastErrorMsg());
    return false;
}

}  // namespace

bool HillshadeWriter::write(const QString& demPath, const QString& path, QString* error) {
    GDALAllRegister();
    const Dataset dem(GDALOpen(demPath.toUtf8().constData(), GA_ReadOnly));
    if (!dem) return failed(error, path, "cannot read the DEM");
    CPLStringList arguments;
    for (const char* a : {"-multidirectional", "-z", "2", "-compute_edges", "-of", "GTiff", "-co",
                          "TILED=YES", "-co", "COMPRESS=DEFLATE"})
        arguments.AddString(a);
    GDALDEMProcessingOptions* options = GDALDEMProcessingOptionsNew(arguments.List(), nullptr);
    if (!options) return failed(error, path, "bad hillshade options");
    QFile::remove(path);
    QFile::remove(path + ".aux.xml");
    int usageError = 0;
    Dataset shade(
        GDALDEMProcessing(path.toUtf8().constData(), dem.get(), "hillshade", nullptr, options, &usageError));
    GDALDEMProcessingOptionsFree(options);
    if (!shade || usageError) return failed(error, path, "GDAL's hillshade failed");
    const int levels[] = {2, 4, 8, 16, 32};
    if (GDALBuildOverviews(shade.get(), "AVERAGE", 5, levels, 0, nullptr, nullptr, nullptr) != CE_None)
        return failed(error, path, "cannot build overviews");
    CPLErrorReset();
    shade.reset();
    return CPLGetLastErrorType() < CE_Failure || failed(error, path, "cannot close the file");
}
