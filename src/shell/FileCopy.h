#pragma once
// The engine under every copy and delete of user files: copies files and folders into a folder in
// chunks (so that a cancel takes effect within a chunk and a progress window can follow), names a copy
// whose name is taken as the desktop's file managers do, and deletes to the trash. Runs on any thread;
// the Qt platform runs it on a worker thread under its progress window, the tests' platform at once.

#include "platform/Platform.h"

#include <QString>

#include <atomic>
#include <functional>

namespace pd {

// Bytes done and bytes in all, and the file at hand.
using FileOpProgress = std::function<void(qint64 done, qint64 total, const QString& current)>;

// Runs `op` (FileOp::Copy or FileOp::Delete). `cancel`, when given, is polled between chunks and files:
// once set, the partial copy is removed and the result is aborted. Returns 0 and `made` on success, or
// the first error number (errno) with what was done until then.
FileOpResult RunFileOperation(const FileOpRequest& op, const std::atomic<bool>* cancel,
                              const FileOpProgress& progress);

// The name that a copy of `name` takes in `folder` when its own is taken, as the file managers of the
// desktop name copies: "a (copy).txt", then "a (copy 2).txt", "a (copy 3).txt"...; a folder or a name
// without extension takes the suffix at its end. Returns `name` itself when it is free.
QString FreeCopyName(const QString& folder, const QString& name);

} // namespace pd
