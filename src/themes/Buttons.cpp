#include "themes/Buttons.h"

#include "app/workspace/Workspace.h"

#include <QDir>

#include <algorithm>

namespace pd {

int32_t Lighten(int32_t Color) {
    const auto c = static_cast<uint32_t>(Color);
    auto up = [](uint32_t v) { return std::min<uint32_t>(255, (v & 0xFF) + 40); };
    return static_cast<int32_t>(up(c) | (up(c >> 8) << 8) | (up(c >> 16) << 16));
}

void SetColors(Workspace& ws, int i, int32_t Color) {
    ws.Group(i).BackColor = Lighten(ws.grpBorder(i).BackColor);
    for (ElementFamily* f : {&ws.picPinNote, &ws.picPin, &ws.picShrink, &ws.chkFold, &ws.chkUnfold, &ws.groupName,
                             &ws.ShrinkIcon, &ws.picCopy1, &ws.picCopy2})
        (*f)(i).BackColor = Color;
}

void InitButtons(Workspace& ws, const QString& SetName) {
    const QDir dir(ws.dataFile(QStringLiteral("Skin/Buttons/") + SetName));
    // A picture is taken only when the platform can read it; otherwise the element keeps its image.
    auto load = [&](Element& e, const char* file) {
        const QString path = dir.filePath(QString::fromLatin1(file));
        if (ws.platform.imageSize(path).isValid()) e.Picture = path;
    };
    load(ws.PicShrinkExpandAllToolbar(0), "shrinkall.gif");
    load(ws.PicFoldUnfoldAllToolbar(0), "foldall.gif");
    load(ws.PicRSSRefreshALL(0), "rss.gif");
    load(ws.PicLockToolbar(0), "lock.gif");
    ws.ImgLock(0).Picture = ws.PicLockToolbar(0).Picture.get();
    load(ws.PicUnLockToolbar(0), "unlock.gif");
    load(ws.PicDock(0), "dock.gif");
    // Every member, dead ones too: the walk does not ask whether a container lives.
    for (int i = 0; i < ws.Group.Count(); ++i) {
        if (!ws.Group.exists(i)) continue;
        load(ws.picShrink(i), "shrink.gif");
        load(ws.picCopy1(i), "folderoff.gif");
        load(ws.picCopy2(i), "folderon.gif");
        load(ws.picPinNote(i), "noteshow.gif");
        load(ws.picPin(i), "notehide.gif");
        load(ws.chkFold(i), "fold.gif");
        load(ws.chkUnfold(i), "unfold.gif");
    }
}

} // namespace pd
