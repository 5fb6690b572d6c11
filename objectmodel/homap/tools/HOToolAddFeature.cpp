#include "HOToolAddFeature.h"

#include <QCoreApplication>

#include "HOFeatureAddedEvent.h"
#include "edit/HOFeatureEditor.h"

namespace HXObjects {

void HOToolAddFeature::Activate() {
    HODigitizeTool::Activate();
    HOFeatureEditor::Editable(m_layer.get(), this);
}

void HOToolAddFeature::SetLayer(HOLayer* layer) {
    m_layer = layer;
}

bool HOToolAddFeature::IsArea() const {
    return m_layer && m_layer->GetLayerType() == HOLayer::PolygonLayer;
}

bool HOToolAddFeature::isPointLayer() const {
    return m_layer && m_layer->GetLayerType() == HOLayer::PointLayer;
}

void HOToolAddFeature::OnMouseDown(int button, int x, int y) {
    if (button == 1 && isPointLayer() && MapView())
        AddPoint(SnapToMap(x, y));
    else
        HODigitizeTool::OnMouseDown(button, x, y);
}

void HOToolAddFeature::AddPoint(const HOPoint& point) {
    if (!isPointLayer()) {
        HODigitizeTool::AddPoint(point);
        return;
    }
    HORefPtr<HOGeometry> geometry = new HOGeometry(HOGeometry::GeoPoint);
    geometry->AddPart({point});
    Create(TargetMap(), geometry);
}

void HOToolAddFeature::Create(HOMap* map, HORefPtr<HOGeometry> geometry) {
    HOFeatureLayer* layer = HOFeatureEditor::Editable(m_layer.get(), this);
    if (!layer || !HOFeatureEditor::ToLayer(map, layer, geometry.get())) return;
    // The host hears of the feature once it is written, with the id the source gave it.
    HORefPtr<HOToolAddFeature> self(this);
    HORefPtr<HOFeatureLayer> target(layer);
    HOFeatureEditor::Commit(map, layer, {{nullptr, new HOFeature(-1, geometry, {})}},
                            QCoreApplication::translate("HXObjects::HOToolAddFeature", "Add feature"), this,
                            [self, target](bool written, const std::vector<HOFeatureChange>& changes) {
                                if (!written) return;
                                HOFeatureAddedEvent event;
                                event.layer = target;
                                event.featureId = changes.front().after->GetID();
                                self->FeatureAddedSignal.fire(self.get(), &event);
                            });
}

}  // namespace HXObjects
