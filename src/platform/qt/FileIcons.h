#pragma once
// The icon of a file on the Linux desktop: image and icon files are drawn themselves, a desktop entry
// by its Icon key, a folder and every other file by the icon theme's icon for its type. Icons are
// looked up once per type (or per image file) and kept.

#include <QPixmap>
#include <QString>

namespace pd {

// The icon of `path` at `size` pixels square; a blank page when nothing better is known.
QPixmap FileIconPixmap(const QString& path, int size);

} // namespace pd
