#pragma once
// The one wrapper through which user files are copied, moved and deleted, and the copy of a dropped or
// pasted file into a folder-link container.

#include "platform/Platform.h"

#include <QString>

namespace pd {

class Workspace;

// Flags of the uses: a copy into a folder link, and a delete that goes to the trash.
inline constexpr int kCopyFlags = FileOp::SimpleProgress | FileOp::RenameOnCollision; // 264
inline constexpr int kDeleteFlags = FileOp::SimpleProgress | FileOp::AllowUndo;       // 320

// Runs the operation through the platform with the auto-hide held off. Returns the result (0 done,
// else an error number); `aborted` tells whether the user cancelled.
int FileOperation(Workspace& ws, const FileOpRequest& op, bool& aborted);

// Copies `file` into the folder link of the container that holds shortcut n, as a drop or a paste does:
// nothing when the folder is gone or already holds a file of that name; a failure says so and leaves
// the shortcut on `file`; a success points the shortcut at the copy. With `move` the source then goes
// to the trash. Returns true when the shortcut now points at the copy.
bool CopyIntoFolderLink(Workspace& ws, int n, const QString& file, const QString& folder, bool move);

// Joins a folder and a name with one separator.
QString JoinPath(const QString& folder, const QString& name);

} // namespace pd
