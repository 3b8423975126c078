#pragma once
// The icon of a file on the Linux desktop: image and icon files are drawn themselves, a desktop entry
// by its Icon key, a folder and every other file by the icon theme's icon for its type. Icons are
// looked up once per type (or per image file) and kept.

#include <QPixmap>
#include <QString>

namespace pd {

// Every icon is `size` logical pixels square and made for the device pixel ratio `dpr`: it holds
// size * dpr device pixels (theme icons are asked at that size, pictures are scaled to it, our own
// drawings are drawn at it) and carries the ratio, so that it is sharp on a high-density screen.

// The icon of `path`; a blank page when nothing better is known.
QPixmap FileIconPixmap(const QString& path, int size, qreal dpr = 1.0);
// An icon of the desktop's theme by name ("utilities-terminal"), with a drawing of our own where the
// theme has none.
QPixmap ThemeIconPixmap(const QString& name, int size, qreal dpr = 1.0);
// The picture of a shortcut whose target is missing: a dashed page with a question mark.
QPixmap NoIconPixmap(int size, qreal dpr = 1.0);
// Forgets every icon looked up so far (for measuring the lookup).
void ClearFileIconCache();

} // namespace pd
