// Where shortcuts stand: the icon beside its label, the stacking of a selection into columns, sorting
// by name, zooming and sizing, bold, and keeping a label inside its owner. All lengths are twips.

#include "shortcuts/LinkLayout.h"

#include "app/WorkspaceFile.h"
#include "app/files/Values.h"
#include "app/workspace/Workspace.h"
#include "containers/Shrinking.h"
#include "feeds/InputDialog.h"
#include "shortcuts/LinkIcons.h"
#include "shortcuts/LinkSelection.h"
#include "window/AutoHide.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pd {

namespace {

// Icon box side in pixels: the large icon above 10 points.
constexpr int kSmallIcon = 16;
// The gap under each stacked shortcut, the step between columns beyond the widest label, and the
// width a further column needs to the owner's right edge.
constexpr float kStackGap = 30;
constexpr float kColumnGap = 500;
constexpr float kColumnRoom = 2000;
// Scans of the selection start from a place no label reaches.
constexpr float kScanStart = 100000;


// Rounds as a number stored in a whole-number variable is: halves to even.
float RoundHalfEven(float v) { return static_cast<float>(std::nearbyint(static_cast<double>(v))); }

// Makes SelectedLink part of the selection before a command acts on the selection.
void SelectCurrent(Workspace& ws) {
    if (IsLinkLive(ws, ws.SelectedLink) && !IsLinkSelected(ws, ws.SelectedLink))
        SetLinkSelected(ws, ws.SelectedLink, true);
}

// Rebuilds the selection from `items` so that the walk from the last entry meets them in their order:
// each goes before the first, as a new selection does.
void RebuildSelection(Workspace& ws, const std::vector<int16_t>& items) {
    ws.SelectedLinks.assign(items.rbegin(), items.rend());
}

template <typename Key, typename Before>
void QuickSortBy(std::vector<Key>& Keys, std::vector<int16_t>& Items, int Low, int High, Before before) {
    // Recurses into the smaller part and loops over the larger, so that the depth stays logarithmic.
    while (Low < High) {
        const Key pivot = Keys[static_cast<size_t>(Low + (High - Low) / 2)];
        int i = Low, j = High;
        while (i <= j) {
            while (before(Keys[static_cast<size_t>(i)], pivot)) ++i;
            while (before(pivot, Keys[static_cast<size_t>(j)])) --j;
            if (i <= j) {
                std::swap(Keys[static_cast<size_t>(i)], Keys[static_cast<size_t>(j)]);
                std::swap(Items[static_cast<size_t>(i)], Items[static_cast<size_t>(j)]);
                ++i;
                --j;
            }
        }
        if (j - Low < High - i) {
            QuickSortBy(Keys, Items, Low, j, before);
            Low = i;
        } else {
            QuickSortBy(Keys, Items, i, High, before);
            High = j;
        }
    }
}

bool ValidRange(size_t size, int Low, int High) {
    return Low >= 0 && High >= Low && static_cast<size_t>(High) < size;
}

} // namespace

bool IsLinkLive(const Workspace& ws, int n) {
    return n >= 0 && n < static_cast<int>(ws.Links.size()) && ws.Link.exists(n) && !ws.Link(n).Caption.get().isEmpty();
}

Element& LinkOwner(Workspace& ws, int n) {
    Element* owner = ws.Link(n).Container();
    return owner ? *owner : ws.picBack(0);
}

Element& IconBox(Workspace& ws, int n) {
    const int m = n >= 0 && n < static_cast<int>(ws.Links.size()) ? ws.Links[static_cast<size_t>(n)].IconIndex : 0;
    return ws.PicIcon(m);
}

