// The recovery file: the question at start after an unclean exit, the saves that write each file, and
// "&Save Workspace" and "&Ignore Changes && Restart".

#include "app/MainWindow.h"
#include "app/Recovery.h"
#include "app/Startup.h"
#include "app/WorkspaceFile.h"
#include "support/TestWorkspace.h"

#include <QCoreApplication>
#include <QFile>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace {

const QString kIni = QStringLiteral("Perchdock.ini");
const QString kRec = QStringLiteral("Perchdock.REC");

// Two workspace files that differ in what they say, so that a test can tell which one was loaded.
const QByteArray kCleanBytes = CrLf({"[1.05]", "[Font Name]", "Clean", "[Align]", "1"});
const QByteArray kRecoveredBytes = CrLf({"[1.05]", "[Font Name]", "Recovered", "[Align]", "0"});

std::string Text(const QByteArray& b) { return b.toStdString(); }

void ExpectTheRecoveryQuestion(const TestWorkspace& t) {
    ASSERT_EQ(t.platform.messages.size(), 1u);
    const ShownMessage& m = t.platform.messages[0];
    EXPECT_EQ(m.title, QStringLiteral("Perchdock - Recover Last Session"));
    EXPECT_EQ(m.text, QStringLiteral("RECOVERY: Perchdock was not closed properly. Load the newer backed-up recovery "
                                     "file?\r\n\r\nThe file name is Perchdock.REC"));
    EXPECT_EQ(m.style, 4148);
}

// Starts as the program does, with the menu commands connected.
void StartProgram(TestWorkspace& t) {
    WireCoreCommands(*t.ws);
    t.start();
}

QString MakeReloader(TestWorkspace& t) {
    const QString path = QDir(t.programDir()).filePath(QStringLiteral("Reloader"));
    QFile f(path);
    if (f.open(QIODevice::WriteOnly)) f.write("#!/bin/sh\n");
    f.close();
    QFile::setPermissions(path, QFile::permissions(path) | QFileDevice::ExeOwner | QFileDevice::ExeUser);
    return path;
}

} // namespace

// --- the states of the files at start ---

TEST(RecoveryAtStart, NoFilesIsAFirstRunWithoutAQuestion) {
    TestWorkspace t;
    t.start();
    EXPECT_TRUE(t.platform.messages.empty());
    EXPECT_EQ(t.ws->LinkFontName, QStringLiteral("Verdana"));
    EXPECT_EQ(t.ws->frmMain(0).Top.get(), -100.0f);
    EXPECT_FALSE(t.dataExists(kIni));
    EXPECT_FALSE(t.dataExists(kRec));
}

TEST(RecoveryAtStart, TheCleanFileAloneLoadsWithoutAQuestion) {
    TestWorkspace t;
    t.writeData(kIni, kCleanBytes);
    t.start();
    EXPECT_TRUE(t.platform.messages.empty());
    EXPECT_EQ(t.ws->LinkFontName, QStringLiteral("Clean"));
    EXPECT_EQ(Text(t.readData(kIni)), Text(kCleanBytes));
}

TEST(RecoveryAtStart, BothFilesAnsweredYesLoadTheRecoveryFileAsTheCleanOne) {
    TestWorkspace t;
    t.writeData(kIni, kCleanBytes);
    t.writeData(kRec, kRecoveredBytes);
    t.platform.answers = {MsgAnswer::Yes};
    t.start();
    ExpectTheRecoveryQuestion(t);
    EXPECT_EQ(t.ws->LinkFontName, QStringLiteral("Recovered"));
    EXPECT_FALSE(t.ws->menus["mnuAlign"].Checked());
    EXPECT_EQ(Text(t.readData(kIni)), Text(kRecoveredBytes));
    EXPECT_FALSE(t.dataExists(kRec));
}

