#include "view/ElementInput.h"
#include "view/MouseArgs.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/ContainerMenus.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Moving.h"
#include "containers/Selection.h"
#include "containers/Shrinking.h"
#include "containers/TitleMouse.h"
#include "desk/Notes.h"
#include "view/DeskInput.h"
#include "shortcuts/Launch.h"
#include "shortcuts/LinkMouse.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "shell/FolderLink.h"
#include "shell/ShellState.h"
#include "view/DropInput.h"
#include "view/ElementWidget.h"
#include "view/GhostFrame.h"
#include "view/MainView.h"
#include "view/MenuView.h"
#include "window/Docking.h"

#include <QMenu>
#include <QMouseEvent>
#include <QWindow>

#include <cmath>

namespace pd {

namespace {

using Handler = std::function<void(ElementWidget&, QMouseEvent&)>;

bool Left(const QMouseEvent& ev) { return ev.button() == Qt::LeftButton; }

void Popup(InputContext& ctx, const QString& name, const QMouseEvent& ev) {
    if (name != QLatin1String("mnuLink")) ctx.ws.menus["mnuDeleteContainer"].setVisible(false);
    if (QMenu* m = ctx.menus.menu(name)) m->popup(ev.globalPosition().toPoint());
}

// Where the pointer is in the element, in twips.
QPointF ToTwips(Workspace& ws, const QMouseEvent& ev) {
    const QPointF p = ev.position();
    return {p.x() * ws.platform.twipsPerPixelX(), p.y() * ws.platform.twipsPerPixelY()};
}

// A press handled by the core with its button, then a save of the recovery file.
Handler OnPress(Workspace& ws, void (*action)(Workspace&, int, int)) {
    return [&ws, action](ElementWidget& w, QMouseEvent& ev) {
        const int i = w.element().Index();
        ws.SelectedContainer = static_cast<int16_t>(i);
        action(ws, Button(ev), i);
        if (Left(ev)) SaveDesktop(ws, true, false);
    };
}

// A left press that changes the container, then a save of the recovery file.
Handler OnLeftPress(Workspace& ws, void (*action)(Workspace&, int)) {
    return [&ws, action](ElementWidget& w, QMouseEvent& ev) {
        if (!Left(ev)) return;
        const int i = w.element().Index();
        ws.SelectedContainer = static_cast<int16_t>(i);
        action(ws, i);
        SaveDesktop(ws, true, false);
    };
}

// The mouse has gone elsewhere, unless moves are resting after the stepping key.
void MouseLeftTiles(Workspace& ws) {
    if (!ws.TimerDisableMouseMove.Enabled()) ShrinkBackContainer(ws);
}

float Tx(const QPointF& p) { return static_cast<float>(p.x()); }
float Ty(const QPointF& p) { return static_cast<float>(p.y()); }

// The widget that shows an element, when it has one.
QWidget* WidgetOf(const Element& e) { return static_cast<QWidget*>(e.viewHandle); }

// The element carried to another owner follows the pointer as an outline of its size.
void CarryMove(InputContext& ctx, const QMouseEvent& ev) {
    const Element* source = ctx.ws.DragSource;
    if (!source || !ctx.carried) return;
    const float tx = ctx.ws.TwipsPerPixelX(), ty = ctx.ws.TwipsPerPixelY();
    const QPoint at = ev.globalPosition().toPoint();
    const QPoint grip(static_cast<int>(std::lround(ctx.ws.DragGripX / tx)),
                      static_cast<int>(std::lround(ctx.ws.DragGripY / ty)));
    const QSize size(static_cast<int>(std::lround(source->Width / tx)),
                     static_cast<int>(std::lround(source->Height / ty)));
    ctx.carried->showOutline(QRect(at - grip, size));
    // A shortcut of a folder-link container that reaches the background leaves as a file drag.
    if (CarriedOver(ctx, at)) ctx.carried->hideOutline();
}

// The release of a carried element: the owner under the pointer takes it (a container by its body or
// its rim, or the background); over anything else the drag ends where it is.
void DropCarried(InputContext& ctx, const QMouseEvent& ev) {
    Workspace& ws = ctx.ws;
    if (ctx.carried) ctx.carried->hideOutline();
    const Element* source = ws.DragSource;
    if (!source) return;
    QWidget* sourceWidget = WidgetOf(*source);
    const QPoint global = ev.globalPosition().toPoint();
    const float tx = ws.TwipsPerPixelX(), ty = ws.TwipsPerPixelY();
    for (QWidget* p = ctx.main.childAt(ctx.main.mapFromGlobal(global)); p; p = p->parentWidget()) {
        // The carried element and what it holds are no places to drop it in.
        if (sourceWidget && sourceWidget->isAncestorOf(p)) p = sourceWidget;
        if (p == sourceWidget) continue;
        auto* ew = qobject_cast<ElementWidget*>(p);
        if (!ew) continue;
        const Element& e = ew->element();
        const QString& name = e.Name();
        if (name == QLatin1String("Link") && source->Name() == QLatin1String("Link")) {
            // A shortcut dropped on another: open the dragged one's target with the other's program.
            const int s = source->Index();
            ws.DragSource = nullptr;
            OpenLinkWithLink(ws, s, e.Index());
            return;
        }
        if (name == QLatin1String("picBack")) {
            const QPoint local = p->mapFromGlobal(global);
            picBack_DragDrop(ws, static_cast<float>(local.x()) * tx, static_cast<float>(local.y()) * ty);
            return;
        }
        if (name == QLatin1String("grpBorder") || name == QLatin1String("Group")) {
            QWidget* border = WidgetOf(ws.grpBorder(e.Index()));
            if (!border) break;
            const QPoint local = border->mapFromGlobal(global);
            grpBorder_DragDrop(ws, e.Index(), static_cast<float>(local.x()) * tx, static_cast<float>(local.y()) * ty);
            return;
        }
    }
    CancelDrag(ws);
    SaveDesktop(ws, true, false);
}

// The rim of a container or a picture frame: the handle under the pointer, the press, the release.
void WireRim(InputContext& ctx, ElementWidget& w, int i, bool group) {
    w.onPress = [&ctx, i, group](ElementWidget&, QMouseEvent& ev) {
        const QPointF at = ToTwips(ctx.ws, ev);
        if (group) Group_MouseDown(ctx.ws, Button(ev), Shift(ev), i, Tx(at), Ty(at));
        else picPlaceholder_MouseDown(ctx.ws, Button(ev), Shift(ev), i, Tx(at), Ty(at));
    };
    w.onMove = [&ctx, i, group](ElementWidget&, QMouseEvent& ev) {
        const QPointF at = ToTwips(ctx.ws, ev);
        if (group) Group_MouseMove(ctx.ws, Held(ev), Shift(ev), i, Tx(at), Ty(at));
        else picPlaceholder_MouseMove(ctx.ws, Held(ev), Shift(ev), i, Tx(at), Ty(at));
    };
    w.onRelease = [&ctx, i, group](ElementWidget&, QMouseEvent& ev) {
        if (group) Group_MouseUp(ctx.ws, Button(ev), Shift(ev), i);
        else picPlaceholder_MouseUp(ctx.ws, Button(ev), Shift(ev), i);
    };
}

// The mouse on a shortcut's label: press, moves (hover or drag), release, double click, menu.
void WireLink(InputContext& ctx, ElementWidget& w, int n) {
    w.onPress = [&ctx, n](ElementWidget&, QMouseEvent& ev) {
        const QPointF at = ToTwips(ctx.ws, ev);
        Link_MouseDown(ctx.ws, Button(ev), Shift(ev), n, static_cast<float>(at.x()), static_cast<float>(at.y()));
        if (ev.button() == Qt::RightButton) Popup(ctx, QString::fromLatin1(LinkContextMenu(ctx.ws, n)), ev);
    };
    w.onMove = [&ctx, n](ElementWidget&, QMouseEvent& ev) {
        // Once the label left its owner it is carried: the outline follows the pointer.
        if (ctx.ws.DragSource) {
            CarryMove(ctx, ev);
            return;
        }
        const QPointF at = ToTwips(ctx.ws, ev);
        const int held = (ev.buttons() & Qt::LeftButton) ? 1 : (ev.buttons() & Qt::RightButton) ? 2 : 0;
        Link_MouseMove(ctx.ws, held, Shift(ev), n, static_cast<float>(at.x()), static_cast<float>(at.y()));
        if (ctx.ws.DragSource) CarryMove(ctx, ev);
    };
    w.onRelease = [&ctx, n](ElementWidget&, QMouseEvent& ev) {
        if (ctx.ws.DragSource) {
            DropCarried(ctx, ev);
            return;
        }
        const QPointF at = ToTwips(ctx.ws, ev);
        Link_MouseUp(ctx.ws, Button(ev), Shift(ev), n, static_cast<float>(at.x()), static_cast<float>(at.y()));
    };
    w.onDoubleClick = [&ctx, n](ElementWidget&, QMouseEvent& ev) {
        if (Left(ev)) Link_DblClick(ctx.ws, n);
    };
}

void WireTitleBand(InputContext& ctx, ElementWidget& w) {
    Workspace& ws = ctx.ws;
    w.onPress = [&ctx](ElementWidget&, QMouseEvent& ev) {
        if (Left(ev)) {
            if (QWindow* h = ctx.main.windowHandle()) h->startSystemMove();
        } else {
            Popup(ctx, QStringLiteral("mnuMain"), ev);
        }
    };
    if (w.element().Name() == QLatin1String("lblCaption")) {
        w.onDoubleClick = [&ws](ElementWidget&, QMouseEvent&) {
            Element& win = ws.frmMain(0);
            if (win.WindowState == 2) win.WindowState = 0;
            else if (win.WindowState == 0) win.WindowState = 2;
        };
    }
}

} // namespace

void WireElementInput(InputContext& ctx, ElementWidget& w) {
    Workspace& ws = ctx.ws;
    WireDropInput(ctx, w);
    if (WireDeskInput(ctx, w)) return;
    const QString& name = w.element().Name();
    const int i = w.element().Index();
    if (name == QLatin1String("picMoveMe") || name == QLatin1String("lblCaption")) {
        WireTitleBand(ctx, w);
    } else if (name == QLatin1String("picBack")) {
        // The mouse on the bare background has left every tile; on a docked window it undocks.
        w.onMove = [&ws](ElementWidget&, QMouseEvent& ev) {
            DockMouseMove(ws);
            MouseLeftTiles(ws);
            const QPointF at = ToTwips(ws, ev);
            picBack_MouseMove(ws, Held(ev), Shift(ev), Tx(at), Ty(at));
        };
        w.onRelease = [&ws](ElementWidget&, QMouseEvent& ev) {
            const QPointF at = ToTwips(ws, ev);
            picBack_MouseUp(ws, Button(ev), Shift(ev), Tx(at), Ty(at));
        };
        w.onPress = [&ctx](ElementWidget&, QMouseEvent& ev) {
            DockMouseDown(ctx.ws);
            if (ev.button() != Qt::RightButton) {
                const QPointF at = ToTwips(ctx.ws, ev);
                picBack_MouseDown(ctx.ws, Button(ev), Shift(ev), Tx(at), Ty(at));
                return;
            }
            // New objects made from the menu appear where it opened.
            const QPointF at = ToTwips(ctx.ws, ev);
            ctx.ws.DropX = static_cast<float>(at.x());
            ctx.ws.DropY = static_cast<float>(at.y());
            ShellMenus(ctx.ws, -1, -1);
            Popup(ctx, QStringLiteral("mnuMain"), ev);
        };
    } else if (name == QLatin1String("grpBorder")) {
        w.onMove = [&ws, i](ElementWidget&, QMouseEvent& ev) {
            // A container seen through the docked strip undocks the window like the background does.
            DockMouseMove(ws);
            const QPointF at = ToTwips(ws, ev);
            grpBorder_MouseMove(ws, Held(ev), Shift(ev), i, Tx(at), Ty(at));
        };
        w.onRelease = [&ws, i](ElementWidget&, QMouseEvent& ev) {
            const QPointF at = ToTwips(ws, ev);
            grpBorder_MouseUp(ws, Button(ev), Shift(ev), i, Tx(at), Ty(at));
        };
        w.onPress = [&ctx, i](ElementWidget&, QMouseEvent& ev) {
            DockMouseDown(ctx.ws);
            if (ev.button() != Qt::RightButton) {
                const QPointF at = ToTwips(ctx.ws, ev);
                grpBorder_MouseDown(ctx.ws, Button(ev), Shift(ev), i, Tx(at), Ty(at));
                return;
            }
            if (ctx.ws.menus["mnuLock"].Checked()) {
                ShowLockedSign(ctx.ws, ctx.ws.Group(i));
                return;
            }
            const QPointF at = ToTwips(ctx.ws, ev);
            ctx.ws.DropX = static_cast<float>(at.x());
            ctx.ws.DropY = static_cast<float>(at.y());
            Popup(ctx, QString::fromLatin1(ContainerBodyMenu(ctx.ws, i)), ev);
        };
    } else if (name == QLatin1String("PicDock")) {
        w.onPress = [&ws](ElementWidget&, QMouseEvent& ev) { PicDock_MouseDown(ws, Button(ev)); };
        w.onRelease = [&ctx](ElementWidget&, QMouseEvent& ev) {
            const QString menu = PicDock_MouseUp(ctx.ws, Button(ev));
            if (menu.isEmpty()) return;
            if (QMenu* m = ctx.menus.menu(menu)) {
                m->setDefaultAction(ctx.menus.action(QStringLiteral("mnuDockNow")));
                m->popup(ev.globalPosition().toPoint());
            }
        };
    } else if (name == QLatin1String("Group")) {
        WireRim(ctx, w, i, true);
    } else if (name == QLatin1String("picPlaceholder")) {
        WireRim(ctx, w, i, false);
    } else if (name == QLatin1String("Link")) {
        WireLink(ctx, w, i);
    } else if (name == QLatin1String("picMiniToolbar")) {
        w.onPress = [&ws, i](ElementWidget&, QMouseEvent& ev) {
            if (Left(ev)) picMiniToolbar_Click(ws, i);
        };
    } else if (name == QLatin1String("chkFold")) {
        w.onPress = OnPress(ws, chkFold_MouseDown);
        w.onRelease = [&ws](ElementWidget&, QMouseEvent& ev) {
            if (Left(ev)) chkFold_MouseUp(ws);
        };
    } else if (name == QLatin1String("chkUnfold")) {
        w.onPress = OnPress(ws, chkUnfold_MouseDown);
        w.onRelease = [&ws](ElementWidget&, QMouseEvent& ev) {
            if (Left(ev)) chkUnfold_MouseUp(ws);
        };
    } else if (name == QLatin1String("picShrink")) {
        w.onPress = OnPress(ws, picShrink_MouseDown);
        w.onMove = [&ws, i](ElementWidget&, QMouseEvent&) { ShrinkHover(ws, i); };
    } else if (name == QLatin1String("ShrinkIcon")) {
        w.onMove = [&ws](ElementWidget&, QMouseEvent&) { MouseLeftTiles(ws); };
        w.onDoubleClick = [&ws, i](ElementWidget&, QMouseEvent&) {
            ws.SelectedContainer = static_cast<int16_t>(i);
            ShrinkIcon_DblClick(ws);
        };
        w.onPress = [&ctx, i](ElementWidget&, QMouseEvent& ev) {
            const QPointF at = ToTwips(ctx.ws, ev);
            ShrinkIcon_MouseDown(ctx.ws, Button(ev), Shift(ev), i, static_cast<float>(at.x()), static_cast<float>(at.y()));
            if (ev.button() == Qt::RightButton) {
                const QString menu = QString::fromLatin1(TitleContextMenu(ctx.ws, i));
                if (!menu.isEmpty()) Popup(ctx, menu, ev);
            }
        };
        w.onRelease = [&ws, i](ElementWidget&, QMouseEvent& ev) { lblName_MouseUp(ws, Button(ev), Shift(ev), i); };
    } else if (name == QLatin1String("picCopy1")) {
        w.onPress = [&ws, i](ElementWidget&, QMouseEvent& ev) {
            ws.SelectedContainer = static_cast<int16_t>(i);
            picCopy1_MouseDown(ws, Button(ev), i);
        };
    } else if (name == QLatin1String("picCopy2")) {
        w.onRelease = [&ws, i](ElementWidget& self, QMouseEvent& ev) {
            if (Left(ev) && self.rect().contains(ev.position().toPoint())) picCopy2_Click(ws, i);
        };
    } else if (name == QLatin1String("picPinNote")) {
        w.onPress = OnLeftPress(ws, ShowNote);
    } else if (name == QLatin1String("picPin")) {
        w.onPress = OnLeftPress(ws, HideNote);
    } else if (name == QLatin1String("lblName")) {
        w.onDoubleClick = [&ws, i](ElementWidget&, QMouseEvent& ev) {
            if (!Left(ev)) return;
            lblName_DblClick(ws, i);
            SaveDesktop(ws, true, false);
        };
        w.onPress = [&ctx, i](ElementWidget&, QMouseEvent& ev) {
            ctx.ws.SelectedContainer = static_cast<int16_t>(i);
            const QPointF at = ToTwips(ctx.ws, ev);
            lblName_MouseDown(ctx.ws, Button(ev), Shift(ev), i, Tx(at), Ty(at));
            if (ev.button() == Qt::RightButton) {
                const QString menu = QString::fromLatin1(TitleContextMenu(ctx.ws, i));
                if (!menu.isEmpty()) Popup(ctx, menu, ev);
            }
        };
        w.onMove = [&ctx, i](ElementWidget&, QMouseEvent& ev) {
            if (!ctx.ws.DragSource) {
                const QPointF at = ToTwips(ctx.ws, ev);
                lblName_MouseMove(ctx.ws, Held(ev), Shift(ev), i, Tx(at), Ty(at));
            }
            if (ctx.ws.DragSource) CarryMove(ctx, ev);
        };
        w.onRelease = [&ctx, i](ElementWidget&, QMouseEvent& ev) {
            Workspace& wsr = ctx.ws;
            if (wsr.DragSource) {
                DropCarried(ctx, ev);
                return;
            }
            const bool moved = wsr.Group.exists(i) && (wsr.Group(i).Left != wsr.DropX || wsr.Group(i).Top != wsr.DropY);
            lblName_MouseUp(wsr, Button(ev), Shift(ev), i);
            if (moved) SaveDesktop(wsr, true, false);
        };
    } else if (name == QLatin1String("groupName")) {
        w.onTextEdited = [&ws, i](ElementWidget&) { RenameTextChanged(ws, i); };
        w.onReturn = [&ws, i](ElementWidget&) { RenameFinished(ws, i, false); };
        w.onFocusLost = [&ws, i](ElementWidget&) {
            if (ws.groupName(i).Visible) RenameFinished(ws, i, true);
        };
    } else if (name == QLatin1String("txtNote")) {
        // A note is saved when it loses the focus.
        w.onFocusLost = [&ws](ElementWidget&) { SaveDesktop(ws, true, false); };
    }
}

} // namespace pd
