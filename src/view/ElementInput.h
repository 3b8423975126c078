#pragma once
// Turns mouse and editor events on element widgets into calls of the workspace's handlers.

namespace pd {

class Workspace;
class ElementWidget;
class MenuView;
class TopWindow;
class GhostFrame;

struct InputContext {
    Workspace& ws;
    TopWindow& main;
    MenuView& menus;
    // The outline of an element carried to another owner; null for none.
    GhostFrame* carried = nullptr;
};

// Connects the widget's events according to its element's family.
void WireElementInput(InputContext& ctx, ElementWidget& w);

} // namespace pd
