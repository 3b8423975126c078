#include "shortcuts/Launch.h"

#include "app/workspace/Workspace.h"
#include "shortcuts/CommandLine.h"
#include "shortcuts/FindState.h"
#include "shortcuts/LinkSelection.h"
#include "window/AutoHide.h"
#include "window/Docking.h"

#include <QStorageInfo>

#include <algorithm>

namespace pd {

namespace {

// The label's pointer while the start runs.
constexpr int kHourglass = 11;

// What the start call returns when it succeeded; the numbers 1 to 31 are errors.
bool IsLaunchError(int result) { return result > 0 && result < 32; }

// The target of shortcut n as the start call takes it: "@" paths expanded.
QString TargetPath(const Workspace& ws, int n) {
    const QString& path = ws.Links[static_cast<size_t>(n)].LinkPath;
    return path.startsWith(QLatin1Char('@')) ? ExpandDriveLetter(ws, path) : path;
}

// The working folder for a target: its parent folder; an address has none.
QString WorkingFolder(const QString& target) { return HasUrlScheme(target) ? QString() : ParentFolder(target); }

// Starts shortcut n's target with its parameters in its folder, as a file or web shortcut starts.
int StartTarget(Workspace& ws, int n) {
    const QString path = TargetPath(ws, n);
    return ws.platform.shellExecute(path, ws.Links[static_cast<size_t>(n)].LinkParam, WorkingFolder(path));
}

bool IsLiveLink(const Workspace& ws, int n) {
    return n >= 0 && ws.Link.exists(n) && static_cast<size_t>(n) < ws.Links.size();
}

} // namespace

QString LaunchErrorText(int result) {
    switch (result) {
    case 2: return QStringLiteral("File not found");
    case 3: return QStringLiteral("Path not found");
    case 5: return QStringLiteral("Path/file access error");
    case 8: return QStringLiteral("Out of memory");
    case 11: return QStringLiteral("The executable file is invalid or corrupt");
    case 26: return QStringLiteral("A sharing violation occurred.");
    case 27: return QStringLiteral("This file type does not have a valid file association.");
    case 28: return QStringLiteral("The file could not be opened due to time out. Please try again in a moment.");
    case 29:
        return QStringLiteral(
            "The file could not be opened because the DDE transaction failed. Please try again in a moment.");
    case 30:
        return QStringLiteral("The file could not be opened because the target application is busy. Please try "
                              "again in a moment.");
    case 31: return QStringLiteral("No application is associated with this file type.");
    default: return QStringLiteral("An error occurred occurred whilst trying to open or print the selected file.");
    }
}

void LaunchLink(Workspace& ws, int n) {
    // A drag since the press: the release is not a start.
    if (ws.MouseDownLink == -1) return;
    if (!IsLiveLink(ws, n)) return;
    ws.playSound(QStringLiteral("click.wav"));

    // Records are read by index each time: the question runs the event loop, and a handler in it may
    // grow the array.
    if (ws.Links[static_cast<size_t>(n)].Confirm) {
        EnableDisableTimerHide(ws, false);
        const int answer = ws.platform.messageBox(QStringLiteral("Start ") + ws.Link(n).Caption.get() +
                                                      QLatin1Char('?'),
                                                  MsgStyle::YesNoWarning, QStringLiteral("Launch Confirmation"));
        EnableDisableTimerHide(ws, true);
        if (answer != MsgAnswer::Yes) return;
    }

    ws.Link(n).MousePointer = kHourglass;
    PostLaunch(ws, false);

    int result;
    if (ws.Links[static_cast<size_t>(n)].Command == 1) {
        // A command shortcut: its parameter text is the whole command, run by the shell. The text is
        // handed over as ONE word after -c, quoted so that the launcher's splitting gives it back
        // unchanged (blanks, quotes and all); an empty command is the empty word, which the shell runs
        // as nothing. The shortcut's path plays no part.
        result = ws.platform.shellExecute(QStringLiteral("/bin/sh"),
                                          QStringLiteral("-c ") +
                                              QuoteCommandWord(ws.Links[static_cast<size_t>(n)].LinkParam),
                                          QString());
    } else {
        result = StartTarget(ws, n);
    }

    SetLinkSelected(ws, n, false);
    if (IsLaunchError(result))
        ws.platform.messageBox(LaunchErrorText(result), MsgStyle::CriticalBox, QStringLiteral("Error with shortcut"));
    PostLaunch(ws, true);

    // The launch mark: a shortcut with a mark tag shows its border; one without takes the border off
    // the shortcuts whose mark its tags name. Even a failed start marks.
    if (ws.Links[static_cast<size_t>(n)].MarkTag.isEmpty()) ClearMarksForTags(ws, n);
    else ws.Link(n).BorderStyle = 1;
}

QString ExpandDriveLetter(const Workspace& ws, const QString& Path) {
    // "@" stands for the program's drive. On Linux that is the mount point of the file system that
    // holds the program directory (a program on a stick at /media/usb finds "@/Tools/x" at
    // /media/usb/Tools/x wherever the stick is mounted). Two forms are read:
    //  - "@:\Tools\x.exe", the old form: what follows "@:" is a Windows path, so its backslashes turn
    //    into slashes: <mount>/Tools/x.exe. "@\Tools\x.exe" is read the same way.
    //  - "@/Tools/x", the Linux form: the rest is a path below the mount point and is kept as it is
    //    (a backslash is a legal file name character here).
    // Anything else after "@" is taken as a path relative to the mount point; "@" alone is the mount
    // point itself. Paths without "@" in front are returned unchanged.
    if (!Path.startsWith(QLatin1Char('@'))) return Path;
    QString mount = QStorageInfo(ws.ProgramDirectory).rootPath();
    if (mount.isEmpty()) mount = QStringLiteral("/");
    QString rest = Path.mid(1);
    if (rest.startsWith(QLatin1Char(':'))) {
        rest = rest.mid(1);
        rest.replace(QLatin1Char('\\'), QLatin1Char('/'));
    } else if (rest.startsWith(QLatin1Char('\\'))) {
        rest.replace(QLatin1Char('\\'), QLatin1Char('/'));
    }
    while (rest.startsWith(QLatin1Char('/'))) rest.remove(0, 1);
    if (!mount.endsWith(QLatin1Char('/'))) mount += QLatin1Char('/');
    return mount + rest;
}

QString ParentFolder(const QString& Path) {
    const qsizetype slash = Path.lastIndexOf(QLatin1Char('/'));
    const qsizetype backslash = Path.lastIndexOf(QLatin1Char('\\'));
    const qsizetype last = std::max(slash, backslash);
    return last < 0 ? QString() : Path.left(last + 1);
}

void mnuStartAll_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    if (ws.menus["mnuConfirmStartAllShortcuts"].Checked()) {
        const int answer = ws.platform.messageBox(QStringLiteral("Start all shortcuts in the current container?"),
                                                  MsgStyle::YesNoWarning, QString());
        if (answer != MsgAnswer::Yes) {
            // Refused: nothing starts; the heartbeat runs again so that the window still docks.
            EnableDisableTimerHide(ws, true);
            return;
        }
    }
    PostLaunch(ws, false);
    const int container = ws.SelectedContainer;
    if (ws.grpBorder.exists(container)) {
        const Element* owner = &ws.grpBorder(container);
        // Only what shows in the container: shortcuts hidden by a tag filter and those on the
        // background stay. Command shortcuts start as their path; no question, sound, message or mark.
        for (int i = 0; i < ws.Link.Count(); ++i) {
            if (!IsLiveLink(ws, i)) continue;
            const Element& link = ws.Link(i);
            if (!link.Visible || link.Container() != owner) continue;
            (void)StartTarget(ws, i);
        }
    }
    PostLaunch(ws, true);
    EnableDisableTimerHide(ws, true);
}

