#pragma once
// The date and time texts of reminders. A reminder keeps its moment as two texts: the date as the
// dialog writes it ("Dec-25-2006") or as the snooze writes it ("Dec/25/2006"), and the time as
// "08:05 PM". They are read here, with English month names whatever the locale, and parsed anew at each
// use; no parsed value is kept.

#include <QDateTime>
#include <QString>

#include <optional>

namespace pd {

// The moment of `date` + " " + `time`: "Dec-25-2006 08:05 PM", "Dec/25/2006 08:05 PM", "1-Feb-2009". A
// month is an English name or its first three letters (any case) or a number; a day that the month does
// not have, an hour or minute out of range, or any other text gives nothing.
std::optional<QDateTime> ParseReminderMoment(const QString& text);
// A date alone ("Feb-1-2009", "1-Feb-2009").
std::optional<QDate> ParseReminderDate(const QString& text);

// Whole minutes from `from` to `to`, counted as minute boundaries crossed (the seconds of both are
// dropped first): from 08:05:00 to 08:05:59 is 0, to 08:04:59 is -1.
qint64 MinutesBetween(const QDateTime& from, const QDateTime& to);

// "Jan".."Dec".
QString MonthAbbrev(int month);
// The snooze's date: "Jan/05/2027".
QString SnoozeDateText(const QDate& d);
// The time of a reminder on the 12-hour clock: "08:05 PM", "12:00 AM".
QString ReminderTimeText(const QTime& t);

} // namespace pd
