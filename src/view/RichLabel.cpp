#include "view/RichLabel.h"

#include "feeds/VietnameseText.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace pd {

namespace {

// Drawing limits that keep absurd stored values (a 30,000-pixel outline) from stalling the program:
// copies of the text farther out than this are not drawn.
constexpr int kMaxOutline = 32;

bool IsBlank(QChar c) {
    return c == QLatin1Char(' ') || c == QLatin1Char('\t');
}

// Splits a text at its line breaks: CR LF, a lone CR or a lone LF.
QStringList Paragraphs(const QString& text) {
    QStringList out;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c != QLatin1Char('\r') && c != QLatin1Char('\n')) continue;
        out.append(text.mid(start, i - start));
        if (c == QLatin1Char('\r') && i + 1 < text.size() && text.at(i + 1) == QLatin1Char('\n')) ++i;
        start = i + 1;
    }
    out.append(text.mid(start));
    return out;
}

// Breaks one paragraph into lines no wider than `width`. The paragraph is taken as words, each with the
// blanks in front of it; a word that does not fit starts the next line without its blanks.
void WrapParagraph(const QString& para, int width, const std::function<int(const QString&)>& textWidth,
                   QStringList& lines) {
    QString line;
    qsizetype i = 0;
    while (i < para.size()) {
        const qsizetype tokenStart = i;
        qsizetype j = i;
        while (j < para.size() && IsBlank(para.at(j)))
            ++j;
        const qsizetype wordStart = j;
        while (j < para.size() && !IsBlank(para.at(j)))
            ++j;
        const QString token = para.mid(i, j - i);
        i = j;
        if (line.isEmpty() || textWidth(line + token) <= width) {
            line += token;
            continue;
        }
        const QString word = token.mid(wordStart - tokenStart);
        if (word.isEmpty()) continue; // blanks at the end of a full line are dropped
        lines.append(line);
        line = word;
    }
    lines.append(line);
}

int Channel(int a, int b, double t) {
    return static_cast<int>(std::lround(a + (b - a) * t));
}

QColor Mix(const QColor& a, const QColor& b, double t) {
    return QColor(Channel(a.red(), b.red(), t), Channel(a.green(), b.green(), t),
                  Channel(a.blue(), b.blue(), t));
}

// A system colour element number as a palette role: captions and selections, windows, texts, the faces,
// shadows and lights of buttons, tooltips. Other numbers give the window colour.
QPalette::ColorRole SystemRole(int element) {
    struct Pair {
        int element;
        QPalette::ColorRole role;
    };
    static constexpr Pair kRoles[] = {
        {2, QPalette::Highlight},
        {13, QPalette::Highlight},
        {9, QPalette::HighlightedText},
        {14, QPalette::HighlightedText},
        {5, QPalette::Base},
        {7, QPalette::WindowText},
        {8, QPalette::WindowText},
        {17, QPalette::WindowText},
        {15, QPalette::Button},
        {16, QPalette::Dark},
        {18, QPalette::ButtonText},
        {20, QPalette::Light},
        {21, QPalette::Shadow},
        {22, QPalette::Midlight},
        {23, QPalette::ToolTipText},
        {24, QPalette::ToolTipBase},
    };
    for (const Pair& p : kRoles)
        if (p.element == element) return p.role;
    return QPalette::Window;
}

} // namespace

int LabelTextFlags(bool wordWrap, int alignment) {
    int flags = kTextNoClip;
    if (wordWrap) flags |= kTextWordBreak;
    if (alignment == 1) flags |= kTextRight;
    if (alignment == 2) flags |= kTextCenter;
    return flags;
}

