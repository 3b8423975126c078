#pragma once
// The controls of the type-to-find panel, drawn inside the PicJumpToLink element's widget: the search
// field cboSearch with its list, the found shortcut's icon and label, "Go", the close mark and the key
// line. They mirror the panel's state (shortcuts/FindState.h) and report the user's actions to it.

#include <QComboBox>
#include <QLabel>
#include <QWidget>

namespace pd {

class Workspace;

// The search field: its list is filled when it drops down.
class JumpSearchBox : public QComboBox {
    Q_OBJECT
  public:
    JumpSearchBox(Workspace& ws, QWidget* parent);
    void showPopup() override;

  private:
    Workspace& ws_;
};

class JumpToPanel : public QWidget {
    Q_OBJECT
  public:
    // `panel` and `top` are the widgets of PicJumpToLink and PicJumpToLinkTop.
    JumpToPanel(Workspace& ws, QWidget* panel, QWidget* top);
    // Shows the panel's state.
    void sync();
    JumpSearchBox* search() const { return search_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* ev) override;

  private:
    void layoutControls();

    Workspace& ws_;
    QWidget* panel_;
    QWidget* top_;
    JumpSearchBox* search_;
    QLabel* icon_;
    QLabel* label_;
    QLabel* go_;
    QLabel* close_;
    QLabel* keys_;
    bool busy_ = false;
    bool syncing_ = false;
};

} // namespace pd
