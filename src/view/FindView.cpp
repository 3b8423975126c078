#include "view/FindView.h"
#include "view/MouseArgs.h"

#include "app/workspace/Workspace.h"
#include "shortcuts/EditLink.h"
#include "shortcuts/FindCommands.h"
#include "shortcuts/FindState.h"
#include "shortcuts/Launch.h"
#include "shortcuts/Tags.h"
#include "view/EditLinkDialog.h"
#include "view/ElementView.h"
#include "view/ElementWidget.h"
#include "view/JumpToPanel.h"
#include "view/MenuView.h"

#include <QCursor>
#include <QMenu>
#include <QMouseEvent>

namespace pd {

namespace {

using Handler = std::function<void(ElementWidget&, QMouseEvent&)>;

// Runs `first` (the widget's handler so far, if any), then `then`.
Handler Chain(Handler first, Handler then) {
    if (!first) return then;
    if (!then) return first;
    return [first, then](ElementWidget& w, QMouseEvent& ev) {
        first(w, ev);
        then(w, ev);
    };
}

} // namespace

FindView::FindView(Workspace& ws, ElementView& view, MenuView& menus, QWidget* dialogParent)
    : ws_(ws), view_(view), menus_(menus), dialogParent_(dialogParent) {
    FindState& f = Find(ws);
    f.onPopupMenu = [this](const QString& name) {
        if (name == QLatin1String("mnuTags")) syncFamily(name, QStringLiteral("mnuSubItem"));
        if (QMenu* m = menus_.menu(name)) m->exec(QCursor::pos());
    };
    f.onShowEditLink = [this](FrmEditLink& form) { ShowEditLinkDialog(ws_, form, dialogParent_); };
    f.onReadPixels = [](Element& e) {
        // What the screen shows over the box: the icon with whatever lies behind it.
        std::vector<int32_t> pixels;
        auto* w = static_cast<QWidget*>(e.viewHandle);
        if (!w || w->width() <= 0 || w->height() <= 0) return pixels;
        QWidget* top = w->window();
        const QImage img = top->grab(QRect(w->mapTo(top, QPoint(0, 0)), w->size())).toImage();
        pixels.reserve(static_cast<size_t>(img.width()) * static_cast<size_t>(img.height()));
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x) {
                const QColor c = img.pixelColor(x, y);
                pixels.push_back(c.red() | (c.green() << 8) | (c.blue() << 16));
            }
        return pixels;
    };
    if (QMenu* main = menus_.menu(QStringLiteral("mnuMain"))) {
        // The tags and the check of all targets stand with the workspace's commands, before the line
        // above "Save Workspace", rather than after "Exit" where the entries made later would go.
        QAction* before = nullptr;
        for (QAction* a : main->actions())
            if (a->objectName() == QLatin1String("mnuSepWorkspace")) before = a;
        if (before) {
            for (const char* name : {"mnuSepTags", "mnuTagsMain", "mnuVerify"}) {
                for (QAction* a : main->actions()) {
                    if (a->objectName() != QLatin1String(name)) continue;
                    main->removeAction(a);
                    main->insertAction(before, a);
                    break;
                }
            }
        }
        connect(main, &QMenu::aboutToShow, this, [this] {
            PrepareMainMenu(ws_);
            syncFamily(QStringLiteral("mnuTagsMain"), QStringLiteral("mnuTagsItem"));
        });
    }
    if (QMenu* link = menus_.menu(QStringLiteral("mnuLink")))
        connect(link, &QMenu::aboutToShow, this, [this] { PrepareLinkMenu(ws_); });
}

FindView::~FindView() {
    if (!ws_.FindStateSlot) return;
    FindState& f = Find(ws_);
    f.onPopupMenu = nullptr;
    f.onShowEditLink = nullptr;
    f.onReadPixels = nullptr;
    f.onChanged = nullptr;
}

void FindView::syncFamily(const QString& menu, const QString& family) {
    QMenu* m = menus_.menu(menu);
    if (!m) return;
    for (int k = 0; k < ws_.menus.familyCount(family); ++k) {
        MenuEntry& entry = ws_.menus(family, k);
        const QString name = entry.objectName();
        QAction* action = nullptr;
        for (QAction* a : m->actions())
            if (a->objectName() == name) action = a;
        if (!action) {
            action = m->addAction(QString());
            action->setObjectName(name);
            MenuEntry* e = &entry;
            connect(action, &QAction::triggered, this, [e] { e->Click(); });
        }
        action->setText(entry.Caption());
        action->setVisible(entry.Visible());
    }
}

void FindView::attach() {
    QWidget* panel = view_.widget(ws_.PicJumpToLink(0));
    QWidget* top = view_.widget(ws_.PicJumpToLinkTop(0));
    if (panel && !panel_) panel_ = new JumpToPanel(ws_, panel, top);
}

void FindView::wireWidget(ElementWidget& w) {
    Workspace& ws = ws_;
    const QString& name = w.element().Name();
    const int i = w.element().Index();
    if (name == QLatin1String("picBack")) {
        // A click on the workspace closes the type-to-find panel, as its close mark's tip says.
        w.onPress = Chain([&ws](ElementWidget&, QMouseEvent&) { HideJumpTo(ws); }, w.onPress);
    } else if (name == QLatin1String("PicIcon")) {
        w.onMove = Chain(w.onMove, [&ws, i](ElementWidget&, QMouseEvent& ev) {
            if (Held(ev) == 0) PicIcon_MouseMove(ws, i);
        });
    } else if (name == QLatin1String("ImgLinkGroup")) {
        w.onRelease = [&ws](ElementWidget&, QMouseEvent& ev) { ImgLinkGroup_MouseUp(ws, Button(ev)); };
        w.onPress = [](ElementWidget&, QMouseEvent&) {};
    } else if (name == QLatin1String("FrameLinkGroup")) {
        w.onPress = [&ws](ElementWidget&, QMouseEvent& ev) {
            if (ev.button() == Qt::LeftButton) LblLinkGroup_Click(ws);
        };
    } else if (name == QLatin1String("PicLinkColor")) {
        const float tx = ws.TwipsPerPixelX(), ty = ws.TwipsPerPixelY();
        w.onPress = [&ws, tx, ty](ElementWidget&, QMouseEvent& ev) {
            PicLinkColor_MouseDown(ws, Button(ev), static_cast<float>(ev.position().x()) * tx,
                                   static_cast<float>(ev.position().y()) * ty);
        };
        w.onMove = [&ws, tx, ty](ElementWidget&, QMouseEvent& ev) {
            PicLinkColor_MouseMove(ws, Held(ev), static_cast<float>(ev.position().x()) * tx,
                                   static_cast<float>(ev.position().y()) * ty);
        };
        w.onRelease = [this, &ws, tx, ty](ElementWidget&, QMouseEvent& ev) {
            const QString menu =
                PicLinkColor_MouseUp(ws, Button(ev), static_cast<float>(ev.position().x()) * tx,
                                     static_cast<float>(ev.position().y()) * ty);
            if (menu.isEmpty()) return;
            if (QMenu* m = menus_.menu(menu)) m->popup(ev.globalPosition().toPoint());
        };
    }
}

} // namespace pd
