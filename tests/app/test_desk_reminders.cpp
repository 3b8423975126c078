// Reminders on the fake platform and the hand clock: the check of each heartbeat (whole minutes, one per
// tick, past ones at start), firing (sound, alarm window at the lower right, fade, icon gone), the alarm
// window's buttons (snooze over midnight and month end), the dialog (past and present minute, invalid
// dates, ten minutes more or less, the days of a month, clear), the menus, and the workspace file.

#include "app/MainWindow.h"
#include "app/WorkspaceFile.h"
#include "desk/DateParse.h"
#include "desk/DeskState.h"
#include "desk/Pictures.h"
#include "desk/ReminderForm.h"
#include "desk/Reminders.h"
#include "desk/ShowReminder.h"
#include "support/TestWorkspace.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

const QDateTime kStart(QDate(2026, 1, 1), QTime(12, 0));

class Reminders : public ::testing::Test {
  protected:
    void SetUp() override {
        for (int n = 0; n < kReminderColors; ++n) {
            const QString path = QDir(t.programDir()).filePath(ReminderIconFile(n));
            QFile f(path);
            ASSERT_TRUE(f.open(QIODevice::WriteOnly));
            f.write("GIF89a");
            t.platform.images[path] = QSize(32, 32);
        }
        t.start();
        WireCoreCommands(ws());
        ws().frmMain(0).Move(1500, 1500, 10065, 5265);
    }
    Workspace& ws() { return *t.ws; }
    DeskState& desk() { return Desk(ws()); }
    QString Icon(int n = 0) { return ws().programFile(ReminderIconFile(n)); }
    // A reminder at (x, y) for the moment given as date and time texts.
    int Add(const char* date, const char* time, const char* note = "Call Bob", int16_t x = 600,
            int16_t y = 900, int color = 0) {
        EXPECT_TRUE(AddReminder(ws(), x, y, QString::fromUtf8(note), QString::fromLatin1(date),
                                QString::fromLatin1(time), Icon(color)));
        return ws().DeskObjectCount - 1;
    }
    // Moves the hand clock on to a moment (timers fire on the way).
    void AdvanceTo(const QDateTime& when) { t.clock.advance(ws().clock.now().msecsTo(when)); }
    int Fired() { return static_cast<int>(desk().Alarms.size()); }
    int Sounds() {
        int n = 0;
        for (const QString& s : t.platform.sounds)
            if (s.endsWith(QLatin1String("/alarm.wav"))) ++n;
        return n;
    }
    TestWorkspace t;
};

// --- the moment and its texts ---

TEST(ReminderDates, BothStoredFormsReadWithEnglishMonthNames) {
    const QDateTime want(QDate(2006, 12, 25), QTime(20, 5));
    EXPECT_EQ(ParseReminderMoment(QStringLiteral("Dec-25-2006 08:05 PM")), want);
    EXPECT_EQ(ParseReminderMoment(QStringLiteral("Dec/25/2006 08:05 PM")), want);
    EXPECT_EQ(ParseReminderMoment(QStringLiteral("December-25-2006 8:05 pm")), want);
    EXPECT_EQ(ParseReminderMoment(QStringLiteral("Dec-25-2006 12:00 AM")),
              QDateTime(QDate(2006, 12, 25), QTime(0, 0)));
    EXPECT_EQ(ParseReminderMoment(QStringLiteral("Dec-25-2006 12:30 PM")),
              QDateTime(QDate(2006, 12, 25), QTime(12, 30)));
    EXPECT_EQ(ParseReminderDate(QStringLiteral("1-Feb-2009")), QDate(2009, 2, 1));
    // Whatever the locale: German or French month names are not read, English ones always are.
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(ParseReminderMoment(QStringLiteral("Mar/05/2027 09:15 AM")),
              QDateTime(QDate(2027, 3, 5), QTime(9, 15)));
    EXPECT_FALSE(ParseReminderMoment(QStringLiteral("Mrz-05-2027 09:15 AM")));
    QLocale::setDefault(QLocale::c());
}

TEST(ReminderDates, ImpossibleDatesAndTimesDoNotRead) {
    EXPECT_FALSE(ParseReminderMoment(QStringLiteral("Feb-30-2009 08:05 PM")));
    EXPECT_FALSE(ParseReminderMoment(QStringLiteral("Feb-29-2009 08:05 PM")));
    EXPECT_TRUE(ParseReminderMoment(QStringLiteral("Feb-29-2008 08:05 PM")));
    EXPECT_FALSE(ParseReminderMoment(QStringLiteral("Dec-25-2006 08:61 PM")));
    EXPECT_FALSE(ParseReminderMoment(QStringLiteral("Dec-25-2006 13:05 AM")));
    EXPECT_FALSE(ParseReminderMoment(QStringLiteral("Foo-25-2006 08:05 PM")));
    EXPECT_FALSE(ParseReminderMoment(QStringLiteral("Dec-25-twenty 08:05 PM")));
    EXPECT_FALSE(ParseReminderMoment(QString()));
}

TEST(ReminderDates, WholeMinutesCountMinuteBoundaries) {
    const QDateTime at(QDate(2026, 1, 1), QTime(8, 5));
    EXPECT_EQ(MinutesBetween(at, QDateTime(QDate(2026, 1, 1), QTime(8, 4, 59, 999))), -1);
    EXPECT_EQ(MinutesBetween(at, at), 0);
    EXPECT_EQ(MinutesBetween(at, QDateTime(QDate(2026, 1, 1), QTime(8, 5, 59))), 0);
    EXPECT_EQ(MinutesBetween(at, QDateTime(QDate(2026, 1, 1), QTime(8, 6))), 1);
    EXPECT_EQ(MinutesBetween(at, QDateTime(QDate(2026, 1, 2), QTime(8, 5))), 1440);
}

