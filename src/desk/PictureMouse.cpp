#include "desk/PictureMouse.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "containers/Moving.h"
#include "containers/Selection.h"
#include "containers/Shrinking.h"
#include "containers/TitleMouse.h"
#include "desk/DeskState.h"
#include "desk/Reminders.h"
#include "shortcuts/LinkSelection.h"
#include "window/Docking.h"

namespace pd {

namespace {

bool IsReminder(Workspace& ws, int j) {
    return j >= 0 && j < static_cast<int>(ws.DeskObjects.size()) && ws.DeskObjects[j].IsReminder;
}

// The menu of a picture, or of a reminder's icon.
void PrepareMenu(Workspace& ws, bool reminder, bool locked) {
    for (const char* name : {"mnuPicLock", "mnuSepPicture", "mnuPicReplace", "mnuPicOriginalSize"})
        ws.menus[QString::fromLatin1(name)].setVisible(!reminder);
    ws.menus["mnuReminderEdit"].setVisible(reminder);
    if (!reminder) ws.menus["mnuPicLock"].setChecked(locked);
}

// A left press: the object's place is kept, it comes to the front, the press point is noted.
void PressToMove(Workspace& ws, Element& moved, float X, float Y) {
    ws.DropX = moved.Left;
    ws.DropY = moved.Top;
    moved.ZOrder(0);
    DeskState& d = Desk(ws);
    d.PicPressX = X;
    d.PicPressY = Y;
    if (ws.menus["mnuLock"].Checked()) ShowLockedSign(ws, moved);
}

// A picture or reminder is dragged as a container is: a plain drag drops every selection, and with
// Ctrl held the selected containers follow the pointer by the same offset (the release then places
// them).
void DragBy(Workspace& ws, Element& moved, int Shift, float X, float Y) {
    if (ws.menus["mnuLock"].Checked()) return;
    const DeskState& d = Desk(ws);
    const float dx = X - d.PicPressX;
    const float dy = Y - d.PicPressY;
    if (dx == 0 && dy == 0) return;
    if ((Shift & kCtrlMask) == 0) {
        UnselectAllLinks(ws, true);
        UnselectAllGroups(ws);
    }
    moved.Move(moved.Left + dx, moved.Top + dy);
    if ((Shift & kCtrlMask) == 0) return;
    for (int k = 0; k < ws.Group.Count(); ++k) {
        if (!IsContainerLive(ws, k) || !ws.lblName(k).FontBold) continue;
        Element& g = ws.Group(k);
        g.Move(g.Left + dx, g.Top + dy);
    }
}

void Release(Workspace& ws, Element& moved) {
    if (moved.Left == ws.DropX && moved.Top == ws.DropY) return;
    KeepInsideParent(ws, moved);
    // The selected containers end the drag with it, placed as a container drag places them.
    MoveSelectedContainers(ws, -1, 0, 0, true);
    SaveDesktop(ws, true, false);
}

void OpenImage(Workspace& ws, int j) {
    if (j < 0 || j >= static_cast<int>(ws.DeskObjects.size())) return;
    PostLaunch(ws, false);
    ws.platform.openUrl(ws.DeskObjects[j].PicPath);
    PostLaunch(ws, true);
}

} // namespace

QString imgPicture_MouseDown(Workspace& ws, int Button, int /*Shift*/, int j, float X, float Y) {
    if (!ws.picPlaceholder.exists(j)) return {};
    ws.SelectedDeskObject = static_cast<int16_t>(j);
    if (Button == 2) {
        PrepareMenu(ws, false, false);
        return QStringLiteral("mnuPicture");
    }
    if (Button == 1) PressToMove(ws, ws.picPlaceholder(j), X, Y);
    return {};
}

QString picTemp_MouseDown(Workspace& ws, int Button, int /*Shift*/, int j, float X, float Y) {
    if (!ws.picTemp.exists(j)) return {};
    ws.SelectedDeskObject = static_cast<int16_t>(j);
    const bool reminder = IsReminder(ws, j);
    if (Button == 2) {
        PrepareMenu(ws, reminder, true);
        return QStringLiteral("mnuPicture");
    }
    // A locked picture does not move; a reminder's icon does.
    if (Button == 1 && reminder) PressToMove(ws, ws.picTemp(j), X, Y);
    return {};
}

void imgPicture_MouseMove(Workspace& ws, int Button, int Shift, int j, float X, float Y) {
    if (Button != 1 || !ws.picPlaceholder.exists(j)) return;
    DragBy(ws, ws.picPlaceholder(j), Shift, X, Y);
}

void picTemp_MouseMove(Workspace& ws, int Button, int Shift, int j, float X, float Y) {
    if (!ws.picTemp.exists(j)) return;
    if (Button == 1) {
        if (IsReminder(ws, j)) DragBy(ws, ws.picTemp(j), Shift, X, Y);
        return;
    }
    if (Button == 0 && IsReminder(ws, j)) ws.picTemp(j).ToolTipText = ReminderTip(ws, j);
}

void imgPicture_MouseUp(Workspace& ws, int Button, int /*Shift*/, int j) {
    if (Button != 1 || !ws.picPlaceholder.exists(j)) return;
    Release(ws, ws.picPlaceholder(j));
}

void picTemp_MouseUp(Workspace& ws, int Button, int /*Shift*/, int j) {
    if (Button != 1 || !ws.picTemp.exists(j) || !IsReminder(ws, j)) return;
    Release(ws, ws.picTemp(j));
}

void imgPicture_DblClick(Workspace& ws, int j) {
    OpenImage(ws, j);
}

void picTemp_DblClick(Workspace& ws, int j) {
    ws.SelectedDeskObject = static_cast<int16_t>(j);
    if (IsReminder(ws, j))
        mnuReminderEdit_Click(ws);
    else
        OpenImage(ws, j);
}

QString ReminderTip(Workspace& ws, int j) {
    if (!IsReminder(ws, j)) return {};
    const DeskObjectRecord& r = ws.DeskObjects[j];
    return r.Date + QLatin1Char(' ') + r.Time + QLatin1Char('\n') + QString(31, QLatin1Char('_')) +
           QLatin1Char('\n') + r.Note;
}

QString PictureMenuDefault(Workspace& ws) {
    return IsReminder(ws, ws.SelectedDeskObject) ? QStringLiteral("mnuReminderEdit")
                                                 : QStringLiteral("mnuPicLock");
}

} // namespace pd
