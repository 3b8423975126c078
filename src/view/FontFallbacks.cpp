#include "view/FontFallbacks.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QStringList>

namespace pd {

void InstallFontFallbacks() {
    // Wide, open sans-serif faces close to Verdana's metrics first; DejaVu Sans descends from the same
    // designer's Bitstream Vera.
    const QStringList verdana = {QStringLiteral("DejaVu Sans"), QStringLiteral("Bitstream Vera Sans"),
                                 QStringLiteral("Noto Sans"), QStringLiteral("Liberation Sans")};
    const QStringList tahoma = {QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans"),
                                QStringLiteral("Noto Sans")};
    if (!QFontDatabase::hasFamily(QStringLiteral("Verdana")))
        QFont::insertSubstitutions(QStringLiteral("Verdana"), verdana);
    if (!QFontDatabase::hasFamily(QStringLiteral("Tahoma")))
        QFont::insertSubstitutions(QStringLiteral("Tahoma"), tahoma);
}

QString ResolvedFamily(const QString& family) {
    return QFontInfo(QFont(family)).family();
}

} // namespace pd
