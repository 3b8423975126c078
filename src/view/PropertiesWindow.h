#pragma once
// The Display Properties window (frmProperties): a frameless window, dragged by its caption band, that
// mirrors themes/ThemeState's FrmProperties and turns clicks into its handlers. Every control's object
// name is its element name (picBackColor, CboThemes, cmdApply, ...).

#include <QWidget>

#include <array>
#include <functional>
#include <map>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPushButton;

namespace pd {

class Workspace;

class PropertiesWindow : public QWidget {
  public:
    // `menuFor` gives the main window's menu of a name (null when that menu is not made).
    PropertiesWindow(Workspace& ws, std::function<QMenu*(const QString&)> menuFor);
    ~PropertiesWindow() override;
    // Follows the dialog's state.
    void sync();
    // The menu last opened by a settings button, and where (global pixels); for tests.
    QMenu* lastPopup() const { return lastPopup_; }
    QPoint lastPopupAt() const { return lastPopupAt_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* ev) override;
    void keyPressEvent(QKeyEvent* ev) override;
    void paintEvent(QPaintEvent* ev) override;

  private:
    void build();
    void popup(const QString& menu, const QString& button);

    Workspace& ws_;
    std::function<QMenu*(const QString&)> menuFor_;
    bool syncing_ = false;
    std::map<QString, QPushButton*> colorBoxes_;
    QLabel* caption_ = nullptr;
    QWidget* moveMe_ = nullptr;
    QLabel* picWallpaper_ = nullptr;
    QLabel* lblWallpaper_ = nullptr;
    QLabel* imgWallpaper_ = nullptr;
    QCheckBox* chkWallpaper_ = nullptr;
    QCheckBox* chkStretch_ = nullptr;
    QComboBox* cboButtons_ = nullptr;
    std::array<QLabel*, 13> picButton_{};
    QLineEdit* txtIconSize_ = nullptr;
    QLabel* lblFont_ = nullptr;
    QListWidget* listColors_ = nullptr;
    QComboBox* cboThemes_ = nullptr;
    QPushButton* cmdApply_ = nullptr;
    QPushButton* okButton_ = nullptr;
    std::map<QString, QPushButton*> settingsButtons_;
    QPoint dragFrom_;
    bool dragging_ = false;
    bool placed_ = false;
    QMenu* lastPopup_ = nullptr;
    QPoint lastPopupAt_;
};

} // namespace pd
