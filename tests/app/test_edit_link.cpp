// Shortcut properties and style on the fake platform: the dialog's opening, its command mode, browse
// buttons, OK with its rules and Cancel; reset from the dialog and from the menu; the colour chooser,
// the colour of the icon and the toolbar's colour swatch.

#include "shortcuts/EditLink.h"
#include "shortcuts/FindCommands.h"
#include "shortcuts/FindState.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"
#include "window/WindowServices.h"

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

class EditLink : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        WireFindCommands(ws());
        c = t.newContainerAt(1000, 1000);
        AddShortcut(ws(), QStringLiteral("/opt/tools/prog"), ws().grpBorder(c));
        n = ws().LinkCount - 1;
        ws().Link(n).Move(300, 300);
        MoveLinkIcon(ws(), n);
        r().Tags = QStringLiteral("work,home");
        r().MarkTag = QStringLiteral("m");
        r().LinkParam = QStringLiteral("--fast");
        ws().SelectedLink = static_cast<int16_t>(n);
        Find(ws()).onShowEditLink = [this](FrmEditLink& form) {
            shown.push_back(form);
            if (script) script(form);
        };
        t.platform.messages.clear();
    }
    Workspace& ws() { return *t.ws; }
    LinkRecord& r() { return ws().Links[n]; }
    // Opens the dialog through the menu entry with a script of what the user does in it.
    void Edit(std::function<void(FrmEditLink&)> s) {
        script = std::move(s);
        ws().menus["mnuLinkEdit"].setCaption(QStringLiteral("&Properties"));
        ws().menus["mnuLinkEdit"].Click();
    }

    TestWorkspace t;
    int c = 0;
    int n = 0;
    std::vector<FrmEditLink> shown;
    std::function<void(FrmEditLink&)> script;
};

} // namespace

TEST_F(EditLink, TheDialogOpensWithTheShortcutsFields) {
    ws().Link(n).FontBold = true;
    r().Confirm = true;
    r().LinkIcon = QStringLiteral("/icons/x.png");
    Edit(nullptr);
    ASSERT_EQ(shown.size(), 1u);
    const FrmEditLink& form = shown[0];
    EXPECT_EQ(form.Caption, QStringLiteral("Shortcut Properties"));
    EXPECT_EQ(form.txtLabel, QStringLiteral("prog"));
    EXPECT_EQ(form.txtPath, QStringLiteral("/opt/tools/prog"));
    EXPECT_EQ(form.txtParam, QStringLiteral("--fast"));
    EXPECT_EQ(form.txtIcon, QStringLiteral("/icons/x.png"));
    EXPECT_EQ(form.txtSize, QString::number(ws().LinkFontSize));
    EXPECT_EQ(form.PicLinkColor, ws().Link(n).ForeColor.get());
    EXPECT_TRUE(form.ChkBold);
    EXPECT_TRUE(form.chkConfirm);
    EXPECT_FALSE(form.ChkCommand);
    EXPECT_EQ(form.lblParam, QStringLiteral("Parameters:"));
    EXPECT_TRUE(form.txtPathVisible);
    // Closed without a button: nothing changed, the workspace saved.
    EXPECT_EQ(ws().Link(n).Caption.get(), QStringLiteral("prog"));
}

TEST_F(EditLink, F2OnASelectedShortcutOpensTheDialog) {
    Form_KeyDown(ws(), kKeyF1 + 1, 0);
    EXPECT_TRUE(shown.empty()) << "not selected: F2 does nothing";
    SetLinkSelected(ws(), n, true);
    ws().menus["mnuLinkEdit"].setCaption(QStringLiteral("Rename"));
    Form_KeyDown(ws(), kKeyF1 + 1, 0);
    EXPECT_EQ(shown.size(), 1u);
}

