#pragma once
// HOToolAddFeature ("HXObjects::HOToolAddFeature"): digitises a new feature of the layer it is given
// (the host's current layer, SetLayer) in that layer's geometry type — a click writes a point; lines
// and areas are drawn vertex by vertex as with the digitising tools, several parts through
// "new path" — and writes it as one undoable edit. FeatureAddedSignal then tells the host (sender:
// the tool, event: HOFeatureAddedEvent). A layer that cannot be edited is refused with its reason.
#include "HODigitizeTool.h"
#include "HOEventSignal.h"
#include "HOFeatureLayer.h"
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOToolAddFeature : public HODigitizeTool {
public:
    HOString GetClassName() override { return "HXObjects::HOToolAddFeature"; }
    void Activate() override;
    void OnMouseDown(int button, int x, int y) override;
    using HODigitizeTool::AddPoint;
    void AddPoint(const HOPoint& point) override;

    // The layer new features go to (held until replaced); null for none.
    void SetLayer(HOLayer* layer);
    HOLayer* GetLayer() const { return m_layer.get(); }

    HOEventSignal FeatureAddedSignal;

protected:
    bool IsArea() const override;
    int NewPathOption(HOToolBuddy* buddy) const override { return buddy->getNewPathOption_AddFeature(); }
    void SetNewPathOption(HOToolBuddy* buddy, int option) const override {
        buddy->setNewPathOption_AddFeature(option);
    }
    void Create(HOMap* map, HORefPtr<HOGeometry> shape) override;

private:
    bool isPointLayer() const;

    HORefPtr<HOLayer> m_layer;
};

}  // namespace HXObjects
