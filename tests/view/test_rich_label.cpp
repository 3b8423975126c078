// The rich label: its properties and their defaults, the stored form, the layout of its text, its
// measuring, and its drawing, checked pixel by pixel on the offscreen platform; and its mouse events,
// with the leave notice that it makes itself.

#include "feeds/VietnameseText.h"
#include "view/RichLabel.h"

#include <QApplication>
#include <QMouseEvent>

#include <gtest/gtest.h>

#include <memory>

using namespace pd;

namespace {

// Ten pixels a character: layouts can be worked out by hand.
int TenEach(const QString& s) {
    return static_cast<int>(s.size()) * 10;
}

constexpr int32_t kWhite = 0xFFFFFF;
constexpr int32_t kBlack = 0x000000;
constexpr int32_t kRed = 0x0000FF; // 0x00BBGGRR
constexpr int32_t kGreen = 0x00FF00;
constexpr int32_t kBlue = 0xFF0000;

QRgb Rgb(int32_t bgr) {
    return LabelColor(bgr, QPalette()).rgb();
}

// A crisp font: without smoothing, text pixels are exactly the colour they are drawn in.
QFont CrispFont(int points = 12) {
    QFont f(QStringLiteral("DejaVu Sans"));
    f.setPointSize(points);
    f.setStyleStrategy(QFont::NoAntialias);
    f.setHintingPreference(QFont::PreferFullHinting);
    return f;
}

// A shown label on a white back with black text in the crisp font.
std::unique_ptr<RichLabel> PlainLabel(const QString& text, QSize size = {200, 40}) {
    auto l = std::make_unique<RichLabel>();
    l->setFont(CrispFont());
    l->setTransparent(false);
    l->setBackColor(kWhite);
    l->setForeColor(kBlack);
    l->resize(size);
    l->setText(text);
    l->show();
    return l;
}

// The picture as a person sees it: the widget grabbed into an image.
QImage Shown(RichLabel& l) {
    return l.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

QRgb Px(const QImage& img, int x, int y) {
    return img.pixel(x, y) | 0xFF000000u;
}

// The bounding box of the pixels of one colour.
QRect BoxOf(const QImage& img, QRgb colour) {
    QRect box;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x)
            if (Px(img, x, y) == (colour | 0xFF000000u)) box |= QRect(x, y, 1, 1);
    return box;
}

// The number of bands of rows holding pixels of a colour, separated by rows without.
int RowBands(const QImage& img, QRgb colour) {
    int bands = 0;
    bool inBand = false;
    for (int y = 0; y < img.height(); ++y) {
        bool any = false;
        for (int x = 0; x < img.width() && !any; ++x)
            any = Px(img, x, y) == (colour | 0xFF000000u);
        if (any && !inBand) ++bands;
        inBand = any;
    }
    return bands;
}

void Send(QWidget& w, QEvent::Type type, QPointF pos, Qt::MouseButton button, Qt::MouseButtons buttons,
          Qt::KeyboardModifiers mods = Qt::NoModifier) {
    QMouseEvent ev(type, pos, w.mapToGlobal(pos), button, buttons, mods);
    QApplication::sendEvent(&w, &ev);
}

void Move(QWidget& w, QPointF pos, Qt::MouseButtons held = Qt::NoButton) {
    Send(w, QEvent::MouseMove, pos, Qt::NoButton, held);
}

} // namespace

// ---- Pure computations ----

TEST(RichLabelLayout, FlagsOfTheTextDrawing) {
    EXPECT_EQ(LabelTextFlags(false, 0), 256);
    EXPECT_EQ(LabelTextFlags(true, 0), 256 + 16);
    EXPECT_EQ(LabelTextFlags(false, 1), 256 + 2);
    EXPECT_EQ(LabelTextFlags(false, 2), 256 + 1);
    EXPECT_EQ(LabelTextFlags(true, 2), 256 + 16 + 1);
    EXPECT_EQ(LabelTextFlags(false, 7), 256);
}

TEST(RichLabelLayout, EmptyTextHasNoLines) {
    const auto lay = LayoutLabelText(QString(), QRect(0, 0, 100, 100), LabelTextFlags(true, 0), TenEach, 20);
    EXPECT_TRUE(lay.lines.isEmpty());
    EXPECT_EQ(lay.height, 0);
    EXPECT_EQ(lay.width, 0);
    EXPECT_EQ(LabelLineCount(lay.height, 20), 0);
}

TEST(RichLabelLayout, WithoutWordWrapALineIsNeverBroken) {
    const auto lay = LayoutLabelText(QStringLiteral("hello world"), QRect(3, 4, 50, 100),
                                     LabelTextFlags(false, 0), TenEach, 20);
    ASSERT_EQ(lay.lines.size(), 1);
    EXPECT_EQ(lay.lines[0].text, QStringLiteral("hello world"));
    EXPECT_EQ(lay.lines[0].x, 3);
    EXPECT_EQ(lay.lines[0].y, 4);
    EXPECT_EQ(lay.width, 110);
    EXPECT_EQ(lay.height, 20);
}

