#include "shortcuts/LinkLayout.h"

#include "app/files/Values.h"
#include "app/workspace/Workspace.h"

namespace pd {

void MoveLinkIcon(Workspace& ws, int n) {
    if (n < 0 || n >= static_cast<int>(ws.Links.size())) return;
    Element& label = ws.Link(n);
    Element& icon = ws.PicIcon(ws.Links[n].IconIndex);
    icon.setContainer(label.Container());
    const float w = 16 * ws.TwipsPerPixelX();
    icon.Move(label.Left - w - 2 * ws.TwipsPerPixelX(), label.Top, w, 16 * ws.TwipsPerPixelY());
    SetIf(ws.Links[n].Size, RoundToWord(label.FontSize.get()));
}

} // namespace pd
