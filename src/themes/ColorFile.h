#pragma once
// Themes (.pkt: seven colours, a wallpaper and a button set) and colour schemes (.pkc: the seven
// colours) under DataPath/Skin: reading one into the Display Properties dialog, writing the dialog's
// look as one, deleting a scheme, and the lists of themes, schemes and button sets.
//
// A file is CR LF text: "[1.01]", then key and value lines:
//   [Background] [PictureBorder] [ContainerFor] [ContainerLabel] [ContainerTextBack] [ContainerTextFor]
//   [Foreground], each followed by a colour (" 2688768 ", 0x00BBGGRR in decimal);
// a theme goes on with "[Wallpaper]", the picture's file name in Skin/Wallpaper, the stretch flag (0 or
// 1, a line without a key), "[Buttons]" and the name of the button set.

#include <QString>
#include <QStringList>

namespace pd {

class Workspace;

// "[1.01]": the first line of every theme and colour scheme.
inline constexpr const char* kColorFileVersion = "[1.01]";

// A file of `folder` named `fileName`, found whatever the case of its name on the disk (the lists show
// names in lower case). The exact name is preferred; empty when there is no such file.
QString FindSkinFile(const QString& folder, const QString& fileName);
// A name as the lists show it: the file name in lower case, cut at its first dot.
QString SkinListName(const QString& fileName);

// Reads a theme or a colour scheme into the dialog's elements; a file whose first line is not
// "[1.01]" is ignored. The workspace changes only when the dialog is applied.
void LoadColorFile(Workspace& ws, const QString& path);
// The preview of the wallpaper: imgWallpaper shows the picture, which apply would then use.
void SetPreviewWallpaper(Workspace& ws, const QString& path);
// The thirteen preview boxes show the images of button set `SetName`; a file that cannot be read
// leaves that box's old image.
void LoadButtonPreview(Workspace& ws, const QString& SetName);

// "Save Color Theme": asks for a name (again after a No to the overwrite), and writes a colour scheme
// or, with a wallpaper in use and a Yes, a theme.
void cmdSaveColors_Click(Workspace& ws);
// Deletes the colour scheme chosen in ListColors, after asking; never the last one.
void cmdDeleteColors_Click(Workspace& ws);

// Fill CboButtons with the folders of Skin/Buttons, CboThemes with Skin/*.pkt and ListColors with
// Skin/Colors/*.pkc.
void ListButtonSets(Workspace& ws);
void ListThemes(Workspace& ws);
void ListColorSchemes(Workspace& ws);

// A click on a theme or a colour scheme of the lists: the file is read into the dialog.
void CboThemes_Click(Workspace& ws, int index);
void ListColors_Click(Workspace& ws, int index);

} // namespace pd
