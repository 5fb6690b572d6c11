#include "source/private/HOGdalOpener.h"

#include <gdal_pam.h>

#include <QCoreApplication>

#include "source/private/HOFileCheck.h"
#include "source/private/HOGdalEnvironment.h"

namespace HXObjects {

GDALDatasetUniquePtr HOGdalOpener::Open(const std::string& path, HOString* reason) {
    HOGdalEnvironment::Prepare();
    if (!HOFileCheck::IsReadable(path, reason)) return nullptr;
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    // Drivers read the auxiliary-metadata switch when they open; nothing is saved beside the data.
    CPLConfigOptionSetter noSidecars("GDAL_PAM_ENABLED", "NO", false);
    const unsigned kinds[3] = {GDAL_OF_VECTOR | GDAL_OF_RASTER, GDAL_OF_VECTOR, GDAL_OF_RASTER};
    std::string messages[3];
    for (int i = 0; i < 3; ++i) {
        GDALDatasetUniquePtr dataset = attempt(path, kinds[i], &messages[i]);
        if (dataset) {
            keepSidecarsUnwritten(dataset.get());
            return holdsData(dataset.get(), reason) ? std::move(dataset) : nullptr;
        }
        // No driver claimed the file at all: each kind alone would find none either.
        if (i == 0 && messages[0].empty()) break;
    }
    // What a vector driver says about the content is the likelier truth, then a raster driver.
    for (const int i : {1, 2, 0}) {
        if (!messages[i].empty()) {
            *reason = messages[i];
            return nullptr;
        }
    }
    *reason =
        QCoreApplication::translate("HXObjects::HOGdalOpener", "not a recognised vector or raster format");
    return nullptr;
}

GDALDatasetUniquePtr HOGdalOpener::OpenVector(const std::string& path) {
    HOGdalEnvironment::Prepare();
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    CPLConfigOptionSetter noSidecars("GDAL_PAM_ENABLED", "NO", false);
    std::string message;
    GDALDatasetUniquePtr dataset = attempt(path, GDAL_OF_VECTOR, &message);
    if (dataset) keepSidecarsUnwritten(dataset.get());
    return dataset;
}

GDALDatasetUniquePtr HOGdalOpener::attempt(const std::string& path, unsigned kinds, std::string* message) {
    // GML would write a .gfs schema beside the file and might fetch an application schema.
    static const char* const options[] = {"WRITE_GFS=NO", "DOWNLOAD_SCHEMA=NO", nullptr};
    const Reader reader = readerFor(path);
    CPLErrorReset();
    GDALDatasetUniquePtr dataset(
        GDALDataset::Open(reader.path.c_str(), kinds | GDAL_OF_READONLY, reader.drivers.List(), options));
    if (!dataset && CPLGetLastErrorType() >= CE_Failure) *message = CPLGetLastErrorMsg();
    return dataset;
}

HOGdalOpener::Reader HOGdalOpener::readerFor(const std::string& path) {
    // GDAL 3.6's LIBKML driver takes the whole process down on a gx:Track without <when> (ogrinfo
    // too). The plain KML driver reads the same placemarks without that risk, so KML goes to it; a
    // zipped .kmz is read through GDAL's zip file system, at its first .kml entry.
    Reader reader{path, {}};
    if (EQUAL(CPLGetExtension(path.c_str()), "kmz")) {
        const std::string zip = "/vsizip/" + path;
        const CPLStringList entries(VSIReadDir(zip.c_str()));
        for (int i = 0; i < entries.size() && reader.path == path; ++i)
            if (EQUAL(CPLGetExtension(entries[i]), "kml")) reader.path = zip + "/" + entries[i];
    }
    if (EQUAL(CPLGetExtension(reader.path.c_str()), "kml")) reader.drivers.AddString("KML");
    return reader;
}

bool HOGdalOpener::holdsData(GDALDataset* dataset, HOString* reason) {
    if (dataset->GetLayerCount() == 0 && dataset->GetRasterCount() == 0) {
        // A driver may accept a damaged file and find nothing in it; what it said is the reason.
        *reason = CPLGetLastErrorType() >= CE_Failure ? CPLGetLastErrorMsg()
                                                      : "it holds no vector layer or raster band";
        return false;
    }
    // A damaged header can declare blocks of many gigabytes, which GDAL allocates whole on the
    // first read of any pixel in them.
    constexpr double limit = 512.0 * 1024 * 1024;
    for (int b = 1; b <= dataset->GetRasterCount(); ++b) {
        GDALRasterBand* band = dataset->GetRasterBand(b);
        int width = 0, height = 0;
        band->GetBlockSize(&width, &height);
        if (double(width) * height * GDALGetDataTypeSizeBytes(band->GetRasterDataType()) > limit) {
            *reason = QCoreApplication::translate("HXObjects::HOGdalOpener",
                                                  "its blocks of %1 x %2 pixels are too large to read")
                          .arg(width)
                          .arg(height);
            return false;
        }
    }
    return true;
}

void HOGdalOpener::keepSidecarsUnwritten(GDALDataset* dataset) {
    // Some drivers set up their auxiliary metadata lazily, on a later thread that lacks the
    // switch above; the flag holds for the dataset's life.
    if (auto* pam = dynamic_cast<GDALPamDataset*>(dataset)) pam->SetPamFlags(pam->GetPamFlags() | GPF_NOSAVE);
}

}  // namespace HXObjects
