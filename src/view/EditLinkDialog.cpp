#include "view/EditLinkDialog.h"

#include "shortcuts/EditLink.h"
#include "view/ElementWidget.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <iterator>
#include <QTimer>

namespace pd {

namespace {

QLineEdit* Field(QWidget* parent, const char* name) {
    auto* e = new QLineEdit(parent);
    e->setObjectName(QString::fromLatin1(name));
    return e;
}

QPushButton* Button(QWidget* parent, const QString& text, const char* name) {
    auto* b = new QPushButton(text, parent);
    b->setObjectName(QString::fromLatin1(name));
    b->setAutoDefault(false);
    return b;
}

} // namespace

EditLinkDialog::EditLinkDialog(Workspace& ws, FrmEditLink& form, QWidget* parent)
    : QDialog(parent), ws_(ws), form_(form) {
    setObjectName(QStringLiteral("frmEditLink"));
    setWindowTitle(form.Caption);
    auto* grid = new QGridLayout(this);
    txtLabel_ = Field(this, "txtLabel");
    txtPath_ = Field(this, "txtPath");
    txtParam_ = Field(this, "txtParam");
    txtIcon_ = Field(this, "txtIcon");
    txtSize_ = Field(this, "txtSize");
    txtSize_->setMaximumWidth(60);
    lblPath_ = new QLabel(QStringLiteral("Target:"), this);
    lblPath_->setObjectName(QStringLiteral("lblPath"));
    lblParam_ = new QLabel(QStringLiteral("Parameters:"), this);
    lblParam_->setObjectName(QStringLiteral("lblParam"));
    lblIcon_ = new QLabel(QStringLiteral("Icon:"), this);
    lblIcon_->setObjectName(QStringLiteral("lblIcon"));
    cmdBrowse_ = Button(this, QStringLiteral("..."), "CmdBrowse");
    cmdChooseFileIcon_ = Button(this, QStringLiteral("..."), "cmdChooseFileIcon");
    picLinkColor_ = Button(this, QString(), "PicLinkColor");
    picLinkColor_->setFixedSize(40, 20);
    picLinkColor_->setFlat(true);
    picLinkColor_->setAutoFillBackground(true);
    chkBold_ = new QCheckBox(QStringLiteral("Bold Font:"), this);
    chkBold_->setObjectName(QStringLiteral("ChkBold"));
    chkBold_->setLayoutDirection(Qt::RightToLeft);
    chkConfirm_ = new QCheckBox(QStringLiteral("&Requires Confirmation"), this);
    chkConfirm_->setObjectName(QStringLiteral("chkConfirm"));
    chkConfirm_->setToolTip(QStringLiteral("Prompt for confirmation before launch"));
    chkCommand_ = new QCheckBox(QStringLiteral("&Command"), this);
    chkCommand_->setObjectName(QStringLiteral("ChkCommand"));
    chkCommand_->setToolTip(
        QStringLiteral("Enter a command to execute instead of a shortcut (Command Prompt)"));
    auto* reset = Button(this, QStringLiteral("&Reset"), "cmdReset");
    auto* ok = Button(this, QStringLiteral("OK"), "cmdEditOK");
    auto* cancel = Button(this, QStringLiteral("Cancel"), "cmdEditCancel");
    ok->setDefault(true);

    int row = 0;
    grid->addWidget(new QLabel(QStringLiteral("Label:"), this), row, 0);
    grid->addWidget(txtLabel_, row++, 1, 1, 2);
    grid->addWidget(lblPath_, row, 0);
    grid->addWidget(txtPath_, row, 1);
    grid->addWidget(cmdBrowse_, row++, 2);
    grid->addWidget(lblParam_, row, 0);
    grid->addWidget(txtParam_, row++, 1, 1, 2);
    grid->addWidget(lblIcon_, row, 0);
    grid->addWidget(txtIcon_, row, 1);
    grid->addWidget(cmdChooseFileIcon_, row++, 2);
    auto* style = new QHBoxLayout;
    style->addWidget(new QLabel(QStringLiteral("Font Size:"), this));
    style->addWidget(txtSize_);
    style->addSpacing(12);
    style->addWidget(new QLabel(QStringLiteral("Color:"), this));
    style->addWidget(picLinkColor_);
    style->addSpacing(12);
    style->addWidget(chkBold_);
    style->addStretch(1);
    grid->addLayout(style, row++, 0, 1, 3);
    grid->addWidget(chkConfirm_, row, 0, 1, 2);
    grid->addWidget(chkCommand_, row++, 2);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(reset);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    grid->addLayout(buttons, row++, 0, 1, 3);
    setMinimumWidth(460);

    // A click into a text box selects its whole text.
    for (QLineEdit* e : {txtLabel_, txtPath_, txtParam_, txtIcon_, txtSize_})
        e->installEventFilter(this);

    connect(chkCommand_, &QCheckBox::clicked, this, [this] {
        if (loading_) return;
        store();
        ChkCommand_Click(form_);
        load();
    });
    connect(cmdBrowse_, &QPushButton::clicked, this, [this] {
        store();
        CmdBrowse_Click(ws_, form_);
        load();
    });
    connect(cmdChooseFileIcon_, &QPushButton::clicked, this, [this] {
        store();
        cmdChooseFileIcon_Click(ws_, form_);
        load();
    });
    connect(picLinkColor_, &QPushButton::clicked, this, [this] {
        store();
        EditLinkColor_Click(ws_, form_);
        load();
    });
    connect(reset, &QPushButton::clicked, this, [this] {
        store();
        cmdReset_Click(ws_, form_);
        load();
    });
    connect(ok, &QPushButton::clicked, this, [this] {
        store();
        cmdEditOK_Click(ws_, form_);
        if (!form_.Visible) accept();
    });
    connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
    form_.onChanged = [this] { load(); };
    // Tab in reading order: each browse button after the field it fills, then the style, then the buttons.
    QWidget* order[] = {txtLabel_, txtPath_,  cmdBrowse_, txtParam_, txtIcon_, cmdChooseFileIcon_, txtSize_,
                        picLinkColor_, chkBold_, chkConfirm_, chkCommand_, reset, ok, cancel};
    for (size_t i = 1; i < std::size(order); ++i) setTabOrder(order[i - 1], order[i]);
    load();
}

EditLinkDialog::~EditLinkDialog() {
    form_.onChanged = nullptr;
}

void EditLinkDialog::load() {
    loading_ = true;
    txtLabel_->setText(form_.txtLabel);
    txtPath_->setText(form_.txtPath);
    txtParam_->setText(form_.txtParam);
    txtIcon_->setText(form_.txtIcon);
    txtSize_->setText(form_.txtSize);
    txtPath_->setVisible(form_.txtPathVisible);
    lblParam_->setText(form_.lblParam);
    QFont f = lblParam_->font();
    f.setBold(form_.lblParamBold);
    lblParam_->setFont(f);
    lblPath_->setEnabled(form_.lblPathEnabled);
    lblIcon_->setEnabled(form_.lblIconEnabled);
    cmdBrowse_->setEnabled(form_.CmdBrowseEnabled);
    cmdChooseFileIcon_->setEnabled(form_.cmdChooseFileIconEnabled);
    QPalette pal = picLinkColor_->palette();
    pal.setColor(QPalette::Button, ToQColor(form_.PicLinkColor));
    picLinkColor_->setPalette(pal);
    picLinkColor_->setStyleSheet(
        QStringLiteral("background-color: %1;").arg(ToQColor(form_.PicLinkColor).name()));
    chkBold_->setChecked(form_.ChkBold);
    chkConfirm_->setChecked(form_.chkConfirm);
    chkCommand_->setChecked(form_.ChkCommand);
    if (form_.Focus == QLatin1String("txtParam")) {
        form_.Focus.clear();
        txtParam_->setFocus(Qt::OtherFocusReason);
    }
    loading_ = false;
}

void EditLinkDialog::store() {
    form_.txtLabel = txtLabel_->text();
    form_.txtPath = txtPath_->text();
    form_.txtParam = txtParam_->text();
    form_.txtIcon = txtIcon_->text();
    form_.txtSize = txtSize_->text();
    form_.ChkBold = chkBold_->isChecked();
    form_.chkConfirm = chkConfirm_->isChecked();
    form_.ChkCommand = chkCommand_->isChecked();
}

void EditLinkDialog::reject() {
    // Esc and the window's close are Cancel.
    cmdEditCancel_Click(form_);
    QDialog::reject();
}

bool EditLinkDialog::eventFilter(QObject* watched, QEvent* ev) {
    if (ev->type() == QEvent::MouseButtonPress || ev->type() == QEvent::FocusIn) {
        if (auto* e = qobject_cast<QLineEdit*>(watched)) QTimer::singleShot(0, e, [e] { e->selectAll(); });
    }
    return QDialog::eventFilter(watched, ev);
}

void ShowEditLinkDialog(Workspace& ws, FrmEditLink& form, QWidget* parent) {
    EditLinkDialog dialog(ws, form, parent);
    dialog.exec();
}

} // namespace pd
