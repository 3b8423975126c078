// Vietnamese text typed the VNI way: every table letter, the digit strings built from the tables, the
// conversion of typed text into composed letters and the removal of marks.

#include "feeds/VietnameseText.h"

#include <QSet>

#include <gtest/gtest.h>

#include <vector>

using namespace pd;

namespace {

const VniTable kTables[] = {VniTable::A, VniTable::E, VniTable::I, VniTable::O,
                            VniTable::U, VniTable::Y, VniTable::D};

// The combining marks of the tones 1 to 5: acute, grave, hook above, tilde, dot below.
const char16_t kToneMarks[6] = {0, 0x0301, 0x0300, 0x0309, 0x0303, 0x0323};
constexpr char16_t kCircumflex = 0x0302;
constexpr char16_t kBreve = 0x0306;
constexpr char16_t kHorn = 0x031B;

// What one table entry is made of, worked out from its place in the table: its plain letter, the digit
// of its modified letter (6, 7, 8 or 9; 0 for none) and its tone digit (0 for none).
struct Entry {
    QChar base;
    int modifier = 0;
    int tone = 0;
};

Entry Describe(VniTable t, int k) {
    const int half = VniTableSize(t) / 2;
    Entry e;
    e.base = VniTableBase(t).at(k < half ? 0 : 1);
    if (t == VniTable::D) {
        e.modifier = 9;
        return e;
    }
    const int slot = (k % half) + 1; // slot 0 is the plain letter, which no table holds
    const int group = slot / 6;
    e.tone = slot % 6;
    if (group == 1) e.modifier = (t == VniTable::U) ? 7 : 6;
    if (group == 2) e.modifier = (t == VniTable::A) ? 8 : 7;
    return e;
}

// The entry composed by Unicode normalisation from its plain letter and combining marks: an account of
// the table that does not depend on the typed code points.
QString Composed(const Entry& e) {
    QString s(e.base);
    if (e.modifier == 6) s.append(QChar(kCircumflex));
    if (e.modifier == 7) s.append(QChar(kHorn));
    if (e.modifier == 8) s.append(QChar(kBreve));
    if (e.tone) s.append(QChar(kToneMarks[e.tone]));
    return s.normalized(QString::NormalizationForm_C);
}

// The VNI typing of an entry: the letter, its modifier digit, its tone digit.
QString Typed(const Entry& e) {
    QString s(e.base);
    if (e.modifier) s.append(QChar(u'0' + e.modifier));
    if (e.tone) s.append(QChar(u'0' + e.tone));
    return s;
}

QString U(const char16_t* s) {
    return QString::fromUtf16(s);
}

} // namespace

TEST(VietnameseTables, TablesHaveTheirSizesAndBaseLetters) {
    EXPECT_EQ(VniTableSize(VniTable::A), 34);
    EXPECT_EQ(VniTableSize(VniTable::E), 22);
    EXPECT_EQ(VniTableSize(VniTable::I), 10);
    EXPECT_EQ(VniTableSize(VniTable::O), 34);
    EXPECT_EQ(VniTableSize(VniTable::U), 22);
    EXPECT_EQ(VniTableSize(VniTable::Y), 10);
    EXPECT_EQ(VniTableSize(VniTable::D), 2);
    int total = 0;
    for (VniTable t : kTables)
        total += VniTableSize(t);
    EXPECT_EQ(total, 134);
    EXPECT_EQ(VniTableBase(VniTable::A), QStringLiteral("Aa"));
    EXPECT_EQ(VniTableBase(VniTable::Y), QStringLiteral("Yy"));
    EXPECT_EQ(VniTableBase(VniTable::D), QStringLiteral("Dd"));
}

TEST(VietnameseTables, TableCharGivesOneCharacterAndNothingOutOfRange) {
    EXPECT_EQ(TableChar(VniTable::A, 0), U(u"Á"));
    EXPECT_EQ(TableChar(VniTable::A, 5), U(u"Â"));
    EXPECT_EQ(TableChar(VniTable::A, 33), U(u"ặ"));
    EXPECT_EQ(TableChar(VniTable::D, 1), U(u"đ"));
    EXPECT_TRUE(TableChar(VniTable::A, 34).isEmpty());
    EXPECT_TRUE(TableChar(VniTable::D, -1).isEmpty());
    EXPECT_TRUE(TableChar(static_cast<VniTable>(9), 0).isEmpty());
    EXPECT_EQ(VniTableSize(static_cast<VniTable>(9)), 0);
}

