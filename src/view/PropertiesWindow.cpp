#include "view/PropertiesWindow.h"

#include "app/workspace/Workspace.h"
#include "platform/qt/HiDpiPictures.h"
#include "themes/ColorFile.h"
#include "themes/Properties.h"
#include "themes/ThemeState.h"
#include "view/ElementWidget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

#include <iterator>

namespace pd {

namespace {

// The colour boxes: element name, label, tip.
struct BoxSpec {
    const char* name;
    const char* label;
    const char* tip;
};
const BoxSpec kBoxes[] = {
    {"picBackColor", "Background", nullptr},
    {"PicLinkColor", "Foreground", nullptr},
    {"picConFor", "Container Background", nullptr},
    {"picContainerLabelColor", "Container Foreground", nullptr},
    {"picContainerTextBack", "Note/RSS Background", nullptr},
    {"picContainerTextFor", "Note/RSS Foreground", nullptr},
    {"picBorderColor", "Picture Border", nullptr},
    {"picDockBorder", "Dock Border", "Border color when the workspace is hidden at one of the screen edges"},
};

// The five settings buttons: element, caption, menu.
struct SettingsSpec {
    const char* name;
    const char* caption;
    void (*click)(Workspace&);
};
const SettingsSpec kSettings[] = {
    {"cmdContainersSettings", "Containers", cmdContainersSettings_Click},
    {"cmdDockSettings", "Dock", cmdDockSettings_Click},
    {"cmdGlobalSettings", "Global Settings", cmdGlobalSettings_Click},
    {"cmdRemindersSettings", "Reminders", cmdRemindersSettings_Click},
    {"cmdShortcutsSettings", "Shortcuts", cmdShortcutsSettings_Click},
};
const char* const kSettingsMenus[] = {"mnuContainers", "mnuDock", "mnuGlobalSettings", "mnuReminders",
                                      "mnuShortcuts"};

int32_t BoxValue(const FrmProperties& f, const QString& name) {
    if (name == QLatin1String("picBackColor")) return f.picBackColor;
    if (name == QLatin1String("PicLinkColor")) return f.PicLinkColor;
    if (name == QLatin1String("picConFor")) return f.picConFor;
    if (name == QLatin1String("picContainerLabelColor")) return f.picContainerLabelColor;
    if (name == QLatin1String("picContainerTextBack")) return f.picContainerTextBack;
    if (name == QLatin1String("picContainerTextFor")) return f.picContainerTextFor;
    if (name == QLatin1String("picBorderColor")) return f.picBorderColor;
    return f.picDockBorder;
}

QString SwatchStyle(int32_t c) {
    return QStringLiteral(
               "QPushButton { background-color: %1; border: 1px solid #5a5a5a; border-radius: 3px; }"
               "QPushButton:hover { border: 1px solid #1f6fd1; }")
        .arg(ToQColor(c).name());
}

} // namespace

PropertiesWindow::PropertiesWindow(Workspace& ws, std::function<QMenu*(const QString&)> menuFor)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint), ws_(ws),
      menuFor_(std::move(menuFor)) {
    setObjectName(QStringLiteral("frmProperties"));
    setWindowTitle(QStringLiteral("Display Properties"));
    build();
    ThemeState& t = Themes(ws_);
    t.Properties.onChanged = [this] { sync(); };
    t.onShowProperties = [this] {
        sync();
        if (!placed_) {
            // The first showing comes up in the middle of the screen; later ones where it was left.
            adjustSize();
            if (const QScreen* s = screen()) move(s->availableGeometry().center() - rect().center());
            placed_ = true;
        }
        show();
        raise();
        activateWindow();
    };
    t.onCloseProperties = [this] { hide(); };
    t.onPopupMenu = [this](const QString& menu, const QString& button) { popup(menu, button); };
}

PropertiesWindow::~PropertiesWindow() {
    if (!ws_.ThemeStateSlot) return;
    ThemeState& t = Themes(ws_);
    t.Properties.onChanged = nullptr;
    t.onShowProperties = nullptr;
    t.onCloseProperties = nullptr;
    t.onPopupMenu = nullptr;
}