TEST(RichLabelLayout, WordWrapBreaksBeforeTheWordThatPassesTheEdge) {
    const auto lay = LayoutLabelText(QStringLiteral("hello world foo"), QRect(0, 10, 60, 0),
                                     LabelTextFlags(true, 0), TenEach, 20);
    ASSERT_EQ(lay.lines.size(), 3);
    EXPECT_EQ(lay.lines[0].text, QStringLiteral("hello"));
    EXPECT_EQ(lay.lines[1].text, QStringLiteral("world"));
    EXPECT_EQ(lay.lines[2].text, QStringLiteral("foo"));
    EXPECT_EQ(lay.lines[2].y, 50);
    EXPECT_EQ(lay.height, 60);
    EXPECT_EQ(lay.width, 50);
    EXPECT_EQ(LabelLineCount(lay.height, 20), 3);
    // Exactly at the edge still fits.
    const auto exact =
        LayoutLabelText(QStringLiteral("aa bb cc"), QRect(0, 0, 50, 0), LabelTextFlags(true, 0), TenEach, 20);
    ASSERT_EQ(exact.lines.size(), 2);
    EXPECT_EQ(exact.lines[0].text, QStringLiteral("aa bb"));
    EXPECT_EQ(exact.lines[1].text, QStringLiteral("cc"));
}

TEST(RichLabelLayout, AWordWiderThanTheRectangleStaysWhole) {
    const auto lay = LayoutLabelText(QStringLiteral("abcdefghij x"), QRect(0, 0, 30, 0),
                                     LabelTextFlags(true, 0), TenEach, 20);
    ASSERT_EQ(lay.lines.size(), 2);
    EXPECT_EQ(lay.lines[0].text, QStringLiteral("abcdefghij"));
    EXPECT_EQ(lay.lines[1].text, QStringLiteral("x"));
    EXPECT_EQ(lay.width, 100);
}

TEST(RichLabelLayout, BlanksAtABreakAreDroppedAndLeadingBlanksKept) {
    const auto lay = LayoutLabelText(QStringLiteral("  ab   cd   "), QRect(0, 0, 40, 0),
                                     LabelTextFlags(true, 0), TenEach, 20);
    ASSERT_EQ(lay.lines.size(), 2);
    EXPECT_EQ(lay.lines[0].text, QStringLiteral("  ab"));
    EXPECT_EQ(lay.lines[1].text, QStringLiteral("cd"));
}

TEST(RichLabelLayout, LineBreaksStartNewLinesInBothModes) {
    for (bool wrap : {false, true}) {
        const auto lay = LayoutLabelText(QStringLiteral("a\r\nb\rc\nd"), QRect(0, 0, 500, 0),
                                         LabelTextFlags(wrap, 0), TenEach, 20);
        ASSERT_EQ(lay.lines.size(), 4) << wrap;
        EXPECT_EQ(lay.lines[3].text, QStringLiteral("d"));
        EXPECT_EQ(lay.height, 80);
    }
}

TEST(RichLabelLayout, AlignmentPlacesEachLine) {
    const QRect r(5, 0, 100, 0);
    EXPECT_EQ(LayoutLabelText(QStringLiteral("abc"), r, LabelTextFlags(false, 0), TenEach, 20).lines[0].x, 5);
    EXPECT_EQ(LayoutLabelText(QStringLiteral("abc"), r, LabelTextFlags(false, 1), TenEach, 20).lines[0].x,
              75);
    EXPECT_EQ(LayoutLabelText(QStringLiteral("abc"), r, LabelTextFlags(false, 2), TenEach, 20).lines[0].x,
              40);
    // Wrapped lines are placed one by one.
    const auto lay =
        LayoutLabelText(QStringLiteral("abcd ef"), QRect(0, 0, 60, 0), LabelTextFlags(true, 1), TenEach, 20);
    ASSERT_EQ(lay.lines.size(), 2);
    EXPECT_EQ(lay.lines[0].x, 20);
    EXPECT_EQ(lay.lines[1].x, 40);
}

TEST(RichLabelLayout, CentredWithoutWordWrapIsOneLineCentredInTheRectangle) {
    // Wider than the rectangle: still one line, overhanging both sides equally.
    const auto lay = LayoutLabelText(QStringLiteral("a b c d e f"), QRect(0, 0, 50, 0),
                                     LabelTextFlags(false, 2), TenEach, 20);
    ASSERT_EQ(lay.lines.size(), 1);
    EXPECT_EQ(lay.lines[0].x, -30);
    EXPECT_EQ(LabelLineCount(lay.height, 20), 1);
}

TEST(RichLabelLayout, LineCountRoundsTheMeasuredHeight) {
    EXPECT_EQ(LabelLineCount(60, 20), 3);
    EXPECT_EQ(LabelLineCount(29, 20), 1);
    EXPECT_EQ(LabelLineCount(31, 20), 2);
    EXPECT_EQ(LabelLineCount(0, 20), 0);
    EXPECT_EQ(LabelLineCount(10, 0), 0);
}

