#pragma once
// Fonts that the stored files name but a Linux desktop may lack: "Verdana", the default of shortcuts
// and titles, is drawn in a similar sans-serif face when it is not installed, while the files keep the
// name.

#include <QString>

namespace pd {

// Registers the substitutes with Qt's font matching; call once after the application object exists.
void InstallFontFallbacks();
// The family Qt draws for `family` (for tests and the log).
QString ResolvedFamily(const QString& family);

} // namespace pd
