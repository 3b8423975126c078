// Tags and launch marks: the tags menu, the filter and its banner, the asterisk over a hovered icon
// that gives a shortcut its tags, editing tags, and marking a shortcut on launch.

#include "shortcuts/Tags.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "feeds/InputDialog.h"
#include "shortcuts/FindState.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkSelection.h"
#include "window/AutoHide.h"

namespace pd {

namespace {

const QString kNoTags = QStringLiteral("[No Tags]");
// Yes/No with exclamation, the second button the default, system-modal.
constexpr int kYesNoWarningSecondDefault = MsgStyle::YesNoWarning + 256;
// The banner stands this far above the highest shortcut left.
constexpr float kBannerAbove = 330;
// The asterisk's side in pixels.
constexpr int kAsteriskPixels = 9;

bool HasCaption(Workspace& ws, int k) {
    return k >= 0 && k < static_cast<int>(ws.Links.size()) && ws.Link.exists(k) &&
           !ws.Link(k).Caption.get().isEmpty();
}

bool Shown(Workspace& ws, int k) {
    return HasCaption(ws, k) && ws.Link(k).Visible;
}

void SetIconVisible(Workspace& ws, int k, bool visible) {
    const int m = ws.Links[static_cast<size_t>(k)].IconIndex;
    if (ws.PicIcon.exists(m)) ws.PicIcon(m).Visible = visible;
}

// Shows the entries 0 .. count - 1 of a menu family under `parent` with these captions, hiding the rest.
int FillFamily(Workspace& ws, const char* family, const char* parent, const QStringList& captions) {
    const QString name = QString::fromLatin1(family);
    const QString owner = QString::fromLatin1(parent);
    for (int k = 0; k < captions.size(); ++k) {
        MenuEntry& m = ws.menus.has(name, k) ? ws.menus(name, k) : ws.menus.add(name, QString(), owner, k);
        m.setCaption(captions[k]);
        m.setVisible(true);
        if (!m.onClick) {
            Workspace* w = &ws;
            if (name == QLatin1String("mnuTagsItem"))
                m.onClick = [w, k] { mnuTagsItem_Click(*w, k); };
            else
                m.onClick = [w, k] { mnuSubItem_Click(*w, k); };
        }
    }
    // "Unloaded" entries above 0 are hidden; they are used again by the next fill.
    for (int k = std::max<int>(1, static_cast<int>(captions.size())); k < ws.menus.familyCount(name); ++k)
        ws.menus(name, k).setVisible(false);
    return std::max<int>(1, static_cast<int>(captions.size()));
}

} // namespace

QStringList SplitTags(const QString& Tags) {
    QString list = Tags;
    if (!list.endsWith(QLatin1Char(','))) list += QLatin1Char(',');
    QStringList pieces;
    for (const QString& piece : list.split(QLatin1Char(','))) {
        const QString t = piece.trimmed();
        if (!t.isEmpty()) pieces.push_back(t);
    }
    return pieces;
}

void BuildTagsMenu(Workspace& ws) {
    QString seen;
    QStringList found;
    for (int k = 0; k < static_cast<int>(ws.Links.size()); ++k) {
        const QString& tags = ws.Links[static_cast<size_t>(k)].Tags;
        if (tags.trimmed().isEmpty()) continue;
        for (const QString& piece : SplitTags(tags)) {
            // A substring test on purpose: "art" is taken as seen once "party" is listed; case counts.
            if (seen.contains(piece, Qt::CaseSensitive)) continue;
            seen += piece + QLatin1Char(',');
            found.push_back(piece);
        }
    }
    ws.menus("mnuTagsItem", 0).setCaption(kNoTags);
    Find(ws).TagsItemCount = FillFamily(ws, "mnuTagsItem", "mnuTagsMain", found);
}

bool TagFilterOn(Workspace& ws) {
    return ws.FrameLinkGroup(0).Visible;
}

void FilterByTag(Workspace& ws, int /*n*/, const QString& Tag) {
    const QString tag = Tag.toLower();
    const int links = std::min(static_cast<int>(ws.Links.size()), ws.Link.Count());
    // 1. Shortcuts without the tag go, with their icons.
    for (int k = 0; k < links; ++k) {
        if (!HasCaption(ws, k)) continue;
        if (!ws.Links[static_cast<size_t>(k)].Tags.toLower().contains(tag)) {
            ws.Link(k).Visible = false;
            SetIconVisible(ws, k, false);
        }
    }
    // 2. Containers left without a visible shortcut go too, marked as hidden by the filter.
    int lastVisible = -1;
    const bool selectedVisible = Shown(ws, ws.SelectedLink);
    for (int i = 0; i < ws.grpBorder.Count(); ++i) {
        if (!IsContainerLive(ws, i)) continue;
        const Element* border = &ws.grpBorder(i);
        bool any = false;
        for (int k = 0; k < links; ++k) {
            if (!Shown(ws, k) || ws.Link(k).Container() != border) continue;
            any = true;
            lastVisible = k;
        }
        if (!any && ws.Group(i).Visible) {
            ws.Group(i).Visible = false;
            if (i < static_cast<int>(ws.Containers.size()))
                ws.Containers[static_cast<size_t>(i)].TagHidden = true;
        }
    }
    // 3. The highest shortcut left in the owner of the selected one, or of the last one met.
    int top = selectedVisible ? ws.SelectedLink : lastVisible;
    if (top < 0) {
        // Only shortcuts on the background carry the tag: the banner goes over the highest of them.
        for (int k = 0; k < links && top < 0; ++k)
            if (Shown(ws, k)) top = k;
    }
    Element& frame = ws.FrameLinkGroup(0);
    Element* owner = top >= 0 ? &LinkOwner(ws, top) : &ws.picBack(0);
    if (top >= 0) {
        for (int k = 0; k < links; ++k) {
            if (!Shown(ws, k) || ws.Link(k).Container() != owner) continue;
            if (ws.Link(k).Top < ws.Link(top).Top) top = k;
        }
    }
    // 4. The banner in the owner's inverted colours, as wide as its text.
    frame.setContainer(owner);
    frame.Caption = QStringLiteral("  Tag: ") + Tag + QStringLiteral("  ");
    frame.ForeColor = owner->BackColor.get();
    frame.BackColor = owner->ForeColor.get();
    frame.BackStyle = 1;
    frame.FontName = ws.LinkFontName;
    frame.FontSize = 8;
    frame.FontBold = true;
    frame.ToolTipText = QStringLiteral("Show All");
    const QSize px = ws.platform.textExtent(frame.Caption.get(), frame.FontName.get(), 8, true);
    const float left = top >= 0 ? ws.Link(top).Left.get() : 120.0f;
    const float linkTop = top >= 0 ? ws.Link(top).Top.get() : 630.0f;
    frame.Move(left, linkTop - kBannerAbove, static_cast<float>(px.width()) * ws.TwipsPerPixelX(),
               static_cast<float>(px.height()) * ws.TwipsPerPixelY());
    frame.Visible = true;
    frame.ZOrder(0);
    // 5.
    UnselectAllLinks(ws, true);
}

void ShowAllTags(Workspace& ws) {
    const int links = std::min(static_cast<int>(ws.Links.size()), ws.Link.Count());
    // Every hidden shortcut shows again, also one hidden for another reason.
    for (int k = 0; k < links; ++k) {
        if (!HasCaption(ws, k) || ws.Link(k).Visible) continue;
        ws.Link(k).Visible = true;
        SetIconVisible(ws, k, true);
    }
    for (int i = 0; i < ws.Group.Count() && i < static_cast<int>(ws.Containers.size()); ++i) {
        if (!ws.Group.exists(i) || !ws.Containers[static_cast<size_t>(i)].TagHidden) continue;
        if (!ws.Group(i).Visible) ws.Group(i).Visible = true;
        ws.Containers[static_cast<size_t>(i)].TagHidden = false;
    }
    ws.FrameLinkGroup(0).Visible = false;
}

void mnuTagsItem_Click(Workspace& ws, int Index) {
    if (ws.menus("mnuTagsItem", 0).Caption() == kNoTags) return;
    if (!ws.menus.has(QStringLiteral("mnuTagsItem"), Index)) return;
    ShowAllTags(ws);
    FilterByTag(ws, Index, ws.menus("mnuTagsItem", Index).Caption());
}

void mnuSubItem_Click(Workspace& ws, int Index) {
    if (!ws.menus.has(QStringLiteral("mnuSubItem"), Index)) return;
    const QString tag = ws.menus("mnuSubItem", Index).Caption();
    if (tag.isEmpty()) return;
    ShowAllTags(ws);
    FilterByTag(ws, Index, tag);
}

QString EditTags(Workspace& ws, const QString& Current) {
    QString answer = AskInput(ws, QStringLiteral("Edit Tags (separate with commas) -"), Current);
    if (answer.trimmed().isEmpty() && !Current.trimmed().isEmpty()) {
        if (ws.platform.messageBox(QStringLiteral("Delete Tags?"), kYesNoWarningSecondDefault) !=
            MsgAnswer::Yes)
            answer = Current;
    }
    SaveDesktop(ws, true, false);
    return answer;
}

void ShowLinkTagsMenu(Workspace& ws) {
    const int n = ws.SelectedLink;
    if (!HasCaption(ws, n)) return;
    FindState& f = Find(ws);
    const QStringList tags = SplitTags(ws.Links[static_cast<size_t>(n)].Tags);
    f.SubItemCount = FillFamily(ws, "mnuSubItem", "mnuTags", tags);
    if (f.onPopupMenu) f.onPopupMenu(QStringLiteral("mnuTags"));
    f.SubItemCount = FillFamily(ws, "mnuSubItem", "mnuTags", tags.mid(0, 1));
}

void mnuTag_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    const int n = ws.SelectedLink;
    if (HasCaption(ws, n)) {
        if (!IsLinkSelected(ws, n)) SetLinkSelected(ws, n, true);
        const QString tags = EditTags(ws, ws.Links[static_cast<size_t>(n)].Tags).trimmed();
        for (int16_t k : ws.SelectedLinks)
            if (k >= 0 && k < static_cast<int>(ws.Links.size())) ws.Links[static_cast<size_t>(k)].Tags = tags;
        SaveDesktop(ws, true, false);
    }
    EnableDisableTimerHide(ws, true);
}