void MoveLinkIcon(Workspace& ws, Element& Owner, int n) {
    if (n < 0 || n >= static_cast<int>(ws.Links.size()) || !ws.Link.exists(n)) return;
    if (!ws.PicIcon.exists(ws.Links[static_cast<size_t>(n)].IconIndex)) return;
    Element& label = ws.Link(n);
    Element& icon = IconBox(ws, n);
    const float size = label.FontSize;
    const int px = size > 10 ? ws.LargeIconSize : kSmallIcon;
    icon.Width = static_cast<float>(px) * ws.TwipsPerPixelX();
    icon.Height = static_cast<float>(px) * ws.TwipsPerPixelY();
    // The outline the icon shows while it is dragged covers the box's inside (the box has no border).
    Element& outline = ws.ShapeMove(0);
    outline.setContainer(&icon);
    outline.Move(0, 0, icon.Width, icon.Height);
    if (icon.Container() != &Owner) icon.setContainer(&Owner);
    PlaceLinkIcon(ws, n);
    SetIf(ws.Links[static_cast<size_t>(n)].Size, RoundToWord(size));
    DrawFileIcon(ws, n);
}

void MoveLinkIcon(Workspace& ws, int n) {
    if (!ws.Link.exists(n)) return;
    MoveLinkIcon(ws, LinkOwner(ws, n), n);
}

void PlaceLinkIcon(Workspace& ws, int n) {
    if (n < 0 || n >= static_cast<int>(ws.Links.size()) || !ws.Link.exists(n)) return;
    if (!ws.PicIcon.exists(ws.Links[static_cast<size_t>(n)].IconIndex)) return;
    const Element& label = ws.Link(n);
    Element& icon = IconBox(ws, n);
    // 50 twips left of the label, centred on it.
    icon.Move(label.Left - icon.Width - 50, label.Top + label.Height / 2 - icon.Height / 2);
    icon.ZOrder(1);
}

void RefreshLinks(Workspace& ws) {
    const int count = ws.LinkCount;
    if (count <= 0) return;
    // During the load the splash counts the shortcuts drawn.
    const bool progress = !ws.frmMain(0).Visible && ws.splash.loaded && ws.splash.frmSplash(0).Visible;
    for (int i = 0; i < count; ++i) {
        if (!ws.Link.exists(i)) continue;
        const int c = ws.Link(i).Container() && ws.Link(i).Container()->Name() == QLatin1String("grpBorder")
                          ? ws.Link(i).Container()->Index()
                          : -1;
        if (c >= 0) ws.SelectedContainer = static_cast<int16_t>(c);
        if (progress) ws.showStatus(QStringLiteral("%1/%2").arg(i).arg(count - 1));
        MoveLinkIcon(ws, i);
    }
}

int TopMostSelected(Workspace& ws) {
    float top = kScanStart;
    int found = -1;
    for (auto it = ws.SelectedLinks.rbegin(); it != ws.SelectedLinks.rend(); ++it) {
        if (!IsLinkLive(ws, *it)) continue;
        if (ws.Link(*it).Top < top) {
            top = ws.Link(*it).Top;
            found = *it;
        }
    }
    return found;
}

int LeftMostSelected(Workspace& ws) {
    float left = kScanStart;
    int found = -1;
    for (auto it = ws.SelectedLinks.rbegin(); it != ws.SelectedLinks.rend(); ++it) {
        if (!IsLinkLive(ws, *it)) continue;
        if (ws.Link(*it).Left < left) {
            left = ws.Link(*it).Left;
            found = *it;
        }
    }
    return found;
}

float WidestSelected(Workspace& ws) {
    float widest = 0;
    for (const int16_t n : ws.SelectedLinks)
        if (IsLinkLive(ws, n)) widest = std::max(widest, ws.Link(n).Width.get());
    return widest;
}

void QuickSortNumbers(std::vector<float>& Keys, std::vector<int16_t>& Items, int Low, int High) {
    if (!ValidRange(std::min(Keys.size(), Items.size()), Low, High)) return;
    QuickSortBy(Keys, Items, Low, High, [](float a, float b) { return a < b; });
}

void QuickSortStringsAscending(std::vector<QString>& Keys, std::vector<int16_t>& Items, int Low, int High) {
    if (!ValidRange(std::min(Keys.size(), Items.size()), Low, High)) return;
    QuickSortBy(Keys, Items, Low, High, [](const QString& a, const QString& b) { return a < b; });
}

