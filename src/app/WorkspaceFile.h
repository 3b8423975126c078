#pragma once
// The workspace file `Perchdock.ini` and its recovery twin `Perchdock.REC`: the global settings and the
// pictures, reminders and shortcuts that lie on the background.

#include <QString>
#include <QStringList>

namespace pd {

class Workspace;

inline constexpr const char* kWorkspaceFile = "Perchdock.ini";
inline constexpr const char* kRecoveryFile = "Perchdock.REC";
// The version marker this program writes.
inline constexpr const char* kFileVersion = "[1.05]";

// Writes the workspace: to the recovery file, or (ToRecovery false) to the clean file, removing the
// recovery file. ForExit stores the window's hidden state and its normal place. Does nothing while
// loading or when the no-save flag is set.
void SaveDesktop(Workspace& ws, bool ToRecovery, bool ForExit);

// Determines DataPath, offers a recovery, reads the workspace file (or applies the first-run settings)
// and the container files, and brings the window up. Never fails: what cannot be read is skipped.
void LoadSettings(Workspace& ws);

// The bytes SaveDesktop would write for the workspace file now (for tests and the benchmark).
QByteArray WorkspaceFileBytes(Workspace& ws, bool ForExit);

// The key loop over the lines of a workspace file, with its records; what it only collects goes to
// `st`. Part of LoadSettings; exposed for the fuzzer and the benchmark.
void ReadWorkspaceLines(Workspace& ws, const QStringList& lines, struct LoadState& st);

// Strips blanks and line ends from both ends of a text, as note texts are stored.
QString TrimAll(const QString& text);

} // namespace pd
