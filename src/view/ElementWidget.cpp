#include "view/ElementWidget.h"

#include "app/elements/Element.h"

#include <QBitmap>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace pd {

QColor ToQColor(int32_t bgr) {
    const auto v = static_cast<uint32_t>(bgr);
    return QColor(static_cast<int>(v & 0xFF), static_cast<int>((v >> 8) & 0xFF), static_cast<int>((v >> 16) & 0xFF));
}

ElementWidget::ElementWidget(Element& e, QWidget* parent) : QWidget(parent), e_(e) {
    const QString name = e.Index() < 0 ? e.Name() : e.Name() + QLatin1Char('_') + QString::number(e.Index());
    setObjectName(name);
    setAccessibleName(e.Caption.get());
}

ElementWidget::~ElementWidget() {
    if (e_.viewHandle == this) e_.viewHandle = nullptr;
}

void ElementWidget::reloadPicture() {
    picture_ = e_.Picture.get().isEmpty() ? QPixmap() : QPixmap(e_.Picture.get());
    update();
}

void ElementWidget::setCornerRadius(int px) {
    radius_ = px;
    resizeEvent(nullptr);
}

void ElementWidget::resizeEvent(QResizeEvent*) {
    if (radius_ <= 0 || width() <= 0 || height() <= 0) {
        clearMask();
        return;
    }
    QBitmap mask(size());
    mask.fill(Qt::color0);
    QPainter p(&mask);
    p.setRenderHint(QPainter::Antialiasing, false);
    p.setBrush(Qt::color1);
    p.setPen(Qt::NoPen);
    p.drawRoundedRect(rect(), radius_, radius_);
    setMask(mask);
}

void ElementWidget::paintEvent(QPaintEvent*) {
    QPainter p(this);
    if (e_.BackStyle == 1) p.fillRect(rect(), ToQColor(e_.BackColor));
    if (!picture_.isNull()) {
        if (e_.Stretch) p.drawPixmap(rect(), picture_);
        else p.drawPixmap(0, 0, picture_);
    }
    const QString& caption = e_.Caption.get();
    if (!caption.isEmpty()) {
        QFont f(e_.FontName.get());
        f.setPointSizeF(e_.FontSize > 0 ? e_.FontSize : 8);
        f.setBold(e_.FontBold);
        f.setUnderline(e_.FontUnderline);
        p.setFont(f);
        p.setPen(ToQColor(e_.ForeColor));
        p.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, caption);
    }
}

void ElementWidget::mousePressEvent(QMouseEvent* ev) {
    if (onPress) onPress(*this, *ev);
    else QWidget::mousePressEvent(ev);
}

void ElementWidget::mouseDoubleClickEvent(QMouseEvent* ev) {
    if (onDoubleClick) onDoubleClick(*this, *ev);
    else QWidget::mouseDoubleClickEvent(ev);
}

} // namespace pd
