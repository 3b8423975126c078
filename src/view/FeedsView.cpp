#include "view/FeedsView.h"
#include "view/MouseArgs.h"

#include "app/workspace/Workspace.h"
#include "feeds/FeedContainers.h"
#include "feeds/FeedsState.h"
#include "platform/qt/HiDpiPictures.h"
#include "view/ElementView.h"
#include "view/ElementWidget.h"
#include "view/FeedWindows.h"
#include "view/HeadlinePanelWidget.h"
#include "view/MenuView.h"

#include <QAction>
#include <QCursor>
#include <QDateTime>
#include <QEvent>
#include <QFile>
#include <QIcon>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QTimer>

namespace pd {

namespace {

QColor FromBgr(int32_t c) {
    return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
}

// Keeps a child widget the size of its parent.
class FillParent : public QObject {
  public:
    FillParent(QWidget* child, QWidget* parent) : QObject(child), child_(child) {
        parent->installEventFilter(this);
        child->setGeometry(parent->rect());
    }
    bool eventFilter(QObject* watched, QEvent* ev) override {
        if (ev->type() == QEvent::Resize) child_->setGeometry(static_cast<QWidget*>(watched)->rect());
        return false;
    }

  private:
    QWidget* child_;
};

} // namespace

FeedsView::FeedsView(Workspace& ws, ElementView& view, MenuView& menus, QWidget* mainWindow,
                     std::function<void(const QString&, QWidget*)> registerWindow)
    : ws_(ws), view_(view), menus_(menus), main_(mainWindow),
      viewer_(std::make_unique<RSSViewWindow>(ws, ws.TwipsPerPixelX(), ws.TwipsPerPixelY())) {
    FeedsState& f = Feeds(ws);
    if (registerWindow) registerWindow(QStringLiteral("frmRSSView"), viewer_.get());
    f.onViewerChanged = [this] { viewer_->sync(); };
    f.showAddRSS = [this](FrmAddRSS& form) {
        AddRSSDialog dialog(ws_, form, main_);
        dialog.exec();
    };
    f.showSearch = [this](FrmRSSSearch& form) {
        RSSSearchDialog dialog(ws_, form, main_);
        dialog.exec();
        form.onChanged = nullptr;
    };
    f.onRssOverlay = [this](int i) { overlay(i); };
    // The refresh symbol covers its label, so the label's own repaint does not reach it: it follows
    // the label's caption, colours, place and owner as they change.
    view.onElementChanged = [this, previous = std::move(view.onElementChanged)](Element& e, Prop p) {
        if (previous) previous(e, p);
        if (&e == &ws_.lblRSSRefresh(0) || (refreshSymbol_ && e.Name() == QLatin1String("grpBorder")))
            refreshSymbol();
    };
    // With PERCHDOCK_STALL_LOG set, the event loop's stalls are written to that file for the end-to-end
    // test: a 10 ms timer notes each gap between its ticks above 50 ms, and each end of Refresh All.
    const QString stallLog = qEnvironmentVariable("PERCHDOCK_STALL_LOG");
    if (!stallLog.isEmpty()) {
        stallFile_ = std::make_unique<QFile>(stallLog);
        if (stallFile_->open(QIODevice::Append | QIODevice::Text)) {
            stallTimer_ = std::make_unique<QTimer>();
            stallClock_.start();
            QObject::connect(stallTimer_.get(), &QTimer::timeout, [this] {
                const qint64 gap = stallClock_.restart();
                if (gap > 50) note(QStringLiteral("stall %1").arg(gap));
            });
            stallTimer_->start(10);
            f.onRefreshAllDone = [this] { note(QStringLiteral("refresh-all-done")); };
        }
    }
}

void FeedsView::note(const QString& what) {
    if (!stallFile_) return;
    stallFile_->write(QStringLiteral("%1 %2\n").arg(QDateTime::currentMSecsSinceEpoch()).arg(what).toUtf8());
    stallFile_->flush();
}

FeedsView::~FeedsView() {
    view_.onElementChanged = nullptr;
    if (!ws_.FeedsStateSlot) return;
    FeedsState& f = Feeds(ws_);
    f.onViewerChanged = nullptr;
    f.showAddRSS = nullptr;
    f.showSearch = nullptr;
    f.onRssOverlay = nullptr;
    for (auto& p : f.Panels)
        if (p) p->onChanged = nullptr;
}

void FeedsView::overlay(int i) {
    auto* icon = qobject_cast<QWidget*>(view_.widget(ws_.ShrinkIcon(i)));
    if (!icon) return;
    const QString file = ws_.programFile(QStringLiteral("rss-small.ico"));
    // A missing mark is not drawn; nothing is said.
    if (!QFile::exists(file)) return;
    auto* mark = icon->findChild<QLabel*>(QStringLiteral("RssMark"));
    if (!mark) {
        mark = new QLabel(icon);
        mark->setObjectName(QStringLiteral("RssMark"));
        mark->setAttribute(Qt::WA_TransparentForMouseEvents);
        // The mark and its twin of twice the pixels: the icon gives the one for the screen's ratio.
        mark->setPixmap(LoadIcon(file).pixmap(QSize(16, 16), mark->devicePixelRatioF()));
        mark->setGeometry(16, 16, 16, 16);
    }
    mark->show();
    mark->raise();
}

void FeedsView::refreshSymbol() {
    auto* w = qobject_cast<QWidget*>(view_.widget(ws_.lblRSSRefresh(0)));
    if (!w) return;
    if (!refreshSymbol_) {
        refreshSymbol_ = new QLabel(w);
        refreshSymbol_->setObjectName(QStringLiteral("lblRSSRefreshSymbol"));
        refreshSymbol_->setAlignment(Qt::AlignCenter);
        refreshSymbol_->setAttribute(Qt::WA_TransparentForMouseEvents);
        refreshSymbol_->setAutoFillBackground(true);
        new FillParent(refreshSymbol_, w);
    }
    const Element& e = ws_.lblRSSRefresh(0);
    // The label's captions are symbol-font letters: "7" the refresh arrow, "," the busy hourglass.
    // Set only what changed: the label repaints with its owner, which calls this again.
    const QString symbol =
        e.Caption.get() == QLatin1String(",") ? QString(QChar(0x231B)) : QString(QChar(0x21BB));
    if (refreshSymbol_->text() != symbol) refreshSymbol_->setText(symbol);
    QPalette pal = refreshSymbol_->palette();
    const Element* owner = e.Container();
    const QColor back = FromBgr(owner ? owner->BackColor.get() : ws_.ContainerColor);
    const QColor fore = FromBgr(e.ForeColor);
    if (pal.color(QPalette::Window) != back || pal.color(QPalette::WindowText) != fore) {
        pal.setColor(QPalette::Window, back);
        pal.setColor(QPalette::WindowText, fore);
        refreshSymbol_->setPalette(pal);
    }
    const int size = std::max(8, w->height() - 2);
    if (refreshSymbol_->font().pixelSize() != size) {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(size);
        refreshSymbol_->setFont(font);
    }
}

void FeedsView::wireWidget(ElementWidget& w) {
    const QString& name = w.element().Name();
    const int i = w.element().Index();
    Workspace& ws = ws_;
    if (name == QLatin1String("LstRSS")) {
        auto* panel =
            new HeadlinePanelWidget(Feeds(ws).Panel(i), ws.TwipsPerPixelX(), ws.TwipsPerPixelY(), &w);
        new FillParent(panel, &w);
        panel->onRowMenu = [this](const QPoint& at) {
            if (QMenu* m = menus_.menu(QStringLiteral("mnuRightClick"))) m->popup(at);
        };
        panel->show();
    } else if (name == QLatin1String("lblRSSRefresh")) {
        w.onRelease = [&ws](ElementWidget&, QMouseEvent& ev) { lblRSSRefresh_MouseUp(ws, Button(ev)); };
        refreshSymbol();
    } else if (name == QLatin1String("PicRSSRefreshALL")) {
        w.onPress = [&ws](ElementWidget&, QMouseEvent& ev) { PicRSSRefreshALL_MouseDown(ws, Button(ev)); };
        w.onRelease = [this](ElementWidget&, QMouseEvent& ev) {
            const QString menu = PicRSSRefreshALL_MouseUp(ws_, Button(ev));
            if (menu.isEmpty()) return;
            if (QMenu* m = menus_.menu(menu)) {
                m->setDefaultAction(menus_.action(QStringLiteral("mnuRSSRefreshAll")));
                m->popup(ev.globalPosition().toPoint());
            }
        };
    } else if (name == QLatin1String("lblRSSLastUpdate")) {
        w.onMove = [&ws, i](ElementWidget&, QMouseEvent&) { lblRSSLastUpdate_MouseMove(ws, i); };
        w.onPress = [&ws](ElementWidget&, QMouseEvent& ev) {
            if (ev.button() != Qt::LeftButton) return;
            ws.TimerSuspendShrink.setEnabled(false);
            ws.TimerSuspendShrink.setEnabled(true);
        };
    } else if (name == QLatin1String("lblName")) {
        auto previous = w.onMove;
        w.onMove = [&ws, i, previous](ElementWidget& self, QMouseEvent& ev) {
            if (i >= 0 && i < static_cast<int>(ws.Containers.size()) && ws.Containers[i].IsFeed)
                FeedTitle_MouseMove(ws, i);
            if (previous) previous(self, ev);
        };
    }
}

} // namespace pd
