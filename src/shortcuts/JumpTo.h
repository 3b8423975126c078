#pragma once
// Type-to-find: a letter or digit typed on the workspace opens a small panel whose search field finds
// a visible shortcut by its label, selects it, and starts it on Enter.

#include <QString>

namespace pd {

class Workspace;

// Whether a key opens the panel: a letter or a digit, with a modifier mask other than Shift, Ctrl, Alt
// and Ctrl+Alt, while the panel is hidden.
bool OpensJumpTo(Workspace& ws, int KeyCode, int Shift);
// Opens the panel with the search field holding FirstText in lower case, centred on the background.
void OpenJumpTo(Workspace& ws, const QString& FirstText);
// Finds the shortcut for Term: the lowest index whose label starts with it, else the lowest whose label
// contains it; selects it and shows its label and icon in the panel.
void JumpToLink(Workspace& ws, const QString& Term);
// Adds to the list the visible labels that begin with the search text's first letter, then those that
// contain the text, each once.
void FillSearchList(Workspace& ws);
// Whether shortcut n's label is not yet in the list from position 1 on (position 0 is not compared).
bool IsNewSearchItem(Workspace& ws, int n);

// The search field's events: the text changed (typed), a key released, an entry chosen from the
// list, the list opening, a key pressed in it (Down arrow 40 steps through the list).
void cboSearch_Change(Workspace& ws, const QString& Text);
void cboSearch_KeyUp(Workspace& ws);
void cboSearch_Click(Workspace& ws, int Index);
void cboSearch_DropDown(Workspace& ws);
void cboSearch_KeyDown(Workspace& ws, int KeyCode);
// Esc on the open panel: the first clears the search field, the second closes the panel.
void JumpToEscape(Workspace& ws);
// The panel's "Launch" label and its close mark.
void lblGo_Click(Workspace& ws);
void lblClosePicJumpTo_Click(Workspace& ws);

// The panel's size in twips.
inline constexpr float kJumpToWidth = 4500;
inline constexpr float kJumpToHeight = 1650;
inline constexpr float kJumpToTopHeight = 300;

} // namespace pd