LabelTextLayout LayoutLabelText(const QString& text, const QRect& rect, int flags,
                                const std::function<int(const QString&)>& textWidth, int lineHeight) {
    LabelTextLayout out;
    if (text.isEmpty()) return out;
    QStringList lines;
    for (const QString& para : Paragraphs(text)) {
        if (flags & kTextWordBreak)
            WrapParagraph(para, rect.width(), textWidth, lines);
        else
            lines.append(para);
    }
    int y = rect.top();
    for (const QString& s : lines) {
        LabelLine l;
        l.text = s;
        l.width = s.isEmpty() ? 0 : textWidth(s);
        if (flags & kTextRight)
            l.x = rect.left() + rect.width() - l.width;
        else if (flags & kTextCenter)
            l.x = rect.left() + (rect.width() - l.width) / 2;
        else
            l.x = rect.left();
        l.y = y;
        y += lineHeight;
        out.width = std::max(out.width, l.width);
        out.lines.append(l);
    }
    out.height = static_cast<int>(out.lines.size()) * lineHeight;
    return out;
}

int LabelLineCount(int measuredHeight, int lineHeight) {
    if (lineHeight <= 0) return 0;
    return static_cast<int>(std::lround(static_cast<double>(measuredHeight) / lineHeight));
}

QColor LabelColor(int32_t value, const QPalette& palette) {
    const auto v = static_cast<uint32_t>(value);
    if (v & 0x80000000u) return palette.color(QPalette::Active, SystemRole(static_cast<int>(v & 0xFF)));
    return QColor(static_cast<int>(v & 0xFF), static_cast<int>((v >> 8) & 0xFF),
                  static_cast<int>((v >> 16) & 0xFF));
}

QColor GradientColorAt(const QColor& start, const QColor& end, int style, int x, int y, const QSize& size) {
    const int w = std::max(1, size.width()) - 1;
    const int h = std::max(1, size.height()) - 1;
    int pos = 0;
    int span = 0;
    switch (style) {
    case 1:
        pos = y;
        span = h;
        break;
    case 2:
        pos = x + y;
        span = w + h;
        break;
    case 3:
        pos = x + (h - y);
        span = w + h;
        break;
    default:
        pos = x;
        span = w;
        break;
    }
    const double t = span <= 0 ? 0.0 : std::clamp(static_cast<double>(pos) / span, 0.0, 1.0);
    return Mix(start, end, t);
}

QColor ShadowColorAt(const QColor& start, const QColor& end, int k, int depth) {
    if (depth <= 1) return start;
    return Mix(start, end, std::clamp(static_cast<double>(k - 1) / (depth - 1), 0.0, 1.0));
}

QList<QPoint> ShadowOffsets(int style, int k) {
    switch (style) {
    case 0:
        return {QPoint(k, k)};
    case 1:
        return {QPoint(0, k)};
    case 2:
        return {QPoint(k, 0)};
    default:
        return {QPoint(-k, -k), QPoint(0, -k), QPoint(k, -k), QPoint(-k, 0),
                QPoint(k, 0),   QPoint(-k, k), QPoint(0, k),  QPoint(k, k)};
    }
}

QSize ShadowRoom(bool shadow, int style, int depth) {
    if (!shadow) return {0, 0};
    depth = std::max(0, depth);
    return {(style == 0 || style == 2) ? depth : 0, (style == 0 || style == 1) ? depth : 0};
}

const QString RichLabel::kNewText = QStringLiteral("Nha4n Tie61ng Vie65t");
const QString RichLabel::kStoredText = QStringLiteral("Tie61ng Viet");

