// Starting shortcuts on the fake platform: which gestures start, the order of a launch (sound,
// question, hourglass, collapse, start, unselect, error box, collapse, mark), the error texts, Start
// All, opening one shortcut with another, launch marks and the "@" paths.

#include "shortcuts/CommandLine.h"
#include "shortcuts/Launch.h"
#include "shortcuts/LinkMouse.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"

#include <QStorageInfo>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <vector>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace {

constexpr int kLeft = 1;
constexpr int kRight = 2;
constexpr int kShift = 1;
constexpr int kCtrl = 2;

// Calls back on every element change, so that a test can see what had happened by then.
struct ChangeProbe : ElementSink {
    std::function<void(Element&, Prop)> onChange;
    void elementLoaded(Element&) override {}
    void elementChanged(Element& e, Prop p) override {
        if (onChange) onChange(e, p);
    }
};

class LinkLaunch : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        ws().menus["mnuDblClick"].setChecked(false);
        ws().menus["mnuCollapseBefore"].setChecked(false);
        ws().menus["mnuConfirmStartAllShortcuts"].setChecked(false);
        // A collapse docks the window: standing flush with the top edge, it docks at the top, and the
        // docking brings it to the top of the stack.
        ws().frmMain(0).Move(2000, 0);
        t.platform.onWindowOnTop = [this](const FakePlatform::OnTopCall& call) {
            if (call.window != QLatin1String("frmMain") || !call.onTop) return;
            ++collapses;
            launchesAtCollapse.push_back(t.platform.launches.size());
        };
        c = t.newContainerAt(1000, 1000);
        t.platform.messages.clear();
        t.platform.sounds.clear();
    }
    Workspace& ws() { return *t.ws; }
    // A file shortcut at (300, 300 + 400 k) in container i (-1: the background).
    int AddLinkIn(int i, const QString& path) {
        AddShortcut(ws(), path, i < 0 ? ws().picBack(0) : ws().grpBorder(i));
        const int n = ws().LinkCount - 1;
        ws().Link(n).Move(300, 300 + 400 * static_cast<float>(n));
        return n;
    }
    // A press and a release in place, as a single click.
    void Click(int n, int shift = 0) {
        Link_MouseDown(ws(), kLeft, shift, n, 100, 50);
        Link_MouseUp(ws(), kLeft, shift, n, 100, 50);
    }
    QString Sound(const char* name) const { return QDir(t.programDir()).filePath(QString::fromLatin1(name)); }

    TestWorkspace t;
    int c = 0;
    int collapses = 0;
    std::vector<size_t> launchesAtCollapse;
};

// --- gestures ---

TEST_F(LinkLaunch, PressAndReleaseInPlaceStarts) {
    const int n = AddLinkIn(c, QStringLiteral("/opt/tools/prog"));
    Click(n);
    ASSERT_EQ(t.platform.launches.size(), 1u);
    EXPECT_EQ(t.platform.launches[0].file, QStringLiteral("/opt/tools/prog"));
    EXPECT_EQ(t.platform.launches[0].params, QString());
    EXPECT_EQ(t.platform.launches[0].dir, QStringLiteral("/opt/tools/"));
    ASSERT_FALSE(t.platform.sounds.empty());
    EXPECT_EQ(t.platform.sounds.back(), Sound("click.wav"));
}

TEST_F(LinkLaunch, ReleaseAfterOneTwipMoveDoesNotStart) {
    const int n = AddLinkIn(c, QStringLiteral("/opt/tools/prog"));
    Link_MouseDown(ws(), kLeft, 0, n, 100, 50);
    Link_MouseMove(ws(), kLeft, 0, n, 101, 50);
    EXPECT_EQ(ws().MouseDownLink, -1);
    Link_MouseUp(ws(), kLeft, 0, n, 101, 50);
    EXPECT_TRUE(t.platform.launches.empty());
    // LaunchLink refused before its sound.
    for (const QString& s : t.platform.sounds) EXPECT_NE(s, Sound("click.wav"));
    // The drag moved the label by the twip.
    EXPECT_EQ(ws().Link(n).Left, 301.0f);
}

TEST_F(LinkLaunch, MoveWithoutChangeOfPositionIsNoDrag) {
    const int n = AddLinkIn(c, QStringLiteral("/opt/tools/prog"));
    Link_MouseDown(ws(), kLeft, 0, n, 100, 50);
    Link_MouseMove(ws(), kLeft, 0, n, 100, 50);
    EXPECT_EQ(ws().MouseDownLink, n);
    Link_MouseUp(ws(), kLeft, 0, n, 100, 50);
    EXPECT_EQ(t.platform.launches.size(), 1u);
}

