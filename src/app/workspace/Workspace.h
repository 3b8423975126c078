#pragma once
// The workspace: the element families, the record arrays, the menus that store the settings, the
// global settings and the shared globals. One instance lives from the main window's load to its unload;
// every routine takes it by reference. Outside services come through `platform`, time through `clock`.

#include "app/clock/Clock.h"
#include "app/elements/ElementFamily.h"
#include "app/elements/Menu.h"
#include "app/workspace/Records.h"
#include "platform/Platform.h"

#include <QRect>

#include <array>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace pd {

struct FloatingToolbar;
struct FeedTooltip;
struct DeskState;
struct FeedsState;
struct FindState;
struct ThemeState;
struct ShellState;

// The splash window's elements; it also serves as the About box.
struct SplashForm {
    explicit SplashForm(ElementSink** sink);
    ElementFamily frmSplash;
    ElementFamily lblVersion;
    ElementFamily lblLoad;
    ElementFamily ImgRSS;
    ElementFamily Label2;
    ElementFamily lblUpdate;
    bool loaded = false;
};

class Workspace {
public:
    Workspace(Platform& platform, Clock& clock);
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;

    Platform& platform;
    Clock& clock;

    // Where element and menu changes go; set by the view, null when headless.
    ElementSink* sink = nullptr;
    MenuSink* menuSink = nullptr;

private:
    // Every family reports to this dispatcher, which sizes self-sizing labels and passes each change
    // on to `sink`.
    struct Dispatch : ElementSink {
        Workspace* ws;
        explicit Dispatch(Workspace* w) : ws(w) {}
        void elementLoaded(Element& e) override;
        void elementChanged(Element& e, Prop p) override;
        void elementUnloading(Element& e) override;
    };
    Dispatch dispatch_{this};
    ElementSink* dispatchPtr_ = &dispatch_;

public:

    // --- the main window and its single elements ---
    ElementFamily frmMain{"frmMain", &dispatchPtr_, false};
    ElementFamily picBack{"picBack", &dispatchPtr_, false};
    ElementFamily imgBack{"imgBack", &dispatchPtr_, false};
    ElementFamily picMoveMe{"picMoveMe", &dispatchPtr_, false};
    ElementFamily lblCaption{"lblCaption", &dispatchPtr_, false};
    ElementFamily lblVersion{"lblVersion", &dispatchPtr_, false};
    ElementFamily PicDock{"PicDock", &dispatchPtr_, false};
    ElementFamily PicLockToolbar{"PicLockToolbar", &dispatchPtr_, false};
    ElementFamily PicUnLockToolbar{"PicUnLockToolbar", &dispatchPtr_, false};
    ElementFamily PicShrinkExpandAllToolbar{"PicShrinkExpandAllToolbar", &dispatchPtr_, false};
    ElementFamily PicFoldUnfoldAllToolbar{"PicFoldUnfoldAllToolbar", &dispatchPtr_, false};
    ElementFamily PicRSSRefreshALL{"PicRSSRefreshALL", &dispatchPtr_, false};
    ElementFamily ImgLock{"ImgLock", &dispatchPtr_, false};
    // The alignment grid's lines and the two indicators of a dragged object.
    ElementFamily VerS{"VerS", &dispatchPtr_};
    ElementFamily HorS{"HorS", &dispatchPtr_};
    ElementFamily VerSIndic{"VerSIndic", &dispatchPtr_, false};
    ElementFamily HorSIndic{"HorSIndic", &dispatchPtr_, false};
    // The outline of a selection rectangle on the background, and the one inside a container.
    ElementFamily SelectRect{"SelectRect", &dispatchPtr_, false};
    ElementFamily SelectedRectGroup{"SelectedRectGroup", &dispatchPtr_, false};
    // The last members ShowGrid loaded, so that HideGrid can take them away again.
    int GridLinesV = 0;
    int GridLinesH = 0;
    ElementFamily lblRSSRefresh{"lblRSSRefresh", &dispatchPtr_, false};
    ElementFamily PicJumpToLink{"PicJumpToLink", &dispatchPtr_, false};
    ElementFamily PicJumpToLinkTop{"PicJumpToLinkTop", &dispatchPtr_, false};

