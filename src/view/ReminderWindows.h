#pragma once
// The two reminder windows: frmReminder, the modal dialog that sets a reminder, and frmShowReminder, the
// alarm window that fades in at the lower right of the screen. Each mirrors its state struct of
// desk/ReminderForm and desk/ShowReminder and calls its handlers; every control's objectName is its
// element name.

#include <QDialog>
#include <QWidget>

#include <functional>
#include <memory>

class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;

namespace pd {

class Workspace;
struct ReminderForm;
struct ShowReminderForm;

class ReminderDialog : public QDialog {
    Q_OBJECT
  public:
    ReminderDialog(ReminderForm& form, const QString& programDirectory, QWidget* parent = nullptr);
    // Shows the form's state.
    void sync();
    // Copies what the user typed or chose into the form.
    void readBack();

  protected:
    void closeEvent(QCloseEvent* ev) override;
    void reject() override;

  private:
    void run(void (ReminderForm::*handler)());
    ReminderForm& form_;
    QComboBox *month_, *day_, *year_, *hour_, *minute_, *ampm_;
    QPlainTextEdit* text_;
    QRadioButton* colors_[4];
    bool syncing_ = false;
};

class AlarmWindow : public QWidget {
    Q_OBJECT
  public:
    AlarmWindow(std::shared_ptr<ShowReminderForm> form, float twipsX, float twipsY);
    void sync();

  protected:
    void closeEvent(QCloseEvent* ev) override;

  private:
    void run(void (ShowReminderForm::*handler)());
    std::shared_ptr<ShowReminderForm> form_;
    float tx_, ty_;
    QLabel* title_;
    QLabel* curPic_;
    QPlainTextEdit* text_;
    QPushButton* snooze_;
};

// Sets the desk state's hooks so that the reminder dialog and the alarm windows show: `registerWindow`
// makes a window known to the platform by name (for opacity and top-most).
void InstallReminderWindows(Workspace& ws, const QString& programDirectory,
                            std::function<void(const QString&, QWidget*)> registerWindow);

} // namespace pd
