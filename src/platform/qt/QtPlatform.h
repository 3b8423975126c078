#pragma once
// The platform on the Linux desktop, through Qt: message boxes, the screen, xdg-open, the tray, the
// single-instance lock and its local socket.

#include "platform/Platform.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <map>

#include <memory>

class QLockFile;
class QLocalServer;
class QSystemTrayIcon;
class QMenu;
class QSoundEffect;

namespace pd {

class HttpClient;
class X11HotKey;

class QtPlatform : public Platform {
public:
    QtPlatform();
    ~QtPlatform() override;

    int messageBox(const QString& text, int style, const QString& title) override;
    QString chooseOpenFile(const QString& title, const QString& filterName, const QString& pattern) override;
    QString chooseFolder(const QString& prompt) override;
    // frmInput as a small modal dialog (platform/qt/InputForm).
    void showInputForm(FrmInput& form) override;
    void addUrlDialog(const std::function<void(const QString&)>& onAdd) override;
    int32_t chooseColor(int32_t initial) override;
    bool chooseFont(QString& name, int& pointSize) override;
    QString chooseOpenFileIn(const QString& title, const QString& filterName, const QString& pattern,
                             const QString& folder) override;
    QString clipboardText() const override;
    void setClipboardText(const QString& text) override;
    float twipsPerPixelX() const override;
    float twipsPerPixelY() const override;
    float screenWidth() const override;
    float screenHeight() const override;
    QPoint cursorPos() const override;
    QSize imageSize(const QString& path) const override;
    QSize textExtent(const QString& text, const QString& fontName, float pointSize, bool bold) const override;
    QString programDirectory() const override;
    QString userDataDirectory() const override;
    QString programExecutable() const override;
    bool openUrl(const QString& target) override;
    bool startDetached(const QString& program, const QStringList& args) override;
    // Starts a target as platform/qt/Launcher describes.
    int shellExecute(const QString& file, const QString& params, const QString& dir) override;
    // The freedesktop trash through QFile::moveToTrash.
    int moveToTrash(const QString& path) override;
    void playSound(const QString& path) override;
    void showTrayIcon(const QString& tip) override;
    void removeTrayIcon() override;
    bool registerHotKey() override;
    void unregisterHotKey() override;
    // Top-most through the window manager's "above" state, opacity through the window's opacity (shown
    // where a compositor runs), the focus as Qt's active window.
    void setWindowOnTop(const QString& window, bool onTop, bool noActivate) override;
    QString foregroundWindow() const override;
    void setWindowAlpha(const QString& window, int alpha) override;
    void flushMouseEvents() override;
    void setDropShadow(bool on) override;
    // The program's windows by their element names, for the calls above.
    void registerWindow(const QString& name, QWidget* window);
    // What the global hot key runs; set by the view.
    std::function<void()> onHotKey;
    bool claimSingleInstance() override;
    bool askRunningInstanceToToggle() override;
    void doEvents() override;
    // Feeds over HTTP (platform/qt/HttpClient): at most 15 s for a whole exchange and 8 MB of body
    // unless the request says otherwise.
    void httpGet(const HttpRequest& request, std::function<void(const HttpReply&)> done) override;
    bool isOnline() override;

    // The tray icon's menu and what a click on the icon does; set by the view.
    void setTrayMenu(QMenu* menu);
    std::function<void()> onTrayClick;

    // Shell exchange (platform/qt/ShellExchange.cpp): the clipboard's file list as text/uri-list and
    // x-special/gnome-copied-files, copies and trash on a worker thread under a progress window, file drags.
    bool setClipboardFiles(const QStringList& paths) override;
    QStringList clipboardFiles() const override;
    FileOpResult fileOperation(const FileOpRequest& op) override;
    int startFileDrag(const QStringList& paths) override;
    // Slows each chunk of a file operation by this many milliseconds, so that tests can reach the
    // progress window while a copy runs.
    int fileOpChunkPauseMs = 0;

private:
    // The lock and the socket are per data folder, so that two users' (or two test runs') workspaces
    // never stop each other.
    QString instanceKey() const;

    std::unique_ptr<QLockFile> lock_;
    std::unique_ptr<QLocalServer> server_;
    std::unique_ptr<QSystemTrayIcon> tray_;
    // One effect per sound file, made at its first use.
    std::map<QString, std::unique_ptr<QSoundEffect>> sounds_;
    QMenu* trayMenu_ = nullptr;
    std::unique_ptr<HttpClient> http_;
    std::map<QString, QPointer<QWidget>> windows_;
    std::unique_ptr<X11HotKey> hotKey_;
};

} // namespace pd
