#pragma once
// The floating toolbar's real window: a frameless tool window that mirrors window/FloatingToolbar
// (place, opacity, the outlined icon, the tip) and turns the mouse and keys into its handlers. A row of
// eleven icons of 16 pixels in 24-pixel cells, the tip under them (the grip that drags the window), and
// the close mark at the right of the tip.

#include "platform/qt/HiDpiPictures.h"

#include <QElapsedTimer>
#include <QWidget>

#include <vector>

namespace pd {

class Workspace;

class ToolbarWindow : public QWidget {
    Q_OBJECT
  public:
    ToolbarWindow(Workspace& ws, const QString& programDirectory);
    // Follows the toolbar's state.
    void sync();

    // The icon under a point of the window (-1 for none), and whether a point is on the grip or the
    // close mark; pixels in the window.
    int iconAt(const QPoint& p) const;
    bool onGrip(const QPoint& p) const;
    bool onCloseMark(const QPoint& p) const;

  protected:
    void paintEvent(QPaintEvent*) override;
    void mouseMoveEvent(QMouseEvent* ev) override;
    void mousePressEvent(QMouseEvent* ev) override;
    void mouseReleaseEvent(QMouseEvent* ev) override;
    void moveEvent(QMoveEvent* ev) override;
    void keyPressEvent(QKeyEvent* ev) override;

  private:
    Workspace& ws_;
    // The icons' pictures, at the device pixel ratio of the window's screen.
    std::vector<ScreenPicture> icons_;
    int pressedIcon_ = -1;
    // The program's own placement, not to be taken for a drag.
    QElapsedTimer placed_;
};

} // namespace pd
