#include "HOGraphicsEngineManager.h"

namespace HXObjects {

HOGraphicsEngineManager::HOGraphicsEngineManager(const HOString& pluginDirectory)
    : m_pluginDirectory(pluginDirectory) {}

HOGraphicsEngineManager* HOGraphicsEngineManager::instance(const HOString& pluginDirectory) {
    // Never destroyed: surfaces may still be made from worker threads during shutdown.
    static HOGraphicsEngineManager* manager = new HOGraphicsEngineManager(pluginDirectory);
    return manager;
}

bool HOGraphicsEngineManager::SetCurrentEngine(const HOString& name) {
    if (name != "QT") return false;
    std::lock_guard<std::mutex> lock(m_mutex);
    m_engine = name;
    return true;
}

HOString HOGraphicsEngineManager::CurrentEngine() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_engine;
}

HOString HOGraphicsEngineManager::PluginDirectory() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_pluginDirectory;
}

HOGraphics* HOGraphicsEngineManager::NewGraphics() {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_engine.isEmpty() ? nullptr : new HOGraphics();
}

}  // namespace HXObjects
