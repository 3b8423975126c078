#pragma once
// frmReminder, the reminder's editing dialog ("Reminder"): month, day, year, hour, minute and AM/PM
// fields, the note, the colour of the icon, ten minutes more or less, "&Done" and "&Clear". The state
// and the logic live here; the view's dialog mirrors it and calls the handlers.

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <functional>

namespace pd {

class Workspace;

struct ReminderForm {
    explicit ReminderForm(Workspace& ws) : ws(ws) {}
    Workspace& ws;

    bool Loaded = false;
    QString Caption = QStringLiteral("Reminder");

    // The combo boxes: their lists and the text each shows (a typed text need not be in the list).
    QStringList MonthList, DayList, YearList, HourList, MinuteList, AMPMList;
    QString cboMonth, cboDay, cboYear, cboHour, cboMinute, cboAMPM;
    // The note, and its colours, which follow the chosen icon.
    QString txtReminder;
    int32_t TextBackColor = 65535;
    int32_t TextForeColor = 0;
    // The icon's colour: 0 yellow, 1 blue, 2 green, 3 red.
    int OptAlarmGif = 0;

    // Called after the handlers changed the fields or unloaded the form; set by the view.
    std::function<void()> onChanged;
    void changed() {
        if (onChanged) onChanged();
    }

    // Fills the lists and sets the fields for now + 5 minutes.
    void Load();
    void Unload();
    // Sets the fields for `moment` + `minutes`, then refills the days.
    void SetFieldsFor(const QDateTime& moment, int minutes);
    // Refills cboDay for the month and year shown, keeping the day where the month has it.
    void DaysInMonth();
    // Refills cboDay's list for a month or year typed into its field, leaving the day as typed: only a
    // pick from the lists moves the day, so a typed date that does not exist still reads as invalid at
    // "&Done". A month or year that does not read leaves the list as it was.
    void RefreshDayList();
    // The option button of a colour was chosen.
    void ChooseColor(int n);
    // "&Done": adds the reminder, or says why not and stays open.
    void OKButton_Click();
    // "&Clear": closes without a reminder (asking first when deletions are confirmed).
    void CancelButton_Click();
    // cmdPlusTen and Command1: ten minutes later or earlier.
    void cmdPlusTen_Click();
    void Command1_Click();

    // The texts OKButton builds from the fields: "Dec-25-2006" and "08:05 PM".
    QString DateText() const;
    QString TimeText() const;

  private:
    void Shift(int minutes);
};

} // namespace pd
