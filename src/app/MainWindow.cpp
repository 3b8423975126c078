#include "app/MainWindow.h"

#include "app/Recovery.h"
#include "app/Startup.h"
#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/ContainerMenus.h"
#include "feeds/FeedContainers.h"
#include "shell/ShellState.h"
#include "desk/DeskState.h"
#include "shortcuts/FindCommands.h"
#include "shortcuts/Shortcuts.h"
#include "window/Docking.h"
#include "window/ResizeForm.h"
#include "window/WindowServices.h"
#include "themes/Properties.h"

namespace pd {

void MainWindowLoad(Workspace& ws) {
    ws.Containers.assign(2, ContainerRecord{});
    ws.Links.assign(2, LinkRecord{});
    ws.DeskObjects.assign(2, DeskObjectRecord{});
    ws.IsLoading = true;
    WireGestureTimers(ws);
    Element& win = ws.frmMain(0);
    win.Height = 5265;
    win.Width = 10065;
    ws.Link(0).ForeColor = 0xFFFFFF;
    // The title band's caption carries the version; the main window's own version label stays hidden
    // (the splash shows the version on its label).
    ws.lblVersion(0).Caption = QStringLiteral("Perchdock ") + VersionText();
    ws.lblVersion(0).Visible = false;

    ws.RSSViewerX = 1000;
    ws.RSSViewerY = 1000;
    ws.RSSViewerW = 8295;
    ws.RSSViewerH = 4665;
    ws.ConfirmDelete = true;
    ws.RSSchkFullValue = 0;
    ws.RSSchkHeadlineValue = 1;
    ws.RSSViewerOnTop = 0;
    ws.DropX = 600;
    ws.DropY = 200;

    const float tx = ws.TwipsPerPixelX(), ty = ws.TwipsPerPixelY();
    ws.PicIcon(0).Width = 16 * tx;
    ws.PicIcon(0).Height = 16 * ty;
    ws.ShrinkIcon(0).Width = 64 * tx;
    ws.ShrinkIcon(0).Height = 64 * ty;

    Element& back = ws.picBack(0);
    back.BackColor = 0;
    back.ForeColor = ws.Link(0).ForeColor.get();
    ws.PicIcon(0).BackColor = back.BackColor.get();
    ws.picMoveMe(0).BackColor = back.BackColor.get();
    ws.PicDock(0).BackColor = back.BackColor.get();
    ws.lblCaption(0).ForeColor = win.ForeColor.get();
    ws.ShrinkIcon(0).BackColor = ws.grpBorder(0).BackColor.get();
    ws.ContainerColor = ws.grpBorder(0).BackColor;
    ws.ContainerLabelColor = ws.grpBorder(0).ForeColor;

    ws.DockingColor = 0xFF0000;
    ws.menus["mnuLock"].setChecked(false);
    ws.NoSave = false;
    ws.platform.showTrayIcon(QStringLiteral("Perchdock: Click to Show"));
    // The design of the title band and its buttons; ResizeForm sets the widths.
    ws.picMoveMe(0).setContainer(&back);
    ws.picMoveMe(0).Move(120, 30, 8000, 255);
    ws.lblCaption(0).setContainer(&ws.picMoveMe(0));
    ws.lblCaption(0).Move(0, 0, 8000, 255);
    ws.lblCaption(0).Caption = QStringLiteral("Perchdock ") + VersionText();
    for (ElementFamily* f : {&ws.lblVersion, &ws.PicDock, &ws.PicLockToolbar, &ws.PicUnLockToolbar})
        (*f)(0).setContainer(&back);
    ws.lblVersion(0).Move(8200, 30, 1500, 255);
    ws.PicDock(0).Move(0, 30, 16 * tx, 16 * ty);
    ws.PicLockToolbar(0).Move(0, 30, 16 * tx, 16 * ty);
    ws.PicUnLockToolbar(0).Move(0, 30, 16 * tx, 16 * ty);
    ws.lblCaption(0).ToolTipText = QStringLiteral("Drag to move window | Win+S: Show/Hide | Esc: Dock | Double Click: Maximize");
}

void MainWindowResize(Workspace& ws) {
    if (ws.IsLoading || ws.Unloaded) return;
    Element& win = ws.frmMain(0);
    if (win.WindowState == 1) {
        // A minimised window goes to the tray, never to the task bar.
        win.Visible = false;
        return;
    }
    win.Caption = QString();
    ResizeForm(ws, false);
    if (win.Width < 100 || win.Height < 100) {
        win.Width = 1500;
        win.Height = 1500;
    }
}

void UnloadMainWindow(Workspace& ws) {
    if (ws.Unloaded) return;
    ws.Unloaded = true;
    ws.platform.removeTrayIcon();
    SaveDesktop(ws, false, true);
    ws.platform.doEvents();
    ws.TimerHide.setEnabled(false);
    UnloadSplash(ws);
    ws.platform.unregisterHotKey();
    if (ws.onUnloaded) ws.onUnloaded();
}

void WireCoreCommands(Workspace& ws) {
    Workspace* w = &ws;
    ws.menus["mnuSave"].onClick = [w] { mnuSave_Click(*w); };
    ws.menus["mnuReload"].onClick = [w] { mnuReload_Click(*w); };
    ws.menus["mnuExitMainWin"].onClick = [w] { UnloadMainWindow(*w); };
    ws.menus["mnuExitApp"].onClick = [w] { w->menus["mnuExitMainWin"].Click(); };
    ws.menus["mnuCheckForUpdate"].onClick = [w] { CheckForUpdate(*w); };
    WireContainerCommands(ws);
    WireShortcutCommands(ws);
    WireDocking(ws);
    WireWindowServices(ws);
    WireFindCommands(ws);
    WireFeeds(ws);
    WireShell(ws);
    WireDeskCommands(ws);
    WireThemes(ws);
    // A setting's entry flips its check mark and saves at once.
    for (const auto& m : ws.menus.all()) {
        if (!m->checkable() || m->onClick) continue;
        MenuEntry* e = m.get();
        e->onClick = [w, e] {
            e->setChecked(!e->Checked());
            SaveDesktop(*w, true, false);
        };
    }
    ws.menus["mnuDeleteConfirmation"].onClick = [w] {
        w->ConfirmDelete = !w->ConfirmDelete;
        w->menus["mnuDeleteConfirmation"].setChecked(w->ConfirmDelete);
        SaveDesktop(*w, true, false);
    };
}

} // namespace pd
