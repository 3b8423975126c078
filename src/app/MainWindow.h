#pragma once
// The main window's life: its load, its resize rules, and its unload, the one way out of the program.

namespace pd {

class Workspace;

// Sets up the window's elements and defaults before LoadSettings reads the files.
void MainWindowLoad(Workspace& ws);
// After the window was resized by the user or the window manager.
void MainWindowResize(Workspace& ws);
// Saves the clean workspace (unless the no-save flag is set) and ends the program. Runs once.
void UnloadMainWindow(Workspace& ws);
// Connects the core's menu entries to their commands.
void WireCoreCommands(Workspace& ws);

} // namespace pd
