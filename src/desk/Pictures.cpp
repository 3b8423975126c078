#include "desk/Pictures.h"

#include "app/workspace/Workspace.h"

namespace pd {

bool AddPicture(Workspace& ws, const QString& path, bool isReminder) {
    if (ws.DeskObjectCount == INT16_MAX) return false; // the 16-bit count is used up
    const int j = ws.DeskObjectCount;
    if (static_cast<int>(ws.DeskObjects.size()) <= j) ws.DeskObjects.resize(static_cast<size_t>(j) + 1);
    Element& frame = ws.picPlaceholder.Load(j);
    Element& image = ws.imgPicture.Load(j);
    Element& locked = ws.picTemp.Load(j);
    image.setContainer(&frame);
    // A picture added from a container's menu goes into that container. No menu starts the additions of
    // the load: their records say where they lie.
    const bool fromContainer =
        !ws.IsLoading && ws.menus.has("mnuDeleteContainer") && ws.menus["mnuDeleteContainer"].Visible();
    Element& owner = fromContainer ? ws.grpBorder(ws.SelectedContainer) : ws.picBack(0);
    frame.setContainer(&owner);
    locked.setContainer(&owner);

    const QSize natural = ws.platform.imageSize(path);
    if (!natural.isValid() || natural.isEmpty()) return false;

    ws.DeskObjects[j] = DeskObjectRecord{};
    ws.DeskObjects[j].PicPath = path;
    ws.DeskObjects[j].IsReminder = isReminder;
    frame.BackColor = ws.picPlaceholder(0).BackColor.get();
    frame.Visible = true;
    frame.ZOrder(0);
    image.Picture = path;
    image.Move(100, 100, natural.width() * ws.TwipsPerPixelX(), natural.height() * ws.TwipsPerPixelY());
    image.ToolTipText = QStringLiteral("Double-Click: Open | Right-Click: Options");
    image.Visible = true;
    locked.ToolTipText = QStringLiteral("Double-Click: View | Right-Click: Options");
    locked.Visible = false;
    ++ws.DeskObjectCount;
    return true;
}

void PlacePicture(Workspace& ws, float x, float y) {
    const int j = ws.DeskObjectCount - 1;
    if (j < 0) return;
    Element& frame = ws.picPlaceholder(j);
    frame.Move(x, y);
    ws.imgPicture(j).Move(100, 100, frame.Width - 240, frame.Height - 240);
}

void ToggleLock(Workspace& ws) {
    const int j = ws.SelectedDeskObject;
    if (!ws.picPlaceholder.exists(j)) return;
    Element& frame = ws.picPlaceholder(j);
    Element& image = ws.imgPicture(j);
    Element& locked = ws.picTemp(j);
    MenuEntry& mark = ws.menus["mnuPicLock"];
    // The face on screen decides the direction, so that loading several locked pictures in a row
    // locks each of them.
    if (!locked.Visible) {
        const float inset = ws.DeskObjects[j].IsReminder ? 0 : 100;
        locked.setContainer(frame.Container());
        locked.Move(frame.Left + inset, frame.Top + inset, image.Width, image.Height);
        locked.Picture = image.Picture.get();
        frame.Visible = false;
        locked.Visible = true;
        mark.setChecked(true);
    } else {
        image.Move(100, 100);
        locked.Visible = false;
        frame.Visible = true;
        image.Width = frame.Width - 240;
        image.Height = frame.Height - 240;
        mark.setChecked(false);
    }
}

} // namespace pd
