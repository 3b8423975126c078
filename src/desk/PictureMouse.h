#pragma once
// The mouse on a picture's image (`imgPicture`, unlocked) or its locked face (`picTemp`), which is also
// a reminder's icon: the press selects it and opens its menu, a left drag moves it (a locked picture
// does not move), the release keeps it inside its owner, a double click opens it.

#include <QString>

namespace pd {

class Workspace;

// Presses; X, Y in the element's twips. Return the popup menu to open ("mnuPicture"), or empty.
QString imgPicture_MouseDown(Workspace& ws, int Button, int Shift, int j, float X, float Y);
QString picTemp_MouseDown(Workspace& ws, int Button, int Shift, int j, float X, float Y);
void imgPicture_MouseMove(Workspace& ws, int Button, int Shift, int j, float X, float Y);
void picTemp_MouseMove(Workspace& ws, int Button, int Shift, int j, float X, float Y);
void imgPicture_MouseUp(Workspace& ws, int Button, int Shift, int j);
void picTemp_MouseUp(Workspace& ws, int Button, int Shift, int j);
void imgPicture_DblClick(Workspace& ws, int j);
void picTemp_DblClick(Workspace& ws, int j);

// The tip of a reminder's icon: its date and time, a line of 31 underscores, its note.
QString ReminderTip(Workspace& ws, int j);
// The entry that a double click on the menu's object runs by default: mnuPicLock, or mnuReminderEdit.
QString PictureMenuDefault(Workspace& ws);

} // namespace pd
