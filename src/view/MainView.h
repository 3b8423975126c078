#pragma once
// The real windows: the frameless, rounded main window that shows `frmMain`, and the splash window.
// They follow their elements' place, size, state and visibility, and report what the user or the
// window manager did to them.

#include <QElapsedTimer>
#include <QWidget>

namespace pd {

class Workspace;
class Element;
enum class Prop : uint8_t;

class TopWindow : public QWidget {
    Q_OBJECT
public:
    TopWindow(Workspace& ws, Element& e, Qt::WindowFlags flags);
    // Applies the element's property to the window.
    void apply(Prop p);
    void applyAll();

    std::function<void()> onClose;

protected:
    void paintEvent(QPaintEvent*) override;
    void moveEvent(QMoveEvent* ev) override;
    void resizeEvent(QResizeEvent* ev) override;
    void changeEvent(QEvent* ev) override;
    void closeEvent(QCloseEvent* ev) override;
    void mousePressEvent(QMouseEvent* ev) override;
    void mouseMoveEvent(QMouseEvent* ev) override;
    void keyPressEvent(QKeyEvent* ev) override;

private:
    // True shortly after this program placed the window: the window manager's answer to that placement
    // (for example keeping a window on the screen) is not taken back into the element.
    bool settling() const;
    void applyGeometry();
    // Takes a place and size in pixels, given by the window manager or the user, into the element.
    void follow(const QRect& px);
    void round();

    Workspace& ws_;
    Element& e_;
    QElapsedTimer placed_;
};

} // namespace pd