TEST(RecoveryAtStart, BothFilesAnsweredNoLoadTheCleanFileAndDropTheRecoveryFile) {
    TestWorkspace t;
    t.writeData(kIni, kCleanBytes);
    t.writeData(kRec, kRecoveredBytes);
    t.platform.answers = {MsgAnswer::No};
    t.start();
    ExpectTheRecoveryQuestion(t);
    EXPECT_EQ(t.ws->LinkFontName, QStringLiteral("Clean"));
    EXPECT_TRUE(t.ws->menus["mnuAlign"].Checked());
    EXPECT_EQ(Text(t.readData(kIni)), Text(kCleanBytes));
    EXPECT_FALSE(t.dataExists(kRec));

    // The question does not come twice.
    t.restart();
    t.platform.messages.clear();
    t.start();
    EXPECT_TRUE(t.platform.messages.empty());
}

TEST(RecoveryAtStart, TheRecoveryFileAloneAnsweredYesBecomesTheCleanFile) {
    TestWorkspace t;
    t.writeData(kRec, kRecoveredBytes);
    t.platform.answers = {MsgAnswer::Yes};
    t.start();
    ExpectTheRecoveryQuestion(t);
    EXPECT_EQ(t.ws->LinkFontName, QStringLiteral("Recovered"));
    EXPECT_EQ(Text(t.readData(kIni)), Text(kRecoveredBytes));
    EXPECT_FALSE(t.dataExists(kRec));
}

TEST(RecoveryAtStart, TheRecoveryFileAloneAnsweredNoLeavesAFirstRun) {
    TestWorkspace t;
    t.writeData(kRec, kRecoveredBytes);
    t.platform.answers = {MsgAnswer::No};
    t.start();
    ExpectTheRecoveryQuestion(t);
    EXPECT_EQ(t.ws->LinkFontName, QStringLiteral("Verdana"));
    EXPECT_EQ(t.ws->frmMain(0).Top.get(), -100.0f);
    EXPECT_EQ(t.ws->frmMain(0).Width.get(), 10065.0f);
    EXPECT_FALSE(t.dataExists(kIni));
    EXPECT_FALSE(t.dataExists(kRec));
}

// --- which save writes which file ---

TEST(RecoverySaves, ACleanExitLeavesNoRecoveryFile) {
    TestWorkspace t;
    StartProgram(t);
    t.ws->menus["mnuAlign"].Click();
    ASSERT_TRUE(t.dataExists(kRec));
    EXPECT_FALSE(t.dataExists(kIni));
    t.exit();
    EXPECT_TRUE(t.dataExists(kIni));
    EXPECT_FALSE(t.dataExists(kRec));
    EXPECT_TRUE(t.readData(kIni).contains("[Align]\r\n0\r\n"));
}

TEST(RecoverySaves, ASettingToggledFromItsMenuWritesTheRecoveryFileOnly) {
    TestWorkspace t;
    t.writeData(kIni, kCleanBytes);
    StartProgram(t);
    ASSERT_TRUE(t.ws->menus["mnuAlign"].Checked());
    t.ws->menus["mnuAlign"].Click();
    EXPECT_FALSE(t.ws->menus["mnuAlign"].Checked());
    EXPECT_EQ(Text(t.readData(kIni)), Text(kCleanBytes));
    ASSERT_TRUE(t.dataExists(kRec));
    const QByteArray rec = t.readData(kRec);
    EXPECT_TRUE(rec.startsWith("[1.05]\r\n[Hidden]\r\n0\r\n"));
    EXPECT_TRUE(rec.contains("[Align]\r\n0\r\n[Capture]\r\n0\r\n"));
    EXPECT_EQ(Text(rec), Text(WorkspaceFileBytes(*t.ws, false)));

    // Each further toggle rewrites the recovery file.
    t.ws->menus["mnuDeleteConfirmation"].Click();
    EXPECT_FALSE(t.ws->ConfirmDelete);
    EXPECT_FALSE(t.ws->menus["mnuDeleteConfirmation"].Checked());
    EXPECT_TRUE(t.readData(kRec).contains("[ConfirmDelete]\r\n0\r\n"));
    EXPECT_EQ(Text(t.readData(kIni)), Text(kCleanBytes));
}

