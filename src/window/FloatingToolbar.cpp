#include "window/FloatingToolbar.h"

#include "app/workspace/Workspace.h"
#include "desk/Lock.h"
#include "window/Docking.h"
#include "window/WindowServices.h"

#include <QPoint>

#include <algorithm>
#include <cmath>

namespace pd {

namespace {

const QString kToolbar = QStringLiteral("frmToolbar");

struct Icon {
    const char* tip;
    const char* command;
};

const Icon kIcons[kToolbarIcons] = {
    {"New Container | Ctrl+C", "mnuNew"},
    {"New Note | Ctrl+N", "mnuNewNote"},
    {"New Reminder | Ctrl+R", "mnuAddReminder"},
    {"New Picture | Ctrl+P", "mnuAddPicture"},
    {"New File Shortcut | Ctrl+F", "mnuAddFileLink"},
    {"New Dir Shortcut | Ctrl+D", "mnuAddFolderLink"},
    {"New Web URL | Ctrl+W", "mnuAddLink"},
    {"Display Properties | F4", "mnuProperties"},
    {"Save Workspace | F8", "mnuSave"},
    {"Toggle Transparency | F9", "mnuTranslucent"},
    {"New RSS | Ctrl+E", "mnuAddRSS"},
};

} // namespace

FloatingToolbar::FloatingToolbar(Clock& clock)
    : TimerFadeIn(clock, QStringLiteral("TimerFadeIn"), 10),
      TimerFadeOut(clock, QStringLiteral("TimerFadeOut"), 10),
      TimerHideToolbar(clock, QStringLiteral("TimerHideToolbar"), 50) {}

QString ToolbarTipText(int n) {
    return n >= 0 && n < kToolbarIcons ? QString::fromUtf8(kIcons[n].tip) : QString();
}
const char* ToolbarCommand(int n) {
    return n >= 0 && n < kToolbarIcons ? kIcons[n].command : "";
}
QString ToolbarIconFile(int n) {
    return QStringLiteral("Skin/Toolbar/floating%1.gif").arg(n);
}

FloatingToolbar& Toolbar(Workspace& ws) {
    if (!ws.FloatingToolbarState) {
        ws.FloatingToolbarState = std::make_shared<FloatingToolbar>(ws.clock);
        FloatingToolbar& tb = *ws.FloatingToolbarState;
        Workspace* w = &ws;
        tb.TimerFadeIn.onTimer = [w] { ToolbarFadeIn_Timer(*w); };
        tb.TimerFadeOut.onTimer = [w] { ToolbarFadeOut_Timer(*w); };
        tb.TimerHideToolbar.onTimer = [w] { TimerHideToolbar_Timer(*w); };
    }
    return *ws.FloatingToolbarState;
}

void ToolbarBackPress(Workspace& ws, float X, float Y) {
    ws.BackPressX = static_cast<int16_t>(std::lround(X));
    ws.BackPressY = static_cast<int16_t>(std::lround(Y));
}

void ToolbarBackRelease(Workspace& ws, float X, float Y) {
    if (!ws.menus["mnuAddNewToolbar"].Checked()) return;
    if (ws.ToolbarVisible) {
        // A kept toolbar goes with a click on the background.
        Toolbar(ws).TimerFadeOut.setEnabled(true);
        ws.TimerHide.setEnabled(true);
        return;
    }
    // The title band's height is no place for it.
    if (Y >= 360) ShowFloatingToolbar(ws, X, Y);
}

void ShowFloatingToolbar(Workspace& ws, float X, float Y) {
    // Only a click in place: a pointer that moved by a twip drew a selection rectangle instead.
    if (std::lround(X) != ws.BackPressX || std::lround(Y) != ws.BackPressY) return;
    // The release on the background opens a locked workspace for a short spell, so that what the
    // toolbar adds can be placed at once; the lock comes back by itself ten seconds later. Only the
    // release that brings up the toolbar does so: a plain click that clears a selection keeps the lock.
    UnlockBriefly(ws);
    FloatingToolbar& tb = Toolbar(ws);
    const bool wasLoaded = tb.Loaded;
    tb.Loaded = true;
    if (!wasLoaded) {
        SetOnTop(ws, kToolbar, true, false);
        tb.Alpha = 0;
        tb.FadeAlpha = 0;
        tb.FadeOutStep = 0;
        tb.SelectedIcon = 0;
        tb.Tip = ToolbarTipText(0);
        tb.TimerFadeIn.setEnabled(true);
        tb.TimerHideToolbar.setEnabled(true);
    }
    const Element& win = ws.frmMain(0);
    tb.Left = win.Left + X - 100;
    tb.Top = win.Top + Y - 250;
    ws.ToolbarLeft = tb.Left;
    ws.ToolbarTop = tb.Top;
    tb.changed();
}

void UnloadToolbar(Workspace& ws) {
    FloatingToolbar& tb = Toolbar(ws);
    tb.TimerFadeIn.setEnabled(false);
    tb.TimerFadeOut.setEnabled(false);
    tb.TimerHideToolbar.setEnabled(false);
    tb.FadeAlpha = 0;
    tb.FadeOutStep = 0;
    tb.Alpha = 0;
    tb.Loaded = false;
    ws.ToolbarVisible = false;
    auto& list = ws.TopmostWindows;
    list.erase(std::remove(list.begin(), list.end(), kToolbar), list.end());
    tb.changed();
}

void ToolbarFadeIn_Timer(Workspace& ws) {
    FloatingToolbar& tb = Toolbar(ws);
    if (tb.FadeAlpha + 12.8 < 221) {
        tb.FadeAlpha = static_cast<int32_t>(std::lround(tb.FadeAlpha + 12.8));
        tb.Alpha = tb.FadeAlpha;
    } else {
        tb.TimerFadeIn.setEnabled(false);
        tb.FadeAlpha = 0;
        tb.Alpha = 220;
    }
    tb.changed();
}

void ToolbarFadeOut_Timer(Workspace& ws) {
    FloatingToolbar& tb = Toolbar(ws);
    if (tb.FadeOutStep + 12.8 < 256) {
        tb.FadeOutStep = static_cast<int32_t>(std::lround(tb.FadeOutStep + 12.8));
        tb.Alpha = 256 - tb.FadeOutStep;
        tb.changed();
    } else {
        UnloadToolbar(ws);
    }
}

void TimerHideToolbar_Timer(Workspace& ws) {
    FloatingToolbar& tb = Toolbar(ws);
    if (!tb.Loaded) return;
    const float tx = ws.TwipsPerPixelX(), ty = ws.TwipsPerPixelY();
    const QPoint p = ws.platform.cursorPos();
    const long x0 = std::lround(tb.Left / tx), y0 = std::lround(tb.Top / ty);
    const long x1 = x0 + std::lround(tb.Width / tx), y1 = y0 + std::lround(tb.Height / ty);
    if (p.x() >= x0 && p.x() <= x1 && p.y() >= y0 && p.y() <= y1) return;
    if (tb.Left == ws.ToolbarLeft && tb.Top == ws.ToolbarTop)
        tb.TimerFadeOut.setEnabled(true);
    else
        ws.ToolbarVisible = true;
}

void ImgToolbar_MouseMove(Workspace& ws, int n) {
    if (n < 0 || n >= kToolbarIcons) return;
    FloatingToolbar& tb = Toolbar(ws);
    tb.SelectedIcon = n;
    tb.Tip = ToolbarTipText(n);
    tb.changed();
}

void ImgToolbar_Click(Workspace& ws, int n) {
    const QString name = QString::fromLatin1(ToolbarCommand(n));
    if (name.isEmpty()) return;
    if (name == QLatin1String("mnuTranslucent")) {
        mnuTranslucent_Click(ws);
        return;
    }
    if (ws.menus.has(name)) ws.menus[name].Click();
}

void ToolbarGripPress(Workspace& ws) {
    // The workspace does not dock while the toolbar is carried about.
    ws.TimerHide.setEnabled(false);
}

void ToolbarMoved(Workspace& ws, float left, float top) {
    FloatingToolbar& tb = Toolbar(ws);
    tb.Left = left;
    tb.Top = top;
}

void ToolbarCloseMark_Click(Workspace& ws) {
    ws.menus["mnuAddNewToolbar"].setChecked(false);
    ws.platform.messageBox(
        QStringLiteral(
            "To show again: Right Click Menu >> Settings >> Global Settings >> Show Floating Toolbar"),
        MsgStyle::InformationBox, QStringLiteral("Floating Toolbar"));
    UnloadToolbar(ws);
}

void Toolbar_KeyDown(Workspace& ws, int KeyCode, int Shift) {
    Form_KeyDown(ws, KeyCode, Shift);
    // The toolbar closes at once, without a fade.
    UnloadToolbar(ws);
}

} // namespace pd
