// Dragging a shortcut within its owner. Without Ctrl the label moves alone, its icon outline follows,
// and an icon that the label covers marks the shortcut it will change places with; with Ctrl the other
// selected shortcuts of the owner move along. A label that leaves its owner goes back to its place and
// the drag to another owner starts instead.

#include "shortcuts/LinkDrag.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Moving.h"
#include "containers/Containers.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkSelection.h"

#include <cmath>

namespace pd {

namespace {

constexpr int kCtrl = 2;
// A dropped label takes the Left of a shortcut standing less than this far to either side (Align).
constexpr float kAlignReach = 300;

struct Rect {
    float left, top, width, height;
    bool contains(float x, float y) const { return x >= left && x <= left + width && y >= top && y <= top + height; }
    bool holds(const Rect& r) const {
        return r.left >= left && r.top >= top && r.left + r.width <= left + width && r.top + r.height <= top + height;
    }
};

Rect RectOf(const Element& e) { return {e.Left, e.Top, e.Width, e.Height}; }

// An element's place in the coordinates of picBack: its own place plus those of the elements it sits in.
Rect RectOnBack(Workspace& ws, const Element& e) {
    Rect r = RectOf(e);
    int depth = 64; // the nesting of containers is shallow; a loop in the parents is no reason to hang
    for (const Element* p = e.Container(); p && p != &ws.picBack(0) && depth-- > 0; p = p->Container()) {
        r.left += p->Left;
        r.top += p->Top;
    }
    return r;
}

void HideGuides(Workspace& ws) {
    ws.ShapeMovingIcon(0).Visible = false;
    ws.ShapeIconFiller(0).Visible = false;
    ws.LinkLine(0).Visible = false;
}

// Shows the icons that covering labels hid again, those of live shortcuts whose label shows.
void ShowAllIcons(Workspace& ws) {
    for (int k = 0; k < ws.LinkCount; ++k)
        if (IsLinkLive(ws, k) && ws.Link(k).Visible && ws.PicIcon.exists(ws.Links[static_cast<size_t>(k)].IconIndex))
            IconBox(ws, k).Visible = true;
}

// The outline where the dragged icon goes, the icons the label covers, and the line to the partner of a
// swap: the last covered icon, over which the filler stands. The line runs from (Left, Top) to
// (Left + Width, Top + Height).
void UpdateGuides(Workspace& ws, int n) {
    Element& owner = LinkOwner(ws, n);
    const Element& icon = IconBox(ws, n);
    Element& moving = ws.ShapeMovingIcon(0);
    moving.setContainer(&owner);
    moving.Move(icon.Left, icon.Top, icon.Width, icon.Height);
    moving.Visible = true;
    moving.ZOrder(0);
    ws.ShapeMove(0).Visible = true;
    const Rect label = RectOf(ws.Link(n));
    Element& filler = ws.ShapeIconFiller(0);
    bool partner = false;
    for (int k = 0; k < ws.LinkCount; ++k) {
        if (k == n || !IsLinkLive(ws, k) || ws.Link(k).Container() != &owner) continue;
        if (!ws.PicIcon.exists(ws.Links[static_cast<size_t>(k)].IconIndex)) continue;
        Element& other = IconBox(ws, k);
        const Rect r = RectOf(other);
        if (label.contains(r.left + r.width / 2, r.top + r.height / 2)) {
            other.Visible = false;
            filler.setContainer(&owner);
            filler.Move(r.left, r.top, r.width, r.height);
            filler.Visible = true;
            partner = true;
        } else if (ws.Link(k).Visible) {
            other.Visible = true;
        }
    }
    Element& line = ws.LinkLine(0);
    if (partner) {
        line.setContainer(&owner);
        const float x1 = moving.Left + moving.Width / 2, y1 = moving.Top + moving.Height / 2;
        const float x2 = filler.Left + filler.Width / 2, y2 = filler.Top + filler.Height / 2;
        line.Move(x1, y1, x2 - x1, y2 - y1);
        line.ForeColor = owner.ForeColor.get();
        line.Visible = true;
        line.ZOrder(0);
    } else {
        line.Visible = false;
        filler.Visible = false;
    }
}

// Whether the label at its new place has left its owner: past a container's edges, or, on the
// background, wholly over a shown container.
bool LeftOwner(Workspace& ws, int n) {
    const Element& label = ws.Link(n);
    const Element& owner = LinkOwner(ws, n);
    if (&owner != &ws.picBack(0))
        return label.Left < 0 || label.Top < 0 || label.Left > owner.Width || label.Top > owner.Height;
    const Rect r = RectOf(label);
    for (int i = 0; i < ws.Group.Count(); ++i)
        if (IsContainerLive(ws, i) && RectOnBack(ws, ws.Group(i)).holds(r)) return true;
    return false;
}

// The shortcut of n's owner whose icon stands at the end of the swap line.
int SwapPartner(Workspace& ws, int n) {
    const Element& line = ws.LinkLine(0);
    const float x = line.Left + line.Width, y = line.Top + line.Height;
    const Element& owner = LinkOwner(ws, n);
    for (int k = 0; k < ws.LinkCount; ++k) {
        if (k == n || !IsLinkLive(ws, k) || !ws.Link(k).Visible || ws.Link(k).Container() != &owner) continue;
        if (!ws.PicIcon.exists(ws.Links[static_cast<size_t>(k)].IconIndex)) continue;
        if (RectOf(IconBox(ws, k)).contains(x, y)) return k;
    }
    return -1;
}

} // namespace

void DragSelectedWithLink(Workspace& ws, int n, float dx, float dy) {
    if (!ws.Link.exists(n)) return;
    const Element* owner = ws.Link(n).Container();
    for (const int16_t k : ws.SelectedLinks) {
        if (k == n || !IsLinkLive(ws, k)) continue;
        Element& label = ws.Link(k);
        if (!label.Visible || label.Container() != owner) continue;
        label.Move(label.Left + dx, label.Top + dy);
        PlaceLinkIcon(ws, k);
    }
}

void LinkDragMove(Workspace& ws, int Shift, int n, float X, float Y) {
    if (!IsLinkLive(ws, n)) return;
    if (X == ws.MouseDownX && Y == ws.MouseDownY) return;
    ws.ImgLinkGroup(0).Visible = false;
    HideLinkToolbar(ws);
    ws.MouseDownLink = -1;
    if (ws.menus["mnuLock"].Checked()) {
        // Locked: the padlock beside the shortcut says why nothing moves.
        ShowLockedSign(ws, ws.Link(n));
        return;
    }
    // While a tag filter runs the shown shortcuts stay where they are.
    if (ws.FrameLinkGroup(0).Visible) return;
    const bool ctrl = (Shift & kCtrl) != 0;
    Element& label = ws.Link(n);
    const float dx = X - ws.MouseDownX, dy = Y - ws.MouseDownY;
    label.Move(label.Left + dx, label.Top + dy);
    if (ctrl) {
        HideGuides(ws);
        PlaceLinkIcon(ws, n);
        DragSelectedWithLink(ws, n, dx, dy);
    } else {
        MoveLinkIcon(ws, n);
        // The guides follow the label's new place.
        UpdateGuides(ws, n);
    }
    label.ZOrder(0);
    SetLinkSelected(ws, n, true);
    if (ctrl) return;
    if (LeftOwner(ws, n)) {
        // Back to where it was pressed; the drag to another owner takes over.
        label.Move(ws.DownLeft, ws.DownTop);
        ws.ShapeMove(0).Visible = false;
        HideGuides(ws);
        ShowAllIcons(ws);
        MoveLinkIcon(ws, n);
        if (ws.onStartLinkDrag) ws.onStartLinkDrag(n);
    }
}

void EndLinkDrag(Workspace& ws, int Shift, int n) {
    ws.ShapeMove(0).Visible = false;
    ws.ShapeMovingIcon(0).Visible = false;
    const bool swap = ws.LinkLine(0).Visible;
    ws.LinkLine(0).Visible = false;
    ShowAllIcons(ws);
    if (ws.menus["mnuLock"].Checked()) {
        ws.ShapeIconFiller(0).Visible = false;
        if (IsLinkLive(ws, n)) ShowLockedSign(ws, ws.Link(n));
        return;
    }
    if (ws.FrameLinkGroup(0).Visible || !IsLinkLive(ws, n)) {
        ws.ShapeIconFiller(0).Visible = false;
        return;
    }
    Element& label = ws.Link(n);
    const Element* owner = label.Container();
    KeepLinkInside(ws, label);
    if ((Shift & kCtrl) == 0) {
        if (ws.menus["mnuAlign"].Checked()) {
            for (int j = 0; j < ws.LinkCount; ++j) {
                if (j == n || !IsLinkLive(ws, j) || !ws.Link(j).Visible || ws.Link(j).Container() != owner) continue;
                const float left = ws.Link(j).Left;
                if (left - kAlignReach < label.Left && label.Left < left + kAlignReach) {
                    label.Left = left;
                    break;
                }
            }
        }
        // A label dropped on another's icon changes places with it; the selection is stacked only
        // when no swap is made.
        if (!swap && ws.SelectedLinks.size() > 1) ArrangeSelectedLinks(ws, n, true);
    }
    if (swap) {
        const int k = SwapPartner(ws, n);
        if (k >= 0) {
            Element& other = ws.Link(k);
            label.Move(other.Left, other.Top);
            other.Move(ws.DownLeft, ws.DownTop);
            MoveLinkIcon(ws, k);
            MoveLinkIcon(ws, n);
            ws.playSound(QStringLiteral("container_mouseup.wav"));
        }
    }
    MoveLinkIcon(ws, n);
    HideGuides(ws);
    ws.ShapeMove(0).Visible = false;
    SaveDesktop(ws, true, false);
}

} // namespace pd
