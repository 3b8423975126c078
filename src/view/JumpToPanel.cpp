#include "view/JumpToPanel.h"

#include "app/workspace/Workspace.h"
#include "platform/qt/FileIcons.h"
#include "shortcuts/FindState.h"
#include "shortcuts/JumpTo.h"
#include "view/ElementWidget.h"
#include "view/MainView.h"
#include "window/WindowServices.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace pd {

namespace {

constexpr int kIconPixels = 32;
constexpr int kKeyDown = 40;

// The icon at the device pixel ratio `dpr` of the screen it is shown on.
QPixmap IconFor(const QString& pic, qreal dpr) {
    if (pic.startsWith(QLatin1String("fileicon:"))) return FileIconPixmap(pic.mid(9), kIconPixels, dpr);
    if (pic.startsWith(QLatin1String("themeicon:"))) return ThemeIconPixmap(pic.mid(10), kIconPixels, dpr);
    if (pic.startsWith(QLatin1String("noicon:"))) return NoIconPixmap(kIconPixels, dpr);
    return {};
}

} // namespace

JumpSearchBox::JumpSearchBox(Workspace& ws, QWidget* parent) : QComboBox(parent), ws_(ws) {
    setObjectName(QStringLiteral("cboSearch"));
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    // The list is the program's, not a completer's.
    setCompleter(nullptr);
}

void JumpSearchBox::showPopup() {
    cboSearch_DropDown(ws_);
    QComboBox::showPopup();
}

JumpToPanel::JumpToPanel(Workspace& ws, QWidget* panel, QWidget* top)
    : QWidget(panel), ws_(ws), panel_(panel), top_(top) {
    setObjectName(QStringLiteral("JumpToPanelControls"));
    search_ = new JumpSearchBox(ws, this);
    icon_ = new QLabel(this);
    icon_->setObjectName(QStringLiteral("PicJumpToIcon"));
    label_ = new QLabel(this);
    label_->setObjectName(QStringLiteral("lblJumpToLink"));
    go_ = new QLabel(QStringLiteral("Go"), this);
    go_->setObjectName(QStringLiteral("lblGo"));
    go_->setToolTip(QStringLiteral("Launch"));
    go_->setCursor(Qt::PointingHandCursor);
    go_->setAlignment(Qt::AlignCenter);
    keys_ = new QLabel(QStringLiteral("[Enter] Start [Del] Delete"), this);
    keys_->setObjectName(QStringLiteral("Label1"));
    close_ = new QLabel(QStringLiteral("X"), top ? top : this);
    close_->setObjectName(QStringLiteral("lblClosePicJumpTo"));
    close_->setToolTip(
        QStringLiteral("Press the Esc key once to clear the search field and hit it twice to hide the "
                       "search box (or click the workspace)"));
    close_->setCursor(Qt::PointingHandCursor);
    close_->setAlignment(Qt::AlignCenter);
    for (QWidget* w : {static_cast<QWidget*>(go_), static_cast<QWidget*>(close_)})
        w->installEventFilter(this);
    search_->lineEdit()->installEventFilter(this);
    search_->installEventFilter(this);

    connect(search_->lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
        if (!syncing_) cboSearch_Change(ws_, text);
    });
    connect(search_, qOverload<int>(&QComboBox::activated), this, [this](int index) {
        if (!syncing_) cboSearch_Click(ws_, index);
    });
    Find(ws).onChanged = [this] { sync(); };
    sync();
}

void JumpToPanel::layoutControls() {
    const int w = panel_->width(), h = panel_->height();
    const float ty = ws_.TwipsPerPixelY();
    const int topH = static_cast<int>(kJumpToTopHeight / ty);
    setGeometry(0, topH, w, std::max(0, h - topH));
    const int ch = height();
    icon_->setGeometry(8, 6, kIconPixels, kIconPixels);
    label_->setGeometry(48, 4, w - 56, 16);
    search_->setGeometry(48, 22, w - 56 - 40, 24);
    go_->setGeometry(w - 44, 22, 36, 24);
    keys_->setGeometry(8, ch - 22, w - 16, 18);
    if (top_) close_->setGeometry(top_->width() - 22, 1, 18, std::max(1, top_->height() - 2));
}

