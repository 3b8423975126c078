// Shortcuts on screen: the icon pictures drawn at the box's size, the pointer and the tooltip of a
// label, the launch mark's frame, and the "Add URL" dialog.

#include "platform/qt/AddUrlDialog.h"
#include "platform/qt/FileIcons.h"
#include "shortcuts/LinkIcons.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"
#include "view/ElementView.h"
#include "view/ElementWidget.h"
#include "view/MainView.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

namespace {

struct LinkView : ::testing::Test {
    TestWorkspace t;
    Workspace& ws = *t.ws;
    TopWindow main{ws, ws.frmMain(0), Qt::FramelessWindowHint | Qt::Tool};
    ElementView view{ws, {{&ws.frmMain(0), &main}}};

    LinkView() {
        view.onWindowChanged = [this](Element& e, Prop p) {
            if (&e == &ws.frmMain(0)) main.apply(p);
        };
        view.attach();
        ws.picBack(0).Move(0, 0, 6000, 6000);
        ws.picBack(0).BackColor = 0x000000;
    }

    // The widget of an element drawn on its own, as an image.
    QImage Render(Element& e) {
        QWidget* w = view.widget(e);
        EXPECT_NE(w, nullptr);
        QImage img(w->size(), QImage::Format_ARGB32);
        img.fill(Qt::transparent);
        w->render(&img, QPoint(), QRegion(), QWidget::DrawChildren);
        return img;
    }
    static int Opaque(const QImage& img) {
        int n = 0;
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x) n += qAlpha(img.pixel(x, y)) > 0;
        return n;
    }
};

} // namespace

TEST_F(LinkView, IconPicturesAreDrawnAtTheBoxSize) {
    for (int size : {16, 32}) {
        EXPECT_EQ(NoIconPixmap(size).size(), QSize(size, size));
        EXPECT_EQ(ThemeIconPixmap(QStringLiteral("utilities-terminal"), size).size(), QSize(size, size));
    }
    AddShortcut(ws, QStringLiteral("/nowhere/at/all.txt"), ws.picBack(0));
    Element& box = ws.PicIcon(0);
    box.Move(300, 300, 16 * 15, 16 * 15);
    DrawFileIcon(ws, 0);
    ASSERT_EQ(box.Picture.get(), QStringLiteral("noicon:"));
    const QImage small = Render(box);
    EXPECT_EQ(small.size(), QSize(16, 16));
    EXPECT_GT(Opaque(small), 10) << "the no-icon picture is drawn";
    // On the background the box is transparent around the icon: its corners show what lies behind.
    EXPECT_EQ(qAlpha(small.pixel(0, 0)), 0);

    box.Move(300, 300, 32 * 15, 32 * 15);
    const QImage large = Render(box);
    EXPECT_EQ(large.size(), QSize(32, 32));
    EXPECT_GT(Opaque(large), Opaque(small));
}

TEST_F(LinkView, ACommandShortcutShowsATerminal) {
    AddShortcut(ws, QStringLiteral("/bin/true"), ws.picBack(0));
    ws.Links[0].Command = 1;
    ws.PicIcon(0).Move(300, 300, 16 * 15, 16 * 15);
    DrawFileIcon(ws, 0);
    EXPECT_GT(Opaque(Render(ws.PicIcon(0))), 20);
}

TEST_F(LinkView, TheLabelFollowsPointerTooltipAndMark) {
    AddShortcut(ws, QStringLiteral("/data/a.txt"), ws.picBack(0));
    Element& label = ws.Link(0);
    QWidget* w = view.widget(label);
    ASSERT_NE(w, nullptr);
    label.MousePointer = 99;
    EXPECT_EQ(w->cursor().shape(), Qt::PointingHandCursor);
    label.MousePointer = 11;
    EXPECT_EQ(w->cursor().shape(), Qt::WaitCursor);
    label.MousePointer = 0;
    EXPECT_EQ(w->cursor().shape(), Qt::ArrowCursor);
    label.ToolTipText = QStringLiteral(" Size: 1.00 KB\r\n Location: /data");
    EXPECT_EQ(w->toolTip(), QStringLiteral(" Size: 1.00 KB\n Location: /data"));

    // The launch mark is a frame in the label's colour around it.
    label.Caption = QString();
    label.ForeColor = 0x0000FF;
    label.Move(600, 600, 600, 300);
    EXPECT_EQ(qAlpha(Render(label).pixel(0, 0)), 0);
    label.BorderStyle = 1;
    const QImage marked = Render(label);
    EXPECT_EQ(QColor(marked.pixel(0, 0)), QColor(0xFF, 0, 0));
    EXPECT_EQ(QColor(marked.pixel(marked.width() - 1, marked.height() - 1)), QColor(0xFF, 0, 0));
}

TEST(AddUrlDialog, AddsAndClosesOrStaysOpenForMore) {
    std::vector<QString> added;
    AddUrlDialog dialog([&](const QString& a) { added.push_back(a); });
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Add URL"));
    EXPECT_TRUE(dialog.windowFlags() & Qt::WindowStaysOnTopHint);
    auto* address = dialog.findChild<QLineEdit*>(QStringLiteral("txtAddress"));
    auto* keep = dialog.findChild<QCheckBox*>(QStringLiteral("chkKeepOpen"));
    auto* ok = dialog.findChild<QPushButton*>(QStringLiteral("OKButton"));
    auto* cancel = dialog.findChild<QPushButton*>(QStringLiteral("CancelButton"));
    ASSERT_TRUE(address && keep && ok && cancel);
    EXPECT_EQ(address->text(), QStringLiteral("http://"));
    EXPECT_EQ(address->selectedText(), QStringLiteral("http://"));
    EXPECT_EQ(keep->text(), QStringLiteral("&Keep Open"));
    EXPECT_EQ(keep->toolTip(), QStringLiteral("Keep this dialog open to quickly add more URLs"));
    EXPECT_EQ(ok->text(), QStringLiteral("&Add"));
    EXPECT_EQ(cancel->text(), QStringLiteral("&Close"));

    dialog.show();
    keep->setChecked(true);
    address->setText(QStringLiteral("https://one.example/"));
    ok->click();
    EXPECT_TRUE(dialog.isVisible()) << "Keep Open leaves the dialog open";
    EXPECT_EQ(address->selectedText(), QStringLiteral("https://one.example/"));
    keep->setChecked(false);
    address->setText(QStringLiteral("https://two.example/"));
    ok->click();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    ASSERT_EQ(added.size(), 2u);
    EXPECT_EQ(added[1], QStringLiteral("https://two.example/"));
}

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
