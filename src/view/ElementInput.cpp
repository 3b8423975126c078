#include "view/ElementInput.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/ContainerMenus.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Shrinking.h"
#include "containers/TitleMouse.h"
#include "desk/Notes.h"
#include "shortcuts/LinkMouse.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "view/ElementWidget.h"
#include "view/MainView.h"
#include "view/MenuView.h"
#include "window/Docking.h"

#include <QMenu>
#include <QMouseEvent>
#include <QWindow>

namespace pd {

namespace {

using Handler = std::function<void(ElementWidget&, QMouseEvent&)>;

bool Left(const QMouseEvent& ev) { return ev.button() == Qt::LeftButton; }

void Popup(InputContext& ctx, const QString& name, const QMouseEvent& ev) {
    if (name != QLatin1String("mnuLink")) ctx.ws.menus["mnuDeleteContainer"].setVisible(false);
    if (QMenu* m = ctx.menus.menu(name)) m->popup(ev.globalPosition().toPoint());
}

// The mouse button as the handlers take it: 1 left, 2 right, 4 middle.
int Button(const QMouseEvent& ev) {
    switch (ev.button()) {
    case Qt::LeftButton: return 1;
    case Qt::RightButton: return 2;
    case Qt::MiddleButton: return 4;
    default: return 0;
    }
}

// The key states as the handlers take them: 1 Shift, 2 Ctrl, 4 Alt.
int Shift(const QMouseEvent& ev) {
    const Qt::KeyboardModifiers m = ev.modifiers();
    return (m & Qt::ShiftModifier ? 1 : 0) | (m & Qt::ControlModifier ? 2 : 0) | (m & Qt::AltModifier ? 4 : 0);
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

// The mouse on a shortcut's label: press, moves (hover or drag), release, double click, menu.
void WireLink(InputContext& ctx, ElementWidget& w, int n) {
    w.onPress = [&ctx, n](ElementWidget&, QMouseEvent& ev) {
        const QPointF at = ToTwips(ctx.ws, ev);
        Link_MouseDown(ctx.ws, Button(ev), Shift(ev), n, static_cast<float>(at.x()), static_cast<float>(at.y()));
        if (ev.button() == Qt::RightButton) Popup(ctx, QString::fromLatin1(LinkContextMenu(ctx.ws, n)), ev);
    };
    w.onMove = [&ctx, n](ElementWidget&, QMouseEvent& ev) {
        const QPointF at = ToTwips(ctx.ws, ev);
        const int held = (ev.buttons() & Qt::LeftButton) ? 1 : (ev.buttons() & Qt::RightButton) ? 2 : 0;
        Link_MouseMove(ctx.ws, held, Shift(ev), n, static_cast<float>(at.x()), static_cast<float>(at.y()));
    };
    w.onRelease = [&ctx, n](ElementWidget&, QMouseEvent& ev) {
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
    const QString& name = w.element().Name();
    const int i = w.element().Index();
    if (name == QLatin1String("picMoveMe") || name == QLatin1String("lblCaption")) {
        WireTitleBand(ctx, w);
    } else if (name == QLatin1String("picBack")) {
        // The mouse on the bare background has left every tile; on a docked window it undocks.
        w.onMove = [&ws](ElementWidget&, QMouseEvent&) {
            DockMouseMove(ws);
            MouseLeftTiles(ws);
        };
        w.onPress = [&ctx](ElementWidget&, QMouseEvent& ev) {
            DockMouseDown(ctx.ws);
            if (ev.button() != Qt::RightButton) return;
            // New objects made from the menu appear where it opened.
            const QPointF at = ToTwips(ctx.ws, ev);
            ctx.ws.DropX = static_cast<float>(at.x());
            ctx.ws.DropY = static_cast<float>(at.y());
            Popup(ctx, QStringLiteral("mnuMain"), ev);
        };
    } else if (name == QLatin1String("grpBorder")) {
        w.onPress = [&ctx, i](ElementWidget&, QMouseEvent& ev) {
            if (ev.button() != Qt::RightButton || ctx.ws.menus["mnuLock"].Checked()) return;
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
            if (ev.button() == Qt::RightButton) {
                const QString menu = QString::fromLatin1(TitleContextMenu(ctx.ws, i));
                if (!menu.isEmpty()) Popup(ctx, menu, ev);
                return;
            }
            const QPointF at = ToTwips(ctx.ws, ev);
            lblName_MouseDown(ctx.ws, Button(ev), Shift(ev), i, static_cast<float>(at.x()), static_cast<float>(at.y()));
        };
        w.onRelease = [&ws, i](ElementWidget&, QMouseEvent& ev) { lblName_MouseUp(ws, Button(ev), Shift(ev), i); };
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
