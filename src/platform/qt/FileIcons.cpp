#include "platform/qt/FileIcons.h"

#include "app/files/TextFile.h"
#include "platform/qt/HiDpiPictures.h"

#include <QFileIconProvider>
#include <QFileInfo>
#include <QHash>
#include <QIcon>
#include <QImageReader>
#include <QMimeDatabase>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace pd {

namespace {

bool IsImageFile(const QFileInfo& info) {
    static const QStringList kinds = {QStringLiteral("ico"), QStringLiteral("png"), QStringLiteral("gif"),
                                      QStringLiteral("jpg"), QStringLiteral("jpeg"), QStringLiteral("bmp"),
                                      QStringLiteral("xpm"), QStringLiteral("svg")};
    return kinds.contains(info.suffix().toLower());
}

// The Icon entry of a desktop entry: a theme name or a path.
QIcon DesktopEntryIcon(const QString& path) {
    const auto lines = ReadTextLines(path);
    if (!lines) return {};
    for (const QString& line : *lines) {
        if (!line.startsWith(QLatin1String("Icon="))) continue;
        const QString name = line.mid(5).trimmed();
        if (QFileInfo(name).isAbsolute()) return QIcon(name);
        return QIcon::fromTheme(name);
    }
    return {};
}

// A transparent square of `size` logical pixels at `dpr` device pixels each: what a painter draws on it
// in logical pixels lands at the device's resolution.
QPixmap Canvas(int size, qreal dpr) {
    const int physical = static_cast<int>(std::lround(size * dpr));
    QPixmap pm(physical, physical);
    pm.setDevicePixelRatio(dpr);
    pm.fill(Qt::transparent);
    return pm;
}

// The cache key of a size at a ratio.
QString SizeKey(int size, qreal dpr) {
    return QString::number(size) + QLatin1Char('x') + QString::number(dpr);
}

QPixmap BlankPage(int size, qreal dpr) {
    QPixmap pm = Canvas(size, dpr);
    QPainter p(&pm);
    p.setPen(QColor(0x60, 0x60, 0x60));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(size * 0.2, size * 0.1, size * 0.6, size * 0.8));
    return pm;
}

QHash<QString, QPixmap>& Cache() {
    static QHash<QString, QPixmap> cache;
    return cache;
}

// The icon last given for each path and size: a box repaints without asking the file system or the MIME
// database again. The pixmaps are shared with the type cache, so this costs a reference a path.
QHash<QString, QPixmap>& PathCache() {
    static QHash<QString, QPixmap> cache;
    return cache;
}

// A terminal window drawn by us: a dark screen with a prompt, for command shortcuts on a desktop
// without an icon theme.
QPixmap TerminalPicture(int size, qreal dpr) {
    QPixmap pm = Canvas(size, dpr);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing, true);
    const QRectF screen(size * 0.06, size * 0.12, size * 0.88, size * 0.76);
    p.setPen(QPen(QColor(0x90, 0x90, 0x90), std::max(1.0, size / 16.0)));
    p.setBrush(QColor(0x20, 0x20, 0x20));
    p.drawRoundedRect(screen, size * 0.08, size * 0.08);
    p.setPen(QPen(QColor(0x60, 0xE0, 0x60), std::max(1.0, size / 12.0)));
    const double x = screen.left() + size * 0.16, y = screen.top() + size * 0.22;
    p.drawLine(QPointF(x, y), QPointF(x + size * 0.16, y + size * 0.14));
    p.drawLine(QPointF(x + size * 0.16, y + size * 0.14), QPointF(x, y + size * 0.28));
    p.drawLine(QPointF(x + size * 0.24, y + size * 0.32), QPointF(x + size * 0.48, y + size * 0.32));
    return pm;
}

bool IsExecutableFile(const QFileInfo& info) { return info.isFile() && info.isExecutable(); }

// The picture of an image or icon file for a box of `size` logical pixels at `dpr`: the file's twin of
// twice the pixels where the screen has more than one pixel a logical pixel, else of an icon file with
// several sizes the smallest that is not smaller than the box in device pixels (the largest when all
// are smaller), scaled to the box in device pixels.
QPixmap PictureFileIcon(const QString& path, int size, qreal dpr) {
    const int physical = static_cast<int>(std::lround(size * dpr));
    QImage img;
    if (dpr > 1.0) {
        const QString twin = DoubleResolutionFile(path);
        if (!twin.isEmpty()) img = QImageReader(twin).read();
    }
    if (img.isNull()) {
        QImageReader reader(path);
        // The smallest entry that covers the box, else the largest: an entry this much bigger than the box
        // (or smaller) counts this much against it, and a smaller one counts far more.
        auto cost = [physical](const QImage& e) {
            const int extent = std::max(e.width(), e.height());
            return extent >= physical ? extent - physical : 100000 + (physical - extent);
        };
        // Only an icon file holds sizes to choose from; the frames of an animation are not sizes.
        const bool sizes = QFileInfo(path).suffix().compare(QLatin1String("ico"), Qt::CaseInsensitive) == 0;
        const int count = sizes ? std::max(1, reader.imageCount()) : 1;
        for (int k = 0; k < count; ++k) {
            if (k > 0 && !reader.jumpToImage(k)) break;
            const QImage entry = reader.read();
            if (!entry.isNull() && (img.isNull() || cost(entry) < cost(img))) img = entry;
        }
    }
    if (img.isNull()) return {};
    img.setDevicePixelRatio(1.0);
    QImage scaled = img.scaled(physical, physical, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(dpr);
    return QPixmap::fromImage(scaled);
}

} // namespace