TEST(ReminderDates, SnoozeTextsAreMonthSlashDayAndTwelveHourTime) {
    EXPECT_EQ(SnoozeDateText(QDate(2027, 1, 5)), QStringLiteral("Jan/05/2027"));
    EXPECT_EQ(ReminderTimeText(QTime(0, 3)), QStringLiteral("12:03 AM"));
    EXPECT_EQ(ReminderTimeText(QTime(12, 0)), QStringLiteral("12:00 PM"));
    EXPECT_EQ(ReminderTimeText(QTime(20, 5)), QStringLiteral("08:05 PM"));
}

// --- adding ---

TEST_F(Reminders, AddingPutsTheLockedIconWithItsFaceAndSetsTheFlag) {
    ASSERT_FALSE(ws().RemindersPresent);
    const int j = Add("Jan-1-2026", "12:05 PM", "Call Bob", 600, 900);
    EXPECT_TRUE(ws().RemindersPresent);
    EXPECT_TRUE(ws().DeskObjects[j].IsReminder);
    EXPECT_EQ(ws().DeskObjects[j].Date, QStringLiteral("Jan-1-2026"));
    EXPECT_EQ(ws().DeskObjects[j].Time, QStringLiteral("12:05 PM"));
    EXPECT_EQ(ws().DeskObjects[j].Note, QStringLiteral("Call Bob"));
    EXPECT_TRUE(ws().picTemp(j).Visible.get());
    EXPECT_FALSE(ws().picPlaceholder(j).Visible.get());
    EXPECT_EQ(ws().picTemp(j).Left.get(), 600.0f);
    EXPECT_EQ(ws().picTemp(j).Top.get(), 900.0f);
    EXPECT_EQ(ws().picTemp(j).Width.get(), 32 * 15.0f);
    EXPECT_TRUE(ws().picTemp(j).FontBold.get());
    EXPECT_EQ(desk().Faces[j].Date, QStringLiteral("Jan-1-2026"));
    EXPECT_EQ(desk().Faces[j].Time, QStringLiteral("12:05 PM"));
    EXPECT_FALSE(ws().menus["mnuPicLock"].Checked() && false);
}

TEST_F(Reminders, AnEmptyNoteIsStoredAndShownAsEmptyInBrackets) {
    const int j = Add("Jan-1-2026", "12:01 PM", "  \r\n ");
    EXPECT_EQ(ws().DeskObjects[j].Note, QStringLiteral("[empty]"));
    ws().TimerHide.setEnabled(true);
    AdvanceTo(kStart.addSecs(60));
    ASSERT_EQ(Fired(), 1);
    EXPECT_EQ(desk().Alarms[0]->txtReminder, QStringLiteral("[empty]"));
}

TEST_F(Reminders, AMissingIconFileIsReportedAndNothingIsMade) {
    const QString gone = QDir(t.programDir()).filePath(QStringLiteral("nothere.gif"));
    EXPECT_FALSE(AddReminder(ws(), 0, 0, QStringLiteral("x"), QStringLiteral("Jan-1-2026"),
                             QStringLiteral("12:05 PM"), gone));
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text,
              QStringLiteral("Can't find: ") + gone + QStringLiteral(". Please reinstall the program."));
    EXPECT_EQ(t.platform.messages[0].title, QStringLiteral("Add Reminder"));
    EXPECT_EQ(t.platform.messages[0].style, 4144);
    EXPECT_EQ(ws().DeskObjectCount, 0);
    // No date: nothing, and nothing said.
    EXPECT_FALSE(AddReminder(ws(), 0, 0, QStringLiteral("x"), QString(), QStringLiteral("12:05 PM"), Icon()));
    EXPECT_EQ(ws().DeskObjectCount, 0);
    EXPECT_EQ(t.platform.messages.size(), 1u);
}

// --- the check ---

TEST_F(Reminders, DueAtTheFirstTickAtOrAfterItsMinute) {
    Add("Jan-1-2026", "12:05 PM");
    ws().TimerHide.setEnabled(true);
    AdvanceTo(kStart.addSecs(4 * 60 + 59));
    EXPECT_EQ(Fired(), 0) << "12:04:59 is the minute before";
    EXPECT_EQ(Sounds(), 0);
    t.clock.advance(1000);
    EXPECT_EQ(ws().clock.now(), kStart.addSecs(5 * 60));
    EXPECT_EQ(Fired(), 1) << "the tick of 12:05:00 rings it";
    EXPECT_EQ(Sounds(), 1);
    t.clock.advance(60000);
    EXPECT_EQ(Fired(), 1) << "a reminder rings once";
    EXPECT_EQ(Sounds(), 1);
}

TEST_F(Reminders, APastReminderRingsAtTheFirstTickAfterTheStart) {
    Add("Dec-24-2025", "08:05 PM");
    ws().TimerHide.setEnabled(true);
    t.clock.advance(999);
    EXPECT_EQ(Fired(), 0);
    t.clock.advance(1);
    EXPECT_EQ(Fired(), 1);
}