TEST(RichLabelColours, ColourValuesAndSystemColours) {
    QPalette pal;
    pal.setColor(QPalette::Button, QColor(1, 2, 3));
    pal.setColor(QPalette::WindowText, QColor(4, 5, 6));
    EXPECT_EQ(LabelColor(kRed, pal), QColor(255, 0, 0));
    EXPECT_EQ(LabelColor(kBlue, pal), QColor(0, 0, 255));
    EXPECT_EQ(LabelColor(0x332211, pal), QColor(0x11, 0x22, 0x33));
    EXPECT_EQ(LabelColor(static_cast<int32_t>(0x8000000Fu), pal), QColor(1, 2, 3));
    EXPECT_EQ(LabelColor(static_cast<int32_t>(0x80000008u), pal), QColor(4, 5, 6));
}

TEST(RichLabelColours, GradientEndsInEachDirection) {
    const QColor a(255, 0, 0), b(0, 0, 255);
    const QSize s(11, 5);
    // Left to right.
    EXPECT_EQ(GradientColorAt(a, b, 0, 0, 3, s), a);
    EXPECT_EQ(GradientColorAt(a, b, 0, 10, 3, s), b);
    EXPECT_EQ(GradientColorAt(a, b, 0, 5, 0, s), QColor(128, 0, 128));
    // Top to bottom.
    EXPECT_EQ(GradientColorAt(a, b, 1, 7, 0, s), a);
    EXPECT_EQ(GradientColorAt(a, b, 1, 7, 4, s), b);
    // Top left to bottom right, bottom left to top right.
    EXPECT_EQ(GradientColorAt(a, b, 2, 0, 0, s), a);
    EXPECT_EQ(GradientColorAt(a, b, 2, 10, 4, s), b);
    EXPECT_EQ(GradientColorAt(a, b, 3, 0, 4, s), a);
    EXPECT_EQ(GradientColorAt(a, b, 3, 10, 0, s), b);
    // Unknown styles go left to right; a surface of one pixel has the start colour.
    EXPECT_EQ(GradientColorAt(a, b, 9, 10, 0, s), b);
    EXPECT_EQ(GradientColorAt(a, b, 0, 0, 0, QSize(1, 1)), a);
}

TEST(RichLabelColours, ShadowColoursAndOffsets) {
    const QColor a(255, 0, 0), b(0, 0, 255);
    EXPECT_EQ(ShadowColorAt(a, b, 1, 3), a);
    EXPECT_EQ(ShadowColorAt(a, b, 2, 3), QColor(128, 0, 128));
    EXPECT_EQ(ShadowColorAt(a, b, 3, 3), b);
    EXPECT_EQ(ShadowColorAt(a, b, 1, 1), a);
    EXPECT_EQ(ShadowOffsets(0, 2), QList<QPoint>({QPoint(2, 2)}));
    EXPECT_EQ(ShadowOffsets(1, 2), QList<QPoint>({QPoint(0, 2)}));
    EXPECT_EQ(ShadowOffsets(2, 2), QList<QPoint>({QPoint(2, 0)}));
    EXPECT_EQ(ShadowOffsets(3, 1).size(), 8);
    EXPECT_EQ(ShadowRoom(true, 0, 3), QSize(3, 3));
    EXPECT_EQ(ShadowRoom(true, 1, 3), QSize(0, 3));
    EXPECT_EQ(ShadowRoom(true, 2, 3), QSize(3, 0));
    EXPECT_EQ(ShadowRoom(true, 3, 3), QSize(0, 0));
    EXPECT_EQ(ShadowRoom(false, 0, 3), QSize(0, 0));
}

// ---- The element ----

TEST(RichLabel, NewLabelHasTheDefaults) {
    RichLabel l;
    EXPECT_EQ(l.Text(), QStringLiteral("Nha4n Tie61ng Vie65t"));
    EXPECT_EQ(l.ShownText(), QString::fromUtf16(u"Nhãn Tiếng Việt"));
    EXPECT_FALSE(l.AutoSize());
    EXPECT_EQ(static_cast<uint32_t>(l.BackColor()), 0x8000000Fu);
    EXPECT_EQ(static_cast<uint32_t>(l.ForeColor()), 0x80000008u);
    EXPECT_EQ(static_cast<uint32_t>(l.BorderColor()), 0x80000008u);
    EXPECT_EQ(l.BorderSize(), 1);
    EXPECT_FALSE(l.WordWrap());
    EXPECT_TRUE(l.TiengViet());
    EXPECT_EQ(l.BorderStyle(), 0);
    EXPECT_TRUE(l.Transparent());
    EXPECT_EQ(l.EdgeSpace(), 1);
    EXPECT_EQ(l.OutlineColor(), 0xFFFFFF);
    EXPECT_FALSE(l.Shadow());
    EXPECT_EQ(l.ShadowDepth(), 3);
    EXPECT_EQ(l.ShadowStyle(), 3);
    EXPECT_EQ(l.ShadowColorStart(), 0);
    EXPECT_EQ(l.ShadowColorEnd(), 0);
    EXPECT_EQ(l.Alignment(), 0);
    EXPECT_EQ(l.BackColorStyle(), 0);
    EXPECT_EQ(l.GradientBackColorStyle(), 0);
    EXPECT_EQ(l.GradientBackColorStart(), 0);
    EXPECT_EQ(l.GradientBackColorEnd(), 0xFFFFFF);
    EXPECT_EQ(l.LineCount(), 1);
    EXPECT_EQ(l.VNIToUnicode(QStringLiteral("a1")), QString::fromUtf16(u"á"));
}

