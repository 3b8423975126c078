#pragma once
// The command-line text that a start is given, and the address test: shared by the launching code,
// which writes parameter texts, and the platform's launcher, which reads them.

#include <QString>
#include <QStringList>

namespace pd {

// Whether a target is an address with a scheme ("http://...", "mailto:..."), not a path. A single
// letter before the colon is a Windows drive, not a scheme.
bool HasUrlScheme(const QString& target);

// The parameter text of a start is one command line. Words are separated by blanks; a double quote
// opens or closes a quoted part, in which blanks belong to the word; two double quotes inside a
// quoted part stand for one double quote. A word written as "" is an empty word. Backslashes are
// ordinary characters, so Windows-style paths pass through unchanged.
QStringList SplitCommandLine(const QString& params);
// Quotes `word` so that SplitCommandLine gives it back as one word, whatever it holds.
QString QuoteCommandWord(const QString& word);

} // namespace pd