void OpenLinkWithLink(Workspace& ws, int s, int n) {
    if (s == n || !IsLiveLink(ws, s) || !IsLiveLink(ws, n)) return;
    const int answer = ws.platform.messageBox(QStringLiteral("Open: ") + ws.Link(s).Caption.get() +
                                                  QStringLiteral(" with: ") + ws.Link(n).Caption.get() +
                                                  QLatin1Char('?'),
                                              MsgStyle::YesNoQuestion, QString());
    if (answer != MsgAnswer::Yes) return;
    const QString program = TargetPath(ws, n);
    const QString document = TargetPath(ws, s);
    // The result is not looked at: a failure shows nothing here.
    (void)ws.platform.shellExecute(program, QLatin1Char('"') + document + QLatin1Char('"'), WorkingFolder(program));
}

void ClearMarksForTags(Workspace& ws, int n) {
    if (!IsLiveLink(ws, n)) return;
    const QString tags = ws.Links[static_cast<size_t>(n)].Tags.toLower();
    for (int i = 0; i < ws.Link.Count(); ++i) {
        if (!IsLiveLink(ws, i) || ws.Link(i).Caption.get().isEmpty()) continue;
        const QString& mark = ws.Links[static_cast<size_t>(i)].MarkTag;
        // A substring test: the mark "x" goes when a shortcut tagged "xy" starts.
        if (!mark.isEmpty() && tags.contains(mark.toLower())) ws.Link(i).BorderStyle = 0;
    }
}

void HideJumpTo(Workspace& ws) {
    Element& panel = ws.PicJumpToLink(0);
    if (!panel.Visible) return;
    ws.JumpToOpen = false;
    panel.Visible = false;
    ws.PicJumpToLinkTop(0).Visible = false;
    // The search field's list goes; its text stays until the panel opens again.
    FindState& f = Find(ws);
    f.cboSearchList.clear();
    f.ListIndex = -1;
    f.changed();
}

} // namespace pd
