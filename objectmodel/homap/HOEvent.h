#pragma once
// HOEvent: the event object handed to event-signal callbacks. Signals that carry data fire a
// subclass; callbacks that need it downcast.
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOEvent {
public:
    HOEvent() = default;
    virtual ~HOEvent() = default;
};

}  // namespace HXObjects
