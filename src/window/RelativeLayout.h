#pragma once
// The inside of a container follows its size.

namespace pd {

class Workspace;

// Lays out the inner elements of container i from the size of its Group.
void SetObjectRelativeSize(Workspace& ws, int i);
// Gives container i its rounded outlines (12 pixels).
void RoundContainerCorners(Workspace& ws, int i);

} // namespace pd
