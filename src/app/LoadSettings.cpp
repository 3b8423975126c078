// Reading the workspace file at start: the key loop, its records, the first-run settings and the steps
// that bring the window up with what was read.

#include "app/ObjectRecords.h"
#include "app/Recovery.h"
#include "app/Startup.h"
#include "app/WorkspaceFile.h"
#include "app/WorkspaceSettings.h"
#include "app/files/TextFile.h"
#include "app/files/Values.h"
#include "app/workspace/Workspace.h"
#include "containers/ContainerFiles.h"
#include "themes/Buttons.h"
#include "themes/DefaultSkin.h"
#include "window/ResizeForm.h"
#include "window/WindowServices.h"

#include <QFileInfo>

#include <unordered_map>

namespace pd {

namespace {

void FirstRunSettings(Workspace& ws) {
    Element& win = ws.frmMain(0);
    win.Width = 10065;
    win.Left = (ws.platform.screenWidth() - win.Width) / 2;
    win.Top = (ws.platform.screenHeight() - win.Height) / 2;
    win.Top = -100;
    const QString wallpaper = ws.dataFile(QStringLiteral("Skin/Wallpaper/PlainWhiteOnBlue.jpg"));
    if (QFileInfo(wallpaper).isFile()) {
        ws.WallpaperPath = wallpaper;
        ws.imgBack(0).Picture = wallpaper;
    } else {
        ws.WallpaperPath.clear();
    }
    ws.StretchWallpaper = true;
    ws.picBack(0).BackColor = 0x290700;
    win.BackColor = 0x290700;
    ws.picPlaceholder(0).BackColor = 0x800000;
    ws.Group(0).BackColor = 0x954815;
    ws.ContainerColor = 0x290700;
    ws.ContainerLabelColor = 0xFFFFFF;
    ws.txtNote(0).BackColor = 0xE1FDFF;
    ws.txtNote(0).ForeColor = 0;
    ws.picBack(0).ForeColor = 0xFFFFFF;
    ws.LstRSS(0).ForeColor = ws.txtNote(0).ForeColor.get();
    ws.LstRSS(0).TextBackColor = ws.txtNote(0).BackColor.get();
    ws.LstRSS(0).BackColor = ws.ContainerColor;
}

// What the key loop only collected, applied in a fixed order.
void ApplyCollected(Workspace& ws, const LoadState& st) {
    Element& win = ws.frmMain(0);
    // The drop shadow and translucency are window effects that the view takes from the check marks.
    ws.menus["mnuDeleteConfirmation"].setChecked(ws.ConfirmDelete);

    if (st.Locked && TrimBlanks(*st.Locked) == QLatin1String("1")) {
        ws.PicLockToolbar(0).Visible = true;
        ws.menus["mnuLock"].setChecked(true);
    } else {
        ws.PicUnLockToolbar(0).Visible = true;
    }

    if (st.WindowState && !st.WindowState->isEmpty()) {
        auto place = [&] {
            if (st.X) SetIf(win.Left, ToSingle(*st.X));
            if (st.Y) SetIf(win.Top, ToSingle(*st.Y));
        };
        auto size = [&] {
            if (st.W) SetIf(win.Width, ToSingle(*st.W));
            if (st.H) SetIf(win.Height, ToSingle(*st.H));
        };
        const auto state = ToWord(*st.WindowState);
        if (state && *state == 0) {
            place();
            size();
            win.WindowState = 0;
        } else if (state && *state == 1) {
            // A minimised window comes back hidden and then maximised.
            place();
            size();
            win.Visible = false;
            win.WindowState = 2;
        } else if (state && *state == 2) {
            win.Width = 10290;
            win.Height = 7560;
            place();
            win.WindowState = 2;
        }
    }
    if (st.Hidden && TrimBlanks(*st.Hidden) == QLatin1String("1")) win.Visible = false;
    InitButtons(ws, ws.ButtonSet);
    ResizeForm(ws, true);
    // Only the text "True" keeps the window hidden; a "1" written by the program is shown again here.
    if (!win.Visible && st.Hidden.value_or(QString()) != QLatin1String("True")) win.Visible = true;

    ws.IsLoading = false;
    if (ws.menus["mnuGlobalHotkey"].Checked()) ws.platform.registerHotKey();
    ApplyWindowEffects(ws);
}

} // namespace

void ReadWorkspaceLines(Workspace& ws, const QStringList& lines, LoadState& st) {
    static const std::unordered_map<QString, const SettingRow*> byKey = [] {
        std::unordered_map<QString, const SettingRow*> m;
        for (const SettingRow& r : SettingRows())
            if (r.read) m.emplace(QString::fromLatin1(r.key), &r);
        return m;
    }();
    LineReader in(lines);
    const QString version = TrimBlanks(in.next().value_or(QString()));
    Element& back = ws.picBack(0);
    while (auto line = in.next()) {
        const QString& key = *line;
        if (key.size() < 3 || key[0] != QLatin1Char('[')) continue;
        if (key == QLatin1String("[Picture]")) {
            ReadPictureRecord(ws, in, back);
        } else if (key == QLatin1String("[Reminder]")) {
            ReadReminderRecord(ws, in, version);
        } else if (key == QLatin1String("[Link]")) {
            ReadLinkRecord(ws, in, version, back);
        } else if (key == QLatin1String("[RSS Search0]")) {
            if (auto v = in.next()) ws.menus("mnuRSSSearchItem", 0).setCaption(TrimBlanks(*v));
        } else if (key.size() == 13 && key.startsWith(QLatin1String("[RSS Search")) && key[11] >= QLatin1Char('1') &&
                   key[11] <= QLatin1Char('9') && key[12] == QLatin1Char(']')) {
            if (auto v = in.next()) LoadRSSSearchMenuItem(ws, key[11].unicode() - '0', *v);
        } else if (auto it = byKey.find(key); it != byKey.end()) {
            if (auto v = in.next()) it->second->read(ws, *v, st);
        }
    }
    if (!ws.WallpaperPath.isEmpty()) {
        if (ws.StretchWallpaper) ws.imgBack(0).Picture = ws.WallpaperPath;
        else back.Picture = ws.WallpaperPath;
    }
}

void LoadSettings(Workspace& ws) {
    ws.LinkFontSize = 10;
    ws.LargeIconSize = 32;
    ws.LinkFontName = QStringLiteral("Verdana");
    ws.ButtonSet = QStringLiteral("Plain White on Blue");
    DetermineDataPath(ws);
    CheckRecoveryAtStart(ws);
    InstallDefaultSkin(ws);

    LoadState st;
    const QString file = ws.dataFile(QString::fromLatin1(kWorkspaceFile));
    if (!ws.DataPath.isEmpty() && QFileInfo(file).isFile()) {
        ws.showStatus(QStringLiteral("Loading Settings..."));
        // An unreadable file loads as an empty one: the window comes up with the defaults.
        ReadWorkspaceLines(ws, ReadTextLines(file).value_or(QStringList()), st);
    } else {
        FirstRunSettings(ws);
    }
    ReadContainerFiles(ws);
    ApplyCollected(ws, st);
    // Feeds set to load on startup are all refreshed, with the splash's status line showing each.
    if (ws.menus["mnuRSSLoadOnStartup"].Checked()) ws.menus["mnuRSSRefreshAll"].Click();
}

} // namespace pd
