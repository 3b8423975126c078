#include "window/RelativeLayout.h"

#include "app/workspace/Workspace.h"
#include "feeds/FeedContainers.h"

namespace pd {

void SetObjectRelativeSize(Workspace& ws, int i) {
    const Element& g = ws.Group(i);
    // A negative width is refused, as the toolkit would, and the old width stays.
    auto setWidth = [](Element& e, float w) {
        if (w >= 0) e.Width = w;
    };
    auto setHeight = [](Element& e, float h) {
        if (h >= 0) e.Height = h;
    };
    setWidth(ws.groupName(i), g.Width - 1380);
    setWidth(ws.lblName(i), g.Width - 1380);
    ws.chkFold(i).Left = g.Width - 390;
    ws.chkUnfold(i).Left = g.Width - 390;
    ws.picPinNote(i).Left = g.Width - 600;
    ws.picPin(i).Left = g.Width - 600;
    Element& border = ws.grpBorder(i);
    setWidth(border, g.Width - 30);
    setHeight(border, g.Height - 30);
    setWidth(ws.txtNote(i), border.Width - 30 - 130);
    setHeight(ws.txtNote(i), border.Height - 30 - 410);
    const ContainerRecord& r = ws.Containers[i];
    if (r.IsFeed && ws.LstRSS.exists(r.FeedIndex)) {
        Element& panel = ws.LstRSS(r.FeedIndex);
        setWidth(panel, border.Width - 30 - 130);
        setHeight(panel, border.Height - 30 - 600);
        FeedPanelResized(ws, r.FeedIndex);
        if (ws.lblRSSLastUpdate.exists(r.FeedIndex)) {
            Element& label = ws.lblRSSLastUpdate(r.FeedIndex);
            if (ws.picShrink(i).Top == 30) label.Move(100, border.Height - 250);
            else label.Move(100, 60);
        }
    }
    RoundContainerCorners(ws, i);
}

void RoundContainerCorners(Workspace& ws, int i) {
    ws.Group(i).CornerRadius = 12;
    ws.grpBorder(i).CornerRadius = 12;
}

} // namespace pd
