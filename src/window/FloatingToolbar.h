#pragma once
// The floating toolbar (frmToolbar): a plain left click on the bare background brings up a small
// translucent window of eleven icons that make objects and run the commonest commands. It fades in at
// the click, stays while the pointer is near, fades out and closes when the pointer goes away, and stays
// for good once dragged ("Drag to Keep Open") until the next click on the background.

#include "app/clock/Clock.h"

#include <QString>

#include <functional>

namespace pd {

class Workspace;

// The toolbar window's state, the facade the view mirrors: its place and size in twips on the screen,
// its opacity, the icon under the pointer and the tip text.
struct FloatingToolbar {
    explicit FloatingToolbar(Clock& clock);
    FloatingToolbar(const FloatingToolbar&) = delete;
    FloatingToolbar& operator=(const FloatingToolbar&) = delete;

    bool Loaded = false;
    float Left = 0;
    float Top = 0;
    // Eleven icons of 24 pixels with their gaps, and the tip line under them.
    float Width = 4080;
    float Height = 780;
    // 0 (invisible) to 255.
    int Alpha = 0;
    int32_t FadeAlpha = 0;
    int32_t FadeOutStep = 0;
    // The icon that ShapeSel outlines, and lblTip's caption.
    int SelectedIcon = 0;
    QString Tip;

    Timer TimerFadeIn;
    Timer TimerFadeOut;
    Timer TimerHideToolbar;

    // Called after every change of the state above; set by the view.
    std::function<void()> onChanged;
    void changed() {
        if (onChanged) onChanged();
    }
};

inline constexpr int kToolbarIcons = 11;
// The tip text and the menu command of icon n.
QString ToolbarTipText(int n);
const char* ToolbarCommand(int n);
// The file of icon n's image, beside the program: "Skin/Toolbar/floating<n>.gif".
QString ToolbarIconFile(int n);

// The toolbar of the workspace, made at its first use.
FloatingToolbar& Toolbar(Workspace& ws);

// The background's press keeps the point; its release (after the selection has been dropped, when
// nothing had been selected) opens or fades the toolbar. X, Y: twips in picBack.
void ToolbarBackPress(Workspace& ws, float X, float Y);
void ToolbarBackRelease(Workspace& ws, float X, float Y);
// Opens the toolbar when (X, Y) is the press point.
void ShowFloatingToolbar(Workspace& ws, float X, float Y);
void UnloadToolbar(Workspace& ws);

// The timers' steps.
void ToolbarFadeIn_Timer(Workspace& ws);
void ToolbarFadeOut_Timer(Workspace& ws);
void TimerHideToolbar_Timer(Workspace& ws);

// The mouse on icon n, a click on it, the press on the grip (the view then lets the window manager
// move the window and reports the new place), the close mark, and a key pressed on the toolbar.
void ImgToolbar_MouseMove(Workspace& ws, int n);
void ImgToolbar_Click(Workspace& ws, int n);
void ToolbarGripPress(Workspace& ws);
void ToolbarMoved(Workspace& ws, float left, float top);
void ToolbarCloseMark_Click(Workspace& ws);
void Toolbar_KeyDown(Workspace& ws, int KeyCode, int Shift);

} // namespace pd
