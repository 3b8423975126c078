#include "view/ElementWidget.h"

#include "app/elements/Element.h"
#include "platform/qt/FileIcons.h"
#include "view/Accessibility.h"

#include <QPainterPath>
#include <algorithm>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace pd {

namespace {
// Pictures that name an icon rather than an image file: the desktop's icon of a file, an icon of the
// theme by name, and the no-icon picture. They are drawn at the element's own size.
const QString kFileIcon = QStringLiteral("fileicon:");
const QString kThemeIcon = QStringLiteral("themeicon:");
const QString kNoIcon = QStringLiteral("noicon:");

bool IsIconPicture(const QString& pic) {
    return pic.startsWith(kFileIcon) || pic.startsWith(kThemeIcon) || pic.startsWith(kNoIcon);
}

// The pointer of an element: 11 the hourglass, 99 the hand that says a click starts something, 6 to 9
// the sizing arrows.
Qt::CursorShape PointerShape(int pointer) {
    switch (pointer) {
    case 11: return Qt::WaitCursor;
    case 99: return Qt::PointingHandCursor;
    // The sizing pointers of a rim: diagonal up, vertical, diagonal down, horizontal.
    case 6: return Qt::SizeBDiagCursor;
    case 7: return Qt::SizeVerCursor;
    case 8: return Qt::SizeFDiagCursor;
    case 9: return Qt::SizeHorCursor;
    default: return Qt::ArrowCursor;
    }
}
} // namespace

QColor ToQColor(int32_t bgr) {
    const auto v = static_cast<uint32_t>(bgr);
    return QColor(static_cast<int>(v & 0xFF), static_cast<int>((v >> 8) & 0xFF), static_cast<int>((v >> 16) & 0xFF));
}

ElementWidget::ElementWidget(Element& e, QWidget* parent) : QWidget(parent), e_(e) {
    const QString name = e.Index() < 0 ? e.Name() : e.Name() + QLatin1Char('_') + QString::number(e.Index());
    setObjectName(name);
    setAccessibleName(e.Caption.get());
    // Hover over a tile or a button opens or highlights it, so moves count without a button held.
    setMouseTracking(true);
    if (e.Name() == QLatin1String("groupName")) {
        line_ = new QLineEdit(this);
        line_->setFrame(false);
        connect(line_, &QLineEdit::textEdited, this, [this] {
            if (syncing_) return;
            e_.Text.setFromView(line_->text());
            if (onTextEdited) onTextEdited(*this);
        });
        connect(line_, &QLineEdit::returnPressed, this, [this] {
            if (onReturn) onReturn(*this);
        });
        line_->installEventFilter(this);
        line_->setAccessibleName(QStringLiteral("Container name"));
    } else if (e.Name() == QLatin1String("txtNote")) {
        note_ = new QPlainTextEdit(this);
        note_->setFrameShape(QFrame::NoFrame);
        connect(note_, &QPlainTextEdit::textChanged, this, [this] {
            if (syncing_) return;
            // A note keeps CR LF line breaks, as its file stores them.
            QString text = note_->toPlainText();
            text.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
            e_.Text.setFromView(text);
            if (onTextEdited) onTextEdited(*this);
        });
        note_->installEventFilter(this);
        note_->setAccessibleName(QStringLiteral("Note"));
    }
    if (hasEditor()) {
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(line_ ? static_cast<QWidget*>(line_) : note_);
        syncEditor();
    }
}

ElementWidget::~ElementWidget() {
    if (e_.viewHandle == this) e_.viewHandle = nullptr;
}