TEST_F(Reminders, TwoDueInTheSameSecondRingOnePerTickInIndexOrder) {
    Add("Jan-1-2026", "12:03 PM", "second", 900, 900);
    const int other = Add("Jan-1-2026", "12:01 PM", "first");
    const int third = Add("Jan-1-2026", "12:01 PM", "third");
    ws().TimerHide.setEnabled(true);
    AdvanceTo(kStart.addSecs(60));
    ASSERT_EQ(Fired(), 1);
    EXPECT_EQ(desk().Alarms[0]->lblCurPic, QString::number(other));
    t.clock.advance(1000);
    ASSERT_EQ(Fired(), 2);
    EXPECT_EQ(desk().Alarms[1]->lblCurPic, QString::number(third));
    EXPECT_TRUE(ws().RemindersPresent) << "the 12:03 reminder still waits";
    AdvanceTo(kStart.addSecs(180));
    ASSERT_EQ(Fired(), 3);
    EXPECT_EQ(desk().Alarms[2]->lblCurPic, QStringLiteral("0"));
    EXPECT_FALSE(ws().RemindersPresent);
}

TEST_F(Reminders, NoCheckRunsWhileTheHeartbeatIsHeldByADialog) {
    Add("Jan-1-2026", "12:01 PM");
    ws().TimerHide.setEnabled(false);
    AdvanceTo(kStart.addSecs(120));
    EXPECT_EQ(Fired(), 0);
    ws().TimerHide.setEnabled(true);
    t.clock.advance(1000);
    EXPECT_EQ(Fired(), 1);
}

TEST_F(Reminders, AStoredMomentThatDoesNotReadStopsThePassUntilTheNextTick) {
    Add("Jan-1-2026", "12:01 PM");
    ws().DeskObjects[0].Date = QStringLiteral("Feb-30-2026");
    Add("Jan-1-2026", "12:01 PM");
    ws().TimerHide.setEnabled(true);
    AdvanceTo(kStart.addSecs(120));
    EXPECT_EQ(Fired(), 0);
    ws().DeskObjects[0].Date = QStringLiteral("Jan-2-2026");
    t.clock.advance(1000);
    ASSERT_EQ(Fired(), 1);
    EXPECT_EQ(desk().Alarms[0]->lblCurPic, QStringLiteral("1"));
}

// --- firing ---

TEST_F(Reminders, FiringShowsTheAlarmAtTheLowerRightFadingInAndTakesTheIconAway) {
    const int j = Add("Jan-1-2026", "12:01 PM", "Call Bob", 600, 900, 1);
    ws().TimerHide.setEnabled(true);
    AdvanceTo(kStart.addSecs(60));
    ASSERT_EQ(Fired(), 1);
    ShowReminderForm& a = *desk().Alarms[0];
    EXPECT_EQ(t.platform.sounds.back(), ws().programFile(QStringLiteral("alarm.wav")));
    EXPECT_TRUE(a.Loaded);
    EXPECT_TRUE(a.Visible);
    EXPECT_EQ(a.Caption, QStringLiteral("Perchdock Reminder"));
    EXPECT_EQ(a.lblTitle, QStringLiteral("Jan-1-2026 12:01 PM"));
    EXPECT_EQ(a.txtReminder, QStringLiteral("Call Bob"));
    EXPECT_EQ(a.BackColor, 0xFF0000);
    EXPECT_EQ(a.ForeColor, 0xFFFFFF);
    EXPECT_EQ(a.Left, t.platform.screenW - a.Width - 200);
    EXPECT_EQ(a.Top, t.platform.screenH - a.Height - 700);
    EXPECT_FALSE(ws().picTemp(j).Visible.get()) << "the icon left the workspace";
    EXPECT_FALSE(ws().RemindersPresent);
    EXPECT_EQ(ws().DeskObjects[j].Date, QStringLiteral("Jan-1-2026")) << "the record stays";
    EXPECT_NE(std::find(ws().TopmostWindows.begin(), ws().TopmostWindows.end(), a.Name),
              ws().TopmostWindows.end());
    // Fully transparent first, then 12.8 more each 20 ms: 20 steps, about 400 ms, to 255.
    EXPECT_EQ(t.platform.alpha[a.Name], 0);
    EXPECT_TRUE(desk().FadeInReminder.Enabled());
    t.clock.advance(20);
    EXPECT_EQ(t.platform.alpha[a.Name], 13);
    t.clock.advance(20);
    EXPECT_EQ(t.platform.alpha[a.Name], 26);
    t.clock.advance(17 * 20);
    EXPECT_EQ(t.platform.alpha[a.Name], 247);
    EXPECT_TRUE(desk().FadeInReminder.Enabled());
    t.clock.advance(20);
    EXPECT_EQ(t.platform.alpha[a.Name], 255);
    EXPECT_FALSE(desk().FadeInReminder.Enabled());
    EXPECT_EQ(desk().FadeAlpha, 0);
}

TEST_F(Reminders, TheAlarmWindowTakesTheColourRowOfItsIcon) {
    const int32_t backs[] = {65535, 0xFF0000, 65280, 255};
    const int32_t texts[] = {0, 0xFFFFFF, 0, 0xFFFFFF};
    for (int n = 0; n < 4; ++n) {
        const int j = Add("Jan-1-2026", "12:05 PM", "x", 0, 0, n);
        ShowReminderForm w(ws());
        SetReminderColors(ws(), j, w);
        EXPECT_EQ(w.BackColor, backs[n]) << n;
        EXPECT_EQ(w.ForeColor, texts[n]) << n;
    }
}

