#include "platform/qt/HiDpiPictures.h"

#include <QFileInfo>
#include <QImage>
#include <QImageReader>

#include <cmath>

namespace pd {

namespace {

QSize Physical(QSize logical, qreal dpr) {
    return QSize(static_cast<int>(std::lround(logical.width() * dpr)),
                 static_cast<int>(std::lround(logical.height() * dpr)));
}

} // namespace

QString DoubleResolutionFile(const QString& path) {
    if (path.isEmpty()) return {};
    const QFileInfo info(path);
    const QString base = info.path() + QLatin1Char('/') + info.completeBaseName() + QStringLiteral("@2x");
    const QString png = base + QStringLiteral(".png");
    if (QFileInfo(png).isFile()) return png;
    if (!info.suffix().isEmpty()) {
        const QString same = base + QLatin1Char('.') + info.suffix();
        if (QFileInfo(same).isFile()) return same;
    }
    return {};
}

QPixmap LoadPicture(const QString& path, qreal dpr) {
    if (path.isEmpty()) return {};
    QImageReader reader(path);
    QImage plain = reader.read();
    if (plain.isNull()) return {};
    // The file's own size is the picture's logical size, whatever ratio a reader gave it.
    plain.setDevicePixelRatio(1.0);
    if (dpr <= 1.0) return QPixmap::fromImage(plain);

    const QSize target = Physical(plain.size(), dpr);
    if (const QString twin = DoubleResolutionFile(path); !twin.isEmpty()) {
        QImage two = QImageReader(twin).read();
        if (!two.isNull() && two.width() > plain.width()) {
            qreal ratio = static_cast<qreal>(two.width()) / plain.width();
            // A screen finer than the twin: the twin is the better start for the scale.
            if (dpr > ratio + 0.01) {
                two = two.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
                ratio = dpr;
            }
            two.setDevicePixelRatio(ratio);
            return QPixmap::fromImage(two);
        }
    }
    QImage scaled = plain.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(dpr);
    return QPixmap::fromImage(scaled);
}

QPixmap FillPicture(const QPixmap& picture, QSize logical, qreal dpr) {
    if (picture.isNull() || logical.isEmpty()) return {};
    const QSize target = Physical(logical, dpr);
    if (picture.size() == target) {
        QPixmap same = picture;
        same.setDevicePixelRatio(dpr);
        return same;
    }
    QPixmap scaled = picture.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(dpr);
    return scaled;
}

QIcon LoadIcon(const QString& path) {
    QIcon icon(path);
    if (const QString twin = DoubleResolutionFile(path); !twin.isEmpty()) {
        QPixmap two = LoadPicture(path, 2.0);
        if (!two.isNull()) icon.addPixmap(two);
    }
    return icon;
}

void ScreenPicture::setFile(const QString& path) {
    // The same name may stand for a file that has changed: it is read again in any case.
    path_ = path;
    picture_ = QPixmap();
    stretched_ = QPixmap();
    dpr_ = 0;
    stretchedDpr_ = 0;
}

const QPixmap& ScreenPicture::at(qreal dpr) {
    if (dpr_ != dpr) {
        picture_ = LoadPicture(path_, dpr);
        dpr_ = dpr;
        stretched_ = QPixmap();
        stretchedDpr_ = 0;
    }
    return picture_;
}

const QPixmap& ScreenPicture::stretched(QSize logical, qreal dpr) {
    if (stretchedDpr_ != dpr || stretchedSize_ != logical) {
        // From the finest picture at hand: the twin when the screen asks for more than one pixel.
        stretched_ = FillPicture(at(dpr), logical, dpr);
        stretchedSize_ = logical;
        stretchedDpr_ = dpr;
    }
    return stretched_;
}

} // namespace pd
