#pragma once
// The auto-hide heartbeat's switch, used around every modal dialog and long operation.

namespace pd {

class Workspace;

// Stops (false) or restarts (true) TimerHide, so that the window cannot dock under an open dialog.
// While the floating toolbar shows, the timer is left alone.
void EnableDisableTimerHide(Workspace& ws, bool enable);

} // namespace pd
