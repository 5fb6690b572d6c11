#pragma once
// HOUserFeatureRender: per-feature styles that override a layer's own style, keyed by feature id.
// Read by the render thread while the GUI thread changes it, hence the lock.
#include <map>
#include <mutex>
#include <vector>

#include "HORefBase.h"
#include "HORefPtr.h"
#include "HOStyle.h"
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOUserFeatureRender : public HORefBase {
public:
    // Ids in ascending order.
    void GetCustomIds(std::vector<int>& ids) const;
    HORefPtr<HOStyle> GetFeatureStyle(const int& id) const;
    void SetFeatureStyle(const int& id, HORefPtr<HOStyle> style);
    void RemoveFeatureStyle(const int& id);
    bool IsEmpty() const;
    // A copy of every override, for a renderer to read without holding the lock.
    std::map<int, HORefPtr<HOStyle>> GetAllStyles() const;

private:
    mutable std::mutex m_mutex;
    std::map<int, HORefPtr<HOStyle>> m_styles;
};

}  // namespace HXObjects