TEST(RecoverySaves, ACrashAfterAToggleOffersTheChangeAtTheNextStart) {
    TestWorkspace t;
    t.writeData(kIni, kCleanBytes);
    StartProgram(t);
    t.ws->menus["mnuShowTime"].Click();
    // No unload: the process ends without its clean save.
    t.restart();
    t.platform.answers = {MsgAnswer::Yes};
    t.start();
    ExpectTheRecoveryQuestion(t);
    EXPECT_TRUE(t.ws->menus["mnuShowTime"].Checked());
}

TEST(RecoverySaves, NothingIsSavedWhileLoading) {
    TestWorkspace t;
    MainWindowLoad(*t.ws);
    DetermineDataPath(*t.ws);
    ASSERT_TRUE(t.ws->IsLoading);
    SaveDesktop(*t.ws, true, false);
    SaveDesktop(*t.ws, false, true);
    EXPECT_FALSE(t.dataExists(kRec));
    EXPECT_FALSE(t.dataExists(kIni));
}

TEST(RecoverySaves, SaveWorkspaceWritesTheCleanFileAndSaysSo) {
    TestWorkspace t;
    t.writeData(kIni, kCleanBytes);
    StartProgram(t);
    t.ws->TimerHide.setEnabled(true);
    t.ws->menus["mnuAlign"].Click();
    ASSERT_TRUE(t.dataExists(kRec));

    t.ws->menus["mnuSave"].Click();
    EXPECT_FALSE(t.dataExists(kRec));
    const QByteArray ini = t.readData(kIni);
    EXPECT_EQ(Text(ini), Text(WorkspaceFileBytes(*t.ws, false)));
    EXPECT_TRUE(ini.contains("[Align]\r\n0\r\n"));
    EXPECT_TRUE(ini.contains("[Font Name]\r\nClean\r\n"));
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Workspace Saved"));
    EXPECT_EQ(t.platform.messages[0].style, 4160);
    EXPECT_TRUE(t.ws->TimerHide.Enabled());
    // The program goes on.
    EXPECT_FALSE(t.ws->Unloaded);
}

// --- "&Ignore Changes && Restart" ---

TEST(RecoveryReload, AMissingHelperIsReportedAndNothingChanges) {
    TestWorkspace t;
    t.writeData(kIni, kCleanBytes);
    StartProgram(t);
    t.ws->TimerHide.setEnabled(true);
    t.ws->menus["mnuAlign"].Click();
    const QByteArray rec = t.readData(kRec);

    t.ws->menus["mnuReload"].Click();
    ASSERT_EQ(t.platform.messages.size(), 1u);
    const QString helper = QDir(t.programDir()).filePath(QStringLiteral("Reloader"));
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Can't find: ") + helper +
                                               QStringLiteral(". Please reinstall the program."));
    EXPECT_EQ(t.platform.messages[0].style, 4144);
    EXPECT_TRUE(t.platform.started.empty());
    EXPECT_FALSE(t.ws->NoSave);
    EXPECT_FALSE(t.ws->Unloaded);
    EXPECT_TRUE(t.ws->TimerHide.Enabled());
    EXPECT_EQ(Text(t.readData(kRec)), Text(rec));
    EXPECT_EQ(Text(t.readData(kIni)), Text(kCleanBytes));
    // Saves still work.
    t.ws->menus["mnuAlign"].Click();
    EXPECT_TRUE(t.readData(kRec).contains("[Align]\r\n1\r\n"));
}

TEST(RecoveryReload, AHelperThatCannotRunCountsAsMissing) {
    TestWorkspace t;
    StartProgram(t);
    const QString path = QDir(t.programDir()).filePath(QStringLiteral("Reloader"));
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    t.ws->menus["mnuReload"].Click();
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].style, 4144);
    EXPECT_TRUE(t.platform.started.empty());
    EXPECT_FALSE(t.ws->Unloaded);
}

