#pragma once
// The services around the workspace window: the key table of the window, translucency, the hot key's
// toggle, the settings that need a restart, and throwing away mouse input after long operations.

#include <QString>

namespace pd {

class Workspace;

// Key codes as the table uses them: letters and digits are their capitals' codes ('A' 65), F1 is 112
// to F12 123, Enter 13, Esc 27, Space 32, Delete 46. Shift is 1 Shift, 2 Ctrl, 4 Alt.
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeyEscape = 27;
inline constexpr int kKeySpace = 32;
inline constexpr int kKeyDelete = 46;
inline constexpr int kKeyF1 = 112;

// The window's key table: runs the command of a key and returns true, or false when the key has none
// (or its command has not been made yet). The floating toolbar forwards its keys here too.
bool Form_KeyDown(Workspace& ws, int KeyCode, int Shift);

// "&Transparent": flips the setting, applies it and saves. F9 runs it.
void mnuTranslucent_Click(Workspace& ws);
// The window's opacity from the setting: 210 of 255, or opaque.
void ApplyTranslucency(Workspace& ws);
// At the end of the load: the drop shadow and the translucency.
void ApplyWindowEffects(Workspace& ws);

// The hot key and a later start with --toggle: a window in front goes away, otherwise it comes
// forward (undocked and shown). Returns true when the window is to be brought forward.
bool ToggleWorkspace(Workspace& ws);

// Removes the mouse input that waits, so that clicks made during a long operation do nothing.
void FlushMouseEvents(Workspace& ws);

// F1: a box that lists the keys of the workspace, and its text.
void mnuTips_Click(Workspace& ws);
QString KeyTipsText();

// The commands of the settings above; before the generic check-mark toggles are wired.
void WireWindowServices(Workspace& ws);

} // namespace pd
