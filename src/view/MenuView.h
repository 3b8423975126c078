#pragma once
// Mirrors the menu entries into QMenus and QActions: an entry with children becomes a menu, the others
// actions whose object names are the entries' names; a triggered action runs the entry's Click.

#include "app/elements/Menu.h"

#include <QAction>
#include <QMenu>
#include <QPointer>

#include <map>

class QWidget;

namespace pd {

class MenuView : public MenuSink {
public:
    // Builds every menu; the actions' shortcuts are added to `shortcutHost` so that they work while the
    // window has the focus.
    MenuView(Menus& menus, QWidget* shortcutHost);
    ~MenuView() override;

    QMenu* menu(const QString& name) const;
    QAction* action(const QString& objectName) const;
    void menuChanged(MenuEntry& m) override;

private:
    void build(MenuEntry& m, QMenu* parent);
    void apply(MenuEntry& m);

    Menus& menus_;
    QWidget* host_;
    std::map<const MenuEntry*, QPointer<QAction>> actions_;
    std::map<QString, QMenu*> menusByName_;
    std::vector<std::unique_ptr<QMenu>> topMenus_;
};

} // namespace pd
