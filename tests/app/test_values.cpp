#include "app/files/Values.h"

#include <gtest/gtest.h>

using namespace pd;

TEST(Values, WordsCarryTheirBlanks) {
    EXPECT_EQ(WordText(10), QStringLiteral(" 10 "));
    EXPECT_EQ(WordText(-5), QStringLiteral("-5 "));
    EXPECT_EQ(WordText(0), QStringLiteral(" 0 "));
    EXPECT_EQ(LongText(2689792), QStringLiteral(" 2689792 "));
}

TEST(Values, SinglesAreShortestWithAPoint) {
    EXPECT_EQ(SingleText(10065.0f), QStringLiteral(" 10065 "));
    EXPECT_EQ(SingleText(-100.0f), QStringLiteral("-100 "));
    EXPECT_EQ(SingleText(0.5f), QStringLiteral(" 0.5 "));
    EXPECT_EQ(SingleText(1234.25f), QStringLiteral(" 1234.25 "));
    EXPECT_EQ(SingleText(10000000.0f), QStringLiteral(" 10000000 "));
    EXPECT_EQ(SingleText(-0.0f), QStringLiteral(" 0 "));
}

TEST(Values, ReadingAcceptsBlanksAndDecimalComma) {
    EXPECT_EQ(ToWord(QStringLiteral(" 10 ")), std::optional<int16_t>(10));
    EXPECT_EQ(ToWord(QStringLiteral("10")), std::optional<int16_t>(10));
    EXPECT_EQ(ToSingle(QStringLiteral(" 12,5 ")), std::optional<float>(12.5f));
    EXPECT_EQ(ToSingle(QStringLiteral("12.5")), std::optional<float>(12.5f));
    EXPECT_FALSE(ToWord(QStringLiteral("abc")));
    EXPECT_FALSE(ToWord(QStringLiteral("")));
    EXPECT_FALSE(ToWord(QStringLiteral("40000")));
    EXPECT_EQ(ToWord(QStringLiteral("32767")), std::optional<int16_t>(32767));
    EXPECT_EQ(ToWord(QStringLiteral("2.5")), std::optional<int16_t>(2));
    EXPECT_EQ(ToWord(QStringLiteral("3.5")), std::optional<int16_t>(4));
    EXPECT_FALSE(ToLong(QStringLiteral("12abc")));
}

TEST(Values, BooleansFromNumbersAndWords) {
    EXPECT_EQ(ToBool(QStringLiteral("1")), std::optional<bool>(true));
    EXPECT_EQ(ToBool(QStringLiteral(" 0 ")), std::optional<bool>(false));
    EXPECT_EQ(ToBool(QStringLiteral("-1")), std::optional<bool>(true));
    EXPECT_EQ(ToBool(QStringLiteral("True")), std::optional<bool>(true));
    EXPECT_EQ(ToBool(QStringLiteral("false")), std::optional<bool>(false));
    EXPECT_FALSE(ToBool(QStringLiteral("yes")));
}
