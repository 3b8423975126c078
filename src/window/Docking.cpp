#include "window/Docking.h"

#include "app/Startup.h"
#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Folding.h"
#include "containers/Shrinking.h"
#include "shortcuts/Launch.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace pd {

namespace {

const QString kMain = QStringLiteral("frmMain");

constexpr float kNarrow = 40;
constexpr float kWide = 120;
// Undocked at the left or top the window stands at -100, so that its outer frame lies off the screen.
constexpr float kOverhang = 100;
constexpr float kSlideStep = 500;
// The slide stops once no more than this is left on the screen.
constexpr float kSlideEnd = 100;

Element& Win(Workspace& ws) {
    return ws.frmMain(0);
}
float ScreenW(Workspace& ws) {
    return ws.platform.screenWidth();
}
float ScreenH(Workspace& ws) {
    return ws.platform.screenHeight();
}

// The strip takes its colour from the window's own background, which shows as the frame around picBack.
void ShowStrip(Workspace& ws) {
    Win(ws).BackColor = ws.DockingColor;
}

void ToTop(Workspace& ws) {
    SetOnTop(ws, kMain, true, false);
}

// A docked position at the left or top: Strip - size for either strip width.
bool AtStrip(float pos, float size) {
    return pos == kWide - size || pos == kNarrow - size;
}

} // namespace

float DockStrip(Workspace& ws) {
    return ws.menus["mnuWideDockingBorder"].Checked() ? kWide : kNarrow;
}

bool IsDocked(Workspace& ws) {
    Element& w = Win(ws);
    if (w.Left < 0 && w.Left != -kOverhang) return true;
    const float sw = ScreenW(ws);
    if (w.Left == sw - kWide || w.Left == sw - kNarrow) return true;
    return w.Top < 0 && w.Top != -kOverhang;
}

bool IsMouseOverWindow(Workspace& ws) {
    Element& w = Win(ws);
    const float tx = ws.TwipsPerPixelX(), ty = ws.TwipsPerPixelY();
    // The client area's corners on the screen: (0, 0) and (Width, Height) in pixels, each rounded.
    const long x0 = std::lround(w.Left / tx), y0 = std::lround(w.Top / ty);
    const long x1 = x0 + std::lround(w.Width / tx), y1 = y0 + std::lround(w.Height / ty);
    const QPoint p = ws.platform.cursorPos();
    return p.x() >= x0 && p.x() <= x1 && p.y() >= y0 && p.y() <= y1;
}

bool DockMe(Workspace& ws, bool animate) {
    HideJumpTo(ws);
    Element& w = Win(ws);
    const float sw = ScreenW(ws);
    const bool slide = animate && ws.menus["mnuAnimateDock"].Checked();
    bool result = false;
    if (w.Left > 0 && w.Top > 0) {
        // Past the right edge and in neither docked position.
        if (w.Left != sw - kWide && w.Left != sw - kNarrow && w.Left + w.Width > sw) {
            if (w.Left == sw - kOverhang) {
                // Nothing moves.
            } else if (slide) {
                ws.DockSide = 2;
                ws.TimerSlide.setEnabled(true);
            } else {
                ToTop(ws);
                w.Left = sw - DockStrip(ws);
                ShowStrip(ws);
            }
            result = true;
        }
    } else if (w.Left > 0) {
        // Top <= 0.
        if (!AtStrip(w.Top, w.Height)) {
            if (slide) {
                ws.DockSide = 3;
                ws.TimerSlide.setEnabled(true);
            } else {
                ToTop(ws);
                w.Top = DockStrip(ws) - w.Height;
                ShowStrip(ws);
            }
        }
        result = true;
    } else {
        // Left <= 0.
        if (!AtStrip(w.Left, w.Width)) {
            if (slide) {
                ws.DockSide = 1;
                ws.TimerSlide.setEnabled(true);
            } else {
                ToTop(ws);
                w.Left = DockStrip(ws) - w.Width;
                ShowStrip(ws);
            }
        }
        result = true;
    }
    // A window docked at the right falls out of the first case and so stops being top-most here.
    if (!result) SetOnTop(ws, kMain, false, true);
    ShrinkBackContainer(ws);
    FoldOpenContainer(ws, ws.OpenContainer);
    return result;
}

