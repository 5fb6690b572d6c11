#include "HOCMDPool.h"

#include "tools/HOCmdCopyElement.h"
#include "tools/HOCmdDeleteElement.h"
#include "tools/HOCmdDigitizeLine.h"
#include "tools/HOCmdDigitizePolygon.h"
#include "tools/HOCmdPasteElement.h"
#include "tools/HOToolAddControlPoint.h"
#include "tools/HOToolAddFeature.h"
#include "tools/HOToolCopyElement.h"
#include "tools/HOToolCutElement.h"
#include "tools/HOToolDeleteElement.h"
#include "tools/HOToolDeleteFeature.h"
#include "tools/HOToolDoubleLine.h"
#include "tools/HOToolEditAttributes.h"
#include "tools/HOToolEditVertex.h"
#include "tools/HOToolIdentify.h"
#include "tools/HOToolMeasureArea.h"
#include "tools/HOToolMeasureDistance.h"
#include "tools/HOToolMergeFeature.h"
#include "tools/HOToolPan.h"
#include "tools/HOToolPasteElement.h"
#include "tools/HOToolSingleSelect.h"
#include "tools/HOToolZoomIn.h"
#include "tools/HOToolZoomOut.h"

namespace HXObjects {

HOCMDPool* HOCMDPool::GetInstance() {
    static HOCMDPool pool;
    return &pool;
}

HOCMDPool::HOCMDPool() {
    for (HOTool* tool : std::initializer_list<HOTool*>{new HOToolPan,
                                                       new HOToolZoomIn,
                                                       new HOToolZoomOut,
                                                       new HOToolSingleSelect,
                                                       new HOToolIdentify,
                                                       new HOCmdDigitizeLine,
                                                       new HOCmdDigitizePolygon,
                                                       new HOToolAddControlPoint,
                                                       new HOToolDeleteElement,
                                                       new HOCmdDeleteElement,
                                                       new HOToolCutElement,
                                                       new HOToolCopyElement,
                                                       new HOCmdCopyElement,
                                                       new HOToolPasteElement,
                                                       new HOCmdPasteElement,
                                                       new HOToolAddFeature,
                                                       new HOToolDeleteFeature,
                                                       new HOToolEditAttributes,
                                                       new HOToolMergeFeature,
                                                       new HOToolDoubleLine,
                                                       new HOToolMeasureDistance,
                                                       new HOToolMeasureArea,
                                                       new HOToolEditVertex})
        RegisterTool(tool);
}

HOTool* HOCMDPool::GetTool(HOString className) {
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_tools.find(className);
    return it == m_tools.end() ? nullptr : it->second.get();
}

void HOCMDPool::RegisterTool(HOTool* tool) {
    if (!tool) return;
    HORefPtr<HOTool> held(tool);
    const HOString name = tool->GetClassName();
    std::lock_guard<std::mutex> lock(m_mutex);
    m_tools[name] = held;
}

void HOCMDPool::UnregisterTool(const HOString& className) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_tools.erase(className);
}

}  // namespace HXObjects
