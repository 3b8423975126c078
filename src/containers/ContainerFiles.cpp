#include "containers/ContainerFiles.h"

#include "app/ObjectRecords.h"
#include "app/WorkspaceFile.h"
#include "app/files/AtomicFile.h"
#include "app/files/TextFile.h"
#include "app/files/Values.h"
#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Shrinking.h"
#include "feeds/FeedContainers.h"
#include "themes/Buttons.h"
#include "window/RelativeLayout.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace pd {

namespace {

QString ContainersDir(const Workspace& ws) { return ws.dataFile(QStringLiteral("Containers")); }

// "-1" on the background, else the index of the container it sits in, as a word.
QString ParentText(Workspace& ws, int i) {
    const Element* parent = ws.Group(i).Container();
    if (!parent || parent->Name() != QLatin1String("Group")) return QStringLiteral("-1");
    return WordText(static_cast<int16_t>(parent->Index()));
}

// The pictures and shortcuts of one container, in family order.
struct Contents {
    std::vector<int> pictures;
    std::vector<int> links;
};

// Sorts every picture and shortcut to its container in one pass, so that a save of many containers
// does not walk all shortcuts once per container.
std::vector<Contents> ContentsByContainer(Workspace& ws, int count) {
    std::vector<Contents> by(static_cast<size_t>(count));
    auto owner = [count](const Element& e) {
        const Element* c = e.Container();
        if (!c || c->Name() != QLatin1String("grpBorder") || c->Index() < 0 || c->Index() >= count) return -1;
        return c->Index();
    };
    for (int j = 0; j < ws.picPlaceholder.Count(); ++j) {
        if (!ws.picPlaceholder.exists(j) || j >= static_cast<int>(ws.DeskObjects.size())) continue;
        if (ws.DeskObjects[j].IsReminder) continue;
        if (!ws.picPlaceholder(j).Visible && !ws.picTemp(j).Visible) continue;
        const int c = owner(ws.picPlaceholder(j));
        if (c >= 0 && owner(ws.picTemp(j)) == c) by[static_cast<size_t>(c)].pictures.push_back(j);
    }
    for (int k = 0; k < ws.Link.Count(); ++k) {
        if (!ws.Link.exists(k) || k >= static_cast<int>(ws.Links.size())) continue;
        if (ws.Links[k].LinkPath.isEmpty()) continue;
        const int c = owner(ws.Link(k));
        if (c >= 0) by[static_cast<size_t>(c)].links.push_back(k);
    }
    return by;
}

QByteArray ContainerFileBytes(Workspace& ws, int i, const Contents& contents) {
    TextWriter out;
    const ContainerRecord& r = ws.Containers[i];
    out.line(QString::fromLatin1(kFileVersion));
    if (r.IsFeed) {
        out.line(QStringLiteral("[RSS]"));
        out.line(r.CopyPath);
        out.line(ws.lblName(i).Caption);
        out.line(ParentText(ws, i));
    } else {
        out.pair(QStringLiteral("[Container]"), ParentText(ws, i));
    }
    out.pair(QStringLiteral("[Name]"), ws.lblName(i).Caption);
    out.pair(QStringLiteral("[Backcolor]"), LongText(ws.grpBorder(i).BackColor));
    out.pair(QStringLiteral("[Forecolor]"), LongText(ws.grpBorder(i).ForeColor));
    out.pair(QStringLiteral("[Icon]"), r.IconPath);
    out.pair(QStringLiteral("[CopyPath]"), r.CopyPath);
    out.pair(QStringLiteral("[RefreshOnExpand]"), r.RefreshOnExpand ? QStringLiteral("True") : QStringLiteral("False"));
    out.pair(QStringLiteral("[NOTE ON]"), FlagText(ws.txtNote(i).Visible));
    out.line(QStringLiteral("[START Note]"));
    // The note as it is stored: trimmed, its line breaks as CR LF; an empty note is one blank line.
    out.line(WithCrLf(TrimAll(ws.txtNote(i).Text)));
    out.line(QStringLiteral("[END Note]"));
    const bool folded = ws.chkUnfold(i).Visible;
    const bool shrunk = !ws.lblName(i).Visible;
    out.pair(QStringLiteral("[Folded]"), FlagText(folded));
    out.pair(QStringLiteral("[Flipped]"), FlagText(r.Flipped));
    out.pair(QStringLiteral("[Shrink]"), FlagText(shrunk));
    const Element& g = ws.Group(i);
    out.pair(QStringLiteral("[X]"), SingleText(g.Left));
    out.pair(QStringLiteral("[Y]"), SingleText(g.Top));
    // A folded or shrunk container stores the size it opens to.
    const bool open = !shrunk && !folded;
    out.pair(QStringLiteral("[W]"), open ? SingleText(g.Width) : LongText(r.W));
    out.pair(QStringLiteral("[H]"), open ? SingleText(g.Height) : LongText(r.H));
    for (int j : contents.pictures) WritePictureRecord(ws, out, j);
    for (int k : contents.links) WriteLinkRecord(ws, out, k);
    return out.bytes();
}

QByteArray FileBytes(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// Whether a nesting of `child` in `parent` would put a container inside itself.
bool WouldLoop(Workspace& ws, int child, int parent) {
    for (const Element* e = &ws.Group(parent); e; e = e->Container()) {
        if (e->Name() == QLatin1String("Group") && e->Index() == child) return true;
        if (e->Name() == QLatin1String("picBack")) break;
    }
    return false;
}

// The values a container file's key loop keeps for the steps at its end.
struct Restore {
    QString noteOn, folded, flipped, shrink;
};

void RestoreState(Workspace& ws, int n, const Restore& st) {
    ContainerRecord& r = ws.Containers[n];
    if (TrimBlanks(st.noteOn) == QLatin1String("1")) {
        ws.txtNote(n).Visible = true;
        ws.txtNote(n).ZOrder(0);
        ws.picPin(n).Visible = true;
        ws.picPinNote(n).Visible = false;
    } else {
        ws.txtNote(n).Visible = false;
    }
    const bool shrink = st.shrink == QLatin1String("1");
    if (!(r.IsFeed && shrink)) SetObjectRelativeSize(ws, n);
    if (shrink) ToggleShrink(ws, n);
    else if (st.folded == QLatin1String("1")) FoldContainer(ws, n);
    if (st.flipped == QLatin1String("1") && st.folded == QLatin1String("0") && TrimBlanks(st.shrink) == QLatin1String("0")) {
        SetTitleEdge(ws, true, n);
        SetRecordLength(r.Y, ws.Group(n).Top + ws.Group(n).Height - 350);
        r.Flipped = true;
    }
    if (r.IsFeed && ws.lblRSSLastUpdate.exists(r.FeedIndex)) {
        if (TitleAtTop(ws, n)) ws.lblRSSLastUpdate(r.FeedIndex).Move(100, ws.grpBorder(n).Height - 250);
        else ws.lblRSSLastUpdate(r.FeedIndex).Move(100, 60);
    }
}

// A feed container as far as the program knows feeds: a container that keeps its address, so that
// the feed survives every save.
bool AddFeedContainer(Workspace& ws, const QString& address, const QString& title, int16_t parent) {
    QString url = address;
    if (!AddRSS(ws, url, parent)) return false;
    ws.lblName(ws.ContainerCount - 1).Caption = title;
    return true;
}

int16_t ParentFrom(const QString& value) {
    if (value == QLatin1String("-1")) return -1;
    int16_t v = -1;
    SetIf(v, ToWord(value));
    return v;
}

void ReadContainerFile(Workspace& ws, const QStringList& lines) {
    LineReader in(lines);
    const QString version = in.next().value_or(QString()).trimmed();
    int n = -1; // the container this file made
    bool feed = false;
    Restore st;
    auto made = [&] { return n >= 0; };
    while (auto line = in.next()) {
        const QString& key = *line;
        if (key == QLatin1String("[Container]")) {
            const auto v = in.next();
            if (!made() && v) {
                NewGroup(ws, ParentFrom(*v));
                n = ws.ContainerCount - 1;
                if (made()) ws.Group(n).ZOrder(0);
            }
        } else if (key == QLatin1String("[RSS]")) {
            feed = true;
            if (!made()) {
                const QString address = in.next().value_or(QString());
                const QString title = in.next().value_or(QString());
                if (!ws.menus["mnuRSSLoadOnStartup"].Checked()) ws.showStatus(title + QStringLiteral("..."));
                const QString parent = in.next().value_or(QStringLiteral("-1"));
                // An address that is not valid makes no container; the file's keys then have none.
                if (AddFeedContainer(ws, address, title, ParentFrom(parent))) n = ws.ContainerCount - 1;
            }
        } else if (!made()) {
            continue; // a key before its container: nothing to apply it to
        } else if (key == QLatin1String("[Name]")) {
            if (auto v = in.next()) {
                ws.lblName(n).Caption = *v;
                if (!feed) ws.showStatus(QStringLiteral("Loading ") + *v + QStringLiteral("..."));
            }
        } else if (key == QLatin1String("[Forecolor]")) {
            if (auto v = in.next(); v && ToLong(*v)) {
                const int32_t c = *ToLong(*v);
                ws.lblName(n).ForeColor = c;
                ws.grpBorder(n).ForeColor = c;
                if (feed && ws.RSSCount > 0) ws.lblRSSLastUpdate(ws.RSSCount - 1).ForeColor = c;
            }
        } else if (key == QLatin1String("[Backcolor]")) {
            if (auto v = in.next(); v && ToLong(*v)) {
                const int32_t c = *ToLong(*v);
                ws.grpBorder(n).BackColor = c;
                SetColors(ws, n, c);
                if (feed && ws.RSSCount > 0) ws.LstRSS(ws.RSSCount - 1).BackColor = c;
            }
        } else if (key == QLatin1String("[Icon]")) {
            const QString icon = in.next().value_or(QString()).trimmed();
            if (icon.isEmpty()) continue;
            if (!feed) {
                AddShrinkIcon(ws, icon, n);
            } else if (icon.contains(QLatin1String("favicon.ico"), Qt::CaseInsensitive)) {
                const QString favicon = ws.dataFile(QStringLiteral("favicon.ico"));
                if (QFileInfo::exists(favicon)) {
                    AddShrinkIcon(ws, favicon, n);
                    QFile::remove(favicon);
                } else {
                    AddShrinkIcon(ws, ws.programFile(QStringLiteral("rss.ico")), n);
                }
            } else {
                AddShrinkIcon(ws, icon, n);
            }
        } else if (key == QLatin1String("[CopyPath]")) {
            const QString path = in.next().value_or(QString()).trimmed();
            // A folder that has gone is dropped without a word.
            if (!feed && !path.isEmpty() && QFileInfo(path).isDir()) {
                ws.Containers[n].CopyPath = path;
                ws.picCopy2(n).Visible = true;
                ws.picCopy2(n).ToolTipText = QStringLiteral("Folder Link: ") + path;
                ws.picCopy1(n).Visible = false;
            }
        } else if (key == QLatin1String("[RefreshOnExpand]")) {
            if (auto v = in.next(); v && !v->isEmpty()) SetIf(ws.Containers[n].RefreshOnExpand, ToBool(*v));
        } else if (key == QLatin1String("[X]")) {
            if (auto v = in.next()) {
                if (auto x = ToSingle(*v)) {
                    const float left = *x < 0 ? 0.0f : *x;
                    ws.Group(n).Left = left;
                    SetRecordLength(ws.Containers[n].X, left);
                }
            }
        } else if (key == QLatin1String("[Y]")) {
            if (auto v = in.next(); v && ToSingle(*v)) {
                ws.Group(n).Top = *ToSingle(*v);
                SetRecordLength(ws.Containers[n].Y, *ToSingle(*v));
            }
        } else if (key == QLatin1String("[W]")) {
            if (auto v = in.next(); v && ToSingle(*v)) {
                ws.Group(n).Width = *ToSingle(*v);
                SetRecordLength(ws.Containers[n].W, *ToSingle(*v));
            }
        } else if (key == QLatin1String("[H]")) {
            if (auto v = in.next(); v && ToSingle(*v)) {
                ws.Group(n).Height = *ToSingle(*v);
                SetRecordLength(ws.Containers[n].H, *ToSingle(*v));
            }
        } else if (key == QLatin1String("[NOTE ON]")) {
            st.noteOn = in.next().value_or(QString());
        } else if (key == QLatin1String("[Folded]")) {
            st.folded = in.next().value_or(QString());
        } else if (key == QLatin1String("[Flipped]")) {
            st.flipped = in.next().value_or(QString());
        } else if (key == QLatin1String("[Shrink]")) {
            st.shrink = in.next().value_or(QString());
        } else if (key == QLatin1String("[START Note]")) {
            QString text = ws.txtNote(n).Text;
            while (auto l = in.next()) {
                if (*l == QLatin1String("[END Note]")) break;
                text += *l + QLatin1String("\r\n");
            }
            ws.txtNote(n).Text = text;
        } else if (key == QLatin1String("[Picture]")) {
            ReadPictureRecord(ws, in, ws.grpBorder(n));
        } else if (key == QLatin1String("[Link]")) {
            ReadLinkRecord(ws, in, version, ws.grpBorder(n));
        }
    }
    if (made()) RestoreState(ws, n, st);
}

} // namespace

bool WriteContainerFiles(Workspace& ws) {
    const QDir dir(ContainersDir(ws));
    if (ws.DataPath.isEmpty()) return true;
    if (!dir.exists()) QDir().mkpath(dir.path());
    const int count = std::min(ws.Group.Count(), static_cast<int>(ws.Containers.size()));
    // A tag filter never loses containers: what it hides is shown again before anything is written.
    for (int i = 0; i < count; ++i)
        if (ws.Group.exists(i) && ws.Containers[i].TagHidden) ws.Group(i).Visible = true;
    const std::vector<Contents> contents = ContentsByContainer(ws, count);
    struct Planned {
        QString name;
        QByteArray bytes;
    };
    std::vector<Planned> plan;
    QSet<QString> written;
    int counter = 0;
    for (int i = 0; i < count; ++i) {
        // Deleted containers, and those nested in them, are not written: this is how they vanish.
        if (!IsContainerLive(ws, i)) continue;
        const QString name = QString::number(counter++) + QStringLiteral(".con");
        written.insert(name);
        plan.push_back({name, ContainerFileBytes(ws, i, contents[static_cast<size_t>(i)])});
    }
    // With the numbering as it was (every file known, none new and none left over: no container came
    // or went since the last save), a shortcut or picture moved from one container to another lives in
    // two files, and a crash can come between their writes. Files that gain objects are then written
    // before the others, so that a moved object is in both files or still in the old one, never in
    // neither. When containers are renumbered the files keep their order (see below).
    bool sameNumbering = plan.size() == ws.SavedContainerFiles.size();
    for (const Planned& f : plan) sameNumbering = sameNumbering && ws.SavedContainerFiles.count(f.name) > 0;
    if (sameNumbering) {
        std::stable_partition(plan.begin(), plan.end(), [&](const Planned& f) {
            return ObjectRecordCount(f.bytes) > ObjectRecordCount(ws.SavedContainerFiles[f.name]);
        });
    }
    for (const Planned& f : plan) {
        const QString& name = f.name;
        const QString path = dir.filePath(name);
        const QByteArray& bytes = f.bytes;
        // A file is replaced only when its bytes change, and then atomically. What the files hold is
        // known from the last read or write, so an unchanged container costs no disk access at all.
        auto known = ws.SavedContainerFiles.find(name);
        if (known != ws.SavedContainerFiles.end() && known->second == bytes) continue;
        if (WriteFileAtomically(path, bytes)) {
            ws.SavedContainerFiles[name] = bytes;
            continue;
        }
        // The write failed (a full disk, say) and the file keeps what it held, or is still missing. The
        // save ends here and the files after it keep their last version too: the numbering shifts when a
        // container goes, so writing on could overwrite the only copy of a container that this file
        // still holds, and a new file past a missing one would be lost behind the gap at the next load.
        // The record marks the file as unknown (no bytes match), so the next save writes it and all the
        // rest that differ, and a left-over file is still removed when it is no longer needed.
        ws.SavedContainerFiles[name] = QByteArray();
        return false;
    }
    // Files no longer needed go last, so that a crash before this point loses nothing. The folder is
    // looked at once, for files this program did not write; after that the record of its own files
    // tells which are left over.
    QStringList stale;
    if (!ws.ContainerFolderListed) {
        stale = dir.entryList({QStringLiteral("*.con")}, QDir::Files);
        ws.ContainerFolderListed = true;
    } else {
        for (const auto& [name, bytes] : ws.SavedContainerFiles) stale << name;
    }
    for (const QString& old : stale) {
        if (written.contains(old)) continue;
        QFile::remove(dir.filePath(old));
        ws.SavedContainerFiles.erase(old);
    }
    return true;
}

void ReadContainerFiles(Workspace& ws) {
    const QDir dir(ContainersDir(ws));
    if (ws.DataPath.isEmpty() || !dir.exists()) return;
    // Temporary files of writes that a crash cut short hold nothing that the numbered files lack.
    static const QRegularExpression numbered(QStringLiteral("^(0|[1-9][0-9]*)\\.con$"));
    RemoveLeftoverTemporaries(dir.path(), numbered);
    for (int n = 0;; ++n) {
        const QString path = dir.filePath(QString::number(n) + QStringLiteral(".con"));
        if (!QFileInfo(path).isFile()) break; // a gap in the numbering ends the load
        const QByteArray bytes = FileBytes(path);
        ws.SavedContainerFiles[QString::number(n) + QStringLiteral(".con")] = bytes;
        ReadContainerFile(ws, SplitLines(DecodeText(bytes)));
    }
    // The nesting pass: each container goes into the one its file named.
    for (int i = 0; i < ws.Group.Count() && i < static_cast<int>(ws.Containers.size()); ++i) {
        if (!ws.Group.exists(i)) continue;
        int16_t& p = ws.Containers[i].ParentIndex;
        if (p == -1) continue;
        // A parent that is missing, the container itself or inside it leaves the container on the
        // background, and the record says so.
        if (p == i || !ws.Group.exists(p) || WouldLoop(ws, i, p)) {
            p = -1;
            continue;
        }
        ws.Group(i).setContainer(&ws.Group(p));
    }
}

void mnuCaptureContainers_Click(Workspace& ws) {
    MenuEntry& m = ws.menus["mnuCaptureContainers"];
    m.setChecked(!m.Checked());
    if (!m.Checked()) {
        for (int i = 0; i < ws.Group.Count(); ++i) {
            if (!IsContainerLive(ws, i)) continue;
            Element& g = ws.Group(i);
            Element* parent = g.Container();
            if (!parent || parent->Name() != QLatin1String("Group")) continue;
            // It keeps its place on the screen: its place grows by its parent's, and by those of the
            // parent's own parents when it sat two or more deep.
            float left = g.Left, top = g.Top;
            int depth = ws.Group.Count(); // no chain is deeper than the family; a loop ends here too
            for (const Element* p = parent; p && p->Name() == QLatin1String("Group") && depth-- > 0;
                 p = p->Container()) {
                left += p->Left;
                top += p->Top;
            }
            g.Left = left;
            g.Top = top;
            g.setContainer(&ws.picBack(0));
            ws.Containers[i].ParentIndex = -1;
        }
    }
    SaveDesktop(ws, true, false);
}

} // namespace pd
