#include "shortcuts/Shortcuts.h"

#include "app/files/Values.h"
#include "app/workspace/Workspace.h"
#include "shortcuts/LinkLayout.h"

#include <algorithm>

namespace pd {

namespace {
// Grows the record array to hold index i, keeping its rows.
void GrowLinks(Workspace& ws, int i) {
    if (static_cast<int>(ws.Links.size()) <= i) ws.Links.resize(static_cast<size_t>(i) + 1);
}

// Steps shared by both adders: the next Link and PicIcon members, placed in Owner, with a fresh record.
// Returns -1 when the 16-bit slot counts are used up: no further shortcut can be made in this run.
int NewLinkSlot(Workspace& ws, Element& Owner) {
    if (ws.LinkCount == INT16_MAX || ws.IconCount == INT16_MAX) return -1;
    const int n = ws.LinkCount;
    const int m = ws.IconCount;
    Element& icon = ws.IconCount != 0 ? ws.PicIcon.Load(m) : ws.PicIcon(0);
    Element& label = ws.LinkCount != 0 ? ws.Link.Load(n) : ws.Link(0);
    icon.setContainer(&Owner);
    label.setContainer(&Owner);
    GrowLinks(ws, n);
    ws.Links[n] = LinkRecord{};
    LinkRecord& r = ws.Links[n];
    r.Bold = false;
    r.LinkColor = -1;
    r.IconIndex = static_cast<int16_t>(m);
    r.Tags.clear();
    label.FontSize = ws.LinkFontSize;
    r.Size = ws.LinkFontSize;
    label.FontName = ws.LinkFontName;
    label.Enabled = true;
    label.ForeColor = Owner.ForeColor.get();
    label.FontBold = false;
    label.Visible = true;
    icon.Visible = true;
    label.ZOrder(0);
    return n;
}
} // namespace

QString GetFileName(const QString& Path) {
    if (Path.size() == 3) return Path;
    qsizetype pos = (Path.size() > 1 && Path[1] == QLatin1Char(':')) ? 2 : 0;
    const qsizetype slash = Path.lastIndexOf(QLatin1Char('/'));
    if (slash >= pos) pos = slash + 1;
    const qsizetype back = Path.lastIndexOf(QLatin1Char('\\'));
    if (back >= pos) pos = back + 1;
    return Path.mid(pos);
}

bool FindDuplicateLink(Workspace& ws, Element& Owner, const QString& Path) {
    const int count = std::min(static_cast<int>(ws.Links.size()), static_cast<int>(ws.LinkCount));
    for (int k = 0; k < count; ++k) {
        if (!ws.Link.exists(k)) continue;
        Element& label = ws.Link(k);
        // Same owner means the same element: same family and same index.
        if (!label.Visible || ws.Links[k].LinkType != 2.0f || label.Container() != &Owner) continue;
        if (ws.Links[k].LinkPath == Path) return true;
    }
    return false;
}

int FontSizeInContainer(Workspace& ws, int OwnerIndex, int NewLinkIndex) {
    if (OwnerIndex >= 0 && OwnerIndex < ws.grpBorder.Count()) {
        Element* owner = &ws.grpBorder(OwnerIndex);
        for (int k = ws.Link.Count() - 1; k >= 0; --k) {
            // A removed shortcut (empty caption) no longer counts.
            if (k == NewLinkIndex || !ws.Link.exists(k) || ws.Link(k).Caption.get().isEmpty()) continue;
            if (ws.Link(k).Container() == owner) return static_cast<int>(ws.Link(k).FontSize.get());
        }
    }
    return ws.LinkFontSize;
}

void AddShortcut(Workspace& ws, QString Path, Element& Owner) {
    Path = Path.trimmed();
    QString target;
    if (ws.menus["mnuExtractURL"].Checked()) {
        const QString ext = Path.right(3).toLower();
        if (ext == QLatin1String("lnk") || ext == QLatin1String("url")) {
            target = ResolveLinkTarget(Path);
            // An internet shortcut becomes a web shortcut; one whose address cannot be read stays a
            // shortcut to the file itself rather than a web shortcut without an address.
            if (ext == QLatin1String("url") && !target.isEmpty()) {
                AddURL(ws, target, GetFileName(Path), Owner);
                return;
            }
        }
    }
    const int n = NewLinkSlot(ws, Owner);
    if (n < 0) return;
    LinkRecord& r = ws.Links[n];
    r.LinkType = 2;
    r.Command = 0;
    r.LinkPath = target.isEmpty() ? Path : target;
    ws.Link(n).Caption = GetFileName(Path);
    ++ws.LinkCount;
    ++ws.IconCount;
}

void AddURL(Workspace& ws, QString Address, const QString& Label, Element& Owner) {
    Address = Address.trimmed();
    const int n = NewLinkSlot(ws, Owner);
    if (n < 0) return;
    LinkRecord& r = ws.Links[n];
    r.LinkType = 1;
    r.LinkPath = Address;
    Element& label = ws.Link(n);
    label.Caption = Label.isEmpty() ? Address : Label;
    label.Move(ws.DropX, ws.DropY);
    ++ws.LinkCount;
    ++ws.IconCount;
    MoveLinkIcon(ws, n);
}

} // namespace pd
