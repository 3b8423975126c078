#pragma once
// The widget of a headline panel (UserControl1): the viewport picBack, the sheet PicFeed with a rich
// label, a bullet and a rule for each row and the hover underline, and the two scroll bars. It draws the
// panel's state and turns the mouse and the wheel into the panel's handlers.

#include <QPointer>
#include <QWidget>

#include <functional>
#include <vector>

class QScrollBar;

namespace pd {

class UserControl1;
class RichLabel;

class HeadlinePanelWidget : public QWidget {
    Q_OBJECT
  public:
    HeadlinePanelWidget(UserControl1& panel, float twipsPerPixelX, float twipsPerPixelY, QWidget* parent);
    ~HeadlinePanelWidget() override;
    // Takes the panel's state now (changes are otherwise taken once the events in hand have run).
    void sync();
    UserControl1& panel() const { return p_; }
    // A right release on a row: the popup goes to the pointer.
    std::function<void(const QPoint& global)> onRowMenu;

  protected:
    bool eventFilter(QObject* watched, QEvent* ev) override;
    void wheelEvent(QWheelEvent* ev) override;
    void resizeEvent(QResizeEvent* ev) override;

  private:
    class Sheet;
    int px(float twips) const;
    int py(float twips) const;
    void scheduleSync();

    UserControl1& p_;
    float tx_, ty_;
    QWidget* back_;
    Sheet* sheet_;
    QScrollBar* v_;
    QScrollBar* h_;
    std::vector<RichLabel*> rows_;
    bool syncing_ = false;
    bool pending_ = false;
};

} // namespace pd
