// The workspace on a screen of two device pixels per logical pixel (the test runs with QT_SCALE_FACTOR=2
// on the offscreen platform): twips still count logical pixels (15 a pixel at 96 dpi), and what is drawn
// is drawn at the device pixels. A container's buttons, the alarm clock and the floating toolbar's icons
// come from their twins of twice the pixels (fold@2x.png beside fold.gif), not from a scaled plain
// image; a shortcut's icon is asked at its size in device pixels; a stretched picture is scaled to the
// device pixels of its element.

#include "app/MainWindow.h"
#include "desk/DeskState.h"
#include "desk/Reminders.h"
#include "platform/qt/FileIcons.h"
#include "platform/qt/HiDpiPictures.h"
#include "platform/qt/ProgramIcon.h"
#include "platform/qt/QtPlatform.h"
#include "shortcuts/LinkIcons.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"
#include "view/DeskInput.h"
#include "view/ElementInput.h"
#include "view/ElementView.h"
#include "view/ElementWidget.h"
#include "view/MainView.h"
#include "view/MenuView.h"
#include "view/ToolbarWindow.h"
#include "window/FloatingToolbar.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QScreen>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdlib>

using namespace pd;
using namespace pd::test;

namespace {

QString Asset(const QString& rel) {
    return QStringLiteral(PERCHDOCK_ASSETS_DIR) + QLatin1Char('/') + rel;
}

QImage Read(const QString& path) {
    QImage img = QImageReader(path).read().convertToFormat(QImage::Format_ARGB32);
    img.setDevicePixelRatio(1.0);
    return img;
}

bool Near(QRgb a, QRgb b, int tolerance) {
    return std::abs(qRed(a) - qRed(b)) <= tolerance && std::abs(qGreen(a) - qGreen(b)) <= tolerance &&
           std::abs(qBlue(a) - qBlue(b)) <= tolerance;
}

// Where the twin and the plain image scaled to the twin's size differ (the detail that only the twin
// has), how many pixels of `shown` (from `at`, in device pixels) are the twin's and how many the scaled
// plain image's.
struct Detail {
    int twin = 0;
    int scaled = 0;
    int places = 0;
};

Detail CompareDetail(const QImage& shown, QPoint at, const QString& plainFile) {
    const QImage twin = Read(DoubleResolutionFile(plainFile));
    const QImage scaled =
        Read(plainFile).scaled(twin.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    Detail d;
    for (int y = 0; y < twin.height(); ++y)
        for (int x = 0; x < twin.width(); ++x) {
            const QRgb t = twin.pixel(x, y), s = scaled.pixel(x, y);
            // Opaque in both, so that what lies behind does not count.
            if (qAlpha(t) < 255 || qAlpha(s) < 255 || Near(t, s, 40)) continue;
            ++d.places;
            const QRgb got = shown.pixel(at.x() + x, at.y() + y);
            if (Near(got, t, 12))
                ++d.twin;
            else if (Near(got, s, 12))
                ++d.scaled;
        }
    return d;
}

struct HiDpiView : ::testing::Test {
    TestWorkspace t;
    Workspace& ws = *t.ws;
    TopWindow main{ws, ws.frmMain(0), Qt::FramelessWindowHint | Qt::Tool};
    ElementView view{ws, {{&ws.frmMain(0), &main}}};
    std::unique_ptr<MenuView> menus;
    std::unique_ptr<InputContext> input;
    QTemporaryDir dir;

    HiDpiView() {
        t.start();
        WireCoreCommands(ws);
        menus = std::make_unique<MenuView>(ws.menus, &main);
        ws.menuSink = menus.get();
        input = std::make_unique<InputContext>(InputContext{ws, main, *menus, nullptr});
        view.onWindowChanged = [this](Element& e, Prop p) {
            if (&e == &ws.frmMain(0)) main.apply(p);
        };
        view.onWidgetCreated = [this](ElementWidget& w) { WireElementInput(*input, w); };
        InstallDeskView(ws);
        view.attach();
        ws.frmMain(0).Move(1500, 1500, 9000, 6000);
        ws.picBack(0).Move(0, 0, 9000, 6000);
        ws.picBack(0).BackColor = 0x303030;
        main.applyAll();
    }

    // The whole workspace window drawn into an image of its device pixels.
    QImage RenderWorkspace() {
        const qreal dpr = main.devicePixelRatioF();
        QImage img(main.size() * dpr, QImage::Format_ARGB32);
        img.setDevicePixelRatio(dpr);
        img.fill(Qt::transparent);
        main.render(&img, QPoint(), QRegion(), QWidget::DrawChildren);
        img.setDevicePixelRatio(1.0);
        return img;
    }
    // The top left corner of an element in the workspace image, in device pixels.
    QPoint Corner(Element& e) {
        QWidget* w = view.widget(e);
        EXPECT_NE(w, nullptr);
        return w ? w->mapTo(&main, QPoint(0, 0)) * 2 : QPoint();
    }
    // A picture of `size` pixels whose pixels alternate between black and white.
    QString WriteCheckerboard(const QString& name, int size) {
        QImage img(size, size, QImage::Format_RGB32);
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x)
                img.setPixel(x, y, (x + y) % 2 ? 0xFFFFFFFF : 0xFF000000);
        const QString path = dir.filePath(name);
        EXPECT_TRUE(img.save(path));
        return path;
    }
};

} // namespace

