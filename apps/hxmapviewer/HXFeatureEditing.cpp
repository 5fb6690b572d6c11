#include "HXFeatureEditing.h"

#include <QPointer>
#include <QTimer>

#include "HOCMDPool.h"
#include "HOCallbackKey.h"
#include "HOFeatureAddedEvent.h"
#include "HOFeatureEditor.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HOToolAddFeature.h"
#include "HXAttributeForm.h"
#include "HXMapCanvas.h"

using namespace HXObjects;

HXFeatureEditing::HXFeatureEditing(HXMapCanvas* canvas)
    : QObject(canvas),
      mCanvas(canvas),
      mAddTool(
          dynamic_cast<HOToolAddFeature*>(HOCMDPool::GetInstance()->GetTool("HXObjects::HOToolAddFeature"))) {
    connect(canvas, &HXMapCanvas::EditFeature, this, &HXFeatureEditing::onEditFeature);
    if (mAddTool) HOBindMember(mAddTool->FeatureAddedSignal, this, &HXFeatureEditing::onFeatureAdded);
}

HXFeatureEditing::~HXFeatureEditing() {
    if (mAddTool) HOUnbindMember(mAddTool->FeatureAddedSignal, this, &HXFeatureEditing::onFeatureAdded);
}

HOFeatureLayer* HXFeatureEditing::selectedLayer() const {
    HOMap* map = mCanvas->GetMapView() ? mCanvas->GetMapView()->GetMap() : nullptr;
    if (!map) return nullptr;
    for (const HORefPtr<HOLayer>& layer : map->GetLayers())
        if (auto* features = dynamic_cast<HOFeatureLayer*>(layer.get());
            features && features->HasSelectedFeatures())
            return features;
    return nullptr;
}

void HXFeatureEditing::onEditFeature(HOTool* tool, bool, int) {
    HOFeatureLayer* layer = selectedLayer();
    if (!layer || !HOFeatureEditor::Editable(layer, tool)) return;
    // After the mouse release that asked for it has been handled.
    QPointer<HXMapCanvas> canvas(mCanvas);
    HORefPtr<HOFeatureLayer> held(layer);
    QTimer::singleShot(0, this, [this, canvas, held, tool] {
        if (!canvas || !canvas->GetMapView()) return;
        HXAttributeForm form(canvas->GetMapView()->GetMap(), held.get(), held->GetSelectedIds(), false, tool,
                             canvas);
        form.exec();
    });
}

// The tool fires on the GUI thread, once its edit is written.
void HXFeatureEditing::onFeatureAdded(void* sender, HOEvent* event) {
    auto* added = dynamic_cast<HOFeatureAddedEvent*>(event);
    if (!added || sender != mAddTool || mCanvas->getMapTool() != mAddTool || !mCanvas->GetMapView()) return;
    QPointer<HXMapCanvas> canvas(mCanvas);
    HORefPtr<HOFeatureLayer> layer = added->layer;
    const int id = added->featureId;
    QTimer::singleShot(0, this, [this, canvas, layer, id] {
        if (!canvas || !canvas->GetMapView()) return;
        HXAttributeForm form(canvas->GetMapView()->GetMap(), layer.get(), {id}, true, mAddTool, canvas);
        form.exec();
    });
}