TEST(RichLabel, EveryPropertyIsReachableByName) {
    RichLabel l;
    for (const QString& name : RichLabel::StoredPropertyNames())
        EXPECT_TRUE(l.property(name.toLatin1().constData()).isValid()) << name.toStdString();
    EXPECT_TRUE(l.setProperty("BorderStyle", 4));
    EXPECT_EQ(l.BorderStyle(), 4);
    EXPECT_TRUE(l.setProperty("Text", QStringLiteral("x")));
    EXPECT_EQ(l.Text(), QStringLiteral("x"));
    EXPECT_EQ(l.property("LineCount").toInt(), 1);
    EXPECT_FALSE(l.setProperty("LineCount", 5)); // read-only
}

TEST(RichLabel, StoredFormHoldsWhatDiffersFromTheDefaults) {
    RichLabel fresh;
    // A new label's text is not the stored default, so it is written; nothing else is.
    EXPECT_EQ(fresh.WriteProperties(),
              QVariantMap({{QStringLiteral("Text"), QStringLiteral("Nha4n Tie61ng Vie65t")}}));

    RichLabel l;
    l.setBorderStyle(5);
    l.setShadow(true);
    l.setGradientBackColorEnd(0x123456);
    l.setFont(CrispFont(20));
    const QVariantMap bag = l.WriteProperties();
    EXPECT_EQ(bag.value(QStringLiteral("BorderStyle")).toInt(), 5);
    EXPECT_TRUE(bag.value(QStringLiteral("Shadow")).toBool());
    EXPECT_EQ(bag.value(QStringLiteral("GradientBackColorEnd")).toInt(), 0x123456);
    EXPECT_TRUE(bag.contains(QStringLiteral("Font")));
    EXPECT_FALSE(bag.contains(QStringLiteral("EdgeSpace")));

    RichLabel copy;
    copy.ReadProperties(bag);
    EXPECT_EQ(copy.BorderStyle(), 5);
    EXPECT_TRUE(copy.Shadow());
    EXPECT_EQ(copy.GradientBackColorEnd(), 0x123456);
    EXPECT_EQ(copy.Font().pointSize(), 20);
    EXPECT_EQ(copy.WriteProperties(), bag);
}

TEST(RichLabel, StoredLabelWithoutValuesTakesTheDefaults) {
    RichLabel l;
    l.setBorderSize(4);
    l.setTiengViet(false);
    l.ReadProperties({});
    EXPECT_EQ(l.Text(), QStringLiteral("Tie61ng Viet"));
    EXPECT_EQ(l.ShownText(), QString::fromUtf16(u"Tiếng Viet"));
    EXPECT_EQ(l.BorderSize(), 1);
    EXPECT_TRUE(l.TiengViet());
    EXPECT_TRUE(l.WriteProperties().isEmpty());
    // Values stored as text are read too; one that does not convert leaves the default.
    l.ReadProperties({{QStringLiteral("BorderSize"), QStringLiteral("3")},
                      {QStringLiteral("EdgeSpace"), QStringLiteral("wide")}});
    EXPECT_EQ(l.BorderSize(), 3);
    EXPECT_EQ(l.EdgeSpace(), 1);
}

TEST(RichLabel, EmptyTextWithAutoSizeKeepsFrameAndEdgeSpaceOnly) {
    RichLabel l;
    l.setText(QString());
    l.setAutoSize(true);
    EXPECT_EQ(l.size(), QSize(4, 4)); // 2 * (BorderSize 1 + EdgeSpace 1)
    EXPECT_EQ(l.LineCount(), 0);
    l.setBorderSize(0);
    EXPECT_EQ(l.size(), QSize(2, 2));
    l.setBorderSize(3);
    l.setEdgeSpace(2);
    EXPECT_EQ(l.size(), QSize(10, 10));
    // The same with word wrap: the width stays, the height is the frame's.
    l.resize(80, 50);
    l.setWordWrap(true);
    EXPECT_EQ(l.size(), QSize(80, 10));
    EXPECT_EQ(l.LineCount(), 0);
}

