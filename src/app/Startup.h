#pragma once
// The start of the process: the tests that may end it, the data directory, the version text, the
// splash window and the update check.

#include <QString>

namespace pd {

class Workspace;
class Platform;

inline constexpr int kVersionMajor = 1;
inline constexpr int kVersionMinor = 0;
inline constexpr int kVersionRevision = 1;
inline constexpr const char* kProgramTitle = "Perchdock";
// Where the update check sends the user's browser; the version numbers are appended.
inline constexpr const char* kUpdateAddress = "https://perchdock.app/update";

// "v", major, ".", minor, ".0", revision, "b".
QString VersionText();

// The program may not run from the file-system root (the counterpart of a drive root): says so and
// returns false. There is no test of the system's version on Linux: every supported desktop will do.
bool RootTest(Platform& platform, const QString& programDirectory);

// UsesProgramDirectory from the marker file LOCATIONROOT, and DataPath from it: the program directory,
// or $XDG_DATA_HOME/Perchdock (~/.local/share/Perchdock); empty when neither can be known.
void DetermineDataPath(Workspace& ws);

// Shows the splash window, translucent and disabled, with the version text.
void ShowSplash(Workspace& ws);
void UnloadSplash(Workspace& ws);

// Opens the update page in the user's browser with the version numbers.
void CheckForUpdate(Workspace& ws);

} // namespace pd
