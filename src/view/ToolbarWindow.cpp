#include "view/ToolbarWindow.h"

#include "app/workspace/Workspace.h"
#include "view/MainView.h"
#include "window/FloatingToolbar.h"

#include <QDir>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace pd {

namespace {
constexpr int kCell = 24;
constexpr int kMargin = 4;
constexpr int kIconRow = 32;
constexpr int kCloseWidth = 16;
} // namespace

ToolbarWindow::ToolbarWindow(Workspace& ws, const QString& programDirectory)
    : QWidget(nullptr, Qt::FramelessWindowHint | Qt::Tool), ws_(ws) {
    setObjectName(QStringLiteral("frmToolbar"));
    setWindowTitle(QStringLiteral("Perchdock Toolbar"));
    setAttribute(Qt::WA_QuitOnClose, false);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    icons_.resize(kToolbarIcons);
    for (int n = 0; n < kToolbarIcons; ++n)
        icons_[static_cast<size_t>(n)].setFile(QDir(programDirectory).filePath(ToolbarIconFile(n)));
    setToolTip(QString());
}

int ToolbarWindow::iconAt(const QPoint& p) const {
    if (p.y() < kMargin || p.y() >= kIconRow || p.x() < kMargin) return -1;
    const int n = (p.x() - kMargin) / kCell;
    return n < kToolbarIcons ? n : -1;
}

bool ToolbarWindow::onCloseMark(const QPoint& p) const {
    return p.y() >= kIconRow && p.x() >= width() - kCloseWidth;
}

bool ToolbarWindow::onGrip(const QPoint& p) const {
    return p.y() >= kIconRow && !onCloseMark(p);
}

void ToolbarWindow::sync() {
    FloatingToolbar& tb = Toolbar(ws_);
    if (!tb.Loaded) {
        if (isVisible()) hide();
        return;
    }
    const float tx = ws_.TwipsPerPixelX(), ty = ws_.TwipsPerPixelY();
    const QRect r(static_cast<int>(std::lround(tb.Left / tx)), static_cast<int>(std::lround(tb.Top / ty)),
                  static_cast<int>(std::lround(tb.Width / tx)),
                  static_cast<int>(std::lround(tb.Height / ty)));
    if (geometry() != r && !(windowHandle() && isVisible() && pos() == r.topLeft() && size() == r.size())) {
        placed_.start();
        setGeometry(r);
    }
    setWindowOpacity(std::clamp(tb.Alpha, 0, 255) / 255.0);
    if (!isVisible()) show();
    update();
}

void ToolbarWindow::paintEvent(QPaintEvent*) {
    const FloatingToolbar& tb = Toolbar(ws_);
    QPainter p(this);
    p.fillRect(rect(), QColor(0x10, 0x18, 0x30));
    const qreal dpr = devicePixelRatioF();
    for (int n = 0; n < kToolbarIcons; ++n) {
        const QRect cell(kMargin + n * kCell, kMargin, kCell, kCell);
        if (const QPixmap& icon = icons_[static_cast<size_t>(n)].at(dpr); !icon.isNull())
            p.drawPixmap(cell.center() - QPoint(7, 7), icon);
        if (n == tb.SelectedIcon) {
            // ShapeSel: the outline around the icon under the pointer.
            p.setPen(QColor(0xF0, 0xC0, 0x40));
            p.drawRect(cell.adjusted(0, 0, -1, -1));
        }
    }
    p.setPen(Qt::white);
    const QRect tipRect(kMargin, kIconRow, width() - kMargin - kCloseWidth, height() - kIconRow);
    p.drawText(tipRect, Qt::AlignLeft | Qt::AlignVCenter, tb.Tip);
    // Label1: the close mark.
    p.drawText(QRect(width() - kCloseWidth, kIconRow, kCloseWidth, height() - kIconRow), Qt::AlignCenter,
               QStringLiteral("x"));
}

void ToolbarWindow::mouseMoveEvent(QMouseEvent* ev) {
    const QPoint at = ev->position().toPoint();
    const int n = iconAt(at);
    if (n >= 0 && n != Toolbar(ws_).SelectedIcon) ImgToolbar_MouseMove(ws_, n);
    if (onGrip(at))
        setToolTip(QStringLiteral("Drag to Keep Open"));
    else if (onCloseMark(at))
        setToolTip(QStringLiteral(
            "Stop showing the Floating Toolbar (to hide it for now, move the mouse or click the workspace)"));
    else
        setToolTip(QString());
}

void ToolbarWindow::mousePressEvent(QMouseEvent* ev) {
    if (ev->button() != Qt::LeftButton) return;
    const QPoint at = ev->position().toPoint();
    pressedIcon_ = iconAt(at);
    if (onGrip(at)) {
        ToolbarGripPress(ws_);
        if (QWindow* h = windowHandle()) h->startSystemMove();
    }
}

void ToolbarWindow::mouseReleaseEvent(QMouseEvent* ev) {
    if (ev->button() != Qt::LeftButton) return;
    const QPoint at = ev->position().toPoint();
    if (onCloseMark(at)) {
        ToolbarCloseMark_Click(ws_);
        return;
    }
    const int n = iconAt(at);
    if (n >= 0 && n == pressedIcon_) ImgToolbar_Click(ws_, n);
    pressedIcon_ = -1;
}

void ToolbarWindow::moveEvent(QMoveEvent*) {
    // A move that the program did not ask for is the user's drag.
    if (!isVisible() || (placed_.isValid() && placed_.elapsed() < 300)) return;
    ToolbarMoved(ws_, static_cast<float>(x()) * ws_.TwipsPerPixelX(),
                 static_cast<float>(y()) * ws_.TwipsPerPixelY());
}

void ToolbarWindow::keyPressEvent(QKeyEvent* ev) {
    const int code = WindowKeyCode(*ev);
    if (!code) {
        QWidget::keyPressEvent(ev);
        return;
    }
    Toolbar_KeyDown(ws_, code, KeyShift(*ev));
}

} // namespace pd
