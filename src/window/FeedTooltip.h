#pragma once
// frmTooltip: the tip window of a feed headline. It stays above the other windows, translucent (240 of
// 255), and goes when the pointer moves on it or presses it, or when the pointer is no longer over a
// headline (checked each second). A wheel turned over it goes on to the headline panel beneath.

#include "app/clock/Clock.h"

#include <QString>

#include <functional>

namespace pd {

class Workspace;

struct FeedTooltip {
    explicit FeedTooltip(Workspace& ws);
    FeedTooltip(const FeedTooltip&) = delete;
    FeedTooltip& operator=(const FeedTooltip&) = delete;

    Workspace& ws;
    bool Loaded = false;
    // What lblTip shows, and where the window stands (twips on the screen).
    QString Text;
    // lblTip's alignment: 0 left, 2 centred (the headline panel centres a short text).
    int Alignment = 2;
    float Left = 0;
    float Top = 0;
    Timer TimerHide;

    // Whether the pointer is over a headline now; set by the headline panel. Without it the tip goes
    // at the next check.
    std::function<bool()> OverHeadline;
    // The main window's wheel handler (keys, turn, pointer X and Y in pixels); set by the panel.
    std::function<void(int, int, int, int)> MouseWheel;
    // Called after every change of the state above; set by the view.
    std::function<void()> onChanged;
};

// The workspace's headline tip, made at its first use.
FeedTooltip& HeadlineTip(Workspace& ws);

// Loads the tip with a headline's text at a place on the screen.
void ShowFeedTooltip(FeedTooltip& tip, const QString& text, float left, float top);
void UnloadFeedTooltip(FeedTooltip& tip);
// A move of the pointer on the window or a press on its label.
void FeedTooltip_MouseMove(FeedTooltip& tip);
// A wheel over the tip: passed on to the panel beneath.
void FeedTooltip_Wheel(FeedTooltip& tip, int keys, int turn, int x, int y);
void FeedTooltip_TimerHide(FeedTooltip& tip);

} // namespace pd
