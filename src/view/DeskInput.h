#pragma once
// The mouse, keys and focus of the desk objects' elements: a picture's image and locked face (which is
// also a reminder's icon, painted with its date and time), a note's text box, the padlock and the two
// lock buttons of the title band.

namespace pd {

struct InputContext;
class ElementWidget;
class Workspace;

// Wires `w` when it shows a desk object's element; false for any other element.
bool WireDeskInput(InputContext& ctx, ElementWidget& w);
// The view's side of the notes: Ctrl+A selects the whole text of a note's editor.
void InstallDeskView(Workspace& ws);

} // namespace pd
