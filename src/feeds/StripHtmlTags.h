#pragma once
// The cleaner every display of feed text goes through: removes tags, replaces a few entities, trims.

#include <QString>

namespace pd {

// Cleans `text` in place and returns the result as well.
// Tags are removed by taking the text from the first "<" to the first ">" and deleting every occurrence
// of exactly that text at once, again and again; a ">" ahead of the first "<" stops the removal. Then
// "&nbsp;", "&amp;", "&quot;" (to an apostrophe), "&#" (to "#"), "&lt;", "&gt;" and "%20" are replaced
// in that order, blanks are trimmed from both ends and leading line breaks dropped.
QString StripHTMLTags(QString& text);

} // namespace pd