TEST_F(EditLink, ACommandShortcutOpensInTheCommandLayout) {
    r().Command = 1;
    r().LinkParam = QStringLiteral("echo hi");
    Edit(nullptr);
    const FrmEditLink& form = shown[0];
    EXPECT_TRUE(form.ChkCommand);
    EXPECT_EQ(form.txtLabel, QStringLiteral("prog")) << "the caption comes after the command box's handler";
    EXPECT_TRUE(form.txtPath.isEmpty());
    EXPECT_FALSE(form.txtPathVisible);
    EXPECT_EQ(form.lblParam, QStringLiteral("Command:"));
    EXPECT_TRUE(form.lblParamBold);
    EXPECT_FALSE(form.CmdBrowseEnabled);
    EXPECT_FALSE(form.cmdChooseFileIconEnabled);
    EXPECT_FALSE(form.lblPathEnabled);
    EXPECT_FALSE(form.lblIconEnabled);
    EXPECT_EQ(form.Focus, QStringLiteral("txtParam"));
}

TEST_F(EditLink, OkWithAnEmptyCommandActsAsCancel) {
    Edit([this](FrmEditLink& form) {
        form.ChkCommand = true;
        ChkCommand_Click(form);
        EXPECT_EQ(form.txtLabel, QStringLiteral("Command"));
        form.txtParam.clear();
        cmdEditOK_Click(ws(), form);
        EXPECT_FALSE(form.Visible);
    });
    EXPECT_EQ(r().Command, 0);
    EXPECT_EQ(ws().Link(n).Caption.get(), QStringLiteral("prog"));
    EXPECT_EQ(r().LinkParam, QStringLiteral("--fast"));
}

TEST_F(EditLink, OkMakesACommandShortcut) {
    Edit([this](FrmEditLink& form) {
        form.ChkCommand = true;
        ChkCommand_Click(form);
        form.txtParam = QStringLiteral("make -C /src");
        cmdEditOK_Click(ws(), form);
    });
    EXPECT_EQ(r().Command, 1);
    EXPECT_EQ(ws().Link(n).Caption.get(), QStringLiteral("Command"));
    EXPECT_EQ(r().LinkParam, QStringLiteral("make -C /src"));
    EXPECT_EQ(r().LinkPath, QStringLiteral("/opt/tools/prog")) << "an empty target field keeps the path";
    EXPECT_EQ(r().LinkType, 2.0f);
}

TEST_F(EditLink, ABlankLabelKeepsTheOldOne) {
    Edit([this](FrmEditLink& form) {
        form.txtLabel = QStringLiteral("   ");
        form.txtPath = QStringLiteral("/opt/tools/other");
        cmdEditOK_Click(ws(), form);
    });
    EXPECT_EQ(ws().Link(n).Caption.get(), QStringLiteral("prog"));
    EXPECT_EQ(r().LinkPath, QStringLiteral("/opt/tools/other"));
}

TEST_F(EditLink, OkTakesEveryField) {
    t.platform.fileAnswers = {QStringLiteral("/opt/new/target"), QStringLiteral("/icons/new.png")};
    t.platform.colorAnswers = {0x123456};
    Edit([this](FrmEditLink& form) {
        form.txtLabel = QStringLiteral("Renamed");
        CmdBrowse_Click(ws(), form);
        cmdChooseFileIcon_Click(ws(), form);
        EditLinkColor_Click(ws(), form);
        form.txtParam = QStringLiteral("-v");
        form.txtSize = QStringLiteral("14");
        form.ChkBold = true;
        form.chkConfirm = true;
        cmdEditOK_Click(ws(), form);
    });
    ASSERT_EQ(t.platform.fileDialogs.size(), 2u);
    EXPECT_EQ(t.platform.fileDialogs[0], QStringLiteral("Open|All Files (*.*)|*.*"));
    EXPECT_EQ(ws().Link(n).Caption.get(), QStringLiteral("Renamed"));
    EXPECT_EQ(r().LinkPath, QStringLiteral("/opt/new/target"));
    EXPECT_EQ(r().LinkIcon, QStringLiteral("/icons/new.png"));
    EXPECT_EQ(r().LinkParam, QStringLiteral("-v"));
    EXPECT_EQ(ws().Link(n).ForeColor.get(), 0x123456);
    EXPECT_EQ(r().LinkColor, 0x123456);
    EXPECT_EQ(ws().Link(n).FontSize.get(), 14.0f);
    EXPECT_EQ(r().Size, 14) << "MoveLinkIcon keeps the record's size with the label's";
    EXPECT_TRUE(ws().Link(n).FontBold);
    EXPECT_TRUE(r().Bold);
    EXPECT_TRUE(r().Confirm);
    EXPECT_EQ(r().Command, 0);
}