TEST(RichLabel, AutoSizeTakesTheSizeOfTheTextWithoutItsMarks) {
    RichLabel l;
    l.setFont(CrispFont());
    l.setText(QStringLiteral("Vie65t Nam"));
    l.setAutoSize(true);
    const QFontMetrics fm = l.fontMetrics();
    EXPECT_EQ(l.size(), QSize(fm.horizontalAdvance(QStringLiteral("Viet Nam")) + 4, fm.height() + 4));
    EXPECT_EQ(l.TextHeight(), fm.height());
    EXPECT_EQ(l.LineCount(), 1);
    // Without the conversion the digits are measured as they stand.
    l.setTiengViet(false);
    EXPECT_EQ(l.width(), fm.horizontalAdvance(QStringLiteral("Vie65t Nam")) + 4);
    // A shadow to the right and down adds its depth.
    l.setTiengViet(true);
    l.setShadow(true);
    l.setShadowStyle(0);
    EXPECT_EQ(l.size(), QSize(fm.horizontalAdvance(QStringLiteral("Viet Nam")) + 4 + 3, fm.height() + 4 + 3));
    // A larger font: the label grows with it.
    const int before = l.height();
    l.setFont(CrispFont(30));
    EXPECT_GT(l.height(), before);
}

TEST(RichLabel, AutoSizeWithWordWrapKeepsTheWidthAndCountsTheLines) {
    RichLabel l;
    l.setFont(CrispFont());
    l.resize(90, 20);
    l.setWordWrap(true);
    l.setText(QStringLiteral("one two three four five six seven"));
    l.setAutoSize(true);
    const QFontMetrics fm = l.fontMetrics();
    const auto lay = LayoutLabelText(
        l.ShownText(), QRect(0, 0, 90 - 4, 0), LabelTextFlags(true, 0),
        [&fm](const QString& s) { return fm.horizontalAdvance(s); }, fm.height());
    ASSERT_GE(lay.lines.size(), 3);
    EXPECT_EQ(l.width(), 90);
    EXPECT_EQ(l.height(), static_cast<int>(lay.lines.size()) * fm.height() + 4);
    EXPECT_EQ(l.LineCount(), lay.lines.size());
    // The shadow to the right narrows the room for the text.
    l.setShadow(true);
    l.setShadowStyle(2);
    l.setShadowDepth(30);
    EXPECT_EQ(l.width(), 90);
    EXPECT_GE(l.LineCount(), lay.lines.size());
}

TEST(RichLabel, EachPropertyChangeRedraws) {
    auto l = PlainLabel(QStringLiteral("Hello"));
    const QImage before = l->hdc().copy();
    l->setForeColor(kRed);
    EXPECT_NE(l->hdc(), before);
    EXPECT_FALSE(BoxOf(Shown(*l), Rgb(kRed)).isEmpty());
    l->setText(QString());
    EXPECT_EQ(l->LineCount(), 0);
    EXPECT_TRUE(BoxOf(Shown(*l), Rgb(kRed)).isEmpty());
    // A resize draws a picture of the new size.
    l->resize(120, 33);
    EXPECT_EQ(l->hdc().size(), QSize(120, 33));
}

TEST(RichLabel, ShownPictureIsTheHiddenPicture) {
    auto l = PlainLabel(QStringLiteral("Tie61ng Vie65t"));
    EXPECT_EQ(Shown(*l), l->hdc().convertToFormat(QImage::Format_RGB32));
}

TEST(RichLabel, PlainEnglishWithDigitsAfterVowelsGetsMarks) {
    auto l = PlainLabel(QStringLiteral("Area51 and Route66"));
    EXPECT_EQ(l->ShownText(), QString::fromUtf16(u"Areạ1 and Routê6"));
    const QImage converted = Shown(*l);
    l->setTiengViet(false);
    EXPECT_EQ(l->ShownText(), QStringLiteral("Area51 and Route66"));
    EXPECT_NE(Shown(*l), converted);
}

TEST(RichLabel, FrameStyleOneIsNestedRectanglesInTheBorderColour) {
    auto l = PlainLabel(QString(), {60, 30});
    l->setBorderColor(kRed);
    l->setBorderSize(2);
    l->setBorderStyle(1);
    const QImage img = Shown(*l);
    const QRgb red = Rgb(kRed), white = Rgb(kWhite);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(Px(img, i, i), red) << i;
        EXPECT_EQ(Px(img, 59 - i, 29 - i), red) << i;
        EXPECT_EQ(Px(img, 30, i), red) << i;
        EXPECT_EQ(Px(img, i, 15), red) << i;
        EXPECT_EQ(Px(img, 59 - i, 15), red) << i;
        EXPECT_EQ(Px(img, 30, 29 - i), red) << i;
    }
    EXPECT_EQ(Px(img, 2, 2), white);
    EXPECT_EQ(Px(img, 57, 27), white);
    EXPECT_EQ(BoxOf(img, red), QRect(0, 0, 60, 30));
}

TEST(RichLabel, NoFrameForStyleZero) {
    auto l = PlainLabel(QString(), {60, 30});
    l->setBorderColor(kRed);
    l->setBorderSize(3);
    const QImage img = Shown(*l);
    EXPECT_TRUE(BoxOf(img, Rgb(kRed)).isEmpty());
    EXPECT_EQ(Px(img, 0, 0), Rgb(kWhite));
}