TEST_F(LinkLaunch, MoveWithoutButtonShowsTheHoverText) {
    const int n = AddLinkIn(c, QStringLiteral("/opt/tools/prog"));
    Link_MouseMove(ws(), 0, 0, n, 10, 10);
    EXPECT_TRUE(ws().Link(n).FontUnderline);
    EXPECT_TRUE(ws().Link(n).ToolTipText.get().contains(QStringLiteral("Location: /opt/tools")));
    EXPECT_EQ(ws().MouseDownLink, -1); // never pressed
}

TEST_F(LinkLaunch, WithDblClickASingleClickOnlyTogglesTheSelection) {
    ws().menus["mnuDblClick"].setChecked(true);
    const int n = AddLinkIn(c, QStringLiteral("/opt/tools/prog"));
    Click(n);
    EXPECT_TRUE(t.platform.launches.empty());
    EXPECT_TRUE(IsLinkSelected(ws(), n));
    // A single click with Dbl-Click does not bring the toolbar.
    EXPECT_FALSE(ws().PicLinkToolbar(0).Visible);
    Click(n);
    EXPECT_TRUE(t.platform.launches.empty());
    EXPECT_FALSE(IsLinkSelected(ws(), n));
    // The double click starts.
    Link_DblClick(ws(), n);
    EXPECT_EQ(t.platform.launches.size(), 1u);
}

TEST_F(LinkLaunch, DoubleClickWithoutDblClickSettingDoesNotStartAgain) {
    const int n = AddLinkIn(c, QStringLiteral("/opt/tools/prog"));
    Link_DblClick(ws(), n);
    EXPECT_TRUE(t.platform.launches.empty());
}

TEST_F(LinkLaunch, CtrlClickTogglesTheSelectionWithTheToolbarAndNeverStarts) {
    const int n = AddLinkIn(c, QStringLiteral("/opt/tools/prog"));
    Click(n, kCtrl);
    EXPECT_TRUE(IsLinkSelected(ws(), n));
    EXPECT_TRUE(ws().PicLinkToolbar(0).Visible);
    EXPECT_TRUE(t.platform.launches.empty());
    Click(n, kCtrl);
    EXPECT_FALSE(IsLinkSelected(ws(), n));
    EXPECT_TRUE(t.platform.launches.empty());
}

TEST_F(LinkLaunch, ShiftClickNeitherSelectsNorStarts) {
    const int n = AddLinkIn(c, QStringLiteral("/opt/tools/prog"));
    Click(n, kShift);
    EXPECT_FALSE(IsLinkSelected(ws(), n));
    EXPECT_TRUE(t.platform.launches.empty());
}

TEST_F(LinkLaunch, PlainPressOutsideTheSelectionDropsIt) {
    const int a = AddLinkIn(c, QStringLiteral("/opt/a"));
    const int b = AddLinkIn(c, QStringLiteral("/opt/b"));
    const int other = AddLinkIn(c, QStringLiteral("/opt/c"));
    SetLinkSelected(ws(), a, true);
    SetLinkSelected(ws(), b, true);
    Link_MouseDown(ws(), kLeft, 0, other, 10, 10);
    EXPECT_FALSE(IsLinkSelected(ws(), a));
    EXPECT_FALSE(IsLinkSelected(ws(), b));
    // A press on a selected one keeps the selection.
    SetLinkSelected(ws(), a, true);
    SetLinkSelected(ws(), b, true);
    Link_MouseDown(ws(), kLeft, 0, a, 10, 10);
    EXPECT_TRUE(IsLinkSelected(ws(), a));
    EXPECT_TRUE(IsLinkSelected(ws(), b));
}