// --- the alarm window's buttons ---

TEST_F(Reminders, DismissClosesTheAlarmAndTheReminderIsGone) {
    Add("Jan-1-2026", "12:01 PM");
    ws().TimerHide.setEnabled(true);
    AdvanceTo(kStart.addSecs(60));
    ASSERT_EQ(Fired(), 1);
    auto keep = desk().Alarms[0];
    keep->cmdOK_Click();
    EXPECT_FALSE(keep->Loaded);
    EXPECT_EQ(Fired(), 0);
    SaveDesktop(ws(), false, true);
    EXPECT_FALSE(t.readData(QStringLiteral("Perchdock.ini")).contains("[Reminder]"));
}

TEST_F(Reminders, SnoozePutsTheIconBackWhereItWasFiveMinutesOn) {
    const int j = Add("Jan-1-2026", "12:01 PM", "Call Bob", 1200, 2400, 2);
    ws().TimerHide.setEnabled(true);
    AdvanceTo(kStart.addSecs(60 + 30));
    ASSERT_EQ(Fired(), 1);
    auto keep = desk().Alarms[0];
    keep->cmdSnooze_Click();
    EXPECT_FALSE(keep->Loaded);
    const int k = ws().DeskObjectCount - 1;
    ASSERT_NE(k, j);
    EXPECT_EQ(ws().DeskObjects[k].Date, QStringLiteral("Jan/01/2026"));
    EXPECT_EQ(ws().DeskObjects[k].Time, QStringLiteral("12:06 PM"));
    EXPECT_EQ(ws().DeskObjects[k].Note, QStringLiteral("Call Bob"));
    EXPECT_EQ(ws().DeskObjects[k].PicPath, Icon(2));
    EXPECT_TRUE(ws().picTemp(k).Visible.get());
    EXPECT_EQ(ws().picTemp(k).Left.get(), 1200.0f);
    EXPECT_EQ(ws().picTemp(k).Top.get(), 2400.0f);
    EXPECT_TRUE(ws().RemindersPresent);
    // It rings again at 12:06:00.
    AdvanceTo(QDateTime(kStart.date(), QTime(12, 5, 59)));
    EXPECT_EQ(Fired(), 0);
    t.clock.advance(1000);
    EXPECT_EQ(Fired(), 1);
}

TEST_F(Reminders, SnoozeOverMidnightAndTheYearsEndGivesTheRightDate) {
    Add("Dec-31-2026", "11:58 PM");
    AdvanceTo(QDateTime(QDate(2026, 12, 31), QTime(23, 57, 50)));
    ws().TimerHide.setEnabled(true);
    AdvanceTo(QDateTime(QDate(2026, 12, 31), QTime(23, 58)));
    ASSERT_EQ(Fired(), 1);
    desk().Alarms[0]->cmdSnooze_Click();
    const int k = ws().DeskObjectCount - 1;
    EXPECT_EQ(ws().DeskObjects[k].Date, QStringLiteral("Jan/01/2027"));
    EXPECT_EQ(ws().DeskObjects[k].Time, QStringLiteral("12:03 AM"));
}

TEST_F(Reminders, SnoozeOverAMonthsEndGivesTheRightDate) {
    Add("Feb-28-2026", "11:57 PM");
    AdvanceTo(QDateTime(QDate(2026, 2, 28), QTime(23, 56, 59)));
    ws().TimerHide.setEnabled(true);
    AdvanceTo(QDateTime(QDate(2026, 2, 28), QTime(23, 57)));
    ASSERT_EQ(Fired(), 1);
    desk().Alarms[0]->cmdSnooze_Click();
    const int k = ws().DeskObjectCount - 1;
    EXPECT_EQ(ws().DeskObjects[k].Date, QStringLiteral("Mar/01/2026"));
    EXPECT_EQ(ws().DeskObjects[k].Time, QStringLiteral("12:02 AM"));
}

TEST_F(Reminders, OpenShowsTheDialogWithTheNoteAndColourAndDoneMakesANewReminder) {
    Add("Jan-1-2026", "12:01 PM", "Call Bob", 1200, 2400, 1);
    ws().TimerHide.setEnabled(true);
    AdvanceTo(kStart.addSecs(60));
    ASSERT_EQ(Fired(), 1);
    auto keep = desk().Alarms[0];
    int shown = 0;
    desk().showReminderForm = [&](ReminderForm& f) {
        ++shown;
        EXPECT_FALSE(keep->Visible) << "the alarm hides first";
        EXPECT_EQ(f.txtReminder, QStringLiteral("Call Bob"));
        EXPECT_EQ(f.OptAlarmGif, 1);
        EXPECT_EQ(f.TextBackColor, 0xFF0000);
        EXPECT_EQ(ws().DropX, 1200.0f);
        f.OKButton_Click();
    };
    keep->cmdEdit_Click();
    EXPECT_EQ(shown, 1);
    EXPECT_FALSE(keep->Loaded);
    const int k = ws().DeskObjectCount - 1;
    EXPECT_EQ(ws().DeskObjects[k].Note, QStringLiteral("Call Bob"));
    EXPECT_EQ(ws().DeskObjects[k].PicPath, Icon(1));
    EXPECT_EQ(ws().DeskObjects[k].Date, QStringLiteral("Jan-1-2026"));
    EXPECT_EQ(ws().DeskObjects[k].Time, QStringLiteral("12:06 PM")) << "the dialog opens at now + 5 minutes";
    EXPECT_EQ(ws().picTemp(k).Left.get(), 1200.0f);
}

