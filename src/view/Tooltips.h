#pragma once
// The tool tips of the workspace: several lines (a text's CR LF or LF breaks a line), at most 400 pixels
// wide (a longer line wraps at words), in the desktop's status-bar font, read afresh for each tip so
// that a change of the system's font shows on the next one. Qt places a tip under the pointer and keeps
// it whole on the screen.

#include <QFont>
#include <QString>

namespace pd {

inline constexpr int kTipMaxWidth = 400;

// The font of the tips: the desktop's status-bar font.
QFont TipFont();
// The text Qt's tip is given for `text`: the plain lines when the longest fits in `maxWidth` pixels of
// `font`, else rich text that wraps at that width.
QString TipMarkup(const QString& text, const QFont& font, int maxWidth = kTipMaxWidth);
// Sets the tips' font and returns the text to give a widget as its tip.
QString PrepareTip(const QString& text);

} // namespace pd