void QuickSortStringsDescending(std::vector<QString>& Keys, std::vector<int16_t>& Items, int Low, int High) {
    if (!ValidRange(std::min(Keys.size(), Items.size()), Low, High)) return;
    QuickSortBy(Keys, Items, Low, High, [](const QString& a, const QString& b) { return b < a; });
}

void QuickSortShortcutNames(Workspace& ws, int First, int Last, bool Ascending) {
    const int count = static_cast<int>(ws.SelectedLinks.size());
    First = std::max(First, 1);
    Last = std::min(Last, count);
    if (Last < First) return;
    // The entries in the order the walk meets them (from the last), with their lowered captions.
    std::vector<int16_t> items(ws.SelectedLinks.rbegin(), ws.SelectedLinks.rend());
    std::vector<QString> names;
    names.reserve(items.size());
    for (const int16_t n : items) names.push_back(ws.Link.exists(n) ? ws.Link(n).Caption.get().toLower() : QString());
    // Collection positions First..Last are walk positions count - Last .. count - First.
    const int lo = count - Last, hi = count - First;
    if (Ascending) QuickSortStringsAscending(names, items, lo, hi);
    else QuickSortStringsDescending(names, items, lo, hi);
    RebuildSelection(ws, items);
}

void QuickSortTop(Workspace& ws) {
    if (ws.SelectedLinks.size() < 2) return;
    std::vector<int16_t> items(ws.SelectedLinks.rbegin(), ws.SelectedLinks.rend());
    std::vector<float> tops;
    tops.reserve(items.size());
    for (const int16_t n : items) tops.push_back(ws.Link.exists(n) ? ws.Link(n).Top.get() : kScanStart);
    QuickSortNumbers(tops, items, 0, static_cast<int>(items.size()) - 1);
    RebuildSelection(ws, items);
}

void ArrangeSelectedLinks(Workspace& ws, int Reference, bool SortByTop) {
    if (!IsLinkLive(ws, Reference)) return;
    Element& ref = ws.Link(Reference);
    Element& owner = LinkOwner(ws, Reference);
    float columnLeft = ref.Left;
    float offset = 0;
    int previous = Reference;
    if (SortByTop) QuickSortTop(ws);
    const float columnStep = WidestSelected(ws) + kColumnGap;
    // A copy: the walk does not change the selection, but the routines it calls may look at it.
    const std::vector<int16_t> walk = ws.SelectedLinks;
    for (auto it = walk.rbegin(); it != walk.rend(); ++it) {
        const int n = *it;
        if (n == Reference || !IsLinkLive(ws, n)) continue;
        Element& label = ws.Link(n);
        if (!label.Visible) continue;
        if (label.Container() != &owner) {
            // Taken over from another owner: it shows the selected colours of its new one.
            label.setContainer(&owner);
            label.BackStyle = 1;
            label.BackColor = owner.ForeColor.get();
            label.ForeColor = owner.BackColor.get();
        }
        label.ZOrder(0);
        const float h = std::max(ws.Link(previous).Height.get(), IconBox(ws, previous).Height.get());
        offset = RoundHalfEven(offset + h + kStackGap);
        label.Top = ref.Top + offset;
        if (label.Top > owner.Height - ref.Height) {
            // A new column; one that would not fit wraps back over the first, a little to its right.
            columnLeft = columnLeft + columnStep;
            offset = 0;
            label.Top = ref.Top.get();
            label.Left = columnLeft;
            if (columnLeft > owner.Width - kColumnRoom) {
                columnLeft = ref.Left + kColumnGap;
                label.Left = columnLeft;
            }
        } else {
            label.Left = columnLeft;
        }
        MoveLinkIcon(ws, owner, n);
        previous = n;
    }
    ws.ShapeMove(0).Visible = false;
    if (!ws.PicLinkToolbar(0).Visible) ShowLinkToolbar(ws, owner);
    SaveDesktop(ws, true, false);
}