    // --- families of a container ---
    ElementFamily Group{"Group", &dispatchPtr_};
    ElementFamily grpBorder{"grpBorder", &dispatchPtr_};
    ElementFamily lblName{"lblName", &dispatchPtr_};
    ElementFamily groupName{"groupName", &dispatchPtr_};
    ElementFamily chkFold{"chkFold", &dispatchPtr_};
    ElementFamily chkUnfold{"chkUnfold", &dispatchPtr_};
    ElementFamily picShrink{"picShrink", &dispatchPtr_};
    ElementFamily ShrinkIcon{"ShrinkIcon", &dispatchPtr_};
    ElementFamily txtNote{"txtNote", &dispatchPtr_};
    ElementFamily picPin{"picPin", &dispatchPtr_};
    ElementFamily picPinNote{"picPinNote", &dispatchPtr_};
    ElementFamily picCopy1{"picCopy1", &dispatchPtr_};
    ElementFamily picCopy2{"picCopy2", &dispatchPtr_};
    // Feed elements, indexed by a container's FeedIndex.
    ElementFamily LstRSS{"LstRSS", &dispatchPtr_};
    ElementFamily lblRSSLastUpdate{"lblRSSLastUpdate", &dispatchPtr_};

    // --- families of a shortcut (numbered apart, joined by IconIndex) ---
    ElementFamily Link{"Link", &dispatchPtr_};
    ElementFamily PicIcon{"PicIcon", &dispatchPtr_};
    // The guides of a shortcut drag: the outline over the dragged icon, the outline that follows the
    // pointer, the filler over a swap partner's icon and the line that joins the two.
    ElementFamily ShapeMove{"ShapeMove", &dispatchPtr_, false};
    ElementFamily ShapeMovingIcon{"ShapeMovingIcon", &dispatchPtr_, false};
    ElementFamily ShapeIconFiller{"ShapeIconFiller", &dispatchPtr_, false};
    ElementFamily LinkLine{"LinkLine", &dispatchPtr_, false};
    // The small toolbar over selected shortcuts: the colour swatch and the six buttons (Zoom In, Zoom
    // Out, Set Size, Toggle Bold Font, Sort Ascending, Sort Descending).
    ElementFamily PicLinkToolbar{"PicLinkToolbar", &dispatchPtr_, false};
    ElementFamily PicLinkColor{"PicLinkColor", &dispatchPtr_, false};
    ElementFamily picMiniToolbar{"picMiniToolbar", &dispatchPtr_};
    // The tag marker beside a hovered shortcut and the banner of a running tag filter.
    ElementFamily ImgLinkGroup{"ImgLinkGroup", &dispatchPtr_, false};
    ElementFamily FrameLinkGroup{"FrameLinkGroup", &dispatchPtr_, false};

    // --- families of a picture or reminder ---
    ElementFamily picPlaceholder{"picPlaceholder", &dispatchPtr_};
    ElementFamily picTemp{"picTemp", &dispatchPtr_};
    ElementFamily imgPicture{"imgPicture", &dispatchPtr_};

    SplashForm splash{&dispatchPtr_};

    // Every family, for the view to mirror and for loops that look for an element by name.
    std::vector<ElementFamily*> families();

    // --- records and their slot counts (slots are never reused in a run) ---
    std::vector<ContainerRecord> Containers;
    std::vector<LinkRecord> Links;
    std::vector<DeskObjectRecord> DeskObjects;
    int16_t ContainerCount = 0;
    int16_t LinkCount = 0;
    int16_t IconCount = 0;
    int16_t DeskObjectCount = 0;
    int16_t RSSCount = 0;

    // --- menus: a check mark is the store of its setting ---
    Menus menus{&menuSink};

    // --- global settings not kept in a menu ---
    bool ConfirmDelete = true;
    QString ButtonSet = QStringLiteral("Plain White on Blue");
    int16_t LinkFontSize = 10;
    QString LinkFontName = QStringLiteral("Verdana");
    int16_t LargeIconSize = 32;
    int32_t ContainerColor = 0x290700;
    int32_t ContainerLabelColor = 0xFFFFFF;
    int32_t DockingColor = 0xFF0000;
    QString WallpaperPath;
    bool StretchWallpaper = true;
    int16_t RSSchkFullValue = 0;
    int16_t RSSchkHeadlineValue = 1;
    int16_t RSSViewerOnTop = 0;
    int32_t RSSViewerX = 1000;
    int32_t RSSViewerY = 1000;
    int32_t RSSViewerW = 8295;
    int32_t RSSViewerH = 4665;
    QString ProxyServer;

