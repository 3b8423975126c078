#pragma once
// The real windows: the frameless, rounded main window that shows `frmMain`, and the splash window.
// They follow their elements' place, size, state and visibility, and report what the user or the
// window manager did to them.

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QWidget>

namespace pd {

class Workspace;
class Element;
enum class Prop : uint8_t;

// The key code and the Shift/Ctrl/Alt mask (1, 2, 4) of a key press, as the window's key table takes
// them; 0 for a key the table does not know.
int WindowKeyCode(const QKeyEvent& ev);
int KeyShift(const QKeyEvent& ev);

class TopWindow : public QWidget {
    Q_OBJECT
public:
    TopWindow(Workspace& ws, Element& e, Qt::WindowFlags flags);
    // Applies the element's property to the window.
    void apply(Prop p);
    void applyAll();

    std::function<void()> onClose;
    // What the element's children are drawn on. For the main window it covers the whole workspace and
    // lies offset inside the real window while only part of the window is on the screen (docked).
    QWidget* canvas() { return canvas_ ? canvas_ : this; }
    // The real window shows only the part of the workspace that lies on the screen: whether it does so
    // now, and where the whole window stands (pixels, on the screen).
    bool clipped() const { return clipped_; }
    QRect fullGeometry() const { return full_; }

protected:
    void paintEvent(QPaintEvent*) override;
    void moveEvent(QMoveEvent* ev) override;
    void resizeEvent(QResizeEvent* ev) override;
    void changeEvent(QEvent* ev) override;
    void closeEvent(QCloseEvent* ev) override;
    void mousePressEvent(QMouseEvent* ev) override;
    void mouseMoveEvent(QMouseEvent* ev) override;
    void keyPressEvent(QKeyEvent* ev) override;
    void enterEvent(QEnterEvent* ev) override;

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
    QWidget* canvas_ = nullptr;
    bool clipped_ = false;
    QRect full_;
    // Where a pointer position of this window lies in the whole workspace window, in twips.
    QPointF toTwips(const QPointF& px) const;
};

} // namespace pd
