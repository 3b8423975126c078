#include "themes/ConColors.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "containers/Shrinking.h"
#include "feeds/FeedContainers.h"
#include "themes/Buttons.h"
#include "themes/ThemeState.h"
#include "window/AutoHide.h"

namespace pd {

namespace {

void Unload(Workspace& ws) {
    ThemeState& t = Themes(ws);
    if (!t.ConColors.Loaded) return;
    t.ConColors.Loaded = false;
    EnableDisableTimerHide(ws, true);
    if (t.onCloseConColors) t.onCloseConColors();
    t.ConColors.changed();
}

void Choose(Workspace& ws, int32_t FrmConColors::*box) {
    FrmConColors& f = Themes(ws).ConColors;
    const int32_t c = ws.platform.chooseColor(f.*box);
    if (c == -1) return;
    f.*box = c;
    f.changed();
}

} // namespace

void ApplyContainerColors(Workspace& ws, int i, int32_t Back, int32_t Fore, bool redrawIcon) {
    if (!ws.Group.exists(i)) return;
    ws.grpBorder(i).BackColor = Back;
    ws.grpBorder(i).ForeColor = Fore;
    ws.lblName(i).ForeColor = Fore;
    SetColors(ws, i, Back);
    const bool haveRecord = i < static_cast<int>(ws.Containers.size());
    const ContainerRecord* r = haveRecord ? &ws.Containers[i] : nullptr;
    const bool feed = r && r->IsFeed;
    if (feed && ws.LstRSS.exists(r->FeedIndex)) ws.LstRSS(r->FeedIndex).BackColor = Back;
    if (r && (!r->IconPath.isEmpty() || redrawIcon)) {
        ThemeState& t = Themes(ws);
        if (feed) {
            if (ws.lblRSSLastUpdate.exists(r->FeedIndex)) ws.lblRSSLastUpdate(r->FeedIndex).ForeColor = Fore;
            // The feed's address is the container's CopyPath.
            if (t.AddRSSShrinkIcon)
                t.AddRSSShrinkIcon(r->CopyPath, i);
            else
                AddRSSShrinkIcon(ws, r->CopyPath, i);
        } else {
            AddShrinkIcon(ws, r->IconPath, i);
        }
    }
    // Shortcuts without a colour of their own follow the container's fore colour.
    for (int n = 0; n < ws.Link.Count(); ++n)
        if (ws.Link.exists(n) && ws.Link(n).Container() == &ws.grpBorder(i) &&
            n < static_cast<int>(ws.Links.size()) && ws.Links[n].LinkColor == -1)
            ws.Link(n).ForeColor = Fore;
}

void mnuContainerColors_Click(Workspace& ws) {
    ThemeState& t = Themes(ws);
    FrmConColors& f = t.ConColors;
    const int i = ws.SelectedContainer;
    if (!ws.Group.exists(i)) return;
    f.Container = i;
    f.picBack = ws.grpBorder(i).BackColor;
    f.picFore = ws.grpBorder(i).ForeColor;
    if (!f.Loaded) EnableDisableTimerHide(ws, false);
    f.Loaded = true;
    f.changed();
    if (t.onShowConColors) t.onShowConColors();
}

void picBack_Click(Workspace& ws) {
    Choose(ws, &FrmConColors::picBack);
}
void picFore_Click(Workspace& ws) {
    Choose(ws, &FrmConColors::picFore);
}

void CmdSwitch_Click(Workspace& ws) {
    FrmConColors& f = Themes(ws).ConColors;
    std::swap(f.picBack, f.picFore);
    f.changed();
}

void Command1_Click(Workspace& ws) {
    if (ws.platform.messageBox(QStringLiteral("Reset Container's colors to defualt values?"),
                               MsgStyle::YesNoWarning) != MsgAnswer::Yes)
        return;
    FrmConColors& f = Themes(ws).ConColors;
    f.picBack = ws.ContainerColor;
    f.picFore = ws.ContainerLabelColor;
    f.changed();
    ConColors_OKButton_Click(ws);
}

void ConColors_OKButton_Click(Workspace& ws) {
    FrmConColors& f = Themes(ws).ConColors;
    const int32_t back = f.picBack;
    const int32_t fore = f.picFore;
    Unload(ws);
    auto selected = [&ws](int i) { return ws.Group.exists(i) && ws.lblName(i).FontBold; };
    int count = 0;
    for (int i = 0; i < ws.Group.Count(); ++i)
        if (selected(i) && ws.Group(i).Visible) ++count;
    const int here = ws.SelectedContainer;
    if (count < 2) {
        ApplyContainerColors(ws, here, back, fore);
    } else if (ws.platform.messageBox(QStringLiteral("Apply colors to all selected containers?"),
                                      MsgStyle::YesNo | MsgStyle::Question) != MsgAnswer::Yes) {
        ApplyContainerColors(ws, here, back, fore);
    } else {
        if (ws.Group.exists(here)) SelectGroup(ws, here);
        for (int i = 0; i < ws.Group.Count(); ++i)
            if (selected(i)) ApplyContainerColors(ws, i, back, fore);
    }
    SaveDesktop(ws, true, false);
}

void ConColors_CancelButton_Click(Workspace& ws) {
    Unload(ws);
}

} // namespace pd