TEST(RichLabel, RaisedAndSunkFrames) {
    auto l = PlainLabel(QString(), {60, 30});
    l->setBackColor(kBlue);
    l->setBorderSize(1);
    l->setBorderStyle(3);
    QImage img = Shown(*l);
    EXPECT_EQ(Px(img, 0, 0), kFrameWhite);
    EXPECT_EQ(Px(img, 30, 0), kFrameWhite);
    EXPECT_EQ(Px(img, 0, 15), kFrameWhite);
    EXPECT_EQ(Px(img, 30, 29), kFrameGrey);
    EXPECT_EQ(Px(img, 59, 15), kFrameGrey);
    EXPECT_EQ(Px(img, 59, 29), kFrameGrey);
    EXPECT_EQ(Px(img, 1, 1), Rgb(kBlue));

    l->setBorderStyle(4);
    img = Shown(*l);
    EXPECT_EQ(Px(img, 30, 0), kFrameGrey);
    EXPECT_EQ(Px(img, 0, 15), kFrameGrey);
    EXPECT_EQ(Px(img, 30, 29), kFrameWhite);
    EXPECT_EQ(Px(img, 59, 15), kFrameWhite);
    EXPECT_EQ(Px(img, 1, 1), Rgb(kBlue));
}

TEST(RichLabel, DoubleFrameOfStyleFive) {
    auto l = PlainLabel(QString(), {60, 30});
    l->setBackColor(kBlue);
    l->setBorderSize(3);
    l->setBorderStyle(5);
    const QImage img = Shown(*l);
    // The outer ring raised in white and grey, the inner rings sunk in the dark and the light grey.
    EXPECT_EQ(Px(img, 30, 0), kFrameWhite);
    EXPECT_EQ(Px(img, 30, 29), kFrameGrey);
    for (int i = 1; i <= 2; ++i) {
        EXPECT_EQ(Px(img, 30, i), kFrameDark) << i;
        EXPECT_EQ(Px(img, i, 15), kFrameDark) << i;
        EXPECT_EQ(Px(img, 30, 29 - i), kFrameLight) << i;
        EXPECT_EQ(Px(img, 59 - i, 15), kFrameLight) << i;
    }
    EXPECT_EQ(Px(img, 3, 3), Rgb(kBlue));
}

TEST(RichLabel, OutlineSurroundsTheTextByTheBorderSize) {
    for (int t : {1, 3}) {
        auto l = PlainLabel(QStringLiteral("Hil"), {120, 50});
        l->setEdgeSpace(5);
        l->setOutlineColor(kGreen);
        l->setBorderSize(static_cast<int16_t>(t));
        l->setBorderStyle(2);
        const QImage img = Shown(*l);
        const QRect black = BoxOf(img, Rgb(kBlack));
        const QRect green = BoxOf(img, Rgb(kGreen));
        ASSERT_FALSE(black.isEmpty());
        // The outline reaches exactly `t` pixels beyond the text on every side.
        EXPECT_EQ(green, black.adjusted(-t, -t, t, t)) << t;
        // The text itself is drawn over the outline in the fore colour.
        EXPECT_EQ(BoxOf(img, Rgb(kBlack)), black);
    }
}

TEST(RichLabel, ShadowLiesAtItsDepthFromStartToEndColour) {
    auto l = PlainLabel(QStringLiteral("Hi_"), {120, 50});
    l->setEdgeSpace(4);
    const QImage plain = Shown(*l);
    const QRect text = BoxOf(plain, Rgb(kBlack));
    ASSERT_FALSE(text.isEmpty());
    // The rightmost text pixel of the lowest text row.
    QPoint q(-1, text.bottom());
    for (int x = 0; x < plain.width(); ++x)
        if (Px(plain, x, text.bottom()) == Rgb(kBlack)) q.setX(x);

    l->setShadowColorStart(kRed);
    l->setShadowColorEnd(kBlue);
    l->setShadowDepth(3);
    l->setShadowStyle(0);
    l->setShadow(true);
    QImage img = Shown(*l);
    EXPECT_EQ(Px(img, q.x() + 1, q.y() + 1), Rgb(kRed));
    EXPECT_EQ(Px(img, q.x() + 2, q.y() + 2), qRgb(128, 0, 128));
    EXPECT_EQ(Px(img, q.x() + 3, q.y() + 3), Rgb(kBlue));
    EXPECT_EQ(Px(img, q.x() + 4, q.y() + 4), Rgb(kWhite));
    // The text is drawn over its shadow, at the same place.
    EXPECT_EQ(BoxOf(img, Rgb(kBlack)), text);

    // Straight down: the shadow is under the text and not beside it.
    l->setShadowStyle(1);
    img = Shown(*l);
    EXPECT_EQ(Px(img, q.x(), q.y() + 3), Rgb(kBlue));
    EXPECT_EQ(BoxOf(img, Rgb(kBlue)).right(), text.right());
    EXPECT_EQ(BoxOf(img, Rgb(kBlue)).bottom(), text.bottom() + 3);

    // Straight right.
    l->setShadowStyle(2);
    img = Shown(*l);
    EXPECT_EQ(BoxOf(img, Rgb(kBlue)).right(), text.right() + 3);
    EXPECT_EQ(BoxOf(img, Rgb(kBlue)).bottom(), text.bottom());

    // Style 3: a halo on every side.
    l->setShadowStyle(3);
    img = Shown(*l);
    EXPECT_EQ(BoxOf(img, Rgb(kBlue)), text.adjusted(-3, -3, 3, 3));
}

