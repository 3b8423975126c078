#include "containers/Moving.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "shortcuts/LinkLayout.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Selection.h"
#include "containers/Shrinking.h"
#include "containers/TitleMouse.h"
#include "shortcuts/LinkSelection.h"
#include "window/AutoHide.h"
#include "window/Grid.h"
#include "window/RelativeLayout.h"

#include <cmath>

namespace pd {

namespace {

constexpr float kGridStep = 250;
// A shortcut lands on the column of a neighbour whose left is this close.
constexpr float kLinkAlignReach = 300;
// The padlock stands this far right of and below the object it answers for.
constexpr float kLockOffset = 300;

bool IsGroup(const Element& e) { return e.Name() == QLatin1String("Group"); }

// Whether container `inner` stands inside container `outer` (or is it).
bool IsWithin(Workspace& ws, int inner, int outer) {
    int depth = ws.Group.Count();
    for (const Element* e = &ws.Group(inner); e && depth-- > 0; e = e->Container()) {
        if (IsGroup(*e) && e->Index() == outer) return true;
        if (e->Name() == QLatin1String("picBack")) break;
    }
    return false;
}

// The indicator over the grid line that the dragged edge has passed last.
void MoveIndicator(ElementFamily& lines, Element& indicator, float edge, bool vertical) {
    for (int k = 0; k + 1 < lines.Count(); ++k) {
        if (!lines.exists(k) || !lines.exists(k + 1)) break;
        const Element& a = lines(k);
        const Element& b = lines(k + 1);
        const float from = vertical ? a.Left : a.Top;
        const float to = vertical ? b.Left : b.Top;
        if (from <= edge && edge < to) {
            indicator.Move(a.Left, a.Top, a.Width, a.Height);
            return;
        }
    }
}

// The first grid line strictly before `pos` whose follower is strictly after it; -1 for none.
int CellBefore(ElementFamily& lines, float pos, bool vertical) {
    for (int k = 0; k + 1 < lines.Count(); ++k) {
        if (!lines.exists(k) || !lines.exists(k + 1)) break;
        const float from = vertical ? lines(k).Left : lines(k).Top;
        const float to = vertical ? lines(k + 1).Left : lines(k + 1).Top;
        if (from < pos && pos < to) return k;
    }
    return -1;
}

// The grid's whole-number coordinate, as a 16-bit integer takes a single.
float GridCoordinate(float v) { return static_cast<float>(std::nearbyint(static_cast<double>(v))); }

float ParentWidth(const Element& e) { return e.Container() ? e.Container()->Width.get() : 0.0f; }
float ParentHeight(const Element& e) { return e.Container() ? e.Container()->Height.get() : 0.0f; }

bool IsLink(const Element& e) { return e.family() != nullptr && e.Name() == QLatin1String("Link"); }

// Every live shortcut's icon shows again (a drag over the background may have hidden some).
void ShowIconsOfLiveLinks(Workspace& ws) {
    for (int k = 0; k < ws.LinkCount; ++k)
        if (IsLinkLive(ws, k) && ws.Link(k).Visible) IconBox(ws, k).Visible = true;
}

// A shortcut dropped in a new owner: its icon follows, and a selection it belongs to stacks under it.
void SettleDroppedLink(Workspace& ws, int n) {
    MoveLinkIcon(ws, n);
    ArrangeSelectedLinks(ws, n, true);
}

void FinishDrag(Workspace& ws, Element& source) {
    source.ZOrder(0);
    ws.playSound(QStringLiteral("container_mouseup.wav"));
    HideGrid(ws);
    ws.DragSource = nullptr;
    SaveDesktop(ws, true, false);
}

} // namespace

void lblName_MouseMove(Workspace& ws, int Button, int Shift, int i, float X, float Y) {
    if (Button != kLeftButton || !ws.Group.exists(i) || ws.DragSource) return;
    if (X == ws.PressX && Y == ws.PressY) return;
    if (ws.SelectRect(0).Visible || ws.menus["mnuLock"].Checked()) return;
    Element& g = ws.Group(i);
    if (ws.menus["mnuAlign"].Checked() && !ws.HorS(0).Visible && g.Container())
        ShowGrid(ws, kGridStep, kGridStep, *g.Container());
    const bool ctrl = (Shift & kCtrlMask) != 0;
    if (!ctrl) {
        UnselectAllLinks(ws, true);
        UnselectAllGroups(ws);
    }
    g.Move(g.Left + (X - ws.PressX), g.Top + (Y - ws.PressY));
    if (ws.chkFold(i).Top != 30) SetTitleEdge(ws, false, i);
    MoveIndicator(ws.VerS, ws.VerSIndic(0), g.Left, true);
    MoveIndicator(ws.HorS, ws.HorSIndic(0), g.Top, false);
    if (ctrl) {
        if (!ws.lblName(i).FontBold) SelectGroup(ws, i);
        MoveSelectedContainers(ws, i, X, Y, false);
    }
    ws.Containers[i].KeepX = false;
    ws.Containers[i].Flipped = false;
    if (!ws.menus["mnuCaptureContainers"].Checked()) return;
    const Element* parent = g.Container();
    if (parent && ContainerOf(*parent) >= 0) {
        if (g.Left < 0 || g.Top < 0 || g.Left > parent->Width || g.Top > parent->Height) {
            StartContainerDrag(ws, i);
            return;
        }
    }
    for (int k = 0; k < ws.Group.Count(); ++k) {
        if (k == i || !ws.Group.exists(k) || !ws.Group(k).Visible) continue;
        const Element& other = ws.Group(k);
        const bool within = g.Left >= other.Left && g.Left <= other.Left + other.Width && g.Top >= other.Top &&
                            g.Top <= other.Top + other.Height;
        if (within && other.Container() != g.Container()) {
            StartContainerDrag(ws, i);
            return;
        }
    }
}

void AlignToGrid(Workspace& ws, Element& object, float x, float y) {
    if (!ws.menus["mnuAlign"].Checked()) return;
    if (IsGroup(object)) {
        Q_UNUSED(x);
        Q_UNUSED(y);
        const int col = CellBefore(ws.VerS, object.Left, true);
        if (col >= 0 && object.Left > 0) object.Left = GridCoordinate(ws.VerS(col).Left) + 20;
        const int row = CellBefore(ws.HorS, object.Top, false);
        if (row >= 0 && object.Top > 0) object.Top = GridCoordinate(ws.HorS(row).Top) + 20;
        return;
    }
    if (object.Name() == QLatin1String("Link")) {
        for (int n = 0; n < ws.Link.Count(); ++n) {
            if (!ws.Link.exists(n)) continue;
            const Element& other = ws.Link(n);
            if (&other == &object || !other.Visible || other.Container() != object.Container()) continue;
            if (std::fabs(other.Left - x) <= kLinkAlignReach) {
                object.Left = other.Left.get();
                return;
            }
        }
    }
}

void PlaceDroppedContainer(Workspace& ws, int i, bool snap) {
    Element& g = ws.Group(i);
    if (snap) AlignToGrid(ws, g, g.Left, g.Top);
    KeepInsideParent(ws, g);
}

QRect ElementScreenRect(const Workspace& ws, const Element& e) {
    double left = 0, top = 0;
    int depth = 64;
    for (const Element* p = &e; p && depth-- > 0; p = p->Container()) {
        left += static_cast<double>(p->Left.get());
        top += static_cast<double>(p->Top.get());
    }
    const double tx = ws.TwipsPerPixelX(), ty = ws.TwipsPerPixelY();
    return QRect(static_cast<int>(std::lround(left / tx)), static_cast<int>(std::lround(top / ty)),
                 static_cast<int>(std::lround(static_cast<double>(e.Width.get()) / tx)),
                 static_cast<int>(std::lround(static_cast<double>(e.Height.get()) / ty)));
}

void DrawGhostRect(Workspace& ws, const QRect& rect) {
    if (ws.onDrawGhostRect) ws.onDrawGhostRect(rect);
}

void TrackEdgeResize(Workspace& ws, Element& object, float x, float y) {
    if (object.Width == 700 && object.Height == 950) return;
    if (ws.ResizeActive) {
        DrawGhostRect(ws, ws.ResizeGhost);
        const QPoint c = ws.platform.cursorPos();
        QRect r = ws.ResizeRect;
        const QString& h = ws.ResizeHandle;
        if (h.contains(QLatin1Char('L'))) r.setLeft(c.x());
        if (h.contains(QLatin1Char('R'))) r.setRight(c.x());
        if (h.contains(QLatin1Char('T'))) r.setTop(c.y());
        if (h.contains(QLatin1Char('B'))) r.setBottom(c.y());
        ws.ResizeGhost = r;
        DrawGhostRect(ws, ws.ResizeGhost);
        return;
    }
    const float w = object.Width, hgt = object.Height;
    const char* handle = nullptr;
    int pointer = 0;
    if (x >= 0 && x < 85 && y >= 0 && y < 85) handle = "TL", pointer = 8;
    else if (y >= 0 && y < 85 && w - 85 < x && x < w) handle = "TR", pointer = 6;
    else if (x >= 0 && x < 95 && hgt - 95 < y && y < hgt) handle = "BL", pointer = 6;
    else if (w - 85 < x && x < w && hgt - 85 < y && y < hgt) handle = "BR", pointer = 8;
    else if (x == 0) handle = "L", pointer = 9;
    else if (w - 85 < x && x < w) handle = "R", pointer = 9;
    else if (y >= 0 && y < 65) handle = "T", pointer = 7;
    else if (hgt - 65 < y && y < hgt) handle = "B", pointer = 7;
    // Outside every band the handle stays as it was; the pointer goes back to the arrow.
    if (handle) ws.ResizeHandle = QString::fromLatin1(handle);
    object.MousePointer = pointer;
}

void BeginEdgeResize(Workspace& ws, Element& object) {
    object.ZOrder(0);
    if (object.Width == 700 && object.Height == 950) return;
    if (object.MousePointer == 0) return;
    // A held rim keeps an expanded tile open, as a held title does.
    ws.HoldExpanded = true;
    ws.TimerSuspendShrink.setEnabled(false);
    ws.TimerSuspendShrink.setEnabled(true);
    ws.ResizeActive = true;
    ws.ResizeRect = ElementScreenRect(ws, object);
    ws.ResizeGhost = ws.ResizeRect;
    DrawGhostRect(ws, ws.ResizeRect);
    const QPoint c = ws.platform.cursorPos();
    ws.ResizeStartX = static_cast<float>(c.x()) * ws.TwipsPerPixelX();
    ws.ResizeStartY = static_cast<float>(c.y()) * ws.TwipsPerPixelY();
}

void EndEdgeResize(Workspace& ws, Element& object) {
    if (!ws.ResizeActive) return;
    const float oldHeight = object.Height;
    object.MousePointer = 0;
    ws.ResizeActive = false;
    DrawGhostRect(ws, ws.ResizeGhost);
    const QPoint c = ws.platform.cursorPos();
    const float dx = static_cast<float>(c.x()) * ws.TwipsPerPixelX() - ws.ResizeStartX;
    const float dy = static_cast<float>(c.y()) * ws.TwipsPerPixelY() - ws.ResizeStartY;
    float left = object.Left, top = object.Top, width = object.Width, height = object.Height;
    const QString& h = ws.ResizeHandle;
    if (h == QLatin1String("L")) left += dx, width -= dx;
    else if (h == QLatin1String("T")) top += dy, height -= dy;
    else if (h == QLatin1String("R")) width += dx;
    else if (h == QLatin1String("B")) height += dy;
    else if (h == QLatin1String("TL")) left += dx, top += dy, width -= dx, height -= dy;
    else if (h == QLatin1String("TR")) top += dy, width += dx, height -= dy;
    else if (h == QLatin1String("BL")) left += dx, width -= dx, height += dy;
    else if (h == QLatin1String("BR")) width += dx, height += dy;
    // A negative size is refused and the object stays as it was.
    if (width >= 0 && height >= 0) object.Move(left, top, width, height);
    const float pw = ParentWidth(object), ph = ParentHeight(object);
    if (object.Left < 0) object.Left = 200;
    if (object.Top < 0) object.Top = 60;
    if (object.Left + object.Width > pw && pw - object.Left - 200 >= 0) object.Width = pw - object.Left - 200;
    if (object.Top + object.Height > ph && ph - object.Top - 500 >= 0) object.Height = ph - object.Top - 500;
    if (!IsGroup(object)) return;
    const int i = object.Index();
    if (object.Height != oldHeight) {
        ws.chkFold(i).Visible = true;
        ws.chkFold(i).ZOrder(0);
    }
    SetObjectRelativeSize(ws, i);
    SetTitleEdge(ws, false, i);
}

void Group_MouseDown(Workspace& ws, int /*Button*/, int /*Shift*/, int i, float /*X*/, float /*Y*/) {
    if (!ws.Group.exists(i)) return;
    if (ws.menus["mnuLock"].Checked()) {
        ShowLockedSign(ws, ws.Group(i));
        return;
    }
    ws.SelectedContainer = static_cast<int16_t>(i);
    BeginEdgeResize(ws, ws.Group(i));
}

void Group_MouseMove(Workspace& ws, int /*Button*/, int /*Shift*/, int i, float X, float Y) {
    if (!ws.Group.exists(i)) return;
    TrackEdgeResize(ws, ws.Group(i), X, Y);
}

void Group_MouseUp(Workspace& ws, int /*Button*/, int /*Shift*/, int i) {
    if (!ws.Group.exists(i)) return;
    EndEdgeResize(ws, ws.Group(i));
    SaveDesktop(ws, true, false);
}

void picPlaceholder_MouseDown(Workspace& ws, int /*Button*/, int /*Shift*/, int i, float /*X*/, float /*Y*/) {
    if (!ws.picPlaceholder.exists(i)) return;
    if (ws.menus["mnuLock"].Checked()) return;
    ws.SelectedDeskObject = static_cast<int16_t>(i);
    BeginEdgeResize(ws, ws.picPlaceholder(i));
}

void picPlaceholder_MouseMove(Workspace& ws, int /*Button*/, int /*Shift*/, int i, float X, float Y) {
    if (!ws.picPlaceholder.exists(i)) return;
    TrackEdgeResize(ws, ws.picPlaceholder(i), X, Y);
}

void picPlaceholder_MouseUp(Workspace& ws, int /*Button*/, int /*Shift*/, int i) {
    if (!ws.picPlaceholder.exists(i)) return;
    Element& frame = ws.picPlaceholder(i);
    EndEdgeResize(ws, frame);
    if (ws.imgPicture.exists(i)) {
        Element& picture = ws.imgPicture(i);
        if (frame.Width - 240 >= 0) picture.Width = frame.Width - 240;
        if (frame.Height - 240 >= 0) picture.Height = frame.Height - 240;
    }
    SaveDesktop(ws, true, false);
}

namespace {

// The frame of the two alignment commands: the question, the chosen container out of the selection,
// then `apply` on each selected container that shows.
template <typename F> void AlignSelected(Workspace& ws, const QString& title, F apply) {
    EnableDisableTimerHide(ws, false);
    const int answer = ws.platform.messageBox(
        QStringLiteral("Align the selected container(s) with the chosen container?"), MsgStyle::YesNoQuestion, title);
    const int chosen = ws.SelectedContainer;
    if (answer == MsgAnswer::Yes && ws.Group.exists(chosen)) {
        UnselectGroup(ws, chosen);
        for (int k = 0; k < ws.Group.Count(); ++k)
            if (IsContainerLive(ws, k) && ws.lblName(k).FontBold) apply(k, ws.Group(chosen));
        SaveDesktop(ws, true, false);
    }
    EnableDisableTimerHide(ws, true);
}

} // namespace

void mnuSetContainerLeft_Click(Workspace& ws) {
    AlignSelected(ws, QStringLiteral("Align Left"), [&ws](int k, const Element& chosen) {
        ws.Group(k).Left = chosen.Left.get();
        SetRecordLength(ws.Containers[k].X, chosen.Left);
    });
}

void mnuSetContainerTop_Click(Workspace& ws) {
    AlignSelected(ws, QStringLiteral("Align Top"), [&ws](int k, const Element& chosen) {
        ws.Group(k).Top = chosen.Top.get();
        SetRecordLength(ws.Containers[k].Y, chosen.Top);
    });
}

void mnuSetContainerSize_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    const int answer =
        ws.platform.messageBox(QStringLiteral("Resize the selected container(s) to match the chosen container size?"),
                               MsgStyle::YesNoQuestion, QString());
    const int chosen = ws.SelectedContainer;
    if (answer == MsgAnswer::Yes && ws.Group.exists(chosen)) {
        UnselectGroup(ws, chosen);
        const bool chosenFolded = IsFolded(ws, chosen);
        if (chosenFolded) UnfoldContainer(ws, chosen);
        const float width = ws.Group(chosen).Width, height = ws.Group(chosen).Height;
        for (int k = 0; k < ws.Group.Count(); ++k) {
            if (!IsContainerLive(ws, k) || !ws.lblName(k).FontBold) continue;
            const bool folded = IsFolded(ws, k);
            if (folded) UnfoldContainer(ws, k);
            if (!IsShrunkSize(ws, k)) {
                Element& g = ws.Group(k);
                g.Move(g.Left, g.Top, width, height);
                SetObjectRelativeSize(ws, k);
            }
            if (folded) FoldContainer(ws, k);
        }
        if (chosenFolded) FoldContainer(ws, chosen);
        SaveDesktop(ws, true, false);
    }
    EnableDisableTimerHide(ws, true);
}

