#pragma once
// Docking and auto-hide of the workspace window: it slides off the left, right or top edge until a thin
// strip of the docking colour stays on the screen, and comes back when the mouse touches the strip.
// There is no docked flag: the window's own Left and Top (twips, as the element holds them) are the
// state, compared with the few exact positions below.
//
//   edge       docked                      undocked
//   left (1)   Left = Strip - Width        Left = -100
//   right (2)  Left = ScreenW - Strip      Left = ScreenW - Width + 200 (Undock), + 100 (the menu)
//   top (3)    Top = Strip - Height        Top = -100
//
// Strip is 40 twips, or 120 with "&Wide Border". Both widths are recognised whatever the setting.

#include <QString>

namespace pd {

class Workspace;
class Menus;

// The strip now in force: 120 with the wide border, else 40.
float DockStrip(Workspace& ws);

// True when the window stands in a docked position (see the table above).
bool IsDocked(Workspace& ws);
// True when the pointer lies on the window's rectangle on the screen, borders included.
bool IsMouseOverWindow(Workspace& ws);

// Docks the window to the edge its position implies (left when Left <= 0, top when Top <= 0, right when
// it pokes past the right edge); a window in the middle of the screen stays. `animate` lets the slide
// run when "&Animate (Slide-In)" is checked. Returns whether the window counts as docked afterwards.
bool DockMe(Workspace& ws, bool animate);
// One 5 ms step of the slide towards DockSide.
void TimerSlide_Timer(Workspace& ws);
// Brings a docked window back in one step; true when it was docked and moved.
bool Undock(Workspace& ws);
// Pushes the window off the edge in DockSide at once, wherever it stands.
void DockNow(Workspace& ws);

// The heartbeat (each second): reminders, the clock caption, and the dock decision.
void TimerHide_Timer(Workspace& ws);
// The delayed undock (500 ms after the pointer touched the strip).
void TimerShow_Timer(Workspace& ws);

// Keeps `window` above the others (onTop) or lets it go. A window kept by a non-internal call joins
// the list of top-most windows; after a non-internal removal every listed window is put on top again.
void SetOnTop(Workspace& ws, const QString& window, bool onTop, bool internal);

// Around a launch: docks the window before the start (Collapse Before Launch checked, launched false)
// or after it (unchecked, launched true). A maximised window only stops being top-most.
void PostLaunch(Workspace& ws, bool launched);

// Moves the window to the middle of the screen.
void CenterWindow(Workspace& ws);
// Checks the entry of the dock menu for DockSide.
void MarkDockSide(Workspace& ws);

// The mouse on the window (and on picBack, grpBorder, picTemp, which pass their moves on): a move over
// a docked window undocks it now or after the delay; a press undocks it at once.
void DockMouseMove(Workspace& ws);
void DockMouseDown(Workspace& ws);

// The PicDock button at the right end of the title band. Button: 1 left, 2 right. The release
// returns the name of the menu to open at the pointer ("mnuDock", with mnuDockNow as its default
// entry), or empty for none.
void PicDock_MouseDown(Workspace& ws, int Button);
QString PicDock_MouseUp(Workspace& ws, int Button);

// "Perchdock " and the version, or with "Show &Date && Time" the date and time.
QString ClockCaption(Workspace& ws);
void UpdateCaption(Workspace& ws);

// Declares the "&Dock" menu and the tray's hide entry; wires the timers and the menu commands.
void DeclareDockMenus(Menus& menus);
void WireDocking(Workspace& ws);

} // namespace pd
