#include "platform/qt/AddUrlDialog.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace pd {

AddUrlDialog::AddUrlDialog(std::function<void(const QString&)> onAdd, QWidget* parent)
    : QDialog(parent), onAdd_(std::move(onAdd)) {
    setObjectName(QStringLiteral("frmInternetShortcut"));
    setWindowTitle(QStringLiteral("Add URL"));
    // Top-most, so that the docked workspace cannot cover it.
    setWindowFlag(Qt::WindowStaysOnTopHint, true);

    address_ = new QLineEdit(QStringLiteral("http://"), this);
    address_->setObjectName(QStringLiteral("txtAddress"));
    address_->setMinimumWidth(360);
    address_->selectAll();

    keepOpen_ = new QCheckBox(QStringLiteral("&Keep Open"), this);
    keepOpen_->setObjectName(QStringLiteral("chkKeepOpen"));
    keepOpen_->setToolTip(QStringLiteral("Keep this dialog open to quickly add more URLs"));

    auto* ok = new QPushButton(QStringLiteral("&Add"), this);
    ok->setObjectName(QStringLiteral("OKButton"));
    ok->setDefault(true);
    auto* cancel = new QPushButton(QStringLiteral("&Close"), this);
    cancel->setObjectName(QStringLiteral("CancelButton"));

    auto* hint = new QLabel(QStringLiteral("To Edit: Right click and select Properties"), this);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(keepOpen_);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(address_);
    layout->addWidget(hint);
    layout->addLayout(buttons);

    connect(ok, &QPushButton::clicked, this, &AddUrlDialog::add);
    // Close and Esc (QDialog's own) both reject.
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void AddUrlDialog::add() {
    if (onAdd_) onAdd_(address_->text());
    if (!keepOpen_->isChecked()) {
        accept();
        return;
    }
    address_->setFocus();
    address_->selectAll();
}

} // namespace pd
