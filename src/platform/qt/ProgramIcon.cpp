#include "platform/qt/ProgramIcon.h"

#include <QPainter>
#include <QPixmap>

namespace pd {

QIcon ProgramIcon() {
    QIcon icon;
    // Drawn at each size, up to 256: a screen of two device pixels per logical pixel asks a 22-pixel tray
    // icon at 44 and a 64-pixel window icon at 128.
    for (int size : {16, 22, 32, 44, 48, 64, 128, 256}) {
        QPixmap pm(size, size);
        pm.fill(Qt::transparent);
        {
        QPainter p(&pm);
        p.setRenderHint(QPainter::Antialiasing);
        const qreal r = size / 6.0;
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0x15, 0x48, 0x95));
        p.drawRoundedRect(QRectF(0.5, 0.5, size - 1, size - 1), r, r);
        p.setBrush(Qt::white);
        p.drawRoundedRect(QRectF(size * 0.12, size * 0.2, size * 0.14, size * 0.6), r / 3, r / 3);
        p.setBrush(QColor(0xFF, 0xFD, 0xE1));
        p.drawRect(QRectF(size * 0.38, size * 0.25, size * 0.45, size * 0.2));
        p.drawRect(QRectF(size * 0.38, size * 0.55, size * 0.45, size * 0.2));
        }
        icon.addPixmap(pm);
    }
    return icon;
}

} // namespace pd
