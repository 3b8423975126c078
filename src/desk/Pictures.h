#pragma once
// Pictures on the workspace: a frame (`picPlaceholder`) holding the image (`imgPicture`) while unlocked,
// and a plain image (`picTemp`) while locked. Reminders use the same elements.

#include <QString>

namespace pd {

class Workspace;

// Makes the next desk object with the image at `path`. Returns false when the image cannot be loaded;
// the members then stay empty and the count does not move.
bool AddPicture(Workspace& ws, const QString& path, bool isReminder = false);
// Puts the newest desk object at (x, y) and fits its image to the frame.
void PlacePicture(Workspace& ws, float x, float y);
// Switches SelectedDeskObject between its unlocked and locked face.
void ToggleLock(Workspace& ws);

} // namespace pd