namespace {

// The stored properties in their order, with their defaults; the font has none (it is the container's).
const QList<QPair<QString, QVariant>>& StoredTable() {
    static const QList<QPair<QString, QVariant>> table = {
        {QStringLiteral("Text"), RichLabel::kStoredText},
        {QStringLiteral("AutoSize"), false},
        {QStringLiteral("BackColor"), static_cast<qint32>(0x8000000Fu)},
        {QStringLiteral("ForeColor"), static_cast<qint32>(0x80000008u)},
        {QStringLiteral("BorderColor"), static_cast<qint32>(0x80000008u)},
        {QStringLiteral("BorderSize"), static_cast<qint16>(1)},
        {QStringLiteral("Font"), QVariant()},
        {QStringLiteral("WordWrap"), false},
        {QStringLiteral("TiengViet"), true},
        {QStringLiteral("BorderStyle"), static_cast<qint16>(0)},
        {QStringLiteral("Transparent"), true},
        {QStringLiteral("EdgeSpace"), static_cast<qint16>(1)},
        {QStringLiteral("OutlineColor"), static_cast<qint32>(0xFFFFFF)},
        {QStringLiteral("Shadow"), false},
        {QStringLiteral("ShadowDepth"), static_cast<qint16>(3)},
        {QStringLiteral("ShadowStyle"), static_cast<qint32>(3)},
        {QStringLiteral("ShadowColorStart"), static_cast<qint32>(0)},
        {QStringLiteral("ShadowColorEnd"), static_cast<qint32>(0)},
        {QStringLiteral("Alignment"), static_cast<qint16>(0)},
        {QStringLiteral("BackColorStyle"), static_cast<qint16>(0)},
        {QStringLiteral("GradientBackColorStyle"), static_cast<qint16>(0)},
        {QStringLiteral("GradientBackColorStart"), static_cast<qint32>(0)},
        {QStringLiteral("GradientBackColorEnd"), static_cast<qint32>(0xFFFFFF)},
    };
    return table;
}

int ButtonOf(Qt::MouseButton b) {
    switch (b) {
    case Qt::LeftButton:
        return 1;
    case Qt::RightButton:
        return 2;
    case Qt::MiddleButton:
        return 4;
    default:
        return 0;
    }
}

int ButtonsOf(Qt::MouseButtons b) {
    return (b & Qt::LeftButton ? 1 : 0) | (b & Qt::RightButton ? 2 : 0) | (b & Qt::MiddleButton ? 4 : 0);
}

int ShiftOf(Qt::KeyboardModifiers m) {
    return (m & Qt::ShiftModifier ? 1 : 0) | (m & Qt::ControlModifier ? 2 : 0) |
           (m & Qt::AltModifier ? 4 : 0);
}

} // namespace

const QStringList& RichLabel::StoredPropertyNames() {
    static const QStringList names = [] {
        QStringList n;
        for (const auto& [name, value] : StoredTable())
            n.append(name);
        return n;
    }();
    return names;
}

RichLabel::RichLabel(QWidget* parent) : QWidget(parent), text_(kNewText) {
    BuildVniTables();
    // Moves without a button held are reported too: they take the pointer and raise MouseMove.
    setMouseTracking(true);
    Redraw();
}

RichLabel::~RichLabel() {
    ReleasePointer();
}

#define PD_LABEL_SETTER(Name, member, Type)                                                                  \
    void RichLabel::set##Name(Type v) {                                                                      \
        member = v;                                                                                          \
        Redraw();                                                                                            \
    }

void RichLabel::setText(const QString& v) {
    text_ = v;
    Redraw();
}
PD_LABEL_SETTER(AutoSize, autoSize_, bool)
PD_LABEL_SETTER(BackColor, backColor_, int32_t)
PD_LABEL_SETTER(ForeColor, foreColor_, int32_t)
PD_LABEL_SETTER(BorderColor, borderColor_, int32_t)
PD_LABEL_SETTER(BorderSize, borderSize_, int16_t)
PD_LABEL_SETTER(WordWrap, wordWrap_, bool)
PD_LABEL_SETTER(TiengViet, tiengViet_, bool)
PD_LABEL_SETTER(BorderStyle, borderStyle_, int16_t)
PD_LABEL_SETTER(Transparent, transparent_, bool)
PD_LABEL_SETTER(EdgeSpace, edgeSpace_, int16_t)
PD_LABEL_SETTER(OutlineColor, outlineColor_, int32_t)
PD_LABEL_SETTER(Shadow, shadow_, bool)
PD_LABEL_SETTER(ShadowDepth, shadowDepth_, int16_t)
PD_LABEL_SETTER(ShadowStyle, shadowStyle_, int32_t)
PD_LABEL_SETTER(ShadowColorStart, shadowColorStart_, int32_t)
PD_LABEL_SETTER(ShadowColorEnd, shadowColorEnd_, int32_t)
PD_LABEL_SETTER(Alignment, alignment_, int16_t)
PD_LABEL_SETTER(BackColorStyle, backColorStyle_, int16_t)
PD_LABEL_SETTER(GradientBackColorStyle, gradientStyle_, int16_t)
PD_LABEL_SETTER(GradientBackColorStart, gradientStart_, int32_t)
PD_LABEL_SETTER(GradientBackColorEnd, gradientEnd_, int32_t)

