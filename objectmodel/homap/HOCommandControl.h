#pragma once
// HOCommandControl: the host's command-line control, which tools and the canvas write to.
#include "HOString.h"
#include "HXExport.h"

namespace HXObjects {

class HOTool;

class HX_EXPORT HOCommandControl {
public:
    virtual ~HOCommandControl() = default;
    virtual void SetEditInfo(HOString text) = 0;
    virtual void AddNotice(HOString text) = 0;
    virtual void ShowView(HOString text, HOTool* tool, bool show) = 0;
    virtual void SetViewFocus(bool focus) = 0;
    virtual HOTool* GetCurrentTool() = 0;
};

}  // namespace HXObjects
