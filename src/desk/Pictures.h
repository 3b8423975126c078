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
// Gives the frame of object j the image's natural size and 240 twips around it.
void OriginalSize(Workspace& ws, int j);
// Takes the object's image away and hides both faces; the record and the slot stay. With `update`, the
// reminders-present flag is recomputed.
void DeleteDeskObject(Workspace& ws, int index, bool update);
// The file dialog of pictures; empty when cancelled.
QString ChoosePictureFile(Workspace& ws);

// The message of an image that cannot be read.
inline const char* const kUnableToLoadPicture = "Unable to load selected picture";

// The menu commands of pictures (mnuPicture, and "Add Picture" of the main menu).
void mnuAddPicture_Click(Workspace& ws);
void mnuPicLock_Click(Workspace& ws);
void mnuPicOriginalSize_Click(Workspace& ws);
void mnuPicFroward_Click(Workspace& ws);
void mnuPicSendToBack_Click(Workspace& ws);
void mnuPicReplace_Click(Workspace& ws);
// Deletes the selected picture, or (after "Delete Reminder?" when deletions are confirmed) reminder.
void mnuPicDelete_Click(Workspace& ws);

} // namespace pd
