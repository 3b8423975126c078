#include "desk/ShowReminder.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "desk/DateParse.h"
#include "desk/DeskState.h"
#include "desk/ReminderForm.h"
#include "desk/Reminders.h"
#include "window/Docking.h"

#include <cmath>

namespace pd {

namespace {
// The colour row that a note box's back colour stands for; red for any other.
int ColorOfBack(int32_t back) {
    for (int n = 0; n < kReminderColors - 1; ++n)
        if (ReminderBackColor(n) == back) return n;
    return kReminderColors - 1;
}

int16_t ToWordPos(float v) {
    return static_cast<int16_t>(std::clamp(std::nearbyint(v), -32768.0f, 32767.0f));
}
} // namespace

void SetReminderColors(Workspace& ws, int index, ShowReminderForm& window) {
    const QString path = index >= 0 && index < static_cast<int>(ws.DeskObjects.size())
                             ? ws.DeskObjects[index].PicPath
                             : QString();
    const int n = ReminderColorOfPath(path);
    window.BackColor = ReminderBackColor(n);
    window.ForeColor = ReminderTextColor(n);
    window.changed();
}

void FadeInReminder_Timer(Workspace& ws) {
    DeskState& d = Desk(ws);
    const double sum = d.FadeAlpha + 12.8;
    int alpha;
    if (sum < 256) {
        d.FadeAlpha = static_cast<int32_t>(std::lround(sum));
        alpha = d.FadeAlpha;
    } else {
        d.FadeInReminder.setEnabled(false);
        d.FadeAlpha = 0;
        alpha = 255;
    }
    ws.platform.setWindowAlpha(d.ReminderWindow, alpha);
}

void ShowReminderForm::Unload() {
    if (!Loaded) return;
    Loaded = false;
    Visible = false;
    SetOnTop(ws, Name, false, false);
    changed();
    // The window leaves the list last: the view may still be inside one of its handlers.
    DeskState& d = Desk(ws);
    for (auto it = d.Alarms.begin(); it != d.Alarms.end(); ++it) {
        if (it->get() == this) {
            auto keep = *it; // lives until this handler returns
            d.Alarms.erase(it);
            return;
        }
    }
}

void ShowReminderForm::cmdOK_Click() {
    Unload();
}

void ShowReminderForm::cmdSnooze_Click() {
    const int j = Index();
    const QString path =
        j >= 0 && j < static_cast<int>(ws.DeskObjects.size()) ? ws.DeskObjects[j].PicPath : QString();
    const QDateTime later = ws.clock.now().addSecs(5 * 60);
    float x = 0, y = 0;
    if (ws.picTemp.exists(j)) {
        x = ws.picTemp(j).Left;
        y = ws.picTemp(j).Top;
    }
    AddReminder(ws, ToWordPos(x), ToWordPos(y), txtReminder.trimmed(), SnoozeDateText(later.date()),
                ReminderTimeText(later.time()), path);
    SaveDesktop(ws, true, false);
    Unload();
}

void ShowReminderForm::cmdEdit_Click() {
    const int j = Index();
    Visible = false;
    changed();
    if (ws.picTemp.exists(j)) {
        ws.DropX = ws.picTemp(j).Left;
        ws.DropY = ws.picTemp(j).Top;
    }
    ReminderForm form(ws);
    form.Load();
    form.ChooseColor(ColorOfBack(BackColor));
    form.txtReminder = txtReminder;
    form.changed();
    if (Desk(ws).showReminderForm) Desk(ws).showReminderForm(form);
    SaveDesktop(ws, true, false);
    Unload();
}

} // namespace pd
