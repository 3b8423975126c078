#include "desk/Reminders.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "desk/DateParse.h"
#include "desk/DeskState.h"
#include "desk/Pictures.h"
#include "desk/ReminderForm.h"
#include "desk/ShowReminder.h"
#include "window/AutoHide.h"
#include "window/Docking.h"

#include <QFileInfo>

#include <cmath>

namespace pd {

namespace {
struct ColorRow {
    const char* file;
    int32_t back;
    int32_t text;
};
const ColorRow kColorRows[kReminderColors] = {
    {"alarmclock.gif", 65535, 0},
    {"alarmclockbl.gif", 0xFF0000, 0xFFFFFF},
    {"alarmclockgr.gif", 65280, 0},
    {"alarmclockrd.gif", 255, 0xFFFFFF},
};

bool IsLiveReminder(Workspace& ws, int j) {
    return ws.picTemp.exists(j) && j < static_cast<int>(ws.DeskObjects.size()) && ws.picTemp(j).Visible &&
           ws.DeskObjects[j].IsReminder;
}
} // namespace

QString ReminderIconFile(int n) {
    return QString::fromLatin1(kColorRows[std::clamp(n, 0, kReminderColors - 1)].file);
}
int32_t ReminderBackColor(int n) {
    return kColorRows[std::clamp(n, 0, kReminderColors - 1)].back;
}
int32_t ReminderTextColor(int n) {
    return kColorRows[std::clamp(n, 0, kReminderColors - 1)].text;
}

int ReminderColorOfPath(const QString& path) {
    // "\alarmclock.gif" is not part of "\alarmclockbl.gif": the separator in front counts.
    for (int n = 0; n < kReminderColors; ++n) {
        const QString file = ReminderIconFile(n);
        if (path.endsWith(QLatin1Char('/') + file) || path.endsWith(QLatin1Char('\\') + file) || path == file)
            return n;
    }
    return kReminderColors - 1;
}

bool AddReminder(Workspace& ws, int16_t x, int16_t y, const QString& note, const QString& date,
                 const QString& time, const QString& path) {
    if (!QFileInfo::exists(path)) {
        ws.platform.messageBox(QStringLiteral("Can't find: ") + path +
                                   QStringLiteral(". Please reinstall the program."),
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
    frame.Move(x, y);
    OriginalSize(ws, index);
    // The reminder's face: the plain image, placed where the frame is.
    ToggleLock(ws);
    ws.picTemp(index).FontBold = true;
    // The date and the time are printed centred on the icon, the date at 20 and the time at 250 twips
    // from its top; the view paints them from here.
    DeskState& d = Desk(ws);
    d.Faces[index] = ReminderFace{date, time};
    if (d.onFaceChanged) d.onFaceChanged(index);
    ws.RemindersPresent = true;
}

void UpdateRemindersPresent(Workspace& ws) {
    ws.RemindersPresent = false;
    for (int j = 0; j < ws.picTemp.Count(); ++j) {
        if (IsLiveReminder(ws, j)) {
            ws.RemindersPresent = true;
            return;
        }
    }
}

void CheckReminders(Workspace& ws) {
    const QDateTime now = ws.clock.now();
    for (int j = 0; j < ws.picTemp.Count(); ++j) {
        if (j >= static_cast<int>(ws.DeskObjects.size())) break;
        const DeskObjectRecord& r = ws.DeskObjects[j];
        if (r.Date.isEmpty() || !r.IsReminder) continue;
        // A reminder that rang or was deleted keeps its record but no longer shows: it is done.
        if (!ws.picTemp.exists(j) || !ws.picTemp(j).Visible) continue;
        const auto moment = ParseReminderMoment(r.Date + QLatin1Char(' ') + r.Time);
        // A stored moment that does not read ends the pass; the next tick tries again.
        if (!moment) return;
        if (MinutesBetween(*moment, now) < 0) continue;
        FireReminder(ws, j);
        return;
    }
}

void FireReminder(Workspace& ws, int index) {
    DeskState& d = Desk(ws);
    // The alarm sounds whatever the sound setting says.
    ws.platform.playSound(ws.programFile(QStringLiteral("alarm.wav")));
    auto form = std::make_shared<ShowReminderForm>(ws);
    form->Name = QStringLiteral("frmShowReminder_%1").arg(++d.AlarmSerial);
    form->Loaded = true;
    d.Alarms.push_back(form);
    SetReminderColors(ws, index, *form);
    const DeskObjectRecord& r = ws.DeskObjects[index];
    form->lblCurPic = QString::number(index);
    form->lblTitle = r.Date + QLatin1Char(' ') + r.Time;
    form->txtReminder = r.Note;
    if (d.onAlarmLoaded) d.onAlarmLoaded(*form);
    // Fully transparent first; the fade brings it in.
    d.ReminderWindow = form->Name;
    ws.platform.setWindowAlpha(form->Name, 0);
    form->Visible = true;
    form->Left = ws.platform.screenWidth() - form->Width - 200;
    form->Top = ws.platform.screenHeight() - form->Height - 700;
    form->changed();
    d.FadeAlpha = 0;
    d.FadeInReminder.setEnabled(true);
    SetOnTop(ws, form->Name, true, false);
    // The icon leaves the workspace as soon as the alarm is up.
    DeleteDeskObject(ws, index, true);
}

void mnuAddReminder_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    ReminderForm form(ws);
    form.Load();
    if (Desk(ws).showReminderForm) Desk(ws).showReminderForm(form);
    EnableDisableTimerHide(ws, true);
    SaveDesktop(ws, true, false);
}

void mnuReminderEdit_Click(Workspace& ws) {
    const int j = ws.SelectedDeskObject;
    EnableDisableTimerHide(ws, false);
    if (ws.picTemp.exists(j)) {
        ws.DropX = ws.picTemp(j).Left;
        ws.DropY = ws.picTemp(j).Top;
    }
    ReminderForm form(ws);
    form.Load();
    if (j >= 0 && j < static_cast<int>(ws.DeskObjects.size())) {
        const DeskObjectRecord& r = ws.DeskObjects[j];
        if (const auto moment = ParseReminderMoment(r.Date + QLatin1Char(' ') + r.Time))
            form.SetFieldsFor(*moment, 0);
        form.cboAMPM = r.Time.contains(QLatin1String("AM")) ? QStringLiteral("AM") : QStringLiteral("PM");
        form.ChooseColor(ReminderColorOfPath(r.PicPath));
        form.txtReminder = r.Note;
    }
    if (Desk(ws).showReminderForm) Desk(ws).showReminderForm(form);
    // The old reminder goes whatever the dialog did: "&Done" has made its successor.
    DeleteDeskObject(ws, j, true);
    SaveDesktop(ws, true, false);
    EnableDisableTimerHide(ws, true);
}

void mnuRemindersDelete_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    const int answer = ws.platform.messageBox(QStringLiteral("Are you sure you want to clear all reminders?"),
                                              MsgStyle::YesNoWarning);
    if (answer == MsgAnswer::Yes) {
        for (int j = 0; j < ws.picTemp.Count(); ++j)
            if (IsLiveReminder(ws, j)) DeleteDeskObject(ws, j, false);
        ws.RemindersPresent = false;
        SaveDesktop(ws, true, false);
    }
    EnableDisableTimerHide(ws, true);
}

} // namespace pd
