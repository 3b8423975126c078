// The program's own pictures and sounds, as committed in assets/: every picture loads with Qt's readers
// at its size, button corners are transparent, and every sound is short 16-bit mono PCM that starts and
// ends in silence.

#include <QColor>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

QString AssetPath(const QString& rel) {
    return QStringLiteral(PERCHDOCK_ASSETS_DIR) + QLatin1Char('/') + rel;
}

QImage Load(const QString& rel) {
    QImageReader reader(AssetPath(rel));
    QImage image = reader.read();
    EXPECT_FALSE(image.isNull()) << qPrintable(rel) << ": " << qPrintable(reader.errorString());
    return image;
}

bool Transparent(const QImage& image, int x, int y) { return qAlpha(image.pixel(x, y)) == 0; }

int CountOpaque(const QImage& image) {
    int n = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) == 255) ++n;
    return n;
}

const QStringList kButtons = {"shrinkall", "foldall", "rss",       "lock",     "unlock",
                              "dock",      "shrink",  "folderoff", "folderon", "noteshow",
                              "notehide",  "fold",    "unfold"};
const QString kButtonSet = QStringLiteral("Skin/Buttons/Plain White on Blue/");

// The plain files of a folder, without the twins of twice the pixels ("name@2x.png").
QStringList PlainFiles(const QString& rel) {
    QStringList files = QDir(AssetPath(rel)).entryList(QDir::Files, QDir::Name);
    files.removeIf([](const QString& f) { return f.contains(QLatin1String("@2x.")); });
    return files;
}

TEST(Assets, ButtonSetHasItsThirteenImagesAndNothingElse) {
    QDir dir(AssetPath(kButtonSet));
    ASSERT_TRUE(dir.exists());
    QStringList expected;
    for (const QString& b : kButtons) expected << b + ".gif";
    expected.sort();
    EXPECT_EQ(PlainFiles(kButtonSet), expected);
}

TEST(Assets, ButtonsAreSixteenPixelGifsWithTransparentCornersAndWhiteGlyphs) {
    for (const QString& name : kButtons) {
        SCOPED_TRACE(name.toStdString());
        const QString rel = kButtonSet + name + ".gif";
        EXPECT_EQ(QImageReader(AssetPath(rel)).format(), QByteArray("gif"));
        const QImage image = Load(rel);
        ASSERT_EQ(image.size(), QSize(16, 16));
        EXPECT_TRUE(image.hasAlphaChannel());
        for (auto [x, y] : {std::pair{0, 0}, {1, 0}, {0, 1}, {15, 0}, {14, 0}, {15, 1}, {0, 15}, {0, 14},
                            {1, 15}, {15, 15}, {14, 15}, {15, 14}})
            EXPECT_TRUE(Transparent(image, x, y)) << x << "," << y;
        // The blue square fills the rest, and a white glyph stands on it.
        EXPECT_EQ(CountOpaque(image), 256 - 12);
        int white = 0;
        int blue = 0;
        for (int y = 2; y < 14; ++y)
            for (int x = 2; x < 14; ++x) {
                const QColor c = image.pixelColor(x, y);
                if (c == Qt::white) ++white;
                else if (c.blue() > c.red() + 60 && c.blue() > c.green() + 30) ++blue;
            }
        EXPECT_GE(white, 16);
        EXPECT_GE(blue, 40);
    }
}

TEST(Assets, ButtonsAreAllDifferent) {
    std::vector<QImage> images;
    for (const QString& name : kButtons) images.push_back(Load(kButtonSet + name + ".gif"));
    for (size_t i = 0; i < images.size(); ++i)
        for (size_t j = i + 1; j < images.size(); ++j)
            EXPECT_NE(images[i], images[j]) << qPrintable(kButtons[int(i)]) << " " << qPrintable(kButtons[int(j)]);
}

