#pragma once
// Reminders: an alarm-clock icon on the workspace that rings at its date and time.

#include <QString>

#include <cstdint>

namespace pd {

class Workspace;

// The four icon colours: their files beside the program, the note's back and text colours.
inline constexpr int kReminderColors = 4;
QString ReminderIconFile(int n);  // "alarmclock.gif", "alarmclockbl.gif", ...
int32_t ReminderBackColor(int n); // 65535, 0xFF0000, 65280, 255
int32_t ReminderTextColor(int n); // 0, 0xFFFFFF, 0, 0xFFFFFF
// The colour row whose file name the path holds (the first that matches); 3 when none does.
int ReminderColorOfPath(const QString& path);

// Creates a reminder at (x, y). Returns false when its icon file is missing (after saying so) or when
// it has no date.
bool AddReminder(Workspace& ws, int16_t x, int16_t y, const QString& note, const QString& date,
                 const QString& time, const QString& path);
// Gives the newest desk object its reminder face at (x, y).
void SetReminder(Workspace& ws, int index, const QString& date, const QString& time, float x, float y);
// Recomputes RemindersPresent: some visible reminder exists.
void UpdateRemindersPresent(Workspace& ws);
// The alarm check of each heartbeat: the first due reminder fires, one per tick.
void CheckReminders(Workspace& ws);
// Rings reminder `index`: the sound, the alarm window fading in at the lower right, the icon gone.
void FireReminder(Workspace& ws, int index);

// The menu commands.
void mnuAddReminder_Click(Workspace& ws);
void mnuReminderEdit_Click(Workspace& ws);
void mnuRemindersDelete_Click(Workspace& ws);

} // namespace pd
