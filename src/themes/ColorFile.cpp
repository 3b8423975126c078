#include "themes/ColorFile.h"

#include "app/files/TextFile.h"
#include "app/files/Values.h"
#include "app/workspace/Workspace.h"
#include "feeds/InputDialog.h"
#include "themes/ThemeState.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace pd {

namespace {

QString SkinFolder(Workspace& ws, const char* sub) {
    return ws.dataFile(QString::fromLatin1(sub));
}

// The colour keys of both kinds of file, in the order they are written, with the dialog's box of each.
struct ColorKey {
    const char* key;
    int32_t FrmProperties::*box;
};
const ColorKey kColorKeys[] = {
    {"[Background]", &FrmProperties::picBackColor},
    {"[PictureBorder]", &FrmProperties::picBorderColor},
    {"[ContainerFor]", &FrmProperties::picConFor},
    {"[ContainerLabel]", &FrmProperties::picContainerLabelColor},
    {"[ContainerTextBack]", &FrmProperties::picContainerTextBack},
    {"[ContainerTextFor]", &FrmProperties::picContainerTextFor},
    {"[Foreground]", &FrmProperties::PicLinkColor},
};

// The same question box as every other, under the caption `title`.
QString AskName(Workspace& ws, const QString& title, const QString& prompt) {
    FrmInput form;
    form.Loaded = true;
    form.Caption = title;
    DisplayInput(form, prompt, QString());
    form.Visible = true;
    ws.platform.showInputForm(form);
    if (form.Visible) form.cmdCancel_Click();
    return form.lblCaption;
}

QStringList ListNames(const QString& folder, const QString& pattern) {
    QStringList names;
    const QStringList files =
        QDir(folder).entryList({pattern}, QDir::Files | QDir::Readable, QDir::Name | QDir::IgnoreCase);
    for (const QString& f : files)
        names << SkinListName(f);
    return names;
}

} // namespace

QString SkinListName(const QString& fileName) {
    const QString lower = fileName.toLower();
    const qsizetype dot = lower.indexOf(QLatin1Char('.'));
    return dot < 0 ? lower : lower.left(dot);
}

QString FindSkinFile(const QString& folder, const QString& fileName) {
    const QDir dir(folder);
    if (fileName.isEmpty() || fileName.contains(QLatin1Char('/'))) return {};
    if (QFileInfo(dir.filePath(fileName)).isFile()) return dir.filePath(fileName);
    for (const QString& f : dir.entryList(QDir::Files, QDir::Name))
        if (f.compare(fileName, Qt::CaseInsensitive) == 0) return dir.filePath(f);
    return {};
}

void SetPreviewWallpaper(Workspace& ws, const QString& path) {
    FrmProperties& f = Themes(ws).Properties;
    f.imgWallpaper = path;
    f.WallpaperPath = path;
    f.chkWallpaper = true;
}

void LoadButtonPreview(Workspace& ws, const QString& SetName) {
    FrmProperties& f = Themes(ws).Properties;
    const QDir dir(ws.dataFile(QStringLiteral("Skin/Buttons/") + SetName));
    for (int k = 0; k < kButtonImages; ++k) {
        const QString path = dir.filePath(QString::fromLatin1(kButtonFiles[k]));
        if (ws.platform.imageSize(path).isValid()) f.PicButton[k] = path;
    }
}

void LoadColorFile(Workspace& ws, const QString& path) {
    FrmProperties& f = Themes(ws).Properties;
    const auto lines = ReadTextLines(path);
    if (!lines || lines->isEmpty() || lines->first() != QLatin1String(kColorFileVersion)) return;
    LineReader in(*lines);
    in.next();
    bool namedButtons = false;
    while (auto line = in.next()) {
        const QString& key = *line;
        bool colour = false;
        for (const ColorKey& k : kColorKeys) {
            if (key != QLatin1String(k.key)) continue;
            colour = true;
            const auto v = in.next();
            if (!v) break;
            const auto c = ToLong(*v);
            if (!c) break;
            f.*k.box = *c;
            if (k.box == &FrmProperties::picBackColor) f.picWallpaperBackColor = *c;
            if (k.box == &FrmProperties::PicLinkColor) f.lblWallpaperForeColor = *c;
            break;
        }
        if (colour) continue;
        if (key == QLatin1String("[Wallpaper]")) {
            const QString name = TrimBlanks(in.next().value_or(QString()));
            const QString picture = FindSkinFile(ws.dataFile(QStringLiteral("Skin/Wallpaper")), name);
            if (!picture.isEmpty()) SetPreviewWallpaper(ws, picture);
            // The stretch flag follows, whether the picture was there or not.
            if (const auto stretch = in.next())
                if (const auto b = ToBool(TrimBlanks(*stretch))) f.chkStretch = *b;
        } else if (key == QLatin1String("[Buttons]")) {
            const QString set = TrimBlanks(in.next().value_or(QString()));
            LoadButtonPreview(ws, set);
            f.CboButtons = set;
            namedButtons = true;
        }
    }
    // A colour scheme keeps the buttons in use.
    if (!namedButtons) {
        LoadButtonPreview(ws, ws.ButtonSet);
        f.CboButtons = ws.ButtonSet;
    }
    f.ColorsChanged = true;
    f.cmdApplyEnabled = true;
    f.changed();
}