void PropertiesWindow::build() {
    Workspace* w = &ws_;
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(1, 1, 1, 1);
    outer->setSpacing(0);

    // The caption band: the title and a grip, both drag the window.
    auto* band = new QWidget(this);
    band->setObjectName(QStringLiteral("CaptionBand"));
    band->setAutoFillBackground(true);
    QPalette bp = band->palette();
    bp.setColor(QPalette::Window, QColor(0x12, 0x2A, 0x5C));
    bp.setColor(QPalette::WindowText, Qt::white);
    band->setPalette(bp);
    auto* bandLayout = new QHBoxLayout(band);
    bandLayout->setContentsMargins(10, 6, 8, 6);
    caption_ = new QLabel(QStringLiteral("Display Properties"), band);
    caption_->setObjectName(QStringLiteral("lblCaption"));
    QFont cf = caption_->font();
    cf.setBold(true);
    cf.setPointSizeF(cf.pointSizeF() + 1);
    caption_->setFont(cf);
    moveMe_ = new QLabel(QStringLiteral("\u2237"), band);
    moveMe_->setObjectName(QStringLiteral("picMoveMe"));
    moveMe_->setToolTip(QStringLiteral("Drag to move"));
    moveMe_->setCursor(Qt::SizeAllCursor);
    bandLayout->addWidget(caption_, 1);
    bandLayout->addWidget(moveMe_);
    caption_->installEventFilter(this);
    moveMe_->installEventFilter(this);
    band->installEventFilter(this);
    outer->addWidget(band);

    auto* body = new QWidget(this);
    auto* grid = new QGridLayout(body);
    grid->setContentsMargins(12, 10, 12, 10);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    outer->addWidget(body, 1);

    // Colours.
    auto* colours = new QGroupBox(QStringLiteral("Colors"), body);
    auto* cg = new QGridLayout(colours);
    cg->setVerticalSpacing(5);
    int row = 0;
    for (const BoxSpec& b : kBoxes) {
        auto* label = new QLabel(QString::fromLatin1(b.label), colours);
        auto* box = new QPushButton(colours);
        const QString name = QString::fromLatin1(b.name);
        box->setObjectName(name);
        box->setFixedSize(46, 20);
        box->setCursor(Qt::PointingHandCursor);
        box->setAccessibleName(QString::fromLatin1(b.label));
        if (b.tip) {
            box->setToolTip(QString::fromLatin1(b.tip));
            label->setToolTip(QString::fromLatin1(b.tip));
        }
        connect(box, &QPushButton::clicked, this, [w, name] { ColorBox_Click(*w, name); });
        colorBoxes_[name] = box;
        cg->addWidget(label, row, 0);
        cg->addWidget(box, row, 1, Qt::AlignRight);
        ++row;
    }
    grid->addWidget(colours, 0, 0, 2, 1);

    // Wallpaper.
    auto* wall = new QGroupBox(QStringLiteral("Wallpaper"), body);
    auto* wl = new QVBoxLayout(wall);
    picWallpaper_ = new QLabel(wall);
    picWallpaper_->setObjectName(QStringLiteral("picWallpaper"));
    picWallpaper_->setFixedSize(200, 150);
    picWallpaper_->setAlignment(Qt::AlignCenter);
    picWallpaper_->setCursor(Qt::PointingHandCursor);
    picWallpaper_->setFrameShape(QFrame::Box);
    picWallpaper_->installEventFilter(this);
    // imgWallpaper holds the picture over the whole box; the caption stands over it.
    imgWallpaper_ = new QLabel(picWallpaper_);
    imgWallpaper_->setObjectName(QStringLiteral("imgWallpaper"));
    imgWallpaper_->setGeometry(picWallpaper_->rect());
    imgWallpaper_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    imgWallpaper_->installEventFilter(this);
    auto* imgLayout = new QVBoxLayout(picWallpaper_);
    imgLayout->setContentsMargins(0, 0, 0, 0);
    lblWallpaper_ = new QLabel(QStringLiteral("Click to Select Wallpaper"), picWallpaper_);
    lblWallpaper_->setObjectName(QStringLiteral("lblWallpaper"));
    lblWallpaper_->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    lblWallpaper_->setContentsMargins(0, 0, 0, 6);
    lblWallpaper_->installEventFilter(this);
    lblWallpaper_->setCursor(Qt::PointingHandCursor);
    imgLayout->addWidget(lblWallpaper_);
    wl->addWidget(picWallpaper_, 0, Qt::AlignHCenter);
    auto* checks = new QHBoxLayout;
    chkWallpaper_ = new QCheckBox(QStringLiteral("&Wallpaper"), wall);
    chkWallpaper_->setObjectName(QStringLiteral("chkWallpaper"));
    chkStretch_ = new QCheckBox(QStringLiteral("S&tretch"), wall);
    chkStretch_->setObjectName(QStringLiteral("chkStretch"));
    checks->addWidget(chkWallpaper_);
    checks->addWidget(chkStretch_);
    checks->addStretch(1);
    wl->addLayout(checks);
    connect(chkWallpaper_, &QCheckBox::toggled, this, [this, w](bool on) {
        if (!syncing_) chkWallpaper_Click(*w, on);
    });
    connect(chkStretch_, &QCheckBox::toggled, this, [this, w](bool on) {
        if (!syncing_) chkStretch_Click(*w, on);
    });
    grid->addWidget(wall, 0, 1);

    // Themes and colour schemes.
    auto* themes = new QGroupBox(QStringLiteral("Themes"), body);
    auto* tl = new QGridLayout(themes);
    auto* themeLabel = new QLabel(QStringLiteral("Select Theme:"), themes);
    cboThemes_ = new QComboBox(themes);
    cboThemes_->setObjectName(QStringLiteral("CboThemes"));
    themeLabel->setBuddy(cboThemes_);
    connect(cboThemes_, qOverload<int>(&QComboBox::activated), this, [this, w](int i) {
        if (!syncing_) CboThemes_Click(*w, i);
    });
    listColors_ = new QListWidget(themes);
    listColors_->setObjectName(QStringLiteral("ListColors"));
    listColors_->setMinimumHeight(90);
    connect(listColors_, &QListWidget::itemClicked, this, [this, w](QListWidgetItem* item) {
        if (!syncing_) ListColors_Click(*w, listColors_->row(item));
    });
    auto* save = new QPushButton(QStringLiteral("&Save..."), themes);
    save->setObjectName(QStringLiteral("cmdSaveColors"));
    save->setToolTip(
        QStringLiteral("Save the colors as a color scheme, or with the wallpaper and buttons as a theme"));
    connect(save, &QPushButton::clicked, this, [w] { cmdSaveColors_Click(*w); });
    auto* del = new QPushButton(QStringLiteral("&Delete"), themes);
    del->setObjectName(QStringLiteral("cmdDeleteColors"));
    del->setToolTip(QStringLiteral("Delete the selected color scheme"));
    connect(del, &QPushButton::clicked, this, [w] { cmdDeleteColors_Click(*w); });
    tl->addWidget(themeLabel, 0, 0);
    tl->addWidget(cboThemes_, 0, 1, 1, 2);
    tl->addWidget(new QLabel(QStringLiteral("Color Schemes:"), themes), 1, 0, 1, 3);
    tl->addWidget(listColors_, 2, 0, 1, 3);
    tl->addWidget(save, 3, 1);
    tl->addWidget(del, 3, 2);
    tl->setColumnStretch(0, 1);
    grid->addWidget(themes, 0, 2, 2, 1);

    // Buttons, icon size and font.
    auto* more = new QGroupBox(QStringLiteral("Buttons and Text"), body);
    auto* ml = new QGridLayout(more);
    cboButtons_ = new QComboBox(more);
    cboButtons_->setObjectName(QStringLiteral("CboButtons"));
    connect(cboButtons_, &QComboBox::textActivated, this, [this, w](const QString& s) {
        if (!syncing_) CboButtons_Click(*w, s);
    });
    ml->addWidget(cboButtons_, 0, 0, 1, 2);
    auto* previews = new QHBoxLayout;
    previews->setSpacing(2);
    for (int k = 0; k < kButtonImages; ++k) {
        auto* p = new QLabel(more);
        p->setObjectName(QStringLiteral("PicButton_%1").arg(k));
        p->setFixedSize(18, 18);
        p->setAlignment(Qt::AlignCenter);
        p->setAutoFillBackground(true);
        picButton_[k] = p;
        previews->addWidget(p);
    }
    previews->addStretch(1);
    ml->addLayout(previews, 1, 0, 1, 2);
    auto* iconLabel = new QLabel(QStringLiteral("Large Icon Size:"), more);
    txtIconSize_ = new QLineEdit(more);
    txtIconSize_->setObjectName(QStringLiteral("txtIconSize"));
    txtIconSize_->setMaximumWidth(60);
    const QString iconTip = QStringLiteral(
        "Size for large icons: Usually 32 or 48 (if using the Large Icons setting for your desktop)");
    txtIconSize_->setToolTip(iconTip);
    iconLabel->setToolTip(iconTip);
    iconLabel->setBuddy(txtIconSize_);
    connect(txtIconSize_, &QLineEdit::textEdited, this, [w](const QString& s) { txtIconSize_Change(*w, s); });
    ml->addWidget(iconLabel, 2, 0);
    ml->addWidget(txtIconSize_, 2, 1, Qt::AlignLeft);
    ml->addWidget(new QLabel(QStringLiteral("Default Font and Size:"), more), 3, 0, 1, 2);
    lblFont_ = new QLabel(more);
    lblFont_->setObjectName(QStringLiteral("lblFont"));
    auto* font = new QPushButton(QStringLiteral("Se&lect"), more);
    font->setObjectName(QStringLiteral("CmdFont"));
    connect(font, &QPushButton::clicked, this, [w] { CmdFont_Click(*w); });
    ml->addWidget(lblFont_, 4, 0);
    ml->addWidget(font, 4, 1);
    ml->setColumnStretch(0, 1);
    grid->addWidget(more, 1, 1);

    // The settings menus.
    auto* settings = new QGroupBox(QStringLiteral("Settings"), body);
    auto* sl = new QHBoxLayout(settings);
    for (const SettingsSpec& s : kSettings) {
        auto* b = new QPushButton(QString::fromLatin1(s.caption), settings);
        const QString name = QString::fromLatin1(s.name);
        b->setObjectName(name);
        auto click = s.click;
        connect(b, &QPushButton::clicked, this, [w, click] { click(*w); });
        settingsButtons_[name] = b;
        sl->addWidget(b);
    }
    grid->addWidget(settings, 2, 0, 1, 3);

    // OK, Cancel, Apply.
    auto* bottom = new QHBoxLayout;
    bottom->addStretch(1);
    okButton_ = new QPushButton(QStringLiteral("OK"), body);
    okButton_->setObjectName(QStringLiteral("OKButton"));
    okButton_->setDefault(true);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), body);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdApply_ = new QPushButton(QStringLiteral("&Apply"), body);
    cmdApply_->setObjectName(QStringLiteral("cmdApply"));
    connect(okButton_, &QPushButton::clicked, this, [w] { OKButton_Click(*w); });
    connect(cancel, &QPushButton::clicked, this, [w] { cmdCancel_Click(*w); });
    connect(cmdApply_, &QPushButton::clicked, this, [w] { cmdApply_Click(*w); });
    bottom->addWidget(okButton_);
    bottom->addWidget(cancel);
    bottom->addWidget(cmdApply_);
    grid->addLayout(bottom, 3, 0, 1, 3);

    // Tab reads the groups as they stand: Colors, then Wallpaper and the Buttons and Text under it, then
    // Themes, Settings and the buttons.
    const char* const tabOrder[] = {"chkStretch", "CboButtons",    "txtIconSize",     "CmdFont",
                                    "CboThemes",  "ListColors",    "cmdSaveColors",   "cmdDeleteColors",
                                    "cmdContainersSettings"};
    for (size_t i = 1; i < std::size(tabOrder); ++i) {
        QWidget* a = findChild<QWidget*>(QString::fromLatin1(tabOrder[i - 1]));
        QWidget* b = findChild<QWidget*>(QString::fromLatin1(tabOrder[i]));
        if (a && b) setTabOrder(a, b);
    }
}

