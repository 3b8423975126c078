#include "shell/FolderLink.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "shell/DragDrop.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "window/AutoHide.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace pd {

namespace {

bool ValidContainer(const Workspace& ws, int i) {
    return i >= 0 && i < static_cast<int>(ws.Containers.size()) && ws.grpBorder.exists(i);
}

void ShowLinkedButtons(Workspace& ws, int i) {
    ws.picCopy2(i).Visible = true;
    ws.picCopy2(i).ToolTipText =
        QStringLiteral("Folder Link: ") + ws.Containers[static_cast<size_t>(i)].CopyPath;
    ws.picCopy1(i).Visible = false;
}

// Names as file managers order them: without regard to case, and a run of digits by its value, so
// that "b2" comes before "b10". Equal names fall back to the plain order, so the result is stable.
int CompareNames(const QString& a, const QString& b) {
    qsizetype i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        if (a[i].isDigit() && b[j].isDigit()) {
            qsizetype ei = i, ej = j;
            while (ei < a.size() && a[ei].isDigit())
                ++ei;
            while (ej < b.size() && b[ej].isDigit())
                ++ej;
            // Leading zeros do not count; the longer run of significant digits is the larger number.
            QStringView da = QStringView(a).mid(i, ei - i), db = QStringView(b).mid(j, ej - j);
            while (da.size() > 1 && da.front() == QLatin1Char('0'))
                da = da.mid(1);
            while (db.size() > 1 && db.front() == QLatin1Char('0'))
                db = db.mid(1);
            if (da.size() != db.size()) return da.size() < db.size() ? -1 : 1;
            if (const int c = da.compare(db); c != 0) return c < 0 ? -1 : 1;
            i = ei;
            j = ej;
            continue;
        }
        const QChar x = a[i].toCaseFolded(), y = b[j].toCaseFolded();
        if (x != y) return x < y ? -1 : 1;
        ++i;
        ++j;
    }
    if (i < a.size() || j < b.size()) return i < a.size() ? 1 : -1;
    return a.compare(b);
}

void SortNames(QStringList& paths) {
    std::stable_sort(paths.begin(), paths.end(), [](const QString& a, const QString& b) {
        return CompareNames(QFileInfo(a).fileName(), QFileInfo(b).fileName()) < 0;
    });
}

} // namespace

bool ListFolder(const QString& folder, QStringList& files, QStringList& folders) {
    files.clear();
    folders.clear();
    const QFileInfo info(folder);
    if (folder.isEmpty() || !info.isDir() || !info.isReadable()) return false;
    const QDir dir(folder);
    // Dot files stay hidden, as in the file managers.
    for (const QFileInfo& e :
         dir.entryInfoList(QDir::Files | QDir::System | QDir::NoDotAndDotDot, QDir::NoSort))
        files << e.filePath();
    for (const QFileInfo& e : dir.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::NoSort))
        folders << e.filePath();
    SortNames(files);
    SortNames(folders);
    return true;
}

void picCopy1_MouseDown(Workspace& ws, int Button, int i) {
    if (Button != 1 || !ValidContainer(ws, i)) return;
    EnableDisableTimerHide(ws, false);
    if (!ws.Containers[static_cast<size_t>(i)].CopyPath.isEmpty())
        ShowLinkedButtons(ws, i);
    else
        SetFolderLink(ws, i);
    EnableDisableTimerHide(ws, true);
}

void picCopy2_Click(Workspace& ws, int i) {
    if (!ValidContainer(ws, i)) return;
    ws.picCopy1(i).Visible = true;
    ws.picCopy2(i).Visible = false;
    ws.Containers[static_cast<size_t>(i)].CopyPath.clear();
    SaveDesktop(ws, true, false);
}

void SetFolderLink(Workspace& ws, int i) {
    if (!ValidContainer(ws, i)) return;
    QString folder = ws.platform.chooseFolder(QStringLiteral("Set Container's Folder Link:"));
    if (folder.trimmed().isEmpty()) return;
    // The folder's own name, also for a chooser that answers with a closing separator.
    while (folder.size() > 1 && folder.endsWith(QLatin1Char('/')))
        folder.chop(1);
    ws.lblName(i).Caption = GetFileName(folder);
    ws.Containers[static_cast<size_t>(i)].CopyPath = folder;
    ShowLinkedButtons(ws, i);
    SaveDesktop(ws, true, false);
}

bool RefreshFolderLink(Workspace& ws, int i, bool Silent) {
    Q_UNUSED(Silent);
    if (!ValidContainer(ws, i)) return false;
    const QString folder = ws.Containers[static_cast<size_t>(i)].CopyPath;
    if (folder.isEmpty()) return false;
    UnselectAllLinks(ws, true);
    QStringList files, folders;
    // A folder that has gone keeps the old shortcuts, and nothing is said.
    if (!ListFolder(folder, files, folders)) return false;

    Element& owner = ws.grpBorder(i);
    for (int k = 0; k < ws.Link.Count(); ++k)
        if (IsLinkLive(ws, k) && ws.Link(k).Container() == &owner) RemoveLink(ws, k);

    int last = -1;
    for (const QStringList* list : {&files, &folders}) {
        for (const QString& path : *list) {
            const int before = ws.LinkCount;
            AddShortcut(ws, path, owner);
            if (ws.LinkCount <= before) continue;
            last = ws.LinkCount - 1;
            CutLinkExtension(ws, last);
            ws.Link(last).Move(600, 400);
            SetLinkSelected(ws, last, true);
        }
    }
    if (last >= 0) {
        MoveLinkIcon(ws, last);
        ArrangeSelectedLinks(ws, last, false);
    }
    return true;
}

void mnuOpenFolder_Click(Workspace& ws) {
    if (!ValidContainer(ws, ws.SelectedContainer)) return;
    const QString folder = ws.Containers[static_cast<size_t>(ws.SelectedContainer)].CopyPath;
    if (!folder.isEmpty()) ws.platform.openUrl(folder);
}

void mnuRefreshFolder_Click(Workspace& ws) {
    if (RefreshFolderLink(ws, ws.SelectedContainer, false)) SaveDesktop(ws, true, false);
}

void mnuRefreshOnExpand_Click(Workspace& ws) {
    const int i = ws.SelectedContainer;
    if (!ValidContainer(ws, i)) return;
    bool& on = ws.Containers[static_cast<size_t>(i)].RefreshOnExpand;
    on = !on;
    ws.menus["mnuRefreshOnExpand"].setChecked(on);
    SaveDesktop(ws, true, false);
}

void RefreshOnExpand(Workspace& ws, int i) {
    if (ws.IsLoading || !ValidContainer(ws, i)) return;
    const ContainerRecord& r = ws.Containers[static_cast<size_t>(i)];
    if (r.RefreshOnExpand && !r.CopyPath.isEmpty() && !r.IsFeed) RefreshFolderLink(ws, i, true);
}

} // namespace pd