// --- the dialog ---

TEST_F(Reminders, TheDialogOpensAtNowPlusFiveMinutesWithItsLists) {
    AdvanceTo(QDateTime(QDate(2026, 1, 1), QTime(23, 57, 10)));
    ReminderForm f(ws());
    f.Load();
    EXPECT_EQ(f.Caption, QStringLiteral("Reminder"));
    EXPECT_EQ(f.cboMonth, QStringLiteral("Jan"));
    EXPECT_EQ(f.cboDay, QStringLiteral("2"));
    EXPECT_EQ(f.cboYear, QStringLiteral("2026"));
    EXPECT_EQ(f.cboHour, QStringLiteral("12"));
    EXPECT_EQ(f.cboMinute, QStringLiteral("02"));
    EXPECT_EQ(f.cboAMPM, QStringLiteral("AM"));
    EXPECT_EQ(f.MinuteList.size(), 60);
    EXPECT_EQ(f.MinuteList.front(), QStringLiteral("00"));
    EXPECT_EQ(f.MinuteList.back(), QStringLiteral("59"));
    EXPECT_EQ(f.YearList.front(), QStringLiteral("2006"));
    EXPECT_TRUE(f.YearList.contains(QStringLiteral("2015")));
    EXPECT_TRUE(f.YearList.contains(QStringLiteral("2027"))) << "the list reaches past this year";
    EXPECT_EQ(f.DayList.size(), 31);
    EXPECT_EQ(f.OptAlarmGif, 0);
    EXPECT_EQ(f.TextBackColor, 65535);
    EXPECT_EQ(f.TextForeColor, 0);
}

TEST_F(Reminders, DoneAddsTheReminderAtTheDropPlace) {
    ws().DropX = 3000;
    ws().DropY = 1500;
    ReminderForm f(ws());
    f.Load();
    f.cboMonth = QStringLiteral("Jan");
    f.cboDay = QStringLiteral("1");
    f.cboYear = QStringLiteral("2026");
    f.cboHour = QStringLiteral("1");
    f.cboMinute = QStringLiteral("05");
    f.cboAMPM = QStringLiteral("pm");
    f.txtReminder = QStringLiteral("  Lunch  ");
    f.ChooseColor(3);
    f.OKButton_Click();
    EXPECT_FALSE(f.Loaded);
    ASSERT_EQ(ws().DeskObjectCount, 1);
    EXPECT_EQ(ws().DeskObjects[0].Date, QStringLiteral("Jan-1-2026"));
    EXPECT_EQ(ws().DeskObjects[0].Time, QStringLiteral("01:05 PM"));
    EXPECT_EQ(ws().DeskObjects[0].Note, QStringLiteral("Lunch"));
    EXPECT_EQ(ws().DeskObjects[0].PicPath, Icon(3));
    EXPECT_EQ(ws().picTemp(0).Left.get(), 3000.0f);
    EXPECT_EQ(ws().picTemp(0).Top.get(), 1500.0f);
}

TEST_F(Reminders, ThePresentMinuteIsRejectedAsPast) {
    AdvanceTo(kStart.addSecs(30));
    ReminderForm f(ws());
    f.Load();
    f.cboHour = QStringLiteral("12");
    f.cboMinute = QStringLiteral("00");
    f.cboAMPM = QStringLiteral("PM");
    f.cboDay = QStringLiteral("1");
    f.OKButton_Click();
    EXPECT_TRUE(f.Loaded) << "the dialog stays open";
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Can't schedule a reminder for the past..."));
    EXPECT_EQ(t.platform.messages[0].title, QStringLiteral("Invalid Date/Time"));
    EXPECT_EQ(t.platform.messages[0].style, 4144);
    EXPECT_EQ(ws().DeskObjectCount, 0);
    // The next minute is the future.
    f.cboMinute = QStringLiteral("01");
    f.OKButton_Click();
    EXPECT_FALSE(f.Loaded);
    EXPECT_EQ(ws().DeskObjectCount, 1);
}

TEST_F(Reminders, AnImpossibleDateSaysInvalidDateAndStaysOpen) {
    ReminderForm f(ws());
    f.Load();
    f.cboMonth = QStringLiteral("Feb");
    f.cboDay = QStringLiteral("30");
    f.cboYear = QStringLiteral("2029");
    f.OKButton_Click();
    EXPECT_TRUE(f.Loaded);
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Invalid Date!"));
    EXPECT_EQ(ws().DeskObjectCount, 0);
}

TEST_F(Reminders, AYearOutsideTheListIsAcceptedAsTyped) {
    ReminderForm f(ws());
    f.Load();
    f.cboYear = QStringLiteral("2041");
    f.DaysInMonth();
    f.OKButton_Click();
    EXPECT_FALSE(f.Loaded);
    ASSERT_EQ(ws().DeskObjectCount, 1);
    EXPECT_TRUE(ws().DeskObjects[0].Date.endsWith(QLatin1String("-2041")));
    f.Load();
    f.cboYear = QStringLiteral("20x1");
    f.OKButton_Click();
    EXPECT_TRUE(f.Loaded);
    EXPECT_EQ(t.platform.messages.back().text, QStringLiteral("Invalid Date!"));
}

