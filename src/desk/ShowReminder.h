#pragma once
// frmShowReminder ("Perchdock Reminder"), the alarm window that fades in at the lower right of the
// screen when a reminder is due: its date and time, its note, "&Open", "&Snooze" and "&Dismiss". The
// state and the logic live here; the view's window mirrors it.

#include <QString>

#include <functional>

namespace pd {

class Workspace;

struct ShowReminderForm {
    explicit ShowReminderForm(Workspace& ws) : ws(ws) {}
    Workspace& ws;

    // The window's name for the platform ("frmShowReminder_1"), unique in the run.
    QString Name;
    QString Caption = QStringLiteral("Perchdock Reminder");
    bool Loaded = false;
    bool Visible = false;
    // Place and size in twips on the screen.
    float Left = 0;
    float Top = 0;
    float Width = 4800;
    float Height = 2700;

    // The hidden label that holds the reminder's index, the title line and the note.
    QString lblCurPic;
    QString lblTitle;
    QString txtReminder;
    int32_t BackColor = 65535;
    int32_t ForeColor = 0;

    // Called after every change of the state above; set by the view.
    std::function<void()> onChanged;
    void changed() {
        if (onChanged) onChanged();
    }

    // The index of the reminder the window rings for.
    int Index() const { return lblCurPic.toInt(); }

    // "&Dismiss": the window goes, and the reminder with it.
    void cmdOK_Click();
    // "&Snooze": the same reminder again five minutes from now, where its icon was.
    void cmdSnooze_Click();
    // "&Open": the reminder's dialog, owned by this window, with its note and colour.
    void cmdEdit_Click();
    void Unload();
};

// Applies the colour row of the reminder's icon to an alarm window.
void SetReminderColors(Workspace& ws, int index, ShowReminderForm& window);
// Each 20 ms of FadeInReminder: the newest alarm window's opacity up by 12.8 to 255.
void FadeInReminder_Timer(Workspace& ws);

} // namespace pd
