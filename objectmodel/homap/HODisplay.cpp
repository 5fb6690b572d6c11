#include "HODisplay.h"

namespace HXObjects {

HODisplayTransform HODisplay::GetDisplayTransform() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_transform;
}

void HODisplay::SetDisplayTransform(const HODisplayTransform& transform) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_transform = transform;
}

HOSize HODisplay::GetDeviceSize() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_size;
}

void HODisplay::SetDeviceSize(const HOSize& size) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_size = size;
}

}  // namespace HXObjects
