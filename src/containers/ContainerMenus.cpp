#include "containers/ContainerMenus.h"

#include "app/workspace/Workspace.h"
#include "containers/ContainerFiles.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Moving.h"
#include "containers/Shrinking.h"
#include "feeds/FeedContainers.h"
#include "shell/ShellState.h"

namespace pd {

void WireContainerCommands(Workspace& ws) {
    Workspace* w = &ws;
    ws.menus["mnuNew"].onClick = [w] { mnuNew_Click(*w); };
    ws.menus["mnuNewNote"].onClick = [w] { mnuNewNote_Click(*w); };
    ws.menus["mnuFoldAll"].onClick = [w] { mnuFoldAll_Click(*w); };
    ws.menus["mnuShrinkAll"].onClick = [w] { mnuShrinkAll_Click(*w); };
    ws.menus["mnuClearWorkSpace"].onClick = [w] { mnuClearWorkSpace_Click(*w); };
    ws.menus["mnuDeleteContainer"].onClick = [w] { mnuDeleteContainer_Click(*w); };
    ws.menus["mnuCaptureContainers"].onClick = [w] { mnuCaptureContainers_Click(*w); };
    ws.menus["mnuSetContainerLeft"].onClick = [w] { mnuSetContainerLeft_Click(*w); };
    ws.menus["mnuSetContainerTop"].onClick = [w] { mnuSetContainerTop_Click(*w); };
    ws.menus["mnuSetContainerSize"].onClick = [w] { mnuSetContainerSize_Click(*w); };
    ws.menus["mnuLinkEdit"].onClick = [w] {
        if (w->menus["mnuLinkEdit"].Caption() == QLatin1String("Rename")) StartRename(*w, w->SelectedContainer);
    };
}

void WireGestureTimers(Workspace& ws) {
    Workspace* w = &ws;
    // Each hold-off clears its flag once and stops.
    ws.TimerDontShrink.onTimer = [w] {
        w->DontShrink = false;
        w->TimerDontShrink.setEnabled(false);
    };
    ws.TimerSuspendShrink.onTimer = [w] {
        w->HoldExpanded = false;
        w->TimerSuspendShrink.setEnabled(false);
    };
    ws.TimerSuspendAutoExpand.onTimer = [w] {
        w->AutoExpandSuspended = false;
        w->TimerSuspendAutoExpand.setEnabled(false);
    };
    ws.TimeLock.onTimer = [w] { TimeLock_Timer(*w); };
    ws.TimerDisableMouseMove.onTimer = [w] { w->TimerDisableMouseMove.setEnabled(false); };
    ws.TimerDblClickLabelDelay.onTimer = [w] {
        w->DblClickLabelDelay = false;
        w->TimerDblClickLabelDelay.setEnabled(false);
    };
}

void SetPlacementEntriesVisible(Workspace& ws, bool visible) {
    for (const char* name : {"mnuSepSetContainer", "mnuSetContainerLeft", "mnuSetContainerTop", "mnuSetContainerSize"})
        ws.menus[QString::fromLatin1(name)].setVisible(visible);
}

const char* TitleContextMenu(Workspace& ws, int i) {
    if (ws.menus["mnuLock"].Checked()) return "";
    ContainerBodyMenu(ws, i);
    ws.ContextIsContainer = true;
    SetPlacementEntriesVisible(ws, true);
    return "mnuLink";
}

const char* ContainerBodyMenu(Workspace& ws, int i) {
    ws.SelectedContainer = static_cast<int16_t>(i);
    ws.ContextIsContainer = false;
    ws.menus["mnuLinkEdit"].setCaption(QStringLiteral("Rename"));
    ws.menus["mnuLinkEdit"].setVisible(true);
    ws.menus["mnuDeleteContainer"].setVisible(true);
    ws.menus["mnuLinkDelete"].setVisible(false);
    SetPlacementEntriesVisible(ws, false);
    // The layout commands act on selected shortcuts: they belong to a shortcut's menu.
    for (const char* name : {"mnuSepLinkLayout", "mnuAtoZ", "mnuZtoA", "mnuLargeIcons", "mnuSmallIcons", "mnuSizeLink"})
        ws.menus[QString::fromLatin1(name)].setVisible(false);
    int count = 0;
    for (int k = 0; k < ws.Link.Count(); ++k)
        if (ws.Link.exists(k) && ws.Link(k).Visible && ws.Link(k).Container() == &ws.grpBorder(i)) ++count;
    ws.menus["mnuStartAll"].setCaption(QStringLiteral("&Start All Shortcuts [") + QString::number(count) +
                                       QLatin1Char(']'));
    for (const char* name : {"mnuSepStartAll", "mnuStartAll"}) ws.menus[QString::fromLatin1(name)].setVisible(true);
    ShellMenus(ws, i, -1);
    SetFeedMenuEntries(ws, i);
    return "mnuLink";
}

} // namespace pd
