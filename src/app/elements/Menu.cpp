#include "app/elements/Menu.h"

namespace pd {

MenuEntry::MenuEntry(QString name, int index, QString caption, MenuEntry* parent, MenuSink** sink)
    : name_(std::move(name)), index_(index), caption_(std::move(caption)), parent_(parent), sink_(sink) {}

QString MenuEntry::objectName() const {
    return index_ < 0 ? name_ : name_ + QLatin1Char('_') + QString::number(index_);
}

void MenuEntry::changed() {
    if (sink_ && *sink_) (*sink_)->menuChanged(*this);
}

void MenuEntry::setCaption(const QString& c) {
    if (caption_ == c) return;
    caption_ = c;
    changed();
}

void MenuEntry::setChecked(bool c) {
    if (checked_ == c) return;
    checked_ = c;
    changed();
}

void MenuEntry::setVisible(bool v) {
    if (visible_ == v) return;
    visible_ = v;
    changed();
}

void MenuEntry::setEnabled(bool e) {
    if (enabled_ == e) return;
    enabled_ = e;
    changed();
}

void MenuEntry::setShortcut(const QString& s) {
    if (shortcut_ == s) return;
    shortcut_ = s;
    changed();
}

MenuEntry& Menus::add(const QString& name, const QString& caption, const QString& parent, int index) {
    if (auto it = byName_.find({name, index}); it != byName_.end()) return *it->second;
    MenuEntry* p = parent.isEmpty() ? nullptr : &get(parent, -1);
    all_.push_back(std::make_unique<MenuEntry>(name, index, caption, p, sink_));
    MenuEntry* e = all_.back().get();
    byName_[{name, index}] = e;
    if (p) p->addChild(e);
    else top_.push_back(e);
    return *e;
}

bool Menus::has(const QString& name, int index) const { return byName_.count({name, index}) != 0; }

int Menus::familyCount(const QString& name) const {
    int n = 0;
    while (has(name, n)) ++n;
    return n;
}

MenuEntry& Menus::get(const QString& name, int index) {
    if (auto it = byName_.find({name, index}); it != byName_.end()) return *it->second;
    // An entry asked for before any subsystem declared it: create it detached, so that a setting can
    // still be stored in its check mark.
    return add(name, QString(), QString(), index);
}

} // namespace pd