TEST_F(EditLink, ANonNumericSizeIsIgnoredWithoutAWord) {
    Edit([this](FrmEditLink& form) {
        form.txtSize = QStringLiteral("big");
        form.txtParam = QStringLiteral("-q");
        cmdEditOK_Click(ws(), form);
    });
    EXPECT_EQ(ws().Link(n).FontSize.get(), static_cast<float>(ws().LinkFontSize));
    EXPECT_EQ(r().LinkParam, QStringLiteral("-q"));
    EXPECT_TRUE(t.platform.messages.empty());
}

TEST_F(EditLink, AWebShortcutStaysWebUnlessTheCommandBoxIsOn) {
    r().LinkType = 1;
    Edit([this](FrmEditLink& form) { cmdEditOK_Click(ws(), form); });
    EXPECT_EQ(r().LinkType, 1.0f);
}

TEST_F(EditLink, CancelChangesNothing) {
    Edit([](FrmEditLink& form) {
        form.txtLabel = QStringLiteral("Other");
        cmdEditCancel_Click(form);
    });
    EXPECT_EQ(ws().Link(n).Caption.get(), QStringLiteral("prog"));
}

TEST_F(EditLink, ResetInTheDialogKeepsTagsMarksAndPaths) {
    ws().Link(n).ForeColor = 0x0000FF;
    r().LinkColor = 0x0000FF;
    ws().Link(n).FontSize = 16;
    ws().Link(n).FontBold = true;
    r().Bold = true;
    r().LinkIcon = QStringLiteral("/icons/x.png");
    t.platform.answers = {MsgAnswer::Yes};
    Edit([this](FrmEditLink& form) {
        cmdReset_Click(ws(), form);
        EXPECT_TRUE(form.txtIcon.isEmpty());
        cmdEditOK_Click(ws(), form);
    });
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Reset style to defualt values?"));
    EXPECT_EQ(t.platform.messages[0].style, 4148);
    EXPECT_EQ(ws().Link(n).ForeColor.get(), ws().grpBorder(c).ForeColor.get());
    EXPECT_EQ(r().LinkColor, -1);
    EXPECT_EQ(ws().Link(n).FontSize.get(), static_cast<float>(ws().LinkFontSize));
    EXPECT_FALSE(ws().Link(n).FontBold);
    EXPECT_FALSE(r().Bold);
    EXPECT_TRUE(r().LinkIcon.isEmpty());
    EXPECT_EQ(r().Tags, QStringLiteral("work,home"));
    EXPECT_EQ(r().MarkTag, QStringLiteral("m"));
    EXPECT_EQ(r().LinkPath, QStringLiteral("/opt/tools/prog"));
    EXPECT_EQ(ws().Link(n).Caption.get(), QStringLiteral("prog"));
}

TEST_F(EditLink, ResetInTheDialogAnsweredNoChangesNothing) {
    r().LinkColor = 0x0000FF;
    Edit([this](FrmEditLink& form) { cmdReset_Click(ws(), form); });
    EXPECT_EQ(r().LinkColor, 0x0000FF);
}

TEST_F(EditLink, ResetFromTheMenuKeepsTagsMarksAndPaths) {
    AddShortcut(ws(), QStringLiteral("/opt/tools/second"), ws().grpBorder(c));
    const int m = ws().LinkCount - 1;
    ws().Links[m].Tags = QStringLiteral("t2");
    ws().Links[m].LinkColor = 0x00FF00;
    ws().Links[m].Size = 20;
    ws().Link(m).FontSize = 20;
    ws().Link(m).Move(300, 900);
    SetLinkSelected(ws(), m, true);
    r().LinkColor = 0xFF0000;
    t.platform.answers = {MsgAnswer::Yes};
    ws().menus["mnuLinkReset"].Click();
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text,
              QStringLiteral("Reset selected shortcuts style to defualt values?"));
    EXPECT_EQ(t.platform.messages[0].style, 4148);
    EXPECT_TRUE(IsLinkSelected(ws(), n)) << "the shortcut under the menu joined the selection";
    for (int k : {n, m}) {
        EXPECT_EQ(ws().Links[k].LinkColor, -1);
        EXPECT_EQ(ws().Links[k].Size, ws().LinkFontSize);
        EXPECT_EQ(ws().Link(k).FontSize.get(), static_cast<float>(ws().LinkFontSize));
        EXPECT_FALSE(ws().Links[k].Bold);
    }
    EXPECT_EQ(r().Tags, QStringLiteral("work,home"));
    EXPECT_EQ(r().MarkTag, QStringLiteral("m"));
    EXPECT_EQ(ws().Links[m].Tags, QStringLiteral("t2"));
    EXPECT_EQ(ws().Links[m].LinkPath, QStringLiteral("/opt/tools/second"));
}

