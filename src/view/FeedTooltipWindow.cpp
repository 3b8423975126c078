#include "view/FeedTooltipWindow.h"

#include "view/RichLabel.h"
#include "window/FeedTooltip.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace pd {

namespace {

// The keys and buttons of a wheel turn as the panel's wheel handler takes them (the message's low
// word): 1 left button, 2 right button, 4 Shift, 8 Ctrl, 16 middle button.
int WheelKeys(const QWheelEvent& ev) {
    int keys = 0;
    if (ev.buttons() & Qt::LeftButton) keys |= 1;
    if (ev.buttons() & Qt::RightButton) keys |= 2;
    if (ev.modifiers() & Qt::ShiftModifier) keys |= 4;
    if (ev.modifiers() & Qt::ControlModifier) keys |= 8;
    if (ev.buttons() & Qt::MiddleButton) keys |= 16;
    return keys;
}

} // namespace

FeedTooltipWindow::FeedTooltipWindow(FeedTooltip& tip, float twipsPerPixelX, float twipsPerPixelY)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus),
      tip_(tip), tx_(twipsPerPixelX > 0 ? twipsPerPixelX : 15), ty_(twipsPerPixelY > 0 ? twipsPerPixelY : 15) {
    setObjectName(QStringLiteral("frmTooltip"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowOpacity(240 / 255.0);
    setMouseTracking(true);
    label_ = new RichLabel(this);
    label_->setObjectName(QStringLiteral("lblTip"));
    // The colours of the desktop's tool tips, a thin frame, the text wrapped at the width limit.
    const QPalette pal = palette();
    const auto bgr = [](const QColor& c) { return static_cast<int32_t>(c.red() | c.green() << 8 | c.blue() << 16); };
    label_->setBackColor(bgr(pal.color(QPalette::ToolTipBase)));
    label_->setForeColor(bgr(pal.color(QPalette::ToolTipText)));
    label_->setBorderStyle(1);
    label_->setEdgeSpace(3);
    label_->setWordWrap(true);
    label_->setAutoSize(true);
    label_->setMouseTracking(true);
    label_->installEventFilter(this);
    hide();
}

void FeedTooltipWindow::sync() {
    if (!tip_.Loaded) {
        hide();
        return;
    }
    // As wide as the longest line, up to the limit; the label then takes the height the text needs.
    const QFontMetrics fm(label_->Font());
    int widest = 0;
    for (const QString& line : tip_.Text.split(QLatin1Char('\n'))) widest = std::max(widest, fm.horizontalAdvance(line));
    label_->resize(std::min(kMaxWidth, widest + 2 * 3 + 4), label_->height());
    label_->setAlignment(static_cast<int16_t>(tip_.Alignment));
    label_->setText(tip_.Text);
    resize(label_->size());
    QPoint at(static_cast<int>(std::lround(tip_.Left / tx_)), static_cast<int>(std::lround(tip_.Top / ty_)));
    // Whole on the screen: a tip at the right or lower edge moves back onto it.
    if (const QScreen* screen = QGuiApplication::screenAt(at) ? QGuiApplication::screenAt(at) : QGuiApplication::primaryScreen()) {
        const QRect area = screen->geometry();
        at.setX(std::clamp(at.x(), area.left(), std::max(area.left(), area.right() + 1 - width())));
        at.setY(std::clamp(at.y(), area.top(), std::max(area.top(), area.bottom() + 1 - height())));
    }
    move(at);
    show();
    raise();
}

void FeedTooltipWindow::mouseMoveEvent(QMouseEvent*) { FeedTooltip_MouseMove(tip_); }

void FeedTooltipWindow::mousePressEvent(QMouseEvent*) { FeedTooltip_MouseMove(tip_); }

void FeedTooltipWindow::wheelEvent(QWheelEvent* ev) {
    const QPoint at = ev->globalPosition().toPoint();
    FeedTooltip_Wheel(tip_, WheelKeys(*ev), ev->angleDelta().y(), at.x(), at.y());
}

bool FeedTooltipWindow::eventFilter(QObject* watched, QEvent* ev) {
    if (watched == label_) {
        switch (ev->type()) {
        case QEvent::MouseMove:
        case QEvent::MouseButtonPress: FeedTooltip_MouseMove(tip_); return true;
        case QEvent::Wheel: wheelEvent(static_cast<QWheelEvent*>(ev)); return true;
        default: break;
        }
    }
    return QWidget::eventFilter(watched, ev);
}

} // namespace pd
