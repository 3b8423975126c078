#include "desk/DateParse.h"

#include <QStringList>

namespace pd {

namespace {

const char* const kMonths[] = {"january", "february", "march",     "april",   "may",      "june",
                               "july",    "august",   "september", "october", "november", "december"};

// 1..12 for an English month name, its first three letters or a number; 0 for anything else.
int MonthNumber(const QString& word) {
    bool ok = false;
    const int n = word.toInt(&ok);
    if (ok) return n >= 1 && n <= 12 ? n : 0;
    const QString w = word.toLower();
    if (w.size() < 3) return 0;
    for (int m = 0; m < 12; ++m) {
        const QString name = QString::fromLatin1(kMonths[m]);
        if (w == name || w == name.left(3) || (w.size() >= 3 && name.startsWith(w))) return m + 1;
    }
    return 0;
}

bool IsNumber(const QString& s) {
    if (s.isEmpty()) return false;
    for (QChar c : s)
        if (!c.isDigit()) return false;
    return true;
}

// A year as typed: two digits count from 1930 to 2029, as the old date readers did.
int YearNumber(const QString& s) {
    if (!IsNumber(s) || s.size() > 4) return -1;
    const int y = s.toInt();
    if (s.size() <= 2) return y < 30 ? 2000 + y : 1900 + y;
    return y >= 100 ? y : -1;
}

std::optional<QTime> ParseTime(const QString& text) {
    QString t = text.trimmed().toUpper();
    int half = 0; // 1 AM, 2 PM
    if (t.endsWith(QLatin1String("AM")) || t.endsWith(QLatin1String("PM"))) {
        half = t.endsWith(QLatin1String("AM")) ? 1 : 2;
        t = t.left(t.size() - 2).trimmed();
    } else if (t.endsWith(QLatin1Char('A')) || t.endsWith(QLatin1Char('P'))) {
        half = t.endsWith(QLatin1Char('A')) ? 1 : 2;
        t = t.left(t.size() - 1).trimmed();
    }
    const QStringList parts = t.split(QLatin1Char(':'));
    if (parts.size() < 1 || parts.size() > 3) return std::nullopt;
    for (const QString& p : parts)
        if (!IsNumber(p) || p.size() > 2) return std::nullopt;
    int h = parts[0].toInt();
    const int m = parts.size() > 1 ? parts[1].toInt() : 0;
    const int s = parts.size() > 2 ? parts[2].toInt() : 0;
    if (parts.size() == 1 && half == 0) return std::nullopt;
    if (m > 59 || s > 59 || h > 23) return std::nullopt;
    if (half != 0 && h <= 12) {
        if (h == 12) h = 0;
        if (half == 2) h += 12;
    } else if (half == 1) {
        return std::nullopt; // 13 AM
    }
    return QTime(h, m, s);
}

} // namespace

std::optional<QDate> ParseReminderDate(const QString& text) {
    const QString t = text.trimmed();
    QStringList parts;
    for (QChar sep : {QLatin1Char('-'), QLatin1Char('/'), QLatin1Char(' ')}) {
        parts = t.split(sep);
        if (parts.size() == 3) break;
    }
    if (parts.size() != 3) return std::nullopt;
    for (QString& p : parts)
        p = p.trimmed();
    int month = 0, day = 0, year = -1;
    if (!IsNumber(parts[0]) || !IsNumber(parts[1]) || MonthNumber(parts[0]) == 0) {
        // A month name first ("Dec-25-2006") or second ("25-Dec-2006").
        if (!IsNumber(parts[0])) {
            month = MonthNumber(parts[0]);
            day = IsNumber(parts[1]) ? parts[1].toInt() : 0;
        } else {
            month = IsNumber(parts[1]) ? 0 : MonthNumber(parts[1]);
            day = parts[0].toInt();
        }
    } else {
        // All numbers: month, day, year, as the dialog's own short form writes them.
        month = parts[0].toInt();
        day = parts[1].toInt();
    }
    year = YearNumber(parts[2]);
    if (month < 1 || month > 12 || year < 100 || day < 1) return std::nullopt;
    const QDate d(year, month, day);
    if (!d.isValid()) return std::nullopt;
    return d;
}

std::optional<QDateTime> ParseReminderMoment(const QString& text) {
    const QString t = text.simplified();
    // The date is the first word; the rest is the time.
    const qsizetype blank = t.indexOf(QLatin1Char(' '));
    const QString datePart = blank < 0 ? t : t.left(blank);
    const QString timePart = blank < 0 ? QString() : t.mid(blank + 1);
    const auto d = ParseReminderDate(datePart);
    if (!d) return std::nullopt;
    QTime time(0, 0);
    if (!timePart.trimmed().isEmpty()) {
        const auto tm = ParseTime(timePart);
        if (!tm) return std::nullopt;
        time = *tm;
    }
    return QDateTime(*d, time);
}

qint64 MinutesBetween(const QDateTime& from, const QDateTime& to) {
    auto minutes = [](const QDateTime& v) {
        const qint64 days = QDate(1900, 1, 1).daysTo(v.date());
        return days * 1440 + v.time().hour() * 60 + v.time().minute();
    };
    return minutes(to) - minutes(from);
}

QString MonthAbbrev(int month) {
    if (month < 1 || month > 12) return QString();
    QString m = QString::fromLatin1(kMonths[month - 1]).left(3);
    m[0] = m[0].toUpper();
    return m;
}

QString SnoozeDateText(const QDate& d) {
    return MonthAbbrev(d.month()) + QLatin1Char('/') +
           QStringLiteral("%1").arg(d.day(), 2, 10, QLatin1Char('0')) + QLatin1Char('/') +
           QStringLiteral("%1").arg(d.year(), 4, 10, QLatin1Char('0'));
}

QString ReminderTimeText(const QTime& t) {
    int h = t.hour() % 12;
    if (h == 0) h = 12;
    return QStringLiteral("%1:%2 %3")
        .arg(h, 2, 10, QLatin1Char('0'))
        .arg(t.minute(), 2, 10, QLatin1Char('0'))
        .arg(t.hour() < 12 ? QStringLiteral("AM") : QStringLiteral("PM"));
}

} // namespace pd
