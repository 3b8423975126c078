#include "feeds/FeedsState.h"

#include "app/workspace/Workspace.h"
#include "window/FeedTooltip.h"

namespace pd {

FeedsState::FeedsState(Workspace& w) : ws(w) {
    Panels.push_back(std::make_unique<UserControl1>(ws, 0));
    // The headline tip asks whether the pointer is still on a headline, and passes a wheel turn over
    // it on to the panel of the feed container last hovered.
    FeedTooltip& tip = HeadlineTip(ws);
    tip.OverHeadline = [this] { return OverHeadline; };
    tip.MouseWheel = [this](int, int turn, int, int) {
        const int c = HoverFeedContainer;
        if (c < 0 || c >= static_cast<int>(ws.Containers.size()) || !ws.Containers[c].IsFeed) return;
        Panel(ws.Containers[c].FeedIndex).MouseWheel(turn);
    };
}

clsReader& FeedsState::Reader(int n) {
    if (n < 0) n = 0;
    if (static_cast<int>(Readers.size()) <= n) Readers.resize(static_cast<size_t>(n) + 1);
    if (!Readers[n]) Readers[n] = std::make_unique<clsReader>(ws);
    return *Readers[n];
}

UserControl1& FeedsState::Panel(int n) {
    if (n < 0) n = 0;
    if (static_cast<int>(Panels.size()) <= n) Panels.resize(static_cast<size_t>(n) + 1);
    if (!Panels[n]) {
        Panels[n] = std::make_unique<UserControl1>(ws, n);
        if (onPanelCreated) onPanelCreated(*Panels[n]);
    }
    return *Panels[n];
}

FeedsState& Feeds(Workspace& ws) {
    if (!ws.FeedsStateSlot) ws.FeedsStateSlot = std::make_shared<FeedsState>(ws);
    return *ws.FeedsStateSlot;
}

} // namespace pd
