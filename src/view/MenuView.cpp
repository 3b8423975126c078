#include "view/MenuView.h"

#include <QKeySequence>
#include <QWidget>

namespace pd {

MenuView::MenuView(Menus& menus, QWidget* host) : menus_(menus), host_(host) {
    for (MenuEntry* top : menus.topLevel()) {
        if (top->children().empty()) continue;
        auto m = std::make_unique<QMenu>();
        m->setObjectName(top->objectName());
        m->setTitle(top->Caption());
        menusByName_[top->Name()] = m.get();
        for (MenuEntry* c : top->children()) build(*c, m.get());
        topMenus_.push_back(std::move(m));
    }
}

MenuView::~MenuView() = default;

void MenuView::build(MenuEntry& m, QMenu* parent) {
    if (!m.children().empty()) {
        QMenu* sub = parent->addMenu(QString());
        sub->setObjectName(m.objectName());
        sub->menuAction()->setObjectName(m.objectName());
        menusByName_[m.Name()] = sub;
        actions_[&m] = sub->menuAction();
        for (MenuEntry* c : m.children()) build(*c, sub);
    } else if (m.Caption() == QLatin1String("-")) {
        QAction* sep = parent->addSeparator();
        sep->setObjectName(m.objectName());
        actions_[&m] = sep;
        return;
    } else if (auto shared = actions_.find(&m); shared != actions_.end() && shared->second) {
        // An entry shown in a second menu: the same action.
        parent->addAction(shared->second);
        return;
    } else {
        QAction* a = parent->addAction(QString());
        a->setObjectName(m.objectName());
        QObject::connect(a, &QAction::triggered, [&m] { m.Click(); });
        actions_[&m] = a;
        if (host_ && !m.Shortcut().isEmpty()) host_->addAction(a);
    }
    apply(m);
}

void MenuView::apply(MenuEntry& m) {
    auto it = actions_.find(&m);
    if (it == actions_.end() || !it->second) return;
    QAction* a = it->second;
    a->setText(m.Caption());
    a->setCheckable(m.checkable() || m.Checked());
    a->setChecked(m.Checked());
    a->setVisible(m.Visible());
    a->setEnabled(m.Enabled());
    a->setShortcut(QKeySequence(m.Shortcut()));
}

QMenu* MenuView::menu(const QString& name) const {
    auto it = menusByName_.find(name);
    return it == menusByName_.end() ? nullptr : it->second;
}

QAction* MenuView::action(const QString& objectName) const {
    for (const auto& [entry, a] : actions_)
        if (entry->objectName() == objectName) return a;
    return nullptr;
}

void MenuView::menuChanged(MenuEntry& m) { apply(m); }

} // namespace pd
