#include "shortcuts/CommandLine.h"

namespace pd {

bool HasUrlScheme(const QString& target) {
    // scheme = letter *( letter / digit / "+" / "-" / "." ), then ":"; at least two characters, so
    // that "C:\x" stays a path.
    const qsizetype colon = target.indexOf(QLatin1Char(':'));
    if (colon < 2) return false;
    if (!target.at(0).isLetter() || target.at(0).unicode() > 127) return false;
    for (qsizetype i = 1; i < colon; ++i) {
        const QChar c = target.at(i);
        if (c.unicode() > 127) return false;
        if (!c.isLetterOrNumber() && c != QLatin1Char('+') && c != QLatin1Char('-') && c != QLatin1Char('.'))
            return false;
    }
    return true;
}

QStringList SplitCommandLine(const QString& params) {
    QStringList words;
    QString word;
    bool inWord = false;   // a word has begun (a quoted empty word counts)
    bool quoted = false;   // inside a quoted part
    const qsizetype size = params.size();
    for (qsizetype i = 0; i < size; ++i) {
        const QChar c = params.at(i);
        if (c == QLatin1Char('"')) {
            inWord = true;
            if (quoted && i + 1 < size && params.at(i + 1) == QLatin1Char('"')) {
                word += c;
                ++i;
            } else {
                quoted = !quoted;
            }
        } else if (!quoted && c.isSpace()) {
            if (inWord) words.append(word);
            word.clear();
            inWord = false;
        } else {
            word += c;
            inWord = true;
        }
    }
    if (inWord) words.append(word);
    return words;
}

QString QuoteCommandWord(const QString& word) {
    QString quotedWord = word;
    quotedWord.replace(QLatin1String("\""), QLatin1String("\"\""));
    return QLatin1Char('"') + quotedWord + QLatin1Char('"');
}

} // namespace pd
