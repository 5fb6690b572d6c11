#pragma once
// HOGraphicsEngineManager: the process-wide registry of drawing engines. The built-in engine is "QT"
// (QImage surfaces). The plug-in directory names where further engines would be looked up; the
// first call fixes it. Thread-safe.
#include "HOGraphics.h"
#include "HOString.h"
#include "HXExport.h"

#include <mutex>

namespace HXObjects {

class HX_EXPORT HOGraphicsEngineManager {
public:
    static HOGraphicsEngineManager* instance(const HOString& pluginDirectory);

    // Selects the engine new surfaces come from; false (and no change) for an unknown name.
    bool SetCurrentEngine(const HOString& name);
    HOString CurrentEngine() const;
    HOString PluginDirectory() const;

    // A new surface with no reference taken yet, or null when no engine is selected.
    HOGraphics* NewGraphics();

private:
    explicit HOGraphicsEngineManager(const HOString& pluginDirectory);

    mutable std::mutex m_mutex;
    HOString m_pluginDirectory;
    HOString m_engine = "QT";
};

}  // namespace HXObjects