TEST_F(LinkLaunch, EveryPressStoresThePressState) {
    const int n = AddLinkIn(c, QStringLiteral("/opt/tools/prog"));
    ws().Link(n).Move(450, 700);
    ws().SelectedContainer = 99;
    ws().ContextIsContainer = true;
    ws().PicJumpToLink(0).Visible = true;
    ws().JumpToOpen = true;
    Link_MouseDown(ws(), kRight, 0, n, 12.5f, 40);
    EXPECT_EQ(ws().MouseDownLink, n);
    EXPECT_EQ(ws().SelectedLink, n);
    EXPECT_EQ(ws().MouseDownX, 12.5f);
    EXPECT_EQ(ws().MouseDownY, 40.0f);
    EXPECT_EQ(ws().DownLeft, 450.0f);
    EXPECT_EQ(ws().DownTop, 700.0f);
    EXPECT_FALSE(ws().ContextIsContainer);
    EXPECT_EQ(ws().SelectedContainer, c);
    EXPECT_FALSE(ws().PicJumpToLink(0).Visible);
    EXPECT_FALSE(ws().JumpToOpen);
    // The right button neither selects nor starts.
    Link_MouseUp(ws(), kRight, 0, n, 12.5f, 40);
    EXPECT_FALSE(IsLinkSelected(ws(), n));
    EXPECT_TRUE(t.platform.launches.empty());
}

TEST_F(LinkLaunch, PressOnTheBackgroundKeepsTheSelectedContainer) {
    const int n = AddLinkIn(-1, QStringLiteral("/opt/tools/prog"));
    ws().SelectedContainer = 7;
    Link_MouseDown(ws(), kLeft, 0, n, 1, 1);
    EXPECT_EQ(ws().SelectedContainer, 7);
}

TEST_F(LinkLaunch, EnterStartsTheSelectedVisibleShortcut) {
    const int n = AddLinkIn(c, QStringLiteral("/opt/tools/prog"));
    Link_MouseDown(ws(), kLeft, kCtrl, n, 1, 1); // selects it, SelectedLink = n
    ws().PicJumpToLink(0).Visible = true;
    ws().JumpToOpen = true;
    LaunchSelectedLink(ws());
    EXPECT_FALSE(ws().PicJumpToLink(0).Visible);
    EXPECT_EQ(t.platform.launches.size(), 1u);
    // Not selected: no start.
    LaunchSelectedLink(ws());
    EXPECT_EQ(t.platform.launches.size(), 1u);
    // Selected but hidden: no start.
    SetLinkSelected(ws(), n, true);
    ws().Link(n).Visible = false;
    LaunchSelectedLink(ws());
    EXPECT_EQ(t.platform.launches.size(), 1u);
}

// --- the launch itself ---

