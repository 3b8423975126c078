#pragma once
// The feed windows: "Add RSS News Feeds", the viewer "RSS Viewer" and "Search RSS". Each shows its
// state from the core and passes its controls' events to the core's handlers.
//
// The viewer renders an item's description (HTML from the feed) in a QTextBrowser that reaches nothing
// by itself: no scripts exist in Qt's rich text, links are not followed inside it (a click opens the
// address in the desktop's browser), and every resource it asks for is refused — file: and qrc: so
// that a feed cannot read local files, and remote images are left out so that nothing is fetched and
// nothing blocks while a page shows.

#include <QDialog>
#include <QTextBrowser>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace pd {

class Workspace;
struct FrmAddRSS;
struct FrmRSSSearch;

// The embedded browser: renders what it is given and loads nothing.
class FeedBrowser : public QTextBrowser {
    Q_OBJECT
  public:
    explicit FeedBrowser(QWidget* parent = nullptr);
    // Every resource is refused: local files, resources and remote images alike.
    QVariant loadResource(int type, const QUrl& name) override;
    // How many resources the page asked for (and was refused).
    int refused = 0;
};

class AddRSSDialog : public QDialog {
    Q_OBJECT
  public:
    AddRSSDialog(Workspace& ws, FrmAddRSS& form, QWidget* parent = nullptr);
    void sync();

  protected:
    void showEvent(QShowEvent* ev) override;
    void reject() override;

  private:
    Workspace& ws_;
    FrmAddRSS& f_;
    QLineEdit* txtRSS_;
    QListWidget* lstFeeds_;
    QLabel* lblWait_;
};

class RSSSearchDialog : public QDialog {
    Q_OBJECT
  public:
    RSSSearchDialog(Workspace& ws, FrmRSSSearch& form, QWidget* parent = nullptr);
    void sync();

  protected:
    void resizeEvent(QResizeEvent* ev) override;
    void showEvent(QShowEvent* ev) override;

  private:
    Workspace& ws_;
    FrmRSSSearch& f_;
    QLineEdit* txtSearch_;
    QCheckBox* chkHeadline_;
    QCheckBox* chkFull_;
    QPlainTextEdit* txtRSS_;
    bool syncing_ = false;
};

class RSSViewWindow : public QWidget {
    Q_OBJECT
  public:
    RSSViewWindow(Workspace& ws, float twipsPerPixelX, float twipsPerPixelY);
    // Shows the viewer's state: open or closed, its place, the page, the list and the on-top state.
    void sync();
    FeedBrowser* browser() const { return web_; }

  protected:
    void resizeEvent(QResizeEvent* ev) override;
    void moveEvent(QMoveEvent* ev) override;
    void closeEvent(QCloseEvent* ev) override;
    void keyPressEvent(QKeyEvent* ev) override;
    void changeEvent(QEvent* ev) override;
    bool eventFilter(QObject* watched, QEvent* ev) override;

  private:
    void place(QWidget* w, float left, float top, float width, float height);
    Workspace& ws_;
    float tx_, ty_;
    FeedBrowser* web_;
    QPushButton* cmdRefresh_;
    QComboBox* cboFeeds_;
    QPushButton* cmdBack_;
    QPushButton* cmdNext_;
    QPushButton* cmdOpen_;
    QPushButton* cmdClose_;
    QPushButton* cmdOnTop_;
    QLabel* lblOnTop_;
    QString shownDocument_;
    bool syncing_ = false;
    bool shown_ = false;
};

} // namespace pd
