#include "app/workspace/Workspace.h"
#include "shortcuts/Shortcuts.h"

namespace pd {

void RemoveLink(Workspace& ws, int n) {
    if (n < 0 || n >= static_cast<int>(ws.Links.size()) || !ws.Link.exists(n)) return;
    LinkRecord& r = ws.Links[n];
    r.LinkIcon.clear();
    r.LinkPath.clear();
    r.LinkParam.clear();
    r.Tags.clear();
    Element& label = ws.Link(n);
    label.Caption = QString();
    label.Visible = false;
    Element& icon = ws.PicIcon(r.IconIndex);
    icon.Picture = QString();
    icon.Visible = false;
}

} // namespace pd