    // --- shared globals, never stored ---
    QString DataPath;
    QString ProgramDirectory;
    bool UsesProgramDirectory = false;
    bool IsLoading = false;
    int16_t SelectedContainer = 0;
    int16_t SelectedLink = 0;
    int16_t SelectedDeskObject = 0;
    float DropX = 600;
    float DropY = 200;
    // The main window's no-save flag: while set, SaveDesktop writes nothing.
    bool NoSave = false;
    // The floating toolbar shows (then modal dialogs keep it on top instead of stopping the auto-hide).
    bool ToolbarVisible = false;
    // The main window has been unloaded; the process is ending.
    bool Unloaded = false;

    // What each container file on disk holds, as this program last read or wrote it, by file name.
    std::unordered_map<QString, QByteArray> SavedContainerFiles;
    // The Containers folder has been listed once for files this program did not write.
    bool ContainerFolderListed = false;

    // --- containers: folding, shrinking, stepping ---
    // The container last opened by a double click on its title or by stepping; -1 for none.
    int16_t OpenContainer = -1;
    // The shrunk container now open by hover; -1 for none.
    int32_t ExpandedContainer = -1;
    // The container last shrunk by a click: not opened by hover until the mouse has left it.
    int32_t LastClickShrunk = -1;
    // While set, ShrinkBackContainer does nothing.
    bool HoldExpanded = false;
    // While set, the shrink branch of ToggleShrink does nothing.
    bool DontShrink = false;
    // While set, hovering over a tile does not open it.
    bool AutoExpandSuspended = false;
    // The cursor of the key that steps through containers.
    int16_t StepCursor = 0;
    // Where the pointer went down on a title, in the title's own twips (rounded).
    float PressX = 0;
    float PressY = 0;
    // Set by a double click on a title for TimerDblClickLabelDelay's 100 ms: the presses of a double
    // click are not the start of a drag.
    bool DblClickLabelDelay = false;

    // --- containers: moving, sizing by the rim, the selection rectangle, undo ---
    // A rim drag is under way: the handle under the pointer ("TL", "R", ...), the object's screen
    // rectangle in pixels at the press, the ghost outline now drawn, the pointer at the press in twips.
    bool ResizeActive = false;
    QString ResizeHandle;
    QRect ResizeRect;
    QRect ResizeGhost;
    float ResizeStartX = 0;
    float ResizeStartY = 0;
    // Draws (or, drawn a second time, erases) an outline over the whole screen, in screen pixels; set
    // by the view, null when headless.
    std::function<void(const QRect&)> onDrawGhostRect;
    // Where a rectangle drag started, in the twips of the background or of the container pressed.
    int16_t RectPressX = 0;
    int16_t RectPressY = 0;
    // The last ten container presses (where each container stood), oldest first.
    struct UndoMoveEntry {
        int32_t Left = 0;
        int32_t Top = 0;
        int16_t Index = 0;
    };
    std::array<UndoMoveEntry, 11> UndoMoves{};
    int16_t UndoCount = 0;
    // The in-program drag of an element to another owner: the element carried and where the pointer
    // holds it, in the element's own twips. The view moves an outline with the pointer and, at the
    // release, calls the drop routine of the owner under the pointer.
    Element* DragSource = nullptr;
    float DragGripX = 0;
    float DragGripY = 0;

    // --- shortcuts: selection, press and drag ---
    // The selected shortcuts, newest first (a new entry goes before the first).
    std::vector<int16_t> SelectedLinks;
    // The shortcut pressed last; -1 once the pointer moved with the button down (a drag, not a start).
    int16_t MouseDownLink = -1;
    // Where the pointer went down on that shortcut (its own twips) and where its label stood then.
    float MouseDownX = 0;
    float MouseDownY = 0;
    float DownLeft = 0;
    float DownTop = 0;
    // The context menu was opened on a container rather than on a shortcut.
    bool ContextIsContainer = false;
    // The type-to-find panel is open.
    bool JumpToOpen = false;
    // Starts the drag of shortcut n out of its owner (to another container or the background); set by
    // the view. The label is back at its place when it runs.
    std::function<void(int)> onStartLinkDrag;

