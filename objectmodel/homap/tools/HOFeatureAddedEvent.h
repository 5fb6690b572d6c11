#pragma once
// HOFeatureAddedEvent: a feature the add-feature tool has just written — its layer and id — so that
// the host can ask for its attributes.
#include "HOEvent.h"
#include "HOFeatureLayer.h"
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOFeatureAddedEvent : public HOEvent {
public:
    HORefPtr<HOFeatureLayer> layer;
    int featureId = -1;
};

}  // namespace HXObjects