TEST_F(Reminders, TenMinutesMoreOrLessCrossHoursDaysAndTheHalfDay) {
    ReminderForm f(ws());
    f.Load();
    f.cboMonth = QStringLiteral("Dec");
    f.cboDay = QStringLiteral("31");
    f.cboYear = QStringLiteral("2026");
    f.cboHour = QStringLiteral("11");
    f.cboMinute = QStringLiteral("55");
    f.cboAMPM = QStringLiteral("PM");
    f.cmdPlusTen_Click();
    EXPECT_EQ(f.cboMonth, QStringLiteral("Jan"));
    EXPECT_EQ(f.cboDay, QStringLiteral("1"));
    EXPECT_EQ(f.cboYear, QStringLiteral("2027"));
    EXPECT_EQ(f.cboHour, QStringLiteral("12"));
    EXPECT_EQ(f.cboMinute, QStringLiteral("05"));
    EXPECT_EQ(f.cboAMPM, QStringLiteral("AM"));
    f.Command1_Click();
    EXPECT_EQ(f.cboDay, QStringLiteral("31"));
    EXPECT_EQ(f.cboHour, QStringLiteral("11"));
    EXPECT_EQ(f.cboMinute, QStringLiteral("55"));
    EXPECT_EQ(f.cboAMPM, QStringLiteral("PM"));
    f.cboHour = QStringLiteral("12");
    f.cboMinute = QStringLiteral("05");
    f.Command1_Click();
    EXPECT_EQ(f.cboHour, QStringLiteral("11"));
    EXPECT_EQ(f.cboMinute, QStringLiteral("55"));
    EXPECT_EQ(f.cboAMPM, QStringLiteral("AM"));
}

TEST_F(Reminders, January31MovedToFebruaryBecomesItsLastDayAndDoesNotComeBack) {
    ReminderForm f(ws());
    f.Load();
    f.cboMonth = QStringLiteral("Jan");
    f.cboYear = QStringLiteral("2027");
    f.cboDay = QStringLiteral("31");
    f.DaysInMonth();
    EXPECT_EQ(f.DayList.size(), 31);
    f.cboMonth = QStringLiteral("Feb");
    f.DaysInMonth();
    EXPECT_EQ(f.DayList.size(), 28);
    EXPECT_EQ(f.DayList.back(), QStringLiteral("28"));
    EXPECT_EQ(f.cboDay, QStringLiteral("28"));
    f.cboMonth = QStringLiteral("Jan");
    f.DaysInMonth();
    EXPECT_EQ(f.cboDay, QStringLiteral("28"));
    // In a leap year February has 29.
    f.cboDay = QStringLiteral("31");
    f.cboMonth = QStringLiteral("Feb");
    f.cboYear = QStringLiteral("2028");
    f.DaysInMonth();
    EXPECT_EQ(f.cboDay, QStringLiteral("29"));
    EXPECT_EQ(f.DayList.size(), 29);
    // April has 30; a day within the month stays.
    f.cboDay = QStringLiteral("15");
    f.cboMonth = QStringLiteral("Apr");
    f.DaysInMonth();
    EXPECT_EQ(f.DayList.size(), 30);
    EXPECT_EQ(f.cboDay, QStringLiteral("15"));
}

TEST_F(Reminders, ATypedMonthOrYearRefillsTheDaysAndLeavesTheDay) {
    ReminderForm f(ws());
    f.Load();
    f.cboMonth = QStringLiteral("Feb");
    f.cboYear = QStringLiteral("2031");
    f.cboDay = QStringLiteral("30");
    f.RefreshDayList();
    EXPECT_EQ(f.DayList.size(), 28);
    EXPECT_EQ(f.cboDay, QStringLiteral("30"));
    // Years past the list's end read as typed.
    f.cboYear = QStringLiteral("2032");
    f.RefreshDayList();
    EXPECT_EQ(f.DayList.size(), 29);
    // What does not read leaves the list alone.
    f.cboMonth = QStringLiteral("Fe");
    f.RefreshDayList();
    EXPECT_EQ(f.DayList.size(), 29);
}

TEST_F(Reminders, ClearAsksWhenDeletionsAreConfirmed) {
    ReminderForm f(ws());
    f.Load();
    t.platform.answers = {MsgAnswer::No};
    f.CancelButton_Click();
    EXPECT_TRUE(f.Loaded);
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Are you sure you want to clear the reminder?"));
    EXPECT_EQ(t.platform.messages[0].style, 4148);
    t.platform.answers = {MsgAnswer::Yes};
    f.CancelButton_Click();
    EXPECT_FALSE(f.Loaded);
    ws().ConfirmDelete = false;
    f.Load();
    f.CancelButton_Click();
    EXPECT_FALSE(f.Loaded);
    EXPECT_EQ(t.platform.messages.size(), 2u);
    EXPECT_EQ(ws().DeskObjectCount, 0);
}

// --- the menus ---

TEST_F(Reminders, CtrlRShowsTheDialogUnderAHeldHeartbeat) {
    ws().TimerHide.setEnabled(true);
    ws().DropX = 2000;
    ws().DropY = 700;
    bool heldDuring = false;
    desk().showReminderForm = [&](ReminderForm& f) {
        heldDuring = !ws().TimerHide.Enabled();
        f.OKButton_Click();
    };
    ws().menus["mnuAddReminder"].Click();
    EXPECT_TRUE(heldDuring);
    EXPECT_TRUE(ws().TimerHide.Enabled());
    ASSERT_EQ(ws().DeskObjectCount, 1);
    EXPECT_EQ(ws().picTemp(0).Left.get(), 2000.0f);
    EXPECT_EQ(ws().menus["mnuAddReminder"].Shortcut(), QStringLiteral("Ctrl+R"));
}