TEST_F(HiDpiView, TheScreenHasTwoDevicePixelsALogicalPixelAndTwipsCountLogicalPixels) {
    QScreen* screen = QGuiApplication::primaryScreen();
    ASSERT_NE(screen, nullptr);
    EXPECT_DOUBLE_EQ(screen->devicePixelRatio(), 2.0);
    EXPECT_DOUBLE_EQ(qApp->devicePixelRatio(), 2.0);
    // 96 dpi logical: 15 twips a logical pixel, as at a ratio of 1.
    EXPECT_DOUBLE_EQ(screen->logicalDotsPerInch(), 96.0);
    QtPlatform platform;
    EXPECT_FLOAT_EQ(platform.twipsPerPixelX(), 15.0f);
    EXPECT_FLOAT_EQ(platform.twipsPerPixelY(), 15.0f);
    // The screen's size in twips is its size in logical pixels (half its device pixels) times 15.
    EXPECT_FLOAT_EQ(platform.screenWidth(), static_cast<float>(screen->geometry().width()) * 15.0f);
    EXPECT_FLOAT_EQ(platform.screenHeight(), static_cast<float>(screen->geometry().height()) * 15.0f);
    // An element keeps its size in logical pixels: 9000 by 6000 twips are 600 by 400 pixels, drawn
    // with 1200 by 800 device pixels.
    EXPECT_EQ(main.size(), QSize(600, 400));
    EXPECT_EQ(RenderWorkspace().size(), QSize(1200, 800));
}

TEST_F(HiDpiView, TheWorkspaceDrawsTheTwinsOfButtonsAndAlarmClockAndShortcutIconsAtDevicePixels) {
    // A container, its fold button showing the default set's image.
    const int n = t.newContainerAt(300, 300);
    const QString fold = Asset(QStringLiteral("Skin/Buttons/Plain White on Blue/fold.gif"));
    ASSERT_FALSE(DoubleResolutionFile(fold).isEmpty()) << "fold@2x.png ships beside fold.gif";
    ws.chkFold(n).Picture = fold;
    ws.chkFold(n).Visible = true;
    // A shortcut to a picture of fine detail: its icon box of 32 logical pixels is 64 device pixels.
    const QString target = WriteCheckerboard(QStringLiteral("checks.png"), 64);
    AddShortcut(ws, target, ws.picBack(0));
    Element& box = ws.PicIcon(0);
    box.Move(4500, 600, 32 * 15, 32 * 15);
    DrawFileIcon(ws, 0);
    ASSERT_EQ(box.Picture.get(), QStringLiteral("fileicon:") + target);
    // An alarm clock.
    const QString clock = Asset(QStringLiteral("alarmclock.gif"));
    t.platform.images[clock] = QSize(90, 34);
    ASSERT_TRUE(AddReminder(ws, 5000, 3500, QStringLiteral("x"), QStringLiteral("Jan-1-2027"),
                            QStringLiteral("08:05 PM"), clock));
    Element& face = ws.picTemp(0);
    ASSERT_TRUE(face.Visible.get());
    main.show();
    QApplication::processEvents();

    const QImage shot = RenderWorkspace();
    ASSERT_EQ(shot.size(), main.size() * 2);
    if (const char* folder = std::getenv("PERCHDOCK_ARTIFACTS")) {
        QDir().mkpath(QString::fromLocal8Bit(folder));
        shot.save(QDir(QString::fromLocal8Bit(folder)).filePath(QStringLiteral("hidpi-view.png")));
    }

    // The button: the twin's detail, not the plain image's smooth scale.
    const Detail button = CompareDetail(shot, Corner(ws.chkFold(n)), fold);
    EXPECT_GT(button.places, 20);
    EXPECT_GE(button.twin, button.places * 9 / 10) << "twin " << button.twin << ", scaled " << button.scaled;
    EXPECT_EQ(button.scaled, 0);

    // The alarm clock: the same, where the printed date and time leave it bare.
    const Detail alarm = CompareDetail(shot, Corner(face), clock);
    EXPECT_GT(alarm.places, 100);
    EXPECT_GT(alarm.twin, alarm.places / 2) << "twin " << alarm.twin << ", scaled " << alarm.scaled;
    EXPECT_LT(alarm.scaled, alarm.twin / 10);

    // The shortcut's icon: every device pixel of the checkerboard, which a 32-pixel icon scaled up would
    // have lost to grey.
    const QPoint at = Corner(box);
    int alternating = 0;
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x + 1 < 64; ++x) {
            const int a = qGray(shot.pixel(at.x() + x, at.y() + y)),
                      b = qGray(shot.pixel(at.x() + x + 1, at.y() + y));
            alternating += std::abs(a - b) > 200;
        }
    EXPECT_GT(alternating, 64 * 63 * 9 / 10);
    main.hide();
}

