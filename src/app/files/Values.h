#pragma once
// The value encodings of the workspace and container files. Writers produce exactly the stored form
// (" 10 " with its blanks, "-1" colours, shortest single-precision numbers with a point); readers accept
// values with or without blanks and a decimal comma, and report a value that does not convert so that
// the caller can leave its target unchanged.

#include <QString>

#include <cstdint>
#include <optional>

namespace pd {

// "1" or "0".
QString FlagText(bool v);
// A signed integer with one blank in front when not negative and one blank behind: " 10 ", "-5 ".
QString WordText(int16_t v);
QString LongText(int32_t v);
// A single-precision number in its shortest decimal form, blanks as for integers; a whole number shows
// no point, and the decimal separator is always a point.
QString SingleText(float v);

// Parses a number after trimming blanks: an optional sign, digits with one '.' or ',' as the decimal
// separator, an optional exponent. Empty or anything else gives nothing.
std::optional<double> ParseNumber(const QString& text);
// Conversions to the stored widths; a value out of range gives nothing. Whole-number targets round
// halves to even, as the stored files' original conversions did.
std::optional<int16_t> ToWord(const QString& text);
std::optional<int32_t> ToLong(const QString& text);
// A number (a font size, a position) assigned to a 16-bit target: rounded, halves to even; nothing when
// it does not fit, so that the target keeps its value, as a failed assignment leaves it.
std::optional<int16_t> RoundToWord(double v);
std::optional<float> ToSingle(const QString& text);
// "True"/"False" in any case, or a number (non-zero is true).
std::optional<bool> ToBool(const QString& text);

// Blanks (spaces) trimmed from both ends, nothing else.
QString TrimBlanks(const QString& text);

// Sets `target` from a conversion that may have failed.
template <typename T, typename U> void SetIf(T& target, const std::optional<U>& v) {
    if (v) target = *v;
}

} // namespace pd
