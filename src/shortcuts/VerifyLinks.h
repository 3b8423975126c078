#pragma once
// Shortcut verification and relative paths: finding shortcuts whose target has gone, and storing
// paths relative to the program's drive, for a program carried on a removable drive.

#include <QString>

namespace pd {

class Workspace;

// Whether a shortcut's target is there: a file (hidden or not) or a folder.
bool TargetPresent(const QString& Path);
// Walks every file shortcut and offers to remove those whose target has gone ("Remove Shortcut: ...");
// Silent removes them without asking. Says "All shortcuts are valid" when none was missing.
void VerifyLinks(Workspace& ws, bool Silent);
// The "@" form of a path: "@" then the path below the mount point of the file system that holds it.
// The replacement is blind, as the drive letter's was: a path on another file system now names the same
// place on the program's file system, and a path without a root is cut by one character.
QString RelativeLinkPath(const QString& Path);
// "Change to &Relative Path": the selected file shortcuts take the "@" form, after asking.
void mnuRelativePath_Click(Workspace& ws);

} // namespace pd
