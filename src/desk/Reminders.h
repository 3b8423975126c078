#pragma once
// Reminders: an alarm-clock icon on the workspace that rings at its date and time.

#include <QString>

namespace pd {

class Workspace;

// Creates a reminder at (x, y). Returns false when its icon file is missing (after saying so) or when
// it has no date.
bool AddReminder(Workspace& ws, int16_t x, int16_t y, const QString& note, const QString& date,
                 const QString& time, const QString& path);
// Gives the newest desk object its reminder face at (x, y).
void SetReminder(Workspace& ws, int index, const QString& date, const QString& time, float x, float y);

} // namespace pd