TEST(RichLabel, GradientBackFromStartToEnd) {
    auto l = PlainLabel(QString(), {50, 20});
    l->setGradientBackColorStart(kRed);
    l->setGradientBackColorEnd(kBlue);
    l->setBackColorStyle(1);
    const QRgb red = Rgb(kRed), blue = Rgb(kBlue);
    QImage img = Shown(*l);
    EXPECT_EQ(Px(img, 0, 10), red);
    EXPECT_EQ(Px(img, 49, 10), blue);
    EXPECT_NE(Px(img, 25, 10), red);
    EXPECT_NE(Px(img, 25, 10), blue);
    l->setGradientBackColorStyle(1);
    img = Shown(*l);
    EXPECT_EQ(Px(img, 25, 0), red);
    EXPECT_EQ(Px(img, 25, 19), blue);
    l->setGradientBackColorStyle(2);
    img = Shown(*l);
    EXPECT_EQ(Px(img, 0, 0), red);
    EXPECT_EQ(Px(img, 49, 19), blue);
    l->setGradientBackColorStyle(3);
    img = Shown(*l);
    EXPECT_EQ(Px(img, 0, 19), red);
    EXPECT_EQ(Px(img, 49, 0), blue);
    // Plain back again.
    l->setBackColorStyle(0);
    EXPECT_EQ(Px(Shown(*l), 0, 19), Rgb(kWhite));
}

TEST(RichLabel, TransparentDrawsNoBack) {
    QWidget parent;
    parent.resize(100, 60);
    QPalette pal = parent.palette();
    pal.setColor(QPalette::Window, QColor(0, 255, 0));
    parent.setPalette(pal);
    parent.setAutoFillBackground(true);
    RichLabel l(&parent);
    l.setFont(CrispFont());
    l.setForeColor(kBlack);
    l.setBackColor(kRed);
    l.setGradientBackColorStart(kRed);
    l.setBackColorStyle(1);
    l.setGeometry(10, 10, 80, 40);
    parent.show();
    EXPECT_TRUE(l.Transparent());
    EXPECT_EQ(qAlpha(l.hdc().pixel(0, 0)), 0);
    QImage img = parent.grab().toImage().convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(Px(img, 11, 48), qRgb(0, 255, 0));
    EXPECT_FALSE(BoxOf(img, Rgb(kBlack)).isEmpty()); // the text is there
    l.setTransparent(false);
    img = parent.grab().toImage().convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(Px(img, 10, 48), Rgb(kRed));
}

TEST(RichLabel, AlignmentLeftRightAndCentre) {
    auto l = PlainLabel(QStringLiteral("Mm"), {200, 30});
    l->setEdgeSpace(4);
    const QRect left = BoxOf(Shown(*l), Rgb(kBlack));
    ASSERT_FALSE(left.isEmpty());
    EXPECT_LT(left.left(), 5 + 3);
    l->setAlignment(1);
    const QRect right = BoxOf(Shown(*l), Rgb(kBlack));
    EXPECT_GT(right.right(), 200 - 5 - 4);
    EXPECT_LE(right.right(), 200 - 5);
    EXPECT_EQ(right.width(), left.width());
    l->setAlignment(2);
    const QRect centre = BoxOf(Shown(*l), Rgb(kBlack));
    EXPECT_NEAR(centre.center().x(), 100, 3);
    EXPECT_EQ(centre.top(), left.top());
}

TEST(RichLabel, CentredWithoutWordWrapDrawsOneLine) {
    auto l = PlainLabel(QStringLiteral("a long headline that is wider than its label"), {80, 80});
    l->setAlignment(2);
    EXPECT_EQ(l->LineCount(), 1);
    const QImage img = Shown(*l);
    EXPECT_EQ(RowBands(img, Rgb(kBlack)), 1);
    // It overhangs both sides alike, so text touches both edges.
    const QRect box = BoxOf(img, Rgb(kBlack));
    EXPECT_LE(box.left(), 3);
    EXPECT_GE(box.right(), 76);
}

TEST(RichLabel, WordWrapDrawsTheCountedLines) {
    auto l = PlainLabel(QStringLiteral("aaa bbb ccc ddd"), {70, 200});
    EXPECT_EQ(l->LineCount(), 1);
    EXPECT_EQ(RowBands(Shown(*l), Rgb(kBlack)), 1);
    l->setWordWrap(true);
    EXPECT_GE(l->LineCount(), 2);
    EXPECT_EQ(RowBands(Shown(*l), Rgb(kBlack)), l->LineCount());
    // Line breaks in the text count too.
    l->setText(QStringLiteral("one\r\ntwo\r\nthree"));
    EXPECT_EQ(l->LineCount(), 3);
    EXPECT_EQ(RowBands(Shown(*l), Rgb(kBlack)), 3);
}