void UpdateMarkCaption(Workspace& ws) {
    const int n = ws.SelectedLink;
    const bool marked = n >= 0 && n < static_cast<int>(ws.Links.size()) &&
                        !ws.Links[static_cast<size_t>(n)].MarkTag.isEmpty();
    ws.menus["mnuLinkMakeExclusive"].setCaption(marked ? QStringLiteral("Remove Mark on &Launch...")
                                                       : QStringLiteral("Mark on &Launch..."));
}

void mnuLinkMakeExclusive_Click(Workspace& ws) {
    const int n = ws.SelectedLink;
    if (!HasCaption(ws, n)) return;
    EnableDisableTimerHide(ws, false);
    if (!IsLinkSelected(ws, n)) SetLinkSelected(ws, n, true);
    LinkRecord& r = ws.Links[static_cast<size_t>(n)];
    if (!r.MarkTag.isEmpty()) {
        if (ws.platform.messageBox(QStringLiteral("Remove shortcut's Mark on Launch attribute? [tag: ") +
                                       r.MarkTag + QLatin1Char(']'),
                                   MsgStyle::YesNoQuestion) == MsgAnswer::Yes) {
            ws.Links[static_cast<size_t>(n)].MarkTag.clear();
            ws.Link(n).BorderStyle = 0;
        }
    } else {
        const QString tag =
            AskInput(ws, QStringLiteral("Enter Tag for Mark on Launch (see Help):"), QString()).trimmed();
        if (!tag.isEmpty()) {
            // One shortcut at a time holds a mark tag: any other visible one gives it up with its border.
            const int links = std::min(static_cast<int>(ws.Links.size()), ws.Link.Count());
            for (int k = 0; k < links; ++k) {
                if (!Shown(ws, k)) continue;
                LinkRecord& other = ws.Links[static_cast<size_t>(k)];
                if (other.MarkTag.compare(tag, Qt::CaseInsensitive) != 0) continue;
                other.MarkTag.clear();
                ws.Link(k).BorderStyle = 0;
            }
            ws.Links[static_cast<size_t>(n)].MarkTag = tag;
        }
    }
    SaveDesktop(ws, true, false);
    EnableDisableTimerHide(ws, true);
}

