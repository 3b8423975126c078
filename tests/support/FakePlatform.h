#pragma once
// A platform for headless tests: records every call and answers message boxes from a script.

#include "feeds/InputDialog.h"
#include "platform/Platform.h"
#include "shell/FileCopy.h"

#include <QSize>

#include <algorithm>
#include <cmath>

#include <deque>
#include <functional>
#include <map>
#include <vector>

namespace pd::test {

struct ShownMessage {
    QString text;
    int style;
    QString title;
};

class FakePlatform : public Platform {
public:
    // Answers for the coming message boxes, in order; when none is left the answer is No (or OK).
    std::deque<int> answers;
    std::vector<ShownMessage> messages;
    std::vector<QString> opened;
    std::vector<std::pair<QString, QStringList>> started;
    QString programDir;
    QString dataDir;
    QString executable = QStringLiteral("/opt/perchdock/perchdock");
    float screenW = 1920 * 15.0f;
    float screenH = 1080 * 15.0f;
    QPoint cursor;
    // Image files and their natural sizes; files not listed do not load.
    std::map<QString, QSize> images;
    bool trayShown = false;
    bool hotKeyRegistered = false;
    bool otherInstance = false;
    int toggleRequests = 0;
    int doEventsCalls = 0;

    int messageBox(const QString& text, int style, const QString& title) override {
        messages.push_back({text, style, title});
        if (!answers.empty()) {
            const int a = answers.front();
            answers.pop_front();
            return a;
        }
        return (style & 7) == MsgStyle::OkOnly ? MsgAnswer::Ok : MsgAnswer::No;
    }
    // Answers for the coming file dialogs, in order; when none is left the dialog is cancelled.
    std::deque<QString> fileAnswers;
    std::vector<QString> fileDialogs;
    QString chooseOpenFile(const QString& title, const QString& filterName, const QString& pattern) override {
        fileDialogs.push_back(title + QLatin1Char('|') + filterName + QLatin1Char('|') + pattern);
        if (fileAnswers.empty()) return {};
        const QString a = fileAnswers.front();
        fileAnswers.pop_front();
        return a;
    }
    // Answers for the coming folder prompts and input prompts, in order; when none is left the prompt
    // is cancelled (an input prompt then gives a null string).
    std::deque<QString> folderAnswers;
    std::vector<QString> folderPrompts;
    QString chooseFolder(const QString& prompt) override {
        folderPrompts.push_back(prompt);
        if (folderAnswers.empty()) return {};
        const QString a = folderAnswers.front();
        folderAnswers.pop_front();
        return a;
    }
    // The question box: each showing is recorded as "prompt|caption|text" and as the whole box as it
    // came up; an answer types its text and presses OK, and with none left Cancel is pressed.
    std::deque<QString> inputAnswers;
    std::vector<QString> inputPrompts;
    std::vector<FrmInput> inputForms;
    void showInputForm(FrmInput& form) override {
        inputForms.push_back(form);
        inputPrompts.push_back(form.lblCaption + QLatin1Char('|') + form.Caption + QLatin1Char('|') + form.txtInput);
        if (inputAnswers.empty()) {
            form.cmdCancel_Click();
            return;
        }
        form.txtInput = inputAnswers.front();
        inputAnswers.pop_front();
        form.cmdOK_Click();
    }
    // The addresses typed into the next "Add URL" dialogs: one list a dialog, each address one press of
    // Add. A dialog without a list is closed at once.
    std::deque<std::vector<QString>> urlDialogAnswers;
    int urlDialogs = 0;
    void addUrlDialog(const std::function<void(const QString&)>& onAdd) override {
        ++urlDialogs;
        if (urlDialogAnswers.empty()) return;
        const std::vector<QString> list = urlDialogAnswers.front();
        urlDialogAnswers.pop_front();
        for (const QString& a : list) onAdd(a);
    }
    // Answers for the coming colour choosers, in order (-1 cancels); with none left the chooser is
    // cancelled. Each opening records the colour it started on.
    std::deque<int32_t> colorAnswers;
    std::vector<int32_t> colorDialogs;
    int32_t chooseColor(int32_t initial) override {
        colorDialogs.push_back(initial);
        if (colorAnswers.empty()) return -1;
        const int32_t a = colorAnswers.front();
        colorAnswers.pop_front();
        return a;
    }
    // Answers for the coming font choosers (name, size), in order; with none left it is cancelled.
    std::deque<std::pair<QString, int>> fontAnswers;
    std::vector<std::pair<QString, int>> fontDialogs;
    bool chooseFont(QString& name, int& pointSize) override {
        fontDialogs.emplace_back(name, pointSize);
        if (fontAnswers.empty()) return false;
        name = fontAnswers.front().first;
        pointSize = fontAnswers.front().second;
        fontAnswers.pop_front();
        return true;
    }
    // Themes: the folder each file dialog with a folder opened in, in order; the answer comes from
    // fileAnswers as for chooseOpenFile.
    std::vector<QString> fileDialogFolders;
    QString chooseOpenFileIn(const QString& title, const QString& filterName, const QString& pattern,
                             const QString& folder) override {
        fileDialogFolders.push_back(folder);
        return chooseOpenFile(title, filterName, pattern);
    }
    // The clipboard's plain text.
    QString clipboard;
    QString clipboardText() const override { return clipboard; }
    void setClipboardText(const QString& text) override { clipboard = text; }
    float twipsPerPixelX() const override { return 15; }
    float twipsPerPixelY() const override { return 15; }
    float screenWidth() const override { return screenW; }
    float screenHeight() const override { return screenH; }
    QPoint cursorPos() const override { return cursor; }
    QSize imageSize(const QString& path) const override {
        auto it = images.find(path);
        return it == images.end() ? QSize() : it->second;
    }
    // Text measures as a plain fixed-pitch font would: 0.6 em a character, 1.6 em a line.
    QSize textExtent(const QString& text, const QString&, float pointSize, bool bold) const override {
        const double em = std::clamp(static_cast<double>(pointSize), 1.0, 1638.0) * 96.0 / 72.0;
        return QSize(static_cast<int>(std::ceil(text.size() * em * (bold ? 0.65 : 0.6))),
                     static_cast<int>(std::ceil(em * 1.6)));
    }
    QString programDirectory() const override { return programDir; }
    QString userDataDirectory() const override { return dataDir; }
    QString programExecutable() const override { return executable; }
    bool openUrl(const QString& target) override {
        opened.push_back(target);
        return true;
    }
    // When set, starting a program fails (the call is still recorded).
    bool startFails = false;
    bool startDetached(const QString& program, const QStringList& args) override {
        started.emplace_back(program, args);
        return !startFails;
    }
    // Every start: file, parameters and working folder. `launchResults` gives the result of the coming
    // starts, in order; when none is left a start succeeds (42).
    struct Launch {
        QString file, params, dir;
    };
    std::vector<Launch> launches;
    std::deque<int> launchResults;
    int shellExecute(const QString& file, const QString& params, const QString& dir) override {
        launches.push_back({file, params, dir});
        if (launchResults.empty()) return 42;
        const int r = launchResults.front();
        launchResults.pop_front();
        return r;
    }
    // Paths sent to the trash; `trashResult` is what each move returns.
    std::vector<QString> trashed;
    int trashResult = 0;
    int moveToTrash(const QString& path) override {
        trashed.push_back(path);
        return trashResult;
    }
    std::vector<QString> sounds;
    void playSound(const QString& path) override { sounds.push_back(path); }
    void showTrayIcon(const QString&) override { trayShown = true; }
    void removeTrayIcon() override { trayShown = false; }
    bool registerHotKey() override { return hotKeyRegistered = true; }
    void unregisterHotKey() override { hotKeyRegistered = false; }
    bool claimSingleInstance() override { return !otherInstance; }
    bool askRunningInstanceToToggle() override {
        ++toggleRequests;
        return otherInstance;
    }
    void doEvents() override { ++doEventsCalls; }

