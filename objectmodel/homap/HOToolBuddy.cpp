#include "HOToolBuddy.h"

#include "HOCMDPool.h"

namespace HXObjects {

HOTool* HOToolBuddy::GetToolByName(const HOString& name) {
    return HOCMDPool::GetInstance()->GetTool(name);
}

}  // namespace HXObjects