// Every entry is the letter that Unicode composes from its plain letter and marks; typing it the VNI way
// gives it; removing the marks gives its plain letter; and all entries are different.
TEST(VietnameseTables, FullTableWalk) {
    QSet<QChar> seen;
    int walked = 0;
    for (VniTable t : kTables) {
        for (int k = 0; k < VniTableSize(t); ++k) {
            const QString entry = TableChar(t, k);
            const Entry e = Describe(t, k);
            SCOPED_TRACE(QStringLiteral("table %1 entry %2 typed %3")
                             .arg(VniTableBase(t))
                             .arg(k)
                             .arg(Typed(e))
                             .toStdString());
            ASSERT_EQ(entry.size(), 1);
            EXPECT_GT(entry.at(0).unicode(), 126);
            if (t == VniTable::D)
                EXPECT_EQ(entry.at(0).unicode(), k == 0 ? 0x0110 : 0x0111);
            else
                EXPECT_EQ(entry, Composed(e)) << std::hex << int(entry.at(0).unicode());
            EXPECT_EQ(VNIToUnicode(Typed(e)), entry);
            EXPECT_EQ(RemoveVietnameseMarks(entry), QString(e.base));
            EXPECT_FALSE(seen.contains(entry.at(0)));
            seen.insert(entry.at(0));
            ++walked;
        }
    }
    EXPECT_EQ(walked, 134);
}

TEST(VietnameseTables, DigitStringsAreBuiltFromTheTables) {
    BuildVniTables();
    // Tones: the plain vowels and those with a circumflex, breve or horn, capital and small.
    for (int d = 1; d <= 5; ++d) {
        EXPECT_EQ(VniAcceptedLetters(d).size(), 24) << d;
        for (QChar c : U(u"AaÂâĂăEeÊêIiOoÔôƠơUuƯưYy"))
            EXPECT_GT(FindMarkedLetter(d, c), 0) << d;
        // A letter that already bears a tone takes no second tone.
        EXPECT_EQ(FindMarkedLetter(d, U(u"á").at(0)), 0);
    }
    EXPECT_EQ(VniAcceptedLetters(6), QStringLiteral("AaEeOo"));
    EXPECT_EQ(VniResultLetters(6), U(u"ÂâÊêÔô"));
    // Horn: O and U, plain or already bearing a tone.
    EXPECT_EQ(VniAcceptedLetters(7).size(), 24);
    for (QChar c : U(u"OoUuÓòỏõọÚùủũụ"))
        EXPECT_GT(FindMarkedLetter(7, c), 0) << int(c.unicode());
    EXPECT_EQ(VniAcceptedLetters(8), QStringLiteral("Aa"));
    EXPECT_EQ(VniResultLetters(8), U(u"Ăă"));
    EXPECT_EQ(VniAcceptedLetters(9), QStringLiteral("Dd"));
    EXPECT_EQ(VniResultLetters(9), U(u"Đđ"));
    for (int d = 1; d <= 9; ++d) {
        const QString a = VniAcceptedLetters(d);
        EXPECT_EQ(a.size(), VniResultLetters(d).size()) << d;
        EXPECT_EQ(QSet<QChar>(a.begin(), a.end()).size(), a.size()) << "a letter twice for digit " << d;
    }
    EXPECT_TRUE(VniAcceptedLetters(0).isEmpty());
    EXPECT_TRUE(VniResultLetters(10).isEmpty());
}

TEST(VietnameseTables, BuildingAgainGivesTheSameStrings) {
    BuildVniTables();
    std::vector<QString> before;
    for (int d = 1; d <= 9; ++d)
        before.push_back(VniAcceptedLetters(d) + u'|' + VniResultLetters(d));
    BuildVniTables();
    BuildVniTables();
    for (int d = 1; d <= 9; ++d)
        EXPECT_EQ(VniAcceptedLetters(d) + u'|' + VniResultLetters(d), before[static_cast<size_t>(d - 1)]);
    EXPECT_EQ(VNIToUnicode(QStringLiteral("e61")), U(u"ế"));
}

TEST(VietnameseDigits, DigitValueOfCharactersAndTexts) {
    for (int d = 1; d <= 9; ++d)
        EXPECT_EQ(DigitValue(QChar(u'0' + d)), d);
    EXPECT_EQ(DigitValue(QChar(u'0')), 0);
    EXPECT_EQ(DigitValue(QChar(u'a')), 0);
    EXPECT_EQ(DigitValue(QChar(u' ')), 0);
    EXPECT_EQ(DigitValue(QChar(0x0661)), 0); // ARABIC-INDIC DIGIT ONE is not a mark digit
    EXPECT_EQ(DigitValue(QStringView()), 0);
    EXPECT_EQ(DigitValue(QStringView(u"")), 0);
    EXPECT_EQ(DigitValue(QStringView(u"7")), 7);
    EXPECT_EQ(DigitValue(QStringView(u"x7")), 0);
}

