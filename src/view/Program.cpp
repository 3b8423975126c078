#include "view/Program.h"

#include "app/MainWindow.h"
#include "app/Startup.h"
#include "app/WorkspaceFile.h"
#include "app/clock/QtClock.h"
#include "app/workspace/Workspace.h"
#include "platform/qt/ProgramIcon.h"
#include "platform/qt/QtPlatform.h"
#include "platform/qt/SignalBridge.h"
#include "view/ElementInput.h"
#include "view/DeskInput.h"
#include "view/ReminderWindows.h"
#include "view/ElementView.h"
#include "window/FeedTooltip.h"
#include "view/FeedTooltipWindow.h"
#include "view/FeedsView.h"
#include "view/FindView.h"
#include "view/ElementWidget.h"
#include "view/MainView.h"
#include "view/MenuView.h"
#include "view/ToolbarWindow.h"
#include "view/PropertiesWindow.h"
#include "view/ConColorsWindow.h"
#include "view/FontFallbacks.h"
#include "window/FloatingToolbar.h"
#include "view/GhostFrame.h"
#include "containers/Selection.h"
#include "window/WindowServices.h"

#include <QApplication>
#include <QMouseEvent>
#include <QSessionManager>
#include <QWindow>
#include <QAction>

namespace pd {


int RunProgram(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Perchdock"));
    // The installed desktop entry's name: Wayland compositors tie the windows to its name and icon by it.
    QGuiApplication::setDesktopFileName(QStringLiteral("io.github.perchdock.Perchdock"));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(ProgramIcon());
    // "Verdana" and "Tahoma", which the stored files name, drawn in a similar face when absent.
    InstallFontFallbacks();
    const bool toggle = app.arguments().contains(QStringLiteral("--toggle"));

    QtPlatform platform;
    // The tests that may end the start: the file-system root, then another instance.
    if (!RootTest(platform, platform.programDirectory())) return 1;
    if (!platform.claimSingleInstance()) {
        // A second start ends silently; with --toggle it first asks the running one to show or hide.
        if (toggle) platform.askRunningInstanceToToggle();
        return 0;
    }

    QtClock clock;
    Workspace ws(platform, clock);
    WireCoreCommands(ws);

    TopWindow mainWindow(ws, ws.frmMain(0), Qt::FramelessWindowHint | Qt::Tool);
    TopWindow splash(ws, ws.splash.frmSplash(0), Qt::FramelessWindowHint | Qt::SplashScreen | Qt::WindowStaysOnTopHint);
    splash.setWindowOpacity(200.0 / 255.0);
    MenuView menus(ws.menus, &mainWindow);
    ws.menuSink = &menus;
    platform.setTrayMenu(menus.menu(QStringLiteral("mnuTray")));

    platform.registerWindow(QStringLiteral("frmMain"), &mainWindow);
    // The floating toolbar's window follows its state.
    ToolbarWindow toolbarWindow(ws, platform.programDirectory());
    platform.registerWindow(QStringLiteral("frmToolbar"), &toolbarWindow);
    Toolbar(ws).onChanged = [&toolbarWindow] { toolbarWindow.sync(); };
    // The tip window of feed headlines, shown when the headline panel loads the tip.
    FeedTooltipWindow tipWindow(HeadlineTip(ws), ws.TwipsPerPixelX(), ws.TwipsPerPixelY());
    platform.registerWindow(QStringLiteral("frmTooltip"), &tipWindow);
    HeadlineTip(ws).onChanged = [&tipWindow] { tipWindow.sync(); };
    // The Display Properties and Container Colors windows; the settings buttons open the main menus.
    PropertiesWindow propertiesWindow(ws, [&menus](const QString& name) { return menus.menu(name); });
    platform.registerWindow(QStringLiteral("frmProperties"), &propertiesWindow);
    ConColorsWindow conColorsWindow(ws);
    // The main window's elements are drawn on its canvas, which a docked window shows in part.
    ElementView view(ws, {{&ws.frmMain(0), mainWindow.canvas()}, {&ws.splash.frmSplash(0), &splash}});
    view.onWindowChanged = [&](Element& e, Prop p) {
        if (&e == &ws.frmMain(0)) mainWindow.apply(p);
        else splash.apply(p);
    };
    // The ghost outline of a rim drag, and the outline of a container carried to another owner.
    GhostFrame resizeGhost(QStringLiteral("ResizeGhost"));
    GhostFrame carriedOutline(QStringLiteral("CarriedOutline"));
    ws.onDrawGhostRect = [&resizeGhost](const QRect& r) { resizeGhost.toggle(r); };
    // Ctrl+Z takes the last container move back.
    QAction undoMove(&mainWindow);
    undoMove.setObjectName(QStringLiteral("UndoMove"));
    undoMove.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    QObject::connect(&undoMove, &QAction::triggered, [&ws] { UndoMove(ws); });
    mainWindow.addAction(&undoMove);
    InputContext input{ws, mainWindow, menus, &carriedOutline};
    // Tags, type-to-find and the shortcut properties: the menus and dialog the core opens, the panel's
    // controls, and the mouse on their elements.
    FindView findView(ws, view, menus, &mainWindow);
    ws.onFocusRequest = [&view](Element& e) {
        if (auto* w = qobject_cast<ElementWidget*>(view.widget(e))) w->focusEditor();
    };
    // The feeds: panels in the LstRSS members, the feed dialogs and the viewer, the feed elements' mouse.
    FeedsView feedsView(ws, view, menus, &mainWindow,
                        [&platform](const QString& name, QWidget* w) { platform.registerWindow(name, w); });
    // Each widget the view makes gets the mouse and drop handling of its element, then that of the
    // subsystems that own special elements.
    view.onWidgetCreated = [&input, &findView, &feedsView](ElementWidget& w) {
        WireElementInput(input, w);
        findView.wireWidget(w);
        feedsView.wireWidget(w);
    };
    // Notes, the reminder dialog and the alarm windows.
    InstallDeskView(ws);
    InstallReminderWindows(ws, platform.programDirectory(),
                           [&platform](const QString& name, QWidget* w) { platform.registerWindow(name, w); });
    view.attach();
    findView.attach();

    // The hot key and a second start with --toggle: in front, the window goes away; otherwise it
    // comes forward with the focus.
    auto bringForward = [&mainWindow] {
        mainWindow.raise();
        mainWindow.activateWindow();
    };
    auto toggleWindow = [&ws, bringForward] {
        if (ToggleWorkspace(ws)) bringForward();
    };
    platform.onToggleRequest = toggleWindow;
    platform.onHotKey = toggleWindow;
    platform.onTrayClick = [&ws, bringForward] {
        ws.menus["mnuShowWorkspace"].Click();
        bringForward();
    };

    // Every way out runs the same unload: the menu, closing the window, a signal, the session's end.
    // exit() rather than quit(): quitting asks the windows to close, and the main window refuses.
    ws.onUnloaded = [] { QCoreApplication::exit(0); };
    mainWindow.onClose = [&ws] { UnloadMainWindow(ws); };
    InstallTerminationHandler([&ws] { UnloadMainWindow(ws); });
    QObject::connect(&app, &QGuiApplication::commitDataRequest, [&ws](QSessionManager&) { UnloadMainWindow(ws); });

    ws.onStatusShown = [&splash] {
        if (splash.isVisible()) splash.repaint();
    };
    ShowSplash(ws);
    splash.applyAll();
    QCoreApplication::processEvents();
    MainWindowLoad(ws);
    LoadSettings(ws);
    UnloadSplash(ws);
    mainWindow.applyAll();
    // The window itself holds the keyboard focus when it first becomes active, so that its keys reach
    // the key table; otherwise Qt would hand the focus to the first editor inside it, often a note.
    mainWindow.setFocus(Qt::OtherFocusReason);
    ws.TimerHide.setEnabled(true);

    if (ws.Unloaded) return 0;
    return QApplication::exec();
}

} // namespace pd
