#pragma once
// HOGraphicsLayer: a map's own layer of graphic elements (in map coordinates), drawn above the data
// layers. Elements can be located under a point and selected. Editors change the elements in a batch
// and then call NotifyElementsChanged(), which fires ElementsChangedSignal once for the batch.
#include "HODisplayTransform.h"
#include "HOElement.h"
#include "HOEventSignal.h"
#include "HOLayer.h"
#include "HXExport.h"

#include <mutex>
#include <set>
#include <vector>

class QPainter;

namespace HXObjects {

class HODisplay;

class HX_EXPORT HOGraphicsLayer : public HOLayer {
public:
    HOGraphicsLayer();

    LayerType GetLayerType() const override { return GraphicsLayer; }
    HORefPtr<HOCoordinateSystem> GetSpatialReference() const override;
    HORect GetExtent() const override;
    void Render(const HORenderContext& context) override;

    // Adds an element with a new id (returned).
    int AddElement(HORefPtr<HOGeometry> geometry, HORefPtr<HOStyle> style);
    // A new element with an id of this layer, not yet in it.
    HORefPtr<HOElement> NewElement(HORefPtr<HOGeometry> geometry, HORefPtr<HOStyle> style,
                                   const HOString& label = HOString());
    // Puts the element at `index` in drawing order (clamped; -1 appends).
    void InsertElement(HORefPtr<HOElement> element, int index = -1);
    // Puts the element in the place of the one with its id; no-op when there is none.
    void ReplaceElement(HORefPtr<HOElement> element);
    void RemoveElement(int id);
    // The element's place in drawing order, -1 when it is not in the layer.
    int IndexOf(int id) const;
    HORefPtr<HOElement> GetElement(int id) const;
    std::vector<HORefPtr<HOElement>> GetElements() const;
    // Elements within `tolerance` map units of the point, topmost first.
    std::vector<HORefPtr<HOElement>> LocateElements(const HOPoint& point, double tolerance,
                                                    HODisplay* display = nullptr) const;
    bool IsElementSelected(int id) const;
    void SelectElement(int id, bool selected);
    void ClearSelection();
    std::vector<int> GetSelectedIds() const;
    void SetSelectedIds(const std::vector<int>& ids);
    // The selected elements in drawing order.
    std::vector<HORefPtr<HOElement>> GetSelectedElements() const;

    // The style a new element of that geometry type is drawn with.
    static HORefPtr<HOStyle> DefaultStyle(HOGeometry::GeoType type);

    void NotifyElementsChanged();
    HOEventSignal ElementsChangedSignal;

protected:
    ~HOGraphicsLayer() override = default;

private:
    static void drawLabel(QPainter& painter, const HODisplayTransform& transform, const HOElement& element);

    mutable std::mutex m_mutex;
    std::vector<HORefPtr<HOElement>> m_elements;
    std::set<int> m_selected;
    int m_nextId = 1;
};

}  // namespace HXObjects