TEST(VietnameseDigits, FindMarkedLetterCountsFromOneAndIsCaseSensitive) {
    EXPECT_EQ(FindMarkedLetter(9, QChar(u'D')), 1);
    EXPECT_EQ(FindMarkedLetter(9, QChar(u'd')), 2);
    EXPECT_EQ(FindMarkedLetter(8, QChar(u'A')), 1);
    EXPECT_EQ(FindMarkedLetter(8, QChar(u'a')), 2);
    EXPECT_EQ(FindMarkedLetter(9, QChar(u'b')), 0);
    EXPECT_EQ(FindMarkedLetter(0, QChar(u'a')), 0);
    EXPECT_EQ(FindMarkedLetter(-3, QChar(u'a')), 0);
    EXPECT_EQ(FindMarkedLetter(10, QChar(u'a')), 0);
    EXPECT_EQ(FindMarkedLetter(6, QChar(u'u')), 0);
    const int q = FindMarkedLetter(1, QChar(u'a'));
    ASSERT_GT(q, 0);
    EXPECT_EQ(VniResultLetters(1).at(q - 1), U(u"á").at(0));
}

TEST(VietnameseConversion, EmptyTextGivesEmpty) {
    EXPECT_TRUE(VNIToUnicode(QString()).isEmpty());
    EXPECT_TRUE(VNIToUnicode(QStringLiteral("")).isEmpty());
    EXPECT_TRUE(RemoveVietnameseMarks(QString()).isEmpty());
}

TEST(VietnameseConversion, LoneDigitStays) {
    EXPECT_EQ(VNIToUnicode(QStringLiteral("1")), QStringLiteral("1"));
}

TEST(VietnameseConversion, SmallAWithAcute) {
    EXPECT_EQ(VNIToUnicode(QStringLiteral("a1")), U(u"á"));
}

TEST(VietnameseConversion, CircumflexThenAcute) {
    EXPECT_EQ(VNIToUnicode(QStringLiteral("e61")), U(u"ế"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("E61")), U(u"Ế"));
}

TEST(VietnameseConversion, DigitAfterALetterThatTakesNoMarkStays) {
    EXPECT_EQ(VNIToUnicode(QStringLiteral("b1")), QStringLiteral("b1"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("d6")), QStringLiteral("d6"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("u8")), QStringLiteral("u8"));
}

TEST(VietnameseConversion, PlainNumbersStay) {
    for (const char* n : {"0", "7", "12", "123456789", "2024-05-17", "3.14159", "9 8 7"})
        EXPECT_EQ(VNIToUnicode(QString::fromLatin1(n)), QString::fromLatin1(n)) << n;
}

TEST(VietnameseConversion, TypedWords) {
    EXPECT_EQ(VNIToUnicode(QStringLiteral("Tie61ng Vie65t")), U(u"Tiếng Việt"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("Nha4n Tie61ng Vie65t")), U(u"Nhãn Tiếng Việt"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("D9a2 Na84ng")), U(u"Đà Nẵng"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("tho72i tie61t")), U(u"thời tiết"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("ngu7o72i")), U(u"người"));
}

TEST(VietnameseConversion, MarkAppliesOnlyToTheCharacterRightBefore) {
    // "a 1": the blank stands between.
    EXPECT_EQ(VNIToUnicode(QStringLiteral("a 1")), QStringLiteral("a 1"));
    // "ta1" marks the a; "at1" marks nothing.
    EXPECT_EQ(VNIToUnicode(QStringLiteral("ta1")), U(u"tá"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("at1")), QStringLiteral("at1"));
}

TEST(VietnameseConversion, FirstCharacterIsCopiedWithoutATest) {
    // The first character is never a mark, even when it is a digit after nothing.
    EXPECT_EQ(VNIToUnicode(QStringLiteral("1a1")), U(u"1á"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("9")), QStringLiteral("9"));
}

