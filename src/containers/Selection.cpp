#include "containers/Selection.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Moving.h"
#include "containers/TitleMouse.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkSelection.h"
#include "window/FloatingToolbar.h"

#include <cmath>

namespace pd {

namespace {

constexpr int kUndoDepth = 10;
// Horizontally a shortcut is taken when this much of its label's start lies in the rectangle.
constexpr float kLabelStart = 20;

int16_t ToWord(float v) {
    const double r = std::nearbyint(static_cast<double>(v));
    if (!(r >= -32768 && r <= 32767)) return 0;
    return static_cast<int16_t>(r);
}

int32_t ToLong(float v) {
    int32_t out = 0;
    SetRecordLength(out, v);
    return out;
}

// Stretches the outline between the press point and the pointer; the first move shows it.
void RectMove(Workspace& ws, Element& outline, Element& owner, int Button, int Shift, float X, float Y) {
    if (Button != kLeftButton || ws.FrameLinkGroup(0).Visible) return;
    if ((Shift & (kShiftMask | kCtrlMask)) == 0) UnselectAllLinks(ws, false);
    if (!outline.Visible) {
        outline.ForeColor = owner.ForeColor.get();
        outline.Visible = true;
        DrawOwnerLabels(ws, outline);
        outline.Move(X, Y, 1, 1);
        return;
    }
    const float px = ws.RectPressX, py = ws.RectPressY;
    if (Y < py) {
        outline.Top = Y;
        outline.Height = py - Y;
    } else {
        outline.Height = Y - outline.Top;
    }
    if (X < px) {
        outline.Left = X;
        outline.Width = px - X;
    } else {
        outline.Width = X - outline.Left;
    }
}

// The release of a rectangle: the shortcuts of the owner and the containers wholly inside are taken.
// `offsetX`, `offsetY` carry a container's place in its parent into the owner's twips.
void RectEnd(Workspace& ws, Element& outline, Element& owner, int Shift) {
    outline.Visible = false;
    const bool ctrl = (Shift & kCtrlMask) != 0;
    const float rl = outline.Left, rt = outline.Top, rw = outline.Width, rh = outline.Height;
    bool any = false;
    for (int n = 0; n < ws.Link.Count(); ++n) {
        if (!IsLinkLive(ws, n)) continue;
        const Element& label = ws.Link(n);
        if (!label.Visible || label.Container() != &owner) continue;
        const bool taken = label.Left >= rl && label.Left + kLabelStart < rl + rw && label.Top >= rt &&
                           label.Top + label.Height <= rt + rh;
        if (!taken) continue;
        any = true;
        if (ctrl) SetLinkSelected(ws, n, !IsLinkSelected(ws, n));
        else SetLinkSelected(ws, n, true);
    }
    if (any) ShowLinkToolbar(ws, owner);
    // Containers of the owner: on the background those in picBack; in a container those nested in it,
    // whose place counts from its Group rather than its grpBorder.
    const int ownerIndex = ContainerOf(owner);
    const Element* holder = ownerIndex >= 0 ? &ws.Group(ownerIndex) : &owner;
    const float dx = ownerIndex >= 0 ? owner.Left.get() : 0.0f, dy = ownerIndex >= 0 ? owner.Top.get() : 0.0f;
    for (int k = 0; k < ws.Group.Count(); ++k) {
        if (!ws.Group.exists(k) || !ws.Group(k).Visible) continue;
        const Element& g = ws.Group(k);
        if (g.Container() != holder && g.Container() != &owner) continue;
        const float gl = g.Container() == holder && ownerIndex >= 0 ? g.Left - dx : g.Left.get();
        const float gt = g.Container() == holder && ownerIndex >= 0 ? g.Top - dy : g.Top.get();
        const bool inside = gl >= rl && gt >= rt && gl + g.Width <= rl + rw && gt + g.Height <= rt + rh;
        if (!inside) continue;
        if (ctrl && ws.lblName(k).FontBold) UnselectGroup(ws, k);
        else SelectGroup(ws, k);
    }
}

} // namespace

void MoveSelectedContainers(Workspace& ws, int i, float X, float Y, bool Finish, bool snap) {
    for (int k = 0; k < ws.Group.Count(); ++k) {
        if (!IsContainerLive(ws, k) || !ws.lblName(k).FontBold) continue;
        if (Finish) {
            PlaceDroppedContainer(ws, k, snap);
        } else if (k != i) {
            Element& g = ws.Group(k);
            g.Move(g.Left - (ws.PressX - X), g.Top - (ws.PressY - Y));
        }
    }
}

void PushUndoMove(Workspace& ws, int Index, float Left, float Top) {
    if (ws.UndoCount >= kUndoDepth) {
        for (int k = 1; k <= kUndoDepth; ++k) ws.UndoMoves[static_cast<size_t>(k - 1)] = ws.UndoMoves[static_cast<size_t>(k)];
        --ws.UndoCount;
    }
    Workspace::UndoMoveEntry& e = ws.UndoMoves[static_cast<size_t>(ws.UndoCount)];
    e.Left = ToLong(Left);
    e.Top = ToLong(Top);
    e.Index = static_cast<int16_t>(Index);
    ++ws.UndoCount;
}

void UndoMove(Workspace& ws) {
    if (ws.UndoCount < 1) return;
    --ws.UndoCount;
    const Workspace::UndoMoveEntry e = ws.UndoMoves[static_cast<size_t>(ws.UndoCount)];
    if (!ws.Group.exists(e.Index) || !ws.Group(e.Index).Visible) return;
    ws.Group(e.Index).Move(static_cast<float>(e.Left), static_cast<float>(e.Top));
    SaveDesktop(ws, true, false);
}

void DrawOwnerLabels(Workspace& ws, Element& outline) {
    Q_UNUSED(ws);
    // The outline is a frame with nothing behind it: in front of the labels it shows over them and
    // they show through it, so they need not be hidden.
    outline.ZOrder(0);
}

void picBack_MouseDown(Workspace& ws, int Button, int Shift, float X, float Y) {
    Q_UNUSED(Shift);
    if (Button == kRightButton) return;
    ws.RectPressX = ToWord(X);
    ws.RectPressY = ToWord(Y);
    // The floating toolbar opens at a release in this same place.
    ToolbarBackPress(ws, X, Y);
}

void picBack_MouseMove(Workspace& ws, int Button, int Shift, float X, float Y) {
    RectMove(ws, ws.SelectRect(0), ws.picBack(0), Button, Shift, X, Y);
}

void picBack_MouseUp(Workspace& ws, int Button, int Shift, float X, float Y) {
    if (ws.SelectRect(0).Visible) {
        RectEnd(ws, ws.SelectRect(0), ws.picBack(0), Shift);
        return;
    }
    if (Button != kLeftButton || (Shift & (kShiftMask | kCtrlMask)) != 0) return;
    // A click that only drops a selection does nothing more; otherwise it may bring up the toolbar.
    bool hadSelection = !ws.SelectedLinks.empty();
    for (int i = 0; i < ws.Group.Count() && !hadSelection; ++i)
        hadSelection = IsContainerLive(ws, i) && ws.lblName(i).FontBold;
    UnselectAllLinks(ws, true);
    UnselectAllGroups(ws);
    if (!hadSelection) ToolbarBackRelease(ws, X, Y);
}

void grpBorder_MouseDown(Workspace& ws, int Button, int Shift, int i, float X, float Y) {
    Q_UNUSED(Shift);
    if (Button == kRightButton || !ws.grpBorder.exists(i)) return;
    ws.RectPressX = ToWord(X);
    ws.RectPressY = ToWord(Y);
}

void grpBorder_MouseMove(Workspace& ws, int Button, int Shift, int i, float X, float Y) {
    if (!ws.grpBorder.exists(i)) return;
    Element& outline = ws.SelectedRectGroup(0);
    if (Button != kLeftButton || ws.FrameLinkGroup(0).Visible) return;
    if (!outline.Visible) outline.setContainer(&ws.grpBorder(i));
    RectMove(ws, outline, ws.grpBorder(i), Button, Shift, X, Y);
}

void grpBorder_MouseUp(Workspace& ws, int Button, int Shift, int i, float X, float Y) {
    Q_UNUSED(Button);
    Q_UNUSED(X);
    Q_UNUSED(Y);
    Element& outline = ws.SelectedRectGroup(0);
    if (!ws.grpBorder.exists(i) || !outline.Visible || outline.Container() != &ws.grpBorder(i)) return;
    RectEnd(ws, outline, ws.grpBorder(i), Shift);
}

} // namespace pd
