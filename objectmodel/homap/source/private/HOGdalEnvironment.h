#pragma once
// HOGdalEnvironment: readies GDAL, OGR and PROJ for this library once per process — drivers
// registered, and errors kept quiet so that they reach a person as the library's error texts
// rather than as lines on the terminal. Every entry point that leads into GDAL calls Prepare().
namespace HXObjects {

class HOGdalEnvironment {
public:
    // Cheap after the first call; safe from any thread.
    static void Prepare();
};

}  // namespace HXObjects
