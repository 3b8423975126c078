// The question box: its calling order, its buttons, and the callers that ask through it.

#include "feeds/InputDialog.h"
#include "support/TestWorkspace.h"

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

TEST(InputDialog, TheBoxIsLoadedFilledAndKeptOnTopBeforeItShows) {
    TestWorkspace t;
    t.platform.inputAnswers = {QStringLiteral("12")};
    const QString answer = AskInput(*t.ws, QStringLiteral("New Size:"), QStringLiteral("10"));
    ASSERT_EQ(t.platform.inputForms.size(), 1u);
    const FrmInput& shown = t.platform.inputForms[0];
    EXPECT_TRUE(shown.Loaded);
    EXPECT_TRUE(shown.Visible);
    EXPECT_TRUE(shown.OnTop);
    EXPECT_EQ(shown.Caption, QStringLiteral("Perchdock"));
    // The prompt shows unchanged; the text line comes up with the current value.
    EXPECT_EQ(shown.lblCaption, QStringLiteral("New Size:"));
    EXPECT_EQ(shown.txtInput, QStringLiteral("10"));
    EXPECT_EQ(answer, QStringLiteral("12"));
}

TEST(InputDialog, OkWithAnEmptiedLineAnswersAsCancelDoes) {
    TestWorkspace t;
    t.platform.inputAnswers = {QString()};
    EXPECT_EQ(AskInput(*t.ws, QStringLiteral("Proxy Server:"), QStringLiteral("host:8080")), QString());
    EXPECT_EQ(AskInput(*t.ws, QStringLiteral("Proxy Server:"), QStringLiteral("host:8080")), QString());
    EXPECT_EQ(t.platform.inputPrompts.size(), 2u);
}

TEST(InputDialog, TheButtonsHideTheBoxAndLeaveTheAnswerInTheLabel) {
    FrmInput form;
    DisplayInput(form, QStringLiteral("Edit Tags (separate with commas) -"), QStringLiteral("a, b"));
    EXPECT_EQ(form.lblCaption, QStringLiteral("Edit Tags (separate with commas) -"));
    EXPECT_TRUE(form.OnTop);
    form.Visible = true;
    form.txtInput = QStringLiteral("c");
    form.cmdOK_Click();
    EXPECT_FALSE(form.Visible);
    EXPECT_EQ(form.lblCaption, QStringLiteral("c"));
    form.Visible = true;
    form.cmdCancel_Click();
    EXPECT_FALSE(form.Visible);
    EXPECT_TRUE(form.lblCaption.isEmpty());
}