void cmdSaveColors_Click(Workspace& ws) {
    FrmProperties& f = Themes(ws).Properties;
    for (;;) {
        const QString name = AskName(ws, QStringLiteral("Save Color Theme"), QStringLiteral("Name:"));
        if (name.isEmpty()) return;
        bool theme = false;
        if (f.chkWallpaper && !f.imgWallpaper.isEmpty())
            theme = ws.platform.messageBox(QStringLiteral("Save as Theme? (Include Wallaper and Buttons)"),
                                           MsgStyle::YesNoQuestion) == MsgAnswer::Yes;
        QDir().mkpath(ws.dataFile(QStringLiteral("Skin/Colors")));
        const QString target =
            theme ? ws.dataFile(QStringLiteral("Skin/") + name + QStringLiteral(".pkt"))
                  : ws.dataFile(QStringLiteral("Skin/Colors/") + name + QStringLiteral(".pkc"));
        if (QFileInfo::exists(target) &&
            ws.platform.messageBox(QStringLiteral("Overwrite: ") + name + QLatin1Char('?'),
                                   MsgStyle::YesNoWarning) != MsgAnswer::Yes)
            continue;
        TextWriter out;
        out.line(QString::fromLatin1(kColorFileVersion));
        for (const ColorKey& k : kColorKeys)
            out.pair(QString::fromLatin1(k.key), LongText(f.*k.box));
        if (theme) {
            out.pair(QStringLiteral("[Wallpaper]"), QFileInfo(f.imgWallpaper).fileName().trimmed());
            out.line(f.chkStretch ? QStringLiteral("1") : QStringLiteral("0"));
            out.pair(QStringLiteral("[Buttons]"), f.CboButtons);
        }
        out.commit(target);
        ListColorSchemes(ws);
        f.changed();
        return;
    }
}

void cmdDeleteColors_Click(Workspace& ws) {
    FrmProperties& f = Themes(ws).Properties;
    if (f.ListColors.size() <= 1) {
        ws.platform.messageBox(QStringLiteral("Can't Delete Last Color Theme"), MsgStyle::ExclamationBox,
                               QStringLiteral("Delete Error"));
        return;
    }
    if (f.ListColorsIndex < 0 || f.ListColorsIndex >= f.ListColors.size()) return;
    const QString name = f.ListColors[f.ListColorsIndex];
    if (ws.platform.messageBox(QStringLiteral("Delete: ") + name + QLatin1Char('?'), MsgStyle::YesNoWarning,
                               QStringLiteral("Delete Color Theme")) != MsgAnswer::Yes)
        return;
    const QString file =
        FindSkinFile(ws.dataFile(QStringLiteral("Skin/Colors")), name + QStringLiteral(".pkc"));
    if (!file.isEmpty()) QFile::remove(file);
    ListColorSchemes(ws);
    f.changed();
}

void ListButtonSets(Workspace& ws) {
    FrmProperties& f = Themes(ws).Properties;
    f.CboButtonsList = QDir(ws.dataFile(QStringLiteral("Skin/Buttons")))
                           .entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
}

void ListThemes(Workspace& ws) {
    FrmProperties& f = Themes(ws).Properties;
    f.CboThemes = ListNames(SkinFolder(ws, "Skin"), QStringLiteral("*.pkt"));
    f.CboThemesIndex = -1;
}

void ListColorSchemes(Workspace& ws) {
    FrmProperties& f = Themes(ws).Properties;
    f.ListColors = ListNames(SkinFolder(ws, "Skin/Colors"), QStringLiteral("*.pkc"));
    f.ListColorsIndex = -1;
}

void CboThemes_Click(Workspace& ws, int index) {
    FrmProperties& f = Themes(ws).Properties;
    if (index < 0 || index >= f.CboThemes.size()) return;
    f.CboThemesIndex = index;
    const QString name = f.CboThemes[index];
    if (!name.isEmpty())
        LoadColorFile(ws, FindSkinFile(SkinFolder(ws, "Skin"), name + QStringLiteral(".pkt")));
    f.ListColorsIndex = -1;
    f.OKButtonEnabled = true;
    f.cmdApplyEnabled = true;
    f.changed();
}

void ListColors_Click(Workspace& ws, int index) {
    FrmProperties& f = Themes(ws).Properties;
    if (index < 0 || index >= f.ListColors.size()) return;
    f.ListColorsIndex = index;
    const QString name = f.ListColors[index];
    if (!name.isEmpty())
        LoadColorFile(ws, FindSkinFile(SkinFolder(ws, "Skin/Colors"), name + QStringLiteral(".pkc")));
    f.cmdApplyEnabled = true;
    f.changed();
}

} // namespace pd
