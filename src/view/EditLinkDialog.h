#pragma once
// The "Shortcut Properties" window (frmEditLink): shows a loaded FrmEditLink and runs its handlers.
// Every control's object name is its name in the dialog's state.

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace pd {

class Workspace;
struct FrmEditLink;

class EditLinkDialog : public QDialog {
    Q_OBJECT
  public:
    EditLinkDialog(Workspace& ws, FrmEditLink& form, QWidget* parent);
    ~EditLinkDialog() override;
    // Shows the form's fields and looks.
    void load();
    // Takes what the user typed and ticked into the form.
    void store();

    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* ev) override;

  private:
    Workspace& ws_;
    FrmEditLink& form_;
    QLineEdit* txtLabel_;
    QLineEdit* txtPath_;
    QLineEdit* txtParam_;
    QLineEdit* txtIcon_;
    QLineEdit* txtSize_;
    QLabel* lblPath_;
    QLabel* lblParam_;
    QLabel* lblIcon_;
    QPushButton* picLinkColor_;
    QCheckBox* chkBold_;
    QCheckBox* chkConfirm_;
    QCheckBox* chkCommand_;
    QPushButton* cmdBrowse_;
    QPushButton* cmdChooseFileIcon_;
    bool loading_ = false;
};

// Shows the dialog modally over `parent` until one of its buttons closes it.
void ShowEditLinkDialog(Workspace& ws, FrmEditLink& form, QWidget* parent);

} // namespace pd
