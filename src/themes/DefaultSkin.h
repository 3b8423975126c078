#pragma once
// The themes, colour schemes, button sets and wallpapers that ship with the program.

namespace pd {

class Workspace;

// Copies the program's Skin folder into DataPath when the data folder has none yet (the first run),
// so that the default button set and wallpaper are there to load and the user's copies can change.
// Nothing is copied when the data lives in the program directory, and nothing is ever overwritten.
void InstallDefaultSkin(Workspace& ws);

} // namespace pd
