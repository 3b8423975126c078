#pragma once
// The view's part of tags, type-to-find and shortcut properties: the menus that the core pops up, the
// tag entries made while the program runs, the properties dialog, the pixels of an icon box, the
// type-to-find panel's controls, and the mouse on the asterisk, the tag banner, the icons and the
// toolbar's colour swatch.

#include <QObject>

#include <memory>

class QWidget;

namespace pd {

class Workspace;
class ElementView;
class ElementWidget;
class MenuView;
class JumpToPanel;

class FindView : public QObject {
    Q_OBJECT
  public:
    FindView(Workspace& ws, ElementView& view, MenuView& menus, QWidget* dialogParent);
    ~FindView() override;
    // Connects the mouse on the widgets of this subsystem's elements (call for each new widget).
    void wireWidget(ElementWidget& w);
    // Builds the panel's controls once the elements have their widgets.
    void attach();
    JumpToPanel* panel() const { return panel_; }
    // Shows the entries of a menu family that the core added since the menus were built.
    void syncFamily(const QString& menu, const QString& family);

  private:
    Workspace& ws_;
    ElementView& view_;
    MenuView& menus_;
    QWidget* dialogParent_;
    JumpToPanel* panel_ = nullptr;
};

} // namespace pd
