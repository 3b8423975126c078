#pragma once
// The life of a container: its creation with all its elements, renaming, selection, deletion, and
// clearing the whole workspace.

#include <cstdint>

namespace pd {

class Workspace;
class Element;

// Adds a container at index ContainerCount, in `ParentIndex` (-1 for the background), at the drop
// position, 3000 by 3000 twips.
void NewGroup(Workspace& ws, int16_t ParentIndex);
// Stores the container's place and (unless flipped) its open size in its record.
void NoteContainerGeometry(Workspace& ws, int i);
// Stores a length of an element in a record field: rounded to the whole twip, halves to even, as a
// single assigned to a 32-bit integer is; a length that no 32-bit number holds leaves the field alone.
void SetRecordLength(int32_t& field, float length);

// "&Container": a new empty container, ready to be named.
void mnuNew_Click(Workspace& ws);
// "&Note": a new container that is a note.
void mnuNewNote_Click(Workspace& ws);
// Deletes the selected containers (and the right-clicked one).
void mnuDeleteContainer_Click(Workspace& ws);
// "Clear Workspace": removes everything after asking.
void mnuClearWorkSpace_Click(Workspace& ws);

// Renaming through the title's edit field.
void StartRename(Workspace& ws, int i);
void RenameTextChanged(Workspace& ws, int i);
// Enter (lostFocus false) or the focus loss: the field hides and the workspace is saved.
void RenameFinished(Workspace& ws, int i, bool lostFocus);

// Selection of containers: a container is selected while its title is bold.
void SelectGroup(Workspace& ws, int i);
void UnselectGroup(Workspace& ws, int i);
void UnselectAllGroups(Workspace& ws);

// The facts kept in the elements.
// Whether container i is shown: its Group and the Groups it is nested in are visible.
bool IsContainerLive(const Workspace& ws, int i);
bool IsShrunkSize(const Workspace& ws, int i); // at the tile size, 700 by 950
bool IsFolded(const Workspace& ws, int i);
bool TitleAtTop(const Workspace& ws, int i);
// The index of the container an element sits in (its Group or grpBorder), or -1 for the background.
int ContainerOf(const Element& e);

} // namespace pd
