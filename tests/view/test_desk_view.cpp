// Desk objects on the offscreen platform: GIF, JPEG, BMP and PNG pictures are read; a reminder's icon is
// painted with its date and time; a picture's image drags its frame; a note's editor reports its focus
// (leaving it saves) and Ctrl+A selects its text.

#include "app/MainWindow.h"
#include "desk/DeskState.h"
#include "desk/Notes.h"
#include "desk/Pictures.h"
#include "desk/Reminders.h"
#include "platform/qt/QtPlatform.h"
#include "support/TestWorkspace.h"
#include "view/DeskInput.h"
#include "view/ElementInput.h"
#include "view/ElementView.h"
#include "view/ElementWidget.h"
#include "view/MainView.h"
#include "view/MenuView.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

namespace {

struct DeskView : ::testing::Test {
    TestWorkspace t;
    Workspace& ws = *t.ws;
    TopWindow main{ws, ws.frmMain(0), Qt::FramelessWindowHint | Qt::Tool};
    ElementView view{ws, {{&ws.frmMain(0), &main}}};
    std::unique_ptr<MenuView> menus;
    std::unique_ptr<InputContext> input;
    QTemporaryDir dir;
    DeskView() {
        t.start();
        WireCoreCommands(ws);
        menus = std::make_unique<MenuView>(ws.menus, &main);
        ws.menuSink = menus.get();
        input = std::make_unique<InputContext>(InputContext{ws, main, *menus, nullptr});
        view.onWindowChanged = [this](Element& e, Prop p) {
            if (&e == &ws.frmMain(0)) main.apply(p);
        };
        view.onWidgetCreated = [this](ElementWidget& w) { WireElementInput(*input, w); };
        ws.onFocusRequest = [this](Element& e) {
            if (auto* w = qobject_cast<ElementWidget*>(view.widget(e))) w->focusEditor();
        };
        InstallDeskView(ws);
        view.attach();
        ws.frmMain(0).Move(1500, 1500, 10065, 5265);
        ws.picBack(0).Move(0, 0, 9000, 5000);
        main.applyAll();
    }
    QString WriteImage(const QString& name, QSize size, QColor fill) {
        const QString path = dir.filePath(name);
        if (name.endsWith(QLatin1String(".gif"))) {
            QFile f(path);
            EXPECT_TRUE(f.open(QIODevice::WriteOnly));
            f.write(PlainGif(size, fill));
            return path;
        }
        QImage img(size, QImage::Format_RGB32);
        img.fill(fill);
        EXPECT_TRUE(img.save(path)) << name.toStdString();
        return path;
    }
    // Qt writes no GIF: a GIF of one colour, its pixels coded as 3-bit literals with a clear code after
    // every two, so that the code width never grows.
    static QByteArray PlainGif(QSize size, QColor fill) {
        QByteArray g("GIF89a");
        auto word = [&g](int v) {
            g += char(v & 0xFF);
            g += char((v >> 8) & 0xFF);
        };
        word(size.width());
        word(size.height());
        g += char(0x81); // global colour table of 4 entries
        g += char(0);
        g += char(0);
        for (QColor c : {fill, fill, fill, fill}) {
            g += char(c.red());
            g += char(c.green());
            g += char(c.blue());
        }
        g += ',';
        word(0);
        word(0);
        word(size.width());
        word(size.height());
        g += char(0);
        g += char(2); // minimum code size
        QByteArray data;
        quint32 acc = 0;
        int bits = 0;
        auto code = [&](int c) {
            acc |= quint32(c) << bits;
            bits += 3;
            while (bits >= 8) {
                data += char(acc & 0xFF);
                acc >>= 8;
                bits -= 8;
            }
        };
        const int pixels = size.width() * size.height();
        for (int i = 0; i < pixels; ++i) {
            if (i % 2 == 0) code(4);
            code(0);
        }
        code(5);
        if (bits > 0) data += char(acc & 0xFF);
        for (int at = 0; at < data.size(); at += 255) {
            const QByteArray block = data.mid(at, 255);
            g += char(block.size());
            g += block;
        }
        g += char(0);
        g += ';';
        return g;
    }
    QImage Render(Element& e) {
        QWidget* w = view.widget(e);
        EXPECT_NE(w, nullptr);
        QImage img(w->size(), QImage::Format_ARGB32);
        img.fill(Qt::transparent);
        w->render(&img, QPoint(), QRegion(), QWidget::DrawChildren);
        return img;
    }
    static int Dark(const QImage& img) {
        int n = 0;
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x)
                n += qGray(img.pixel(x, y)) < 100 && qAlpha(img.pixel(x, y)) > 0;
        return n;
    }
    void Mouse(QWidget* w, QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons held) {
        QMouseEvent ev(type, at, w->mapToGlobal(at), button, held, Qt::NoModifier);
        QApplication::sendEvent(w, &ev);
    }
};