TEST_F(Reminders, EditingReplacesTheReminderOrClearsIt) {
    const int j = Add("Jan-2-2026", "08:05 PM", "Dentist", 1500, 600, 2);
    ws().SelectedDeskObject = static_cast<int16_t>(j);
    desk().showReminderForm = [&](ReminderForm& f) {
        EXPECT_EQ(f.cboMonth, QStringLiteral("Jan"));
        EXPECT_EQ(f.cboDay, QStringLiteral("2"));
        EXPECT_EQ(f.cboHour, QStringLiteral("8"));
        EXPECT_EQ(f.cboMinute, QStringLiteral("05"));
        EXPECT_EQ(f.cboAMPM, QStringLiteral("PM"));
        EXPECT_EQ(f.OptAlarmGif, 2);
        EXPECT_EQ(f.txtReminder, QStringLiteral("Dentist"));
        f.cboMinute = QStringLiteral("30");
        f.OKButton_Click();
    };
    ws().menus["mnuReminderEdit"].Click();
    EXPECT_FALSE(ws().picTemp(j).Visible.get()) << "the old one goes";
    const int k = ws().DeskObjectCount - 1;
    EXPECT_EQ(ws().DeskObjects[k].Time, QStringLiteral("08:30 PM"));
    EXPECT_EQ(ws().picTemp(k).Left.get(), 1500.0f);
    EXPECT_EQ(ws().picTemp(k).Top.get(), 600.0f);
    EXPECT_TRUE(ws().RemindersPresent);
    // Opened and cleared: gone.
    ws().SelectedDeskObject = static_cast<int16_t>(k);
    ws().ConfirmDelete = false;
    desk().showReminderForm = [](ReminderForm& f) { f.CancelButton_Click(); };
    ws().menus["mnuReminderEdit"].Click();
    EXPECT_FALSE(ws().picTemp(k).Visible.get());
    EXPECT_FALSE(ws().RemindersPresent);
}

TEST_F(Reminders, ClearRemindersAsksAndTakesAllAway) {
    Add("Jan-2-2026", "08:05 PM");
    Add("Jan-3-2026", "08:05 PM");
    t.platform.answers = {MsgAnswer::No};
    ws().menus["mnuRemindersDelete"].Click();
    EXPECT_TRUE(ws().RemindersPresent);
    EXPECT_EQ(t.platform.messages.back().text,
              QStringLiteral("Are you sure you want to clear all reminders?"));
    EXPECT_EQ(t.platform.messages.back().style, 4148);
    t.platform.answers = {MsgAnswer::Yes};
    ws().menus["mnuRemindersDelete"].Click();
    EXPECT_FALSE(ws().RemindersPresent);
    EXPECT_FALSE(ws().picTemp(0).Visible.get());
    EXPECT_FALSE(ws().picTemp(1).Visible.get());
    EXPECT_EQ(ws().menus["mnuRemindersDelete"].Caption(), QStringLiteral("&Clear Reminders"));
}

TEST_F(Reminders, DeletingAReminderAsksDeleteReminderAPictureNot) {
    const int j = Add("Jan-2-2026", "08:05 PM");
    ws().SelectedDeskObject = static_cast<int16_t>(j);
    t.platform.answers = {MsgAnswer::No};
    ws().menus["mnuPicDelete"].Click();
    EXPECT_TRUE(ws().picTemp(j).Visible.get());
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Delete Reminder?"));
    EXPECT_EQ(t.platform.messages[0].title, QStringLiteral("Delete"));
    EXPECT_EQ(t.platform.messages[0].style, 4148);
    t.platform.answers = {MsgAnswer::Yes};
    ws().menus["mnuPicDelete"].Click();
    EXPECT_FALSE(ws().picTemp(j).Visible.get());
    EXPECT_FALSE(ws().RemindersPresent);
    // Without confirmation no question.
    const int k = Add("Jan-2-2026", "08:05 PM");
    ws().ConfirmDelete = false;
    ws().SelectedDeskObject = static_cast<int16_t>(k);
    ws().menus["mnuPicDelete"].Click();
    EXPECT_FALSE(ws().picTemp(k).Visible.get());
    EXPECT_EQ(t.platform.messages.size(), 2u);
}

// --- the workspace file ---

