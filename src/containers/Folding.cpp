#include "containers/Folding.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "containers/Shrinking.h"
#include "window/RelativeLayout.h"
#include "shell/FolderLink.h"

namespace pd {

namespace {
// The height of an element's container, asked late so that picBack and a grpBorder alike answer.
float ParentHeight(const Element& e) { return e.Container() ? e.Container()->Height.get() : 0.0f; }
} // namespace

void SetTitleEdge(Workspace& ws, bool flip, int i) {
    if (flip) {
        const float top = ws.Group(i).Height - 300;
        for (ElementFamily* f : {&ws.chkFold, &ws.groupName, &ws.lblName, &ws.picPinNote, &ws.picPin, &ws.picCopy1,
                                 &ws.picCopy2, &ws.picShrink})
            (*f)(i).Top = top;
        ws.txtNote(i).Top = 100;
        return;
    }
    const ContainerRecord& r = ws.Containers[i];
    if (r.IsFeed && ws.lblRSSLastUpdate.exists(r.FeedIndex))
        ws.lblRSSLastUpdate(r.FeedIndex).Move(100, ws.grpBorder(i).Height - 250);
    ws.txtNote(i).Top = 340;
    ws.lblName(i).Top = 40;
    for (ElementFamily* f :
         {&ws.chkFold, &ws.groupName, &ws.picPinNote, &ws.picPin, &ws.picCopy1, &ws.picCopy2, &ws.picShrink})
        (*f)(i).Top = 30;
}

void FoldContainer(Workspace& ws, int i) {
    if (!ws.Group.exists(i)) return;
    // Only an open container folds: folding a folded one again (the open container of stepping or
    // docking may be folded already) would note 350 as its open height, and a tile has no bar to fold to.
    if (!ws.chkFold(i).Visible) return;
    ContainerRecord& r = ws.Containers[i];
    if (r.IsFeed && ws.lblRSSLastUpdate.exists(r.FeedIndex)) ws.lblRSSLastUpdate(r.FeedIndex).Visible = false;
    NoteContainerGeometry(ws, i);
    ws.chkFold(i).Visible = false;
    ws.chkUnfold(i).Visible = true;
    if (!TitleAtTop(ws, i)) {
        // A flipped container folds back to where its bar was before it opened.
        SetTitleEdge(ws, false, i);
        ws.Group(i).Top = static_cast<float>(r.Y);
    }
    ws.Group(i).Height = 350;
    ws.grpBorder(i).Height = ws.Group(i).Height - 30;
    if (ws.ExpandedContainer == i) ws.ExpandedContainer = -1;
}

void FocusContainerContent(Workspace& ws, int i) {
    // The keyboard goes to the content: a feed's headlines, or a visible note.
    const ContainerRecord& r = ws.Containers[i];
    if (r.IsFeed && ws.LstRSS.exists(r.FeedIndex)) ws.SetFocus(ws.LstRSS(r.FeedIndex));
    else if (ws.txtNote(i).Visible) ws.SetFocus(ws.txtNote(i));
}

void UnfoldContainer(Workspace& ws, int i) {
    if (!ws.Group.exists(i)) return;
    ContainerRecord& r = ws.Containers[i];
    Element& g = ws.Group(i);
    r.Flipped = g.Top + static_cast<float>(r.H) > ParentHeight(g);
    ws.chkUnfold(i).Visible = false;
    ws.chkFold(i).Visible = true;
    g.Height = static_cast<float>(r.H);
    SetObjectRelativeSize(ws, i);
    if (r.Flipped) SetTitleEdge(ws, true, i);
    if (r.IsFeed && ws.lblRSSLastUpdate.exists(r.FeedIndex)) {
        Element& label = ws.lblRSSLastUpdate(r.FeedIndex);
        if (TitleAtTop(ws, i)) label.Move(100, ws.grpBorder(i).Height - 250);
        else label.Move(100, 60);
        label.Visible = true;
        ws.lblRSSRefresh(0).Visible = false;
    }
    if (r.Flipped) {
        SetRecordLength(r.Y, g.Top);
        const float top = g.Top - static_cast<float>(r.H) + 350;
        g.Top = top >= 0 ? top : 0;
    }
    g.ZOrder(0);
    FocusContainerContent(ws, i);
    RefreshOnExpand(ws, i);
}

void chkFold_MouseDown(Workspace& ws, int Button, int i) {
    if (Button == kLeftButton) FoldContainer(ws, i);
}

void chkUnfold_MouseDown(Workspace& ws, int Button, int i) {
    if (Button == kLeftButton) UnfoldContainer(ws, i);
}

void chkFold_MouseUp(Workspace& ws) { ws.playSound(QStringLiteral("fold.wav")); }

void chkUnfold_MouseUp(Workspace& ws) { ws.playSound(QStringLiteral("unfold.wav")); }

void lblName_DblClick(Workspace& ws, int i) {
    if (ws.chkFold(i).Visible) FoldContainer(ws, i);
    else UnfoldContainer(ws, i);
    ws.OpenContainer = static_cast<int16_t>(i);
    ws.DblClickLabelDelay = true;
    ws.TimerDblClickLabelDelay.setEnabled(false);
    ws.TimerDblClickLabelDelay.setEnabled(true);
}

void FoldOpenContainer(Workspace& ws, int i) {
    if (!ws.menus["mnuAutoFold"].Checked()) return;
    const int open = ws.OpenContainer;
    if (open < 0 || !ws.Group.exists(open)) return;
    if (i == open) {
        FoldContainer(ws, open);
        return;
    }
    if (!ws.menus["mnuCaptureContainers"].Checked() || !ws.Group.exists(i)) return;
    const Element* parent = ws.Group(i).Container();
    if (parent && parent->Name() == QLatin1String("Group") && parent->Index() == open) FoldContainer(ws, open);
}

void mnuFoldAll_Click(Workspace& ws) {
    for (int i = 0; i < ws.Group.Count(); ++i) {
        if (!IsContainerLive(ws, i) || !ws.lblName(i).Visible) continue;
        if (ws.chkFold(i).Visible) FoldContainer(ws, i);
        else UnfoldContainer(ws, i);
    }
    SaveDesktop(ws, true, false);
}

void StepToNextContainer(Workspace& ws) {
    const int count = ws.Group.Count();
    if (count == 0) return;
    int found = -1;
    for (int k = 0; k < count; ++k) {
        const int i = (ws.StepCursor + k) % count;
        if (IsContainerLive(ws, i)) {
            found = i;
            break;
        }
    }
    if (found < 0) return;
    // Mouse moves rest for one interval, so that the pointer left elsewhere does not at once close what
    // the key opened; the tick ends the rest.
    Timer& rest = ws.TimerDisableMouseMove;
    if (!rest.onTimer) rest.onTimer = [&rest] { rest.setEnabled(false); };
    rest.setEnabled(false);
    rest.setEnabled(true);
    if (ws.OpenContainer >= 0 && ws.Group.exists(ws.OpenContainer)) FoldContainer(ws, ws.OpenContainer);
    ShrinkBackContainer(ws);
    if (ws.Group(found).Height == 350) {
        UnfoldContainer(ws, found);
        ws.OpenContainer = static_cast<int16_t>(found);
    } else if (IsShrunkSize(ws, found)) {
        ToggleShrink(ws, found);
        ws.ExpandedContainer = found;
    }
    ws.StepCursor = static_cast<int16_t>((found + 1) % count);
}

} // namespace pd