void ClearFileIconCache() {
    Cache().clear();
    PathCache().clear();
}

QPixmap NoIconPixmap(int size, qreal dpr) {
    const QString key = QStringLiteral("noicon@") + SizeKey(size, dpr);
    if (auto it = Cache().constFind(key); it != Cache().constEnd()) return *it;
    QPixmap pm = Canvas(size, dpr);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing, true);
    QPen pen(QColor(0xB0, 0xB0, 0xB0), std::max(1.0, size / 16.0), Qt::DashLine);
    p.setPen(pen);
    p.setBrush(QColor(255, 255, 255, 60));
    p.drawRect(QRectF(size * 0.2, size * 0.1, size * 0.6, size * 0.8));
    QFont f;
    f.setPixelSize(std::max(6, size / 2));
    f.setBold(true);
    p.setFont(f);
    p.setPen(QColor(0xE0, 0xE0, 0xE0));
    p.drawText(QRect(0, 0, size, size), Qt::AlignCenter, QStringLiteral("?"));
    p.end();
    Cache().insert(key, pm);
    return pm;
}

QPixmap ThemeIconPixmap(const QString& name, int size, qreal dpr) {
    const QString key = QStringLiteral("theme:") + name + QLatin1Char('@') + SizeKey(size, dpr);
    if (auto it = Cache().constFind(key); it != Cache().constEnd()) return *it;
    QPixmap pm;
    const QIcon icon = QIcon::fromTheme(name);
    if (!icon.isNull()) pm = icon.pixmap(QSize(size, size), dpr);
    if (pm.isNull())
        pm = name == QLatin1String("utilities-terminal") ? TerminalPicture(size, dpr) : BlankPage(size, dpr);
    Cache().insert(key, pm);
    return pm;
}

// The icon of a file by its type (or its own picture), from the type cache or the theme.
static QPixmap LookUpFileIcon(const QString& path, int size, qreal dpr) {
    QHash<QString, QPixmap>& cache = Cache();
    const QFileInfo info(path);
    QString key;
    QIcon icon;
    if (info.isFile() && IsImageFile(info)) {
        key = QStringLiteral("file:") + info.absoluteFilePath();
    } else if (info.isFile() && info.suffix().toLower() == QLatin1String("desktop")) {
        key = QStringLiteral("file:") + info.absoluteFilePath();
    } else if (info.isDir()) {
        key = QStringLiteral("type:inode/directory");
    } else if (IsExecutableFile(info) && info.suffix().isEmpty()) {
        // A program: the theme's icon of executables.
        key = QStringLiteral("type:application/x-executable");
    } else {
        key = QStringLiteral("type:") + QMimeDatabase().mimeTypeForFile(info, QMimeDatabase::MatchExtension).name();
    }
    key += QLatin1Char('@') + SizeKey(size, dpr);
    if (auto it = cache.constFind(key); it != cache.constEnd()) return *it;

    QPixmap pm;
    if (info.isFile() && IsImageFile(info)) {
        pm = PictureFileIcon(path, size, dpr);
    } else if (info.isFile() && info.suffix().toLower() == QLatin1String("desktop")) {
        icon = DesktopEntryIcon(path);
    } else if (info.isDir()) {
        icon = QIcon::fromTheme(QStringLiteral("folder"));
    } else if (IsExecutableFile(info) && info.suffix().isEmpty()) {
        icon = QIcon::fromTheme(QStringLiteral("application-x-executable"));
    } else {
        const QMimeType mime = QMimeDatabase().mimeTypeForFile(info, QMimeDatabase::MatchExtension);
        icon = QIcon::fromTheme(mime.iconName(), QIcon::fromTheme(mime.genericIconName()));
    }
    if (pm.isNull() && icon.isNull()) icon = QFileIconProvider().icon(info);
    // Asked at the box's size in device pixels: the theme gives its larger drawing on a dense screen.
    if (pm.isNull() && !icon.isNull()) pm = icon.pixmap(QSize(size, size), dpr);
    if (pm.isNull()) pm = BlankPage(size, dpr);
    cache.insert(key, pm);
    return pm;
}

QPixmap FileIconPixmap(const QString& path, int size, qreal dpr) {
    const QString pathKey = path + QLatin1Char('@') + SizeKey(size, dpr);
    if (auto it = PathCache().constFind(pathKey); it != PathCache().constEnd()) return *it;
    const QPixmap pm = LookUpFileIcon(path, size, dpr);
    PathCache().insert(pathKey, pm);
    return pm;
}

} // namespace pd