TEST_F(LinkLaunch, TheOrderOfALaunch) {
    const int n = AddLinkIn(c, QStringLiteral("/opt/tools/prog"));
    ws().Links[n].Confirm = true;
    ws().Links[n].LinkParam = QStringLiteral("--x \"a b\"");
    ws().Links[n].MarkTag = QStringLiteral("m");
    SetLinkSelected(ws(), n, true);
    ws().MouseDownLink = static_cast<int16_t>(n);
    t.platform.answers = {MsgAnswer::Yes};
    t.platform.launchResults = {2};

    // What had happened at each step, seen from the step.
    std::map<std::string, std::vector<size_t>> seen; // sounds, messages, launches, collapses
    auto snapshot = [&](const std::string& what) {
        seen[what] = {t.platform.sounds.size(), t.platform.messages.size(), t.platform.launches.size(),
                      static_cast<size_t>(collapses)};
    };
    ChangeProbe probe;
    probe.onChange = [&](Element& e, Prop p) {
        if (&e != &ws().Link(n)) return;
        if (p == Prop::MousePointer && e.MousePointer == 11) snapshot("hourglass");
        if (p == Prop::BackStyle && e.BackStyle == 0) snapshot("unselected");
        if (p == Prop::BorderStyle && e.BorderStyle == 1) snapshot("mark");
    };
    ws().sink = &probe;
    LaunchLink(ws(), n);
    ws().sink = nullptr;

    // Collapse after the start: PostLaunch(false) did nothing, PostLaunch(true) collapsed once.
    ASSERT_EQ(collapses, 1);
    ASSERT_EQ(t.platform.sounds.size(), 1u);
    EXPECT_EQ(t.platform.sounds[0], Sound("click.wav"));
    ASSERT_EQ(t.platform.messages.size(), 2u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Start prog?"));
    EXPECT_EQ(t.platform.messages[0].style, 4148);
    EXPECT_EQ(t.platform.messages[0].title, QStringLiteral("Launch Confirmation"));
    EXPECT_EQ(t.platform.messages[1].text, QStringLiteral("File not found"));
    EXPECT_EQ(t.platform.messages[1].style, 4112);
    EXPECT_EQ(t.platform.messages[1].title, QStringLiteral("Error with shortcut"));
    ASSERT_EQ(t.platform.launches.size(), 1u);
    EXPECT_EQ(t.platform.launches[0].params, QStringLiteral("--x \"a b\""));

    ASSERT_EQ(seen.size(), 3u);
    // Hourglass: after the sound and the question, before the start.
    EXPECT_EQ(seen["hourglass"], (std::vector<size_t>{1, 1, 0, 0}));
    // Unselected after the start, before the error box.
    EXPECT_EQ(seen["unselected"], (std::vector<size_t>{1, 1, 1, 0}));
    // The mark comes last, after the error box and the collapse: a failed start still marks.
    EXPECT_EQ(seen["mark"], (std::vector<size_t>{1, 2, 1, 1}));
    EXPECT_EQ(launchesAtCollapse, (std::vector<size_t>{1}));
    EXPECT_EQ(ws().Link(n).BorderStyle, 1);
    EXPECT_EQ(ws().Link(n).MousePointer, 11); // the next hover sets it back
    EXPECT_FALSE(IsLinkSelected(ws(), n));
}

TEST_F(LinkLaunch, CollapseBeforeLaunchCollapsesBeforeTheStartOnly) {
    ws().menus["mnuCollapseBefore"].setChecked(true);
    const int n = AddLinkIn(c, QStringLiteral("/opt/tools/prog"));
    Click(n);
    EXPECT_EQ(collapses, 1);
    EXPECT_EQ(launchesAtCollapse, (std::vector<size_t>{0}));
    EXPECT_EQ(t.platform.launches.size(), 1u);
}

TEST_F(LinkLaunch, AMaximizedWindowIsNotCollapsed) {
    ws().frmMain(0).WindowState = 2;
    const int n = AddLinkIn(c, QStringLiteral("/opt/tools/prog"));
    Click(n);
    EXPECT_EQ(collapses, 0);
    EXPECT_EQ(t.platform.launches.size(), 1u);
    // It only stops being top-most, and stays where it was.
    ASSERT_FALSE(t.platform.onTopCalls.empty());
    EXPECT_EQ(t.platform.onTopCalls.back().window, QStringLiteral("frmMain"));
    EXPECT_FALSE(t.platform.onTopCalls.back().onTop);
    EXPECT_EQ(ws().frmMain(0).Top, 0.0f);
}

TEST_F(LinkLaunch, ConfirmWithCollapseBeforeStaysOpenUntilYes) {
    ws().menus["mnuCollapseBefore"].setChecked(true);
    const int n = AddLinkIn(c, QStringLiteral("/opt/tools/prog"));
    ws().Links[n].Confirm = true;
    SetLinkSelected(ws(), n, true);
    ws().TimerHide.setEnabled(true);
    // No: nothing else happens.
    t.platform.answers = {MsgAnswer::No};
    Link_MouseDown(ws(), kLeft, 0, n, 5, 5);
    Link_MouseUp(ws(), kLeft, 0, n, 5, 5);
    EXPECT_EQ(collapses, 0);
    EXPECT_TRUE(t.platform.launches.empty());
    EXPECT_TRUE(IsLinkSelected(ws(), n));
    EXPECT_NE(ws().Link(n).MousePointer, 11);
    EXPECT_EQ(t.platform.sounds.size(), 1u); // the sound comes before the question
    EXPECT_TRUE(ws().TimerHide.Enabled());
    // Yes: the collapse comes after the answer and before the start.
    t.platform.answers = {MsgAnswer::Yes};
    Link_MouseDown(ws(), kLeft, 0, n, 5, 5);
    Link_MouseUp(ws(), kLeft, 0, n, 5, 5);
    EXPECT_EQ(collapses, 1);
    EXPECT_EQ(launchesAtCollapse, (std::vector<size_t>{0}));
    EXPECT_EQ(t.platform.launches.size(), 1u);
    EXPECT_EQ(t.platform.messages.size(), 2u);
    EXPECT_TRUE(ws().TimerHide.Enabled());
}

TEST_F(LinkLaunch, EveryErrorNumberShowsItsText) {
    const std::map<int, QString> table = {
        {2, QStringLiteral("File not found")},
        {3, QStringLiteral("Path not found")},
        {5, QStringLiteral("Path/file access error")},
        {8, QStringLiteral("Out of memory")},
        {11, QStringLiteral("The executable file is invalid or corrupt")},
        {26, QStringLiteral("A sharing violation occurred.")},
        {27, QStringLiteral("This file type does not have a valid file association.")},
        {28, QStringLiteral("The file could not be opened due to time out. Please try again in a moment.")},
        {29, QStringLiteral("The file could not be opened because the DDE transaction failed. Please try again in a "
                            "moment.")},
        {30, QStringLiteral("The file could not be opened because the target application is busy. Please try again "
                            "in a moment.")},
        {31, QStringLiteral("No application is associated with this file type.")},
    };
    const QString other =
        QStringLiteral("An error occurred occurred whilst trying to open or print the selected file.");
    const int n = AddLinkIn(c, QStringLiteral("/opt/tools/prog"));
    for (int result : {0, 1, 2, 3, 4, 5, 8, 11, 12, 26, 27, 28, 29, 30, 31, 32, 33, 42, -1}) {
        SCOPED_TRACE(result);
        t.platform.messages.clear();
        t.platform.launchResults = {result};
        Click(n);
        if (result > 0 && result < 32) {
            ASSERT_EQ(t.platform.messages.size(), 1u);
            const auto it = table.find(result);
            EXPECT_EQ(t.platform.messages[0].text, it == table.end() ? other : it->second);
            EXPECT_EQ(t.platform.messages[0].style, 4112);
            EXPECT_EQ(t.platform.messages[0].title, QStringLiteral("Error with shortcut"));
        } else {
            EXPECT_TRUE(t.platform.messages.empty());
        }
    }
}

TEST_F(LinkLaunch, CommandShortcutRunsItsParameterTextThroughTheShell) {
    const int n = AddLinkIn(c, QStringLiteral("/ignored/path"));
    ws().Links[n].Command = 1;
    ws().Links[n].LinkParam = QString();
    Click(n);
    ASSERT_EQ(t.platform.launches.size(), 1u);
    EXPECT_EQ(t.platform.launches[0].file, QStringLiteral("/bin/sh"));
    EXPECT_EQ(t.platform.launches[0].params, QStringLiteral("-c \"\""));
    EXPECT_EQ(t.platform.launches[0].dir, QString());
    // The launcher's splitting gives the shell -c and an empty command.
    EXPECT_EQ(SplitCommandLine(t.platform.launches[0].params), (QStringList{QStringLiteral("-c"), QString()}));

    const QString command = QStringLiteral(R"(echo "a  b" 'c' > "$HOME/x y" ; ls C:\dir "")");
    ws().Links[n].LinkParam = command;
    Click(n);
    ASSERT_EQ(t.platform.launches.size(), 2u);
    EXPECT_EQ(SplitCommandLine(t.platform.launches[1].params), (QStringList{QStringLiteral("-c"), command}));
}

TEST_F(LinkLaunch, WebShortcutGoesTheSamePath) {
    ws().DropX = 300;
    ws().DropY = 900;
    AddURL(ws(), QStringLiteral("https://example.org/news/today"), QString(), ws().grpBorder(c));
    const int w = ws().LinkCount - 1;
    ws().Links[w].MarkTag = QStringLiteral("web");
    SetLinkSelected(ws(), w, true);
    Click(w);
    ASSERT_EQ(t.platform.launches.size(), 1u);
    EXPECT_EQ(t.platform.launches[0].file, QStringLiteral("https://example.org/news/today"));
    EXPECT_EQ(t.platform.launches[0].params, QString());
    EXPECT_EQ(t.platform.launches[0].dir, QString()); // an address has no working folder
    EXPECT_EQ(t.platform.sounds.back(), Sound("click.wav"));
    EXPECT_EQ(collapses, 1);
    EXPECT_FALSE(IsLinkSelected(ws(), w));
    EXPECT_EQ(ws().Link(w).BorderStyle, 1);
}

TEST_F(LinkLaunch, AtPathsAreExpandedWithTheirFolder) {
    const int n = AddLinkIn(c, QStringLiteral("@:\\Tools\\x.exe"));
    Click(n);
    QString mount = QStorageInfo(t.programDir()).rootPath();
    if (!mount.endsWith(QLatin1Char('/'))) mount += QLatin1Char('/');
    ASSERT_EQ(t.platform.launches.size(), 1u);
    EXPECT_EQ(t.platform.launches[0].file, mount + QStringLiteral("Tools/x.exe"));
    EXPECT_EQ(t.platform.launches[0].dir, mount + QStringLiteral("Tools/"));
}

// --- Start All ---

TEST_F(LinkLaunch, StartAllStartsTheVisibleShortcutsOfTheContainerOnly) {
    const int other = t.newContainerAt(5000, 1000);
    const int a = AddLinkIn(c, QStringLiteral("/opt/a"));
    const int hidden = AddLinkIn(c, QStringLiteral("/opt/hidden"));
    const int back = AddLinkIn(-1, QStringLiteral("/opt/back"));
    const int elsewhere = AddLinkIn(other, QStringLiteral("/opt/elsewhere"));
    const int cmd = AddLinkIn(c, QStringLiteral("@/bin/tool"));
    ws().Links[cmd].Command = 1;
    ws().Links[cmd].LinkParam = QStringLiteral("echo hi");
    ws().Links[cmd].Confirm = true;
    ws().Links[a].LinkParam = QStringLiteral("-v");
    ws().Links[a].MarkTag = QStringLiteral("m");
    ws().Link(hidden).Visible = false;
    (void)back;
    (void)elsewhere;
    ws().SelectedContainer = static_cast<int16_t>(c);

    mnuStartAll_Click(ws());
    EXPECT_TRUE(t.platform.messages.empty()); // no question, no Confirm, no errors
    ASSERT_EQ(t.platform.launches.size(), 2u);
    EXPECT_EQ(t.platform.launches[0].file, QStringLiteral("/opt/a"));
    EXPECT_EQ(t.platform.launches[0].params, QStringLiteral("-v"));
    EXPECT_EQ(t.platform.launches[0].dir, QStringLiteral("/opt/"));
    // A command shortcut starts as its path.
    EXPECT_EQ(t.platform.launches[1].file, ExpandDriveLetter(ws(), QStringLiteral("@/bin/tool")));
    EXPECT_EQ(t.platform.launches[1].params, QStringLiteral("echo hi"));
    EXPECT_TRUE(t.platform.sounds.empty());
    EXPECT_EQ(ws().Link(a).BorderStyle, 0);
    EXPECT_EQ(collapses, 1);
    EXPECT_EQ(launchesAtCollapse, (std::vector<size_t>{2}));
    EXPECT_TRUE(ws().TimerHide.Enabled());
}

TEST_F(LinkLaunch, StartAllAsksWhenItShould) {
    AddLinkIn(c, QStringLiteral("/opt/a"));
    ws().SelectedContainer = static_cast<int16_t>(c);
    ws().menus["mnuConfirmStartAllShortcuts"].setChecked(true);
    ws().menus["mnuCollapseBefore"].setChecked(true);
    t.platform.answers = {MsgAnswer::No};
    mnuStartAll_Click(ws());
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Start all shortcuts in the current container?"));
    EXPECT_EQ(t.platform.messages[0].style, 4148);
    EXPECT_EQ(t.platform.messages[0].title, QString());
    EXPECT_TRUE(t.platform.launches.empty());
    EXPECT_EQ(collapses, 0);
    EXPECT_TRUE(ws().TimerHide.Enabled());

    t.platform.answers = {MsgAnswer::Yes};
    mnuStartAll_Click(ws());
    EXPECT_EQ(t.platform.launches.size(), 1u);
    EXPECT_EQ(launchesAtCollapse, (std::vector<size_t>{0}));
}

// --- one shortcut opened with another ---

TEST_F(LinkLaunch, OpenLinkWithLinkGivesTheQuotedPathAsParameters) {
    const int doc = AddLinkIn(c, QStringLiteral("/home/u/My Notes/a b.txt"));
    const int editor = AddLinkIn(c, QStringLiteral("@/apps/editor"));
    ws().Links[editor].LinkParam = QStringLiteral("--ignored");
    t.platform.answers = {MsgAnswer::No};
    OpenLinkWithLink(ws(), doc, editor);
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Open: a b.txt with: editor?"));
    EXPECT_EQ(t.platform.messages[0].style, 4132);
    EXPECT_EQ(t.platform.messages[0].title, QString());
    EXPECT_TRUE(t.platform.launches.empty());

    t.platform.answers = {MsgAnswer::Yes};
    t.platform.launchResults = {2};
    OpenLinkWithLink(ws(), doc, editor);
    const QString program = ExpandDriveLetter(ws(), QStringLiteral("@/apps/editor"));
    ASSERT_EQ(t.platform.launches.size(), 1u);
    EXPECT_EQ(t.platform.launches[0].file, program);
    EXPECT_EQ(t.platform.launches[0].params, QStringLiteral("\"/home/u/My Notes/a b.txt\""));
    EXPECT_EQ(t.platform.launches[0].dir, ParentFolder(program));
    EXPECT_EQ(SplitCommandLine(t.platform.launches[0].params), QStringList{QStringLiteral("/home/u/My Notes/a b.txt")});
    // The failure is not reported; nothing of a launch happens.
    EXPECT_EQ(t.platform.messages.size(), 2u);
    EXPECT_TRUE(t.platform.sounds.empty());
    EXPECT_EQ(collapses, 0);

    // An "@" document is expanded too; a shortcut dropped on itself asks nothing.
    const int atDoc = AddLinkIn(c, QStringLiteral("@:\\Docs\\d.txt"));
    t.platform.answers = {MsgAnswer::Yes};
    OpenLinkWithLink(ws(), atDoc, editor);
    ASSERT_EQ(t.platform.launches.size(), 2u);
    EXPECT_EQ(t.platform.launches[1].params,
              QLatin1Char('"') + ExpandDriveLetter(ws(), QStringLiteral("@/Docs/d.txt")) + QLatin1Char('"'));
    OpenLinkWithLink(ws(), editor, editor);
    EXPECT_EQ(t.platform.messages.size(), 3u);
}

// --- launch marks ---

TEST_F(LinkLaunch, MarksAreSetAndClearedByTags) {
    const int marked = AddLinkIn(c, QStringLiteral("/opt/marked"));
    const int plain = AddLinkIn(c, QStringLiteral("/opt/plain"));
    const int other = AddLinkIn(c, QStringLiteral("/opt/other"));
    const int markedToo = AddLinkIn(c, QStringLiteral("/opt/marked2"));
    ws().Links[marked].MarkTag = QStringLiteral("X");
    ws().Links[markedToo].MarkTag = QStringLiteral("q");
    ws().Links[markedToo].Tags = QStringLiteral("x");
    ws().Links[plain].Tags = QStringLiteral("a, xy");
    ws().Links[other].Tags = QStringLiteral("b");

    Click(marked);
    EXPECT_EQ(ws().Link(marked).BorderStyle, 1);
    // A shortcut without tags that name the mark leaves it.
    Click(other);
    EXPECT_EQ(ws().Link(marked).BorderStyle, 1);
    // A shortcut with a mark of its own never clears marks, even tagged with the tag.
    Click(markedToo);
    EXPECT_EQ(ws().Link(marked).BorderStyle, 1);
    EXPECT_EQ(ws().Link(markedToo).BorderStyle, 1);
    // "xy" holds "x": the test is a substring test, in any case.
    Click(plain);
    EXPECT_EQ(ws().Link(marked).BorderStyle, 0);
    EXPECT_EQ(ws().Link(markedToo).BorderStyle, 1);
    EXPECT_EQ(ws().Link(plain).BorderStyle, 0);
}

TEST_F(LinkLaunch, ClearMarksForTagsSkipsDeadSlots) {
    const int dead = AddLinkIn(c, QStringLiteral("/opt/dead"));
    const int n = AddLinkIn(c, QStringLiteral("/opt/n"));
    ws().Links[dead].MarkTag = QStringLiteral("t");
    ws().Link(dead).BorderStyle = 1;
    RemoveLink(ws(), dead);
    ws().Links[n].Tags = QStringLiteral("t");
    ClearMarksForTags(ws(), n);
    EXPECT_EQ(ws().Link(dead).BorderStyle, 1);
}

// --- paths ---

TEST(LaunchPaths, ParentFolder) {
    EXPECT_EQ(ParentFolder(QStringLiteral("/opt/tools/prog")), QStringLiteral("/opt/tools/"));
    EXPECT_EQ(ParentFolder(QStringLiteral("C:\\Tools\\x.exe")), QStringLiteral("C:\\Tools\\"));
    EXPECT_EQ(ParentFolder(QStringLiteral("/a\\b/c\\d")), QStringLiteral("/a\\b/c\\"));
    EXPECT_EQ(ParentFolder(QStringLiteral("/")), QStringLiteral("/"));
    EXPECT_EQ(ParentFolder(QStringLiteral("prog")), QString());
    EXPECT_EQ(ParentFolder(QString()), QString());
}

TEST(LaunchPaths, ExpandDriveLetterUsesTheMountPointOfTheProgramFolder) {
    FakePlatform platform;
    ManualClock clock;
    Workspace ws(platform, clock);
    ws.ProgramDirectory = QStringLiteral("/");
    EXPECT_EQ(ExpandDriveLetter(ws, QStringLiteral("@:\\Tools\\x.exe")), QStringLiteral("/Tools/x.exe"));
    EXPECT_EQ(ExpandDriveLetter(ws, QStringLiteral("@\\Tools\\x.exe")), QStringLiteral("/Tools/x.exe"));
    EXPECT_EQ(ExpandDriveLetter(ws, QStringLiteral("@/Tools/x")), QStringLiteral("/Tools/x"));
    // The Linux form keeps a backslash as part of a name.
    EXPECT_EQ(ExpandDriveLetter(ws, QStringLiteral("@/a\\b")), QStringLiteral("/a\\b"));
    EXPECT_EQ(ExpandDriveLetter(ws, QStringLiteral("@")), QStringLiteral("/"));
    EXPECT_EQ(ExpandDriveLetter(ws, QStringLiteral("@:")), QStringLiteral("/"));
    // Paths without "@" in front pass unchanged.
    EXPECT_EQ(ExpandDriveLetter(ws, QStringLiteral("/opt/@x")), QStringLiteral("/opt/@x"));
    EXPECT_EQ(ExpandDriveLetter(ws, QStringLiteral("C:\\x")), QStringLiteral("C:\\x"));

    QTemporaryDir dir;
    ws.ProgramDirectory = dir.path();
    QString mount = QStorageInfo(dir.path()).rootPath();
    ASSERT_FALSE(mount.isEmpty());
    if (!mount.endsWith(QLatin1Char('/'))) mount += QLatin1Char('/');
    EXPECT_EQ(ExpandDriveLetter(ws, QStringLiteral("@:\\Tools\\x.exe")), mount + QStringLiteral("Tools/x.exe"));
    EXPECT_EQ(ExpandDriveLetter(ws, QStringLiteral("@/Tools/x")), mount + QStringLiteral("Tools/x"));
}

TEST(LaunchPaths, UrlSchemes) {
    EXPECT_TRUE(HasUrlScheme(QStringLiteral("http://x")));
    EXPECT_TRUE(HasUrlScheme(QStringLiteral("mailto:a@b")));
    EXPECT_TRUE(HasUrlScheme(QStringLiteral("svn+ssh://h/r")));
    EXPECT_FALSE(HasUrlScheme(QStringLiteral("C:\\x")));
    EXPECT_FALSE(HasUrlScheme(QStringLiteral("/opt/a:b")));
    EXPECT_FALSE(HasUrlScheme(QStringLiteral("@:\\x")));
    EXPECT_FALSE(HasUrlScheme(QStringLiteral("my file:x")));
}

TEST(LaunchPaths, CommandLineSplittingAndQuoting) {
    EXPECT_EQ(SplitCommandLine(QString()), QStringList());
    EXPECT_EQ(SplitCommandLine(QStringLiteral("  a   b ")), (QStringList{"a", "b"}));
    EXPECT_EQ(SplitCommandLine(QStringLiteral("-x \"a b\" c")), (QStringList{"-x", "a b", "c"}));
    EXPECT_EQ(SplitCommandLine(QStringLiteral("\"\" x")), (QStringList{"", "x"}));
    EXPECT_EQ(SplitCommandLine(QStringLiteral("x\"y z\"w")), (QStringList{"xy zw"}));
    EXPECT_EQ(SplitCommandLine(QStringLiteral("\"a\"\"b\"")), (QStringList{"a\"b"}));
    EXPECT_EQ(SplitCommandLine(QStringLiteral("C:\\dir\\x \\\"")), (QStringList{"C:\\dir\\x", "\\"}));
    EXPECT_EQ(SplitCommandLine(QStringLiteral("\"open")), (QStringList{"open"}));
    for (const QString& word : {QString(), QStringLiteral("\""), QStringLiteral("\"\""), QStringLiteral(" a \" b "),
                                QStringLiteral("x\\\"y"), QStringLiteral("\t\n")}) {
        EXPECT_EQ(SplitCommandLine(QuoteCommandWord(word)), QStringList{word}) << word.toStdString();
        EXPECT_EQ(SplitCommandLine(QStringLiteral("-c ") + QuoteCommandWord(word)),
                  (QStringList{QStringLiteral("-c"), word}));
    }
}

} // namespace
