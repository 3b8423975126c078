#include "view/HeadlinePanelWidget.h"
#include "view/MouseArgs.h"

#include "feeds/HeadlinePanel.h"
#include "view/RichLabel.h"
#include "view/Accessibility.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

#include <cmath>

namespace pd {

namespace {

QColor FromBgr(int32_t c) {
    return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
}

} // namespace

// PicFeed: the moving sheet; draws the bullets, the rules and the hover underline under the labels.
class HeadlinePanelWidget::Sheet : public QWidget {
  public:
    Sheet(HeadlinePanelWidget& owner, QWidget* parent) : QWidget(parent), o_(owner) {
        setObjectName(QStringLiteral("PicFeed"));
        setMouseTracking(true);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        const UserControl1& u = o_.p_;
        p.fillRect(rect(), FromBgr(u.FeedBackColorValue));
        for (const HeadlineRow& r : u.Rows) {
            if (!r.Loaded) continue;
            if (r.BulletVisible) {
                p.fillRect(QRect(o_.px(r.BulletLeft), o_.py(r.BulletTop), std::max(1, o_.px(r.BulletSize)),
                                 std::max(1, o_.py(r.BulletSize))),
                           QColor(0xC0, 0xC0, 0xC0));
            }
            if (r.SepVisible) {
                p.setPen(QColor(0xE0, 0xE0, 0xE0));
                p.drawLine(o_.px(r.SepX1), o_.py(r.SepY1), o_.px(r.SepX2), o_.py(r.SepY2));
            }
        }
        if (u.UnderlineVisible) {
            p.setPen(QColor(0, 0, 255));
            p.drawLine(o_.px(u.UnderX1), o_.py(u.UnderY1), o_.px(u.UnderX2), o_.py(u.UnderY2));
        }
    }

