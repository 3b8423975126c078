#include "containers/TitleMouse.h"

#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "containers/Folding.h"

#include <cmath>

namespace pd {

void lblName_MouseDown(Workspace& ws, int Button, int /*Shift*/, int i, float X, float Y) {
    if (Button == kRightButton || !ws.Group.exists(i)) return;
    ws.SelectedContainer = static_cast<int16_t>(i);
    // A pressed title keeps an expanded tile open while the gesture lasts.
    ws.HoldExpanded = true;
    ws.TimerSuspendShrink.setEnabled(false);
    ws.TimerSuspendShrink.setEnabled(true);
    Element& group = ws.Group(i);
    ws.DropX = group.Left;
    ws.DropY = group.Top;
    group.ZOrder(0);
    ws.PressX = std::round(X);
    ws.PressY = std::round(Y);
    ws.playSound(QStringLiteral("container_mousedown.wav"));
}

void ShrinkIcon_MouseDown(Workspace& ws, int /*Button*/, int /*Shift*/, int i, float X, float Y) {
    if (!ws.Group.exists(i)) return;
    ws.SelectedContainer = static_cast<int16_t>(i);
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
}

} // namespace pd