void JumpToPanel::sync() {
    syncing_ = true;
    FindState& f = Find(ws_);
    const Element& panel = ws_.PicJumpToLink(0);
    layoutControls();
    // The panel's colours: its fore colour for the texts.
    QPalette pal = palette();
    pal.setColor(QPalette::WindowText, ToQColor(panel.ForeColor));
    for (QLabel* l : {label_, go_, keys_})
        l->setPalette(pal);
    QPalette topPal = close_->palette();
    topPal.setColor(QPalette::WindowText, ToQColor(ws_.PicJumpToLinkTop(0).ForeColor));
    close_->setPalette(topPal);
    QFont bold = go_->font();
    bold.setBold(true);
    go_->setFont(bold);
    close_->setFont(bold);
    label_->setText(f.lblJumpToLink);
    icon_->setPixmap(IconFor(f.JumpToIcon, icon_->devicePixelRatioF()));
    // The list first: refilling a combo box changes its edit text, which is put back after.
    QStringList items;
    for (const QString& s : f.cboSearchList)
        items.push_back(s);
    QStringList shown;
    for (int i = 0; i < search_->count(); ++i)
        shown.push_back(search_->itemText(i));
    if (items != shown) {
        search_->blockSignals(true);
        search_->clear();
        search_->addItems(items);
        search_->blockSignals(false);
    }
    if (search_->currentIndex() != f.ListIndex) {
        search_->blockSignals(true);
        search_->setCurrentIndex(f.ListIndex);
        search_->blockSignals(false);
    }
    QLineEdit* edit = search_->lineEdit();
    if (edit->text() != f.cboSearchText) {
        edit->setText(f.cboSearchText);
        edit->setCursorPosition(std::min(f.SelStart, static_cast<int>(f.cboSearchText.size())));
    }
    if (f.Busy != busy_) {
        busy_ = f.Busy;
        if (busy_)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    }
    if (f.FocusSearch && panel.Visible) {
        f.FocusSearch = false;
        panel_->window()->activateWindow();
        edit->setFocus(Qt::OtherFocusReason);
        edit->setCursorPosition(std::min(f.SelStart, static_cast<int>(edit->text().size())));
    }
    // A closed panel gives the keys back to the window, so that the next letter opens it again.
    if (!panel.Visible && edit->hasFocus()) panel_->window()->setFocus(Qt::OtherFocusReason);
    raise();
    syncing_ = false;
}

bool JumpToPanel::eventFilter(QObject* watched, QEvent* ev) {
    if (watched == go_ && ev->type() == QEvent::MouseButtonPress) {
        lblGo_Click(ws_);
        return true;
    }
    if (watched == close_ && ev->type() == QEvent::MouseButtonPress) {
        lblClosePicJumpTo_Click(ws_);
        return true;
    }
    if (watched == search_->lineEdit() || watched == search_) {
        if (ev->type() == QEvent::KeyPress) {
            auto* key = static_cast<QKeyEvent*>(ev);
            if (key->key() == Qt::Key_Down) {
                cboSearch_KeyDown(ws_, kKeyDown);
                return true;
            }
            // The window's key table sees the keys first (Enter, Del, Esc, the function keys); the
            // letters it leaves to the field while the panel shows.
            const int code = WindowKeyCode(*key);
            const bool windowKey = code == kKeyEnter || code == kKeyEscape || code == kKeyDelete ||
                                   code >= kKeyF1 || (KeyShift(*key) & 6) != 0;
            if (windowKey && code != 0 && Form_KeyDown(ws_, code, KeyShift(*key))) return true;
        } else if (ev->type() == QEvent::KeyRelease) {
            auto* key = static_cast<QKeyEvent*>(ev);
            if (!key->isAutoRepeat() && ws_.PicJumpToLink(0).Visible) cboSearch_KeyUp(ws_);
        }
    }
    return QWidget::eventFilter(watched, ev);
}

} // namespace pd
