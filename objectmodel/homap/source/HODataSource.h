#pragma once
// HODataSource: the front door to a file or data source. Opening looks at the path, picks the
// reader (OGR for vector data, GDAL for rasters) and reports failures as text; the source then lists
// its layers and opens any or all of them, every vector layer sharing the one open dataset. Layers
// keep what they need of the source alive, so the source may be dropped once they are open. Open
// and read on a worker thread (both read the file), one thread at a time per source; the layers
// may then go anywhere.
#include <functional>
#include <memory>
#include <vector>

#include "HOLayer.h"
#include "HORefBase.h"
#include "HORefPtr.h"
#include "HOString.h"
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HODataSource : public HORefBase {
public:
    // Null on failure, with the error "cannot open 'path': reason" when asked.
    static HORefPtr<HODataSource> Open(const HOString& path, HOString* error = nullptr);

    HOString GetPath() const;
    // The layers' names in the source's order; a raster is one layer named after its file.
    std::vector<HOString> GetLayerNames() const;
    // Told the share of a layer read now and then (0..1); answering false stops the read.
    using Progress = std::function<bool(double done)>;
    // Reads one layer; null with "cannot open 'path': reason" on failure or when stopped.
    HORefPtr<HOLayer> OpenLayer(const HOString& name, HOString* error = nullptr,
                                const Progress& progress = nullptr);
    // Reads every layer in the source's order. A layer that cannot be read is left out and its
    // reason added to `error` (one line each). `progress` is told the share of all layers read;
    // when it answers false the reading stops and none is returned.
    std::vector<HORefPtr<HOLayer>> OpenLayers(HOString* error = nullptr, const Progress& progress = nullptr);

protected:
    ~HODataSource() override;

private:
    friend HORefPtr<HOLayer> OpenLayer(const HOString&, HOString*);
    HODataSource();
    static HORefPtr<HODataSource> open(const HOString& path, HOString* reason);
    // -1 with the reason when there is no such layer.
    int indexOf(const HOString& name, HOString* reason) const;
    HORefPtr<HOLayer> openLayer(int index, HOString* reason, const Progress& progress = nullptr);

    class Private;
    std::unique_ptr<Private> d;
};

}  // namespace HXObjects
