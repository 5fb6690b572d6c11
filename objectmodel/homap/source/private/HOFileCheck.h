#pragma once
// HOFileCheck: looks at a local path before any driver reads it, so that what no driver can open
// safely is refused with its true reason: a named pipe or a device would block the first read for
// ever, and a missing file, a link loop or a file nobody may read each get their own words.
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
};

}  // namespace HXObjects
