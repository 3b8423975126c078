#pragma once
// Notes: a container whose text box shows.

namespace pd {

class Workspace;

// Turns container i into a note (unfolding it first when folded).
void ShowNote(Workspace& ws, int i);
// Puts the note away: the text stays, the box hides.
void HideNote(Workspace& ws, int i);

// The note's text box got or lost the keyboard focus; leaving a note saves the workspace.
void txtNote_GotFocus(Workspace& ws, int i);
void txtNote_LostFocus(Workspace& ws, int i);
// A press in the text brings the container to the front; a move over it is a hover over the container.
void txtNote_MouseDown(Workspace& ws, int i);
void txtNote_MouseMove(Workspace& ws, int i);
// Ctrl+A while a note has the focus: the note's whole text.
void NoteSelectAll(Workspace& ws);
// Whether a note's text box has the keyboard focus.
bool NoteHasFocus(Workspace& ws);

} // namespace pd
