#pragma once
// The colours of single containers: the Container Colors dialog (frmConColors) and the routine that
// gives a container its back and fore colour with everything that follows from them.

#include <cstdint>

namespace pd {

class Workspace;

// Container i takes Back and Fore: its box, title and shortcuts without a colour of their own, the
// head buttons and frame (SetColors), a feed's headline surround and date line, and its tile's icon.
// `redrawIcon` draws the tile even when the container has no icon file of its own.
void ApplyContainerColors(Workspace& ws, int i, int32_t Back, int32_t Fore, bool redrawIcon = false);

// "Container Colors" for SelectedContainer: the boxes show its colours.
void mnuContainerColors_Click(Workspace& ws);
// A click on the back or fore box: the desktop's colour chooser.
void picBack_Click(Workspace& ws);
void picFore_Click(Workspace& ws);
// "&Switch": the two boxes change places.
void CmdSwitch_Click(Workspace& ws);
// "&Reset": after asking, the colours of new containers, applied at once.
void Command1_Click(Workspace& ws);
// OK: closes, and colours the container, or every selected one after asking.
void ConColors_OKButton_Click(Workspace& ws);
void ConColors_CancelButton_Click(Workspace& ws);

} // namespace pd
