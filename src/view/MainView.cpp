#include "view/MainView.h"

#include "app/MainWindow.h"
#include "app/workspace/Workspace.h"
#include "view/ElementWidget.h"
#include "containers/Folding.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkMouse.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "window/Docking.h"
#include "window/WindowBands.h"
#include "window/WindowServices.h"

#include <QBitmap>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>
#include <QPainter>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

#include <cmath>

namespace pd {

int WindowKeyCode(const QKeyEvent& ev) {
    const int k = ev.key();
    if ((k >= Qt::Key_A && k <= Qt::Key_Z) || (k >= Qt::Key_0 && k <= Qt::Key_9)) return k;
    if (k >= Qt::Key_F1 && k <= Qt::Key_F12) return kKeyF1 + (k - Qt::Key_F1);
    switch (k) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return kKeyEnter;
    case Qt::Key_Escape: return kKeyEscape;
    case Qt::Key_Space: return kKeySpace;
    case Qt::Key_Delete: return kKeyDelete;
    default: return 0;
    }
}

int KeyShift(const QKeyEvent& ev) {
    const Qt::KeyboardModifiers m = ev.modifiers();
    return (m & Qt::ShiftModifier ? 1 : 0) | (m & Qt::ControlModifier ? 2 : 0) | (m & Qt::AltModifier ? 4 : 0);
}

TopWindow::TopWindow(Workspace& ws, Element& e, Qt::WindowFlags flags) : QWidget(nullptr, flags), ws_(ws), e_(e) {
    setObjectName(e.Name());
    setWindowTitle(QStringLiteral("Perchdock"));
    setAttribute(Qt::WA_QuitOnClose, false);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    if (&e == &ws.frmMain(0)) {
        // Transparent: the window's own background (the docking strip's colour) shows around picBack.
        canvas_ = new QWidget(this);
        canvas_->setObjectName(QStringLiteral("frmMainCanvas"));
        canvas_->setMouseTracking(true);
    }
}

QPointF TopWindow::toTwips(const QPointF& px) const {
    const QPointF offset = canvas_ ? QPointF(canvas_->pos()) : QPointF();
    return {(px.x() - offset.x()) * ws_.TwipsPerPixelX(), (px.y() - offset.y()) * ws_.TwipsPerPixelY()};
}

bool TopWindow::settling() const { return placed_.isValid() && placed_.elapsed() < 500; }

void TopWindow::applyGeometry() {
    const float tx = ws_.TwipsPerPixelX(), ty = ws_.TwipsPerPixelY();
    const QRect r(static_cast<int>(std::lround(e_.Left / tx)), static_cast<int>(std::lround(e_.Top / ty)),
                  std::max(1, static_cast<int>(std::lround(e_.Width / tx))),
                  std::max(1, static_cast<int>(std::lround(e_.Height / ty))));
    if (windowState() & (Qt::WindowMaximized | Qt::WindowMinimized)) return;
    full_ = r;
    QRect shown = r;
    if (canvas_) {
        // Window managers keep part of every window on the screen, so a window mostly off the screen
        // (docked, or on its way there) is given only the part that lies on it, and the workspace is
        // drawn offset inside it. The screen is read afresh each time.
        const QScreen* screen = QGuiApplication::primaryScreen();
        const QRect area = screen ? screen->geometry() : QRect(0, 0, 1024, 768);
        const QRect on = r.intersected(area);
        clipped_ = on.width() * 2 < r.width() || on.height() * 2 < r.height();
        if (clipped_) {
            shown = on.isEmpty() ? QRect(std::clamp(r.x(), area.left(), area.right()),
                                         std::clamp(r.y(), area.top(), area.bottom()), 1, 1)
                                 : on;
        }
        canvas_->setGeometry(QRect(r.topLeft() - shown.topLeft(), r.size()));
    }
    if (geometry() == shown) {
        round();
        return;
    }
    placed_.start();
    setGeometry(shown);
    round();
}

void TopWindow::applyAll() {
    applyGeometry();
    apply(Prop::WindowState);
    apply(Prop::Visible);
}

void TopWindow::apply(Prop p) {
    switch (p) {
    case Prop::Left:
    case Prop::Top:
    case Prop::Width:
    case Prop::Height: applyGeometry(); break;
    case Prop::Visible:
        if (e_.Visible && !isVisible()) {
            applyGeometry();
            show();
        } else if (!e_.Visible && isVisible()) {
            hide();
        }
        break;
    case Prop::Enabled: setEnabled(e_.Enabled); break;
    case Prop::WindowState: {
        Qt::WindowStates s = windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
        if (e_.WindowState == 1) s |= Qt::WindowMinimized;
        else if (e_.WindowState == 2) s |= Qt::WindowMaximized;
        const bool wasMaximised = windowState() & Qt::WindowMaximized;
        if (s != windowState()) setWindowState(s);
        // The normal place is known at once, before the window manager has restored the window.
        if (e_.WindowState == 0 && wasMaximised) follow(normalGeometry());
        if (e_.WindowState == 0) applyGeometry();
        break;
    }
    default: update(); break;
    }
}

void TopWindow::round() {
    // A rounded outline of 11 pixels, as the window draws no system frame.
    if (width() <= 0 || height() <= 0) return;
    QBitmap mask(size());
    mask.fill(Qt::color0);
    QPainter p(&mask);
    p.setBrush(Qt::color1);
    p.setPen(Qt::NoPen);
    // The outline of the whole window, of which a docked window shows a part.
    const QRect whole = canvas_ ? canvas_->geometry() : rect();
    p.drawRoundedRect(whole.width() > 0 ? whole : rect(), 11, 11);
    setMask(mask);
}