void TimerSlide_Timer(Workspace& ws) {
    Element& w = Win(ws);
    const float sw = ScreenW(ws);
    bool finished = false;
    switch (ws.DockSide) {
    case 1:
        w.Left = w.Left - kSlideStep;
        if (kSlideEnd - w.Width >= w.Left) {
            w.Left = DockStrip(ws) - w.Width;
            finished = true;
        }
        break;
    case 2:
        w.Left = w.Left + kSlideStep;
        if (sw - kSlideEnd <= w.Left) {
            w.Left = sw - DockStrip(ws);
            finished = true;
        }
        break;
    case 3:
        w.Top = w.Top - kSlideStep;
        if (kSlideEnd - w.Height >= w.Top) {
            w.Top = DockStrip(ws) - w.Height;
            finished = true;
        }
        break;
    default:
        break;
    }
    if (!finished) return;
    ToTop(ws);
    ws.TimerSlide.setEnabled(false);
    ShowStrip(ws);
}

bool Undock(Workspace& ws) {
    Element& w = Win(ws);
    const float sw = ScreenW(ws);
    bool result = false;
    if (w.Left < 0 && w.Left != -kOverhang) {
        w.Left = -kOverhang;
        ws.DockSide = 1;
        result = true;
    } else if (w.Left == sw - kWide || w.Left == sw - kNarrow) {
        w.Left = sw - w.Width + 200;
        ws.DockSide = 2;
        result = true;
    } else if (w.Top < 0 && w.Top != -kOverhang) {
        ws.DockSide = 3;
        w.Top = -kOverhang;
        result = true;
    }
    // The frame vanishes into the workspace again. The window stays top-most; only docking slides.
    if (result) w.BackColor = ws.picBack(0).BackColor.get();
    return result;
}

void DockNow(Workspace& ws) {
    HideJumpTo(ws);
    Element& w = Win(ws);
    switch (ws.DockSide) {
    case 1:
        w.Left = DockStrip(ws) - w.Width;
        break;
    case 2:
        w.Left = ScreenW(ws) - DockStrip(ws);
        break;
    case 3:
        w.Top = DockStrip(ws) - w.Height;
        break;
    default:
        break;
    }
    ToTop(ws);
    ShrinkBackContainer(ws);
    ShowStrip(ws);
}

QString ClockCaption(Workspace& ws) {
    if (!ws.menus["mnuShowTime"].Checked()) return QStringLiteral("Perchdock ") + VersionText();
    // The long date of the user's locale, then the time as 12-hour clock with AM or PM.
    const QDateTime now = ws.clock.now();
    const QLocale locale;
    return locale.toString(now.date(), QLocale::LongFormat) + QStringLiteral(" | ") +
           QLocale(QLocale::English).toString(now.time(), QStringLiteral("hh:mm AP"));
}

void UpdateCaption(Workspace& ws) {
    ws.lblCaption(0).Caption = ClockCaption(ws);
}

void TimerHide_Timer(Workspace& ws) {
    if (ws.RemindersPresent && ws.onAlarmCheck) ws.onAlarmCheck();
    if (!Win(ws).Visible) return;
    if (ws.menus["mnuShowTime"].Checked()) UpdateCaption(ws);
    const QString foreground = ws.platform.foregroundWindow();
    if (!IsMouseOverWindow(ws) && foreground != kMain) DockMe(ws, true);
}

void TimerShow_Timer(Workspace& ws) {
    if (IsMouseOverWindow(ws)) Undock(ws);
    ws.TimerShow.setEnabled(false);
}

void SetOnTop(Workspace& ws, const QString& window, bool onTop, bool internal) {
    std::vector<QString>& list = ws.TopmostWindows;
    if (onTop) {
        // A window already listed is tolerated.
        if (!internal && std::find(list.begin(), list.end(), window) == list.end()) list.push_back(window);
        // The main window comes to the top without taking the focus.
        ws.platform.setWindowOnTop(window, true, window == kMain);
        internal = true;
    } else {
        list.erase(std::remove(list.begin(), list.end(), window), list.end());
        ws.platform.setWindowOnTop(window, false, true);
    }
    // Only a non-internal removal gets here: a window that has just lost its place buries no other.
    if (!internal) {
        const std::vector<QString> keep = list;
        for (const QString& other : keep)
            SetOnTop(ws, other, true, true);
    }
}

