#include "source/private/HOGdalEnvironment.h"

#include <gdal_priv.h>
#include <proj.h>

#include <mutex>

namespace HXObjects {

void HOGdalEnvironment::Prepare() {
    static std::once_flag once;
    std::call_once(once, [] {
        GDALAllRegister();
        // GDAL's own handler prints every error (a point outside a projection's domain on each
        // mouse move, say). A host that installed a handler of its own keeps it.
        const CPLErrorHandler previous = CPLSetErrorHandler(CPLQuietErrorHandler);
        if (previous != CPLDefaultErrorHandler) CPLSetErrorHandler(previous);
        // GDAL gives its PROJ contexts a logger that turns messages into GDAL errors; the default
        // context, used by direct PROJ calls, would print.
        proj_log_level(nullptr, PJ_LOG_NONE);
    });
}

}  // namespace HXObjects
