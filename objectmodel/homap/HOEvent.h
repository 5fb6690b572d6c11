#pragma once
// HOEvent: the event object handed to event-signal callbacks. Signals that carry data fire a
// subclass; callbacks that need it downcast.
namespace HXObjects {

class HOEvent {
public:
    HOEvent() = default;
    virtual ~HOEvent() = default;
};

}  // namespace HXObjects
