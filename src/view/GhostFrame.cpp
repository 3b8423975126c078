#include "view/GhostFrame.h"

#include <QPainter>
#include <QRegion>

namespace pd {

namespace {
// The pen of the outline: 4 pixels of middle grey.
constexpr int kPen = 4;
const QColor kGrey(120, 120, 120);
} // namespace

GhostFrame::GhostFrame(const QString& name)
    : QWidget(nullptr, Qt::FramelessWindowHint | Qt::Tool | Qt::WindowStaysOnTopHint | Qt::WindowTransparentForInput |
                           Qt::X11BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus) {
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
}

void GhostFrame::toggle(const QRect& rect) {
    if (shown_ && rect == rect_) hideOutline();
    else showOutline(rect);
}

void GhostFrame::showOutline(const QRect& rect) {
    rect_ = rect.normalized();
    // The pen is centred on the rectangle's edges, as a drawn rectangle's is.
    const QRect outer = rect_.adjusted(-kPen / 2, -kPen / 2, kPen / 2, kPen / 2);
    setGeometry(outer);
    const QRect local(QPoint(0, 0), outer.size());
    QRegion ring(local);
    const QRect inner = local.adjusted(kPen, kPen, -kPen, -kPen);
    if (inner.isValid()) ring -= QRegion(inner);
    setMask(ring);
    shown_ = true;
    show();
    raise();
    update();
}

void GhostFrame::hideOutline() {
    shown_ = false;
    hide();
}

void GhostFrame::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), kGrey);
}

} // namespace pd
