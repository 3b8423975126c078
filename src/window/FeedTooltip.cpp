#include "window/FeedTooltip.h"

#include "app/workspace/Workspace.h"
#include "window/Docking.h"

#include <algorithm>

namespace pd {

namespace {
const QString kTooltip = QStringLiteral("frmTooltip");
} // namespace

FeedTooltip::FeedTooltip(Workspace& w)
    : ws(w), TimerHide(w.clock, QStringLiteral("frmTooltip.TimerHide"), 1000) {
    TimerHide.onTimer = [this] { FeedTooltip_TimerHide(*this); };
}

FeedTooltip& HeadlineTip(Workspace& ws) {
    if (!ws.FeedTooltipState) ws.FeedTooltipState = std::make_shared<FeedTooltip>(ws);
    return *ws.FeedTooltipState;
}

void ShowFeedTooltip(FeedTooltip& tip, const QString& text, float left, float top) {
    if (!tip.Loaded) {
        tip.Loaded = true;
        SetOnTop(tip.ws, kTooltip, true, false);
        tip.ws.platform.setWindowAlpha(kTooltip, 240);
        tip.TimerHide.setEnabled(true);
    }
    tip.Text = text;
    tip.Left = left;
    tip.Top = top;
    if (tip.onChanged) tip.onChanged();
}

void UnloadFeedTooltip(FeedTooltip& tip) {
    if (!tip.Loaded) return;
    tip.Loaded = false;
    tip.TimerHide.setEnabled(false);
    auto& list = tip.ws.TopmostWindows;
    list.erase(std::remove(list.begin(), list.end(), kTooltip), list.end());
    if (tip.onChanged) tip.onChanged();
}

void FeedTooltip_MouseMove(FeedTooltip& tip) {
    UnloadFeedTooltip(tip);
}

void FeedTooltip_Wheel(FeedTooltip& tip, int keys, int turn, int x, int y) {
    if (tip.MouseWheel) tip.MouseWheel(keys, turn, x, y);
}

void FeedTooltip_TimerHide(FeedTooltip& tip) {
    if (!tip.OverHeadline || !tip.OverHeadline()) UnloadFeedTooltip(tip);
}

} // namespace pd
