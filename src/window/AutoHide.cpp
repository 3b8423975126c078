#include "window/AutoHide.h"

#include "app/workspace/Workspace.h"

namespace pd {

void EnableDisableTimerHide(Workspace& ws, bool enable) {
    if (ws.ToolbarVisible) return;
    ws.TimerHide.setEnabled(enable);
}

} // namespace pd
