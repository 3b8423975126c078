// The text cleaner of feed texts: tag removal by repeated deletion of the first tag, the entity table in
// its order, and the trimming.

#include "feeds/StripHtmlTags.h"

#include <gtest/gtest.h>

using namespace pd;

namespace {
QString Strip(const char* text) {
    QString s = QString::fromUtf8(text);
    return StripHTMLTags(s);
}
} // namespace

TEST(StripHTMLTags, RemovesTagsAndKeepsText) {
    EXPECT_EQ(Strip("<p>Hello <b>world</b></p>"), QStringLiteral("Hello world"));
    EXPECT_EQ(Strip("plain"), QStringLiteral("plain"));
    EXPECT_EQ(Strip(""), QString());
}

TEST(StripHTMLTags, ChangesTheCallersTextToo) {
    QString s = QStringLiteral("  <i>x</i> ");
    const QString r = StripHTMLTags(s);
    EXPECT_EQ(r, QStringLiteral("x"));
    EXPECT_EQ(s, QStringLiteral("x"));
}

TEST(StripHTMLTags, AGreaterThanAheadOfTheFirstTagStopsAllRemoval) {
    // Only the table and the trimming apply: the tags stay.
    EXPECT_EQ(Strip(" 3 > 2 <b>bold</b>&amp; "), QStringLiteral("3 > 2 <b>bold</b>&"));
    EXPECT_EQ(Strip("> <br>"), QStringLiteral("> <br>"));
}

TEST(StripHTMLTags, TheSameTagTwiceGoesInOneDeletion) {
    EXPECT_EQ(Strip("one<br>two<br>three"), QStringLiteral("onetwothree"));
    // "<p>" goes everywhere at once, then "</p>".
    EXPECT_EQ(Strip("<p>a</p><p>b</p>"), QStringLiteral("ab"));
}

TEST(StripHTMLTags, TheFirstLessThanToTheFirstGreaterThanIsOneTag) {
    // "<<a>" is deleted, the last ">" is left alone since no "<" remains.
    EXPECT_EQ(Strip("<<a>>"), QStringLiteral(">"));
    // "<a<b>" is one tag.
    EXPECT_EQ(Strip("x<a<b>y"), QStringLiteral("xy"));
    // A "<" without a ">" after it stays.
    EXPECT_EQ(Strip("a < b"), QStringLiteral("a < b"));
    // Deletion is case-sensitive: "<B>" is another tag than "<b>", removed in its own round.
    EXPECT_EQ(Strip("<b>1<B>2<b>"), QStringLiteral("12"));
}

TEST(StripHTMLTags, EscapedAmpersandBeforeLtEndsAsALessThan) {
    // "&amp;lt;" becomes "&lt;" and then "<"; the tag made so is not removed again.
    EXPECT_EQ(Strip("&amp;lt;b&amp;gt;bold&amp;lt;/b&amp;gt;"), QStringLiteral("<b>bold</b>"));
    EXPECT_EQ(Strip("&lt;i&gt;x&lt;/i&gt;"), QStringLiteral("<i>x</i>"));
}

TEST(StripHTMLTags, TheReplacementTable) {
    EXPECT_EQ(Strip("a&nbsp;b"), QStringLiteral("a b"));
    EXPECT_EQ(Strip("Fish &amp; Chips"), QStringLiteral("Fish & Chips"));
    // A quotation mark becomes an apostrophe.
    EXPECT_EQ(Strip("&quot;quoted&quot;"), QStringLiteral("'quoted'"));
    // Numeric references lose only their ampersand.
    EXPECT_EQ(Strip("it&#8217;s &#x2014;"), QStringLiteral("it#8217;s #x2014;"));
    EXPECT_EQ(Strip("a%20b%20c"), QStringLiteral("a b c"));
    // Case-sensitive: "&AMP;" and "&Nbsp;" stay.
    EXPECT_EQ(Strip("&AMP; &Nbsp;"), QStringLiteral("&AMP; &Nbsp;"));
    // "&amp;nbsp;" is past its turn when it becomes "&nbsp;".
    EXPECT_EQ(Strip("x&amp;nbsp;y"), QStringLiteral("x&nbsp;y"));
    // "&amp;#38;" becomes "&#38;" and then "#38;".
    EXPECT_EQ(Strip("&amp;#38;"), QStringLiteral("#38;"));
    // "&amp;quot;" is "&quot;" before the quote's turn, so it ends as an apostrophe.
    EXPECT_EQ(Strip("&amp;quot;"), QStringLiteral("'"));
}

TEST(StripHTMLTags, TrimsBlanksThenLeadingLineBreaks) {
    // Blanks go from both ends, then leading CR and LF; the blanks behind them stay.
    EXPECT_EQ(Strip("  \r\n  text  "), QStringLiteral("  text"));
    EXPECT_EQ(Strip("\n\n\rtext\r\n"), QStringLiteral("text\r\n"));
    // Tabs are not blanks.
    EXPECT_EQ(Strip("\tx "), QStringLiteral("\tx"));
    // A tag that leaves blanks at the ends: they go too.
    EXPECT_EQ(Strip("<p> x </p>"), QStringLiteral("x"));
    // "&nbsp;" becomes a blank before the trimming.
    EXPECT_EQ(Strip("&nbsp;x&nbsp;"), QStringLiteral("x"));
}
