#pragma once
// Every service of the outside world that the routines use, in one place: message boxes and choosers,
// starting programs, sounds, the pointer and the screen, the tray and the hot key, the single-instance
// channel. `platform/qt` implements it for the Linux desktop; the tests use a fake that records each call
// and answers from a script.

#include <QByteArray>
#include <QPoint>
#include <QSize>
#include <QString>
#include <QStringList>

#include <functional>
#include <utility>
#include <vector>

namespace pd {

struct FrmInput;

// Message box styles, as the routines pass them: buttons + icon + system-modal.
namespace MsgStyle {
inline constexpr int OkOnly = 0;
inline constexpr int YesNoCancel = 3;
inline constexpr int YesNo = 4;
inline constexpr int Critical = 16;
inline constexpr int Question = 32;
inline constexpr int Exclamation = 48;
inline constexpr int Information = 64;
inline constexpr int SystemModal = 4096;

inline constexpr int YesNoWarning = 4148;    // yes/no with exclamation
inline constexpr int YesNoQuestion = 4132;   // yes/no with question
inline constexpr int YesNoCancelWarn = 4147; // yes/no/cancel with exclamation
inline constexpr int YesNoCancelAsk = 4131;  // yes/no/cancel with question
inline constexpr int CriticalBox = 4112;
inline constexpr int ExclamationBox = 4144;
inline constexpr int InformationBox = 4160;
} // namespace MsgStyle

// Answers of a message box.
namespace MsgAnswer {
inline constexpr int Ok = 1;
inline constexpr int Cancel = 2;
inline constexpr int Yes = 6;
inline constexpr int No = 7;
} // namespace MsgAnswer

// One HTTP GET: the address, an optional proxy, the request headers and the limits of the exchange.
struct HttpRequest {
    QString url;
    // "host:port" of an HTTP proxy; empty for a direct connection.
    QString proxy;
    std::vector<std::pair<QByteArray, QByteArray>> headers;
    // The whole exchange, redirects and body included, must end within this time or it fails.
    int timeoutMs = 15000;
    // A body longer than this is cut off and the exchange fails, so that no answer can fill the memory.
    qint64 maxBodyBytes = 8 * 1024 * 1024;
};

// What came back: the final status after redirects (0 when no answer came: refused, unreachable, timed
// out, cut off at the size limit), the body and the Content-Type header.
struct HttpReply {
    int status = 0;
    QByteArray body;
    QByteArray contentType;
};

// Shell exchange: one file operation, as the routines pass it (the fields of the shell's record).
namespace FileOp {
inline constexpr int Copy = 2;   // copy the sources into the folder `to`
inline constexpr int Delete = 3; // delete the sources
inline constexpr int RenameOnCollision = 8; // a copy whose name is taken gets a new name, as file managers name copies
inline constexpr int AllowUndo = 64;        // a delete goes to the desktop's trash
inline constexpr int SimpleProgress = 256;  // one progress window with the title, which the user can cancel
} // namespace FileOp
struct FileOpRequest {
    int func = 0;
    QStringList from;
    QString to;
    int flags = 0;
    QString title;
};
struct FileOpResult {
    // 0 when done (or cancelled), else an error number (errno).
    int result = 0;
    // The user cancelled in the progress window.
    bool aborted = false;
    // For a copy: where each source landed, in order.
    QStringList made;
};

class Platform {
public:
    virtual ~Platform() = default;

    // --- dialogs ---
    // Shows a message box and returns the answer (MsgAnswer). `title` empty means the program's title.
    virtual int messageBox(const QString& text, int style, const QString& title = {}) = 0;

    // Asks for a file to open; `filterName` and `pattern` describe the files offered ("All Files (*.*)",
    // "*.*"). Returns the chosen path, or empty when the user cancelled.
    virtual QString chooseOpenFile(const QString& title, const QString& filterName, const QString& pattern) = 0;

    // Asks for a folder, with `prompt` above the folder tree. Returns the chosen folder, or empty when
    // the user cancelled.
    virtual QString chooseFolder(const QString& prompt) = 0;

    // Shows the loaded question box (feeds/InputDialog) modally over the main window, with its caption,
    // prompt and text, and returns when one of its buttons (cmdOK_Click, cmdCancel_Click) hid it.
    virtual void showInputForm(FrmInput& form) = 0;

    // The modal "Add URL" dialog: `onAdd` runs with each address the user adds (the dialog may stay
    // open for more when "Keep Open" is checked). Returns when the dialog has closed.
    virtual void addUrlDialog(const std::function<void(const QString&)>& onAdd) = 0;

    // The desktop's colour chooser, opened on `initial` (0x00BBGGRR). Returns the chosen colour in the same
    // form, or -1 when the user cancelled.
    virtual int32_t chooseColor(int32_t initial) = 0;

    // The desktop's font chooser, opened on `name` at `pointSize`. Returns false when the user cancelled;
    // otherwise `name` and `pointSize` hold the choice.
    virtual bool chooseFont(QString& name, int& pointSize) = 0;
    // Themes: chooseOpenFile opening in `folder` (the wallpaper chooser); by default the folder is left
    // to the chooser.
    virtual QString chooseOpenFileIn(const QString& title, const QString& filterName, const QString& pattern,
                                     const QString& folder) {
        (void)folder;
        return chooseOpenFile(title, filterName, pattern);
    }

