#pragma once
// HOElementFile: a map's graphic elements in a GeoPackage file: one table "elements" in the map's
// coordinate system, a row per element in drawing order with its geometry, its label and its style
// as JSON (HOStyleJson). GeoPackage rather than GeoJSON because it keeps any coordinate system and
// mixed geometry types exactly, and is a single file other GIS programs open. A save is written to a
// companion file and then put in place, so an interrupted save leaves the previous file. Safe to call
// from a worker thread (it touches no layer).
#include <vector>

#include "HOElement.h"
#include "HOString.h"
#include "HXExport.h"

namespace HXObjects {

class HOCoordinateSystem;

class HX_EXPORT HOElementFile {
public:
    // False with a readable error when the file cannot be written.
    static bool Save(const HOString& path, const std::vector<HORefPtr<HOElement>>& elements,
                     const HOCoordinateSystem* system, HOString* error = nullptr);
    // The elements of the file (ids 0: the layer gives them its own); empty with an error when the
    // file cannot be read, empty without one when it holds none.
    static std::vector<HORefPtr<HOElement>> Load(const HOString& path, HOString* error = nullptr);

    static const char* const kTable;
};

}  // namespace HXObjects