    // --- docking (window/Docking.h): the window's position is the state; these only steer it ---
    // The remembered edge: 1 left, 2 right, 3 top. 3 after the load, not stored.
    int16_t DockSide = 3;
    // Some reminder exists: the heartbeat runs the alarm check, which the reminders set in onAlarmCheck.
    bool RemindersPresent = false;
    std::function<void()> onAlarmCheck;
    // The windows that are to stay above the others, by name ("frmMain", "frmToolbar"), oldest first.
    std::vector<QString> TopmostWindows;
    // The floating toolbar: where it was placed (twips on the screen) and where the background was
    // pressed (twips in picBack), so that a release in place opens it.
    float ToolbarLeft = 0;
    float ToolbarTop = 0;
    int16_t BackPressX = -1;
    int16_t BackPressY = -1;
    // The toolbar window's state (window/FloatingToolbar.h), made at its first use.
    std::shared_ptr<FloatingToolbar> FloatingToolbarState;
    // The tip window of feed headlines, made at its first use (window/FeedTooltip.h).
    std::shared_ptr<FeedTooltip> FeedTooltipState;

    // --- the state of later subsystems, each made at its first use by its own accessor ---
    // Notes, the editing lock, pictures and reminders (desk/DeskState.h).
    std::shared_ptr<DeskState> DeskStateSlot;
    // Feed containers, the headline panels, the viewer and the search (feeds/FeedsState.h).
    std::shared_ptr<FeedsState> FeedsStateSlot;
    // Tags, type-to-find and shortcut properties (shortcuts/FindState.h).
    std::shared_ptr<FindState> FindStateSlot;
    // Themes, colour schemes and the display properties (themes/ThemeState.h).
    std::shared_ptr<ThemeState> ThemeStateSlot;
    // File operations, drag and drop, the clipboard and folder links (shell/ShellState.h).
    std::shared_ptr<ShellState> ShellStateSlot;

    // --- timers ---
    Timer TimerHide{clock, QStringLiteral("TimerHide"), 1000};
    Timer TimerShow{clock, QStringLiteral("TimerShow"), 500};
    Timer TimerSlide{clock, QStringLiteral("TimerSlide"), 5};
    Timer TimerSuspendShrink{clock, QStringLiteral("TimerSuspendShrink"), 2000};
    Timer TimerDontShrink{clock, QStringLiteral("TimerDontShrink"), 20};
    Timer TimerSuspendAutoExpand{clock, QStringLiteral("TimerSuspendAutoExpand"), 500};
    Timer TimerDisableMouseMove{clock, QStringLiteral("TimerDisableMouseMove"), 500};
    Timer TimerDblClickLabelDelay{clock, QStringLiteral("TimerDblClickLabelDelay"), 100};
    Timer TimerResizePic{clock, QStringLiteral("TimerResizePic"), 300};
    // Hides the padlock of a locked workspace.
    Timer TimeLock{clock, QStringLiteral("TimeLock"), 1700};

    // Plays one of the program's sounds ("fold.wav") without waiting for it.
    void playSound(const QString& name);

    // The design-time look of container 0's elements.
    void ContainerDesign();
    // A line for the splash's status label during the load.
    void showStatus(const QString& text);

    // Twips per pixel of the screen, as the platform reports them.
    float TwipsPerPixelX() const { return platform.twipsPerPixelX(); }
    float TwipsPerPixelY() const { return platform.twipsPerPixelY(); }

    // A path under DataPath: `dataFile("Perchdock.ini")`.
    QString dataFile(const QString& name) const;
    QString programFile(const QString& name) const;

    // Gives an element the keyboard focus (an editor selects its text); the view sets the hook.
    void SetFocus(Element& e) {
        if (onFocusRequest) onFocusRequest(e);
    }
    std::function<void(Element&)> onFocusRequest;
    // Lets the view paint the splash's new status line at once, while the load still holds the thread.
    std::function<void()> onStatusShown;
    // Asks the view to close the process's windows and quit; set by the view, null when headless.
    std::function<void()> onUnloaded;
};

} // namespace pd
