// The selection of shortcuts and the small toolbar over it. A selected label is drawn opaque in its
// owner's inverted colours; the selection keeps its newest entry first.

#include "shortcuts/LinkSelection.h"

#include "app/workspace/Workspace.h"
#include "containers/Moving.h"
#include "containers/Containers.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/Shortcuts.h"

#include <algorithm>
#include <array>

namespace pd {

namespace {

// The toolbar: a colour swatch and the six buttons in a row, each a 16-pixel square with a 2-pixel
// margin around it.
constexpr int kButtons = 6;
constexpr int kButtonPixels = 16;
constexpr int kMarginPixels = 2;
// The toolbar stands this far above the label and this far left of it.
constexpr float kToolbarAbove = 370;
constexpr float kToolbarLeft = 400;

const std::array<const char*, kButtons> kButtonTips = {"Zoom In", "Zoom Out", "Set Size", "Toggle Bold Font",
                                                       "Sort Ascending", "Sort Descending"};
// The buttons' images: the program's own, beside it in Skin/Toolbar (not part of a button set).
const std::array<const char*, kButtons> kButtonImages = {"zoomin.gif", "zoomout.gif", "setsize.gif",
                                                         "bold.gif",   "sortaz.gif",  "sortza.gif"};

// Loads the buttons once and lays the toolbar out: swatch, then the six buttons left to right.
void BuildToolbar(Workspace& ws) {
    if (ws.picMiniToolbar.exists(kButtons - 1)) return;
    const float px = ws.TwipsPerPixelX(), py = ws.TwipsPerPixelY();
    const float side = kButtonPixels * px, height = kButtonPixels * py;
    const float step = (kButtonPixels + kMarginPixels) * px;
    const float margin = kMarginPixels * px, marginY = kMarginPixels * py;
    Element& bar = ws.PicLinkToolbar(0);
    bar.Width = margin + (kButtons + 1) * step;
    bar.Height = height + 2 * marginY;
    Element& swatch = ws.PicLinkColor(0);
    swatch.setContainer(&bar);
    swatch.Move(margin, marginY, side, height);
    swatch.Visible = true;
    for (int i = 0; i < kButtons; ++i) {
        Element& b = i == 0 ? ws.picMiniToolbar(0) : ws.picMiniToolbar.Load(i);
        b.setContainer(&bar);
        b.Move(margin + (i + 1) * step, marginY, side, height);
        b.ToolTipText = QString::fromLatin1(kButtonTips[static_cast<size_t>(i)]);
        // A picture is taken only when the platform can read it (a loaded member copies member 0's).
        const QString image = ws.programFile(QStringLiteral("Skin/Toolbar/") +
                                             QString::fromLatin1(kButtonImages[static_cast<size_t>(i)]));
        b.Picture = ws.platform.imageSize(image).isValid() ? image : QString();
        b.Visible = true;
    }
}

// The owner whose shortcuts the context menu's commands take: the container it was opened on, or the
// background.
Element& ContextOwner(Workspace& ws) { return MenuOwner(ws); }

} // namespace

bool IsLinkSelected(const Workspace& ws, int n) {
    return std::find(ws.SelectedLinks.begin(), ws.SelectedLinks.end(), n) != ws.SelectedLinks.end();
}

void SetLinkSelected(Workspace& ws, int n, bool Selected) {
    if (n < 0 || n >= static_cast<int>(ws.Links.size()) || !ws.Link.exists(n)) return;
    Element& label = ws.Link(n);
    const Element& owner = LinkOwner(ws, n);
    if (Selected) {
        // An entry is in the selection once; selecting it again leaves its place.
        if (!IsLinkSelected(ws, n)) ws.SelectedLinks.insert(ws.SelectedLinks.begin(), static_cast<int16_t>(n));
        label.BackStyle = 1;
        label.BackColor = owner.ForeColor.get();
        label.ForeColor = owner.BackColor.get();
    } else {
        std::erase(ws.SelectedLinks, static_cast<int16_t>(n));
        label.BackStyle = 0;
        label.BackColor = owner.BackColor.get();
        const int32_t color = ws.Links[static_cast<size_t>(n)].LinkColor;
        label.ForeColor = color == -1 ? owner.ForeColor.get() : color;
    }
}

void UnselectAllLinks(Workspace& ws, bool IncludeCurrent) {
    const std::vector<int16_t> walk = ws.SelectedLinks;
    for (auto it = walk.rbegin(); it != walk.rend(); ++it) {
        const int n = *it;
        if (n == ws.SelectedLink && !IncludeCurrent) continue;
        if (ws.Link.exists(n) && ws.Link(n).BackStyle == 1) SetLinkSelected(ws, n, false);
        else std::erase(ws.SelectedLinks, static_cast<int16_t>(n)); // an entry that no longer shows as selected
    }
    HideLinkToolbar(ws);
}

void mnuSelectAll_Click(Workspace& ws) {
    Element& owner = ContextOwner(ws);
    for (int n = 0; n < ws.LinkCount; ++n)
        if (IsLinkLive(ws, n) && ws.Link(n).Container() == &owner) SetLinkSelected(ws, n, true);
    ShowLinkToolbar(ws, owner);
}

void mnuUnselectAll_Click(Workspace& ws) {
    UnselectAllLinks(ws, true);
    UnselectAllGroups(ws);
}

void mnuLinkSelect_Click(Workspace& ws) {
    if (ws.ContextIsContainer) {
        for (int i = 0; i < ws.Group.Count(); ++i) {
            if (!IsContainerLive(ws, i)) continue;
            if (ws.lblName(i).FontBold) UnselectGroup(ws, i);
            else SelectGroup(ws, i);
        }
        return;
    }
    Element& owner = ContextOwner(ws);
    for (int n = 0; n < ws.LinkCount; ++n)
        if (IsLinkLive(ws, n) && ws.Link(n).Container() == &owner) SetLinkSelected(ws, n, !IsLinkSelected(ws, n));
    if (ws.SelectedLinks.empty()) HideLinkToolbar(ws);
    else ShowLinkToolbar(ws, owner);
}

void ShowLinkToolbar(Workspace& ws, Element& Owner) {
    if (ws.SelectedLinks.empty()) return;
    if (ws.menus["mnuLock"].Checked()) {
        // Locked: the padlock over the highest selected shortcut instead of the toolbar.
        const int top = TopMostSelected(ws);
        if (top >= 0) ShowLockedSign(ws, ws.Link(top));
        return;
    }
    const int n = TopMostSelected(ws);
    if (n < 0) return;
    BuildToolbar(ws);
    const Element& label = ws.Link(n);
    Element& bar = ws.PicLinkToolbar(0);
    bar.setContainer(&Owner);
    const int32_t color = ws.Links[static_cast<size_t>(n)].LinkColor;
    ws.PicLinkColor(0).BackColor = color == -1 ? Owner.ForeColor.get() : color;
    bar.Top = label.Top - kToolbarAbove;
    bar.Left = std::max(0.0f, label.Left - kToolbarLeft);
    if (bar.Left + bar.Width > Owner.Width && Owner.Width > bar.Width) bar.Left = Owner.Width - bar.Width;
    bar.Visible = true;
    bar.ZOrder(0);
}

void HideLinkToolbar(Workspace& ws) { ws.PicLinkToolbar(0).Visible = false; }

void picMiniToolbar_Click(Workspace& ws, int Index) {
    switch (Index) {
    case 0: ZoomLinksIn(ws); break;
    case 1: ZoomLinksOut(ws); break;
    case 2: SetLinksSize(ws); break;
    case 3: ToggleBoldSelected(ws); break;
    case 4: SortSelectedLinks(ws, true); break;
    case 5: SortSelectedLinks(ws, false); break;
    default: break;
    }
}

} // namespace pd
