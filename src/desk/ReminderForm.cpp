#include "desk/ReminderForm.h"

#include "app/workspace/Workspace.h"
#include "desk/DateParse.h"
#include "desk/Reminders.h"
#include "window/AutoHide.h"
#include "window/Docking.h"

#include <cmath>

namespace pd {

namespace {
const QString kWindow = QStringLiteral("frmReminder");

// The last year of the year list: at least 2015, and ten years ahead of now. Other years may be typed.
int LastListedYear(const QDate& today) {
    return std::max(2015, today.year() + 10);
}

QString Two(int n) {
    return QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
}
} // namespace

void ReminderForm::Load() {
    Loaded = true;
    MonthList.clear();
    for (int m = 1; m <= 12; ++m)
        MonthList << MonthAbbrev(m);
    YearList.clear();
    for (int y = 2006; y <= LastListedYear(ws.clock.now().date()); ++y)
        YearList << QString::number(y);
    HourList.clear();
    for (int h = 1; h <= 12; ++h)
        HourList << QString::number(h);
    MinuteList.clear();
    for (int m = 0; m <= 59; ++m)
        MinuteList << Two(m);
    AMPMList = QStringList{QStringLiteral("AM"), QStringLiteral("PM")};
    SetOnTop(ws, kWindow, true, false);
    // The present moment without its milliseconds, five minutes on.
    QDateTime now = ws.clock.now();
    now.setTime(QTime(now.time().hour(), now.time().minute(), now.time().second()));
    SetFieldsFor(now, 5);
    ChooseColor(OptAlarmGif);
    changed();
}

void ReminderForm::Unload() {
    if (!Loaded) return;
    Loaded = false;
    SetOnTop(ws, kWindow, false, false);
    changed();
}

void ReminderForm::SetFieldsFor(const QDateTime& moment, int minutes) {
    const QDateTime m = moment.addSecs(static_cast<qint64>(minutes) * 60);
    cboMonth = MonthAbbrev(m.date().month());
    cboYear = QString::number(m.date().year());
    int h = m.time().hour() % 12;
    if (h == 0) h = 12;
    cboHour = QString::number(h);
    cboMinute = Two(m.time().minute());
    cboAMPM = m.time().hour() >= 12 ? QStringLiteral("PM") : QStringLiteral("AM");
    cboDay = QString::number(m.date().day());
    DaysInMonth();
}

void ReminderForm::DaysInMonth() {
    const QString remembered = cboDay;
    DayList.clear();
    const auto first = ParseReminderDate(QStringLiteral("1-") + cboMonth + QLatin1Char('-') + cboYear);
    // A month or year that does not read leaves the list empty and the day as typed.
    if (!first) {
        changed();
        return;
    }
    const int count = static_cast<int>(first->daysTo(first->addMonths(1)));
    for (int d = 1; d <= count; ++d)
        DayList << QString::number(d);
    bool ok = false;
    const int day = remembered.trimmed().toInt(&ok);
    cboDay = ok && day >= 1 && day <= count ? QString::number(day) : QString::number(count);
    changed();
}

void ReminderForm::RefreshDayList() {
    const auto first = ParseReminderDate(QStringLiteral("1-") + cboMonth + QLatin1Char('-') + cboYear);
    if (!first) return;
    const int count = static_cast<int>(first->daysTo(first->addMonths(1)));
    QStringList days;
    for (int d = 1; d <= count; ++d)
        days << QString::number(d);
    if (days == DayList) return;
    DayList = days;
    changed();
}

void ReminderForm::ChooseColor(int n) {
    OptAlarmGif = std::clamp(n, 0, kReminderColors - 1);
    TextBackColor = ReminderBackColor(OptAlarmGif);
    TextForeColor = ReminderTextColor(OptAlarmGif);
    changed();
}

QString ReminderForm::TimeText() const {
    return Two(cboHour.trimmed().toInt()) + QLatin1Char(':') + Two(cboMinute.trimmed().toInt()) +
           QLatin1Char(' ') + cboAMPM.toUpper();
}

QString ReminderForm::DateText() const {
    return cboMonth + QLatin1Char('-') + cboDay + QLatin1Char('-') + cboYear;
}

void ReminderForm::OKButton_Click() {
    const QString time = TimeText();
    const QString date = DateText();
    bool hourOk = false, minuteOk = false;
    cboHour.trimmed().toInt(&hourOk);
    cboMinute.trimmed().toInt(&minuteOk);
    const auto moment = ParseReminderMoment(date + QLatin1Char(' ') + time);
    if (!moment || !hourOk || !minuteOk) {
        ws.platform.messageBox(QStringLiteral("Invalid Date!"), MsgStyle::ExclamationBox);
        return;
    }
    if (MinutesBetween(*moment, ws.clock.now()) >= 0) {
        ws.platform.messageBox(QStringLiteral("Can't schedule a reminder for the past..."),
                               MsgStyle::ExclamationBox, QStringLiteral("Invalid Date/Time"));
        return;
    }
    const QString path = ws.programFile(ReminderIconFile(OptAlarmGif));
    AddReminder(ws, static_cast<int16_t>(std::clamp(std::nearbyint(ws.DropX), -32768.0f, 32767.0f)),
                static_cast<int16_t>(std::clamp(std::nearbyint(ws.DropY), -32768.0f, 32767.0f)),
                txtReminder.trimmed(), date, time, path);
    Unload();
}

void ReminderForm::CancelButton_Click() {
    if (!ws.ConfirmDelete) {
        Unload();
        return;
    }
    EnableDisableTimerHide(ws, false);
    const int answer = ws.platform.messageBox(QStringLiteral("Are you sure you want to clear the reminder?"),
                                              MsgStyle::YesNoWarning);
    EnableDisableTimerHide(ws, true);
    if (answer == MsgAnswer::Yes) Unload();
}

void ReminderForm::Shift(int minutes) {
    const auto moment = ParseReminderMoment(DateText() + QLatin1Char(' ') + TimeText());
    if (!moment) {
        ws.platform.messageBox(QStringLiteral("Invalid Date!"), MsgStyle::ExclamationBox);
        return;
    }
    SetFieldsFor(*moment, minutes);
}

void ReminderForm::cmdPlusTen_Click() {
    Shift(10);
}
void ReminderForm::Command1_Click() {
    Shift(-10);
}

} // namespace pd
