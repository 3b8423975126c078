#include "desk/Pictures.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "desk/DeskState.h"
#include "desk/Reminders.h"
#include "window/AutoHide.h"

namespace pd {

bool AddPicture(Workspace& ws, const QString& path, bool isReminder) {
    if (ws.DeskObjectCount == INT16_MAX) return false; // the 16-bit count is used up
    const int j = ws.DeskObjectCount;
    if (static_cast<int>(ws.DeskObjects.size()) <= j) ws.DeskObjects.resize(static_cast<size_t>(j) + 1);
    Element& frame = ws.picPlaceholder.Load(j);
    Element& image = ws.imgPicture.Load(j);
    Element& locked = ws.picTemp.Load(j);
    image.setContainer(&frame);
    // A picture added from a container's menu goes into that container. No menu starts the additions of
    // the load: their records say where they lie.
    const bool fromContainer =
        !ws.IsLoading && ws.menus.has("mnuDeleteContainer") && ws.menus["mnuDeleteContainer"].Visible();
    Element& owner = fromContainer ? ws.grpBorder(ws.SelectedContainer) : ws.picBack(0);
    frame.setContainer(&owner);
    locked.setContainer(&owner);

    const QSize natural = ws.platform.imageSize(path);
    if (!natural.isValid() || natural.isEmpty()) return false;

    ws.DeskObjects[j] = DeskObjectRecord{};
    ws.DeskObjects[j].PicPath = path;
    ws.DeskObjects[j].IsReminder = isReminder;
    frame.BackColor = ws.picPlaceholder(0).BackColor.get();
    frame.Visible = true;
    frame.ZOrder(0);
    image.Picture = path;
    image.Move(100, 100, natural.width() * ws.TwipsPerPixelX(), natural.height() * ws.TwipsPerPixelY());
    image.ToolTipText = QStringLiteral("Double-Click: Open | Right-Click: Options");
    image.Visible = true;
    locked.ToolTipText = QStringLiteral("Double-Click: View | Right-Click: Options");
    locked.Visible = false;
    ++ws.DeskObjectCount;
    return true;
}

void PlacePicture(Workspace& ws, float x, float y) {
    const int j = ws.DeskObjectCount - 1;
    if (j < 0) return;
    Element& frame = ws.picPlaceholder(j);
    frame.Move(x, y);
    ws.imgPicture(j).Move(100, 100, frame.Width - 240, frame.Height - 240);
}

void ToggleLock(Workspace& ws) {
    const int j = ws.SelectedDeskObject;
    if (!ws.picPlaceholder.exists(j)) return;
    Element& frame = ws.picPlaceholder(j);
    Element& image = ws.imgPicture(j);
    Element& locked = ws.picTemp(j);
    MenuEntry& mark = ws.menus["mnuPicLock"];
    // The face on screen decides the direction, so that loading several locked pictures in a row
    // locks each of them.
    if (!locked.Visible) {
        const float inset = ws.DeskObjects[j].IsReminder ? 0 : 100;
        locked.setContainer(frame.Container());
        locked.Move(frame.Left + inset, frame.Top + inset, image.Width, image.Height);
        locked.Picture = image.Picture.get();
        frame.Visible = false;
        locked.Visible = true;
        mark.setChecked(true);
    } else {
        image.Move(100, 100);
        locked.Visible = false;
        frame.Visible = true;
        image.Width = frame.Width - 240;
        image.Height = frame.Height - 240;
        mark.setChecked(false);
    }
}

void OriginalSize(Workspace& ws, int j) {
    if (!ws.picPlaceholder.exists(j) || j >= static_cast<int>(ws.DeskObjects.size())) return;
    Element& frame = ws.picPlaceholder(j);
    Element& image = ws.imgPicture(j);
    const QSize natural = ws.platform.imageSize(ws.DeskObjects[j].PicPath);
    if (!natural.isValid()) return;
    image.Visible = false;
    image.Width = natural.width() * ws.TwipsPerPixelX();
    image.Height = natural.height() * ws.TwipsPerPixelY();
    frame.Width = image.Width + 240;
    frame.Height = image.Height + 240;
    image.Visible = true;
}

void DeleteDeskObject(Workspace& ws, int index, bool update) {
    if (!ws.picPlaceholder.exists(index)) return;
    // The images go, so that their memory is returned.
    ws.picPlaceholder(index).Picture = QString();
    ws.picTemp(index).Picture = QString();
    ws.imgPicture(index).Picture = QString();
    ws.picPlaceholder(index).Visible = false;
    ws.picTemp(index).Visible = false;
    DeskState& d = Desk(ws);
    if (d.Faces.erase(index) && d.onFaceChanged) d.onFaceChanged(index);
    if (update) UpdateRemindersPresent(ws);
}

QString ChoosePictureFile(Workspace& ws) {
    return ws.platform.chooseOpenFile(QStringLiteral("Add Picture"), QStringLiteral("Picture Files"),
                                      QStringLiteral("*.jpg; *.gif"));
}

void mnuAddPicture_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    const QString path = ChoosePictureFile(ws);
    if (!path.isEmpty()) {
        if (AddPicture(ws, path)) {
            const int j = ws.DeskObjectCount - 1;
            OriginalSize(ws, j);
            PlacePicture(ws, ws.DropX, ws.DropY);
            ws.SelectedDeskObject = static_cast<int16_t>(j);
            ws.platform.flushMouseEvents();
            SaveDesktop(ws, true, false);
        } else {
            ws.platform.messageBox(QString::fromLatin1(kUnableToLoadPicture), MsgStyle::ExclamationBox);
        }
    }
    EnableDisableTimerHide(ws, true);
}

