#pragma once
// The alignment grid drawn over a container or the background while a container is dragged.

namespace pd {

class Workspace;
class Element;

// Lines every stepX and stepY twips over `target`, in its text colour, and the two indicators.
void ShowGrid(Workspace& ws, float stepX, float stepY, Element& target);
// Hides the grid and the indicators and takes the extra lines away.
void HideGrid(Workspace& ws);

} // namespace pd
