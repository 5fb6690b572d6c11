#pragma once
// HOMapViewManager: the process-wide registry of map views, in groups (one group per canvas or
// document). The manager holds a reference on every view it created until its group is removed.
#include "HORefPtr.h"
#include "HOString.h"
#include "HXExport.h"

#include <map>
#include <mutex>
#include <vector>

namespace HXObjects {

class HOMapView;

class HX_EXPORT HOMapViewManager {
public:
    static HOMapViewManager* GetInstance();

    int addGroup();
    void setCurrentGroup(int group);
    int currentGroup() const;
    // A new view in the current group (null when there is no such group).
    HOMapView* addView(const HOString& name);
    // Makes the view the active one of its group.
    void activate(HOMapView* view);
    HOMapView* activeView(int group) const;
    std::vector<HOMapView*> views(int group) const;
    // Stops and drops every view of the group.
    void removeGroup(int group);
    bool hasGroup(int group) const;

private:
    struct Group {
        std::vector<HORefPtr<HOMapView>> views;
        HOMapView* active = nullptr;
    };
    HOMapViewManager() = default;

    mutable std::mutex m_mutex;
    std::map<int, Group> m_groups;
    int m_nextGroup = 1;
    int m_currentGroup = 0;
};

}  // namespace HXObjects
