#include "themes/Properties.h"

#include "app/WorkspaceFile.h"
#include "app/files/Values.h"
#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "shortcuts/LinkIcons.h"
#include "shortcuts/LinkLayout.h"
#include "themes/Buttons.h"
#include "themes/ColorFile.h"
#include "themes/ConColors.h"
#include "themes/ThemeState.h"
#include "window/AutoHide.h"
#include "window/Docking.h"
#include "window/ResizeForm.h"

namespace pd {

namespace {

const QString kWindow = QStringLiteral("frmProperties");

int32_t* Box(FrmProperties& f, const QString& name) {
    static const std::pair<const char*, int32_t FrmProperties::*> boxes[] = {
        {"picBackColor", &FrmProperties::picBackColor},
        {"PicLinkColor", &FrmProperties::PicLinkColor},
        {"picConFor", &FrmProperties::picConFor},
        {"picContainerLabelColor", &FrmProperties::picContainerLabelColor},
        {"picContainerTextBack", &FrmProperties::picContainerTextBack},
        {"picContainerTextFor", &FrmProperties::picContainerTextFor},
        {"picBorderColor", &FrmProperties::picBorderColor},
        {"picDockBorder", &FrmProperties::picDockBorder},
    };
    for (const auto& [n, m] : boxes)
        if (name == QLatin1String(n)) return &(f.*m);
    return nullptr;
}

void Changed(Workspace& ws) {
    FrmProperties& f = Themes(ws).Properties;
    f.cmdApplyEnabled = true;
    f.changed();
}

void PopUp(Workspace& ws, const char* menu, const char* button) {
    ThemeState& t = Themes(ws);
    if (t.onPopupMenu) t.onPopupMenu(QString::fromLatin1(menu), QString::fromLatin1(button));
}

// A container is there to recolour while its Group shows, or while only the tag filter hides it.
bool HasLiveGroup(Workspace& ws, int i) {
    if (!ws.Group.exists(i)) return false;
    if (ws.Group(i).Visible) return true;
    return i < static_cast<int>(ws.Containers.size()) && ws.Containers[i].TagHidden;
}

} // namespace

void mnuProperties_Click(Workspace& ws) {
    ThemeState& t = Themes(ws);
    if (!t.Properties.Loaded) FrmProperties_Load(ws);
    if (t.onShowProperties) t.onShowProperties();
}

void FrmProperties_Load(Workspace& ws) {
    FrmProperties& f = Themes(ws).Properties;
    const auto onChanged = f.onChanged;
    f = FrmProperties{};
    f.onChanged = onChanged;
    f.Loaded = true;
    ListColorSchemes(ws);
    ListThemes(ws);
    ListButtonSets(ws);

    f.picBackColor = ws.picBack(0).BackColor;
    f.PicLinkColor = ws.picBack(0).ForeColor;
    f.picConFor = ws.ContainerColor;
    f.picContainerLabelColor = ws.ContainerLabelColor;
    f.picContainerTextBack = ws.txtNote(0).BackColor;
    f.picContainerTextFor = ws.txtNote(0).ForeColor;
    f.picBorderColor = ws.picPlaceholder(0).BackColor;
    f.picDockBorder = ws.DockingColor;
    f.picWallpaperBackColor = f.picBackColor;
    f.lblWallpaperForeColor = f.PicLinkColor;

    f.WallpaperPath = ws.WallpaperPath;
    f.imgWallpaper = ws.WallpaperPath;
    f.chkWallpaper = !ws.WallpaperPath.isEmpty();
    f.chkStretch = ws.StretchWallpaper;

    f.CboButtons = ws.ButtonSet;
    LoadButtonPreview(ws, ws.ButtonSet);
    f.txtIconSize = QString::number(ws.LargeIconSize);
    f.FontName = ws.LinkFontName;
    f.FontSize = ws.LinkFontSize;

    f.ColorsChanged = false;
    f.cmdApplyEnabled = false;
    f.OKButtonEnabled = true;
    EnableDisableTimerHide(ws, false);
    SetOnTop(ws, kWindow, true, false);
    f.changed();
}

void FrmProperties_Unload(Workspace& ws) {
    ThemeState& t = Themes(ws);
    if (!t.Properties.Loaded) return;
    t.Properties.Loaded = false;
    SetOnTop(ws, kWindow, false, false);
    EnableDisableTimerHide(ws, true);
    if (t.onCloseProperties) t.onCloseProperties();
    t.Properties.changed();
}

void ColorBox_Click(Workspace& ws, const QString& box) {
    FrmProperties& f = Themes(ws).Properties;
    int32_t* c = Box(f, box);
    if (!c) return;
    const int32_t chosen = ws.platform.chooseColor(*c);
    if (chosen == -1) return;
    *c = chosen;
    // The wallpaper preview shows the background and the text colour too.
    if (c == &f.picBackColor) f.picWallpaperBackColor = chosen;
    if (c == &f.PicLinkColor) f.lblWallpaperForeColor = chosen;
    f.ColorsChanged = true;
    Changed(ws);
}

void picWallpaper_Click(Workspace& ws) {
    const QString file = ws.platform.chooseOpenFileIn(
        QStringLiteral("Open Picture"), QStringLiteral("Picture Files"),
        QStringLiteral("*.jpg; *.bmp; *.gif"), ws.dataFile(QStringLiteral("Skin/Wallpaper")));
    if (file.isEmpty()) return;
    if (!ws.platform.imageSize(file).isValid()) {
        ws.platform.messageBox(QStringLiteral("Unable to load selected picture"), MsgStyle::ExclamationBox);
        return;
    }
    SetPreviewWallpaper(ws, file);
    Changed(ws);
}

void chkWallpaper_Click(Workspace& ws, bool checked) {
    Themes(ws).Properties.chkWallpaper = checked;
    Changed(ws);
}

void chkStretch_Click(Workspace& ws, bool checked) {
    Themes(ws).Properties.chkStretch = checked;
    Changed(ws);
}

void CboButtons_Click(Workspace& ws, const QString& SetName) {
    FrmProperties& f = Themes(ws).Properties;
    f.CboButtons = SetName;
    LoadButtonPreview(ws, SetName);
    Changed(ws);
}

void txtIconSize_Change(Workspace& ws, const QString& text) {
    FrmProperties& f = Themes(ws).Properties;
    if (f.txtIconSize == text) return;
    f.txtIconSize = text;
    Changed(ws);
}

void CmdFont_Click(Workspace& ws) {
    FrmProperties& f = Themes(ws).Properties;
    QString name = f.FontName;
    int size = f.FontSize;
    if (!ws.platform.chooseFont(name, size)) return;
    f.FontName = name;
    f.FontSize = size;
    f.FontChanged = true;
    Changed(ws);
}

void cmdContainersSettings_Click(Workspace& ws) {
    PopUp(ws, "mnuContainers", "cmdContainersSettings");
}
void cmdDockSettings_Click(Workspace& ws) {
    PopUp(ws, "mnuDock", "cmdDockSettings");
}
void cmdGlobalSettings_Click(Workspace& ws) {
    PopUp(ws, "mnuGlobalSettings", "cmdGlobalSettings");
}
void cmdRemindersSettings_Click(Workspace& ws) {
    PopUp(ws, "mnuReminders", "cmdRemindersSettings");
}
void cmdShortcutsSettings_Click(Workspace& ws) {
    PopUp(ws, "mnuShortcuts", "cmdShortcutsSettings");
}

void cmdApply_Click(Workspace& ws) {
    ApplyProperties(ws);
    FrmProperties& f = Themes(ws).Properties;
    f.cmdApplyEnabled = false;
    f.changed();
}

void OKButton_Click(Workspace& ws) {
    if (Themes(ws).Properties.cmdApplyEnabled) ApplyProperties(ws);
    FrmProperties_Unload(ws);
}

void cmdCancel_Click(Workspace& ws) {
    FrmProperties_Unload(ws);
}

void ApplyProperties(Workspace& ws) {
    FrmProperties& f = Themes(ws).Properties;
    // 1. Whether the containers already there take the new colours.
    bool recolour = false;
    if (f.ColorsChanged) {
        recolour = ws.platform.messageBox(QStringLiteral("Apply new colors to existing containers?"),
                                          MsgStyle::YesNoQuestion) == MsgAnswer::Yes;
        f.ColorsChanged = false;
    }
    // 2. The colours of new containers.
    ws.ContainerColor = f.picConFor;
    ws.ContainerLabelColor = f.picContainerLabelColor;
    // 3. The large icon size; every shortcut draws its icon again.
    if (const auto size = ToWord(f.txtIconSize); size && *size > 0 && *size != ws.LargeIconSize) {
        ws.LargeIconSize = *size;
        for (int n = 0; n < ws.Link.Count(); ++n)
            if (ws.Link.exists(n) && n < static_cast<int>(ws.Links.size()) && !ws.Links[n].LinkPath.isEmpty())
                DrawFileIcon(ws, n);
    }
    // The default font of shortcuts and titles; shortcuts already there take the new face.
    if (f.FontChanged) {
        ws.LinkFontName = f.FontName;
        if (const auto s = RoundToWord(f.FontSize); s && *s > 0) ws.LinkFontSize = *s;
        for (int n = 0; n < ws.Link.Count(); ++n)
            if (ws.Link.exists(n) && n < static_cast<int>(ws.Links.size()) && !ws.Links[n].LinkPath.isEmpty())
                ws.Link(n).FontName = ws.LinkFontName;
        f.FontChanged = false;
    }
    // 4. The workspace's own colours; shortcuts on the background without a colour of their own follow.
    ws.picBack(0).BackColor = f.picBackColor;
    ws.frmMain(0).BackColor = f.picBackColor;
    ws.picMoveMe(0).BackColor = f.picBackColor;
    ws.PicDock(0).BackColor = f.picBackColor;
    ws.picBack(0).ForeColor = f.PicLinkColor;
    ws.lblCaption(0).ForeColor = f.PicLinkColor;
    for (int n = 0; n < ws.Link.Count(); ++n)
        if (ws.Link.exists(n) && ws.Link(n).Container() == &ws.picBack(0) &&
            n < static_cast<int>(ws.Links.size()) && ws.Links[n].LinkColor == -1)
            ws.Link(n).ForeColor = f.PicLinkColor;
    // 5. The docking strip.
    ws.DockingColor = f.picDockBorder;
    // 6. The button set.
    ws.ButtonSet = f.CboButtons;
    InitButtons(ws, ws.ButtonSet);
    // 7. The containers already there, on a yes.
    if (recolour)
        for (int i = 0; i < ws.Group.Count(); ++i)
            if (HasLiveGroup(ws, i))
                ApplyContainerColors(ws, i, ws.ContainerColor, ws.ContainerLabelColor, true);
    // 8. Notes and headline panels, member 0 included (new containers take theirs from it).
    for (int i = 0; i < ws.txtNote.Count(); ++i) {
        if (!ws.txtNote.exists(i)) continue;
        ws.txtNote(i).BackColor = f.picContainerTextBack;
        ws.txtNote(i).ForeColor = f.picContainerTextFor;
    }
    for (int k = 0; k < ws.LstRSS.Count(); ++k) {
        if (!ws.LstRSS.exists(k)) continue;
        ws.LstRSS(k).TextBackColor = f.picContainerTextBack;
        ws.LstRSS(k).ForeColor = f.picContainerTextFor;
    }
    // 9. Picture frames.
    for (int j = 0; j < ws.picPlaceholder.Count(); ++j)
        if (ws.picPlaceholder.exists(j)) ws.picPlaceholder(j).BackColor = f.picBorderColor;
    // 10. The wallpaper.
    bool wallpaperChanged = false;
    if (!f.chkWallpaper) {
        wallpaperChanged = !ws.WallpaperPath.isEmpty();
        ws.WallpaperPath.clear();
        ws.imgBack(0).Picture = QString();
        ws.picBack(0).Picture = QString();
    } else if (!f.WallpaperPath.isEmpty() &&
               (f.WallpaperPath != ws.WallpaperPath || f.chkStretch != ws.StretchWallpaper)) {
        // A new picture, or the same one stretched or not: it goes where it is shown that way.
        wallpaperChanged = true;
        ws.WallpaperPath = f.WallpaperPath;
        if (f.chkStretch) {
            ws.imgBack(0).Picture = ws.WallpaperPath;
            ws.picBack(0).Picture = QString();
        } else {
            ws.picBack(0).Picture = ws.WallpaperPath;
            ws.imgBack(0).Picture = QString();
        }
    }
    ws.StretchWallpaper = f.chkStretch;
    // 11. The layout, and the icons on the background over the new picture.
    ResizeForm(ws, true);
    if (wallpaperChanged) RefreshLinks(ws);
    // 12.
    SaveDesktop(ws, true, false);
    f.changed();
}

void WireThemes(Workspace& ws) {
    Workspace* w = &ws;
    ws.menus["mnuProperties"].onClick = [w] { mnuProperties_Click(*w); };
    if (!ws.menus.has(QStringLiteral("mnuContainerColors")))
        ws.menus.add(QStringLiteral("mnuContainerColors"), QStringLiteral("C&olors..."),
                     QStringLiteral("mnuLink"));
    ws.menus["mnuContainerColors"].onClick = [w] { mnuContainerColors_Click(*w); };
}

} // namespace pd
