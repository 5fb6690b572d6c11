#pragma once
// HOShapefileWriter: writes feature edits to a shapefile, which has no transactions, so that a crash
// at any moment leaves the old or the new state. Each edit is written into a copy of the files
// beside them ("name.hxnew.shp", …); the copies are flushed to disk, then a journal
// ("name.hxjournal") is written and flushed — the moment the edit counts as done — and the copies
// are renamed over the originals one by one; the journal goes last. Recover(), run before every
// read and write of the file, finishes the renames of a journaled edit and drops the copies of an
// unjournaled one. Deleted records stay in the file (no repacking), so feature ids never move.
// Each edit copies the whole file: meant for shapefiles of moderate size.
#include "source/private/HOFeatureWriter.h"

namespace HXObjects {

class HOShapefileWriter : public HOFeatureWriter {
public:
    explicit HOShapefileWriter(const std::string& shp);
    bool Apply(std::vector<HOFeatureChange>& changes, HOString* error) override;
    bool ReplacesFiles() const override { return true; }

    // Brings the shapefile at `shp` to the state of its last finished edit.
    static void Recover(const std::string& shp);

private:
    struct Names;
    bool writeCopy(const Names& names, std::vector<HOFeatureChange>& changes, HOString* error);
    static void dropCopies(const Names& names);
};

}  // namespace HXObjects