void PropertiesWindow::sync() {
    const FrmProperties& f = Themes(ws_).Properties;
    syncing_ = true;
    for (auto& [name, box] : colorBoxes_)
        box->setStyleSheet(SwatchStyle(BoxValue(f, name)));

    // The preview: the background colour, the picture (stretched or at its size from the top left),
    // the caption in the text colour.
    QPalette pp = picWallpaper_->palette();
    pp.setColor(QPalette::Window, ToQColor(f.picWallpaperBackColor));
    picWallpaper_->setAutoFillBackground(true);
    picWallpaper_->setPalette(pp);
    // The preview and the button images are made at the device pixels of the window's screen.
    const qreal dpr = devicePixelRatioF();
    QPixmap shown;
    if (f.chkWallpaper && !f.imgWallpaper.isEmpty()) {
        const QPixmap pic = LoadPicture(f.imgWallpaper, dpr);
        if (!pic.isNull()) {
            const QSize area = picWallpaper_->contentsRect().size();
            if (f.chkStretch) {
                shown = FillPicture(pic, area, dpr);
            } else {
                // The preview stands for a workspace about five times its size.
                const QPixmap small = FillPicture(pic, pic.deviceIndependentSize().toSize() / 5, dpr);
                QPixmap canvas(area * dpr);
                canvas.setDevicePixelRatio(dpr);
                canvas.fill(ToQColor(f.picWallpaperBackColor));
                QPainter p(&canvas);
                p.drawPixmap(0, 0, small);
                p.end();
                shown = canvas;
            }
        }
    }
    imgWallpaper_->setGeometry(picWallpaper_->contentsRect());
    imgWallpaper_->setPixmap(shown);
    QPalette lp = lblWallpaper_->palette();
    lp.setColor(QPalette::WindowText, ToQColor(f.lblWallpaperForeColor));
    lblWallpaper_->setPalette(lp);
    chkWallpaper_->setChecked(f.chkWallpaper);
    chkStretch_->setChecked(f.chkStretch);

    cboButtons_->clear();
    cboButtons_->addItems(f.CboButtonsList);
    if (cboButtons_->findText(f.CboButtons) < 0 && !f.CboButtons.isEmpty())
        cboButtons_->addItem(f.CboButtons);
    cboButtons_->setCurrentText(f.CboButtons);
    for (int k = 0; k < kButtonImages; ++k) {
        QPalette bp = picButton_[k]->palette();
        bp.setColor(QPalette::Window, ToQColor(f.picConFor));
        picButton_[k]->setPalette(bp);
        picButton_[k]->setPixmap(f.PicButton[k].isEmpty() ? QPixmap() : LoadPicture(f.PicButton[k], dpr));
    }
    if (txtIconSize_->text() != f.txtIconSize) txtIconSize_->setText(f.txtIconSize);
    lblFont_->setText(QStringLiteral("%1, %2").arg(f.FontName).arg(f.FontSize));
    QFont shownFont(f.FontName);
    shownFont.setPointSize(std::clamp(f.FontSize, 6, 14));
    lblFont_->setFont(shownFont);

    cboThemes_->clear();
    cboThemes_->addItems(f.CboThemes);
    cboThemes_->setCurrentIndex(f.CboThemesIndex);
    listColors_->clear();
    listColors_->addItems(f.ListColors);
    listColors_->setCurrentRow(f.ListColorsIndex);

    for (size_t k = 0; k < std::size(kSettings); ++k) {
        QPushButton* b = settingsButtons_[QString::fromLatin1(kSettings[k].name)];
        // A menu that no part of the program has made yet leaves its button disabled.
        b->setEnabled(!menuFor_ || menuFor_(QString::fromLatin1(kSettingsMenus[k])) != nullptr);
    }
    cmdApply_->setEnabled(f.cmdApplyEnabled);
    okButton_->setEnabled(f.OKButtonEnabled);
    syncing_ = false;
    if (!f.Loaded && isVisible()) hide();
}

