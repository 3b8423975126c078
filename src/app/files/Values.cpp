#include "app/files/Values.h"

#include <charconv>
#include <cmath>
#include <string>

namespace pd {

QString FlagText(bool v) { return v ? QStringLiteral("1") : QStringLiteral("0"); }

QString WordText(int16_t v) { return LongText(v); }

QString LongText(int32_t v) {
    const QString n = QString::number(v);
    return (v < 0 ? n : QLatin1Char(' ') + n) + QLatin1Char(' ');
}

QString SingleText(float v) {
    if (std::isnan(v) || std::isinf(v)) v = 0;
    if (v == 0) v = 0; // no "-0"
    char buf[64];
    // Fixed notation, shortest digits that read back as the same single.
    auto res = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::fixed);
    const QString n = QString::fromLatin1(buf, static_cast<int>(res.ptr - buf));
    return (v < 0 ? n : QLatin1Char(' ') + n) + QLatin1Char(' ');
}

QString TrimBlanks(const QString& text) {
    int b = 0, e = static_cast<int>(text.size());
    while (b < e && text[b] == QLatin1Char(' ')) ++b;
    while (e > b && text[e - 1] == QLatin1Char(' ')) --e;
    return text.mid(b, e - b);
}

std::optional<double> ParseNumber(const QString& text) {
    // Blanks and tabs around the number do not count.
    const QString t = text.trimmed();
    if (t.isEmpty() || t.size() > 64) return std::nullopt;
    std::string s;
    s.reserve(static_cast<size_t>(t.size()));
    int i = 0;
    const int n = static_cast<int>(t.size());
    if (t[i] == QLatin1Char('+') || t[i] == QLatin1Char('-')) s += static_cast<char>(t[i++].unicode());
    bool digits = false, sep = false;
    for (; i < n; ++i) {
        const QChar c = t[i];
        if (c.unicode() >= '0' && c.unicode() <= '9') {
            s += static_cast<char>(c.unicode());
            digits = true;
        } else if ((c == QLatin1Char('.') || c == QLatin1Char(',')) && !sep) {
            s += '.';
            sep = true;
        } else break;
    }
    if (!digits) return std::nullopt;
    if (i < n && (t[i] == QLatin1Char('e') || t[i] == QLatin1Char('E'))) {
        s += 'e';
        ++i;
        if (i < n && (t[i] == QLatin1Char('+') || t[i] == QLatin1Char('-'))) s += static_cast<char>(t[i++].unicode());
        bool expDigits = false;
        for (; i < n && t[i].unicode() >= '0' && t[i].unicode() <= '9'; ++i) {
            s += static_cast<char>(t[i].unicode());
            expDigits = true;
        }
        if (!expDigits) return std::nullopt;
    }
    if (i != n) return std::nullopt;
    double v = 0;
    const char* first = s.data();
    if (*first == '+') ++first;
    auto res = std::from_chars(first, s.data() + s.size(), v);
    if (res.ec != std::errc() || res.ptr != s.data() + s.size() || !std::isfinite(v)) return std::nullopt;
    return v;
}

namespace {
template <typename T> std::optional<T> Whole(double v, double lo, double hi) {
    if (!std::isfinite(v)) return std::nullopt;
    const double r = std::nearbyint(v); // the default rounding mode rounds halves to even
    if (r < lo || r > hi) return std::nullopt;
    return static_cast<T>(r);
}

template <typename T> std::optional<T> ToWhole(const QString& text, double lo, double hi) {
    const auto v = ParseNumber(text);
    if (!v) return std::nullopt;
    return Whole<T>(*v, lo, hi);
}
} // namespace

std::optional<int16_t> RoundToWord(double v) { return Whole<int16_t>(v, -32768.0, 32767.0); }

std::optional<int16_t> ToWord(const QString& text) { return ToWhole<int16_t>(text, -32768.0, 32767.0); }

std::optional<int32_t> ToLong(const QString& text) {
    return ToWhole<int32_t>(text, -2147483648.0, 2147483647.0);
}

std::optional<float> ToSingle(const QString& text) {
    const auto v = ParseNumber(text);
    if (!v || std::fabs(*v) > 3.4028234663852886e38) return std::nullopt;
    return static_cast<float>(*v);
}

std::optional<bool> ToBool(const QString& text) {
    const QString t = text.trimmed();
    if (t.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0) return true;
    if (t.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0) return false;
    const auto v = ParseNumber(t);
    if (!v) return std::nullopt;
    return *v != 0;
}

} // namespace pd