TEST_F(DeskView, GifJpegBmpAndPngPicturesAreRead) {
    QtPlatform platform;
    for (const char* name : {"a.gif", "b.jpg", "c.bmp", "d.png"}) {
        const QString path = WriteImage(QString::fromLatin1(name), QSize(40, 30), Qt::red);
        EXPECT_EQ(platform.imageSize(path), QSize(40, 30)) << name;
        EXPECT_FALSE(QPixmap(path).isNull()) << name;
    }
    QFile junk(dir.filePath(QStringLiteral("junk.gif")));
    ASSERT_TRUE(junk.open(QIODevice::WriteOnly));
    junk.write("not a picture");
    junk.close();
    EXPECT_FALSE(platform.imageSize(junk.fileName()).isValid());
}

TEST_F(DeskView, AReminderIconShowsItsDateAndTime) {
    const QString icon = WriteImage(QStringLiteral("alarmclock.gif"), QSize(120, 40), Qt::white);
    t.platform.images[icon] = QSize(120, 40);
    ASSERT_TRUE(AddReminder(ws, 600, 600, QStringLiteral("x"), QStringLiteral("Jan-1-2027"),
                            QStringLiteral("08:05 PM"), icon));
    Element& face = ws.picTemp(0);
    ASSERT_TRUE(face.Visible.get());
    const QImage printed = Render(face);
    EXPECT_GT(Dark(printed), 30) << "the date and time are printed on the icon";
    // Without its face the same icon is plain white.
    Desk(ws).Faces.clear();
    EXPECT_EQ(Dark(Render(face)), 0);
}

TEST_F(DeskView, DraggingThePictureMovesItsFrame) {
    const QString pic = WriteImage(QStringLiteral("p.png"), QSize(40, 30), Qt::blue);
    t.platform.images[pic] = QSize(40, 30);
    ws.DropX = 900;
    ws.DropY = 1200;
    t.platform.fileAnswers.push_back(pic);
    ws.menus["mnuAddPicture"].Click();
    ASSERT_EQ(ws.DeskObjectCount, 1);
    QWidget* image = view.widget(ws.imgPicture(0));
    ASSERT_NE(image, nullptr);
    Mouse(image, QEvent::MouseButtonPress, QPoint(10, 10), Qt::LeftButton, Qt::LeftButton);
    Mouse(image, QEvent::MouseMove, QPoint(30, 20), Qt::NoButton, Qt::LeftButton);
    Mouse(image, QEvent::MouseButtonRelease, QPoint(30, 20), Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(ws.picPlaceholder(0).Left.get(), 900.0f + 20 * 15);
    EXPECT_EQ(ws.picPlaceholder(0).Top.get(), 1200.0f + 10 * 15);
    EXPECT_EQ(view.widget(ws.picPlaceholder(0))->pos(), QPoint((900 + 300) / 15, (1200 + 150) / 15));
}

TEST_F(DeskView, ANotesEditorReportsItsFocusAndCtrlASelectsItsText) {
    main.show();
    main.activateWindow();
    QApplication::processEvents();
    ws.DropX = 600;
    ws.DropY = 600;
    ws.menus["mnuNewNote"].Click();
    const int n = ws.ContainerCount - 1;
    auto* editor = view.widget(ws.txtNote(n))->findChild<QPlainTextEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->setPlainText(QStringLiteral("buy milk"));
    QFocusEvent in(QEvent::FocusIn);
    QApplication::sendEvent(editor, &in);
    EXPECT_TRUE(NoteHasFocus(ws));
    EXPECT_EQ(ws.SelectedContainer, n);
    NoteSelectAll(ws);
    EXPECT_EQ(editor->textCursor().selectedText(), QStringLiteral("buy milk"));
    QFile::remove(t.dataFile(QStringLiteral("Perchdock.REC")));
    QFocusEvent out(QEvent::FocusOut);
    QApplication::sendEvent(editor, &out);
    EXPECT_FALSE(NoteHasFocus(ws));
    EXPECT_TRUE(t.dataExists(QStringLiteral("Perchdock.REC"))) << "leaving the note saved it";
    main.hide();
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
