#include "view/FeedWindows.h"

#include "app/workspace/Workspace.h"
#include "feeds/FeedContainers.h"
#include "feeds/FeedSearch.h"
#include "feeds/FeedViewer.h"
#include "feeds/FeedsState.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

#include <cmath>

namespace pd {

// --- the browser ---

FeedBrowser::FeedBrowser(QWidget* parent) : QTextBrowser(parent) {
    setObjectName(QStringLiteral("Web"));
    setOpenLinks(false);
    setOpenExternalLinks(false);
    setSearchPaths({});
}

QVariant FeedBrowser::loadResource(int, const QUrl&) {
    ++refused;
    return {};
}

// --- Add RSS News Feeds ---

AddRSSDialog::AddRSSDialog(Workspace& ws, FrmAddRSS& form, QWidget* parent)
    : QDialog(parent), ws_(ws), f_(form) {
    setObjectName(QStringLiteral("frmAddRSS"));
    setWindowTitle(f_.Caption);
    setWindowFlag(Qt::WindowStaysOnTopHint);
    txtRSS_ = new QLineEdit(this);
    txtRSS_->setObjectName(QStringLiteral("txtRSS"));
    auto* cmdAdd = new QPushButton(QStringLiteral("&Add"), this);
    cmdAdd->setObjectName(QStringLiteral("cmdAdd"));
    cmdAdd->setAutoDefault(false);
    lstFeeds_ = new QListWidget(this);
    lstFeeds_->setObjectName(QStringLiteral("lstFeeds"));
    auto* cmdRemove = new QPushButton(QStringLiteral("&Remove"), this);
    cmdRemove->setObjectName(QStringLiteral("cmdRemove"));
    cmdRemove->setAutoDefault(false);
    auto* ok = new QPushButton(QStringLiteral("&Process"), this);
    ok->setObjectName(QStringLiteral("OKButton"));
    ok->setAutoDefault(false);
    auto* cancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cancel->setObjectName(QStringLiteral("CancelButton"));
    cancel->setAutoDefault(false);
    lblWait_ = new QLabel(QStringLiteral("Please Wait..."), this);
    lblWait_->setObjectName(QStringLiteral("lblWait"));
    // Places in pixels, as the dialog was drawn.
    txtRSS_->setGeometry(10, 10, 330, 24);
    cmdAdd->setGeometry(350, 10, 90, 26);
    lstFeeds_->setGeometry(10, 44, 330, 150);
    cmdRemove->setGeometry(350, 44, 90, 26);
    ok->setGeometry(350, 134, 90, 26);
    cancel->setGeometry(350, 168, 90, 26);
    lblWait_->setGeometry(10, 200, 200, 20);
    setFixedSize(450, 226);
    connect(txtRSS_, &QLineEdit::textEdited, this, [this](const QString& t) { f_.txtRSS = t; });
    connect(txtRSS_, &QLineEdit::returnPressed, this, [this] { AddRSS_cmdAdd(ws_, f_); });
    connect(lstFeeds_, &QListWidget::currentRowChanged, this, [this](int row) { f_.ListIndex = row; });
    connect(cmdAdd, &QPushButton::clicked, this, [this] {
        f_.txtRSS = txtRSS_->text();
        AddRSS_cmdAdd(ws_, f_);
        txtRSS_->setFocus();
    });
    connect(cmdRemove, &QPushButton::clicked, this, [this] { AddRSS_cmdRemove(ws_, f_); });
    connect(ok, &QPushButton::clicked, this, [this] {
        f_.txtRSS = txtRSS_->text();
        AddRSS_OKButton(ws_, f_);
    });
    connect(cancel, &QPushButton::clicked, this, [this] { AddRSS_Cancel(ws_, f_); });
    f_.onChanged = [this] {
        sync();
        if (f_.lblWaitVisible) repaint();
        if (f_.Closed) accept();
    };
    sync();
}

void AddRSSDialog::sync() {
    if (txtRSS_->text() != f_.txtRSS) txtRSS_->setText(f_.txtRSS);
    QStringList shown;
    for (int k = 0; k < lstFeeds_->count(); ++k)
        shown << lstFeeds_->item(k)->text();
    if (shown != f_.lstFeeds) {
        lstFeeds_->clear();
        lstFeeds_->addItems(f_.lstFeeds);
    }
    if (lstFeeds_->currentRow() != f_.ListIndex) lstFeeds_->setCurrentRow(f_.ListIndex);
    lblWait_->setVisible(f_.lblWaitVisible);
    if (f_.MousePointer == 11)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

void AddRSSDialog::showEvent(QShowEvent* ev) {
    QDialog::showEvent(ev);
    txtRSS_->setFocus();
    txtRSS_->selectAll();
}

void AddRSSDialog::reject() {
    f_.onChanged = nullptr;
    if (!f_.Closed) AddRSS_Cancel(ws_, f_);
    QDialog::reject();
}

// --- Search RSS ---

RSSSearchDialog::RSSSearchDialog(Workspace& ws, FrmRSSSearch& form, QWidget* parent)
    : QDialog(parent), ws_(ws), f_(form) {
    setObjectName(QStringLiteral("frmRSSSearch"));
    setWindowFlag(Qt::WindowStaysOnTopHint);
    txtSearch_ = new QLineEdit(this);
    txtSearch_->setObjectName(QStringLiteral("txtSearch"));
    chkHeadline_ = new QCheckBox(QStringLiteral("&Headlines"), this);
    chkHeadline_->setObjectName(QStringLiteral("chkHeadline"));
    chkHeadline_->setToolTip(QStringLiteral("Search headlines"));
    chkFull_ = new QCheckBox(QStringLiteral("&Descriptions"), this);
    chkFull_->setObjectName(QStringLiteral("chkFull"));
    chkFull_->setToolTip(QStringLiteral("Search descriptions"));
    txtRSS_ = new QPlainTextEdit(this);
    txtRSS_->setObjectName(QStringLiteral("txtRSS"));
    txtRSS_->setReadOnly(true);
    txtRSS_->setFont(QFont(QStringLiteral("Verdana"), 8));
    connect(txtSearch_, &QLineEdit::textChanged, this, [this](const QString& t) {
        if (syncing_) return;
        f_.txtSearch = t;
        txtSearch_Change(ws_, f_);
    });
    auto check = [this] {
        if (syncing_) return;
        f_.chkHeadline = chkHeadline_->isChecked();
        f_.chkFull = chkFull_->isChecked();
        txtSearch_->setFocus();
        RSSSearch_CheckClick(ws_, f_);
    };
    connect(chkHeadline_, &QCheckBox::toggled, this, check);
    connect(chkFull_, &QCheckBox::toggled, this, check);
    // Tab in reading order: the search text, the results under it, then the two boxes at the bottom.
    setTabOrder(txtSearch_, txtRSS_);
    setTabOrder(txtRSS_, chkHeadline_);
    setTabOrder(chkHeadline_, chkFull_);
    f_.onChanged = [this] { sync(); };
    resize(static_cast<int>(f_.Width / 15), static_cast<int>(f_.Height / 15));
    sync();
}

void RSSSearchDialog::sync() {
    syncing_ = true;
    setWindowTitle(f_.Caption);
    if (txtSearch_->text() != f_.txtSearch) txtSearch_->setText(f_.txtSearch);
    chkHeadline_->setChecked(f_.chkHeadline);
    chkFull_->setChecked(f_.chkFull);
    QString text = f_.txtRSS;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (txtRSS_->toPlainText() != text) txtRSS_->setPlainText(text);
    syncing_ = false;
}

void RSSSearchDialog::resizeEvent(QResizeEvent* ev) {
    QDialog::resizeEvent(ev);
    // In twips at 15 a pixel: the results fill the window above the two boxes.
    const int W = width() * 15, H = height() * 15;
    auto px = [](int twips) { return twips / 15; };
    txtRSS_->setGeometry(px(120), px(600), std::max(0, px(W - 525)), std::max(0, px(H - 1500)));
    txtSearch_->setGeometry(px(120), px(120), std::max(0, px(W - 525)), px(360));
    chkHeadline_->setGeometry(px(120), px(H - 900), px(1800), px(300));
    chkFull_->setGeometry(px(2100), px(H - 900), px(1800), px(300));
}

void RSSSearchDialog::showEvent(QShowEvent* ev) {
    QDialog::showEvent(ev);
    txtSearch_->setFocus();
}

// --- RSS Viewer ---

RSSViewWindow::RSSViewWindow(Workspace& ws, float twipsPerPixelX, float twipsPerPixelY)
    : QWidget(nullptr, Qt::Window), ws_(ws), tx_(twipsPerPixelX > 0 ? twipsPerPixelX : 15),
      ty_(twipsPerPixelY > 0 ? twipsPerPixelY : 15) {
    setObjectName(QStringLiteral("frmRSSView"));
    setWindowTitle(QStringLiteral("RSS Viewer"));
    web_ = new FeedBrowser(this);
    connect(web_, &QTextBrowser::anchorClicked, this, [this](const QUrl& url) {
        if (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"))
            ws_.platform.openUrl(url.toString());
    });
    auto button = [this](const char* name, const QString& text) {
        auto* b = new QPushButton(text, this);
        b->setObjectName(QString::fromLatin1(name));
        b->setAutoDefault(false);
        return b;
    };
    // The refresh and on-top glyphs: arrows that DejaVu Sans, present on every desktop, draws.
    cmdRefresh_ = button("cmdRefresh", QString(QChar(0x21BB)));
    cmdRefresh_->setToolTip(QString::fromLatin1(kRefreshNewsFeedTip));
    cboFeeds_ = new QComboBox(this);
    cboFeeds_->setObjectName(QStringLiteral("cboFeeds"));
    cboFeeds_->setFont(QFont(QStringLiteral("Verdana"), 8));
    cmdBack_ = button("cmdBack", QStringLiteral("<"));
    cmdNext_ = button("cmdNext", QStringLiteral(">"));
    cmdOpen_ = button("cmdOpen", QStringLiteral("&Open"));
    cmdClose_ = button("cmdClose", QStringLiteral("&Close"));
    cmdOnTop_ = button("cmdOnTop", QString(QChar(0x21E7)));
    cmdOnTop_->setToolTip(QString::fromLatin1(kOnTopTip));
    lblOnTop_ = new QLabel(QString(QChar(0x21EA)), this);
    lblOnTop_->setObjectName(QStringLiteral("lblOnTop"));
    lblOnTop_->setAlignment(Qt::AlignCenter);
    lblOnTop_->installEventFilter(this);
    connect(cmdRefresh_, &QPushButton::clicked, this, [this] { RSSView_cmdRefresh(ws_); });
    connect(cmdBack_, &QPushButton::clicked, this, [this] { RSSView_cmdBack(ws_); });
    connect(cmdNext_, &QPushButton::clicked, this, [this] { RSSView_cmdNext(ws_); });
    connect(cmdOpen_, &QPushButton::clicked, this, [this] { RSSView_cmdOpen(ws_); });
    connect(cmdClose_, &QPushButton::clicked, this, [this] { RSSView_cmdClose(ws_); });
    connect(cmdOnTop_, &QPushButton::clicked, this, [this] {
        RSSView_cmdOnTop(ws_);
        web_->setFocus();
    });
    connect(cboFeeds_, qOverload<int>(&QComboBox::activated), this, [this](int k) {
        if (!syncing_) RSSView_cboFeedsClick(ws_, k);
    });
    hide();
}

void RSSViewWindow::place(QWidget* w, float left, float top, float width, float height) {
    w->setGeometry(static_cast<int>(std::lround(left / tx_)), static_cast<int>(std::lround(top / ty_)),
                   std::max(0, static_cast<int>(std::lround(width / tx_))),
                   std::max(0, static_cast<int>(std::lround(height / ty_))));
}

void RSSViewWindow::sync() {
    const FrmRSSView& v = Feeds(ws_).Viewer;
    syncing_ = true;
    if (!v.Loaded || !v.Visible) {
        shown_ = false;
        hide();
        syncing_ = false;
        return;
    }
    if (!shown_) {
        setGeometry(static_cast<int>(std::lround(v.Left / tx_)), static_cast<int>(std::lround(v.Top / ty_)),
                    static_cast<int>(std::lround(v.Width / tx_)),
                    static_cast<int>(std::lround(v.Height / ty_)));
    }
    QStringList items;
    for (int k = 0; k < cboFeeds_->count(); ++k)
        items << cboFeeds_->itemText(k);
    if (items != v.cboFeeds) {
        cboFeeds_->clear();
        cboFeeds_->addItems(v.cboFeeds);
    }
    cboFeeds_->setCurrentIndex(v.ListIndex);
    if (v.Document != shownDocument_ || web_->toPlainText().isEmpty() != v.Document.isEmpty()) {
        shownDocument_ = v.Document;
        web_->setHtml(v.Document);
    }
    cmdOnTop_->setEnabled(v.cmdOnTop.Enabled);
    setCursor(v.MousePointer == 11 ? Qt::WaitCursor : Qt::ArrowCursor);
    place(web_, v.Web.Left, v.Web.Top, v.Web.Width, v.Web.Height);
    place(cmdRefresh_, v.cmdRefresh.Left, v.cmdRefresh.Top, v.cmdRefresh.Width, v.cmdRefresh.Height);
    place(cboFeeds_, v.cboFeeds_.Left, v.cboFeeds_.Top, v.cboFeeds_.Width, v.cboFeeds_.Height);
    place(cmdBack_, v.cmdBack.Left, v.cmdBack.Top, v.cmdBack.Width, v.cmdBack.Height);
    place(cmdNext_, v.cmdNext.Left, v.cmdNext.Top, v.cmdNext.Width, v.cmdNext.Height);
    place(cmdOpen_, v.cmdOpen.Left, v.cmdOpen.Top, v.cmdOpen.Width, v.cmdOpen.Height);
    place(cmdClose_, v.cmdClose.Left, v.cmdClose.Top, v.cmdClose.Width, v.cmdClose.Height);
    place(cmdOnTop_, v.cmdOnTop.Left, v.cmdOnTop.Top, v.cmdOnTop.Width, v.cmdOnTop.Height);
    place(lblOnTop_, v.lblOnTop.Left, v.lblOnTop.Top, v.lblOnTop.Width, v.lblOnTop.Height);
    lblOnTop_->setVisible(!v.cmdOnTop.Enabled);
    lblOnTop_->raise();
    if (!shown_) {
        shown_ = true;
        show();
        raise();
        activateWindow();
        web_->setFocus();
    }
    syncing_ = false;
}

void RSSViewWindow::resizeEvent(QResizeEvent* ev) {
    QWidget::resizeEvent(ev);
    if (syncing_ || !shown_) return;
    FrmRSSView& v = Feeds(ws_).Viewer;
    v.Width = width() * tx_;
    v.Height = height() * ty_;
    RSSView_Resize(ws_);
    if (std::lround(v.Width / tx_) != width() || std::lround(v.Height / ty_) != height())
        resize(static_cast<int>(std::lround(v.Width / tx_)), static_cast<int>(std::lround(v.Height / ty_)));
    sync();
}

void RSSViewWindow::moveEvent(QMoveEvent* ev) {
    QWidget::moveEvent(ev);
    if (syncing_ || !shown_) return;
    FrmRSSView& v = Feeds(ws_).Viewer;
    v.Left = x() * tx_;
    v.Top = y() * ty_;
}

void RSSViewWindow::changeEvent(QEvent* ev) {
    QWidget::changeEvent(ev);
    if (ev->type() != QEvent::WindowStateChange) return;
    FrmRSSView& v = Feeds(ws_).Viewer;
    v.WindowState = isMinimized() ? 1 : isMaximized() ? 2 : 0;
}

void RSSViewWindow::closeEvent(QCloseEvent* ev) {
    if (Feeds(ws_).Viewer.Loaded) RSSView_Unload(ws_);
    ev->accept();
}

bool RSSViewWindow::eventFilter(QObject* watched, QEvent* ev) {
    if (watched == lblOnTop_ && ev->type() == QEvent::MouseButtonRelease) {
        RSSView_lblOnTop(ws_);
        return true;
    }
    return QWidget::eventFilter(watched, ev);
}

void RSSViewWindow::keyPressEvent(QKeyEvent* ev) {
    if (ev->key() == Qt::Key_Escape) {
        RSSView_cmdClose(ws_);
        return;
    }
    QWidget::keyPressEvent(ev);
}

} // namespace pd
