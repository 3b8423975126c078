#pragma once
// Button images out of a button set, and the colours of a container's head and frame.

#include <QString>

#include <cstdint>

namespace pd {

class Workspace;

// Loads the toolbar and container button images of the set `SetName` under DataPath/Skin/Buttons/.
// A file that cannot be loaded leaves that button's old image.
void InitButtons(Workspace& ws, const QString& SetName);
// Colours the head of container i: the frame from the container's back colour, the buttons `Color`.
void SetColors(Workspace& ws, int i, int32_t Color);
// The colour of a container's frame: 40 lighter in each channel, white stays white.
int32_t Lighten(int32_t Color);

} // namespace pd
