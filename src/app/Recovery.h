#pragma once
// The recovery file and the commands that use it: the question at start after an unclean exit,
// "&Save Workspace" and "&Ignore Changes && Restart".

#include <QString>

namespace pd {

class Workspace;

// The name of the restart helper beside the program.
inline constexpr const char* kReloaderName = "Reloader";

// If Perchdock.REC exists, offers to load it instead of Perchdock.ini; removes it either way.
void CheckRecoveryAtStart(Workspace& ws);
// Writes the clean workspace file and says so.
void mnuSave_Click(Workspace& ws);
// Asks, then starts the restart helper and ends without saving.
void mnuReload_Click(Workspace& ws);

} // namespace pd
