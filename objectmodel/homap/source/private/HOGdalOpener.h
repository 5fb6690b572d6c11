#pragma once
// HOGdalOpener: the one place where GDAL opens a data source, read-only, as vector or raster. It
// refuses what no driver can read safely (HOFileCheck), keeps GDAL from writing anything beside the
// data (GML's .gfs schema, .aux.xml statistics), keeps a bad file from reaching the driver known
// to crash on it, refuses rasters whose blocks could not be held in memory, and turns GDAL's
// complaints into a reason.
#include <gdal_priv.h>

#include <string>

#include "HOString.h"

namespace HXObjects {

class HOGdalOpener {
public:
    // Null with the reason on failure. A file that a raster driver claims and then rejects (a CSV
    // of numbers, a GeoJSON STAC item) is tried again as vector, and the other way round.
    static GDALDatasetUniquePtr Open(const std::string& path, HOString* reason);
    // The vector side of a source, for a second reader of data already opened once (the label
    // texts): quiet, with the same driver choice and nothing written beside the data; null when
    // it no longer opens.
    static GDALDatasetUniquePtr OpenVector(const std::string& path);

private:
    static GDALDatasetUniquePtr attempt(const std::string& path, unsigned kinds, std::string* message);
    // Where GDAL reads a path, and with which drivers (any when none are listed).
    struct Reader {
        std::string path;
        CPLStringList drivers;
    };
    static Reader readerFor(const std::string& path);
    // False with the reason for a dataset without layers or bands, or with blocks too large to
    // hold in memory.
    static bool holdsData(GDALDataset* dataset, HOString* reason);
    static void keepSidecarsUnwritten(GDALDataset* dataset);
};

}  // namespace HXObjects