TEST(Assets, AlarmClocksComeInFourColours) {
    // File and the colour that dominates its case: yellow, blue, green, red.
    const struct {
        const char* file;
        int hue;
    } clocks[] = {{"alarmclock.gif", 45}, {"alarmclockbl.gif", 220}, {"alarmclockgr.gif", 120},
                  {"alarmclockrd.gif", 0}};
    for (const auto& clock : clocks) {
        SCOPED_TRACE(clock.file);
        const QImage image = Load(clock.file);
        // Wide enough for a date and a time printed over the case.
        ASSERT_EQ(image.size(), QSize(90, 34));
        EXPECT_TRUE(Transparent(image, 0, 0));
        EXPECT_TRUE(Transparent(image, 89, 0));
        EXPECT_TRUE(Transparent(image, 0, 33));
        EXPECT_TRUE(Transparent(image, 89, 33));
        EXPECT_GT(CountOpaque(image), 2400);
        // The case under the text is the clock's colour, across its whole width.
        for (const int x : {12, 45, 78}) EXPECT_FALSE(Transparent(image, x, 16)) << x;
        const QColor rim = image.pixelColor(45, 14);
        EXPECT_GT(rim.saturation(), 120);
        const int d = std::abs(rim.hue() - clock.hue);
        EXPECT_LE(std::min(d, 360 - d), 25) << "hue " << rim.hue();
    }
}

void ExpectIcon(const QString& rel, const std::vector<int>& sizes) {
    SCOPED_TRACE(rel.toStdString());
    QImageReader reader(AssetPath(rel));
    ASSERT_EQ(reader.imageCount(), int(sizes.size()));
    for (size_t k = 0; k < sizes.size(); ++k) {
        ASSERT_TRUE(reader.jumpToImage(int(k)));
        const QImage image = reader.read();
        ASSERT_FALSE(image.isNull()) << qPrintable(reader.errorString());
        EXPECT_EQ(image.size(), QSize(sizes[k], sizes[k]));
        EXPECT_TRUE(image.hasAlphaChannel());
    }
}

TEST(Assets, IconsHoldTheirSizes) {
    ExpectIcon("emptyicon.ico", {32, 16});
    ExpectIcon("rss.ico", {32, 16});
    ExpectIcon("rss-small.ico", {16});
}

TEST(Assets, EmptyIconIsFaintAndEmpty) {
    const QImage image = Load("emptyicon.ico");
    EXPECT_TRUE(Transparent(image, 0, 0));
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) EXPECT_LT(qAlpha(image.pixel(x, y)), 160) << x << "," << y;
    EXPECT_LT(qAlpha(image.pixel(16, 16)), 40);
    EXPECT_GT(qAlpha(image.pixel(16, 3)), 80);  // the outline
}

TEST(Assets, FeedIconIsOrangeWithWhiteSymbol) {
    for (const QString& rel : {QStringLiteral("rss.ico"), QStringLiteral("rss-small.ico")}) {
        SCOPED_TRACE(rel.toStdString());
        const QImage image = Load(rel);
        int orange = 0;
        int white = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const QColor c = image.pixelColor(x, y);
                if (c.alpha() < 255) continue;
                if (c.red() > 200 && c.green() > 80 && c.green() < 190 && c.blue() < 80) ++orange;
                if (c.red() == 255 && c.green() == 255 && c.blue() == 255) ++white;
            }
        const int area = image.width() * image.height();
        EXPECT_GT(orange, area / 3);
        EXPECT_GT(white, area / 10);
    }
}

