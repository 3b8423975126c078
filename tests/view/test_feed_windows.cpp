// The feed widgets on the offscreen platform: the headline panel draws its rows as labels named after
// their members with the bars in place and turns clicks into the panel's handlers; the add dialog, the
// search window and the viewer show their state with the exact captions; the viewer's browser loads
// no resource at all.

#include "app/MainWindow.h"
#include "feeds/FeedContainers.h"
#include "feeds/FeedSearch.h"
#include "feeds/FeedViewer.h"
#include "feeds/FeedsState.h"
#include "support/TestWorkspace.h"
#include "view/FeedWindows.h"
#include "view/HeadlinePanelWidget.h"
#include "view/RichLabel.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

namespace {

// A press and release of the left button in the middle of a widget.
void Click(QWidget* w) {
    const QPointF at(w->width() / 2.0, w->height() / 2.0);
    QMouseEvent press(QEvent::MouseButtonPress, at, w->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(w, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, at, w->mapToGlobal(at), Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QApplication::sendEvent(w, &release);
}

void Move(QWidget* w) {
    const QPointF at(2, 2);
    QMouseEvent move(QEvent::MouseMove, at, w->mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(w, &move);
}

QString Rss(int n, const QString& description = QStringLiteral("Body")) {
    QString xml = QStringLiteral(
        "<rss><channel><title>Chan</title><link>http://site/</link><description>d</description>");
    for (int k = 1; k <= n; ++k)
        xml += QStringLiteral("<item><title>Title "
                              "%1</title><link>http://site/%1</link><description>%2</description></item>")
                   .arg(k)
                   .arg(description);
    return xml + QStringLiteral("</channel></rss>");
}

class FeedWindows : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        WireCoreCommands(ws());
    }
    Workspace& ws() { return *t.ws; }
    int Add(int items, const QString& description = QStringLiteral("Body")) {
        const QString url = QStringLiteral("http://feeds.test/%1").arg(++count);
        t.platform.httpReplies[url] = {200, Rss(items, description).toUtf8(), "application/rss+xml"};
        QString u = url;
        EXPECT_TRUE(AddRSS(ws(), u, -1));
        return ws().ContainerCount - 1;
    }
    TestWorkspace t;
    int count = 0;
};

} // namespace

TEST_F(FeedWindows, ThePanelShowsItsRowsAndBars) {
    const int i = Add(12);
    ws().Group(i).Width = 4000;
    UserControl1& p = Feeds(ws()).Panel(ws().Containers[i].FeedIndex);
    ws().LstRSS(p.Index).Width = 3000;
    ws().LstRSS(p.Index).Height = 2000;
    FeedPanelResized(ws(), p.Index);
    p.SetScrolls();
    QWidget host;
    host.resize(200, 133);
    HeadlinePanelWidget w(p, 15, 15, &host);
    w.resize(200, 133);
    host.show();
    w.sync();
    auto* row3 = w.findChild<RichLabel*>(QStringLiteral("LblHeadline_3"));
    ASSERT_NE(row3, nullptr);
    EXPECT_EQ(row3->Text(), QStringLiteral("Title 4"));
    EXPECT_EQ(row3->y(), static_cast<int>(std::lround(p.Rows[3].Top / 15)));
    auto* v = w.findChild<QScrollBar*>(QStringLiteral("VScroll1"));
    ASSERT_NE(v, nullptr);
    EXPECT_TRUE(v->isEnabled());
    EXPECT_EQ(v->maximum(), p.VScrollMax());
    EXPECT_EQ(v->x(), 200 - 17);
    auto* h = w.findChild<QScrollBar*>(QStringLiteral("HScroll1"));
    ASSERT_NE(h, nullptr);
    EXPECT_FALSE(h->isEnabled());
    // The bar moves the sheet.
    v->setValue(300);
    EXPECT_EQ(p.VScrollVal(), 300);
    EXPECT_EQ(p.PicFeed.Top, -200.0f);
    QCoreApplication::processEvents();
    EXPECT_EQ(w.findChild<QWidget*>(QStringLiteral("PicFeed"))->y(),
              static_cast<int>(std::lround(-200 / 15.0)));
    // A click on a row opens the viewer on its item.
    Move(row3);
    Click(row3);
    EXPECT_TRUE(Feeds(ws()).Viewer.Visible);
    EXPECT_EQ(Feeds(ws()).Viewer.CurrentItem, 4);
    QCoreApplication::processEvents();
    EXPECT_EQ(row3->ForeColor(), 0xC0C0C0);
}

TEST_F(FeedWindows, TheAddDialogHasItsControlsAndAddsThroughTheCore) {
    FrmAddRSS form;
    AddRSSDialog d(ws(), form);
    EXPECT_EQ(d.windowTitle(), QStringLiteral("Add RSS News Feeds"));
    for (const char* name : {"cmdAdd", "cmdRemove", "OKButton", "CancelButton"})
        EXPECT_NE(d.findChild<QPushButton*>(name), nullptr) << name;
    EXPECT_EQ(d.findChild<QPushButton*>("cmdAdd")->text(), QStringLiteral("&Add"));
    EXPECT_EQ(d.findChild<QPushButton*>("cmdRemove")->text(), QStringLiteral("&Remove"));
    EXPECT_EQ(d.findChild<QPushButton*>("OKButton")->text(), QStringLiteral("&Process"));
    EXPECT_EQ(d.findChild<QPushButton*>("CancelButton")->text(), QStringLiteral("&Cancel"));
    EXPECT_EQ(d.findChild<QLabel*>("lblWait")->text(), QStringLiteral("Please Wait..."));
    d.show();
    EXPECT_FALSE(d.findChild<QLabel*>("lblWait")->isVisible());
    auto* txt = d.findChild<QLineEdit*>("txtRSS");
    EXPECT_EQ(txt->text(), QStringLiteral("http://"));
    txt->setText(QStringLiteral("http://feeds.test/a/"));
    d.findChild<QPushButton*>("cmdAdd")->click();
    EXPECT_EQ(d.findChild<QListWidget*>("lstFeeds")->count(), 1);
    EXPECT_EQ(d.findChild<QListWidget*>("lstFeeds")->item(0)->text(), QStringLiteral("http://feeds.test/a"));
    t.platform.httpReplies[QStringLiteral("http://feeds.test/a")] = {200, Rss(3).toUtf8(),
                                                                     "application/rss+xml"};
    d.findChild<QPushButton*>("OKButton")->click();
    EXPECT_TRUE(form.Closed);
    EXPECT_FALSE(d.isVisible());
    EXPECT_EQ(ws().RSSCount, 1);
}

TEST_F(FeedWindows, TheSearchWindowSearchesAsTheUserTypes) {
    Add(5);
    FrmRSSSearch form;
    RSSSearch_Load(ws(), form);
    RSSSearchDialog d(ws(), form);
    d.show();
    EXPECT_EQ(d.windowTitle(), QStringLiteral("Search RSS"));
    EXPECT_EQ(d.findChild<QCheckBox*>("chkHeadline")->text(), QStringLiteral("&Headlines"));
    EXPECT_EQ(d.findChild<QCheckBox*>("chkHeadline")->toolTip(), QStringLiteral("Search headlines"));
    EXPECT_EQ(d.findChild<QCheckBox*>("chkFull")->text(), QStringLiteral("&Descriptions"));
    EXPECT_EQ(d.findChild<QCheckBox*>("chkFull")->toolTip(), QStringLiteral("Search descriptions"));
    EXPECT_TRUE(d.findChild<QCheckBox*>("chkHeadline")->isChecked());
    d.findChild<QLineEdit*>("txtSearch")->setText(QStringLiteral("title 3"));
    EXPECT_EQ(d.windowTitle(), QStringLiteral("Results: 1"));
    EXPECT_TRUE(d.findChild<QPlainTextEdit*>("txtRSS")->toPlainText().contains(QStringLiteral("[Title 3]")));
    d.findChild<QCheckBox*>("chkHeadline")->setChecked(false);
    EXPECT_EQ(d.windowTitle(), QStringLiteral("Results: 0"));
}

TEST_F(FeedWindows, TheViewerShowsThePageAndStepsWithItsButtons) {
    Add(20, QStringLiteral("&lt;p&gt;Para &lt;img src='file:///etc/passwd'&gt; &lt;img "
                           "src='http://evil.test/x.png'&gt;&lt;/p&gt;"));
    RSSViewWindow window(ws(), 15, 15);
    Feeds(ws()).onViewerChanged = [&window] { window.sync(); };
    mnuRSSViewer_Click(ws());
    ASSERT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowTitle(), QStringLiteral("RSS Viewer"));
    EXPECT_TRUE(window.browser()->toPlainText().startsWith(QStringLiteral("1/20 Title 1")));
    EXPECT_TRUE(window.browser()->toPlainText().contains(QStringLiteral("Para")));
    // The images were asked for and refused: no local file, no remote fetch.
    EXPECT_GE(window.browser()->refused, 2);
    EXPECT_TRUE(t.platform.httpRequests.size() >= 1);
    for (const HttpRequest& r : t.platform.httpRequests)
        EXPECT_FALSE(r.url.contains(QLatin1String("evil")));
    EXPECT_EQ(window.findChild<QPushButton*>("cmdOpen")->text(), QStringLiteral("&Open"));
    EXPECT_EQ(window.findChild<QPushButton*>("cmdClose")->text(), QStringLiteral("&Close"));
    EXPECT_EQ(window.findChild<QPushButton*>("cmdRefresh")->toolTip(), QStringLiteral("Refresh News Feed"));
    EXPECT_EQ(window.findChild<QPushButton*>("cmdOnTop")->toolTip(),
              QStringLiteral("Keep visible and on top of other windows"));
    window.findChild<QPushButton*>("cmdBack")->click();
    EXPECT_TRUE(window.browser()->toPlainText().startsWith(QStringLiteral("20/20 Title 20")));
    window.findChild<QPushButton*>("cmdNext")->click();
    EXPECT_TRUE(window.browser()->toPlainText().startsWith(QStringLiteral("1/20 Title 1")));
    EXPECT_EQ(window.findChild<QComboBox*>("cboFeeds")->itemText(0), QStringLiteral("Chan"));
    window.findChild<QPushButton*>("cmdClose")->click();
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(Feeds(ws()).Viewer.Loaded);
    Feeds(ws()).onViewerChanged = nullptr;
}

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
