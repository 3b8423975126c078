#pragma once
// The Display Properties dialog (frmProperties, F4): the colours, the wallpaper, the button set, the
// font and the large icon size of the workspace, and named themes and colour schemes. It shows the
// workspace's values and changes nothing until it is applied; its five settings buttons open the main
// window's settings menus, whose entries act at once.

#include <QString>

namespace pd {

class Workspace;

// "Display Properties" (F4): loads the dialog, or brings the loaded one forward.
void mnuProperties_Click(Workspace& ws);
// Fills the lists and sets every element from the workspace.
void FrmProperties_Load(Workspace& ws);
// Closes the dialog; the auto-hide runs again.
void FrmProperties_Unload(Workspace& ws);

// A click on a colour box, by its name ("picBackColor", "PicLinkColor", "picConFor",
// "picContainerLabelColor", "picContainerTextBack", "picContainerTextFor", "picBorderColor",
// "picDockBorder"): the desktop's colour chooser, starting from the box's colour.
void ColorBox_Click(Workspace& ws, const QString& box);
// picWallpaper or lblWallpaper: "Open Picture" in Skin/Wallpaper.
void picWallpaper_Click(Workspace& ws);
void chkWallpaper_Click(Workspace& ws, bool checked);
void chkStretch_Click(Workspace& ws, bool checked);
// A button set chosen in CboButtons: its preview shows.
void CboButtons_Click(Workspace& ws, const QString& SetName);
void txtIconSize_Change(Workspace& ws, const QString& text);
// "Se&lect": the desktop's font chooser on the dialog's font.
void CmdFont_Click(Workspace& ws);

// The five settings buttons: each opens its menu of the main window under the button.
void cmdContainersSettings_Click(Workspace& ws);
void cmdDockSettings_Click(Workspace& ws);
void cmdGlobalSettings_Click(Workspace& ws);
void cmdRemindersSettings_Click(Workspace& ws);
void cmdShortcutsSettings_Click(Workspace& ws);

// "&Apply", OK and cancel.
void cmdApply_Click(Workspace& ws);
void OKButton_Click(Workspace& ws);
void cmdCancel_Click(Workspace& ws);

// Carries the dialog's values to the workspace, in a fixed order, and saves.
void ApplyProperties(Workspace& ws);

// Sets the commands of the themes subsystem on their menu entries (mnuProperties, mnuContainerColors).
void WireThemes(Workspace& ws);

} // namespace pd
