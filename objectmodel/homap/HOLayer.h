#pragma once
// HOLayer: one layer of a map. Each layer kind draws itself through Render() into a picture the map
// view composes; Render() runs on the render thread and must poll the context's cancel flag.
#include "HORect.h"
#include "HORefBase.h"
#include "HORefPtr.h"
#include "HOString.h"
#include "HXExport.h"

#include <algorithm>
#include <atomic>
#include <mutex>

namespace HXObjects {

class HOCoordinateSystem;
struct HORenderContext;

class HX_EXPORT HOLayer : public HORefBase {
public:
    enum LayerType {
        UnknownLayer = 0,
        PointLayer = 1,
        PolylineLayer = 3,
        PolygonLayer = 4,
        RasterLayer = 10,
        GraphicsLayer = 11,
    };
    // How a layer's picture is laid over the layers below it (the painter's composition modes): a
    // hillshade multiplies the colours beneath, so relief shows through the land colours.
    enum Composition { SourceOver = 0, Multiply, Screen, Overlay, Darken, Lighten };

    virtual LayerType GetLayerType() const = 0;
    virtual HORefPtr<HOCoordinateSystem> GetSpatialReference() const = 0;
    // Extent in the layer's own coordinate system; the default (empty) rectangle for a layer
    // without data.
    virtual HORect GetExtent() const = 0;
    // Extent in the given system (the layer's own when null or the same); a layer without data
    // keeps the default rectangle.
    virtual HORect GetExtentIn(const HOCoordinateSystem* system) const;
    virtual void Render(const HORenderContext& context) = 0;

    HOString GetName() const;
    void SetName(const HOString& name);
    // The file or data source the layer was opened from.
    HOString GetSource() const;
    void SetSource(const HOString& source);
    bool IsVisible() const { return m_visible.load(); }
    void SetVisible(bool visible) { m_visible.store(visible); }
    // 0 (invisible) to 1 (opaque), applied to the layer's whole picture when the map is composed.
    double GetOpacity() const { return m_opacity.load(); }
    void SetOpacity(double opacity) { m_opacity.store(opacity >= 0.0 ? std::min(opacity, 1.0) : 0.0); }
    Composition GetComposition() const { return m_composition.load(); }
    void SetComposition(Composition composition) { m_composition.store(composition); }
    // A process-unique id, stable for the layer's life.
    int GetLayerId() const { return m_id; }

protected:
    HOLayer();
    ~HOLayer() override = default;

private:
    mutable std::mutex m_mutex;
    HOString m_name;
    HOString m_source;
    std::atomic<bool> m_visible{true};
    std::atomic<double> m_opacity{1.0};
    std::atomic<Composition> m_composition{SourceOver};
    int m_id;
};

// Opens any OGR vector source (first layer, or "path|layername=NAME") or GDAL raster; on failure null
// and a readable error ("cannot open 'x.shp': reason"). HODataSource opens all layers of a source at
// once and takes any file name.
HX_EXPORT HORefPtr<HOLayer> OpenLayer(const HOString& source, HOString* error = nullptr);

}  // namespace HXObjects
