#pragma once
// HOIdentifyEvent: what the identify tool found under a click — the layer, the feature and its
// attributes as text. A click on nothing fires it with feature id -1, no layer and no attributes.
#include <vector>

#include "HOEvent.h"
#include "HOFeature.h"
#include "HOPoint.h"
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOIdentifyEvent : public HOEvent {
public:
    HOPoint point;  // the clicked map point
    HOString layerName;
    int featureId = -1;
    std::vector<HOFeature::Attribute> attributes;
};

}  // namespace HXObjects
