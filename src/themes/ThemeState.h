#pragma once
// The state of the themes subsystem: the Display Properties dialog (frmProperties) and the Container
// Colors dialog (frmConColors). Each dialog is a plain struct that the routines read and write; the view
// mirrors it into a Qt window and calls the handlers, and the tests press its buttons directly.

#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>
#include <functional>

namespace pd {

class Workspace;

// The thirteen images of a button set, in the order of the preview boxes PicButton(0..12).
inline constexpr int kButtonImages = 13;
extern const char* const kButtonFiles[kButtonImages];

// frmProperties, "Display Properties": what its elements hold while it is loaded.
struct FrmProperties {
    bool Loaded = false;

    // The colour boxes, 0x00BBGGRR.
    int32_t picBackColor = 0;
    int32_t PicLinkColor = 0;
    int32_t picConFor = 0;
    int32_t picContainerLabelColor = 0;
    int32_t picContainerTextBack = 0;
    int32_t picContainerTextFor = 0;
    int32_t picBorderColor = 0;
    int32_t picDockBorder = 0;

    // The wallpaper preview: picWallpaper's back colour, lblWallpaper's text colour, and the picture
    // imgWallpaper shows (a full path; empty for none). WallpaperPath is the file apply would use.
    int32_t picWallpaperBackColor = 0;
    int32_t lblWallpaperForeColor = 0;
    QString imgWallpaper;
    QString WallpaperPath;
    bool chkWallpaper = false;
    bool chkStretch = true;

    // The button sets, the chosen one (CboButtons' text) and its preview images (full paths).
    QStringList CboButtonsList;
    QString CboButtons;
    std::array<QString, kButtonImages> PicButton;

    // "Large Icon Size:" as typed.
    QString txtIconSize;
    // The font chosen with CmdFont ("Se&lect"); shown in lblFont.
    QString FontName;
    int FontSize = 10;
    // A font was chosen since the load.
    bool FontChanged = false;

    // The colour schemes and the themes, as listed (lower case, cut at the first dot), and the entry
    // chosen in each; -1 for none.
    QStringList ListColors;
    int ListColorsIndex = -1;
    QStringList CboThemes;
    int CboThemesIndex = -1;

    // A colour box was changed, or a theme or scheme loaded, since the last apply.
    bool ColorsChanged = false;
    bool cmdApplyEnabled = false;
    bool OKButtonEnabled = true;

    // Called after the handlers changed the state above; set by the view.
    std::function<void()> onChanged;
    void changed() const {
        if (onChanged) onChanged();
    }
};

// frmConColors, "Container Colors": the two colour boxes of the container it was opened for.
struct FrmConColors {
    bool Loaded = false;
    int Container = 0;
    int32_t picBack = 0;
    int32_t picFore = 0;
    std::function<void()> onChanged;
    void changed() const {
        if (onChanged) onChanged();
    }
};

struct ThemeState {
    FrmProperties Properties;
    FrmConColors ConColors;

    // Set by the view: show the loaded dialog (or bring it forward), close its window.
    std::function<void()> onShowProperties;
    std::function<void()> onCloseProperties;
    std::function<void()> onShowConColors;
    std::function<void()> onCloseConColors;
    // Set by the view: opens the main window's menu `menu` as a pop-up just under the dialog's button
    // `button`. Headless there is none and the button does nothing.
    std::function<void(const QString& menu, const QString& button)> onPopupMenu;
    // Draws a feed container's tile instead of the feed subsystem's AddRSSShrinkIcon (url, container),
    // when set; tests use it to see the call.
    std::function<void(const QString& url, int i)> AddRSSShrinkIcon;
};

// The themes state of the workspace, made at its first use.
ThemeState& Themes(Workspace& ws);

} // namespace pd
