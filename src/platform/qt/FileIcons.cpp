#include "platform/qt/FileIcons.h"

#include "app/files/TextFile.h"

#include <QFileIconProvider>
#include <QFileInfo>
#include <QHash>
#include <QIcon>
#include <QImageReader>
#include <QMimeDatabase>
#include <QPainter>

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

QPixmap BlankPage(int size) {
    QPixmap pm(size, size);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setPen(QColor(0x60, 0x60, 0x60));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(size * 0.2, size * 0.1, size * 0.6, size * 0.8));
    return pm;
}

} // namespace

QPixmap FileIconPixmap(const QString& path, int size) {
    static QHash<QString, QPixmap> cache;
    const QFileInfo info(path);
    QString key;
    QIcon icon;
    if (info.isFile() && IsImageFile(info)) {
        key = QStringLiteral("file:") + info.absoluteFilePath();
    } else if (info.isFile() && info.suffix().toLower() == QLatin1String("desktop")) {
        key = QStringLiteral("file:") + info.absoluteFilePath();
    } else if (info.isDir()) {
        key = QStringLiteral("type:inode/directory");
    } else {
        key = QStringLiteral("type:") + QMimeDatabase().mimeTypeForFile(info, QMimeDatabase::MatchExtension).name();
    }
    key += QLatin1Char('@') + QString::number(size);
    if (auto it = cache.constFind(key); it != cache.constEnd()) return *it;

    QPixmap pm;
    if (info.isFile() && IsImageFile(info)) {
        QImageReader reader(path);
        // Of an icon file with several sizes, the reader gives the first; scale it to the box.
        const QImage img = reader.read();
        if (!img.isNull()) pm = QPixmap::fromImage(img.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    } else if (info.isFile() && info.suffix().toLower() == QLatin1String("desktop")) {
        icon = DesktopEntryIcon(path);
    } else if (info.isDir()) {
        icon = QIcon::fromTheme(QStringLiteral("folder"));
    } else {
        const QMimeType mime = QMimeDatabase().mimeTypeForFile(info, QMimeDatabase::MatchExtension);
        icon = QIcon::fromTheme(mime.iconName(), QIcon::fromTheme(mime.genericIconName()));
    }
    if (pm.isNull() && icon.isNull()) icon = QFileIconProvider().icon(info);
    if (pm.isNull() && !icon.isNull()) pm = icon.pixmap(size, size);
    if (pm.isNull()) pm = BlankPage(size);
    cache.insert(key, pm);
    return pm;
}

} // namespace pd
