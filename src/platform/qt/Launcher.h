#pragma once
// Starting a shortcut's target on the Linux desktop, with the small error numbers the shortcut code
// reports.

#include <QString>

namespace pd {

// Starts `file` with the command-line text `params` in the working folder `dir` (empty: inherit) and
// returns at once: 42 on success, else an error number (2 not found, 3 path not found, 5 access
// denied, 11 invalid executable, 31 no application for the type).
int LaunchTarget(const QString& file, const QString& params, const QString& dir);

} // namespace pd
