#include "shortcuts/LinkMouse.h"

#include "app/workspace/Workspace.h"
#include "shortcuts/Launch.h"
#include "shortcuts/LinkDrag.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"

namespace pd {

namespace {

constexpr int kLeft = 1;
constexpr int kCtrl = 2;
constexpr int kModifiers = 7;

bool DblClickStarts(Workspace& ws) { return ws.menus["mnuDblClick"].Checked(); }

} // namespace

void Link_MouseDown(Workspace& ws, int Button, int Shift, int n, float X, float Y) {
    if (!ws.Link.exists(n)) return;
    Element& link = ws.Link(n);
    // Every press: the pressed shortcut, where the pointer and the label were (the drag measures from
    // there, and MouseDownLink tells the release whether a drag came between).
    ws.MouseDownLink = static_cast<int16_t>(n);
    ws.SelectedLink = static_cast<int16_t>(n);
    ws.MouseDownX = X;
    ws.MouseDownY = Y;
    ws.DownLeft = link.Left;
    ws.DownTop = link.Top;
    ws.ContextIsContainer = false;
    Element* owner = link.Container();
    if (owner && owner->family() == &ws.grpBorder) ws.SelectedContainer = static_cast<int16_t>(owner->Index());
    HideJumpTo(ws);

    if (Button != kLeft) return;
    const int mods = Shift & kModifiers;
    const bool dblClick = DblClickStarts(ws);
    if (!dblClick && mods == 0) {
        // A plain press on a shortcut outside the selection drops the selection; the release starts it.
        if (!IsLinkSelected(ws, n) && !ws.SelectedLinks.empty()) UnselectAllLinks(ws, false);
    } else if (dblClick || (mods & kCtrl)) {
        // A single click selects when a double click starts, and Ctrl always selects.
        const bool select = !IsLinkSelected(ws, n);
        SetLinkSelected(ws, n, select);
        if (select && owner && (!dblClick || (mods & kCtrl))) ShowLinkToolbar(ws, *owner);
    }
}

void Link_MouseMove(Workspace& ws, int Button, int Shift, int n, float X, float Y) {
    if (!ws.Link.exists(n)) return;
    if ((Button & kLeft) == 0) {
        Link_Hover(ws, Shift, n);
    } else if (X != ws.MouseDownX || Y != ws.MouseDownY) {
        // The first move that changes the position makes the press a drag (MouseDownLink = -1 there).
        LinkDragMove(ws, Shift, n, X, Y);
    }
}

void Link_MouseUp(Workspace& ws, int Button, int Shift, int n, float /*X*/, float /*Y*/) {
    if (Button != kLeft || !ws.Link.exists(n)) return;
    // A drag took place: finish it. With Ctrl held the drag's end runs in the mode that settles the
    // whole selection moved along with the label.
    if (ws.MouseDownLink != n) EndLinkDrag(ws, Shift, n);
    const int mods = Shift & kModifiers;
    // A single click starts unless a double click is wanted; after a drag LaunchLink refuses at once.
    // A Ctrl release never starts: it selected (at the press) or moved the selection (drag).
    if (!DblClickStarts(ws) && mods == 0) LaunchLink(ws, n);
}

void Link_DblClick(Workspace& ws, int n) {
    if (!ws.Link.exists(n)) return;
    if (DblClickStarts(ws)) LaunchLink(ws, n);
}

void LaunchSelectedLink(Workspace& ws) {
    HideJumpTo(ws);
    const int n = ws.SelectedLink;
    if (!ws.Link.exists(n) || !IsLinkSelected(ws, n) || !ws.Link(n).Visible) return;
    LaunchLink(ws, n);
}

} // namespace pd
