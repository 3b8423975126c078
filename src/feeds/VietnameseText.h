#pragma once
// Vietnamese typed the VNI way: a plain letter followed by a digit that marks it ("Tie61ng Vie65t" is
// "Tiếng Việt"). Digits 1 to 5 are the tones (acute, grave, hook above, tilde, dot below), 6 the
// circumflex, 7 the horn, 8 the breve, 9 the stroke of d. VNIToUnicode turns such text into the composed
// Unicode letters; RemoveVietnameseMarks takes the marks off composed letters again.
//
// Text is handled in UTF-16 code units, as QString holds it; every Vietnamese letter is one unit.

#include <QString>
#include <QStringView>

#include <cstdint>

namespace pd {

// The seven letter tables, one for each base letter. The first half of a table holds the capital forms
// and the second half the small ones, in the same order. A, O: the letter with its five tones, then the
// first modified letter (circumflex) with its five tones, then the second (breve for A, horn for O): 17
// forms. E, U: the same with one modified letter (circumflex, horn): 11 forms. I, Y: the five tones.
// D: the stroked letter.
enum class VniTable : uint8_t { A, E, I, O, U, Y, D };
inline constexpr int kVniTableCount = 7;

// The number of entries of a table (both halves), e.g. 34 for A; 0 for a value outside the enum.
int VniTableSize(VniTable table);
// The plain letters of a table, capital then small: "Aa", "Ee", ..., "Dd".
QString VniTableBase(VniTable table);
// The one-character string of entry `k` (from 0) of a table; empty when `k` is out of range.
QString TableChar(VniTable table, int k);

// Builds the nine pairs of digit strings from the tables. The tables are built before first use anyway,
// so calling this is optional; it can run any number of times and always gives the same strings.
void BuildVniTables();
// The letters a digit may apply to, and at the same positions the letters it makes. Empty for a digit
// outside 1 to 9.
QString VniAcceptedLetters(int digit);
QString VniResultLetters(int digit);

// 1 to 9 for the characters '1' to '9', otherwise 0.
int DigitValue(QChar c);
// The same for a text: the value of its first character; an empty text gives 0.
int DigitValue(QStringView c);

// The position (from 1) of `c` among the letters that `digit` may apply to; 0 when it is not there or
// when the digit is not 1 to 9. Capitals and small letters are different letters.
int FindMarkedLetter(int digit, QChar c);

// Applies each mark digit to the character right before it, when that character accepts it; a digit
// that follows no suitable letter stays a digit. The first character is always kept as it is.
QString VNIToUnicode(const QString& text);

// Replaces every letter of the tables by its plain letter ("Việt" gives "Viet"); everything else is kept.
QString RemoveVietnameseMarks(const QString& text);

} // namespace pd