void ElementWidget::syncEditor() {
    if (!hasEditor()) return;
    syncing_ = true;
    QWidget* ed = line_ ? static_cast<QWidget*>(line_) : note_;
    QPalette pal = ed->palette();
    pal.setColor(QPalette::Base, ToQColor(e_.BackColor));
    pal.setColor(QPalette::Text, ToQColor(e_.ForeColor));
    ed->setPalette(pal);
    QFont f(e_.FontName.get());
    f.setPointSizeF(ShownFontSize(e_.FontSize));
    f.setBold(e_.FontBold);
    ed->setFont(f);
    if (line_ && line_->text() != e_.Text.get()) line_->setText(e_.Text.get());
    if (note_) {
        QString shown = e_.Text.get();
        shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        if (note_->toPlainText() != shown) note_->setPlainText(shown);
    }
    syncing_ = false;
}

void ElementWidget::mirror(Prop p) {
    switch (p) {
    case Prop::Text:
    case Prop::ForeColor:
    case Prop::BackColor:
    case Prop::FontBold:
    case Prop::FontSize:
    case Prop::FontName: syncEditor(); break;
    case Prop::Caption:
        setAccessibleName(e_.Caption.get());
        NotifyAccessibleNameChanged(this);
        // A container is named by its title.
        for (Element* c = e_.Container(); c && e_.Name() == QLatin1String("lblName"); c = c->Container())
            NotifyAccessibleNameChanged(static_cast<QWidget*>(c->viewHandle));
        break;
    case Prop::MousePointer: setCursor(PointerShape(e_.MousePointer)); break;
    default: break;
    }
    update();
}

void ElementWidget::focusEditor() {
    if (line_) {
        line_->setFocus();
        line_->selectAll();
    } else if (note_) {
        note_->setFocus();
    }
}

bool ElementWidget::eventFilter(QObject* watched, QEvent* ev) {
    if (ev->type() == QEvent::FocusIn && watched == line_) line_->selectAll();
    if (ev->type() == QEvent::FocusOut && onFocusLost) onFocusLost(*this);
    return QWidget::eventFilter(watched, ev);
}

void ElementWidget::reloadPicture() {
    const QString& pic = e_.Picture.get();
    // Icons are fetched at paint time, at the size the element then has; an image file is read at paint
    // time too, for the device pixel ratio of the screen the widget is then on.
    picture_.setFile(pic.isEmpty() || IsIconPicture(pic) ? QString() : pic);
    update();
}

void ElementWidget::setCornerRadius(int px) {
    radius_ = px;
    resizeEvent(nullptr);
}

void ElementWidget::resizeEvent(QResizeEvent*) {
    // Rounded corners are painted, not cut out: the whole rectangle keeps taking the mouse, so that the
    // corner handles of a container's thin rim stay within reach.
    update();
}

void ElementWidget::paintGuide(QPainter& p) {
    const QString& name = e_.Name();
    if (name == QLatin1String("LinkLine")) {
        // From the end at (Left, Top) to the other, whichever corners of the box they are.
        const int x0 = e_.Width >= 0 ? 0 : width() - 1, y0 = e_.Height >= 0 ? 0 : height() - 1;
        p.setRenderHint(QPainter::Antialiasing, true);
        p.setPen(QPen(ToQColor(e_.ForeColor), 1));
        p.drawLine(QPoint(x0, y0), QPoint(width() - 1 - x0, height() - 1 - y0));
        return;
    }
    // The outlines of a shortcut drag: white under a dark dash, so they show on any background.
    const QRect r = rect().adjusted(0, 0, -1, -1);
    if (name == QLatin1String("ShapeIconFiller") && e_.Container()) p.fillRect(r, ToQColor(e_.Container()->BackColor));
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(Qt::white, 1));
    p.drawRect(r);
    p.setPen(QPen(QColor(0x20, 0x20, 0x20), 1, Qt::DotLine));
    p.drawRect(r);
}