#undef PD_LABEL_SETTER

void RichLabel::setFont(const QFont& f) {
    // The font change event redraws.
    QWidget::setFont(f);
}

QString RichLabel::VNIToUnicode(const QString& text) const {
    return pd::VNIToUnicode(text);
}

QString RichLabel::ShownText() const {
    return tiengViet_ ? pd::VNIToUnicode(text_) : text_;
}

int RichLabel::TextHeight() const {
    return fontMetrics().height();
}

QVariantMap RichLabel::WriteProperties() const {
    QVariantMap bag;
    for (const auto& [name, defaultValue] : StoredTable()) {
        if (name == QLatin1String("Font")) {
            if (testAttribute(Qt::WA_SetFont)) bag.insert(name, font().toString());
            continue;
        }
        const QVariant v = property(name.toLatin1().constData());
        if (v != defaultValue) bag.insert(name, v);
    }
    return bag;
}

void RichLabel::ReadProperties(const QVariantMap& bag) {
    // One drawing at the end rather than one per property.
    redrawing_ = true;
    for (const auto& [name, defaultValue] : StoredTable()) {
        if (name == QLatin1String("Font")) {
            QFont f;
            if (bag.contains(name) && f.fromString(bag.value(name).toString()))
                QWidget::setFont(f);
            else
                QWidget::setFont(QFont());
            continue;
        }
        const QByteArray key = name.toLatin1();
        // A value that does not convert leaves the default.
        if (!bag.contains(name) || !setProperty(key.constData(), bag.value(name)))
            setProperty(key.constData(), defaultValue);
    }
    redrawing_ = false;
    Redraw();
}

QRect RichLabel::TextRect() const {
    const int inset = std::max<int>(0, borderSize_) + std::max<int>(0, edgeSpace_);
    const QSize room = ShadowRoom(shadow_, shadowStyle_, shadowDepth_);
    return QRect(inset, inset, width() - 2 * inset - room.width(), height() - 2 * inset - room.height());
}

void RichLabel::Redraw() {
    if (redrawing_) return;
    redrawing_ = true;
    if (autoSize_) {
        const QFontMetrics fm = fontMetrics();
        const auto measure = [&fm](const QString& s) { return fm.horizontalAdvance(s); };
        const int inset = std::max<int>(0, borderSize_) + std::max<int>(0, edgeSpace_);
        const QSize room = ShadowRoom(shadow_, shadowStyle_, shadowDepth_);
        QSize wanted;
        if (wordWrap_) {
            // The width stays; the height takes as many lines as the text needs at that width.
            const int available = width() - 2 * inset - room.width();
            const LabelTextLayout lay =
                LayoutLabelText(ShownText(), QRect(0, 0, available, 0), LabelTextFlags(true, alignment_),
                                measure, fm.height());
            lineCount_ = LabelLineCount(lay.height, fm.height());
            wanted = QSize(width(), lay.height + 2 * inset + room.height());
        } else {
            // Measured without the marks, so that they do not change the size.
            const QString measured = tiengViet_ ? RemoveVietnameseMarks(ShownText()) : text_;
            const LabelTextLayout lay =
                LayoutLabelText(measured, QRect(), LabelTextFlags(false, alignment_), measure, fm.height());
            wanted = QSize(lay.width + 2 * inset + room.width(), lay.height + 2 * inset + room.height());
        }
        if (wanted != size()) resize(wanted);
    }
    PaintLabel();
    update();
    redrawing_ = false;
}

