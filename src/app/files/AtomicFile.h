#pragma once
// Helpers of the atomic file writer (WriteFileAtomically in TextFile.h): the removal of temporary files
// that a crash left behind, and its system calls, replaceable so that tests can make a write or a
// flush fail part way, as a full disk does, without needing one.

#include <sys/types.h>

#include <cstddef>
#include <functional>

class QRegularExpression;
class QString;

namespace pd {

struct FileWriteCalls {
    // As ::write: the bytes taken (maybe fewer than asked), or -1 with errno set.
    std::function<ssize_t(int fd, const void* data, size_t size)> write;
    // As ::fsync: 0, or -1 with errno set.
    std::function<int(int fd)> sync;
};

// Puts `calls` in place (an empty member means the system's call) and returns those it replaces.
FileWriteCalls SetFileWriteCalls(FileWriteCalls calls);

// Removes, in `folder`, the temporary files of writes that never finished: a name that `target` matches
// whole, then a dot and six letters or digits. Returns how many went.
int RemoveLeftoverTemporaries(const QString& folder, const QRegularExpression& target);

} // namespace pd