TEST(RecoveryReload, AnsweringNoChangesNothing) {
    TestWorkspace t;
    t.writeData(kIni, kCleanBytes);
    MakeReloader(t);
    StartProgram(t);
    t.ws->TimerHide.setEnabled(true);
    t.ws->menus["mnuAlign"].Click();
    const QByteArray rec = t.readData(kRec);

    t.platform.answers = {MsgAnswer::No};
    t.ws->menus["mnuReload"].Click();
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Ignore all recent changes and restart the program?"));
    EXPECT_EQ(t.platform.messages[0].style, 4148);
    EXPECT_TRUE(t.platform.started.empty());
    EXPECT_FALSE(t.ws->NoSave);
    EXPECT_FALSE(t.ws->Unloaded);
    EXPECT_TRUE(t.ws->TimerHide.Enabled());
    EXPECT_EQ(Text(t.readData(kRec)), Text(rec));
    EXPECT_EQ(Text(t.readData(kIni)), Text(kCleanBytes));
}

TEST(RecoveryReload, AnsweringYesRestartsWithoutSaving) {
    TestWorkspace t;
    t.writeData(kIni, kCleanBytes);
    const QString helper = MakeReloader(t);
    StartProgram(t);
    t.ws->menus["mnuAlign"].Click();
    t.ws->menus["mnuShowTime"].Click();
    ASSERT_TRUE(t.dataExists(kRec));

    t.platform.answers = {MsgAnswer::Yes};
    t.ws->menus["mnuReload"].Click();
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Ignore all recent changes and restart the program?"));
    EXPECT_EQ(t.platform.messages[0].style, 4148);
    EXPECT_FALSE(t.dataExists(kRec));
    // The helper waits for this process and then starts the program.
    ASSERT_EQ(t.platform.started.size(), 1u);
    EXPECT_EQ(t.platform.started[0].first, helper);
    EXPECT_EQ(t.platform.started[0].second,
              QStringList({QString::number(QCoreApplication::applicationPid()), t.platform.executable}));
    EXPECT_TRUE(t.ws->NoSave);
    // The window was unloaded, and its exit save wrote nothing.
    EXPECT_TRUE(t.ws->Unloaded);
    EXPECT_EQ(Text(t.readData(kIni)), Text(kCleanBytes));
    EXPECT_FALSE(t.dataExists(kRec));

    // Any later save is a no-op as well.
    SaveDesktop(*t.ws, true, false);
    SaveDesktop(*t.ws, false, false);
    EXPECT_FALSE(t.dataExists(kRec));
    EXPECT_EQ(Text(t.readData(kIni)), Text(kCleanBytes));

    // The restarted program finds the clean file and no question.
    t.restart();
    t.platform.messages.clear();
    t.start();
    EXPECT_TRUE(t.platform.messages.empty());
    EXPECT_TRUE(t.ws->menus["mnuAlign"].Checked());
    EXPECT_FALSE(t.ws->menus["mnuShowTime"].Checked());
}

TEST(RecoveryReload, AHelperThatCannotStartKeepsTheProgramRunning) {
    TestWorkspace t;
    t.writeData(kIni, kCleanBytes);
    const QString helper = MakeReloader(t);
    StartProgram(t);
    t.platform.startFails = true;
    t.platform.answers = {MsgAnswer::Yes};
    t.ws->menus["mnuReload"].Click();
    ASSERT_EQ(t.platform.messages.size(), 2u);
    EXPECT_EQ(t.platform.messages[1].text, QStringLiteral("Can't find: ") + helper + QStringLiteral(". Please reinstall the program."));
    EXPECT_EQ(t.platform.messages[1].style, 4144);
    EXPECT_FALSE(t.ws->NoSave);
    EXPECT_FALSE(t.ws->Unloaded);
    EXPECT_TRUE(t.ws->TimerHide.Enabled());
}