void ShowLockedSign(Workspace& ws, Element& object) {
    Element& lock = ws.ImgLock(0);
    if (object.Container()) lock.setContainer(object.Container());
    // The padlock has a button's size until a theme gives it one.
    if (lock.Width <= 0 || lock.Height <= 0) {
        lock.Width = 16 * ws.TwipsPerPixelX();
        lock.Height = 16 * ws.TwipsPerPixelY();
    }
    lock.ZOrder(0);
    lock.Move(object.Left + kLockOffset, object.Top + kLockOffset);
    lock.Visible = true;
    ws.TimeLock.setEnabled(false);
    ws.TimeLock.setEnabled(true);
}

void TimeLock_Timer(Workspace& ws) {
    ws.ImgLock(0).Visible = false;
    ws.TimeLock.setEnabled(false);
}

void StartContainerDrag(Workspace& ws, int i) {
    Element& g = ws.Group(i);
    ws.DragSource = &g;
    // Where the pointer holds the container: the press point in the title, from the Group's corner.
    ws.DragGripX = ws.PressX + ws.lblName(i).Left + ws.grpBorder(i).Left;
    ws.DragGripY = ws.PressY + ws.lblName(i).Top + ws.grpBorder(i).Top;
}

void picBack_DragDrop(Workspace& ws, float X, float Y) {
    Element* source = ws.DragSource;
    if (!source) return;
    source->setContainer(&ws.picBack(0));
    source->Move(X - ws.DragGripX, Y - ws.DragGripY);
    if (IsLink(*source)) {
        ShowIconsOfLiveLinks(ws);
        SettleDroppedLink(ws, source->Index());
    }
    FinishDrag(ws, *source);
}

