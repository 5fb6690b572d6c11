#include "HOMapViewManager.h"

#include <algorithm>

#include "HOMap.h"
#include "HOMapView.h"

namespace HXObjects {

HOMapViewManager* HOMapViewManager::GetInstance() {
    static HOMapViewManager instance;
    return &instance;
}

int HOMapViewManager::addGroup() {
    std::lock_guard<std::mutex> lock(m_mutex);
    const int id = m_nextGroup++;
    m_groups[id];
    m_currentGroup = id;
    return id;
}

void HOMapViewManager::setCurrentGroup(int group) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_currentGroup = group;
}

int HOMapViewManager::currentGroup() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_currentGroup;
}

HOMapView* HOMapViewManager::addView(const HOString& name) {
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_groups.find(m_currentGroup);
    if (it == m_groups.end()) return nullptr;
    HORefPtr<HOMapView> view(new HOMapView(name));
    // A new view shows an empty map, so a host can add layers to it at once.
    HORefPtr<HOMap> map(new HOMap());
    view->SetMap(map);
    it->second.views.push_back(view);
    if (!it->second.active) it->second.active = view.get();
    return view.get();
}

void HOMapViewManager::activate(HOMapView* view) {
    std::lock_guard<std::mutex> lock(m_mutex);
    for (auto& entry : m_groups) {
        auto& views = entry.second.views;
        if (std::find(views.begin(), views.end(), view) != views.end()) {
            entry.second.active = view;
            return;
        }
    }
}

HOMapView* HOMapViewManager::activeView(int group) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_groups.find(group);
    return it == m_groups.end() ? nullptr : it->second.active;
}

std::vector<HOMapView*> HOMapViewManager::views(int group) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<HOMapView*> out;
    const auto it = m_groups.find(group);
    if (it == m_groups.end()) return out;
    for (const auto& view : it->second.views) out.push_back(view.get());
    return out;
}

void HOMapViewManager::removeGroup(int group) {
    Group removed;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const auto it = m_groups.find(group);
        if (it == m_groups.end()) return;
        removed = std::move(it->second);
        m_groups.erase(it);
        if (m_currentGroup == group) m_currentGroup = 0;
    }
    // Outside the lock: stopping waits for the render threads, whose callbacks may call back here.
    for (const auto& view : removed.views) view->StopRender(true);
}

bool HOMapViewManager::hasGroup(int group) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_groups.count(group) != 0;
}

}  // namespace HXObjects
