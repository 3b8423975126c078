#pragma once
// The desktop's forms of a file list (text/uri-list, x-special/gnome-copied-files) read back.

#include <QStringList>

class QMimeData;

namespace pd {

// The local files that drag or clipboard data lists, in order; empty when it lists none.
QStringList LocalFilesOf(const QMimeData* data);

} // namespace pd
