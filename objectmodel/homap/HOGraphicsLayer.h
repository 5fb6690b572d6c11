#pragma once
// HOGraphicsLayer: a map's own layer of graphic elements (in map coordinates), drawn above the data
// layers. Elements can be located under a point and selected.
#include "HOElement.h"
#include "HOLayer.h"

#include <mutex>
#include <set>
#include <vector>

namespace HXObjects {

class HODisplay;

class HOGraphicsLayer : public HOLayer {
public:
    HOGraphicsLayer();

    LayerType GetLayerType() const override { return GraphicsLayer; }
    HORefPtr<HOCoordinateSystem> GetSpatialReference() const override;
    HORect GetExtent() const override;
    void Render(const HORenderContext& context) override;

    // Adds an element with a new id (returned).
    int AddElement(HORefPtr<HOGeometry> geometry, HORefPtr<HOStyle> style);
    void RemoveElement(int id);
    std::vector<HORefPtr<HOElement>> GetElements() const;
    // Elements within `tolerance` map units of the point, topmost first.
    std::vector<HORefPtr<HOElement>> LocateElements(const HOPoint& point, double tolerance,
                                                    HODisplay* display = nullptr) const;
    bool IsElementSelected(int id) const;
    void SelectElement(int id, bool selected);
    void ClearSelection();
    std::vector<int> GetSelectedIds() const;

protected:
    ~HOGraphicsLayer() override = default;

private:
    mutable std::mutex m_mutex;
    std::vector<HORefPtr<HOElement>> m_elements;
    std::set<int> m_selected;
    int m_nextId = 1;
};

}  // namespace HXObjects
