#include "platform/qt/InputForm.h"

#include "feeds/InputDialog.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace pd {

namespace {

// The main window, which owns the dialog; null before it exists.
QWidget* MainWindowWidget() {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == QLatin1String("frmMain")) return w;
    return nullptr;
}

// The text line selects all its text whenever it takes the focus.
class SelectingLine : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

protected:
    void focusInEvent(QFocusEvent* ev) override {
        QLineEdit::focusInEvent(ev);
        selectAll();
    }
};

} // namespace

void ShowInputForm(FrmInput& form) {
    QDialog dialog(MainWindowWidget());
    dialog.setObjectName(QStringLiteral("frmInput"));
    dialog.setWindowTitle(form.Caption);
    dialog.setWindowFlag(Qt::WindowStaysOnTopHint, form.OnTop);
    dialog.setWindowModality(Qt::ApplicationModal);

    auto* caption = new QLabel(form.lblCaption, &dialog);
    caption->setObjectName(QStringLiteral("lblCaption"));
    caption->setTextFormat(Qt::PlainText);
    auto* input = new SelectingLine(form.txtInput, &dialog);
    input->setObjectName(QStringLiteral("txtInput"));
    input->setMinimumWidth(280);
    auto* ok = new QPushButton(QStringLiteral("OK"), &dialog);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), &dialog);
    cancel->setObjectName(QStringLiteral("cmdCancel"));

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(caption);
    layout->addWidget(input);
    layout->addLayout(buttons);

    QObject::connect(ok, &QPushButton::clicked, &dialog, [&] {
        form.txtInput = input->text();
        form.cmdOK_Click();
        dialog.accept();
    });
    QObject::connect(cancel, &QPushButton::clicked, &dialog, [&] {
        form.cmdCancel_Click();
        dialog.reject();
    });
    // Esc rejects as Cancel does.
    QObject::connect(&dialog, &QDialog::rejected, &dialog, [&] {
        if (form.Visible) form.cmdCancel_Click();
    });
    input->setFocus();
    dialog.exec();
}

} // namespace pd