TEST(Assets, WallpaperIsADarkBlueJpeg) {
    const QString rel = QStringLiteral("Skin/Wallpaper/PlainWhiteOnBlue.jpg");
    EXPECT_EQ(QImageReader(AssetPath(rel)).format(), QByteArray("jpeg"));
    EXPECT_LT(QFileInfo(AssetPath(rel)).size(), 150 * 1024);
    const QImage image = Load(rel);
    ASSERT_EQ(image.size(), QSize(1024, 768));
    const QColor top = image.pixelColor(512, 4);
    const QColor bottom = image.pixelColor(512, 700);
    EXPECT_LT(top.lightness(), bottom.lightness());
    for (const QColor& c : {top, bottom}) {
        EXPECT_GT(c.blue(), c.red());
        EXPECT_GT(c.blue(), c.green());
        EXPECT_LT(c.lightness(), 80);
    }
    // Corners darker than the middle.
    EXPECT_LT(image.pixelColor(2, 765).lightness(), image.pixelColor(512, 600).lightness());
}

QStringList ReadLines(const QString& rel) {
    QFile f(AssetPath(rel));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << qPrintable(rel);
    const QByteArray all = f.readAll();
    EXPECT_TRUE(all.endsWith("\r\n"));
    QStringList lines = QString::fromLatin1(all).split(QStringLiteral("\r\n"));
    lines.removeLast();
    for (const QString& l : lines) EXPECT_FALSE(l.contains(QLatin1Char('\n'))) << "bare LF in " << qPrintable(rel);
    return lines;
}

TEST(Assets, DefaultColourSchemeAndTheme) {
    const QStringList colours = {"[1.01]",
                                 "[Background]",        " 2688768 ",
                                 "[PictureBorder]",     " 8388608 ",
                                 "[ContainerFor]",      " 2688768 ",
                                 "[ContainerLabel]",    " 16777215 ",
                                 "[ContainerTextBack]", " 14810623 ",
                                 "[ContainerTextFor]",  " 0 ",
                                 "[Foreground]",        " 16777215 "};
    EXPECT_EQ(ReadLines("Skin/Colors/plain white on blue.pkc"), colours);
    QStringList theme = colours;
    theme << "[Wallpaper]" << "PlainWhiteOnBlue.jpg" << "1" << "[Buttons]" << "Plain White on Blue";
    EXPECT_EQ(ReadLines("Skin/plain white on blue.pkt"), theme);
    // What the theme names is there.
    EXPECT_TRUE(QFileInfo::exists(AssetPath("Skin/Wallpaper/PlainWhiteOnBlue.jpg")));
    EXPECT_TRUE(QFileInfo(AssetPath(kButtonSet)).isDir());
}

// --- the further themes and colour schemes ---

const QStringList kColorKeys = {"[Background]",        "[PictureBorder]",    "[ContainerFor]", "[ContainerLabel]",
                                "[ContainerTextBack]", "[ContainerTextFor]", "[Foreground]"};

// The colour of a key in a file's lines, as 0x00BBGGRR.
uint32_t ColorOf(const QStringList& lines, const QString& key) {
    const qsizetype at = lines.indexOf(key);
    EXPECT_GE(at, 0) << qPrintable(key);
    if (at < 0 || at + 1 >= lines.size()) return 0;
    bool ok = false;
    const uint32_t v = lines[at + 1].trimmed().toUInt(&ok);
    EXPECT_TRUE(ok) << qPrintable(lines[at + 1]);
    return v;
}