void RichLabel::PaintLabel() {
    const QFontMetrics fm = fontMetrics();
    const auto measure = [&fm](const QString& s) { return fm.horizontalAdvance(s); };
    const LabelTextLayout lay =
        LayoutLabelText(ShownText(), TextRect(), LabelTextFlags(wordWrap_, alignment_), measure, fm.height());
    lineCount_ = LabelLineCount(lay.height, fm.height());

    const QSize s = size();
    if (s.isEmpty()) {
        tPic_ = QImage();
        return;
    }
    const qreal dpr = devicePixelRatioF();
    tPic_ = QImage(s * dpr, QImage::Format_ARGB32_Premultiplied);
    tPic_.setDevicePixelRatio(dpr);
    // The picture measures text as the label's screen does.
    tPic_.setDotsPerMeterX(static_cast<int>(std::lround(logicalDpiX() / 0.0254)));
    tPic_.setDotsPerMeterY(static_cast<int>(std::lround(logicalDpiY() / 0.0254)));
    if (transparent_) {
        tPic_.fill(Qt::transparent);
    } else {
        tPic_.fill(LabelColor(backColor_, palette()));
        if (backColorStyle_ == 1) {
            const QColor a = LabelColor(gradientStart_, palette());
            const QColor b = LabelColor(gradientEnd_, palette());
            const QSize px = tPic_.size();
            for (int y = 0; y < px.height(); ++y) {
                auto* line = reinterpret_cast<QRgb*>(tPic_.scanLine(y));
                for (int x = 0; x < px.width(); ++x)
                    line[x] = GradientColorAt(a, b, gradientStyle_, x, y, px).rgb();
            }
        }
    }

    QPainter p(&tPic_);
    p.setFont(font());
    if (shadow_) DrawShadow(p, lay);
    DrawFrame(p, lay);
    DrawLabelText(p, lay, LabelColor(foreColor_, palette()), {});
}

void RichLabel::DrawLabelText(QPainter& p, const LabelTextLayout& lay, const QColor& color, QPoint offset) {
    const int ascent = p.fontMetrics().ascent();
    p.setPen(color);
    for (const LabelLine& l : lay.lines)
        if (!l.text.isEmpty()) p.drawText(QPoint(l.x + offset.x(), l.y + offset.y() + ascent), l.text);
}

void RichLabel::DrawTextOutline(QPainter& p, const LabelTextLayout& lay, int thickness) {
    const int t = std::clamp(thickness, 0, kMaxOutline);
    const QColor c = LabelColor(outlineColor_, palette());
    for (int dy = -t; dy <= t; ++dy)
        for (int dx = -t; dx <= t; ++dx)
            DrawLabelText(p, lay, c, QPoint(dx, dy));
}

void RichLabel::DrawShadow(QPainter& p, const LabelTextLayout& lay) {
    const int depth = std::clamp<int>(shadowDepth_, 0, std::max({width(), height(), 1}));
    const QColor a = LabelColor(shadowColorStart_, palette());
    const QColor b = LabelColor(shadowColorEnd_, palette());
    // The farthest copy first, so that the nearer ones lie over it.
    for (int k = depth; k >= 1; --k) {
        const QColor c = ShadowColorAt(a, b, k, depth);
        for (const QPoint& off : ShadowOffsets(shadowStyle_, k))
            DrawLabelText(p, lay, c, off);
    }
}

