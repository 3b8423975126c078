#include "containers/TitleMouse.h"

#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Moving.h"
#include "containers/Selection.h"
#include "containers/Shrinking.h"
#include "window/Grid.h"

#include <cmath>

namespace pd {

void lblName_MouseDown(Workspace& ws, int Button, int /*Shift*/, int i, float X, float Y) {
    if (!ws.Group.exists(i)) return;
    if (Button == kRightButton) {
        // A locked workspace answers with the padlock; otherwise the caller opens the menu.
        if (ws.menus["mnuLock"].Checked()) ShowLockedSign(ws, ws.Group(i));
        return;
    }
    ws.SelectedContainer = static_cast<int16_t>(i);
    // A pressed title keeps an expanded tile open while the gesture lasts.
    ws.HoldExpanded = true;
    ws.TimerSuspendShrink.setEnabled(false);
    ws.TimerSuspendShrink.setEnabled(true);
    Element& group = ws.Group(i);
    ws.DropX = group.Left;
    ws.DropY = group.Top;
    PushUndoMove(ws, i, group.Left, group.Top);
    group.ZOrder(0);
    ws.PressX = std::round(X);
    ws.PressY = std::round(Y);
    ws.playSound(QStringLiteral("container_mousedown.wav"));
}

void ShrinkIcon_MouseDown(Workspace& ws, int Button, int /*Shift*/, int i, float X, float Y) {
    if (!ws.Group.exists(i)) return;
    ws.SelectedContainer = static_cast<int16_t>(i);
    if (Button == kLeftButton || Button == kMiddleButton) PushUndoMove(ws, i, ws.Group(i).Left, ws.Group(i).Top);
    ws.Group(i).ZOrder(0);
    ws.PressX = std::round(X);
    ws.PressY = std::round(Y);
}

void lblName_MouseUp(Workspace& ws, int Button, int Shift, int i) {
    if (!ws.Group.exists(i)) return;
    const Element& group = ws.Group(i);
    const bool inPlace = group.Left == ws.DropX && group.Top == ws.DropY;
    if (inPlace && (Shift & kCtrlMask)) {
        if (ws.lblName(i).FontBold) UnselectGroup(ws, i);
        else SelectGroup(ws, i);
    }
    if (Button == kLeftButton) ws.playSound(QStringLiteral("container_mouseup.wav"));
    if (inPlace) return;
    // A move: the grid unless Ctrl is held, the selection along with it, then inside the parent.
    const bool ctrl = (Shift & kCtrlMask) != 0;
    Element& g = ws.Group(i);
    if (!ctrl) AlignToGrid(ws, g, g.Left, g.Top);
    if (ws.lblName(i).FontBold) MoveSelectedContainers(ws, i, 0, 0, true, !ctrl);
    HideGrid(ws);
    KeepInsideParent(ws, g);
}

} // namespace pd
