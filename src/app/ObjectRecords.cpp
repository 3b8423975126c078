#include "app/ObjectRecords.h"

#include "app/WorkspaceFile.h"
#include "app/files/TextFile.h"
#include "app/files/Values.h"
#include "app/workspace/Workspace.h"
#include "desk/Pictures.h"
#include "desk/Reminders.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/Shortcuts.h"

namespace pd {

qsizetype ObjectRecordCount(const QByteArray& bytes) {
    return bytes.count("\r\n[Link]\r\n") + bytes.count("\r\n[Picture]\r\n") + bytes.count("\r\n[Reminder]\r\n");
}

namespace {
const QString kTemp = QStringLiteral("TEMP");

void WriteFillers(TextWriter& out) {
    for (int i = 0; i < 4; ++i) out.line(kTemp);
}

QString Or(const std::optional<QString>& v) { return v.value_or(QString()); }
} // namespace

bool OnBackground(const Element& e) { return e.Container() && e.Container()->Name() == QLatin1String("picBack"); }

bool InContainer(const Element& e, int i) {
    return e.Container() && e.Container()->Name() == QLatin1String("grpBorder") && e.Container()->Index() == i;
}

void WritePictureRecord(Workspace& ws, TextWriter& out, int j) {
    const Element& frame = ws.picPlaceholder(j);
    out.line(QStringLiteral("[Picture]"));
    out.pair(QStringLiteral("[Locked]"), FlagText(ws.picTemp(j).Visible));
    out.pair(QStringLiteral("[PicX]"), SingleText(frame.Left));
    out.pair(QStringLiteral("[PicY]"), SingleText(frame.Top));
    out.pair(QStringLiteral("[PicW]"), SingleText(frame.Width));
    out.pair(QStringLiteral("[PicH]"), SingleText(frame.Height));
    out.pair(QStringLiteral("[PicPath]"), ws.DeskObjects[j].PicPath);
    WriteFillers(out);
}

void WriteReminderRecord(Workspace& ws, TextWriter& out, int j) {
    const Element& icon = ws.picTemp(j);
    const DeskObjectRecord& r = ws.DeskObjects[j];
    out.line(QStringLiteral("[Reminder]"));
    out.pair(QStringLiteral("[PicX]"), SingleText(icon.Left));
    out.pair(QStringLiteral("[PicY]"), SingleText(icon.Top));
    out.pair(QStringLiteral("[Date]"), r.Date);
    out.pair(QStringLiteral("[Time]"), r.Time);
    out.line(QStringLiteral("[Note]"));
    out.line(WithCrLf(r.Note));
    out.line(QStringLiteral("[END Note]"));
    out.pair(QStringLiteral("[PicPath]"), r.PicPath);
    WriteFillers(out);
}

void WriteLinkRecord(Workspace& ws, TextWriter& out, int k) {
    const Element& label = ws.Link(k);
    const LinkRecord& r = ws.Links[k];
    out.line(QStringLiteral("[Link]"));
    out.pair(QStringLiteral("[Size]"), SingleText(label.FontSize));
    out.pair(QStringLiteral("[LinkX]"), SingleText(label.Left));
    out.pair(QStringLiteral("[LinkY]"), SingleText(label.Top));
    out.pair(QStringLiteral("[LinkLabel]"), label.Caption);
    out.pair(QStringLiteral("[LinkType]"), SingleText(r.LinkType));
    out.pair(QStringLiteral("[LinkPath]"), r.LinkPath);
    out.pair(QStringLiteral("[LinkParam]"), r.LinkParam);
    out.pair(QStringLiteral("[Color]"), r.LinkColor == -1 ? QStringLiteral("-1") : LongText(r.LinkColor));
    out.pair(QStringLiteral("[Bold]"), FlagText(r.Bold));
    out.pair(QStringLiteral("[Confirm]"), FlagText(r.Confirm));
    out.pair(QStringLiteral("[Command]"), WordText(r.Command));
    out.pair(QStringLiteral("[Icon]"), r.LinkIcon);
    out.pair(QStringLiteral("[GROUP]"), r.Tags);
    out.pair(QStringLiteral("[EXCLUSIVE]"), r.MarkTag);
}

void ReadPictureRecord(Workspace& ws, LineReader& in, Element& owner) {
    if (ws.DeskObjectCount == 0) ws.showStatus(QStringLiteral("Loading Pictures..."));
    // Seven value positions: the six values and the first pair of filler lines.
    const auto locked = in.pair();
    const auto x = in.pair();
    const auto y = in.pair();
    const auto w = in.pair();
    const auto h = in.pair();
    const auto path = in.pair();
    in.pair();
    // A picture whose image cannot be loaded is not created, and nothing is placed.
    if (!AddPicture(ws, Or(path))) return;
    const int j = ws.DeskObjectCount - 1;
    Element& frame = ws.picPlaceholder(j);
    if (owner.Name() != QLatin1String("picBack")) {
        frame.setContainer(&owner);
        ws.picTemp(j).setContainer(&owner);
    }
    if (x) SetIf(frame.Left, ToSingle(*x));
    if (y) SetIf(frame.Top, ToSingle(*y));
    if (w) SetIf(frame.Width, ToSingle(*w));
    if (h) SetIf(frame.Height, ToSingle(*h));
    Element& grip = ws.imgPicture(j);
    grip.Move(100, 100, frame.Width - 240, frame.Height - 240);
    if (locked && TrimBlanks(*locked) == QLatin1String("1")) {
        ws.SelectedDeskObject = static_cast<int16_t>(j);
        ToggleLock(ws);
    }
}

void ReadReminderRecord(Workspace& ws, LineReader& in, const QString& version) {
    if (ws.DeskObjectCount == 0) ws.showStatus(QStringLiteral("Loading Reminders..."));
    const auto x = in.pair();
    const auto y = in.pair();
    const QString date = Or(in.pair());
    const QString time = Or(in.pair());
    in.next(); // "[Note]"
    QString note;
    QString path = ws.programFile(QStringLiteral("alarmclock.gif"));
    if (version == QLatin1String("[1.03]") || version == QLatin1String("[1.04]") ||
        version == QLatin1String("[1.05]")) {
        while (auto line = in.next()) {
            if (*line == QLatin1String("[END Note]")) break;
            note += *line + QLatin1String("\r\n");
        }
        note = TrimAll(note);
        // A record cut short keeps the default icon.
        if (auto p = in.pair()) path = *p;
    } else {
        note = Or(in.next());
    }
    int16_t ix = 0, iy = 0;
    if (x) SetIf(ix, ToWord(*x));
    if (y) SetIf(iy, ToWord(*y));
    AddReminder(ws, ix, iy, note, date, time, path);
}

void ReadLinkRecord(Workspace& ws, LineReader& in, const QString& version, Element& owner) {
    const auto size = in.pair();
    const auto x = in.pair();
    const auto y = in.pair();
    const QString label = Or(in.pair());
    const auto type = in.pair();
    const QString path = Or(in.pair());
    const QString param = Or(in.pair());
    const auto color = in.pair();
    const auto bold = in.pair();
    std::optional<QString> confirm, command;
    QString icon, tags, mark;
    if (version != QLatin1String("[1.01]")) {
        confirm = in.pair();
        command = in.pair();
        icon = Or(in.pair());
    }
    if (version == QLatin1String("[1.04]") || version == QLatin1String("[1.05]")) tags = Or(in.pair());
    if (version == QLatin1String("[1.05]")) mark = Or(in.pair());
    if (icon == kTemp) icon.clear();
    mark = TrimBlanks(mark);
    if (mark == QLatin1String("0")) mark.clear();

    float linkType = 0;
    if (type) SetIf(linkType, ToSingle(*type));
    std::optional<float> fontSize;
    if (size) fontSize = ToSingle(*size);
    auto place = [&](Element& e) {
        if (x) SetIf(e.Left, ToSingle(*x));
        if (y) SetIf(e.Top, ToSingle(*y));
    };
    if (linkType == 1.0f) {
        AddURL(ws, path, QString(), owner);
        const int L = ws.LinkCount - 1;
        SetIf(ws.Link(L).FontSize, fontSize);
        place(ws.Link(L));
        ws.Links[L].LinkPath = path;
        ws.Link(L).Caption = label;
    } else if (linkType == 2.0f) {
        AddShortcut(ws, path, owner);
        const int L = ws.LinkCount - 1;
        SetIf(ws.Link(L).FontSize, fontSize);
        ws.Link(L).Caption = label;
        place(ws.Link(L));
    }
    // Whatever the type, the rest goes to the newest shortcut: a record of an unknown type overwrites
    // the fields of the shortcut before it, as files of this format always have.
    const int L = ws.LinkCount - 1;
    if (L < 0) return;
    LinkRecord& r = ws.Links[L];
    Element& e = ws.Link(L);
    r.LinkParam = param;
    if (command) SetIf(r.Command, ToWord(*command));
    r.LinkIcon = icon;
    r.Tags = tags;
    r.MarkTag = mark;
    if (color) {
        if (TrimBlanks(*color) == QLatin1String("-1")) {
            if (e.Container()) e.ForeColor = e.Container()->ForeColor.get();
            r.LinkColor = -1;
        } else if (const auto c = ToLong(*color)) {
            e.ForeColor = *c;
            r.LinkColor = *c;
        }
    }
    if (bold) {
        if (const auto b = ToBool(*bold)) {
            e.FontBold = *b;
            r.Bold = *b;
        }
    }
    if (confirm) SetIf(r.Confirm, ToBool(*confirm));
    // A font size from the file that no 16-bit number holds leaves Size as it was.
    SetIf(r.Size, RoundToWord(e.FontSize.get()));
    MoveLinkIcon(ws, L);
}

} // namespace pd
