#pragma once
// Starting a shortcut's target on the Linux desktop, with the small error numbers the shortcut code
// reports.

#include <QString>
#include <QStringList>

namespace pd {

// Starts `file` with the command-line text `params` (split by SplitCommandLine: blanks separate,
// double quotes group) in the working folder `dir` (empty: the program's own), and returns at once,
// never waiting for what it started: 42 on success, else an error number.
//  - An executable file starts detached with its parameters in `dir`. A program name without a
//    folder ("firefox") is looked up on PATH. "/bin/sh" with "-c <command>" is how command shortcuts
//    run.
//  - A `.desktop` file starts as its entry says: Type=Application runs Exec (field codes expanded,
//    the parameters as its files, Path as the working folder, through a terminal when Terminal=true
//    and one is found); Type=Link opens its URL.
//  - A folder, a document or an address goes to the desktop's opener (xdg-open), started detached.
// Errors: 2 the file is missing, 3 its folder (or the working folder) is missing, 5 not permitted (an
// unreadable file, a program file without the permission to run), 11 a program that cannot be run or
// a broken entry, 31 no opener, or an address whose scheme no application handles.
// A document whose type has no application cannot be told apart at once: the opener runs detached and
// reports that itself, and the start counts as done.
int LaunchTarget(const QString& file, const QString& params, const QString& dir);

// The arguments of a desktop entry's Exec value (already read as a string value): split by the
// entry's quoting rules, with the field codes %f %u (the first file), %F %U (all files), %i (--icon
// and the icon), %c (the name), %k (the entry's own path) and %% expanded, and the deprecated codes
// removed. Files given to an Exec without a file code are appended.
QStringList DesktopExecArguments(const QString& exec, const QStringList& files, const QString& icon,
                                 const QString& name, const QString& entryPath);

} // namespace pd
