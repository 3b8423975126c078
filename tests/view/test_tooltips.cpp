// The workspace's tool tips: lines kept as lines, the width of the longest line up to 400 pixels and
// wrapping beyond, in the status-bar font.

#include "view/Tooltips.h"

#include <QApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QTextDocument>
#include <QToolTip>

#include <gtest/gtest.h>

using namespace pd;

namespace {

// The width of the text in a tip: Qt's tip is a word-wrapping label.
int LaidOutWidth(const QString& markup, const QFont& font) {
    QLabel label;
    label.setFont(font);
    label.setWordWrap(Qt::mightBeRichText(markup));
    label.setText(markup);
    return label.sizeHint().width();
}

TEST(Tooltips, TwoLinesStayTwoLinesAsWideAsTheLongest) {
    const QFont font = TipFont();
    const QString tip = TipMarkup(QStringLiteral("Name: a.txt\r\nLocation: /home/u"), font);
    EXPECT_EQ(tip, QStringLiteral("Name: a.txt\nLocation: /home/u"));
    EXPECT_FALSE(Qt::mightBeRichText(tip));
}

TEST(Tooltips, ALineWiderThan400PixelsWraps) {
    const QFont font = TipFont();
    QString longLine;
    while (QFontMetrics(font).horizontalAdvance(longLine) <= 800)
        longLine += QStringLiteral("word <b> ");
    const QString tip = TipMarkup(QStringLiteral("first\r\n") + longLine, font);
    ASSERT_TRUE(Qt::mightBeRichText(tip));
    EXPECT_TRUE(tip.contains(QStringLiteral("width=\"400\"")));
    // The text is escaped and its lines kept.
    EXPECT_TRUE(tip.contains(QStringLiteral("first<br>word &lt;b&gt;")));
    EXPECT_EQ(LaidOutWidth(tip, font), 400);
}

TEST(Tooltips, TipsUseTheStatusBarFont) {
    PrepareTip(QStringLiteral("x"));
    EXPECT_EQ(QToolTip::font(), QApplication::font("QStatusBar"));
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
