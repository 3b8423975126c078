// The feed marks of the workspace on the offscreen platform: a feed container's shrink icon carries the
// small feed mark (a plain container's does not), and the refresh label shows the refresh arrow at
// rest and the hourglass while busy, in its owner's colours, whatever its captions are.

#include "app/MainWindow.h"
#include "containers/Shrinking.h"
#include "feeds/FeedContainers.h"
#include "feeds/FeedsState.h"
#include "support/TestWorkspace.h"
#include "view/ElementInput.h"
#include "view/ElementView.h"
#include "view/ElementWidget.h"
#include "view/FeedsView.h"
#include "view/MainView.h"
#include "view/MenuView.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QLabel>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

namespace {

const QString kFeed = QStringLiteral("http://feeds.test/one");

struct FeedsViewTest : ::testing::Test {
    TestWorkspace t;
    Workspace& ws = *t.ws;
    TopWindow main{ws, ws.frmMain(0), Qt::FramelessWindowHint | Qt::Tool};
    ElementView view{ws, {{&ws.frmMain(0), &main}}};
    std::unique_ptr<MenuView> menus;
    std::unique_ptr<InputContext> input;
    std::unique_ptr<FeedsView> feeds;
    FeedsViewTest() {
        // The small mark beside the program, as the build puts it there.
        QImage mark(16, 16, QImage::Format_ARGB32);
        mark.fill(QColor(240, 140, 20));
        mark.save(QDir(t.programDir()).filePath(QStringLiteral("rss-small.ico")), "PNG");
        t.platform.httpReplies[kFeed] = {
            200,
            "<rss><channel><title>Chan</title><link>http://site/</link><description>d</description>"
            "<item><title>One</title><link>http://site/1</link><description>b</description></item>"
            "</channel></rss>",
            "application/rss+xml"};
        t.start();
        WireCoreCommands(ws);
        menus = std::make_unique<MenuView>(ws.menus, &main);
        ws.menuSink = menus.get();
        input = std::make_unique<InputContext>(InputContext{ws, main, *menus, nullptr});
        feeds = std::make_unique<FeedsView>(ws, view, *menus, &main);
        view.onWindowChanged = [this](Element& e, Prop p) {
            if (&e == &ws.frmMain(0)) main.apply(p);
        };
        view.onWidgetCreated = [this](ElementWidget& w) {
            WireElementInput(*input, w);
            feeds->wireWidget(w);
        };
        view.attach();
        ws.frmMain(0).Move(1500, 1500, 10065, 5265);
        ws.picBack(0).Move(0, 0, 9000, 5000);
        main.applyAll();
        main.show();
    }
    ~FeedsViewTest() override {
        ws.menuSink = nullptr;
    }
    QWidget* widget(Element& e) { return qobject_cast<QWidget*>(view.widget(e)); }
    QLabel* RssMark(int i) {
        QWidget* icon = widget(ws.ShrinkIcon(i));
        return icon ? icon->findChild<QLabel*>(QStringLiteral("RssMark")) : nullptr;
    }
    QLabel* RefreshSymbol() {
        QWidget* label = widget(ws.lblRSSRefresh(0));
        return label ? label->findChild<QLabel*>(QStringLiteral("lblRSSRefreshSymbol")) : nullptr;
    }
    void Settle() { QApplication::processEvents(); }
};

TEST_F(FeedsViewTest, AFeedContainersShrinkIconCarriesTheFeedMarkAndAPlainOneDoesNot) {
    QString url = kFeed;
    ASSERT_TRUE(AddRSS(ws, url, -1));
    const int feed = ws.ContainerCount - 1;
    const int plain = t.newContainerAt(5000, 600);
    ToggleShrink(ws, feed);
    ToggleShrink(ws, plain);
    Settle();
    ASSERT_TRUE(ws.ShrinkIcon(feed).Visible.get());
    QLabel* mark = RssMark(feed);
    ASSERT_NE(mark, nullptr);
    EXPECT_TRUE(mark->isVisibleTo(widget(ws.ShrinkIcon(feed))));
    EXPECT_FALSE(mark->pixmap().isNull()) << "the mark's image is drawn";
    // At the lower right of the 32-pixel icon, letting the mouse through to the icon.
    EXPECT_EQ(mark->geometry(), QRect(16, 16, 16, 16));
    EXPECT_TRUE(mark->testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(RssMark(plain), nullptr);
}

TEST_F(FeedsViewTest, TheRefreshLabelShowsTheArrowAtRestAndTheHourglassWhileBusy) {
    QString url = kFeed;
    ASSERT_TRUE(AddRSS(ws, url, -1));
    const int c = ws.ContainerCount - 1;
    Feeds(ws).HoverFeedContainer = static_cast<int16_t>(c);
    ShowRSSRefresh(ws);
    Element& label = ws.lblRSSRefresh(0);
    label.Visible = true;
    label.Caption = QStringLiteral("7");
    Settle();
    ASSERT_TRUE(widget(label)->isVisible());
    // A title button's size, at 300 twips in the title band.
    EXPECT_EQ(widget(label)->size(), QSize(16, 16));
    EXPECT_EQ(label.Left.get(), 300.0f);
    QLabel* symbol = RefreshSymbol();
    ASSERT_NE(symbol, nullptr);
    EXPECT_EQ(symbol->text(), QString(QChar(0x21BB)));
    // The owner's back colour behind the label's own text colour.
    const int32_t back = ws.grpBorder(c).BackColor.get();
    EXPECT_EQ(symbol->palette().color(QPalette::Window),
              QColor(back & 0xFF, (back >> 8) & 0xFF, (back >> 16) & 0xFF));
    const int32_t fore = label.ForeColor.get();
    EXPECT_EQ(symbol->palette().color(QPalette::WindowText),
              QColor(fore & 0xFF, (fore >> 8) & 0xFF, (fore >> 16) & 0xFF));
    label.Caption = QStringLiteral(",");
    Settle();
    EXPECT_EQ(RefreshSymbol()->text(), QString(QChar(0x231B)));
    label.Caption = QStringLiteral("7");
    Settle();
    EXPECT_EQ(RefreshSymbol()->text(), QString(QChar(0x21BB)));
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