TEST(VietnameseConversion, RepeatedDigitsApplyInTurnAsFarAsAccepted) {
    // A second tone is not accepted: the digit stays.
    EXPECT_EQ(VNIToUnicode(QStringLiteral("a11")), U(u"á1"));
    // Circumflex then tone, and the horn after a tone as well as before.
    EXPECT_EQ(VNIToUnicode(QStringLiteral("a63")), U(u"ẩ"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("o71")), U(u"ớ"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("o17")), U(u"ớ"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("U75")), U(u"Ự"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("u57")), U(u"ự"));
    // Circumflex and breve come before the tone only.
    EXPECT_EQ(VNIToUnicode(QStringLiteral("e16")), U(u"é6"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("a18")), U(u"á8"));
    // A second circumflex, a circumflex on a breve: the digits stay.
    EXPECT_EQ(VNIToUnicode(QStringLiteral("a66")), U(u"â6"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("a86")), U(u"ă6"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("d99")), U(u"đ9"));
}

TEST(VietnameseConversion, UnicodeVietnamesePassesThroughUnlessADigitFollowsAnAcceptedLetter) {
    const QString text = U(u"Tiếng Việt có dấu, Đà Nẵng 2024");
    EXPECT_EQ(VNIToUnicode(text), text);
    // A composed letter with a circumflex still takes a tone.
    EXPECT_EQ(VNIToUnicode(U(u"ê1")), U(u"ế"));
    EXPECT_EQ(VNIToUnicode(U(u"ư2")), U(u"ừ"));
    // One with a tone takes no other.
    EXPECT_EQ(VNIToUnicode(U(u"cá1")), U(u"cá1"));
}

TEST(VietnameseConversion, EnglishTextWithDigitsAfterVowelsGetsMarks) {
    EXPECT_EQ(VNIToUnicode(QStringLiteral("Area51")), U(u"Areạ1"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("Route66")), U(u"Routê6"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("Go2 page")), U(u"Gò page"));
    EXPECT_EQ(VNIToUnicode(QStringLiteral("Windows 95, Top10")), QStringLiteral("Windows 95, Top10"));
}

TEST(VietnameseConversion, OtherCharactersAreKept) {
    // Surrogate pairs, line breaks and control characters go through unit by unit.
    const QString text = U(u"x\U0001F600a\r\n\t\u4E2D");
    EXPECT_EQ(VNIToUnicode(text), text);
    EXPECT_EQ(VNIToUnicode(U(u"\U0001F6001")), U(u"\U0001F6001"));
}

TEST(VietnameseMarks, RemovesMarksFromEveryTableLetter) {
    EXPECT_EQ(RemoveVietnameseMarks(U(u"Tiếng Việt")), QStringLiteral("Tieng Viet"));
    EXPECT_EQ(RemoveVietnameseMarks(U(u"ĐÀ NẴNG, Đà Nẵng")), QStringLiteral("DA NANG, Da Nang"));
    EXPECT_EQ(RemoveVietnameseMarks(U(u"người ƯỚC ỳ")), QStringLiteral("nguoi UOC y"));
}

TEST(VietnameseMarks, KeepsEverythingElse) {
    const QString other = U(u"Plain ASCII 0123 !?@[]~ ç ñ ü ß 中文 \U0001F600 \r\n");
    EXPECT_EQ(RemoveVietnameseMarks(other), other);
    // Marks typed the VNI way but not converted are plain ASCII and stay.
    EXPECT_EQ(RemoveVietnameseMarks(QStringLiteral("Tie61ng")), QStringLiteral("Tie61ng"));
}

TEST(VietnameseMarks, RoundTripOfConvertedText) {
    EXPECT_EQ(RemoveVietnameseMarks(VNIToUnicode(QStringLiteral("Nha4n Tie61ng Vie65t"))),
              QStringLiteral("Nhan Tieng Viet"));
}

// Raw UTF-16 units, as the fuzz target also reads its input: a lone surrogate is kept as it is and
// does not stop the marks after it.
TEST(VietnameseConversion, LoneSurrogatesPassThrough) {
    QString text;
    text.append(QChar(u'a')).append(QChar(u'1')).append(QChar(char16_t(0xD800))).append(QStringLiteral("e6"));
    QString expected;
    expected.append(QChar(char16_t(0x00E1))).append(QChar(char16_t(0xD800))).append(QChar(char16_t(0x00EA)));
    EXPECT_EQ(VNIToUnicode(text), expected);
    EXPECT_EQ(RemoveVietnameseMarks(expected), QString(QChar(u'a')) + QChar(char16_t(0xD800)) + QChar(u'e'));
    // A digit right after a lone surrogate stays.
    EXPECT_EQ(VNIToUnicode(QString(QChar(u'x')) + QChar(char16_t(0xDC00)) + QChar(u'1')),
              QString(QChar(u'x')) + QChar(char16_t(0xDC00)) + QChar(u'1'));
}