void grpBorder_DragDrop(Workspace& ws, int i, float X, float Y) {
    Element* source = ws.DragSource;
    if (!source || !ws.Group.exists(i)) return;
    // A feed container takes nothing, and no container goes into itself or into one of its own.
    const bool refused = ws.Containers[i].IsFeed || (IsGroup(*source) && IsWithin(ws, i, source->Index()));
    if (refused) {
        CancelDrag(ws);
        return;
    }
    ws.SelectedContainer = static_cast<int16_t>(i);
    const Element& border = ws.grpBorder(i);
    if (IsGroup(*source)) {
        // A nested container sits in its parent's Group, as the container files nest it.
        source->setContainer(&ws.Group(i));
        source->Move(X + border.Left - ws.DragGripX, Y + border.Top - ws.DragGripY);
    } else {
        source->setContainer(&ws.grpBorder(i));
        source->Move(X - ws.DragGripX, Y - ws.DragGripY);
        if (IsLink(*source)) SettleDroppedLink(ws, source->Index());
    }
    FinishDrag(ws, *source);
}

void StartLinkDrag(Workspace& ws, int n) {
    if (!ws.Link.exists(n)) return;
    // The label is carried by the point where it was pressed.
    ws.DragSource = &ws.Link(n);
    ws.DragGripX = ws.MouseDownX;
    ws.DragGripY = ws.MouseDownY;
}

void CancelDrag(Workspace& ws) {
    Element* source = ws.DragSource;
    ws.DragSource = nullptr;
    HideGrid(ws);
    if (source) KeepInsideParent(ws, *source);
}

} // namespace pd
