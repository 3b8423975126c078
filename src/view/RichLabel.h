#pragma once
// The rich label: a label that draws its text itself on a hidden picture, which is then shown. It can
// convert text typed the VNI way into Vietnamese, wrap words, take the size of its text, align the text,
// and draw a frame or an outline, a shadow and a gradient back. Headline rows and the headline tooltip
// are rich labels.
//
// The layout of the text, the colours of the gradient and of the shadow, and the resolution of colour
// values are free functions below, so that they can be checked without drawing.

#include <QColor>
#include <QFont>
#include <QImage>
#include <QList>
#include <QPalette>
#include <QRect>
#include <QString>
#include <QVariantMap>
#include <QWidget>

#include <cstdint>
#include <functional>

class QPainter;

namespace pd {

// Flags of a text drawing, with the values of the classic text-drawing call: no clipping, word break,
// and the horizontal alignment (left 0, right 2, centre 1).
inline constexpr int kTextNoClip = 256;
inline constexpr int kTextWordBreak = 16;
inline constexpr int kTextRight = 2;
inline constexpr int kTextCenter = 1;

// The flags the label draws with: no clipping, word break when `wordWrap`, and the alignment (0 left,
// 1 right, 2 centre; any other value draws left).
int LabelTextFlags(bool wordWrap, int alignment);

// One laid-out line: its text, its left edge and top in pixels, and its width.
struct LabelLine {
    QString text;
    int x = 0;
    int y = 0;
    int width = 0;
};

struct LabelTextLayout {
    QList<LabelLine> lines;
    int width = 0;  // the widest line
    int height = 0; // lines times the line height
};

// Lays out `text` in `rect` as the text-drawing call does: line breaks (CR LF, CR or LF) start new lines;
// with word break, a line also ends before the word that would pass the rectangle's right edge, and the
// blanks at the break are dropped; a word wider than the rectangle stays whole on a line of its own.
// Each line is placed at the left, the right or the centre of the rectangle; lines go down from its top
// one line height apart. An empty text has no lines and height 0.
LabelTextLayout LayoutLabelText(const QString& text, const QRect& rect, int flags,
                                const std::function<int(const QString&)>& textWidth, int lineHeight);

// The number of text lines that a measured height holds: the height divided by the line height, rounded.
int LabelLineCount(int measuredHeight, int lineHeight);

// A colour value as a colour: 0x00BBGGRR, or a system colour (the high bit set, the element number in
// the low byte, e.g. 8000000F the face of buttons, 80000008 the text of windows) taken from `palette`.
QColor LabelColor(int32_t value, const QPalette& palette);

// The colour of the gradient back at pixel (x, y) of a surface of `size`, going from `start` to `end`:
// style 0 left to right, 1 top to bottom, 2 top left to bottom right, 3 bottom left to top right; other
// styles as 0. The first pixel in the direction has exactly `start`, the last exactly `end`.
QColor GradientColorAt(const QColor& start, const QColor& end, int style, int x, int y, const QSize& size);

// The colour of the shadow copy at distance `k` (1 to `depth`) from the text: `start` next to the text,
// `end` at the full depth.
QColor ShadowColorAt(const QColor& start, const QColor& end, int k, int depth);

// The offsets of the shadow copies at distance `k` for a shadow style: 0 right and down, 1 down, 2 right;
// 3 and other values a halo all around the text.
QList<QPoint> ShadowOffsets(int style, int k);

// The room the shadow takes beside the text: its depth to the right (styles 0 and 2) and below
// (styles 0 and 1); nothing when the shadow is off.
QSize ShadowRoom(bool shadow, int style, int depth);

// The grey lines of the three-dimensional frames.
inline constexpr QRgb kFrameWhite = 0xFFFFFFFF;
inline constexpr QRgb kFrameGrey = 0xFFA7A6AA;  // RGB 167, 166, 170
inline constexpr QRgb kFrameDark = 0xFF85878C;  // RGB 133, 135, 140
inline constexpr QRgb kFrameLight = 0xFFDCDFE4; // RGB 220, 223, 228

class RichLabel : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE setText)
    Q_PROPERTY(bool AutoSize READ AutoSize WRITE setAutoSize)
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(qint32 BorderColor READ BorderColor WRITE setBorderColor)
    Q_PROPERTY(qint16 BorderSize READ BorderSize WRITE setBorderSize)
    Q_PROPERTY(QFont Font READ Font WRITE setFont)
    Q_PROPERTY(bool WordWrap READ WordWrap WRITE setWordWrap)
    Q_PROPERTY(bool TiengViet READ TiengViet WRITE setTiengViet)
    Q_PROPERTY(qint16 BorderStyle READ BorderStyle WRITE setBorderStyle)
    Q_PROPERTY(bool Transparent READ Transparent WRITE setTransparent)
    Q_PROPERTY(qint16 EdgeSpace READ EdgeSpace WRITE setEdgeSpace)
    Q_PROPERTY(qint32 OutlineColor READ OutlineColor WRITE setOutlineColor)
    Q_PROPERTY(bool Shadow READ Shadow WRITE setShadow)
    Q_PROPERTY(qint16 ShadowDepth READ ShadowDepth WRITE setShadowDepth)
    Q_PROPERTY(qint32 ShadowStyle READ ShadowStyle WRITE setShadowStyle)
    Q_PROPERTY(qint32 ShadowColorStart READ ShadowColorStart WRITE setShadowColorStart)
    Q_PROPERTY(qint32 ShadowColorEnd READ ShadowColorEnd WRITE setShadowColorEnd)
    Q_PROPERTY(qint16 Alignment READ Alignment WRITE setAlignment)
    Q_PROPERTY(qint16 BackColorStyle READ BackColorStyle WRITE setBackColorStyle)
    Q_PROPERTY(qint16 GradientBackColorStyle READ GradientBackColorStyle WRITE setGradientBackColorStyle)
    Q_PROPERTY(qint32 GradientBackColorStart READ GradientBackColorStart WRITE setGradientBackColorStart)
    Q_PROPERTY(qint32 GradientBackColorEnd READ GradientBackColorEnd WRITE setGradientBackColorEnd)
    Q_PROPERTY(int LineCount READ LineCount)

  public:
    // The text of a new label, and of a stored one that holds no text.
    static const QString kNewText;    // "Nha4n Tie61ng Vie65t"
    static const QString kStoredText; // "Tie61ng Viet"
    // The names of the stored properties, in their order; the stored format reads and writes each by name.
    static const QStringList& StoredPropertyNames();

    explicit RichLabel(QWidget* parent = nullptr);
    ~RichLabel() override;

    QString Text() const { return text_; }
    void setText(const QString& v);
    bool AutoSize() const { return autoSize_; }
    void setAutoSize(bool v);
    int32_t BackColor() const { return backColor_; }
    void setBackColor(int32_t v);
    int32_t ForeColor() const { return foreColor_; }
    void setForeColor(int32_t v);
    int32_t BorderColor() const { return borderColor_; }
    void setBorderColor(int32_t v);
    int16_t BorderSize() const { return borderSize_; }
    void setBorderSize(int16_t v);
    QFont Font() const { return font(); }
    void setFont(const QFont& f);
    bool WordWrap() const { return wordWrap_; }
    void setWordWrap(bool v);
    bool TiengViet() const { return tiengViet_; }
    void setTiengViet(bool v);
    int16_t BorderStyle() const { return borderStyle_; }
    void setBorderStyle(int16_t v);
    bool Transparent() const { return transparent_; }
    void setTransparent(bool v);
    int16_t EdgeSpace() const { return edgeSpace_; }
    void setEdgeSpace(int16_t v);
    int32_t OutlineColor() const { return outlineColor_; }
    void setOutlineColor(int32_t v);
    bool Shadow() const { return shadow_; }
    void setShadow(bool v);
    int16_t ShadowDepth() const { return shadowDepth_; }
    void setShadowDepth(int16_t v);
    int32_t ShadowStyle() const { return shadowStyle_; }
    void setShadowStyle(int32_t v);
    int32_t ShadowColorStart() const { return shadowColorStart_; }
    void setShadowColorStart(int32_t v);
    int32_t ShadowColorEnd() const { return shadowColorEnd_; }
    void setShadowColorEnd(int32_t v);
    int16_t Alignment() const { return alignment_; }
    void setAlignment(int16_t v);
    int16_t BackColorStyle() const { return backColorStyle_; }
    void setBackColorStyle(int16_t v);
    int16_t GradientBackColorStyle() const { return gradientStyle_; }
    void setGradientBackColorStyle(int16_t v);
    int32_t GradientBackColorStart() const { return gradientStart_; }
    void setGradientBackColorStart(int32_t v);
    int32_t GradientBackColorEnd() const { return gradientEnd_; }
    void setGradientBackColorEnd(int32_t v);

    // The number of text lines at the last drawing.
    int LineCount() const { return lineCount_; }
    // The element's window, and its drawing surface: the hidden picture that the label shows.
    QWidget* hwnd() { return this; }
    const QImage& hdc() const { return tPic_; }
    // The label's own conversion of VNI-typed text.
    QString VNIToUnicode(const QString& text) const;
    // The text as drawn: converted when TiengViet is on.
    QString ShownText() const;
    // The height of one text line of the label's font, in pixels.
    int TextHeight() const;

    // The stored form: every property that differs from its default, by name (the font when one was
    // set on the label itself). Reading sets every property, missing ones to their defaults, with
    // "Tie61ng Viet" as the text.
    QVariantMap WriteProperties() const;
    void ReadProperties(const QVariantMap& bag);

    // Sizes the label to its text when AutoSize is on, then draws. Each property change runs it.
    void Redraw();

  signals:
    // Button: 1 left, 2 right, 4 middle; Shift: 1 Shift, 2 Ctrl, 4 Alt; X, Y in pixels of the label.
    void Click();
    void DblClick();
    void MouseDown(int Button, int Shift, qreal X, qreal Y);
    void MouseMove(int Button, int Shift, qreal X, qreal Y);
    void MouseUp(int Button, int Shift, qreal X, qreal Y);
    void MouseLeave();

  protected:
    void paintEvent(QPaintEvent* ev) override;
    void resizeEvent(QResizeEvent* ev) override;
    void changeEvent(QEvent* ev) override;
    void hideEvent(QHideEvent* ev) override;
    void leaveEvent(QEvent* ev) override;
    void mousePressEvent(QMouseEvent* ev) override;
    void mouseReleaseEvent(QMouseEvent* ev) override;
    void mouseMoveEvent(QMouseEvent* ev) override;
    void mouseDoubleClickEvent(QMouseEvent* ev) override;

  private:
    void PaintLabel();
    // Draws the laid-out lines in one colour, moved by `offset`.
    void DrawLabelText(QPainter& p, const LabelTextLayout& lay, const QColor& color, QPoint offset);
    // The text once at every offset from -thickness to thickness on both axes.
    void DrawTextOutline(QPainter& p, const LabelTextLayout& lay, int thickness);
    void DrawShadow(QPainter& p, const LabelTextLayout& lay);
    // The frame of the border style, or the outline of style 2.
    void DrawFrame(QPainter& p, const LabelTextLayout& lay);
    QRect TextRect() const;
    void ReleasePointer();

    QString text_;
    bool autoSize_ = false;
    int32_t backColor_ = static_cast<int32_t>(0x8000000Fu);
    int32_t foreColor_ = static_cast<int32_t>(0x80000008u);
    int32_t borderColor_ = static_cast<int32_t>(0x80000008u);
    int16_t borderSize_ = 1;
    bool wordWrap_ = false;
    bool tiengViet_ = true;
    int16_t borderStyle_ = 0;
    bool transparent_ = true;
    int16_t edgeSpace_ = 1;
    int32_t outlineColor_ = 0xFFFFFF;
    bool shadow_ = false;
    int16_t shadowDepth_ = 3;
    int32_t shadowStyle_ = 3;
    int32_t shadowColorStart_ = 0;
    int32_t shadowColorEnd_ = 0;
    int16_t alignment_ = 0;
    int16_t backColorStyle_ = 0;
    int16_t gradientStyle_ = 0;
    int32_t gradientStart_ = 0;
    int32_t gradientEnd_ = 0xFFFFFF;

    int lineCount_ = 0;
    QImage tPic_;
    bool redrawing_ = false;
    bool captured_ = false;
    bool doubleClicked_ = false;
    bool pressedInside_ = false;
};

// The element's name in the window descriptions.
using Label_Vex = RichLabel;

} // namespace pd
