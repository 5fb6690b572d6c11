#pragma once
// HODisplay: a view's screen display — its device size and the transform between its pixels and
// map units. Owned by its view; thread-safe (the render thread reads what the GUI thread sets).
#include "HODisplayTransform.h"
#include "HOSize.h"
#include "HXExport.h"

#include <mutex>

namespace HXObjects {

class HX_EXPORT HODisplay {
public:
    HODisplayTransform GetDisplayTransform() const;
    void SetDisplayTransform(const HODisplayTransform& transform);
    HOSize GetDeviceSize() const;
    void SetDeviceSize(const HOSize& size);

private:
    mutable std::mutex m_mutex;
    HODisplayTransform m_transform;
    HOSize m_size;
};

}  // namespace HXObjects
