#pragma once
// The menu facade: every `mnuX` entry with its caption, check mark, visibility and state. A check mark
// is the only store of its setting: code reads `menus["mnuAlign"].Checked`. The view mirrors the entries
// into QMenu/QAction and routes a trigger back to `Click`.

#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace pd {

class MenuEntry;

class MenuSink {
public:
    virtual ~MenuSink() = default;
    virtual void menuChanged(MenuEntry& m) = 0;
};

class MenuEntry {
public:
    MenuEntry(QString name, int index, QString caption, MenuEntry* parent, MenuSink** sink);

    const QString& Name() const { return name_; }
    int Index() const { return index_; }
    // The object name the view gives its action: the name, with "_index" for family members.
    QString objectName() const;
    MenuEntry* parent() const { return parent_; }
    const std::vector<MenuEntry*>& children() const { return children_; }

    const QString& Caption() const { return caption_; }
    bool Checked() const { return checked_; }
    bool Visible() const { return visible_; }
    bool Enabled() const { return enabled_; }
    // A key sequence in Qt's portable text form ("Ctrl+S"), empty for none.
    const QString& Shortcut() const { return shortcut_; }

    void setCaption(const QString& c);
    void setChecked(bool c);
    void setVisible(bool v);
    void setEnabled(bool e);
    void setShortcut(const QString& s);
    // A check mark that the user can toggle from the menu.
    bool checkable() const { return checkable_; }
    void setCheckable(bool c) { checkable_ = c; }

    // What a press of the entry runs; set by the subsystem that owns the command.
    std::function<void()> onClick;
    void Click() {
        if (onClick) onClick();
    }

    void addChild(MenuEntry* child) { children_.push_back(child); }

private:
    void changed();

    QString name_;
    int index_;
    QString caption_;
    MenuEntry* parent_;
    MenuSink** sink_;
    std::vector<MenuEntry*> children_;
    QString shortcut_;
    bool checked_ = false;
    bool visible_ = true;
    bool enabled_ = true;
    bool checkable_ = false;
};

// All menu entries by name. Entries that form a family (`mnuRSSSearchItem(0..9)`) are addressed with
// an index; the others have index -1.
class Menus {
public:
    explicit Menus(MenuSink** sink) : sink_(sink) {}

    // Creates an entry (or returns the existing one) under `parent` (empty for a top-level popup).
    MenuEntry& add(const QString& name, const QString& caption, const QString& parent = {}, int index = -1);
    MenuEntry& operator[](const QString& name) { return get(name, -1); }
    MenuEntry& operator()(const QString& name, int index) { return get(name, index); }
    // Shows an existing entry in a second menu as well (the same command, check mark and state).
    void share(const QString& name, const QString& parent) { get(parent, -1).addChild(&get(name, -1)); }
    bool has(const QString& name, int index = -1) const;
    // Number of loaded members of a menu family (one past the highest index).
    int familyCount(const QString& name) const;
    const std::vector<MenuEntry*>& topLevel() const { return top_; }
    const std::vector<std::unique_ptr<MenuEntry>>& all() const { return all_; }

private:
    MenuEntry& get(const QString& name, int index);

    MenuSink** sink_;
    std::map<std::pair<QString, int>, MenuEntry*> byName_;
    std::vector<std::unique_ptr<MenuEntry>> all_;
    std::vector<MenuEntry*> top_;
};

} // namespace pd