TEST_F(EditLink, ChooseColorGivesEverySelectedShortcutTheColour) {
    SetLinkSelected(ws(), n, true);
    ShowLinkToolbar(ws(), ws().grpBorder(c));
    const int32_t before = ws().PicLinkColor(0).BackColor;
    t.platform.colorAnswers = {-1};
    ws().menus["mnuChooseColor"].Click();
    ASSERT_EQ(t.platform.colorDialogs.size(), 1u);
    EXPECT_EQ(t.platform.colorDialogs[0], before) << "seeded with the swatch's colour";
    EXPECT_EQ(r().LinkColor, -1) << "cancelled: nothing changes";
    t.platform.colorAnswers = {0x00AA55};
    ws().menus["mnuChooseColor"].Click();
    EXPECT_EQ(r().LinkColor, 0x00AA55);
    EXPECT_EQ(ws().Link(n).ForeColor.get(), 0x00AA55);
    EXPECT_EQ(ws().PicLinkColor(0).BackColor.get(), 0x00AA55);
}

TEST(MeanColor, IsTheRoundedMeanOfEachChannel) {
    EXPECT_EQ(MeanColor({}), -1);
    EXPECT_EQ(MeanColor({0x000000, 0x0000FF}), 0x000080); // 127.5 goes to the even 128
    EXPECT_EQ(MeanColor({0x010203, 0x010203, 0x040506}), 0x020304);
    EXPECT_EQ(MeanColor({0xFFFFFF, 0x000000, 0x000000}), 0x555555);
}

TEST_F(EditLink, ColorFromIconTakesTheMeanOfTheIconBoxBackgroundIncluded) {
    std::vector<const Element*> read;
    Find(ws()).onReadPixels = [&read](Element& e) {
        read.push_back(&e);
        // Half the box in the container's colour, half the icon in pure red.
        return std::vector<int32_t>{0x290700, 0x290700, 0x0000FF, 0x0000FF};
    };
    SetLinkSelected(ws(), n, true);
    ws().menus["mnuColorFromIcon"].Click();
    ASSERT_EQ(read.size(), 1u);
    EXPECT_EQ(read[0], &IconBox(ws(), n));
    EXPECT_EQ(r().LinkColor, MeanColor({0x290700, 0x290700, 0x0000FF, 0x0000FF}));
    EXPECT_EQ(ws().Link(n).ForeColor.get(), r().LinkColor);
}

TEST_F(EditLink, TheToolbarSwatchMovesTheToolbarOrOpensTheColourMenu) {
    SetLinkSelected(ws(), n, true);
    ShowLinkToolbar(ws(), ws().grpBorder(c));
    Element& bar = ws().PicLinkToolbar(0);
    const float left = bar.Left, top = bar.Top;
    PicLinkColor_MouseDown(ws(), 1, 30, 30);
    EXPECT_EQ(PicLinkColor_MouseUp(ws(), 1, 30, 30), QStringLiteral("mnuChangeColor"));
    PicLinkColor_MouseDown(ws(), 1, 30, 30);
    PicLinkColor_MouseMove(ws(), 1, 90, 60);
    EXPECT_EQ(bar.Left.get(), left + 60);
    EXPECT_EQ(bar.Top.get(), top + 30);
    EXPECT_TRUE(PicLinkColor_MouseUp(ws(), 1, 90, 60).isEmpty());
    EXPECT_EQ(ws().menus["mnuChooseColor"].Caption(), QStringLiteral("&Choose Color"));
    EXPECT_EQ(ws().menus["mnuColorFromIcon"].Caption(), QStringLiteral("Color from &Icon"));
    EXPECT_EQ(ws().menus["mnuLinkReset"].Caption(), QStringLiteral("&Reset"));
}
