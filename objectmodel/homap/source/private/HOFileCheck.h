#pragma once
// HOFileCheck: looks at a local path before any driver reads it, so that what no driver can open
// safely is refused with its true reason: a named pipe or a device would block the first read for
// ever, and a missing file, a link loop or a file nobody may read each get their own words. A
// driver reads a file's companions too (a shapefile's .dbf, a raster's .aux.xml, the files of a
// directory dataset), so they must be files as well.
#include <string>

#include "HOString.h"

namespace HXObjects {

class HOFileCheck {
public:
    // True for a path a driver may read: a regular file or a directory (a dataset of several
    // files). Otherwise false with the reason. Connection strings and GDAL's virtual file systems
    // ("PG:…", "/vsizip/…") pass unchecked.
    static bool IsReadable(const std::string& path, HOString* reason);

private:
    static bool isLocalPath(const std::string& path);
    // The files beside `path` that share its name up to the extension, or a directory's entries.
    static bool companionsAreFiles(const std::string& path, bool directory, HOString* reason);
};

}  // namespace HXObjects
