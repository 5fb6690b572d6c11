#pragma once
// HOTransactionWriter: writes feature edits to a source whose driver has transactions (GeoPackage,
// PostgreSQL): one transaction per list of changes, rolled back on any failure. The source is
// opened for writing on the first edit and kept open; after a failure it is opened afresh (the
// database may have gone and come back).
#include "source/private/HOFeatureWriter.h"

namespace HXObjects {

class HOTransactionWriter : public HOFeatureWriter {
public:
    HOTransactionWriter(std::string path, std::string layer)
        : HOFeatureWriter(std::move(path), std::move(layer)) {}
    bool Apply(std::vector<HOFeatureChange>& changes, HOString* error) override;

    // A GeoPackage left with a hot journal by a crash in a transaction cannot be read read-only
    // until SQLite has rolled that transaction back, which takes a connection that may write.
    static void Recover(const std::string& gpkg);

private:
    GDALDatasetUniquePtr m_dataset;
};

}  // namespace HXObjects