int LinkForIcon(Workspace& ws, int m) {
    if (m < 0) return -1;
    for (int k = 0; k < static_cast<int>(ws.Links.size()) && k < ws.Link.Count(); ++k)
        if (HasCaption(ws, k) && ws.Links[static_cast<size_t>(k)].IconIndex == m) return k;
    return -1;
}

int LinkForHoveredIcon(Workspace& ws) {
    return LinkForIcon(ws, Find(ws).HoveredIcon);
}

void PicIcon_MouseMove(Workspace& ws, int m) {
    if (!ws.menus["mnuShowShortcutTags"].Checked() || TagFilterOn(ws) || !ws.PicIcon.exists(m)) return;
    const int n = LinkForIcon(ws, m);
    if (n < 0) return;
    Find(ws).HoveredIcon = m;
    Element& icon = ws.PicIcon(m);
    Element* owner = icon.Container() ? icon.Container() : &ws.picBack(0);
    Element& star = ws.ImgLinkGroup(0);
    const QString& tags = ws.Links[static_cast<size_t>(n)].Tags;
    star.setContainer(owner);
    star.Caption = QStringLiteral("*");
    star.FontName = ws.LinkFontName;
    star.FontSize = 9;
    star.FontBold = true;
    // Without tags: a transparent asterisk in the owner's fore colour; with tags an opaque one in the
    // owner's inverted colours.
    if (tags.isEmpty()) {
        star.BackStyle = 0;
        star.ForeColor = owner->ForeColor.get();
    } else {
        star.BackStyle = 1;
        star.ForeColor = owner->BackColor.get();
        star.BackColor = owner->ForeColor.get();
    }
    star.ToolTipText =
        QStringLiteral("Tags: ") + tags + QStringLiteral("\r\nLeft Click: Select\r\nRight Click: Edit Tags");
    // Over the icon's top right corner.
    const float w = kAsteriskPixels * ws.TwipsPerPixelX(), h = kAsteriskPixels * ws.TwipsPerPixelY();
    star.Move(icon.Left + icon.Width - w, icon.Top, w, h);
    star.Visible = true;
    star.ZOrder(0);
}

void ImgLinkGroup_MouseUp(Workspace& ws, int Button) {
    EnableDisableTimerHide(ws, false);
    const int n = LinkForHoveredIcon(ws);
    if (n >= 0) {
        ws.SelectedLink = static_cast<int16_t>(n);
        const bool hasTags = !ws.Links[static_cast<size_t>(n)].Tags.isEmpty();
        if (Button == 2 && hasTags) {
            const QString tags = EditTags(ws, ws.Links[static_cast<size_t>(n)].Tags);
            ws.Links[static_cast<size_t>(n)].Tags = tags.trimmed();
            SaveDesktop(ws, true, false);
        } else if (hasTags) {
            ShowLinkTagsMenu(ws);
        } else {
            const QString tags = EditTags(ws, QString());
            if (!tags.trimmed().isEmpty()) {
                ws.Links[static_cast<size_t>(n)].Tags = tags.trimmed();
                SaveDesktop(ws, true, false);
            }
        }
    }
    ws.ImgLinkGroup(0).Visible = false;
    EnableDisableTimerHide(ws, true);
}

void LblLinkGroup_Click(Workspace& ws) {
    ShowAllTags(ws);
}

} // namespace pd