  private:
    HeadlinePanelWidget& o_;
};

HeadlinePanelWidget::HeadlinePanelWidget(UserControl1& panel, float twipsPerPixelX, float twipsPerPixelY,
                                         QWidget* parent)
    : QWidget(parent), p_(panel), tx_(twipsPerPixelX > 0 ? twipsPerPixelX : 15),
      ty_(twipsPerPixelY > 0 ? twipsPerPixelY : 15) {
    setObjectName(QStringLiteral("UserControl1"));
    setAccessibleName(QStringLiteral("Headlines"));
    back_ = new QWidget(this);
    back_->setObjectName(QStringLiteral("picBack"));
    back_->setMouseTracking(true);
    back_->installEventFilter(this);
    sheet_ = new Sheet(*this, back_);
    sheet_->installEventFilter(this);
    v_ = new QScrollBar(Qt::Vertical, this);
    v_->setObjectName(QStringLiteral("VScroll1"));
    h_ = new QScrollBar(Qt::Horizontal, this);
    h_->setObjectName(QStringLiteral("HScroll1"));
    connect(v_, &QScrollBar::valueChanged, this, [this](int v) {
        if (!syncing_) p_.setVScrollVal(v);
    });
    connect(h_, &QScrollBar::valueChanged, this, [this](int v) {
        if (!syncing_) p_.setHScrollVal(v);
    });
    connect(v_, &QScrollBar::sliderMoved, this, [this](int) { p_.Scroll_Drag(); });
    connect(h_, &QScrollBar::sliderMoved, this, [this](int) { p_.Scroll_Drag(); });
    p_.onChanged = [this] { scheduleSync(); };
    sync();
}

HeadlinePanelWidget::~HeadlinePanelWidget() {
    p_.onChanged = nullptr;
}

int HeadlinePanelWidget::px(float twips) const {
    return static_cast<int>(std::lround(twips / tx_));
}
int HeadlinePanelWidget::py(float twips) const {
    return static_cast<int>(std::lround(twips / ty_));
}

void HeadlinePanelWidget::scheduleSync() {
    if (pending_) return;
    pending_ = true;
    QTimer::singleShot(0, this, [this] {
        if (pending_) sync();
    });
}

void HeadlinePanelWidget::sync() {
    pending_ = false;
    syncing_ = true;
    const UserControl1& u = p_;
    back_->setGeometry(px(u.picBack.Left), py(u.picBack.Top), std::max(0, px(u.picBack.Width)),
                       std::max(0, py(u.picBack.Height)));
    sheet_->setGeometry(px(u.PicFeed.Left), py(u.PicFeed.Top), std::max(0, px(u.PicFeed.Width)),
                        std::max(0, py(u.PicFeed.Height)));
    sheet_->setCursor(u.PicFeedPointer == 99 ? Qt::PointingHandCursor : Qt::ArrowCursor);
    QPalette pal = back_->palette();
    pal.setColor(QPalette::Window, FromBgr(u.FeedBackColorValue));
    back_->setPalette(pal);
    back_->setAutoFillBackground(true);
    for (auto [bar, s] : {std::pair{v_, &u.VScroll1}, std::pair{h_, &u.HScroll1}}) {
        bar->setGeometry(px(s->Left), py(s->Top), std::max(0, px(s->Width)), std::max(0, py(s->Height)));
        bar->setRange(std::min(s->Min, s->Max), std::max(s->Min, s->Max));
        bar->setValue(s->Value);
        bar->setSingleStep(s->SmallChange);
        bar->setPageStep(s->LargeChange);
        bar->setEnabled(s->Enabled);
    }
    size_t n = u.Rows.size();
    while (rows_.size() > n) {
        delete rows_.back();
        rows_.pop_back();
    }
    for (size_t r = 0; r < n; ++r) {
        const HeadlineRow& row = u.Rows[r];
        if (rows_.size() <= r) {
            auto* label = new RichLabel(sheet_);
            label->setObjectName(QStringLiteral("LblHeadline_%1").arg(r));
            label->setAutoSize(false);
            label->setBorderSize(0);
            label->setEdgeSpace(0);
            label->setMouseTracking(true);
            label->installEventFilter(this);
            label->setProperty("row", static_cast<int>(r));
            rows_.push_back(label);
        }
        RichLabel* label = rows_[r];
        if (label->Text() != row.Text) {
            label->setText(row.Text);
            // A screen reader reads the row by its headline.
            NotifyAccessibleNameChanged(label);
        }
        label->setForeColor(row.ForeColor);
        label->setBackColor(row.BackColor);
        label->setTransparent(row.Transparent);
        QFont f(row.FontName);
        f.setPointSizeF(8);
        label->setFont(f);
        label->setGeometry(px(row.Left), py(row.Top), std::max(1, px(row.Width)),
                           std::max(1, py(row.Height)));
        label->setVisible(row.Loaded && row.Visible);
    }
    sheet_->update();
    syncing_ = false;
}

void HeadlinePanelWidget::resizeEvent(QResizeEvent* ev) {
    QWidget::resizeEvent(ev);
    sync();
}

void HeadlinePanelWidget::wheelEvent(QWheelEvent* ev) {
    p_.MouseWheel(ev->angleDelta().y());
    ev->accept();
}

bool HeadlinePanelWidget::eventFilter(QObject* watched, QEvent* ev) {
    const QVariant row = watched->property("row");
    if (row.isValid()) {
        const int r = row.toInt();
        switch (ev->type()) {
        case QEvent::MouseButtonPress:
            p_.LblHeadline_MouseDown(r);
            return true;
        case QEvent::MouseMove:
            p_.LblHeadline_MouseMove(r);
            return false;
        case QEvent::Leave:
            p_.LblHeadline_MouseLeave();
            return false;
        case QEvent::MouseButtonRelease: {
            auto* me = static_cast<QMouseEvent*>(ev);
            const int button = Button(*me);
            p_.LblHeadline_MouseUp(r, button, Shift(*me));
            if (button != 1 && onRowMenu) onRowMenu(me->globalPosition().toPoint());
            return true;
        }
        default:
            return false;
        }
    }
    if (watched == back_ || watched == sheet_) {
        switch (ev->type()) {
        case QEvent::MouseMove:
            p_.Back_MouseMove();
            return false;
        case QEvent::MouseButtonPress:
            p_.Back_MouseDown(Button(*static_cast<QMouseEvent*>(ev)));
            return false;
        case QEvent::MouseButtonDblClick:
            p_.Back_DblClick();
            return true;
        default:
            return false;
        }
    }
    return false;
}

} // namespace pd
