// Type-to-find: the panel PicJumpToLink with its search field cboSearch, the search over the visible
// shortcuts' labels, the list of candidates and the keys of the open panel.

#include "shortcuts/JumpTo.h"

#include "app/workspace/Workspace.h"
#include "shortcuts/FindState.h"
#include "shortcuts/Launch.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"

#include <QFileInfo>
#include <QSet>

namespace pd {

namespace {

constexpr int kKeyDown = 40;
// The label shows this many characters of the found shortcut's label.
constexpr int kLabelChars = 19;

bool Shown(Workspace& ws, int k) {
    return k >= 0 && k < static_cast<int>(ws.Links.size()) && ws.Link.exists(k) && ws.Link(k).Visible &&
           !ws.Link(k).Caption.get().isEmpty();
}

int LinkSlots(Workspace& ws) {
    return std::min(static_cast<int>(ws.Links.size()), ws.Link.Count());
}

// The picture of the found shortcut's icon, as the icon boxes take it.
QString IconPicture(Workspace& ws, int n) {
    const LinkRecord& r = ws.Links[static_cast<size_t>(n)];
    QString file;
    if (r.LinkType == 1.0f)
        file = ws.programFile(QStringLiteral("Perchdock Home Page.html"));
    else if (!r.LinkIcon.isEmpty())
        file = r.LinkIcon;
    else if (r.Command == 0)
        file = ExpandDriveLetter(ws, r.LinkPath);
    // A command runs through the shell: the terminal stands for it.
    else
        return QStringLiteral("themeicon:utilities-terminal");
    if (file.startsWith(QLatin1String("themeicon:"))) return file;
    if (file.isEmpty() || !QFileInfo::exists(file)) return QStringLiteral("noicon:");
    return QStringLiteral("fileicon:") + file;
}

} // namespace

bool OpensJumpTo(Workspace& ws, int KeyCode, int Shift) {
    const int mask = Shift & 7;
    if (mask == 1 || mask == 2 || mask == 4 || mask == 6) return false;
    if (ws.PicJumpToLink(0).Visible) return false;
    // Key codes name letters by their capitals; the codes of the small letters are those of function
    // keys here (F3 is 114, an "r"), which open nothing.
    return (KeyCode >= 'A' && KeyCode <= 'Z') || (KeyCode >= '0' && KeyCode <= '9');
}

void OpenJumpTo(Workspace& ws, const QString& FirstText) {
    Element& panel = ws.PicJumpToLink(0);
    if (panel.Visible) return;
    FindState& f = Find(ws);
    ws.JumpToOpen = true;
    // The look of the current theme: the containers' colours, rounded like a container.
    Element& top = ws.PicJumpToLinkTop(0);
    panel.BackColor = ws.ContainerColor;
    panel.ForeColor = ws.ContainerLabelColor;
    panel.BackStyle = 1;
    panel.CornerRadius = 11;
    top.setContainer(&panel);
    top.BackColor = ws.ContainerLabelColor;
    top.ForeColor = ws.ContainerColor;
    top.BackStyle = 1;
    top.CornerRadius = 11;
    top.FontName = ws.LinkFontName;
    top.FontSize = 8;
    top.FontBold = true;
    top.Caption = QStringLiteral("  Jump to:");
    panel.Width = kJumpToWidth;
    panel.Height = kJumpToHeight;
    top.Move(0, 0, kJumpToWidth, kJumpToTopHeight);
    const Element& back = ws.picBack(0);
    panel.Left = back.Width / 2 - panel.Width / 2;
    panel.Top = back.Height / 2 - panel.Height / 2;
    panel.Visible = true;
    top.Visible = true;
    panel.ZOrder(0);
    top.ZOrder(0);
    f.cboSearchText = FirstText.toLower();
    // The caret after the text.
    f.SelStart = static_cast<int>(f.cboSearchText.size());
    f.FocusSearch = true;
    f.changed();
}

void JumpToLink(Workspace& ws, const QString& Term) {
    if (Term.trimmed().isEmpty()) {
        UnselectAllLinks(ws, true);
        return;
    }
    // Labels and term compared without regard to case, as both lowered would be (no lowered copy of
    // each label is made: this runs at every keystroke).
    const QString term = Term.toLower();
    int match = -1;
    // From the last shortcut down, without stopping: the lowest index wins.
    for (int k = LinkSlots(ws) - 1; k >= 0; --k)
        if (Shown(ws, k) && ws.Link(k).Caption.get().startsWith(term, Qt::CaseInsensitive)) match = k;
    if (match < 0) {
        for (int k = LinkSlots(ws) - 1; k >= 0; --k)
            if (Shown(ws, k) && ws.Link(k).Caption.get().contains(term, Qt::CaseInsensitive)) match = k;
    }
    if (match < 0) return;
    SetLinkSelected(ws, ws.SelectedLink, false);
    ws.SelectedLink = static_cast<int16_t>(match);
    SetLinkSelected(ws, match, true);
    FindState& f = Find(ws);
    f.lblJumpToLink = ws.Link(match).Caption.get().left(kLabelChars);
    f.JumpToIcon = IconPicture(ws, match);
    f.changed();
}

bool IsNewSearchItem(Workspace& ws, int n) {
    const FindState& f = Find(ws);
    const QString& label = ws.Link(n).Caption.get();
    // Position 0 is left out of the comparison: a label may stand there and once more after it.
    for (size_t i = 1; i < f.cboSearchList.size(); ++i)
        if (f.cboSearchList[i] == label) return false;
    return true;
}

void FillSearchList(Workspace& ws) {
    FindState& f = Find(ws);
    f.Busy = true;
    f.changed();
    const QString text = f.cboSearchText.toLower();
    const QString first = text.left(1);
    // The labels from list position 1 on, kept as the list grows: the test of IsNewSearchItem without a
    // walk of the list for every label.
    QSet<QString> listed;
    for (size_t i = 1; i < f.cboSearchList.size(); ++i)
        listed.insert(f.cboSearchList[i]);
    auto add = [&f, &listed](const QString& label) {
        if (listed.contains(label)) return;
        if (!f.cboSearchList.empty()) listed.insert(label);
        f.cboSearchList.push_back(label);
    };
    for (int k = 0; k < LinkSlots(ws); ++k) {
        if (!Shown(ws, k)) continue;
        const QString& label = ws.Link(k).Caption.get();
        if (label.left(1).toLower() == first) add(label);
    }
    for (int k = 0; k < LinkSlots(ws); ++k) {
        if (!Shown(ws, k)) continue;
        const QString& label = ws.Link(k).Caption.get();
        if (label.contains(text, Qt::CaseInsensitive)) add(label);
    }
    f.Busy = false;
    f.changed();
}

void cboSearch_Change(Workspace& ws, const QString& Text) {
    FindState& f = Find(ws);
    f.cboSearchText = Text;
    if (Text.trimmed().isEmpty()) {
        f.cboSearchList.clear();
        f.ListIndex = -1;
    } else {
        // The item is compared as it stands with the lowered text; empty items stay.
        const QString lowered = Text.toLower();
        for (int i = static_cast<int>(f.cboSearchList.size()) - 1; i >= 0; --i) {
            const QString& item = f.cboSearchList[static_cast<size_t>(i)];
            if (item.isEmpty() || item.contains(lowered)) continue;
            f.cboSearchList.erase(f.cboSearchList.begin() + i);
            if (f.ListIndex == i)
                f.ListIndex = -1;
            else if (f.ListIndex > i)
                --f.ListIndex;
        }
    }
    ws.PicJumpToLink(0).ZOrder(0);
    f.changed();
}

void cboSearch_KeyUp(Workspace& ws) {
    JumpToLink(ws, Find(ws).cboSearchText);
}

void cboSearch_Click(Workspace& ws, int Index) {
    FindState& f = Find(ws);
    if (Index >= 0 && Index < static_cast<int>(f.cboSearchList.size())) {
        f.ListIndex = Index;
        f.cboSearchText = f.cboSearchList[static_cast<size_t>(Index)];
        f.SelStart = static_cast<int>(f.cboSearchText.size());
        f.changed();
    }
    JumpToLink(ws, f.cboSearchText);
}

void cboSearch_DropDown(Workspace& ws) {
    FillSearchList(ws);
}

void cboSearch_KeyDown(Workspace& ws, int KeyCode) {
    if (KeyCode != kKeyDown) return;
    FillSearchList(ws);
    FindState& f = Find(ws);
    if (f.ListIndex + 1 < static_cast<int>(f.cboSearchList.size())) cboSearch_Click(ws, f.ListIndex + 1);
}

void JumpToEscape(Workspace& ws) {
    FindState& f = Find(ws);
    if (!f.cboSearchText.isEmpty()) {
        f.SelStart = 0;
        cboSearch_Change(ws, QString());
    } else {
        HideJumpTo(ws);
    }
}

void lblGo_Click(Workspace& ws) {
    // The panel's own start: the found shortcut, without the Enter key's tests.
    LaunchLink(ws, ws.SelectedLink);
}

void lblClosePicJumpTo_Click(Workspace& ws) {
    HideJumpTo(ws);
}

} // namespace pd