void mnuPicLock_Click(Workspace& ws) {
    ToggleLock(ws);
    SaveDesktop(ws, true, false);
}

void mnuPicOriginalSize_Click(Workspace& ws) {
    OriginalSize(ws, ws.SelectedDeskObject);
    SaveDesktop(ws, true, false);
}

void mnuPicFroward_Click(Workspace& ws) {
    const int j = ws.SelectedDeskObject;
    if (!ws.picPlaceholder.exists(j)) return;
    ws.imgPicture(j).ZOrder(0);
    ws.picTemp(j).ZOrder(0);
    ws.picPlaceholder(j).ZOrder(0);
}

void mnuPicSendToBack_Click(Workspace& ws) {
    const int j = ws.SelectedDeskObject;
    if (!ws.picPlaceholder.exists(j)) return;
    ws.imgPicture(j).ZOrder(1);
    ws.picTemp(j).ZOrder(1);
    ws.picPlaceholder(j).ZOrder(1);
}

void mnuPicReplace_Click(Workspace& ws) {
    const int old = ws.SelectedDeskObject;
    if (!ws.picPlaceholder.exists(old)) return;
    EnableDisableTimerHide(ws, false);
    const QString path = ChoosePictureFile(ws);
    if (!path.isEmpty()) {
        // The replacement is a new object in the old one's owner and place.
        Element* owner = ws.picPlaceholder(old).Container();
        if (AddPicture(ws, path)) {
            const int j = ws.DeskObjectCount - 1;
            if (owner) {
                ws.picPlaceholder(j).setContainer(owner);
                ws.picTemp(j).setContainer(owner);
            }
            const Element& oldFrame = ws.picPlaceholder(old);
            ws.picPlaceholder(j).Width = oldFrame.Width.get();
            ws.picPlaceholder(j).Height = oldFrame.Height.get();
            PlacePicture(ws, oldFrame.Left, oldFrame.Top);
            ws.imgPicture(j).Width = ws.imgPicture(old).Width.get();
            ws.imgPicture(j).Height = ws.imgPicture(old).Height.get();
            ws.picPlaceholder(old).Visible = false;
            ws.picTemp(old).Visible = false;
            ws.imgPicture(old).Visible = false;
            ws.SelectedDeskObject = static_cast<int16_t>(j);
        } else {
            ws.platform.messageBox(QString::fromLatin1(kUnableToLoadPicture), MsgStyle::ExclamationBox);
        }
    }
    EnableDisableTimerHide(ws, true);
    SaveDesktop(ws, true, false);
}

void mnuPicDelete_Click(Workspace& ws) {
    const int j = ws.SelectedDeskObject;
    if (!ws.picPlaceholder.exists(j) || j >= static_cast<int>(ws.DeskObjects.size())) return;
    if (ws.DeskObjects[j].IsReminder && ws.ConfirmDelete) {
        EnableDisableTimerHide(ws, false);
        const int answer = ws.platform.messageBox(QStringLiteral("Delete Reminder?"), MsgStyle::YesNoWarning,
                                                  QStringLiteral("Delete"));
        EnableDisableTimerHide(ws, true);
        if (answer != MsgAnswer::Yes) return;
    }
    DeleteDeskObject(ws, j, true);
    SaveDesktop(ws, true, false);
}

} // namespace pd