    // --- the clipboard (plain text) ---
    virtual QString clipboardText() const = 0;
    virtual void setClipboardText(const QString& text) = 0;

    // --- the screen and the pointer ---
    // Twips per pixel: 1440 / the screen's logical DPI (15 at 96 DPI).
    virtual float twipsPerPixelX() const = 0;
    virtual float twipsPerPixelY() const = 0;
    // The screen's size in twips.
    virtual float screenWidth() const = 0;
    virtual float screenHeight() const = 0;
    // The pointer's position in screen pixels.
    virtual QPoint cursorPos() const = 0;

    // The size in pixels of one line of text in a font (a label that sizes itself to its caption).
    virtual QSize textExtent(const QString& text, const QString& fontName, float pointSize, bool bold) const = 0;

    // --- images ---
    // The natural size of an image file in pixels; an invalid size when it cannot be read.
    virtual QSize imageSize(const QString& path) const = 0;

    // --- programs and files ---
    // The folder of the program's own files (sounds, images, the restart helper).
    virtual QString programDirectory() const = 0;
    // The user's data folder, the counterpart of the application data folder: $XDG_DATA_HOME or
    // ~/.local/share. Empty when it cannot be determined.
    virtual QString userDataDirectory() const = 0;
    // The program's own executable file.
    virtual QString programExecutable() const = 0;
    // Opens a document, folder or web address with the desktop's opener. Returns true on success.
    virtual bool openUrl(const QString& target) = 0;
    // Starts a program detached with its arguments. Returns true when it started.
    virtual bool startDetached(const QString& program, const QStringList& args) = 0;

    // Starts `file` as the desktop would start it, with `params` (a command-line text) and the working
    // folder `dir` (empty: the program's own). Never waits for the started program. Returns 42 when the
    // start succeeded, else a small error number: 2 file not found, 3 path not found, 5 access denied,
    // 8 out of memory, 11 invalid executable, 31 no application for the type.
    virtual int shellExecute(const QString& file, const QString& params, const QString& dir) = 0;
    // Moves a file or folder to the desktop's trash. Returns 0 on success, else an error number (errno).
    virtual int moveToTrash(const QString& path) = 0;

    // --- sounds ---
    // Starts a sound file and returns at once; a missing file plays nothing.
    virtual void playSound(const QString& path) = 0;

    // --- tray and hot key ---
    virtual void showTrayIcon(const QString& tip) = 0;
    virtual void removeTrayIcon() = 0;
    // Registers the global hot key Super+S; returns false where the desktop does not allow it.
    virtual bool registerHotKey() = 0;
    virtual void unregisterHotKey() = 0;

    // --- the program's own windows, named as their elements ("frmMain", "frmToolbar", "frmTooltip") ---
    // Keeps a window above all others (onTop) or lets it go back among them. With `noActivate` the
    // window comes to the top without taking the focus from what the user is doing.
    virtual void setWindowOnTop(const QString& window, bool onTop, bool noActivate) = 0;
    // The name of the program's window that has the keyboard focus (a pop-up menu counts as the window
    // it belongs to); empty when another program's window has it.
    virtual QString foregroundWindow() const = 0;
    // The opacity of a window, 0 (invisible) to 255 (opaque).
    virtual void setWindowAlpha(const QString& window, int alpha) = 0;
    // Throws away the mouse input that waits to be handled, so that clicks made during a long
    // operation do nothing.
    virtual void flushMouseEvents() = 0;
    // Whether the frameless windows made from now on cast a shadow.
    virtual void setDropShadow(bool on) = 0;

    // --- single instance ---
    // Claims this user's single-instance lock; false when another instance holds it.
    virtual bool claimSingleInstance() = 0;
    // Asks the running instance to show or hide its window; false when none answers.
    virtual bool askRunningInstanceToToggle() = 0;
    // What runs when a later start asks this instance to toggle its window.
    std::function<void()> onToggleRequest;

    // --- network ---
    // Starts a GET and returns at once; `done` runs later on this thread with the reply (a fake may run it
    // at once). Only http and https addresses are fetched.
    virtual void httpGet(const HttpRequest& request, std::function<void(const HttpReply&)> done) = 0;
    // False only when the system positively reports that no network is reachable at all.
    virtual bool isOnline() = 0;

    // --- the event loop ---
    // Lets pending events run (the two points in the unload that do so).
    virtual void doEvents() = 0;

    // --- shell exchange: the clipboard's file list, file operations, file drags out ---
    // Puts a file list on the clipboard as file managers take it; false when that failed.
    virtual bool setClipboardFiles(const QStringList& paths) = 0;
    // The local files listed on the clipboard, in order; empty when it holds none.
    virtual QStringList clipboardFiles() const = 0;
    // Copies or deletes files with a progress window the user can cancel; returns when done. The window
    // keeps running meanwhile.
    virtual FileOpResult fileOperation(const FileOpRequest& op) = 0;
    // Starts a drag of files out to other programs; returns when it ends, with the effect the target took
    // (0 none, 1 copy, 2 move).
    virtual int startFileDrag(const QStringList& paths) = 0;
};

} // namespace pd
