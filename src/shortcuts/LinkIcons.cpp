// The icon beside each shortcut. The core picks the file whose icon is shown and tells the view by the
// icon box's Picture: "fileicon:<path>" is the desktop's icon of that file (its own image for image
// files, a desktop entry's Icon, else the icon theme's icon of its type), "themeicon:<name>" an icon of
// the theme by name, and "noicon:" the no-icon picture (NoIconBig/NoIconSmall, drawn by the view at the
// box's size). The view looks icons up once per type and size and keeps them.

#include "shortcuts/LinkIcons.h"

#include "app/workspace/Workspace.h"
#include "shortcuts/Launch.h"

#include <QFileInfo>

namespace pd {

namespace {
// Command shortcuts run through the shell: they show the terminal, as the command prompt's icon.
const QString kCommandIcon = QStringLiteral("themeicon:utilities-terminal");
} // namespace

void DrawFileIcon(Workspace& ws, int n) {
    if (n < 0 || n >= static_cast<int>(ws.Links.size()) || !ws.Link.exists(n)) return;
    const LinkRecord& r = ws.Links[n];
    if (!ws.PicIcon.exists(r.IconIndex)) return;
    Element& label = ws.Link(n);
    Element& box = ws.PicIcon(r.IconIndex);
    const Element* owner = label.Container();
    if (owner && owner->Name() == QLatin1String("grpBorder")) box.BackColor = owner->BackColor.get();
    const bool Large = label.FontSize > 10;
    QString file;
    if (!r.LinkIcon.isEmpty()) file = r.LinkIcon;
    else if (r.LinkType == 1.0f) file = ws.programFile(QStringLiteral("Perchdock Home Page.html"));
    else if (r.Command != 0) file = kCommandIcon;
    else file = r.LinkPath.startsWith(QLatin1Char('@')) ? ExpandDriveLetter(ws, r.LinkPath) : r.LinkPath;
    DrawIconToBox(ws, box, file, Large);
}

void DrawIconToBox(Workspace& ws, Element& Box, const QString& File, bool Large) {
    (void)ws;
    (void)Large; // the box's own size (16 pixels or the large size) decides the size drawn
    // A box on the background is transparent, so the wallpaper behind it shows around the icon; in a
    // container it takes the container's colour.
    const Element* owner = Box.Container();
    Box.BackStyle = (owner && owner->Name() == QLatin1String("picBack")) ? 0 : 1;
    if (File.startsWith(QLatin1String("themeicon:"))) {
        Box.Picture = File;
        return;
    }
    const QFileInfo info(File);
    Box.Picture = (File.isEmpty() || !info.exists()) ? QStringLiteral("noicon:") : QStringLiteral("fileicon:") + File;
}

} // namespace pd
