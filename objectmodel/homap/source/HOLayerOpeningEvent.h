#pragma once
// HOLayerOpeningEvent: what an HOLayerOpening's signals carry — the share read so far and, at the
// end, whether the opening was cancelled. The sender is the opening.
#include "HOEvent.h"
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOLayerOpeningEvent : public HOEvent {
public:
    double progress = 0;  // 0..1
    bool cancelled = false;
};

}  // namespace HXObjects
