// What a shortcut shows under the pointer: the address of a web shortcut, or the size and folder of a
// file shortcut's target, an underline, and the pointer that says whether a click starts it.

#include "app/workspace/Workspace.h"
#include "shortcuts/Launch.h"
#include "shortcuts/Shortcuts.h"

#include <QFileInfo>

#include <cmath>

namespace pd {

namespace {

// A number with a fixed count of decimals, halves rounded away from zero.
QString Fixed(double v, int decimals) {
    const double scale = std::pow(10.0, decimals);
    const double rounded = std::floor(v * scale + 0.5) / scale;
    return QString::number(rounded, 'f', decimals);
}

} // namespace

QString FormatFileSize(long long Size) {
    if (Size < 0) return {};
    if (Size == 0) return QStringLiteral("0");
    // The unit is chosen before rounding, so 1023 bytes are 0.999 KB and read "1.00 KB".
    int k = 0;
    double v = static_cast<double>(Size);
    while (v >= 1000) {
        v /= 1024;
        ++k;
    }
    if (k >= 5) return Fixed(v, 0) + QStringLiteral(" x10^") + QString::number(k * 3) + QStringLiteral(" bytes");
    const QString number = v < 10 ? Fixed(v, 2) : v < 100 ? Fixed(v, 1) : Fixed(v, 0);
    static const char* const units[] = {" Bytes", " KB", " MB", " GB", " TB"};
    return number + QLatin1String(units[k]);
}

QString LinkHoverText(Workspace& ws, int n) {
    const LinkRecord& r = ws.Links[n];
    if (r.LinkType == 1.0f) return r.LinkPath;
    QString path = r.LinkPath;
    if (path.startsWith(QLatin1Char('@'))) path = ExpandDriveLetter(ws, path);
    // A folder or a missing file has no length: the text then gives the location alone.
    const QFileInfo info(path);
    const QString size = info.isFile() ? FormatFileSize(info.size()) : QString();
    QString folder = ParentFolder(path);
    if (folder.endsWith(QLatin1Char('/')) || folder.endsWith(QLatin1Char('\\'))) folder.chop(1);
    if (size.isEmpty() || size == QLatin1String("0")) return QStringLiteral(" Location: ") + folder;
    return QStringLiteral(" Size: ") + size + QStringLiteral("\r\n Location: ") + folder;
}

void ClearLinkUnderlines(Workspace& ws) {
    for (int k = 0; k < ws.Link.Count(); ++k)
        if (ws.Link.exists(k)) ws.Link(k).FontUnderline = false;
}

void Link_Hover(Workspace& ws, int Shift, int n) {
    if (n < 0 || n >= static_cast<int>(ws.Links.size()) || !ws.Link.exists(n)) return;
    ClearLinkUnderlines(ws);
    ws.ImgLinkGroup(0).Visible = false;
    Element& label = ws.Link(n);
    // Rebuilt at every move: the file may have changed since the last one.
    label.ToolTipText = LinkHoverText(ws, n);
    label.FontUnderline = true;
    // A single click starts: the label shows the hand that says so; otherwise the plain arrow.
    label.MousePointer = (!ws.menus["mnuDblClick"].Checked() && Shift == 0) ? 99 : 0;
}

} // namespace pd