TEST_F(HiDpiView, IconsAreMadeAtDevicePixels) {
    const QPixmap none = NoIconPixmap(16, 2.0);
    EXPECT_EQ(none.size(), QSize(32, 32));
    EXPECT_DOUBLE_EQ(none.devicePixelRatio(), 2.0);
    // An icon file's twin on a dense screen, its own largest size at a ratio of 1.
    const QString rss = Asset(QStringLiteral("rss.ico"));
    const QPixmap dense = FileIconPixmap(rss, 32, 2.0);
    EXPECT_EQ(dense.size(), QSize(64, 64));
    EXPECT_DOUBLE_EQ(dense.devicePixelRatio(), 2.0);
    EXPECT_EQ(dense.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied),
              Read(DoubleResolutionFile(rss)).convertToFormat(QImage::Format_ARGB32_Premultiplied));
    const QPixmap plain = FileIconPixmap(rss, 32, 1.0);
    EXPECT_EQ(plain.size(), QSize(32, 32));
    EXPECT_DOUBLE_EQ(plain.devicePixelRatio(), 1.0);
    // The program's own icon is drawn at twice the sizes that panels ask for.
    EXPECT_EQ(ProgramIcon().pixmap(QSize(64, 64), 2.0).size(), QSize(128, 128));
    EXPECT_EQ(ProgramIcon().pixmap(QSize(22, 22), 2.0).size(), QSize(44, 44));
    // The small mark of a feed container: its 16-pixel icon and its 32-pixel twin.
    const QPixmap mark = LoadIcon(Asset(QStringLiteral("rss-small.ico"))).pixmap(QSize(16, 16), 2.0);
    EXPECT_EQ(mark.size(), QSize(32, 32));
}

TEST_F(HiDpiView, APictureWithoutATwinIsScaledSmoothlyAndAStretchedOneToTheDevicePixels) {
    const QString plain = WriteCheckerboard(QStringLiteral("plain.png"), 8);
    EXPECT_TRUE(DoubleResolutionFile(plain).isEmpty());
    const QPixmap shown = LoadPicture(plain, 2.0);
    EXPECT_EQ(shown.size(), QSize(16, 16));
    EXPECT_EQ(shown.deviceIndependentSize(), QSizeF(8, 8));
    // A twin of another size beside it is taken, with its own ratio.
    QImage big(16, 16, QImage::Format_RGB32);
    big.fill(Qt::red);
    ASSERT_TRUE(big.save(dir.filePath(QStringLiteral("plain@2x.png"))));
    EXPECT_EQ(DoubleResolutionFile(plain), dir.filePath(QStringLiteral("plain@2x.png")));
    const QPixmap twin = LoadPicture(plain, 2.0);
    EXPECT_EQ(twin.toImage().pixelColor(3, 3), QColor(Qt::red));
    EXPECT_DOUBLE_EQ(twin.devicePixelRatio(), 2.0);
    EXPECT_DOUBLE_EQ(LoadPicture(plain, 1.0).devicePixelRatio(), 1.0);
    EXPECT_EQ(LoadPicture(plain, 1.0).size(), QSize(8, 8));
    // Stretched over 100 by 50 logical pixels: 200 by 100 device pixels.
    const QPixmap stretched = FillPicture(LoadPicture(plain, 2.0), QSize(100, 50), 2.0);
    EXPECT_EQ(stretched.size(), QSize(200, 100));
    EXPECT_EQ(stretched.deviceIndependentSize(), QSizeF(100, 50));
}

TEST_F(HiDpiView, TheFloatingToolbarDrawsTheTwinsOfItsIcons) {
    ToolbarWindow w(ws, QStringLiteral(PERCHDOCK_ASSETS_DIR));
    w.resize(272, 52);
    QImage img(w.size() * 2, QImage::Format_ARGB32);
    img.setDevicePixelRatio(2.0);
    img.fill(Qt::transparent);
    w.render(&img, QPoint(), QRegion(), QWidget::DrawChildren);
    img.setDevicePixelRatio(1.0);
    for (int k : {0, 6, 10}) {
        SCOPED_TRACE(k);
        // Icon k stands in a cell of 24 pixels, 4 from the left and top, its corner 7 left and up of the
        // cell's centre.
        const QPoint corner = (QRect(4 + k * 24, 4, 24, 24).center() - QPoint(7, 7)) * 2;
        const Detail d = CompareDetail(img, corner, Asset(ToolbarIconFile(k)));
        EXPECT_GT(d.places, 10);
        EXPECT_GE(d.twin, d.places * 9 / 10) << "twin " << d.twin << ", scaled " << d.scaled;
    }
}

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
