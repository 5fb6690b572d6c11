#pragma once
// HOCMDPool: the process-wide pool of shared tools, one per class name ("HXObjects::HOToolPan").
// The built-in tools are registered on first use; hosts and tests may register their own.
#include "HORefPtr.h"
#include "HOString.h"
#include "HOTool.h"
#include "HXExport.h"

#include <map>
#include <mutex>

namespace HXObjects {

class HX_EXPORT HOCMDPool {
public:
    static HOCMDPool* GetInstance();

    // The shared tool of that class name, or null.
    HOTool* GetTool(HOString className);
    // Adds (or replaces) the tool under its class name; the pool keeps a reference.
    void RegisterTool(HOTool* tool);
    void UnregisterTool(const HOString& className);

private:
    HOCMDPool();

    std::mutex m_mutex;
    std::map<HOString, HORefPtr<HOTool>> m_tools;
};

}  // namespace HXObjects
