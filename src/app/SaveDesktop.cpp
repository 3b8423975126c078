// Writing the workspace file and its recovery twin.

#include "app/ObjectRecords.h"
#include "app/WorkspaceFile.h"
#include "app/WorkspaceSettings.h"
#include "app/files/TextFile.h"
#include "app/files/Values.h"
#include "app/workspace/Workspace.h"
#include "containers/ContainerFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace pd {

namespace {

void WriteWorkspace(Workspace& ws, TextWriter& out, SaveState& st) {
    out.line(QString::fromLatin1(kFileVersion));
    for (const SettingRow& row : SettingRows()) out.pair(QString::fromLatin1(row.key), row.write(ws, st));

    // Recent feed searches: member 0 only when it holds a search, the others while the family has them.
    const QString none = QStringLiteral("[No Recent Search]");
    const QString first = ws.menus("mnuRSSSearchItem", 0).Caption();
    if (first != none) out.pair(QStringLiteral("[RSS Search0]"), first);
    const int members = ws.menus.familyCount(QStringLiteral("mnuRSSSearchItem"));
    for (int n = 1; n <= 9; ++n) {
        // A hidden member is a cleared one: the list ends before it.
        if (members <= n || !ws.menus("mnuRSSSearchItem", n).Visible()) break;
        const QString caption =
            ws.menus.has(QStringLiteral("mnuRSSSearchItem"), n) ? ws.menus("mnuRSSSearchItem", n).Caption() : QString();
        out.pair(QStringLiteral("[RSS Search") + QString::number(n) + QLatin1Char(']'), caption);
    }

    // Pictures, then reminders, then shortcuts that lie on the background.
    for (int pass = 0; pass < 2; ++pass) {
        const bool reminders = pass == 1;
        for (int j = 0; j < ws.picPlaceholder.Count(); ++j) {
            if (!ws.picPlaceholder.exists(j) || j >= static_cast<int>(ws.DeskObjects.size())) continue;
            if (ws.DeskObjects[j].IsReminder != reminders) continue;
            const Element& frame = ws.picPlaceholder(j);
            const Element& face = ws.picTemp(j);
            if (!frame.Visible && !face.Visible) continue;
            if (!OnBackground(frame) || !OnBackground(face)) continue;
            if (reminders) WriteReminderRecord(ws, out, j);
            else WritePictureRecord(ws, out, j);
        }
    }
    for (int k = 0; k < ws.Link.Count(); ++k) {
        if (!ws.Link.exists(k) || k >= static_cast<int>(ws.Links.size())) continue;
        if (ws.Links[k].LinkPath.isEmpty() || !OnBackground(ws.Link(k))) continue;
        WriteLinkRecord(ws, out, k);
    }
}

// The records of objects ([Link], [Picture], [Reminder]) in a workspace file's bytes.
QByteArray FileBytes(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace

QByteArray WorkspaceFileBytes(Workspace& ws, bool ForExit) {
    SaveState st;
    st.forExit = ForExit;
    TextWriter out;
    WriteWorkspace(ws, out, st);
    return out.bytes();
}

void SaveDesktop(Workspace& ws, bool ToRecovery, bool ForExit) {
    if (ws.IsLoading || ws.NoSave) return;
    // Once the window is being unloaded only its own exit save writes: a focus lost while the windows
    // close must not leave a recovery file behind the clean one.
    if (ws.Unloaded && !ForExit) return;
    // Without a data directory there is no place for the files; a relative name would land in
    // whatever folder the program was started from.
    if (ws.DataPath.isEmpty()) return;

    SaveState st;
    st.forExit = ForExit;
    Element& win = ws.frmMain(0);
    if (ForExit && !win.Visible) {
        // Showing the window makes its size and place valid to read.
        win.Visible = true;
        st.wasHidden = true;
    }
    if (!ws.UsesProgramDirectory && !ws.DataPath.isEmpty() && !QDir(ws.DataPath).exists())
        QDir().mkpath(ws.DataPath);

    QString name;
    if (ToRecovery) {
        name = ws.dataFile(QString::fromLatin1(kRecoveryFile));
    } else {
        name = ws.dataFile(QString::fromLatin1(kWorkspaceFile));
    }

    TextWriter out;
    WriteWorkspace(ws, out, st);
    const QByteArray bytes = out.bytes();
    // A shortcut or picture moved between the background and a container lives in two files, and a
    // crash can come between their writes: the file that gains it is written first, and the other one
    // only when that worked, so that the object is then in both files or still in the old one, never in
    // neither. The workspace file gains or loses objects against the newest one on disk (the recovery
    // file, else the clean one).
    const QString rec = ws.dataFile(QString::fromLatin1(kRecoveryFile));
    const QString newest = QFileInfo::exists(rec) ? rec : ws.dataFile(QString::fromLatin1(kWorkspaceFile));
    const qsizetype before = ObjectRecordCount(FileBytes(newest));
    const qsizetype after = ObjectRecordCount(bytes);
    if (after < before && !WriteContainerFiles(ws)) return;

    // The clean file is in place before the recovery file goes, so that a crash between the two steps
    // leaves a file that loads.
    const bool written = WriteFileAtomically(name, bytes);
    if (!ToRecovery && written) QFile::remove(rec);

    const QString favicon = ws.dataFile(QStringLiteral("favicon.ico"));
    if (QFile::exists(favicon)) QFile::remove(favicon);

    if (after > before && !written) return;
    if (after >= before) WriteContainerFiles(ws);
}

QString TrimAll(const QString& text) {
    // Blanks first, then line ends from both sides and blanks again, until nothing more comes off.
    QString t = TrimBlanks(text);
    qsizetype before;
    do {
        before = t.size();
        for (const char* cut : {"\r\n", "\r", "\n"}) {
            const QLatin1String c(cut);
            if (t.endsWith(c)) t.chop(c.size());
            if (t.startsWith(c)) t.remove(0, c.size());
        }
        t = TrimBlanks(t);
    } while (t.size() != before);
    return t;
}

} // namespace pd
