#pragma once
// Notes: a container whose text box shows.

namespace pd {

class Workspace;

// Turns container i into a note (unfolding it first when folded).
void ShowNote(Workspace& ws, int i);
// Puts the note away: the text stays, the box hides.
void HideNote(Workspace& ws, int i);

} // namespace pd