void PostLaunch(Workspace& ws, bool launched) {
    const bool before = ws.menus["mnuCollapseBefore"].Checked();
    // Either before the start or after it, never both.
    if (before == launched) return;
    if (Win(ws).WindowState == 2)
        SetOnTop(ws, kMain, false, true);
    else
        DockMe(ws, false);
    // The window manager gives the started program's window the focus: nothing to hand on here.
}

void CenterWindow(Workspace& ws) {
    Element& w = Win(ws);
    w.Move(ScreenW(ws) / 2 - w.Width / 2, ScreenH(ws) / 2 - w.Height / 2);
}

void MarkDockSide(Workspace& ws) {
    ws.menus["mnuDockTop"].setChecked(ws.DockSide == 3);
    ws.menus["mnuDockLeft"].setChecked(ws.DockSide == 1);
    ws.menus["mnuDockRight"].setChecked(ws.DockSide == 2);
}

void DockMouseMove(Workspace& ws) {
    // A maximised window is never docked.
    if (Win(ws).WindowState == 2) return;
    if (!IsDocked(ws)) return;
    if (ws.menus["mnuUndockImmediately"].Checked())
        ws.TimerShow.setEnabled(true);
    else if (!ws.TimerSlide.Enabled())
        Undock(ws);
}

void DockMouseDown(Workspace& ws) {
    if (IsDocked(ws)) Undock(ws);
}

void PicDock_MouseDown(Workspace& ws, int Button) {
    // The button shows pressed (inverted) while the left button is down.
    if (Button == 1) ws.PicDock(0).BorderStyle = 1;
}

QString PicDock_MouseUp(Workspace& ws, int Button) {
    if (Button == 1) {
        ws.PicDock(0).BorderStyle = 0;
        DockNow(ws);
        return {};
    }
    MarkDockSide(ws);
    return QStringLiteral("mnuDock");
}

void DeclareDockMenus(Menus& m) {
    // The dock menu sits in the main menu too, before the settings.
    m.add("mnuDock", "&Dock", "mnuMain");
    m.add("mnuDockTop", "&Top", "mnuDock");
    m.add("mnuDockLeft", "&Left", "mnuDock");
    m.add("mnuDockRight", "&Right", "mnuDock");
    m.add("mnuDockNow", "&Collapse Now (Esc)", "mnuDock");
    // The dock's settings follow under a line (app/workspace/SettingsMenus.cpp declares them).
    m.add("mnuSepDock", "-", "mnuDock");
}

void WireDocking(Workspace& ws) {
    Workspace* w = &ws;
    ws.TimerHide.onTimer = [w] { TimerHide_Timer(*w); };
    ws.TimerShow.onTimer = [w] { TimerShow_Timer(*w); };
    ws.TimerSlide.onTimer = [w] { TimerSlide_Timer(*w); };
    auto side = [w](int dockSide) {
        CenterWindow(*w);
        Element& win = Win(*w);
        if (dockSide == 3)
            win.Top = -kOverhang;
        else if (dockSide == 1)
            win.Left = -kOverhang;
        else
            win.Left = ScreenW(*w) - win.Width + 100;
        w->DockSide = static_cast<int16_t>(dockSide);
        SaveDesktop(*w, true, false);
    };
    ws.menus["mnuDockTop"].onClick = [side] { side(3); };
    ws.menus["mnuDockLeft"].onClick = [side] { side(1); };
    ws.menus["mnuDockRight"].onClick = [side] { side(2); };
    ws.menus["mnuDockNow"].onClick = [w] { DockNow(*w); };
    ws.menus["mnuShowWorkspace"].onClick = [w] {
        Undock(*w);
        Element& win = Win(*w);
        if (win.WindowState == 1) win.WindowState = 0;
        win.Visible = true;
    };
    ws.menus["mnuHideWorkspace"].onClick = [w] {
        if (Win(*w).Visible) Win(*w).Visible = false;
    };
    ws.menus["mnuShowTime"].onClick = [w] {
        MenuEntry& e = w->menus["mnuShowTime"];
        e.setChecked(!e.Checked());
        UpdateCaption(*w);
        SaveDesktop(*w, true, false);
    };
}

} // namespace pd
