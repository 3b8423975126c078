// The reminder windows on the offscreen platform: the dialog's controls and texts, Done adding a
// reminder, Clear and the past moment; the alarm window at the lower right, its fade on the hand clock,
// Snooze putting the icon back and Dismiss closing it.

#include "app/MainWindow.h"
#include "desk/DeskState.h"
#include "desk/ReminderForm.h"
#include "desk/Reminders.h"
#include "desk/ShowReminder.h"
#include "support/TestWorkspace.h"
#include "view/ReminderWindows.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

namespace {

const QDateTime kStart(QDate(2026, 1, 1), QTime(12, 0));

struct ReminderWindowsTest : ::testing::Test {
    TestWorkspace t;
    std::map<QString, QWidget*> registered;
    ReminderWindowsTest() {
        for (int n = 0; n < kReminderColors; ++n) {
            const QString path = QDir(t.programDir()).filePath(ReminderIconFile(n));
            QFile f(path);
            if (f.open(QIODevice::WriteOnly)) f.write("GIF89a");
            t.platform.images[path] = QSize(32, 32);
        }
        t.start();
        WireCoreCommands(*t.ws);
        t.ws->frmMain(0).Move(1500, 1500, 10065, 5265);
        InstallReminderWindows(*t.ws, t.programDir(),
                               [this](const QString& name, QWidget* w) { registered[name] = w; });
    }
    Workspace& ws() { return *t.ws; }
    // Runs `step` on the dialog once it is up (it is modal).
    void WhenDialogShows(std::function<void(QDialog&)> step) {
        QTimer::singleShot(0, [step] {
            for (QWidget* w : QApplication::topLevelWidgets()) {
                if (w->objectName() == QLatin1String("frmReminder") && w->isVisible()) {
                    step(*static_cast<QDialog*>(w));
                    return;
                }
            }
            ADD_FAILURE() << "no dialog";
        });
    }
};

TEST_F(ReminderWindowsTest, TheDialogHasItsControlsAndDoneAddsTheReminder) {
    ws().DropX = 2400;
    ws().DropY = 1200;
    bool checked = false;
    WhenDialogShows([&](QDialog& d) {
        checked = true;
        EXPECT_EQ(d.windowTitle(), QStringLiteral("Reminder"));
        auto* month = d.findChild<QComboBox*>(QStringLiteral("cboMonth"));
        auto* minute = d.findChild<QComboBox*>(QStringLiteral("cboMinute"));
        auto* day = d.findChild<QComboBox*>(QStringLiteral("cboDay"));
        auto* year = d.findChild<QComboBox*>(QStringLiteral("cboYear"));
        ASSERT_TRUE(month && minute && day && year);
        ASSERT_TRUE(d.findChild<QComboBox*>(QStringLiteral("cboHour")));
        ASSERT_TRUE(d.findChild<QComboBox*>(QStringLiteral("cboAMPM")));
        EXPECT_EQ(month->currentText(), QStringLiteral("Jan"));
        EXPECT_EQ(minute->currentText(), QStringLiteral("05"));
        EXPECT_EQ(minute->count(), 60);
        EXPECT_EQ(day->count(), 31);
        EXPECT_TRUE(year->isEditable());
        auto* ok = d.findChild<QPushButton*>(QStringLiteral("OKButton"));
        auto* clear = d.findChild<QPushButton*>(QStringLiteral("CancelButton"));
        auto* plus = d.findChild<QPushButton*>(QStringLiteral("cmdPlusTen"));
        auto* minus = d.findChild<QPushButton*>(QStringLiteral("Command1"));
        ASSERT_TRUE(ok && clear && plus && minus);
        EXPECT_EQ(ok->text(), QStringLiteral("&Done"));
        EXPECT_EQ(clear->text(), QStringLiteral("&Clear"));
        EXPECT_EQ(plus->toolTip(), QStringLiteral("Add 10 Minutes"));
        EXPECT_EQ(minus->toolTip(), QStringLiteral("Subtract 10 Minutes"));
        auto* blue = d.findChild<QRadioButton*>(QStringLiteral("OptAlarmGif_1"));
        ASSERT_TRUE(blue);
        EXPECT_EQ(blue->toolTip(), QStringLiteral("Reminder Color"));
        plus->click();
        EXPECT_EQ(minute->currentText(), QStringLiteral("15"));
        blue->click();
        auto* text = d.findChild<QPlainTextEdit*>(QStringLiteral("txtReminder"));
        ASSERT_TRUE(text);
        EXPECT_EQ(text->palette().color(QPalette::Base), QColor(0, 0, 255));
        text->setPlainText(QStringLiteral("Call Bob"));
        ok->click();
    });
    ws().menus["mnuAddReminder"].Click();
    EXPECT_TRUE(checked);
    ASSERT_EQ(ws().DeskObjectCount, 1);
    EXPECT_EQ(ws().DeskObjects[0].Time, QStringLiteral("12:15 PM"));
    EXPECT_EQ(ws().DeskObjects[0].Note, QStringLiteral("Call Bob"));
    EXPECT_TRUE(ws().DeskObjects[0].PicPath.endsWith(QLatin1String("alarmclockbl.gif")));
    EXPECT_EQ(ws().picTemp(0).Left.get(), 2400.0f);
}

TEST_F(ReminderWindowsTest, ATypedMonthOrYearRefreshesTheDaysButLeavesTheDayAsTyped) {
    ws().ConfirmDelete = false;
    WhenDialogShows([&](QDialog& d) {
        auto* month = d.findChild<QComboBox*>(QStringLiteral("cboMonth"));
        auto* day = d.findChild<QComboBox*>(QStringLiteral("cboDay"));
        auto* year = d.findChild<QComboBox*>(QStringLiteral("cboYear"));
        ASSERT_TRUE(month && day && year);
        // February of a year typed in, leap and not.
        month->setEditText(QStringLiteral("Feb"));
        emit month->lineEdit()->editingFinished();
        EXPECT_EQ(day->count(), 28) << "February 2026";
        year->setEditText(QStringLiteral("2028"));
        emit year->lineEdit()->editingFinished();
        EXPECT_EQ(day->count(), 29);
        // A day typed past the month's end stays as typed, so that Done can still call it invalid.
        day->setEditText(QStringLiteral("31"));
        year->setEditText(QStringLiteral("2029"));
        emit year->lineEdit()->editingFinished();
        EXPECT_EQ(day->count(), 28);
        EXPECT_EQ(day->currentText(), QStringLiteral("31"));
        // A year half typed keeps the list as it was.
        year->setEditText(QStringLiteral("20x"));
        emit year->lineEdit()->editingFinished();
        EXPECT_EQ(day->count(), 28);
        d.findChild<QPushButton*>(QStringLiteral("CancelButton"))->click();
    });
    ws().menus["mnuAddReminder"].Click();
    EXPECT_EQ(ws().DeskObjectCount, 0);
}

TEST_F(ReminderWindowsTest, APastMomentKeepsTheDialogOpenUntilClear) {
    ws().ConfirmDelete = false;
    WhenDialogShows([&](QDialog& d) {
        auto* minus = d.findChild<QPushButton*>(QStringLiteral("Command1"));
        minus->click();
        d.findChild<QPushButton*>(QStringLiteral("OKButton"))->click();
        EXPECT_TRUE(d.isVisible()) << "12:05 - 10 minutes is past";
        ASSERT_FALSE(t.platform.messages.empty());
        EXPECT_EQ(t.platform.messages.back().title, QStringLiteral("Invalid Date/Time"));
        d.findChild<QPushButton*>(QStringLiteral("CancelButton"))->click();
    });
    ws().menus["mnuAddReminder"].Click();
    EXPECT_EQ(ws().DeskObjectCount, 0);
}

TEST_F(ReminderWindowsTest, TheAlarmFadesInAtTheLowerRightAndSnoozePutsTheIconBack) {
    ASSERT_TRUE(AddReminder(ws(), 900, 600, QStringLiteral("Call Bob"), QStringLiteral("Jan-1-2026"),
                            QStringLiteral("12:01 PM"),
                            ws().programFile(QStringLiteral("alarmclockgr.gif"))));
    ws().TimerHide.setEnabled(true);
    t.clock.advance(60000);
    ASSERT_EQ(Desk(ws()).Alarms.size(), 1u);
    const QString name = Desk(ws()).Alarms[0]->Name;
    ASSERT_TRUE(registered.count(name));
    QPointer<QWidget> w = registered[name];
    ASSERT_TRUE(w);
    EXPECT_TRUE(w->isVisible());
    EXPECT_EQ(w->windowTitle(), QStringLiteral("Perchdock Reminder"));
    // Lower right: 200 twips from the right edge and 700 from the bottom of a 1920 by 1080 screen.
    EXPECT_NEAR(w->geometry().right() + 1, 1920 - 200 / 15.0, 1);
    EXPECT_NEAR(w->geometry().bottom() + 1, 1080 - 700 / 15.0, 1);
    auto* title = w->findChild<QLabel*>(QStringLiteral("lblTitle"));
    ASSERT_TRUE(title);
    EXPECT_EQ(title->text(), QStringLiteral("Jan-1-2026 12:01 PM"));
    EXPECT_EQ(w->findChild<QPlainTextEdit*>(QStringLiteral("txtReminder"))->toPlainText(),
              QStringLiteral("Call Bob"));
    EXPECT_EQ(w->findChild<QLabel*>(QStringLiteral("lblCurPic"))->text(), QStringLiteral("0"));
    EXPECT_EQ(w->palette().color(QPalette::Window), QColor(0, 255, 0));
    auto* snooze = w->findChild<QPushButton*>(QStringLiteral("cmdSnooze"));
    ASSERT_TRUE(snooze);
    EXPECT_EQ(snooze->text(), QStringLiteral("&Snooze"));
    EXPECT_EQ(snooze->toolTip(), QStringLiteral("Remind again in 5 minutes"));
    EXPECT_EQ(w->findChild<QPushButton*>(QStringLiteral("cmdEdit"))->text(), QStringLiteral("&Open"));
    EXPECT_EQ(w->findChild<QPushButton*>(QStringLiteral("cmdOK"))->text(), QStringLiteral("&Dismiss"));
    // The fade: transparent, then opaque after 20 ticks of 20 ms.
    EXPECT_EQ(t.platform.alpha[name], 0);
    t.clock.advance(400);
    EXPECT_EQ(t.platform.alpha[name], 255);
    EXPECT_FALSE(ws().picTemp(0).Visible.get());
    snooze->click();
    QApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(!w || !w->isVisible());
    ASSERT_EQ(ws().DeskObjectCount, 2);
    EXPECT_TRUE(ws().picTemp(1).Visible.get());
    EXPECT_EQ(ws().picTemp(1).Left.get(), 900.0f);
    EXPECT_EQ(ws().DeskObjects[1].Time, QStringLiteral("12:06 PM"));
    EXPECT_EQ(ws().DeskObjects[1].Date, QStringLiteral("Jan/01/2026"));
}

TEST_F(ReminderWindowsTest, DismissClosesTheAlarm) {
    ASSERT_TRUE(AddReminder(ws(), 900, 600, QString(), QStringLiteral("Jan-1-2026"),
                            QStringLiteral("12:01 PM"), ws().programFile(QStringLiteral("alarmclock.gif"))));
    ws().TimerHide.setEnabled(true);
    t.clock.advance(60000);
    ASSERT_EQ(Desk(ws()).Alarms.size(), 1u);
    QPointer<QWidget> w = registered[Desk(ws()).Alarms[0]->Name];
    ASSERT_TRUE(w);
    EXPECT_EQ(w->findChild<QPlainTextEdit*>(QStringLiteral("txtReminder"))->toPlainText(),
              QStringLiteral("[empty]"));
    w->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(!w || !w->isVisible());
    EXPECT_TRUE(Desk(ws()).Alarms.empty());
    EXPECT_FALSE(ws().RemindersPresent);
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