    // The program's windows: every top-most change in order, the window said to have the focus
    // ("frmMain", or empty for another program's), opacities, flushes and the shadow.
    struct OnTopCall {
        QString window;
        bool onTop;
        bool noActivate;
    };
    std::vector<OnTopCall> onTopCalls;
    std::map<QString, bool> onTop;
    QString foreground;
    std::map<QString, int> alpha;
    int mouseFlushes = 0;
    bool dropShadow = false;
    // Runs at each top-most change, so that a test can see what had happened by then.
    std::function<void(const OnTopCall&)> onWindowOnTop;
    void setWindowOnTop(const QString& window, bool top, bool noActivate) override {
        onTopCalls.push_back({window, top, noActivate});
        onTop[window] = top;
        if (onWindowOnTop) onWindowOnTop(onTopCalls.back());
    }
    QString foregroundWindow() const override { return foreground; }
    void setWindowAlpha(const QString& window, int a) override { alpha[window] = a; }
    void flushMouseEvents() override { ++mouseFlushes; }
    void setDropShadow(bool on) override { dropShadow = on; }

    // HTTP from a script: the reply for each address; an address not listed gets status 0, as when no
    // server answers. Every request is recorded. With `httpDeferred` set, completions wait in
    // `pendingHttp` until `runPendingHttp()`, so that a test can act while a fetch is under way.
    std::map<QString, HttpReply> httpReplies;
    std::vector<HttpRequest> httpRequests;
    bool httpDeferred = false;
    std::deque<std::function<void()>> pendingHttp;
    bool online = true;
    void httpGet(const HttpRequest& request, std::function<void(const HttpReply&)> done) override {
        httpRequests.push_back(request);
        auto it = httpReplies.find(request.url);
        HttpReply reply = it == httpReplies.end() ? HttpReply{} : it->second;
        if (httpDeferred) pendingHttp.push_back([reply, done] { done(reply); });
        else done(reply);
    }
    // Runs the waiting completions in the order their requests were made; returns how many ran.
    int runPendingHttp() {
        int n = 0;
        while (!pendingHttp.empty()) {
            auto f = std::move(pendingHttp.front());
            pendingHttp.pop_front();
            f();
            ++n;
        }
        return n;
    }
    bool isOnline() override { return online; }