// The contrast ratio of two colours (1 to 21), by their relative luminance.
double Contrast(uint32_t a, uint32_t b) {
    auto lum = [](uint32_t c) {
        auto ch = [](uint32_t v) {
            const double s = v / 255.0;
            return s <= 0.03928 ? s / 12.92 : std::pow((s + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * ch(c & 0xFF) + 0.7152 * ch((c >> 8) & 0xFF) + 0.0722 * ch((c >> 16) & 0xFF);
    };
    const double la = lum(a), lb = lum(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

void ExpectColourLines(const QStringList& lines) {
    ASSERT_GE(lines.size(), 15);
    EXPECT_EQ(lines[0], QStringLiteral("[1.01]"));
    for (int k = 0; k < kColorKeys.size(); ++k) {
        EXPECT_EQ(lines[1 + 2 * k], kColorKeys[k]);
        // Numbers as the program writes them: a blank, the digits, a blank.
        EXPECT_TRUE(lines[2 + 2 * k].startsWith(QLatin1Char(' ')) && lines[2 + 2 * k].endsWith(QLatin1Char(' ')))
            << qPrintable(lines[2 + 2 * k]);
    }
    // Text stays legible on what it stands on: the background, the containers, the notes.
    EXPECT_GE(Contrast(ColorOf(lines, "[Background]"), ColorOf(lines, "[Foreground]")), 7.0);
    EXPECT_GE(Contrast(ColorOf(lines, "[ContainerFor]"), ColorOf(lines, "[ContainerLabel]")), 7.0);
    EXPECT_GE(Contrast(ColorOf(lines, "[ContainerTextBack]"), ColorOf(lines, "[ContainerTextFor]")), 7.0);
}

QStringList Listed(const QString& folder, const QString& pattern) {
    return QDir(AssetPath(folder)).entryList({pattern}, QDir::Files, QDir::Name);
}

TEST(Assets, AtLeastFourThemesAndSixColourSchemesShip) {
    EXPECT_GE(Listed("Skin", "*.pkt").size(), 4);
    EXPECT_GE(Listed("Skin/Colors", "*.pkc").size(), 6);
    EXPECT_EQ(QDir(AssetPath("Skin/Buttons")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(),
              Listed("Skin", "*.pkt").size());
}

TEST(Assets, EveryColourSchemeHasTheSevenColoursLegibly) {
    for (const QString& f : Listed("Skin/Colors", "*.pkc")) {
        SCOPED_TRACE(f.toStdString());
        // Shown lower case in the lists, so named so on the disk.
        EXPECT_EQ(f, f.toLower());
        const QStringList lines = ReadLines("Skin/Colors/" + f);
        EXPECT_EQ(lines.size(), 15);
        ExpectColourLines(lines);
    }
}

TEST(Assets, EveryThemeNamesAWallpaperAndAButtonSetThatShip) {
    for (const QString& f : Listed("Skin", "*.pkt")) {
        SCOPED_TRACE(f.toStdString());
        EXPECT_EQ(f, f.toLower());
        const QStringList lines = ReadLines("Skin/" + f);
        ASSERT_EQ(lines.size(), 20);
        ExpectColourLines(lines);
        EXPECT_EQ(lines[15], QStringLiteral("[Wallpaper]"));
        EXPECT_EQ(lines[17], QStringLiteral("1"));
        EXPECT_EQ(lines[18], QStringLiteral("[Buttons]"));
        const QString wallpaper = "Skin/Wallpaper/" + lines[16];
        EXPECT_EQ(QImageReader(AssetPath(wallpaper)).format(), QByteArray("jpeg"));
        EXPECT_EQ(Load(wallpaper).size(), QSize(1024, 768));
        EXPECT_LT(QFileInfo(AssetPath(wallpaper)).size(), 150 * 1024);
        // The theme is named after its button set.
        EXPECT_EQ(lines[19].toLower() + ".pkt", f);
        const QString set = "Skin/Buttons/" + lines[19] + "/";
        QStringList expected;
        for (const QString& b : kButtons) expected << b + ".gif";
        expected.sort();
        EXPECT_EQ(PlainFiles(set), expected);
        std::vector<QImage> images;
        for (const QString& b : kButtons) {
            const QImage image = Load(set + b + ".gif");
            ASSERT_EQ(image.size(), QSize(16, 16)) << qPrintable(b);
            EXPECT_TRUE(Transparent(image, 0, 0) && Transparent(image, 15, 15)) << qPrintable(b);
            EXPECT_EQ(CountOpaque(image), 256 - 12) << qPrintable(b);
            images.push_back(image);
        }
        for (size_t i = 0; i < images.size(); ++i)
            for (size_t j = i + 1; j < images.size(); ++j) EXPECT_NE(images[i], images[j]);
        // The glyph stands out from the body of the button.
        const QImage fold = Load(set + "fold.gif");
        int lightest = 0, darkest = 255;
        for (int y = 2; y < 14; ++y)
            for (int x = 2; x < 14; ++x) {
                lightest = std::max(lightest, fold.pixelColor(x, y).lightness());
                darkest = std::min(darkest, fold.pixelColor(x, y).lightness());
            }
        EXPECT_GT(lightest - darkest, 90);
    }
}

TEST(Assets, TheThemesWallpapersDiffer) {
    QStringList seen;
    std::vector<QImage> images;
    for (const QString& f : Listed("Skin", "*.pkt")) {
        const QString name = ReadLines("Skin/" + f).value(16);
        EXPECT_FALSE(seen.contains(name)) << qPrintable(name);
        seen << name;
        images.push_back(Load("Skin/Wallpaper/" + name).scaled(64, 48));
    }
    for (size_t i = 0; i < images.size(); ++i)
        for (size_t j = i + 1; j < images.size(); ++j) EXPECT_NE(images[i], images[j]);
}

struct Wav {
    uint16_t format = 0, channels = 0, bits = 0;
    uint32_t rate = 0;
    std::vector<int16_t> samples;
};

uint32_t U32(const QByteArray& b, int at) {
    return uint32_t(uint8_t(b[at])) | uint32_t(uint8_t(b[at + 1])) << 8 | uint32_t(uint8_t(b[at + 2])) << 16 |
           uint32_t(uint8_t(b[at + 3])) << 24;
}
uint16_t U16(const QByteArray& b, int at) { return uint16_t(uint8_t(b[at]) | uint8_t(b[at + 1]) << 8); }

// Reads a RIFF WAVE file's format and data chunks.
bool ReadWav(const QString& rel, Wav& wav) {
    QFile f(AssetPath(rel));
    if (!f.open(QIODevice::ReadOnly)) return false;
    const QByteArray b = f.readAll();
    if (b.size() < 12 || !b.startsWith("RIFF") || b.mid(8, 4) != "WAVE") return false;
    if (U32(b, 4) != uint32_t(b.size() - 8)) return false;
    bool haveFormat = false;
    for (int at = 12; at + 8 <= b.size();) {
        const QByteArray id = b.mid(at, 4);
        const uint32_t len = U32(b, at + 4);
        const int body = at + 8;
        if (body + qint64(len) > b.size()) return false;
        if (id == "fmt ") {
            wav.format = U16(b, body);
            wav.channels = U16(b, body + 2);
            wav.rate = U32(b, body + 4);
            wav.bits = U16(b, body + 14);
            haveFormat = true;
        } else if (id == "data") {
            for (uint32_t i = 0; i + 1 < len; i += 2) wav.samples.push_back(int16_t(U16(b, body + int(i))));
        }
        at = body + int(len) + int(len & 1);
    }
    return haveFormat && !wav.samples.empty();
}

TEST(Assets, SoundsAreShortCleanPcm) {
    const struct {
        const char* file;
        double minSeconds, maxSeconds;
    } sounds[] = {{"alarm.wav", 1.0, 2.0},          {"click.wav", 0.03, 0.4},
                  {"fold.wav", 0.05, 0.4},          {"unfold.wav", 0.05, 0.4},
                  {"expand.wav", 0.05, 0.4},        {"shrink.wav", 0.05, 0.4},
                  {"container_mousedown.wav", 0.03, 0.2}, {"container_mouseup.wav", 0.03, 0.2}};
    for (const auto& s : sounds) {
        SCOPED_TRACE(s.file);
        Wav wav;
        ASSERT_TRUE(ReadWav(s.file, wav));
        EXPECT_EQ(wav.format, 1);  // PCM
        EXPECT_EQ(wav.channels, 1);
        EXPECT_EQ(wav.bits, 16);
        EXPECT_TRUE(wav.rate == 22050 || wav.rate == 44100) << wav.rate;
        const double seconds = double(wav.samples.size()) / wav.rate;
        EXPECT_GE(seconds, s.minSeconds);
        EXPECT_LE(seconds, s.maxSeconds);
        int peak = 0;
        for (int16_t v : wav.samples) peak = std::max(peak, std::abs(int(v)));
        EXPECT_LT(peak, 32767);      // never clipped
        EXPECT_GT(peak, 32767 / 8);  // and loud enough to hear
        // Starts and ends in silence, so it does not click.
        EXPECT_LE(std::abs(int(wav.samples.front())), 64);
        EXPECT_LE(std::abs(int(wav.samples.back())), 64);
    }
}

TEST(Assets, TapsRiseFromDownToUp) {
    // The release tap is a little higher than the press: count zero crossings over the same time.
    auto crossings = [](const Wav& w) {
        int n = 0;
        for (size_t i = 1; i < w.samples.size(); ++i)
            if ((w.samples[i - 1] < 0) != (w.samples[i] < 0)) ++n;
        return n;
    };
    Wav down, up;
    ASSERT_TRUE(ReadWav("container_mousedown.wav", down));
    ASSERT_TRUE(ReadWav("container_mouseup.wav", up));
    EXPECT_GT(crossings(up), crossings(down));
}

// Every picture has a twin of twice the pixels each way beside it, for screens of two device pixels per
// logical pixel: "fold@2x.png" beside "fold.gif" (PNG with smooth alpha), "rss@2x.png" doubling the
// largest size of "rss.ico", "GraphiteMint@2x.jpg" beside the wallpaper. The twin shows the same picture:
// scaled down to the plain size it is close to the plain image.
TEST(Assets, EveryPictureHasATwinOfTwiceThePixels) {
    QStringList pictures;
    QDirIterator it(AssetPath(""), {"*.gif", "*.ico", "*.jpg"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) pictures << QDir(AssetPath("")).relativeFilePath(it.next());
    pictures.removeIf([](const QString& f) { return f.contains(QLatin1String("@2x.")); });
    ASSERT_GE(pictures.size(), 13 * 4 + 17 + 4 + 3 + 4);
    for (const QString& rel : pictures) {
        SCOPED_TRACE(rel.toStdString());
        const QString base = rel.left(rel.lastIndexOf(QLatin1Char('.'))) + QStringLiteral("@2x");
        const QString twin = QFileInfo::exists(AssetPath(base + ".png")) ? base + ".png" : base + ".jpg";
        ASSERT_TRUE(QFileInfo::exists(AssetPath(twin)));
        const QImage plain = Load(rel).convertToFormat(QImage::Format_ARGB32);
        const QImage two = Load(twin).convertToFormat(QImage::Format_ARGB32);
        ASSERT_EQ(two.size(), plain.size() * 2);
        if (!rel.endsWith(QLatin1String(".jpg"))) {
            EXPECT_TRUE(two.hasAlphaChannel());
        }
        // Alike at the plain size: the mean difference of each channel, over the pixels at least half
        // opaque in both (the empty icon is faint all over).
        const QImage down = two.scaled(plain.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        double sum = 0;
        int n = 0;
        for (int y = 0; y < plain.height(); ++y)
            for (int x = 0; x < plain.width(); ++x) {
                const QRgb a = plain.pixel(x, y), b = down.pixel(x, y);
                if (qAlpha(a) < 128 || qAlpha(b) < 128) continue;
                sum += std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
                n += 3;
            }
        ASSERT_GT(n, 0);
        EXPECT_LT(sum / n, 24.0);
        // And finer: the twin is not the plain image with each pixel doubled.
        EXPECT_NE(two, plain.scaled(two.size(), Qt::IgnoreAspectRatio, Qt::FastTransformation));
    }
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

