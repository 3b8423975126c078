#include "desk/Reminders.h"

#include "app/workspace/Workspace.h"
#include "desk/Pictures.h"

#include <QFileInfo>

namespace pd {

bool AddReminder(Workspace& ws, int16_t x, int16_t y, const QString& note, const QString& date,
                 const QString& time, const QString& path) {
    if (!QFileInfo::exists(path)) {
        ws.platform.messageBox(QStringLiteral("Can't find: ") + path + QStringLiteral(". Please reinstall the program."),
                               MsgStyle::ExclamationBox, QStringLiteral("Add Reminder"));
        return false;
    }
    if (date.isEmpty()) return false;
    if (!AddPicture(ws, path, true)) return false;
    const int j = ws.DeskObjectCount - 1;
    DeskObjectRecord& r = ws.DeskObjects[j];
    r.Note = note.trimmed().isEmpty() ? QStringLiteral("[empty]") : note;
    r.Time = time;
    r.Date = date;
    SetReminder(ws, j, date, time, x, y);
    return true;
}

void SetReminder(Workspace& ws, int index, const QString& date, const QString& time, float x, float y) {
    ws.menus["mnuPicLock"].setChecked(false);
    ws.SelectedDeskObject = static_cast<int16_t>(ws.DeskObjectCount - 1);
    Element& frame = ws.picPlaceholder(index);
    Element& image = ws.imgPicture(index);
    frame.Move(x, y);
    // Original size: the frame is the image and 240 twips around it.
    frame.Width = image.Width + 240;
    frame.Height = image.Height + 240;
    ToggleLock(ws);
    // The date and time are printed on the icon by the view from the record.
    Q_UNUSED(date);
    Q_UNUSED(time);
}

} // namespace pd