TEST_F(Reminders, AReminderSurvivesASaveAndALoad) {
    Add("Jan-2-2026", "08:05 PM", "Line one\r\nLine two", 1500, 600, 1);
    Add("Jan/03/2026", "09:00 AM", "", 300, 3300, 3);
    SaveDesktop(ws(), false, true);
    const QByteArray file = t.readData(QStringLiteral("Perchdock.ini"));
    EXPECT_TRUE(file.contains(
        CrLf({"[Reminder]", "[PicX]", " 1500 ", "[PicY]", " 600 ", "[Date]", "Jan-2-2026", "[Time]",
              "08:05 PM", "[Note]", "Line one", "Line two", "[END Note]", "[PicPath]"})))
        << file.toStdString();
    t.restart();
    t.start();
    WireCoreCommands(ws());
    ASSERT_EQ(ws().DeskObjectCount, 2);
    const DeskObjectRecord& a = ws().DeskObjects[0];
    EXPECT_TRUE(a.IsReminder);
    EXPECT_EQ(a.Date, QStringLiteral("Jan-2-2026"));
    EXPECT_EQ(a.Time, QStringLiteral("08:05 PM"));
    EXPECT_EQ(a.Note, QStringLiteral("Line one\r\nLine two"));
    EXPECT_EQ(a.PicPath, Icon(1));
    EXPECT_EQ(ws().picTemp(0).Left.get(), 1500.0f);
    EXPECT_EQ(ws().picTemp(0).Top.get(), 600.0f);
    EXPECT_EQ(ws().DeskObjects[1].Date, QStringLiteral("Jan/03/2026"));
    EXPECT_EQ(ws().DeskObjects[1].Note, QStringLiteral("[empty]"));
    EXPECT_EQ(ws().DeskObjects[1].PicPath, Icon(3));
    EXPECT_TRUE(ws().RemindersPresent);
    // And the same bytes again.
    SaveDesktop(ws(), false, true);
    EXPECT_EQ(t.readData(QStringLiteral("Perchdock.ini")), file);
}

// Each version's reminder record: 1.03 to 1.05 with a note of several lines, "[END Note]" and the
// icon's path; 1.02, 1.01 and unknown markers with a one-line note and the yellow icon.
class ReminderRecordVersions : public Reminders, public ::testing::WithParamInterface<const char*> {};

TEST_P(ReminderRecordVersions, LoadAsTheirVersionSays) {
    const QString version = QString::fromLatin1(GetParam());
    const bool full = version == QLatin1String("[1.03]") || version == QLatin1String("[1.04]") ||
                      version == QLatin1String("[1.05]");
    QByteArray file = version.toLatin1() + "\r\n";
    if (full) {
        file += CrLf({"[Reminder]", "[PicX]", "1500", "[PicY]", "600", "[Date]", "Dec-25-2026", "[Time]",
                      "08:05 PM", "[Note]", "", "Buy presents", "  for all", "", "[END Note]", "[PicPath]"});
        file += Icon(2).toUtf8() + "\r\n";
        file += CrLf({"TEMP", "TEMP", "TEMP", "TEMP"});
    } else {
        file += CrLf({"[Reminder]", "[PicX]", "1500", "[PicY]", "600", "[Date]", "Dec/25/2026", "[Time]",
                      "08:05 PM", "[Note]", "Buy presents", "TEMP", "TEMP", "TEMP", "TEMP"});
    }
    file += CrLf({"[Reminder]", "[PicX]", "30", "[PicY]", "40", "[Date]", "Dec-26-2026", "[Time]", "09:00 AM",
                  "[Note]", "Second"});
    if (full) file += CrLf({"[END Note]", "[PicPath]"}) + Icon(0).toUtf8() + "\r\n";
    t.restart();
    t.writeData(QStringLiteral("Perchdock.ini"), file);
    t.start();
    WireCoreCommands(ws());
    ASSERT_EQ(ws().DeskObjectCount, 2) << file.toStdString();
    const DeskObjectRecord& r = ws().DeskObjects[0];
    EXPECT_TRUE(r.IsReminder);
    EXPECT_EQ(r.Time, QStringLiteral("08:05 PM"));
    EXPECT_EQ(ws().picTemp(0).Left.get(), 1500.0f);
    EXPECT_EQ(ws().picTemp(0).Top.get(), 600.0f);
    if (full) {
        EXPECT_EQ(r.Date, QStringLiteral("Dec-25-2026"));
        EXPECT_EQ(r.Note, QStringLiteral("Buy presents\r\n  for all"));
        EXPECT_EQ(r.PicPath, Icon(2));
    } else {
        EXPECT_EQ(r.Date, QStringLiteral("Dec/25/2026"));
        EXPECT_EQ(r.Note, QStringLiteral("Buy presents"));
        EXPECT_EQ(r.PicPath, Icon(0)) << "the yellow clock beside the program";
    }
    EXPECT_EQ(ws().DeskObjects[1].Note, QStringLiteral("Second"));
    EXPECT_EQ(ws().picTemp(1).Left.get(), 30.0f);
    EXPECT_TRUE(ws().RemindersPresent);
    // The first rings at its time through the heartbeat.
    AdvanceTo(QDateTime(QDate(2026, 12, 25), QTime(20, 4, 58)));
    ws().TimerHide.setEnabled(true);
    AdvanceTo(QDateTime(QDate(2026, 12, 25), QTime(20, 5)));
    EXPECT_EQ(Fired(), 1);
    // The next save writes the present format, which loads back the same.
    SaveDesktop(ws(), false, true);
    const QByteArray saved = t.readData(QStringLiteral("Perchdock.ini"));
    EXPECT_TRUE(saved.startsWith("[1.05]\r\n"));
    EXPECT_TRUE(saved.contains(
        CrLf({"[Date]", "Dec-26-2026", "[Time]", "09:00 AM", "[Note]", "Second", "[END Note]"})));
    EXPECT_FALSE(saved.contains("Buy presents")) << "the rung reminder is not saved";
}

INSTANTIATE_TEST_SUITE_P(AllVersions, ReminderRecordVersions,
                         ::testing::Values("[1.05]", "[1.04]", "[1.03]", "[1.02]", "[1.01]", "[0.9]"));

} // namespace