void SortSelectedLinks(Workspace& ws, bool Ascending) {
    if (ws.SelectedLinks.empty()) return;
    QuickSortShortcutNames(ws, 1, static_cast<int>(ws.SelectedLinks.size()), Ascending);
    const int top = TopMostSelected(ws);
    if (top < 0) return;
    const int reference = ws.SelectedLinks.back();
    if (!IsLinkLive(ws, reference)) return;
    Element& ref = ws.Link(reference);
    // One twip above the highest, so that the stack starts where the selection started.
    ref.Top = ws.Link(top).Top - 1;
    const int left = LeftMostSelected(ws);
    if (left >= 0) ref.Left = ws.Link(left).Left.get();
    ws.SelectedLink = static_cast<int16_t>(reference);
    MoveLinkIcon(ws, reference);
    ArrangeSelectedLinks(ws, reference, false);
}

namespace {

// Adds Step points to every selected shortcut's font, each from its own size. A size below one point
// is no font size: that shortcut keeps its size.
void ZoomLinks(Workspace& ws, float Step) {
    SelectCurrent(ws);
    const int first = TopMostSelected(ws);
    if (first < 0) return;
    for (const int16_t n : ws.SelectedLinks) {
        if (!IsLinkLive(ws, n)) continue;
        Element& label = ws.Link(n);
        const float size = label.FontSize + Step;
        if (!(size >= 1)) continue;
        label.FontSize = size;
        SetIf(ws.Links[static_cast<size_t>(n)].Size, RoundToWord(size));
    }
    MoveLinkIcon(ws, first);
    ArrangeSelectedLinks(ws, first, false);
}

} // namespace

void ZoomLinksIn(Workspace& ws) { ZoomLinks(ws, 2); }

void ZoomLinksOut(Workspace& ws) { ZoomLinks(ws, -2); }

void SetLinksSize(Workspace& ws) {
    SelectCurrent(ws);
    EnableDisableTimerHide(ws, false);
    const QString preset = ws.Link.exists(ws.SelectedLink) ? QString::number(static_cast<double>(ws.Link(ws.SelectedLink).FontSize.get())) : QString();
    const QString answer = AskInput(ws, QStringLiteral("New Size:"), preset);
    // A cancelled, blank or non-numeric answer changes nothing; a size is a whole number of points.
    const std::optional<double> number = answer.isEmpty() ? std::nullopt : ParseNumber(answer);
    const std::optional<int16_t> size = number ? RoundToWord(*number) : std::nullopt;
    if (size && *size >= 1) {
        const int former = ws.SelectedLink;
        const int top = TopMostSelected(ws);
        if (top >= 0) ws.SelectedLink = static_cast<int16_t>(top);
        for (const int16_t n : ws.SelectedLinks) {
            if (!IsLinkLive(ws, n)) continue;
            ws.Link(n).FontSize = static_cast<float>(*size);
            ws.Links[static_cast<size_t>(n)].Size = *size;
        }
        ArrangeSelectedLinks(ws, former, false);
    }
    // The dialog took the button's release: its pressed look goes here.
    if (ws.picMiniToolbar.exists(2)) ws.picMiniToolbar(2).BorderStyle = 0;
    EnableDisableTimerHide(ws, true);
}

void ToggleBoldSelected(Workspace& ws) {
    for (const int16_t n : ws.SelectedLinks) {
        if (!IsLinkLive(ws, n)) continue;
        Element& label = ws.Link(n);
        label.FontBold = !label.FontBold;
        ws.Links[static_cast<size_t>(n)].Bold = label.FontBold;
    }
    SaveDesktop(ws, true, false);
}

void KeepLinkInside(Workspace& ws, Element& e) {
    // One rule set for shortcuts and containers; a shortcut above the background's top goes under the
    // window's title bar (picMoveMe) rather than to 0.
    KeepInsideParent(ws, e);
}

} // namespace pd
