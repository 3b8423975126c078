// Verifying shortcuts and the "@" form of their paths. "@" stands for the mount point of the file
// system that holds the program directory (see ExpandDriveLetter): a program on a stick finds its
// targets wherever the stick is mounted.

#include "shortcuts/VerifyLinks.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "shortcuts/Launch.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "window/AutoHide.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

namespace pd {

namespace {

const QString kVerifyTitle = QStringLiteral("Verify Shortcuts");

// The mount point of the file system that holds Path, or of its nearest folder that exists.
QString MountOf(const QString& Path) {
    QString p = QDir::cleanPath(Path);
    while (!p.isEmpty()) {
        if (QFileInfo::exists(p)) {
            const QString root = QStorageInfo(p).rootPath();
            return root.isEmpty() ? QStringLiteral("/") : root;
        }
        const qsizetype slash = p.lastIndexOf(QLatin1Char('/'));
        if (slash <= 0) break;
        p = p.left(slash);
    }
    return QStringLiteral("/");
}

} // namespace

bool TargetPresent(const QString& Path) {
    // Hidden files and folders count as there; so does a folder named with a trailing separator.
    const QFileInfo info(Path);
    if (info.exists()) return true;
    return QFileInfo::exists(Path + QLatin1Char('/'));
}

void VerifyLinks(Workspace& ws, bool Silent) {
    EnableDisableTimerHide(ws, false);
    bool missing = false;
    const int count = std::min(static_cast<int>(ws.Links.size()), ws.Link.Count());
    for (int k = 0; k < count; ++k) {
        if (!ws.Link.exists(k)) continue;
        const LinkRecord& r = ws.Links[static_cast<size_t>(k)];
        const QString path = ExpandDriveLetter(ws, r.LinkPath);
        // Only file shortcuts with a label that are no commands; web shortcuts are never looked at.
        if (r.LinkType != 2.0f || ws.Link(k).Caption.get().isEmpty() || r.Command == 1) continue;
        // A path this short names a root ("C:\", "/"): taken as present.
        if (path.size() < 4) continue;
        if (TargetPresent(path)) continue;
        missing = true;
        if (Silent) {
            RemoveLink(ws, k);
            continue;
        }
        const int answer =
            ws.platform.messageBox(QStringLiteral("Remove Shortcut: ") + ws.Link(k).Caption.get(),
                                   MsgStyle::YesNoCancelAsk, kVerifyTitle);
        if (answer == MsgAnswer::Yes)
            RemoveLink(ws, k);
        else if (answer != MsgAnswer::No)
            break;
    }
    if (!Silent && !missing)
        ws.platform.messageBox(QStringLiteral("All shortcuts are valid"), MsgStyle::InformationBox,
                               kVerifyTitle);
    EnableDisableTimerHide(ws, true);
    SaveDesktop(ws, true, false);
}

QString RelativeLinkPath(const QString& Path) {
    if (Path.isEmpty()) return Path;
    if (Path.startsWith(QLatin1Char('/'))) {
        // The path below its own file system's mount point, whichever file system that is.
        const QString mount = MountOf(Path);
        QString rest = QDir::cleanPath(Path);
        if (mount != QLatin1String("/") && (rest == mount || rest.startsWith(mount + QLatin1Char('/'))))
            rest = rest.mid(mount.size());
        while (rest.startsWith(QLatin1Char('/')))
            rest.remove(0, 1);
        return QStringLiteral("@/") + rest;
    }
    // A Windows path ("D:\a.txt" gives "@:\a.txt") and any path without a root: the first character
    // is replaced blindly.
    return QLatin1Char('@') + Path.mid(1);
}

void mnuRelativePath_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    const int n = ws.SelectedLink;
    if (n >= 0 && n < static_cast<int>(ws.Links.size()) && ws.Link.exists(n)) SetLinkSelected(ws, n, true);
    if (ws.platform.messageBox(
            QStringLiteral("Use a relative path for the selected shortcuts (Perchdock's working drive)?"),
            MsgStyle::YesNoQuestion) == MsgAnswer::Yes) {
        for (int16_t k : ws.SelectedLinks) {
            if (k < 0 || k >= static_cast<int>(ws.Links.size())) continue;
            LinkRecord& r = ws.Links[static_cast<size_t>(k)];
            if (r.Command == 1 || r.LinkType != 2.0f) continue;
            r.LinkPath = RelativeLinkPath(r.LinkPath);
        }
    }
    EnableDisableTimerHide(ws, true);
    SaveDesktop(ws, true, false);
}

} // namespace pd