void PropertiesWindow::popup(const QString& menu, const QString& button) {
    QMenu* m = menuFor_ ? menuFor_(menu) : nullptr;
    auto it = settingsButtons_.find(button);
    if (!m || it == settingsButtons_.end()) return;
    QPushButton* b = it->second;
    lastPopup_ = m;
    lastPopupAt_ = b->mapToGlobal(QPoint(0, b->height()));
    m->popup(lastPopupAt_);
}

bool PropertiesWindow::eventFilter(QObject* watched, QEvent* ev) {
    if (watched == picWallpaper_ || watched == lblWallpaper_ || watched == imgWallpaper_) {
        if (ev->type() == QEvent::MouseButtonRelease &&
            static_cast<QMouseEvent*>(ev)->button() == Qt::LeftButton) {
            picWallpaper_Click(ws_);
            return true;
        }
        return false;
    }
    // The caption band and the grip drag the window.
    if (ev->type() == QEvent::MouseButtonPress) {
        auto* me = static_cast<QMouseEvent*>(ev);
        if (me->button() == Qt::LeftButton) {
            dragging_ = true;
            dragFrom_ = me->globalPosition().toPoint() - frameGeometry().topLeft();
            return true;
        }
    } else if (ev->type() == QEvent::MouseMove && dragging_) {
        move(static_cast<QMouseEvent*>(ev)->globalPosition().toPoint() - dragFrom_);
        return true;
    } else if (ev->type() == QEvent::MouseButtonRelease && dragging_) {
        dragging_ = false;
        return true;
    }
    return QWidget::eventFilter(watched, ev);
}

void PropertiesWindow::keyPressEvent(QKeyEvent* ev) {
    if (ev->key() == Qt::Key_Escape) {
        cmdCancel_Click(ws_);
        return;
    }
    QWidget::keyPressEvent(ev);
}

void PropertiesWindow::paintEvent(QPaintEvent* ev) {
    QWidget::paintEvent(ev);
    // A thin frame around the frameless window.
    QPainter p(this);
    p.setPen(QColor(0x40, 0x40, 0x48));
    p.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace pd
