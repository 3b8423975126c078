#include "containers/Shrinking.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "desk/Notes.h"
#include "feeds/FeedContainers.h"
#include "window/AutoHide.h"
#include "window/RelativeLayout.h"
#include "shell/FolderLink.h"

namespace pd {

namespace {
float ParentWidth(const Element& e) { return e.Container() ? e.Container()->Width.get() : 0.0f; }
float ParentHeight(const Element& e) { return e.Container() ? e.Container()->Height.get() : 0.0f; }

void Expand(Workspace& ws, int i) {
    ContainerRecord& r = ws.Containers[i];
    Element& g = ws.Group(i);
    ws.playSound(QStringLiteral("expand.wav"));
    FocusContainerContent(ws, i);
    if (r.IsFeed && ws.lblRSSLastUpdate.exists(r.FeedIndex)) {
        Element& label = ws.lblRSSLastUpdate(r.FeedIndex);
        label.Visible = true;
        label.Caption = FeedLastUpdateCaption(ws, i);
    }
    if (ws.HoldExpanded) {
        ws.HoldExpanded = false;
        ShrinkBackContainer(ws);
        ws.ExpandedContainer = -1;
    }
    if (g.Left + static_cast<float>(r.W) > ParentWidth(g)) {
        r.KeepX = true;
        SetRecordLength(r.X, g.Left);
        g.Left = ParentWidth(g) - static_cast<float>(r.W) - 100;
    } else {
        r.KeepX = false;
    }
    if (g.Top + static_cast<float>(r.H) > ParentHeight(g)) {
        r.Flipped = true;
        SetRecordLength(r.Y, g.Top);
        g.Top = ParentHeight(g) - static_cast<float>(r.H) - 100;
    } else {
        r.Flipped = false;
    }
    g.ZOrder(0);
    g.Height = static_cast<float>(r.H);
    g.Width = static_cast<float>(r.W);
    SetObjectRelativeSize(ws, i);
    ws.lblName(i).Visible = true;
    ws.chkFold(i).Visible = true;
    ws.chkUnfold(i).Visible = false;
    ws.ShrinkIcon(i).Visible = false;
    ws.chkFold(i).ZOrder(0);
    RefreshOnExpand(ws, i);
    if (ws.chkFold(i).Top != 30) {
        SetTitleEdge(ws, false, i);
        ws.txtNote(i).Height = ws.grpBorder(i).Height - 30 - 410;
    }
}

void Shrink(Workspace& ws, int i) {
    if (ws.DontShrink) return;
    ContainerRecord& r = ws.Containers[i];
    Element& g = ws.Group(i);
    if (!TitleAtTop(ws, i)) {
        SetTitleEdge(ws, false, i);
        if (r.IsFeed && ws.lblRSSLastUpdate.exists(r.FeedIndex))
            ws.lblRSSLastUpdate(r.FeedIndex).Caption = FeedLastUpdateCaption(ws, i);
    }
    // An open note stays a note: the tile's icon covers it, and it shows again when the tile opens.
    ws.LastClickShrunk = i;
    if (ws.chkFold(i).Visible) NoteContainerGeometry(ws, i);
    if (!ws.IsLoading) ws.playSound(QStringLiteral("shrink.wav"));
    g.Top = static_cast<float>(r.Y);
    g.Width = 700;
    g.Height = 950;
    ws.grpBorder(i).Width = g.Width - 30;
    ws.grpBorder(i).Height = g.Height - 30;
    ws.ShrinkIcon(i).Visible = true;
    ws.lblName(i).Visible = false;
    ws.chkFold(i).Visible = false;
    ws.chkUnfold(i).Visible = false;
    ws.OpenContainer = -1;
    ws.ShrinkIcon(i).ZOrder(0);
    // While loading, the background has not yet its size (the window is laid out at the end of the
    // load): a tile stays where its file put it, as open containers do.
    if (!ws.IsLoading) KeepInsideParent(ws, g);
    g.Left = r.X < 0 ? 0.0f : static_cast<float>(r.X);
    RoundContainerCorners(ws, i);
}
} // namespace

QString FeedLastUpdateCaption(Workspace& ws, int i) {
    return FeedLastUpdateAge(ws, i);
}

void ToggleShrink(Workspace& ws, int i) {
    if (!ws.Group.exists(i)) return;
    if (IsShrunkSize(ws, i)) Expand(ws, i);
    else Shrink(ws, i);
}

void ShrinkBackContainer(Workspace& ws) {
    if (ws.HoldExpanded) return;
    ws.LastClickShrunk = -1;
    if (ws.ExpandedContainer != -1) {
        const int e = ws.ExpandedContainer;
        if (ws.Group.exists(e) && !IsShrunkSize(ws, e)) ToggleShrink(ws, e);
        ws.ExpandedContainer = -1;
    }
}

void picShrink_MouseDown(Workspace& ws, int Button, int i) {
    if (Button == kLeftButton) ToggleShrink(ws, i);
}

void ShrinkHover(Workspace& ws, int i) {
    // Moves rest while auto-expand is suspended, and for a moment after the stepping key opened a
    // container.
    if (ws.AutoExpandSuspended || ws.TimerDisableMouseMove.Enabled()) return;
    if (!ws.menus["mnuAutoExpand"].Checked() || ws.LastClickShrunk == i || ws.ExpandedContainer == i) return;
    const Element* parent = ws.Group(i).Container();
    if (!parent || parent->Name() == QLatin1String("picBack")) ShrinkBackContainer(ws);
    else if (parent->Index() != ws.ExpandedContainer) ShrinkBackContainer(ws);
    if (IsShrunkSize(ws, i)) {
        ToggleShrink(ws, i);
        ws.ExpandedContainer = i;
    }
}

void DragOverTile(Workspace& ws, int i) {
    if (ws.Containers[i].IsFeed) return;
    if (ws.txtNote(i).Visible) HideNote(ws, i);
    ShrinkBackContainer(ws);
    ws.DontShrink = true;
    ws.ExpandedContainer = i;
    ToggleShrink(ws, i);
    // The tick lets the tile shrink again once the drag has settled.
    ws.TimerDontShrink.setEnabled(true);
}

void KeepInsideParent(Workspace& ws, Element& e) {
    const float pw = ParentWidth(e), ph = ParentHeight(e);
    if (e.Left < 0) e.Left = 0 - e.Width / 2;
    if (e.Top < 0) {
        const bool linkOnBack = e.Name() == QLatin1String("Link") && e.Container() == &ws.picBack(0);
        e.Top = linkOnBack ? ws.picMoveMe(0).Top + ws.picMoveMe(0).Height : 0.0f;
    }
    if (e.Left < 0) e.Left = 100;
    if (e.Left > pw - 700) e.Left = pw - e.Width - 100;
    if (e.Top > ph - 500) e.Top = ph - e.Height - 100;
}

void AddShrinkIcon(Workspace& ws, QString Path, int i) {
    Path = Path.trimmed();
    Element& icon = ws.ShrinkIcon(i);
    icon.Width = 64 * ws.TwipsPerPixelX();
    icon.Height = 64 * ws.TwipsPerPixelY();
    // The view draws the large icon of the file (its own image, or the desktop's icon for its type).
    icon.Picture = Path.isEmpty() ? QString() : QStringLiteral("fileicon:") + Path;
    ws.Containers[i].IconPath = Path;
}

void ShrinkIcon_DblClick(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    const QString file = ws.platform.chooseOpenFile(QStringLiteral("Select Container Icon"),
                                                    QStringLiteral("All Files (*.*)"), QStringLiteral("*.*"));
    if (!file.isEmpty()) {
        AddShrinkIcon(ws, file, ws.SelectedContainer);
        SaveDesktop(ws, true, false);
    }
    EnableDisableTimerHide(ws, true);
}

void mnuShrinkAll_Click(Workspace& ws) {
    for (int i = 0; i < ws.Group.Count(); ++i)
        if (IsContainerLive(ws, i)) ToggleShrink(ws, i);
    SaveDesktop(ws, true, false);
}

} // namespace pd
