#include "app/WorkspaceSettings.h"

#include "app/files/Values.h"
#include "app/workspace/Workspace.h"

#include <QFileInfo>

namespace pd {

namespace {

using Row = SettingRow;

// A setting kept in a menu entry's check mark.
Row CheckRow(const char* key, const char* menu) {
    const QString name = QString::fromLatin1(menu);
    return {key, [name](Workspace& ws, SaveState&) { return FlagText(ws.menus[name].Checked()); },
            [name](Workspace& ws, const QString& v, LoadState&) {
                if (const auto b = ToBool(v)) ws.menus[name].setChecked(*b);
            }};
}

// A row written with a fixed text. Its value is read and dropped; a row that is no key of the reader
// has no read at all, so that its key and value lines are skipped as unknown lines.
Row FixedRow(const char* key, const char* text, bool read = true) {
    const QString t = QString::fromLatin1(text);
    Row row{key, [t](Workspace&, SaveState&) { return t; }, nullptr};
    if (read) row.read = [](Workspace&, const QString&, LoadState&) {};
    return row;
}

// A colour (a long) kept in a variable or an element's colour.
Row ColorRow(const char* key, std::function<int32_t&(Workspace&)> store) {
    return {key, [store](Workspace& ws, SaveState&) { return LongText(store(ws)); },
            [store](Workspace& ws, const QString& v, LoadState&) { SetIf(store(ws), ToLong(v)); }};
}

Row ElementColorRow(const char* key, std::function<void(Workspace&, int32_t)> set,
                    std::function<int32_t(Workspace&)> get) {
    return {key, [get](Workspace& ws, SaveState&) { return LongText(get(ws)); },
            [set](Workspace& ws, const QString& v, LoadState&) {
                if (const auto c = ToLong(v)) set(ws, *c);
            }};
}

Row WordRow(const char* key, int16_t Workspace::*field) {
    return {key, [field](Workspace& ws, SaveState&) { return WordText(ws.*field); },
            [field](Workspace& ws, const QString& v, LoadState&) { SetIf(ws.*field, ToWord(v)); }};
}

// The feed viewer's place and size: stored as longs, read back through a 16-bit conversion, so that a
// value above 32767 keeps the default.
Row ViewerRow(const char* key, int32_t Workspace::*field) {
    return {key, [field](Workspace& ws, SaveState&) { return LongText(ws.*field); },
            [field](Workspace& ws, const QString& v, LoadState&) { SetIf(ws.*field, ToWord(v)); }};
}

// The window's place and state, collected by the key loop and applied after it.
Row WindowRow(const char* key, std::optional<QString> LoadState::*slot, std::function<QString(Workspace&, SaveState&)> w,
              bool trimmed = true) {
    return {key, std::move(w), [slot, trimmed](Workspace&, const QString& v, LoadState& st) {
                st.*slot = trimmed ? TrimBlanks(v) : v;
            }};
}

std::vector<Row> MakeRows() {
    std::vector<Row> rows = {
        WindowRow(
            "[Hidden]", &LoadState::Hidden,
            [](Workspace&, SaveState& s) { return FlagText(s.forExit && s.wasHidden); }, false),
        WindowRow("[WindowState]", &LoadState::WindowState,
                  [](Workspace& ws, SaveState&) { return WordText(static_cast<int16_t>(ws.frmMain(0).WindowState.get())); }),
        WindowRow("[X]", &LoadState::X,
                  [](Workspace& ws, SaveState& s) {
                      // An exit save stores the normal place, while [WindowState] above keeps the state.
                      if (s.forExit) ws.frmMain(0).WindowState = 0;
                      return SingleText(ws.frmMain(0).Left);
                  }),
        WindowRow("[Y]", &LoadState::Y, [](Workspace& ws, SaveState&) { return SingleText(ws.frmMain(0).Top); }),
        WindowRow("[W]", &LoadState::W, [](Workspace& ws, SaveState&) { return SingleText(ws.frmMain(0).Width); }),
        WindowRow("[H]", &LoadState::H, [](Workspace& ws, SaveState&) { return SingleText(ws.frmMain(0).Height); }),
        CheckRow("[Align]", "mnuAlign"),
        CheckRow("[Capture]", "mnuCaptureContainers"),
        {"[ConfirmDelete]", [](Workspace& ws, SaveState&) { return FlagText(ws.ConfirmDelete); },
         [](Workspace& ws, const QString& v, LoadState&) { SetIf(ws.ConfirmDelete, ToBool(v)); }},
        FixedRow("[EnableSounds]", "OFF"),
        CheckRow("[AutoExpand]", "mnuAutoExpand"),
        CheckRow("[GlobalHotkey]", "mnuGlobalHotkey"),
        CheckRow("[AddNewToolbar]", "mnuAddNewToolbar"),
        CheckRow("[ExtractURLs]", "mnuExtractURL"),
        CheckRow("[FoldOnClick]", "mnuAutoFold"),
        CheckRow("[Translucent]", "mnuTranslucent"),
        CheckRow("[Animate Dock]", "mnuAnimateDock"),
        CheckRow("[Wide Docking Border]", "mnuWideDockingBorder"),
        CheckRow("[Undock Immediately]", "mnuUndockImmediately"),
        FixedRow("[Taskbar]", "0", false),
        {"[Buttons]", [](Workspace& ws, SaveState&) { return ws.ButtonSet; },
         [](Workspace& ws, const QString& v, LoadState&) { ws.ButtonSet = TrimBlanks(v); }},
        WordRow("[Font Size]", &Workspace::LinkFontSize),
        {"[Font Name]", [](Workspace& ws, SaveState&) { return ws.LinkFontName; },
         [](Workspace& ws, const QString& v, LoadState&) { ws.LinkFontName = TrimBlanks(v); }},
        WordRow("[Large Icon Size]", &Workspace::LargeIconSize),
        WindowRow("[LOCKED]", &LoadState::Locked,
                  [](Workspace& ws, SaveState&) { return FlagText(ws.menus["mnuLock"].Checked()); }),
        ElementColorRow(
            "[Background]",
            [](Workspace& ws, int32_t c) {
                ws.picBack(0).BackColor = c;
                ws.frmMain(0).BackColor = c;
                ws.picMoveMe(0).BackColor = c;
                ws.PicDock(0).BackColor = c;
            },
            [](Workspace& ws) { return ws.picBack(0).BackColor.get(); }),
        ElementColorRow(
            "[PictureBorder]", [](Workspace& ws, int32_t c) { ws.picPlaceholder(0).BackColor = c; },
            [](Workspace& ws) { return ws.picPlaceholder(0).BackColor.get(); }),
        ColorRow("[ContainerFor]", [](Workspace& ws) -> int32_t& { return ws.ContainerColor; }),
        ColorRow("[ContainerLabel]", [](Workspace& ws) -> int32_t& { return ws.ContainerLabelColor; }),
        ColorRow("[DockingColor]", [](Workspace& ws) -> int32_t& { return ws.DockingColor; }),
        ElementColorRow(
            "[ContainerTextBack]",
            [](Workspace& ws, int32_t c) {
                ws.txtNote(0).BackColor = c;
                ws.LstRSS(0).TextBackColor = c;
            },
            [](Workspace& ws) { return ws.txtNote(0).BackColor.get(); }),
        ElementColorRow(
            "[ContainerTextFor]",
            [](Workspace& ws, int32_t c) {
                ws.txtNote(0).ForeColor = c;
                ws.LstRSS(0).ForeColor = c;
            },
            [](Workspace& ws) { return ws.txtNote(0).ForeColor.get(); }),
        ElementColorRow(
            "[Foreground]",
            [](Workspace& ws, int32_t c) {
                ws.picBack(0).ForeColor = c;
                ws.lblCaption(0).ForeColor = c;
            },
            [](Workspace& ws) { return ws.picBack(0).ForeColor.get(); }),
        {"[Wallpaper]", [](Workspace& ws, SaveState&) { return ws.WallpaperPath; },
         [](Workspace& ws, const QString& v, LoadState&) {
             // A wallpaper that has gone is forgotten.
             if (!v.isEmpty() && QFileInfo(v).isFile()) ws.WallpaperPath = v;
         }},
        {"[Stretch]", [](Workspace& ws, SaveState&) { return FlagText(ws.StretchWallpaper); },
         [](Workspace& ws, const QString& v, LoadState&) { SetIf(ws.StretchWallpaper, ToBool(v)); }},
        CheckRow("[ShowTime]", "mnuShowTime"),
        CheckRow("[DropShadow]", "mnuDropShadow"),
        CheckRow("[ShowTags]", "mnuShowShortcutTags"),
        CheckRow("[Dbl-Click]", "mnuDblClick"),
        CheckRow("[CollapseBeforeLaunch]", "mnuCollapseBefore"),
        CheckRow("[ConfirmStartAllShortcuts]", "mnuConfirmStartAllShortcuts"),
        CheckRow("[RSSOpenDirectlyOnSite]", "mnuRSSOpenDirectly"),
        CheckRow("[RSSLoadOnStartup]", "mnuRSSLoadOnStartup"),
        CheckRow("[RSSHighlight]", "mnuHighlightRSS"),
        WordRow("[RSSchkFullValue]", &Workspace::RSSchkFullValue),
        WordRow("[RSSchkHeadlineValue]", &Workspace::RSSchkHeadlineValue),
        WordRow("[RSSViewerOnTop]", &Workspace::RSSViewerOnTop),
        ViewerRow("[RSSViewerX]", &Workspace::RSSViewerX),
        ViewerRow("[RSSViewerY]", &Workspace::RSSViewerY),
        ViewerRow("[RSSViewerW]", &Workspace::RSSViewerW),
        ViewerRow("[RSSViewerH]", &Workspace::RSSViewerH),
        {"[RSSUseProxy]",
         [](Workspace& ws, SaveState&) {
             return TrimBlanks(ws.ProxyServer).isEmpty() ? QStringLiteral("0") : ws.ProxyServer;
         },
         [](Workspace& ws, const QString& v, LoadState&) {
             ws.ProxyServer = TrimBlanks(v);
             // "0" is what the writer stores for no server; an empty line names none either.
             if (ws.ProxyServer == QLatin1String("0")) ws.ProxyServer.clear();
             if (!ws.ProxyServer.isEmpty()) ws.menus["mnuRSSSetProxy"].setChecked(true);
         }},
    };
    return rows;
}

} // namespace

const std::vector<SettingRow>& SettingRows() {
    static const std::vector<SettingRow> rows = MakeRows();
    return rows;
}

void LoadRSSSearchMenuItem(Workspace& ws, int n, const QString& text) {
    MenuEntry& m = ws.menus.add(QStringLiteral("mnuRSSSearchItem"), QString(), QString(), n);
    m.setCaption(TrimBlanks(text));
    m.setVisible(true);
}

} // namespace pd
