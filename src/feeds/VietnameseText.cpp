#include "feeds/VietnameseText.h"

#include <array>
#include <span>

namespace pd {

namespace {

// The Unicode code points of the Vietnamese letters, table by table. Each half lists, for the plain
// letter and then for each modified letter, the tones in the order acute, grave, hook above, tilde,
// dot below; a modified letter stands in front of its own tones.
constexpr std::array<char16_t, 34> kTableA = {
    // Capitals: A with tones, Â, Â with tones, Ă, Ă with tones.
    0x00C1, 0x00C0, 0x1EA2, 0x00C3, 0x1EA0,         //
    0x00C2, 0x1EA4, 0x1EA6, 0x1EA8, 0x1EAA, 0x1EAC, //
    0x0102, 0x1EAE, 0x1EB0, 0x1EB2, 0x1EB4, 0x1EB6, //
    // Small letters.
    0x00E1, 0x00E0, 0x1EA3, 0x00E3, 0x1EA1,         //
    0x00E2, 0x1EA5, 0x1EA7, 0x1EA9, 0x1EAB, 0x1EAD, //
    0x0103, 0x1EAF, 0x1EB1, 0x1EB3, 0x1EB5, 0x1EB7, //
};

constexpr std::array<char16_t, 22> kTableE = {
    // E with tones, Ê, Ê with tones.
    0x00C9, 0x00C8, 0x1EBA, 0x1EBC, 0x1EB8,         //
    0x00CA, 0x1EBE, 0x1EC0, 0x1EC2, 0x1EC4, 0x1EC6, //
    0x00E9, 0x00E8, 0x1EBB, 0x1EBD, 0x1EB9,         //
    0x00EA, 0x1EBF, 0x1EC1, 0x1EC3, 0x1EC5, 0x1EC7, //
};

constexpr std::array<char16_t, 10> kTableI = {
    0x00CD, 0x00CC, 0x1EC8, 0x0128, 0x1ECA, //
    0x00ED, 0x00EC, 0x1EC9, 0x0129, 0x1ECB, //
};

constexpr std::array<char16_t, 34> kTableO = {
    // O with tones, Ô, Ô with tones, Ơ, Ơ with tones.
    0x00D3, 0x00D2, 0x1ECE, 0x00D5, 0x1ECC,         //
    0x00D4, 0x1ED0, 0x1ED2, 0x1ED4, 0x1ED6, 0x1ED8, //
    0x01A0, 0x1EDA, 0x1EDC, 0x1EDE, 0x1EE0, 0x1EE2, //
    0x00F3, 0x00F2, 0x1ECF, 0x00F5, 0x1ECD,         //
    0x00F4, 0x1ED1, 0x1ED3, 0x1ED5, 0x1ED7, 0x1ED9, //
    0x01A1, 0x1EDB, 0x1EDD, 0x1EDF, 0x1EE1, 0x1EE3, //
};

constexpr std::array<char16_t, 22> kTableU = {
    // U with tones, Ư, Ư with tones.
    0x00DA, 0x00D9, 0x1EE6, 0x0168, 0x1EE4,         //
    0x01AF, 0x1EE8, 0x1EEA, 0x1EEC, 0x1EEE, 0x1EF0, //
    0x00FA, 0x00F9, 0x1EE7, 0x0169, 0x1EE5,         //
    0x01B0, 0x1EE9, 0x1EEB, 0x1EED, 0x1EEF, 0x1EF1, //
};

constexpr std::array<char16_t, 10> kTableY = {
    0x00DD, 0x1EF2, 0x1EF6, 0x1EF8, 0x1EF4, //
    0x00FD, 0x1EF3, 0x1EF7, 0x1EF9, 0x1EF5, //
};

constexpr std::array<char16_t, 2> kTableD = {0x0110, 0x0111};

std::span<const char16_t> Table(VniTable t) {
    switch (t) {
    case VniTable::A:
        return kTableA;
    case VniTable::E:
        return kTableE;
    case VniTable::I:
        return kTableI;
    case VniTable::O:
        return kTableO;
    case VniTable::U:
        return kTableU;
    case VniTable::Y:
        return kTableY;
    case VniTable::D:
        return kTableD;
    }
    return {};
}

constexpr VniTable kAllTables[kVniTableCount] = {VniTable::A, VniTable::E, VniTable::I, VniTable::O,
                                                 VniTable::U, VniTable::Y, VniTable::D};
constexpr char kBases[kVniTableCount][3] = {"Aa", "Ee", "Ii", "Oo", "Uu", "Yy", "Dd"};

// The nine pairs of digit strings, index 1 to 9 (0 unused).
struct DigitStrings {
    std::array<QString, 10> accepted;
    std::array<QString, 10> results;
};

// Adds one letter that a digit may apply to and the letter it makes.
void Accept(DigitStrings& s, int digit, QChar from, char16_t to) {
    s.accepted[static_cast<size_t>(digit)].append(from);
    s.results[static_cast<size_t>(digit)].append(QChar(to));
}

// Builds the digit strings from the tables. A vowel table half is a row of groups of six slots: the
// group's letter (the plain letter, not stored, or a modified letter) and its five tones.
DigitStrings MakeDigitStrings() {
    DigitStrings s;
    const VniTable vowels[] = {VniTable::A, VniTable::E, VniTable::I, VniTable::O, VniTable::U, VniTable::Y};
    for (VniTable t : vowels) {
        const auto table = Table(t);
        const int half = static_cast<int>(table.size()) / 2;
        const int groups = (half + 1) / 6; // 17 -> 3, 11 -> 2, 5 -> 1
        const QString base = VniTableBase(t);
        for (int caseHalf = 0; caseHalf < 2; ++caseHalf) {
            const int offset = caseHalf * half;
            for (int g = 0; g < groups; ++g) {
                // The group's letter: the plain letter, or the modified letter in front of its tones.
                const QChar head =
                    g == 0 ? base[caseHalf] : QChar(table[static_cast<size_t>(offset + 6 * g - 1)]);
                for (int tone = 1; tone <= 5; ++tone)
                    Accept(s, tone, head, table[static_cast<size_t>(offset + 6 * g + tone - 1)]);
            }
        }
    }
    // Circumflex: A, E, O. Breve: A. Horn: O and U, plain or already bearing a tone.
    struct Modifier {
        int digit;
        VniTable table;
        int group;
    };
    const Modifier modifiers[] = {{6, VniTable::A, 1}, {6, VniTable::E, 1}, {6, VniTable::O, 1},
                                  {7, VniTable::O, 2}, {7, VniTable::U, 1}, {8, VniTable::A, 2}};
    for (const Modifier& m : modifiers) {
        const auto table = Table(m.table);
        const int half = static_cast<int>(table.size()) / 2;
        const QString base = VniTableBase(m.table);
        for (int caseHalf = 0; caseHalf < 2; ++caseHalf) {
            const int offset = caseHalf * half;
            Accept(s, m.digit, base[caseHalf], table[static_cast<size_t>(offset + 6 * m.group - 1)]);
            if (m.digit == 7) {
                for (int tone = 1; tone <= 5; ++tone)
                    Accept(s, 7, QChar(table[static_cast<size_t>(offset + tone - 1)]),
                           table[static_cast<size_t>(offset + 6 * m.group + tone - 1)]);
            }
        }
    }
    Accept(s, 9, QLatin1Char('D'), kTableD[0]);
    Accept(s, 9, QLatin1Char('d'), kTableD[1]);
    return s;
}

const DigitStrings& Strings() {
    static const DigitStrings s = MakeDigitStrings();
    return s;
}

} // namespace

int VniTableSize(VniTable table) {
    return static_cast<int>(Table(table).size());
}

QString VniTableBase(VniTable table) {
    const auto i = static_cast<size_t>(table);
    if (i >= static_cast<size_t>(kVniTableCount)) return {};
    return QString::fromLatin1(kBases[i], 2);
}

QString TableChar(VniTable table, int k) {
    const auto t = Table(table);
    if (k < 0 || k >= static_cast<int>(t.size())) return {};
    return QString(QChar(t[static_cast<size_t>(k)]));
}

void BuildVniTables() {
    (void)Strings();
}

QString VniAcceptedLetters(int digit) {
    if (digit < 1 || digit > 9) return {};
    return Strings().accepted[static_cast<size_t>(digit)];
}

QString VniResultLetters(int digit) {
    if (digit < 1 || digit > 9) return {};
    return Strings().results[static_cast<size_t>(digit)];
}

int DigitValue(QChar c) {
    const char16_t u = c.unicode();
    return u >= u'1' && u <= u'9' ? u - u'0' : 0;
}

int DigitValue(QStringView c) {
    return c.isEmpty() ? 0 : DigitValue(c.front());
}

int FindMarkedLetter(int digit, QChar c) {
    if (digit < 1 || digit > 9) return 0;
    return static_cast<int>(Strings().accepted[static_cast<size_t>(digit)].indexOf(c)) + 1;
}

QString VNIToUnicode(const QString& text) {
    if (text.isEmpty()) return {};
    const DigitStrings& s = Strings();
    QString out;
    out.reserve(text.size());
    out.append(text.front());
    for (qsizetype i = 1; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const int d = DigitValue(c);
        const int q = d == 0 ? 0 : FindMarkedLetter(d, out.back());
        if (q > 0)
            out.back() = s.results[static_cast<size_t>(d)].at(q - 1);
        else
            out.append(c);
    }
    return out;
}

QString RemoveVietnameseMarks(const QString& text) {
    QString out = text;
    for (QChar& c : out) {
        const char16_t u = c.unicode();
        if (u >= 64 && u <= 126) continue;
        for (int t = 0; t < kVniTableCount; ++t) {
            const auto table = Table(kAllTables[t]);
            const int half = static_cast<int>(table.size()) / 2;
            bool found = false;
            for (int k = 0; k < static_cast<int>(table.size()); ++k) {
                if (table[static_cast<size_t>(k)] != u) continue;
                c = QLatin1Char(kBases[t][k < half ? 0 : 1]);
                found = true;
                break;
            }
            if (found) break;
        }
    }
    return out;
}

} // namespace pd
