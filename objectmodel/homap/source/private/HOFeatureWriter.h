#pragma once
// HOFeatureWriter: the one place where feature edits reach a vector data source. A writer is made
// per editable layer when the layer is read (For() says why a layer cannot be edited otherwise);
// Apply() writes a list of changes all or nothing: inside the driver's transaction where it has one
// (GeoPackage, PostgreSQL: HOTransactionWriter), by writing a copy aside and swapping it in where it
// has none (Shapefile: HOShapefileWriter). Before a feature is changed or deleted, the stored one is
// compared with the one the layer read; if another program changed it meanwhile the whole list is
// refused. New geometry must be valid (GEOS). Used on one thread at a time.
#include <gdal_priv.h>

#include <memory>
#include <string>
#include <vector>

#include "HOFeatureChange.h"
#include "HOString.h"

namespace HXObjects {

class HOFeatureWriter {
public:
    virtual ~HOFeatureWriter();

    // The writer for the layer named `layer` of the open `dataset` read from `path`; null with the
    // reason when the layer cannot be edited.
    static std::unique_ptr<HOFeatureWriter> For(const std::string& path, GDALDataset* dataset,
                                                OGRLayer* layer, HOString* reason);

    // Writes the changes; the new features' ids are filled in (`after` of each added feature is
    // replaced by one with its id). False with the reason, having written nothing.
    virtual bool Apply(std::vector<HOFeatureChange>& changes, HOString* error) = 0;
    // Whether the source's files are replaced by a write, so readers must open them again.
    virtual bool ReplacesFiles() const { return false; }

protected:
    HOFeatureWriter(std::string path, std::string layer)
        : m_path(std::move(path)), m_layer(std::move(layer)) {}

    // Writes the changes into an open layer (inside whatever makes them atomic); false with the reason.
    // `keepsIds`: a deleted feature can be put back under its old id.
    static bool write(OGRLayer* layer, std::vector<HOFeatureChange>& changes, bool keepsIds, HOString* error);
    // Opens the source for writing; null with the reason.
    static GDALDatasetUniquePtr openForUpdate(const std::string& path, HOString* reason);

    const std::string m_path;
    const std::string m_layer;

private:
    static bool matchesStored(OGRLayer* layer, const HOFeature& expected, HOString* error);
    static bool fill(OGRFeature& target, const HOFeature& source, OGRwkbGeometryType layerType,
                     HOString* error);
    static bool fillAttributes(OGRFeature& target, const HOFeature& source, HOString* error);
    static bool writable(const std::string& path, HOString* reason);
};

}  // namespace HXObjects
