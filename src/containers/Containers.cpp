#include "containers/Containers.h"

#include "app/ObjectRecords.h"
#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Folding.h"
#include "containers/Shrinking.h"
#include "desk/Notes.h"
#include "shortcuts/Shortcuts.h"
#include "themes/Buttons.h"
#include "window/AutoHide.h"
#include "window/RelativeLayout.h"
#include "feeds/FeedContainers.h"

#include <algorithm>
#include <cmath>

namespace pd {

namespace {

const float kNewSize = 3000;

// Makes the members of container n that NewGroup makes, in its order, each the top of its parent's
// order (but picCopy2), with the visibility of a new container.
void LoadMembers(Workspace& ws, int n) {
    struct Part {
        ElementFamily* family;
        bool visible;
    };
    Element& group = ws.Group.Load(n);
    group.setContainer(ws.Group(0).Container());
    group.Visible = true;
    group.Enabled = true;
    group.ZOrder(0);
    Element& border = ws.grpBorder.Load(n);
    border.setContainer(&group);
    border.Visible = true;
    border.ZOrder(0);
    const Part parts[] = {
        {&ws.txtNote, false}, {&ws.ShrinkIcon, false}, {&ws.chkFold, true},    {&ws.chkUnfold, false},
        {&ws.picShrink, true}, {&ws.picPin, false},     {&ws.picPinNote, true}, {&ws.picCopy2, true},
        {&ws.picCopy1, true},  {&ws.lblName, true},     {&ws.groupName, false},
    };
    for (const Part& p : parts) {
        Element& e = p.family->Load(n);
        e.setContainer(&border);
        e.Visible = p.visible;
        if (p.family != &ws.picCopy2) e.ZOrder(0);
    }
    ws.txtNote(n).Text = QString();
    ws.lblName(n).Caption = QStringLiteral("Container");
    ws.lblName(n).FontBold = false;
    ws.groupName(n).Text = QStringLiteral("Container");
}

void GrowContainers(Workspace& ws, int n) {
    if (static_cast<int>(ws.Containers.size()) <= n) ws.Containers.resize(static_cast<size_t>(n) + 1);
}

} // namespace

bool IsContainerLive(const Workspace& ws, int i) {
    if (!ws.Group.exists(i)) return false;
    // A container nested in a deleted one is gone with it, though its own flag still says visible.
    int depth = ws.Group.Count();
    for (const Element* e = &ws.Group(i); e && e->Name() == QLatin1String("Group") && depth-- > 0;
         e = e->Container())
        if (!e->Visible) return false;
    return true;
}

bool IsShrunkSize(const Workspace& ws, int i) { return ws.Group(i).Width == 700 && ws.Group(i).Height == 950; }

bool IsFolded(const Workspace& ws, int i) { return ws.chkUnfold(i).Visible; }

bool TitleAtTop(const Workspace& ws, int i) { return ws.picShrink(i).Top == 30; }

int ContainerOf(const Element& e) {
    const QString& n = e.Name();
    if (n == QLatin1String("Group") || n == QLatin1String("grpBorder")) return e.Index();
    return -1;
}

void SetRecordLength(int32_t& field, float length) {
    const double v = std::nearbyint(static_cast<double>(length)); // the default rounding: halves to even
    if (std::isfinite(v) && v >= INT32_MIN && v <= INT32_MAX) field = static_cast<int32_t>(v);
}

void NoteContainerGeometry(Workspace& ws, int i) {
    ContainerRecord& r = ws.Containers[i];
    const Element& g = ws.Group(i);
    if (!r.KeepX) SetRecordLength(r.X, g.Left);
    if (!r.Flipped) {
        SetRecordLength(r.Y, g.Top);
        SetRecordLength(r.H, g.Height);
        SetRecordLength(r.W, g.Width);
    }
}

void NewGroup(Workspace& ws, int16_t ParentIndex) {
    if (ws.ContainerCount == INT16_MAX) return; // the 16-bit count is used up
    const int n = ws.ContainerCount;
    GrowContainers(ws, n);
    if (n != 0) {
        LoadMembers(ws, n);
    } else {
        for (ElementFamily* f : {&ws.Group, &ws.grpBorder, &ws.chkFold, &ws.picShrink, &ws.picPinNote, &ws.picCopy2,
                                 &ws.picCopy1, &ws.lblName})
            (*f)(0).Visible = true;
        ws.picPin(0).Visible = false;
    }
    ws.Group(n).Move(ws.DropX, ws.DropY, kNewSize, kNewSize);
    ws.Containers[n] = ContainerRecord{};
    NoteContainerGeometry(ws, n);
    SetTitleEdge(ws, false, n);
    ContainerRecord& r = ws.Containers[n];
    r.TagHidden = false;
    r.ParentIndex = ParentIndex;
    r.CopyPath.clear();
    r.RefreshOnExpand = false;
    r.KeepX = false;
    r.Flipped = false;
    ++ws.ContainerCount;
}

void mnuNew_Click(Workspace& ws) {
    NewGroup(ws, -1);
    const int n = ws.ContainerCount - 1;
    if (n < 0) return;
    ws.grpBorder(n).BackColor = ws.ContainerColor;
    ws.grpBorder(n).ForeColor = ws.ContainerLabelColor;
    ws.lblName(n).ForeColor = ws.ContainerLabelColor;
    SetColors(ws, n, ws.ContainerColor);
    SetObjectRelativeSize(ws, n);
    ws.Group(n).ZOrder(0);
    ws.Group(n).setContainer(&ws.picBack(0));
    ws.SelectedContainer = static_cast<int16_t>(n);
    StartRename(ws, n);
    AddShrinkIcon(ws, ws.programFile(QStringLiteral("emptyicon.ico")), n);
}

void mnuNewNote_Click(Workspace& ws) {
    mnuNew_Click(ws);
    const int n = ws.ContainerCount - 1;
    if (n < 0) return;
    ShowNote(ws, n);
    ws.lblName(n).Caption = QStringLiteral("Note");
    SaveDesktop(ws, true, false);
}

void StartRename(Workspace& ws, int i) {
    ws.Group(i).ZOrder(0);
    Element& field = ws.groupName(i);
    field.ForeColor = ws.lblName(i).ForeColor.get();
    field.Text = ws.lblName(i).Caption.get();
    field.Top = TitleAtTop(ws, i) ? 50 : ws.Group(i).Height - 300;
    field.Visible = true;
    field.ZOrder(0);
    ws.SetFocus(field);
}

void RenameTextChanged(Workspace& ws, int i) { ws.lblName(i).Caption = ws.groupName(i).Text.get(); }

void RenameFinished(Workspace& ws, int i, bool lostFocus) {
    Q_UNUSED(lostFocus);
    // Enter hides the field, and hiding it takes its focus away: both ways end in the focus loss's save.
    ws.groupName(i).Visible = false;
    SaveDesktop(ws, true, false);
}

void SelectGroup(Workspace& ws, int i) {
    if (ws.Group(i).Container() == &ws.picBack(0)) ws.Group(i).BackColor = ws.picBack(0).ForeColor.get();
    ws.lblName(i).FontBold = true;
}

void UnselectGroup(Workspace& ws, int i) {
    if (ws.Group(i).Container() == &ws.picBack(0)) ws.Group(i).BackColor = Lighten(ws.grpBorder(i).BackColor);
    ws.lblName(i).FontBold = false;
}

void UnselectAllGroups(Workspace& ws) {
    for (int i = 0; i < ws.Group.Count(); ++i)
        if (IsContainerLive(ws, i) && ws.lblName(i).FontBold) UnselectGroup(ws, i);
}

void mnuDeleteContainer_Click(Workspace& ws) {
    SelectGroup(ws, ws.SelectedContainer);
    EnableDisableTimerHide(ws, false);
    bool go = true;
    if (ws.ConfirmDelete)
        go = ws.platform.messageBox(QStringLiteral("Delete Selected Containers?"), MsgStyle::YesNoWarning,
                                    QStringLiteral("Delete")) == MsgAnswer::Yes;
    if (go) {
        for (int i = 0; i < ws.Group.Count(); ++i) {
            if (!ws.Group.exists(i) || !ws.lblName(i).FontBold) continue;
            ws.Group(i).Visible = false;
            if (ws.Containers[i].IsFeed) FeedContainerDeleted(ws, i);
            ws.txtNote(i).Text = QString();
            ws.Containers[i].IconPath.clear();
            // The container's shortcuts go with it; their slots stay, empty.
            for (int k = 0; k < ws.Link.Count(); ++k)
                if (ws.Link.exists(k) && InContainer(ws.Link(k), i)) RemoveLink(ws, k);
            // A deleted container is no longer selected.
            ws.lblName(i).FontBold = false;
        }
    }
    SaveDesktop(ws, true, false);
    EnableDisableTimerHide(ws, true);
}

void mnuClearWorkSpace_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    // It deletes everything, so it asks with a warning, as deleting containers does.
    const int answer =
        ws.platform.messageBox(QStringLiteral("Are you sure you want to delete all objects and start from scratch?"),
                               MsgStyle::YesNoWarning, QStringLiteral("Clear Workspace"));
    if (answer == MsgAnswer::Yes) {
        // Every element of the window goes from view but the background, the wallpaper, the title band and
        // the toolbar buttons: every member of the object families, and the loose labels and signs.
        const ElementFamily* keep[] = {&ws.frmMain,
                                       &ws.picBack,
                                       &ws.imgBack,
                                       &ws.picMoveMe,
                                       &ws.lblCaption,
                                       &ws.PicDock,
                                       &ws.PicLockToolbar,
                                       &ws.PicUnLockToolbar,
                                       &ws.PicShrinkExpandAllToolbar,
                                       &ws.PicFoldUnfoldAllToolbar,
                                       &ws.PicRSSRefreshALL,
                                       // the splash is a window of its own
                                       &ws.splash.frmSplash,
                                       &ws.splash.lblVersion,
                                       &ws.splash.lblLoad,
                                       &ws.splash.ImgRSS,
                                       &ws.splash.Label2,
                                       &ws.splash.lblUpdate};
        for (ElementFamily* f : ws.families()) {
            if (std::find(std::begin(keep), std::end(keep), f) != std::end(keep)) continue;
            for (int i = 0; i < f->Count(); ++i)
                if (f->exists(i)) (*f)(i).Visible = false;
        }
        // A container kept out of view by the tag filter would be shown and saved again by the next save.
        for (ContainerRecord& r : ws.Containers) r.TagHidden = false;
        for (LinkRecord& r : ws.Links) r.LinkPath.clear();
        for (DeskObjectRecord& r : ws.DeskObjects) r.Time.clear();
        if (!ws.WallpaperPath.trimmed().isEmpty()) {
            if (ws.platform.messageBox(QStringLiteral("Select a different theme?"), MsgStyle::YesNoQuestion) ==
                MsgAnswer::Yes)
                ws.menus["mnuProperties"].Click();
        }
    }
    EnableDisableTimerHide(ws, true);
}

} // namespace pd
