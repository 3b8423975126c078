#include "platform/qt/QtPlatform.h"

#include "app/elements/Element.h"
#include "platform/qt/AddUrlDialog.h"
#include "platform/qt/HttpClient.h"
#include "platform/qt/InputForm.h"
#include "platform/qt/Launcher.h"
#include "platform/qt/ProgramIcon.h"
#include "platform/qt/ShellExchange.h"
#include "platform/qt/X11HotKey.h"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QFontDialog>
#include <QCryptographicHash>
#include <QCursor>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QSoundEffect>
#include <QFontMetrics>
#include <QImageReader>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>
#include <QScreen>
#include <QStandardPaths>
#include <QSystemTrayIcon>
#include <QUrl>
#include <QWindow>

#include <algorithm>

#include <cerrno>

namespace pd {

namespace {
QScreen* Screen() { return QGuiApplication::primaryScreen(); }
} // namespace

QtPlatform::QtPlatform() = default;
QtPlatform::~QtPlatform() = default;

int QtPlatform::messageBox(const QString& text, int style, const QString& title) {
    QMessageBox box;
    box.setWindowTitle(title.isEmpty() ? QStringLiteral("Perchdock") : title);
    box.setText(text);
    // System-modal: above every window, so that a docked workspace cannot hide it.
    box.setWindowFlag(Qt::WindowStaysOnTopHint, (style & MsgStyle::SystemModal) != 0);
    switch (style & 0x70) {
    case MsgStyle::Critical: box.setIcon(QMessageBox::Critical); break;
    case MsgStyle::Question: box.setIcon(QMessageBox::Question); break;
    case MsgStyle::Exclamation: box.setIcon(QMessageBox::Warning); break;
    case MsgStyle::Information: box.setIcon(QMessageBox::Information); break;
    default: break;
    }
    switch (style & 7) {
    case MsgStyle::YesNo: box.setStandardButtons(QMessageBox::Yes | QMessageBox::No); break;
    case MsgStyle::YesNoCancel:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        break;
    default: box.setStandardButtons(QMessageBox::Ok); break;
    }
    switch (box.exec()) {
    case QMessageBox::Yes: return MsgAnswer::Yes;
    case QMessageBox::No: return MsgAnswer::No;
    case QMessageBox::Cancel: return MsgAnswer::Cancel;
    default: return (style & 7) == MsgStyle::OkOnly ? MsgAnswer::Ok : MsgAnswer::Cancel;
    }
}

QString QtPlatform::chooseOpenFile(const QString& title, const QString& filterName, const QString& pattern) {
    // "*.*" means every file; on Linux many files have no dot, so it becomes "*".
    QString linuxPattern = pattern;
    linuxPattern.replace(QLatin1String("*.*"), QLatin1String("*"));
    QString name = filterName;
    if (!name.contains(QLatin1Char('('))) name += QStringLiteral(" (") + linuxPattern + QLatin1Char(')');
    else name = name.left(name.indexOf(QLatin1Char('('))).trimmed() + QStringLiteral(" (") + linuxPattern + QLatin1Char(')');
    return QFileDialog::getOpenFileName(nullptr, title, QDir::homePath(), name);
}

QString QtPlatform::chooseFolder(const QString& prompt) {
    return QFileDialog::getExistingDirectory(nullptr, prompt, QDir::homePath());
}

void QtPlatform::showInputForm(FrmInput& form) { ShowInputForm(form); }

void QtPlatform::addUrlDialog(const std::function<void(const QString&)>& onAdd) {
    AddUrlDialog dialog(onAdd);
    dialog.exec();
}

int32_t QtPlatform::chooseColor(int32_t initial) {
    // Colours travel as 0x00BBGGRR.
    const QColor start(initial & 0xFF, (initial >> 8) & 0xFF, (initial >> 16) & 0xFF);
    const QColor c = QColorDialog::getColor(start, QApplication::activeWindow());
    if (!c.isValid()) return -1;
    return c.red() | (c.green() << 8) | (c.blue() << 16);
}

bool QtPlatform::chooseFont(QString& name, int& pointSize) {
    bool ok = false;
    const QFont f = QFontDialog::getFont(&ok, QFont(name, pointSize > 0 ? pointSize : 10),
                                         QApplication::activeWindow());
    if (!ok) return false;
    name = f.family();
    pointSize = f.pointSize() > 0 ? f.pointSize() : pointSize;
    return true;
}

QString QtPlatform::chooseOpenFileIn(const QString& title, const QString& filterName, const QString& pattern,
                                     const QString& folder) {
    // Themes: "*.jpg; *.bmp; *.gif" becomes "*.jpg *.JPG *.bmp ...", since names on Linux keep their case.
    QStringList patterns;
    for (QString p : pattern.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        p = p.trimmed();
        if (p.isEmpty()) continue;
        p.replace(QLatin1String("*.*"), QLatin1String("*"));
        patterns << p;
        if (p.toUpper() != p) patterns << p.toUpper();
    }
    QString name = filterName;
    if (name.contains(QLatin1Char('('))) name = name.left(name.indexOf(QLatin1Char('('))).trimmed();
    name += QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
    const QString start = QDir(folder).exists() ? folder : QDir::homePath();
    return QFileDialog::getOpenFileName(QApplication::activeWindow(), title, start, name);
}

QString QtPlatform::clipboardText() const {
    // A file list copied in a file manager also comes as text (its paths): that is the file list, not text.
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (data && !LocalFilesOf(data).isEmpty()) return {};
    return QGuiApplication::clipboard()->text();
}

void QtPlatform::setClipboardText(const QString& text) { QGuiApplication::clipboard()->setText(text); }

float QtPlatform::twipsPerPixelX() const {
    const qreal dpi = Screen() ? Screen()->logicalDotsPerInchX() : 96;
    return static_cast<float>(1440.0 / (dpi > 0 ? dpi : 96));
}

float QtPlatform::twipsPerPixelY() const {
    const qreal dpi = Screen() ? Screen()->logicalDotsPerInchY() : 96;
    return static_cast<float>(1440.0 / (dpi > 0 ? dpi : 96));
}

float QtPlatform::screenWidth() const {
    return static_cast<float>(Screen() ? Screen()->geometry().width() : 1024) * twipsPerPixelX();
}

float QtPlatform::screenHeight() const {
    return static_cast<float>(Screen() ? Screen()->geometry().height() : 768) * twipsPerPixelY();
}

QPoint QtPlatform::cursorPos() const { return QCursor::pos(); }

QSize QtPlatform::imageSize(const QString& path) const {
    QImageReader reader(path);
    // The header's size where the format gives it, else the decoded image's.
    QSize s = reader.size();
    if (!s.isValid()) {
        const QImage img = reader.read();
        s = img.isNull() ? QSize() : img.size();
    }
    return s;
}

QSize QtPlatform::textExtent(const QString& text, const QString& fontName, float pointSize, bool bold) const {
    QFont f(fontName);
    f.setPointSizeF(ShownFontSize(pointSize));
    f.setBold(bold);
    return QFontMetrics(f).size(Qt::TextSingleLine, text);
}

QString QtPlatform::programDirectory() const { return QCoreApplication::applicationDirPath(); }

QString QtPlatform::userDataDirectory() const {
    // $XDG_DATA_HOME, or ~/.local/share when it is unset or not absolute (the base directory rules).
    const QString xdg = qEnvironmentVariable("XDG_DATA_HOME");
    if (!xdg.isEmpty() && QDir::isAbsolutePath(xdg)) return xdg;
    const QString home = QDir::homePath();
    return home.isEmpty() ? QString() : QDir(home).filePath(QStringLiteral(".local/share"));
}

QString QtPlatform::programExecutable() const { return QCoreApplication::applicationFilePath(); }

bool QtPlatform::openUrl(const QString& target) {
    return QDesktopServices::openUrl(QUrl::fromUserInput(target, QDir::currentPath(), QUrl::AssumeLocalFile));
}

bool QtPlatform::startDetached(const QString& program, const QStringList& args) {
    return QProcess::startDetached(program, args);
}

int QtPlatform::shellExecute(const QString& file, const QString& params, const QString& dir) {
    return LaunchTarget(file, params, dir);
}

int QtPlatform::moveToTrash(const QString& path) {
    // Qt follows the freedesktop trash: the file goes to the trash of its own file system, with the
    // information file that lets the desktop's trash restore it.
    errno = 0;
    QFile f(path);
    if (f.moveToTrash()) return 0;
    return errno != 0 ? errno : EIO;
}

void QtPlatform::playSound(const QString& path) {
    if (!QFileInfo(path).isFile()) return;
    auto& effect = sounds_[path];
    if (!effect) {
        effect = std::make_unique<QSoundEffect>();
        effect->setSource(QUrl::fromLocalFile(path));
    }
    // Without an audio device the effect stays silent; nothing waits for it either way.
    effect->play();
}

void QtPlatform::showTrayIcon(const QString& tip) {
    if (!QSystemTrayIcon::isSystemTrayAvailable()) return;
    if (!tray_) {
        tray_ = std::make_unique<QSystemTrayIcon>(ProgramIcon());
        QObject::connect(tray_.get(), &QSystemTrayIcon::activated, [this](QSystemTrayIcon::ActivationReason r) {
            if (r == QSystemTrayIcon::Trigger && onTrayClick) onTrayClick();
        });
        if (trayMenu_) tray_->setContextMenu(trayMenu_);
    }
    tray_->setToolTip(tip);
    tray_->show();
}

void QtPlatform::removeTrayIcon() {
    if (tray_) tray_->hide();
    tray_.reset();
}

void QtPlatform::setTrayMenu(QMenu* menu) {
    trayMenu_ = menu;
    if (tray_) tray_->setContextMenu(menu);
}

bool QtPlatform::registerHotKey() {
    // A key grab on the X11 root window. Wayland has none for clients: there the desktop's own shortcut
    // settings bind "perchdock --toggle", which reaches this instance through the local socket.
    if (!hotKey_) hotKey_ = std::make_unique<X11HotKey>([this] {
        if (onHotKey) onHotKey();
    });
    return hotKey_->grab();
}

void QtPlatform::unregisterHotKey() { hotKey_.reset(); }

void QtPlatform::registerWindow(const QString& name, QWidget* window) { windows_[name] = window; }

void QtPlatform::setWindowOnTop(const QString& window, bool onTop, bool noActivate) {
    auto it = windows_.find(window);
    if (it == windows_.end() || !it->second) return;
    QWidget* w = it->second;
    QWindow* handle = w->windowHandle();
    if (!handle || !w->isVisible()) {
        // Not shown yet: the flag goes with the window when it is made.
        Qt::WindowFlags flags = w->windowFlags();
        flags.setFlag(Qt::WindowStaysOnTopHint, onTop);
        w->overrideWindowFlags(flags);
        if (handle) handle->setFlags(flags);
        return;
    }
    // On a shown window the platform window changes its "above" state in place (QWidget's own flag
    // would hide and make the window again); the widget is told without telling the window system, so
    // that both agree when the window is shown again.
    if (handle->flags().testFlag(Qt::WindowStaysOnTopHint) != onTop) {
        Qt::WindowFlags flags = w->windowFlags();
        flags.setFlag(Qt::WindowStaysOnTopHint, onTop);
        w->overrideWindowFlags(flags);
        handle->setFlags(flags);
    }
    if (onTop) {
        handle->raise();
        if (!noActivate) handle->requestActivate();
    }
}

QString QtPlatform::foregroundWindow() const {
    // On a display without a window manager nothing hands out the focus; the end-to-end tests say so
    // with this variable, and the main window then counts as the one in front (so it does not dock on
    // its own under a test that drives it).
    if (qEnvironmentVariableIsSet("PERCHDOCK_ASSUME_FOCUS")) return QStringLiteral("frmMain");
    // A pop-up menu does not take the activation from its window, so the menu's window stays in front.
    const QWidget* active = QApplication::activeWindow();
    if (!active) return {};
    for (const auto& [name, w] : windows_)
        if (w == active) return name;
    return QStringLiteral("#") + active->objectName();
}

void QtPlatform::setWindowAlpha(const QString& window, int alpha) {
    auto it = windows_.find(window);
    if (it == windows_.end() || !it->second) return;
    it->second->setWindowOpacity(std::clamp(alpha, 0, 255) / 255.0);
}

namespace {
// Eats mouse input while the pending events are handled.
class MouseEater : public QObject {
protected:
    bool eventFilter(QObject*, QEvent* ev) override {
        switch (ev->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel: return true;
        default: return false;
        }
    }
};
} // namespace

void QtPlatform::flushMouseEvents() {
    MouseEater eater;
    qApp->installEventFilter(&eater);
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    qApp->removeEventFilter(&eater);
}

void QtPlatform::setDropShadow(bool on) {
    // Qt's hint, for the windows not made yet (hence the restart). Under X11 the shadow of a frameless
    // window is the compositor's to draw; the hint is what the program can say.
    for (const auto& [name, w] : windows_)
        if (w && !w->testAttribute(Qt::WA_WState_Created)) w->setWindowFlag(Qt::NoDropShadowWindowHint, !on);
}

QString QtPlatform::instanceKey() const {
    const QByteArray id = QCryptographicHash::hash(userDataDirectory().toUtf8(), QCryptographicHash::Sha1).toHex().left(12);
    return QStringLiteral("perchdock-") + QString::fromLatin1(id);
}

bool QtPlatform::claimSingleInstance() {
    QString dir = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (dir.isEmpty()) dir = QDir::tempPath();
    lock_ = std::make_unique<QLockFile>(QDir(dir).filePath(instanceKey() + QStringLiteral(".lock")));
    // A lock left by a crashed instance is taken over (its process is gone).
    lock_->setStaleLockTime(0);
    if (!lock_->tryLock(0)) return false;
    QLocalServer::removeServer(instanceKey());
    server_ = std::make_unique<QLocalServer>();
    QObject::connect(server_.get(), &QLocalServer::newConnection, [this] {
        while (QLocalSocket* s = server_->nextPendingConnection()) {
            QObject::connect(s, &QLocalSocket::readyRead, s, [this, s] {
                if (s->readAll().startsWith("toggle") && onToggleRequest) onToggleRequest();
                s->disconnectFromServer();
            });
            QObject::connect(s, &QLocalSocket::disconnected, s, &QObject::deleteLater);
        }
    });
    server_->listen(instanceKey());
    return true;
}

bool QtPlatform::askRunningInstanceToToggle() {
    QLocalSocket s;
    s.connectToServer(instanceKey());
    if (!s.waitForConnected(1000)) return false;
    s.write("toggle\n");
    s.waitForBytesWritten(1000);
    s.disconnectFromServer();
    return true;
}

void QtPlatform::doEvents() { QCoreApplication::processEvents(); }

void QtPlatform::httpGet(const HttpRequest& request, std::function<void(const HttpReply&)> done) {
    if (!http_) http_ = std::make_unique<HttpClient>();
    http_->get(request, std::move(done));
}

bool QtPlatform::isOnline() {
    if (!http_) http_ = std::make_unique<HttpClient>();
    return http_->isOnline();
}

} // namespace pd