void TopWindow::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), ToQColor(e_.BackColor));
    // A window with a caption of its own (the splash) shows it as its heading.
    if (!e_.Caption.get().isEmpty()) {
        QFont f(e_.FontName.get());
        f.setPixelSize(std::max(12, height() / 5));
        f.setBold(true);
        p.setFont(f);
        p.setPen(ToQColor(e_.ForeColor));
        p.drawText(rect().adjusted(24, 16, -24, -height() / 2), Qt::AlignLeft | Qt::AlignVCenter, e_.Caption.get());
    }
}

void TopWindow::follow(const QRect& px) {
    // A value changes only where the pixels differ from the element's own twips, so that a window
    // that did not move keeps its stored place to the twip.
    const float tx = ws_.TwipsPerPixelX(), ty = ws_.TwipsPerPixelY();
    auto take = [](Property<float>& v, int pixels, float perPixel) {
        if (std::lround(v / perPixel) != pixels) v.setFromView(static_cast<float>(pixels) * perPixel);
    };
    take(e_.Left, px.x(), tx);
    take(e_.Top, px.y(), ty);
    take(e_.Width, px.width(), tx);
    take(e_.Height, px.height(), ty);
}

void TopWindow::moveEvent(QMoveEvent*) {
    // A window that shows only its on-screen part is placed by the program alone.
    if (settling() || clipped_ || !isVisible() || (windowState() & Qt::WindowMinimized)) return;
    follow(geometry());
}

void TopWindow::resizeEvent(QResizeEvent*) {
    if (canvas_ && !clipped_) canvas_->setGeometry(rect());
    round();
    if (settling() || clipped_ || !isVisible()) return;
    if (!(windowState() & Qt::WindowMinimized)) follow(geometry());
    if (&e_ == &ws_.frmMain(0)) MainWindowResize(ws_);
}

void TopWindow::changeEvent(QEvent* ev) {
    QWidget::changeEvent(ev);
    if (ev->type() != QEvent::WindowStateChange) return;
    const int state = (windowState() & Qt::WindowMinimized) ? 1 : (windowState() & Qt::WindowMaximized) ? 2 : 0;
    e_.WindowState.setFromView(state);
    if (&e_ == &ws_.frmMain(0)) MainWindowResize(ws_);
}

void TopWindow::mousePressEvent(QMouseEvent* ev) {
    // Only the window's own frame and the area outside picBack reach here: its bands move and size it.
    if (&e_ != &ws_.frmMain(0)) return;
    // A press on a docked window brings it back at once.
    DockMouseDown(ws_);
    if (ev->button() != Qt::LeftButton) return;
    QWindow* handle = windowHandle();
    if (!handle) return;
    const QPointF at = toTwips(ev->position());
    const float X = static_cast<float>(at.x()), Y = static_cast<float>(at.y());
    const int hit = WindowHitTest(X, Y, e_.Width, e_.Height);
    switch (hit) {
    case 2: handle->startSystemMove(); break;
    case 10: handle->startSystemResize(Qt::LeftEdge); break;
    case 11: handle->startSystemResize(Qt::RightEdge); break;
    case 12: handle->startSystemResize(Qt::TopEdge); break;
    case 13: handle->startSystemResize(Qt::TopEdge | Qt::LeftEdge); break;
    case 14: handle->startSystemResize(Qt::TopEdge | Qt::RightEdge); break;
    case 15: handle->startSystemResize(Qt::BottomEdge); break;
    case 16: handle->startSystemResize(Qt::BottomEdge | Qt::LeftEdge); break;
    case 17: handle->startSystemResize(Qt::BottomEdge | Qt::RightEdge); break;
    default: break;
    }
}

void TopWindow::mouseMoveEvent(QMouseEvent* ev) {
    if (&e_ != &ws_.frmMain(0) || e_.WindowState == 2) return;
    DockMouseMove(ws_);
    const QPointF at = toTwips(ev->position());
    const float X = static_cast<float>(at.x()), Y = static_cast<float>(at.y());
    Qt::CursorShape shape = Qt::ArrowCursor;
    switch (WindowPointer(X, Y, e_.Width, e_.Height)) {
    case 6: shape = Qt::SizeBDiagCursor; break;
    case 7: shape = Qt::SizeVerCursor; break;
    case 8: shape = Qt::SizeFDiagCursor; break;
    case 9: shape = Qt::SizeHorCursor; break;
    default: break;
    }
    if (cursor().shape() != shape) setCursor(shape);
}

void TopWindow::enterEvent(QEnterEvent* ev) {
    QWidget::enterEvent(ev);
    if (&e_ == &ws_.frmMain(0) && e_.WindowState != 2) DockMouseMove(ws_);
}

void TopWindow::keyPressEvent(QKeyEvent* ev) {
    // Keys that reach the window itself (no editor has the focus, no menu entry binds them) go to the
    // window's key table.
    if (&e_ == &ws_.frmMain(0)) {
        const int code = WindowKeyCode(*ev);
        if (code && Form_KeyDown(ws_, code, KeyShift(*ev))) return;
    }
    QWidget::keyPressEvent(ev);
}

void TopWindow::closeEvent(QCloseEvent* ev) {
    // Closing the window from outside (Alt+F4, the window list) is the same as "E&xit".
    ev->ignore();
    if (onClose) onClose();
}

} // namespace pd
