#pragma once
// HOFeatureLayer: a vector layer read through OGR. Geometries are held in memory in compact form
// with a spatial index, reprojected on the fly to the map's system (cached per target system), and
// drawn with the layer style, per-feature overrides (HOUserFeatureRender) and the selection
// highlighted. Feature ids are the source's FIDs.
#include <map>
#include <memory>
#include <vector>

#include "HOFeature.h"
#include "HOFeatureChange.h"
#include "HOLabelSettings.h"
#include "HOLayer.h"
#include "HOStyle.h"
#include "HOUserFeatureRender.h"
#include "HXExport.h"

namespace HXObjects {

class HOLabelEngine;

class HX_EXPORT HOFeatureLayer : public HOLayer {
public:
    LayerType GetLayerType() const override;
    HORefPtr<HOCoordinateSystem> GetSpatialReference() const override;
    HORect GetExtent() const override;
    // Once the layer has been drawn in the system, the extent of what was drawn; until then the
    // extent estimated from the layer's own.
    HORect GetExtentIn(const HOCoordinateSystem* system) const override;
    void Render(const HORenderContext& context) override;

    int GetFeatureCount() const;
    HORefPtr<HOStyle> GetStyle() const;
    void SetStyle(HORefPtr<HOStyle> style);
    // Until SetStyle is called, draws in the default style of palette colour `index` (the map gives
    // each layer the colour of its place when it is added).
    void SetDefaultStyleIndex(int index);
    // Never null.
    HORefPtr<HOUserFeatureRender> GetCustomFeatureRender() const;
    bool IsSameCoordinateSystem(HOCoordinateSystem* system) const;
    // Draws each feature whose value of `field` has a style in `styles` with that style (the rest
    // with the layer style; per-feature styles still win). An empty field clears. False, changing
    // nothing, when the layer has no such field.
    bool SetCategoryStyles(const HOString& field, const std::map<HOString, HORefPtr<HOStyle>>& styles);
    // The field and the styles by value in use (an empty field and no styles when none).
    HOString GetCategoryField() const;
    std::map<HOString, HORefPtr<HOStyle>> GetCategoryStyles() const;

    // The names of the attribute fields, in source order.
    std::vector<HOString> GetFieldNames() const;
    // Labels, placed with those of the other layers and drawn above all of them. The texts are read
    // once per expression, on the render thread. Refresh the layer after changing them.
    HOLabelSettings GetLabelSettings() const;
    void SetLabelSettings(const HOLabelSettings& settings);
    // Offers the labels of the visible features to a picture's label engine (render thread); false
    // when cancelled.
    bool PlaceLabels(const HORenderContext& context, HOLabelEngine& engine);

    // Selection (ids). The rectangle is in the given system (the layer's own when null).
    bool HasSelectedFeatures() const;
    std::vector<int> GetSelectedIds() const;
    // Selects the features whose geometry meets the rectangle; adds to the selection when `add`.
    int SelectByRect(const HORect& rect, bool add, const HOCoordinateSystem* rectSystem = nullptr);
    void SetSelectedIds(const std::vector<int>& ids);
    void ClearSelection();
    // Ids of the features under the point within the tolerance (rectangle system as above), topmost
    // (last drawn) first.
    std::vector<int> IdentifyAt(const HOPoint& point, double tolerance,
                                const HOCoordinateSystem* pointSystem = nullptr) const;
    // Ids of the features whose geometry meets the rectangle, in drawing order.
    std::vector<int> IdentifyIn(const HORect& rect, const HOCoordinateSystem* rectSystem = nullptr) const;
    // The parts (points, paths, rings) of the features whose box meets the rectangle, through the
    // spatial index, in the rectangle's system (the layer's own when null). None while the layer's
    // copy in that system or its spatial index is still being made: callers on the GUI thread never
    // wait for them.
    std::vector<HOGeometry::Part> PartsIn(const HORect& rect,
                                          const HOCoordinateSystem* rectSystem = nullptr) const;
    // Bytes of geometry held in memory in the layer's own system (spatial index aside).
    std::size_t GetGeometryBytes() const;
    // The bytes of geometry a layer may hold in memory; one opened later that would need more is
    // drawn from its source through the source's spatial index (with a simplified copy in memory
    // for small scales) and cannot be edited. 0 restores the default, a quarter of the memory.
    static void SetMemoryBudget(std::size_t bytes);
    static std::size_t GetMemoryBudget();
    // Whether the layer is drawn from its source rather than from memory.
    bool IsStreamed() const;

    // Used to flash a feature: the validity query, the lookup by id (a copy), and its geometry.
    // Attributes are as the layer first read them, like the geometry, until Reload.
    virtual bool IsValid() const;
    virtual HORefPtr<HOFeature> GetFeature(int id) const;
    virtual HORefPtr<HOGeometry> GetFeatureGeometry(int id) const;
    virtual HOGeometry::GeoType GetGeometryType() const;

    // Editing. A layer read from a GeoPackage, a shapefile or a PostgreSQL table with a primary key,
    // that may be written, is editable; any other tells why not.
    bool IsEditable() const;
    HOString GetReadOnlyReason() const;
    // Writes the changes to the data source in one transaction, then shows them. False with the
    // reason, changing nothing on disk or on screen, when the layer is read-only, a feature is gone
    // or was changed by someone else since it was read, a geometry is invalid, or the write fails.
    // The ids of added features are filled in. Writes the file: call it where that may take time.
    bool ApplyChanges(std::vector<HOFeatureChange>& changes, HOString* error);
    // The attribute fields: name and type ("String", "Integer", "Real", "Date"… as OGR names them).
    std::vector<std::pair<HOString, HOString>> GetFields() const;
    // Reads the geometry from the source again (what others wrote becomes visible).
    bool Reload(HOString* error = nullptr);

protected:
    ~HOFeatureLayer() override;

private:
    HOFeatureLayer();
    // The change with the ids it names brought up to date; the ids re-added features were given noted.
    void resolveIds(HOFeatureChange& change) const;
    void noteIds(const std::vector<HOFeatureChange>& wanted, const std::vector<HOFeatureChange>& written);
    bool reopenSource(HOString* error);
    // IdentifyIn for a layer drawn from its source: reads the area through the source's index.
    std::vector<int> streamedIdsIn(const HORect& rect, const HOCoordinateSystem* rectSystem) const;
    friend class HOFeatureLayerLoader;
    class Private;
    std::unique_ptr<Private> d;
};

}  // namespace HXObjects
