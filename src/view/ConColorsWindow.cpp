#include "view/ConColorsWindow.h"

#include "app/workspace/Workspace.h"
#include "themes/ConColors.h"
#include "themes/ThemeState.h"
#include "view/ElementWidget.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace pd {

namespace {

QString SwatchStyle(int32_t c) {
    return QStringLiteral(
               "QPushButton { background-color: %1; border: 1px solid #5a5a5a; border-radius: 3px; }"
               "QPushButton:hover { border: 1px solid #1f6fd1; }")
        .arg(ToQColor(c).name());
}

} // namespace

ConColorsWindow::ConColorsWindow(Workspace& ws)
    : QDialog(nullptr, Qt::Tool | Qt::WindowStaysOnTopHint), ws_(ws) {
    setObjectName(QStringLiteral("frmConColors"));
    setWindowTitle(QStringLiteral("Container Colors"));
    Workspace* w = &ws_;
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(14, 12, 14, 12);
    grid->setVerticalSpacing(8);
    auto box = [this](const char* name, const char* label, int row, QGridLayout* g) {
        auto* l = new QLabel(QString::fromLatin1(label), this);
        auto* b = new QPushButton(this);
        b->setObjectName(QString::fromLatin1(name));
        b->setAccessibleName(QString::fromLatin1(label));
        b->setFixedSize(56, 22);
        b->setCursor(Qt::PointingHandCursor);
        g->addWidget(l, row, 0);
        g->addWidget(b, row, 1);
        return b;
    };
    back_ = box("picBack", "Back Color", 0, grid);
    fore_ = box("picFore", "Fore Color", 1, grid);
    connect(back_, &QPushButton::clicked, this, [w] { picBack_Click(*w); });
    connect(fore_, &QPushButton::clicked, this, [w] { picFore_Click(*w); });
    auto* sw = new QPushButton(QStringLiteral("&Switch"), this);
    sw->setObjectName(QStringLiteral("CmdSwitch"));
    sw->setToolTip(QStringLiteral("Switch foreground and background colors"));
    connect(sw, &QPushButton::clicked, this, [w] { CmdSwitch_Click(*w); });
    auto* reset = new QPushButton(QStringLiteral("&Reset"), this);
    reset->setObjectName(QStringLiteral("Command1"));
    reset->setToolTip(QStringLiteral("Reset container colors to default"));
    connect(reset, &QPushButton::clicked, this, [w] { Command1_Click(*w); });
    grid->addWidget(sw, 0, 2);
    grid->addWidget(reset, 1, 2);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("OKButton"));
    ok->setDefault(true);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    cancel->setObjectName(QStringLiteral("CancelButton"));
    connect(ok, &QPushButton::clicked, this, [w] { ConColors_OKButton_Click(*w); });
    connect(cancel, &QPushButton::clicked, this, [w] { ConColors_CancelButton_Click(*w); });
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    grid->addLayout(buttons, 2, 0, 1, 3);
    // Tab row by row: each colour box, then the button beside it; then OK and Cancel. The first colour
    // box has the focus when the window opens.
    setTabOrder(back_, sw);
    setTabOrder(sw, fore_);
    setTabOrder(fore_, reset);
    setTabOrder(reset, ok);
    setTabOrder(ok, cancel);
    back_->setFocus();

    ThemeState& t = Themes(ws_);
    t.ConColors.onChanged = [this] { sync(); };
    t.onShowConColors = [this] {
        sync();
        back_->setFocus();
        show();
        raise();
        activateWindow();
    };
    t.onCloseConColors = [this] { hide(); };
}

ConColorsWindow::~ConColorsWindow() {
    if (!ws_.ThemeStateSlot) return;
    ThemeState& t = Themes(ws_);
    t.ConColors.onChanged = nullptr;
    t.onShowConColors = nullptr;
    t.onCloseConColors = nullptr;
}

void ConColorsWindow::sync() {
    const FrmConColors& f = Themes(ws_).ConColors;
    back_->setStyleSheet(SwatchStyle(f.picBack));
    fore_->setStyleSheet(SwatchStyle(f.picFore));
    if (!f.Loaded && isVisible()) hide();
}

void ConColorsWindow::reject() {
    // Esc and the window's close button are Cancel.
    if (Themes(ws_).ConColors.Loaded) ConColors_CancelButton_Click(ws_);
    QDialog::reject();
}

} // namespace pd