    // Shell exchange: the clipboard's file list, file operations and file drags. `clipboardFileList` is
    // the list on the clipboard; `clipboardFilesFail` makes writing it fail. Every file operation is
    // recorded; `fileOpResults` answers the coming ones in order, and with none left a copy is made for
    // real by shell/FileCopy (a delete records its sources in `trashed`, returns `trashResult` and
    // removes nothing).
    QStringList clipboardFileList;
    bool clipboardFilesFail = false;
    int clipboardFileWrites = 0;
    bool setClipboardFiles(const QStringList& paths) override {
        ++clipboardFileWrites;
        if (clipboardFilesFail) return false;
        clipboardFileList = paths;
        return true;
    }
    QStringList clipboardFiles() const override { return clipboardFileList; }
    std::vector<FileOpRequest> fileOps;
    std::deque<FileOpResult> fileOpResults;
    FileOpResult fileOperation(const FileOpRequest& op) override {
        fileOps.push_back(op);
        if (!fileOpResults.empty()) {
            const FileOpResult r = fileOpResults.front();
            fileOpResults.pop_front();
            return r;
        }
        if (op.func == FileOp::Delete) {
            for (const QString& f : op.from) trashed.push_back(f);
            return {trashResult, false, {}};
        }
        return RunFileOperation(op, nullptr, nullptr);
    }
    std::vector<QStringList> fileDrags;
    int fileDragEffect = 1;
    int startFileDrag(const QStringList& paths) override {
        fileDrags.push_back(paths);
        return fileDragEffect;
    }
};

} // namespace pd::test