void RichLabel::DrawFrame(QPainter& p, const LabelTextLayout& lay) {
    const int w = width();
    const int h = height();
    const int rings = std::clamp<int>(borderSize_, 0, (std::min(w, h) + 1) / 2);
    // Ring i: the top and left lines in one colour, then the bottom and right lines, which take the
    // corners they share, in another.
    const auto ring = [&](int i, const QColor& topLeft, const QColor& bottomRight) {
        p.fillRect(QRect(i, i, w - 2 * i, 1), topLeft);
        p.fillRect(QRect(i, i, 1, h - 2 * i), topLeft);
        p.fillRect(QRect(i, h - 1 - i, w - 2 * i, 1), bottomRight);
        p.fillRect(QRect(w - 1 - i, i, 1, h - 2 * i), bottomRight);
    };
    switch (borderStyle_) {
    case 1: {
        const QColor c = LabelColor(borderColor_, palette());
        for (int i = 0; i < rings; ++i)
            ring(i, c, c);
        break;
    }
    case 2:
        DrawTextOutline(p, lay, borderSize_);
        break;
    case 3: // raised
        for (int i = 0; i < rings; ++i)
            ring(i, QColor(kFrameWhite), QColor(kFrameGrey));
        break;
    case 4: // sunk
        for (int i = 0; i < rings; ++i)
            ring(i, QColor(kFrameGrey), QColor(kFrameWhite));
        break;
    case 5: // a raised outer edge around a sunk inner one
        for (int i = 0; i < rings; ++i) {
            if (i == 0)
                ring(i, QColor(kFrameWhite), QColor(kFrameGrey));
            else
                ring(i, QColor(kFrameDark), QColor(kFrameLight));
        }
        break;
    default:
        break;
    }
}

void RichLabel::ReleasePointer() {
    if (QWidget::mouseGrabber() == this) releaseMouse();
    captured_ = false;
}

void RichLabel::paintEvent(QPaintEvent*) {
    if (tPic_.isNull()) return;
    QPainter p(this);
    p.drawImage(0, 0, tPic_);
}

void RichLabel::resizeEvent(QResizeEvent*) {
    Redraw();
}

void RichLabel::changeEvent(QEvent* ev) {
    if (ev->type() == QEvent::FontChange || ev->type() == QEvent::PaletteChange) Redraw();
    QWidget::changeEvent(ev);
}

void RichLabel::hideEvent(QHideEvent* ev) {
    ReleasePointer();
    QWidget::hideEvent(ev);
}

void RichLabel::leaveEvent(QEvent* ev) {
    // Where the pointer cannot be held (some window systems refuse it), the leave notice stands in.
    if (captured_) {
        ReleasePointer();
        emit MouseLeave();
    }
    QWidget::leaveEvent(ev);
}

void RichLabel::mousePressEvent(QMouseEvent* ev) {
    doubleClicked_ = false;
    pressedInside_ = true;
    // A press holds the pointer until the release, as a move inside does.
    captured_ = true;
    emit MouseDown(ButtonOf(ev->button()), ShiftOf(ev->modifiers()), ev->position().x(), ev->position().y());
}

void RichLabel::mouseDoubleClickEvent(QMouseEvent* ev) {
    doubleClicked_ = true;
    pressedInside_ = true;
    captured_ = true;
    emit DblClick();
}

void RichLabel::mouseReleaseEvent(QMouseEvent* ev) {
    const QPointF pos = ev->position();
    emit MouseUp(ButtonOf(ev->button()), ShiftOf(ev->modifiers()), pos.x(), pos.y());
    // A click is a press and a release over the label; the release that ends a double click is none.
    if (pressedInside_ && !doubleClicked_ && rect().contains(pos.toPoint())) emit Click();
    if (ev->buttons() == Qt::NoButton) {
        pressedInside_ = false;
        doubleClicked_ = false;
    }
}

void RichLabel::mouseMoveEvent(QMouseEvent* ev) {
    const QPointF pos = ev->position();
    const bool outside = pos.x() < 0 || pos.y() < 0 || pos.x() >= width() || pos.y() >= height();
    if (outside) {
        // The label hears moves outside only while it holds the pointer; the first one lets it go, and
        // the moves after it belong to whatever lies under the pointer.
        if (!captured_) return;
        ReleasePointer();
        emit MouseLeave();
        return;
    }
    if (!captured_ || QWidget::mouseGrabber() != this) {
        grabMouse();
        captured_ = true;
    }
    emit MouseMove(ButtonsOf(ev->buttons()), ShiftOf(ev->modifiers()), pos.x(), pos.y());
}

} // namespace pd
