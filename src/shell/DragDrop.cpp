#include "shell/DragDrop.h"

#include "app/WorkspaceFile.h"
#include "app/files/TextFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "containers/Moving.h"
#include "containers/Shrinking.h"
#include "desk/DeskState.h"
#include "desk/Lock.h"
#include "desk/Notes.h"
#include "desk/Pictures.h"
#include "desk/ReminderForm.h"
#include "shell/FileOperation.h"
#include "shell/ShellState.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "window/AutoHide.h"

#include <QFile>

namespace pd {

namespace {

bool ValidContainer(const Workspace& ws, int i) {
    return i >= 0 && i < static_cast<int>(ws.Containers.size()) && ws.grpBorder.exists(i);
}

// The last three characters of a path, trimmed and lowered: the extension as the drop tests it.
QString Ext3(const QString& path) {
    return path.trimmed().right(3).toLower();
}

void HideGuides(Workspace& ws) {
    for (ElementFamily* f : {&ws.ShapeMove, &ws.ShapeMovingIcon, &ws.ShapeIconFiller, &ws.LinkLine})
        (*f)(0).Visible = false;
}

void ShowIcons(Workspace& ws) {
    for (int k = 0; k < ws.Link.Count(); ++k) {
        if (!IsLinkLive(ws, k) || !ws.Link(k).Visible) continue;
        Element& icon = IconBox(ws, k);
        if (!icon.Visible) icon.Visible = true;
    }
}

void SayDuplicates(Workspace& ws) {
    ws.platform.messageBox(QStringLiteral("Duplicate items were not added"), MsgStyle::ExclamationBox);
}

} // namespace

void CutLinkExtension(Workspace& ws, int n) {
    Element& label = ws.Link(n);
    const QString caption = label.Caption;
    const QString ext = caption.right(3).toLower();
    if (caption.size() >= 4 &&
        (ext == QLatin1String("lnk") || ext == QLatin1String("exe") || ext == QLatin1String("url")))
        label.Caption = caption.left(caption.size() - 4);
}

int AddDroppedShortcut(Workspace& ws, const QString& file, Element& Owner, float X, float Y) {
    const int before = ws.LinkCount;
    AddShortcut(ws, file, Owner);
    if (ws.LinkCount <= before) return -1;
    const int n = ws.LinkCount - 1;
    CutLinkExtension(ws, n);
    ws.Link(n).Move(X, Y);
    SetLinkSelected(ws, n, true);
    return n;
}

void NewTextNote(Workspace& ws, const QString& name, const QString& text) {
    mnuNew_Click(ws);
    const int n = ws.ContainerCount - 1;
    if (n < 0) return;
    ShowNote(ws, n);
    ws.txtNote(n).Text = text;
    ws.lblName(n).Caption = name;
    // The new container's name field gives way to the name given here.
    ws.groupName(n).Visible = false;
}

int grpBorder_OLEDragOver(Workspace& ws, int i, const DropData& data, int Shift) {
    if (!ValidContainer(ws, i) || ws.Containers[static_cast<size_t>(i)].IsFeed) {
        OLEDragLeave(ws);
        return 0;
    }
    if (data.hasText && !data.hasFiles()) {
        OLEDragLeave(ws);
        return 1;
    }
    if (!data.hasFiles()) {
        OLEDragLeave(ws);
        return 0;
    }
    if (ws.Containers[static_cast<size_t>(i)].CopyPath.isEmpty()) {
        OLEDragLeave(ws);
        return 1;
    }
    const bool move = (Shift & 7) == 2;
    Element& label = Shell(ws).lblPath(0);
    Element& border = ws.grpBorder(i);
    if (label.Container() != &border) label.setContainer(&border);
    label.Caption =
        (move ? QStringLiteral("Move to ") : QStringLiteral("Copy to ")) + ws.lblName(i).Caption.get();
    label.ForeColor = border.ForeColor.get();
    const QSize px = ws.platform.textExtent(label.Caption, label.FontName, label.FontSize, label.FontBold);
    label.Move(100, 400, static_cast<float>(px.width()) * ws.TwipsPerPixelX(),
               static_cast<float>(px.height()) * ws.TwipsPerPixelY());
    label.ZOrder(0);
    label.Visible = true;
    return move ? 2 : 1;
}

int picBack_OLEDragOver(Workspace& ws, const DropData& data, int Shift) {
    OLEDragLeave(ws);
    if (data.hasText && !data.hasFiles()) return 1;
    if (!data.hasFiles()) return 0;
    ShrinkBackContainer(ws);
    if ((Shift & 7) == 1) {
        const QString ext = Ext3(data.files.first());
        return (ext == QLatin1String("gif") || ext == QLatin1String("jpg") || ext == QLatin1String("bmp") ||
                ext == QLatin1String("txt"))
                   ? 1
                   : 0;
    }
    return 1;
}

void OLEDragLeave(Workspace& ws) {
    if (!ws.ShellStateSlot) return;
    Element& label = Shell(ws).lblPath(0);
    if (label.Visible) label.Visible = false;
}

void grpBorder_OLEDragDrop(Workspace& ws, int i, const DropData& data, int Shift, float X, float Y) {
    if (!ValidContainer(ws, i) || ws.Containers[static_cast<size_t>(i)].IsFeed) {
        OLEDragLeave(ws);
        return;
    }
    ws.SelectedContainer = static_cast<int16_t>(i);
    bool NoDuplicates = true;
    UnlockBriefly(ws);
    Element& border = ws.grpBorder(i);
    if (!data.hasFiles()) {
        if (data.hasText) {
            QString note = TrimAll(ws.txtNote(i).Text);
            if (!note.isEmpty()) note += QStringLiteral("\r\n\r\n");
            note += data.text;
            ws.txtNote(i).Text = note;
            ShowNote(ws, i);
        }
    } else {
        // A shortcut's own file dragged back onto its own container: nothing happens, nothing is saved.
        const int s = ws.SelectedLink;
        if (s >= 0 && s < static_cast<int>(ws.Links.size()) && ws.Link.exists(s) &&
            data.files.first() == ws.Links[static_cast<size_t>(s)].LinkPath &&
            ws.Link(s).Container() == &border) {
            OLEDragLeave(ws);
            return;
        }
        const int mask = Shift & 7;
        mnuUnselectAll_Click(ws);
        const QString folder = ws.Containers[static_cast<size_t>(i)].CopyPath;
        for (const QString& file : data.files) {
            if (FindDuplicateLink(ws, border, file)) {
                NoDuplicates = false;
                continue;
            }
            const int n = AddDroppedShortcut(ws, file, border, X, Y);
            if (n < 0) continue;
            const int size = FontSizeInContainer(ws, i, n);
            ws.Link(n).FontSize = static_cast<float>(size);
            ws.Links[static_cast<size_t>(n)].Size = static_cast<float>(size);
            if (!folder.isEmpty()) CopyIntoFolderLink(ws, n, file, folder, mask == 2);
        }
        SortSelectedLinks(ws, true);
        if (!NoDuplicates) SayDuplicates(ws);
    }
    SaveDesktop(ws, true, false);
    OLEDragLeave(ws);
}

void picBack_OLEDragDrop(Workspace& ws, const DropData& data, int Shift, float X, float Y) {
    OLEDragLeave(ws);
    // The creation routes take the background as the owner.
    for (const char* name : {"mnuDeleteContainer", "mnuSepDelContainer", "mnuStartAll"})
        if (ws.menus.has(QString::fromLatin1(name))) ws.menus[QString::fromLatin1(name)].setVisible(false);
    Element& back = ws.picBack(0);
    UnlockBriefly(ws);
    if ((Shift & 7) == 1) {
        ws.DropX = X;
        ws.DropY = Y;
        if (data.hasFiles()) {
            const QString file = data.files.first();
            const QString ext = Ext3(file);
            if (ext == QLatin1String("gif") || ext == QLatin1String("jpg") || ext == QLatin1String("bmp")) {
                if (AddPicture(ws, file)) PlacePicture(ws, X, Y);
            } else if (ext == QLatin1String("txt")) {
                QFile f(file.trimmed());
                QString text;
                if (f.open(QIODevice::ReadOnly)) {
                    // The lines are joined without their line breaks.
                    const QString all = DecodeText(f.readAll());
                    for (const QString& line : all.split(QLatin1Char('\n'))) {
                        QString l = line;
                        if (l.endsWith(QLatin1Char('\r'))) l.chop(1);
                        text += l;
                    }
                }
                NewTextNote(ws, GetFileName(file.trimmed()), text);
            }
        } else if (data.hasText) {
            // The reminder dialog, modal, with the text in its field.
            EnableDisableTimerHide(ws, false);
            ReminderForm form(ws);
            form.Load();
            form.txtReminder = data.text;
            if (Desk(ws).showReminderForm) Desk(ws).showReminderForm(form);
            EnableDisableTimerHide(ws, true);
        }
    } else if (!data.hasFiles()) {
        if (data.hasText) {
            if (data.text.startsWith(QLatin1String("http")))
                AddURL(ws, data.text, data.text, back);
            else
                NewTextNote(ws, QStringLiteral("Text Snippet"), data.text);
        }
    } else {
        bool NoDuplicates = true;
        mnuUnselectAll_Click(ws);
        for (const QString& file : data.files) {
            if (FindDuplicateLink(ws, back, file)) {
                NoDuplicates = false;
                continue;
            }
            AddDroppedShortcut(ws, file, back, X, Y);
        }
        SortSelectedLinks(ws, true);
        if (!NoDuplicates) SayDuplicates(ws);
    }
    SaveDesktop(ws, true, false);
}

QStringList Link_OLEStartDrag(Workspace& ws, int n) {
    QStringList paths;
    if (n < 0 || n >= static_cast<int>(ws.Links.size()) || !ws.Link.exists(n)) return paths;
    const QString first = ws.Links[static_cast<size_t>(n)].LinkPath;
    paths << first;
    const Element* owner = ws.Link(n).Container();
    for (int16_t k : ws.SelectedLinks) {
        if (k == n || k < 0 || k >= static_cast<int>(ws.Links.size()) || !ws.Link.exists(k)) continue;
        if (ws.Link(k).Container() != owner || owner == &ws.picBack(0)) continue;
        const QString& path = ws.Links[static_cast<size_t>(k)].LinkPath;
        if (path != first && !paths.contains(path)) paths << path;
    }
    return paths;
}

void grpBorder_DragOver(Workspace& ws, int i) {
    Q_UNUSED(i);
    OLEDragLeave(ws);
    HideGuides(ws);
    ShowIcons(ws);
}

bool picBack_DragOver(Workspace& ws) {
    OLEDragLeave(ws);
    Element* source = ws.DragSource;
    if (!source || source->Name() != QLatin1String("Link")) return false;
    HideGuides(ws);
    ShrinkBackContainer(ws);
    const int n = source->Index();
    const int c = source->Container() ? ContainerOf(*source->Container()) : -1;
    if (!ValidContainer(ws, c) || ws.Containers[static_cast<size_t>(c)].CopyPath.isEmpty()) return false;
    // A shortcut leaving a folder-link container becomes a file drag that other programs take.
    const QStringList paths = Link_OLEStartDrag(ws, n);
    CancelDrag(ws);
    ws.platform.startFileDrag(paths);
    return true;
}

} // namespace pd
