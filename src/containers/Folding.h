#pragma once
// Folding a container to its title bar and unfolding it, upward when it would not fit below.

namespace pd {

class Workspace;

// Moves the head row to the bottom edge (flip true) or back to the top.
void SetTitleEdge(Workspace& ws, bool flip, int i);
// Mouse buttons as the handlers receive them.
inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;
inline constexpr int kMiddleButton = 4;

// Folds an open container to its title bar; unfolds a folded one (upward when it would not fit below).
void FoldContainer(Workspace& ws, int i);
void UnfoldContainer(Workspace& ws, int i);
// Gives the keyboard to what a container shows: a feed's headlines or a visible note.
void FocusContainerContent(Workspace& ws, int i);
// The presses on chkFold and chkUnfold: only the left button folds and unfolds.
void chkFold_MouseDown(Workspace& ws, int Button, int i);
void chkUnfold_MouseDown(Workspace& ws, int Button, int i);
// Their releases play the sounds.
void chkFold_MouseUp(Workspace& ws);
void chkUnfold_MouseUp(Workspace& ws);
// A double click on the title folds or unfolds and makes the container the open one.
void lblName_DblClick(Workspace& ws, int i);
// With "&Fold on Click", folds the open container when the user turns elsewhere.
void FoldOpenContainer(Workspace& ws, int i);
// "&Fold/Unfold All": each open container folds and each folded one opens; tiles stay.
void mnuFoldAll_Click(Workspace& ws);
// The key that steps through containers: opens the next one and folds the last.
void StepToNextContainer(Workspace& ws);

} // namespace pd