// ---- Mouse ----

TEST(RichLabelMouse, MoveInsideTakesThePointerAndMoveOutsideLetsItGoWithMouseLeave) {
    auto l = PlainLabel(QStringLiteral("x"), {50, 20});
    QList<QPointF> moved;
    int leaves = 0;
    QObject::connect(l.get(), &RichLabel::MouseMove,
                     [&](int, int, qreal x, qreal y) { moved << QPointF(x, y); });
    QObject::connect(l.get(), &RichLabel::MouseLeave, [&] { ++leaves; });
    Move(*l, {10, 10});
    EXPECT_EQ(moved.size(), 1);
    EXPECT_EQ(QWidget::mouseGrabber(), l.get());
    // The last pixel is inside; the width and height are outside, as is anything below 0.
    Move(*l, {49, 19});
    EXPECT_EQ(moved.size(), 2);
    EXPECT_EQ(leaves, 0);
    Move(*l, {50, 10});
    EXPECT_EQ(leaves, 1);
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
    for (QPointF p : {QPointF(10, 20), QPointF(-1, 5), QPointF(5, -0.5)}) {
        Move(*l, {10, 10});
        EXPECT_EQ(QWidget::mouseGrabber(), l.get());
        Move(*l, p);
        EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
    }
    EXPECT_EQ(leaves, 4);
    EXPECT_EQ(moved.size(), 5);
    EXPECT_EQ(moved.last(), QPointF(10, 10));
}

TEST(RichLabelMouse, PointerLeavingWhileAButtonIsHeld) {
    auto l = PlainLabel(QStringLiteral("x"), {50, 20});
    int leaves = 0, clicks = 0;
    QObject::connect(l.get(), &RichLabel::MouseLeave, [&] { ++leaves; });
    QObject::connect(l.get(), &RichLabel::Click, [&] { ++clicks; });
    Move(*l, {10, 10});
    Send(*l, QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton, Qt::LeftButton);
    Move(*l, {20, 10}, Qt::LeftButton);
    EXPECT_EQ(leaves, 0);
    Move(*l, {70, 10}, Qt::LeftButton);
    EXPECT_EQ(leaves, 1);
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
    // Further moves outside are no longer the label's.
    Move(*l, {80, 12}, Qt::LeftButton);
    EXPECT_EQ(leaves, 1);
    Send(*l, QEvent::MouseButtonRelease, {80, 12}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(clicks, 0);
}

TEST(RichLabelMouse, PressReleaseClickAndDoubleClick) {
    auto l = PlainLabel(QStringLiteral("x"), {50, 20});
    QStringList order;
    QObject::connect(l.get(), &RichLabel::MouseDown, [&](int b, int s, qreal x, qreal y) {
        order << QStringLiteral("down %1 %2 %3 %4").arg(b).arg(s).arg(x).arg(y);
    });
    QObject::connect(l.get(), &RichLabel::MouseUp,
                     [&](int b, int s, qreal, qreal) { order << QStringLiteral("up %1 %2").arg(b).arg(s); });
    QObject::connect(l.get(), &RichLabel::Click, [&] { order << QStringLiteral("click"); });
    QObject::connect(l.get(), &RichLabel::DblClick, [&] { order << QStringLiteral("dblclick"); });
    Send(*l, QEvent::MouseButtonPress, {5, 6}, Qt::LeftButton, Qt::LeftButton, Qt::ControlModifier);
    Send(*l, QEvent::MouseButtonRelease, {5, 6}, Qt::LeftButton, Qt::NoButton, Qt::ControlModifier);
    Send(*l, QEvent::MouseButtonDblClick, {5, 6}, Qt::LeftButton, Qt::LeftButton);
    Send(*l, QEvent::MouseButtonRelease, {5, 6}, Qt::LeftButton, Qt::NoButton);
    Send(*l, QEvent::MouseButtonPress, {7, 8}, Qt::RightButton, Qt::RightButton,
         Qt::ShiftModifier | Qt::AltModifier);
    Send(*l, QEvent::MouseButtonRelease, {60, 8}, Qt::RightButton, Qt::NoButton);
    EXPECT_EQ(order,
              QStringList({QStringLiteral("down 1 2 5 6"), QStringLiteral("up 1 2"), QStringLiteral("click"),
                           QStringLiteral("dblclick"), QStringLiteral("up 1 0"),
                           QStringLiteral("down 2 5 7 8"), QStringLiteral("up 2 0")}));
}

TEST(RichLabelMouse, HidingLetsThePointerGo) {
    auto l = PlainLabel(QStringLiteral("x"), {50, 20});
    Move(*l, {10, 10});
    EXPECT_EQ(QWidget::mouseGrabber(), l.get());
    l->hide();
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
}

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