void ElementWidget::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QString& family = e_.Name();
    if (family == QLatin1String("LinkLine") || family == QLatin1String("ShapeMove") ||
        family == QLatin1String("ShapeMovingIcon") || family == QLatin1String("ShapeIconFiller")) {
        paintGuide(p);
        return;
    }
    if (radius_ > 0) {
        QPainterPath round;
        round.addRoundedRect(QRectF(rect()), radius_, radius_);
        p.setClipPath(round);
    }
    if (e_.BackStyle == 1) p.fillRect(rect(), ToQColor(e_.BackColor));
    // Pictures and icons are made at the screen's device pixels: a stretched picture is scaled to the
    // device pixels of the element, an image at its own size comes from its twin of twice the pixels
    // (or is scaled smoothly), and icons are asked at their size in device pixels.
    const qreal dpr = devicePixelRatioF();
    if (!picture_.file().isEmpty()) {
        if (e_.Stretch) {
            const QPixmap& shown = picture_.stretched(size(), dpr);
            if (!shown.isNull()) p.drawPixmap(0, 0, shown);
        } else if (const QPixmap& shown = picture_.at(dpr); !shown.isNull()) {
            p.drawPixmap(0, 0, shown);
        }
    }
    const QString& pic = e_.Picture.get();
    if (IsIconPicture(pic)) {
        const int size = std::min(width(), height());
        QPixmap icon;
        if (pic.startsWith(kFileIcon)) icon = FileIconPixmap(pic.mid(kFileIcon.size()), size, dpr);
        else if (pic.startsWith(kThemeIcon)) icon = ThemeIconPixmap(pic.mid(kThemeIcon.size()), size, dpr);
        else icon = NoIconPixmap(size, dpr);
        p.drawPixmap(0, 0, icon);
    }
    const QString& caption = e_.Caption.get();
    if (!caption.isEmpty()) {
        QFont f(e_.FontName.get());
        f.setPointSizeF(ShownFontSize(e_.FontSize));
        f.setBold(e_.FontBold);
        f.setUnderline(e_.FontUnderline);
        p.setFont(f);
        p.setPen(ToQColor(e_.ForeColor));
        p.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, caption);
    }
    // The toolbar's feed picture shows its press inverted, as a pressed button.
    if (family == QLatin1String("PicRSSRefreshALL")) {
        if (e_.BorderStyle == 1) {
            p.setCompositionMode(QPainter::RasterOp_NotDestination);
            p.fillRect(rect(), Qt::white);
        }
        return;
    }
    // A thin frame: a shortcut's launch mark.
    if (e_.BorderStyle == 1) {
        p.setPen(ToQColor(e_.ForeColor));
        p.setBrush(Qt::NoBrush);
        p.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void ElementWidget::mousePressEvent(QMouseEvent* ev) {
    if (onPress) onPress(*this, *ev);
    else QWidget::mousePressEvent(ev);
}

void ElementWidget::mouseReleaseEvent(QMouseEvent* ev) {
    if (onRelease) onRelease(*this, *ev);
    else QWidget::mouseReleaseEvent(ev);
}

void ElementWidget::mouseMoveEvent(QMouseEvent* ev) {
    if (onMove) onMove(*this, *ev);
    else QWidget::mouseMoveEvent(ev);
}

void ElementWidget::mouseDoubleClickEvent(QMouseEvent* ev) {
    if (onDoubleClick) onDoubleClick(*this, *ev);
    else QWidget::mouseDoubleClickEvent(ev);
}

void ElementWidget::dragEnterEvent(QDragEnterEvent* ev) {
    if (onDrag) onDrag(*this, *ev);
    else QWidget::dragEnterEvent(ev);
}

void ElementWidget::dragMoveEvent(QDragMoveEvent* ev) {
    if (onDrag) onDrag(*this, *ev);
    else QWidget::dragMoveEvent(ev);
}

void ElementWidget::dragLeaveEvent(QDragLeaveEvent* ev) {
    if (onDrag) onDrag(*this, *ev);
    else QWidget::dragLeaveEvent(ev);
}

void ElementWidget::dropEvent(QDropEvent* ev) {
    if (onDrag) onDrag(*this, *ev);
    else QWidget::dropEvent(ev);
}

} // namespace pd
