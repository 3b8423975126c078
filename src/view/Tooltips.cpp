#include "view/Tooltips.h"

#include <QApplication>
#include <QFontMetrics>
#include <QStringList>
#include <QToolTip>

namespace pd {

QFont TipFont() {
    return QApplication::font("QStatusBar");
}

QString TipMarkup(const QString& text, const QFont& font, int maxWidth) {
    QString plain = text;
    plain.remove(QLatin1Char('\r'));
    if (plain.isEmpty()) return plain;
    const QFontMetrics fm(font);
    const QStringList lines = plain.split(QLatin1Char('\n'));
    int widest = 0;
    for (const QString& line : lines)
        widest = std::max(widest, fm.horizontalAdvance(line));
    if (widest <= maxWidth) return plain;
    // A table of fixed width makes Qt's rich-text tip wrap its lines at that width.
    QString body;
    for (int i = 0; i < lines.size(); ++i) {
        if (i) body += QStringLiteral("<br>");
        body += lines[i].toHtmlEscaped();
    }
    return QStringLiteral("<table width=\"%1\" cellspacing=\"0\" cellpadding=\"0\"><tr><td>").arg(maxWidth) +
           body + QStringLiteral("</td></tr></table>");
}

QString PrepareTip(const QString& text) {
    const QFont font = TipFont();
    if (QToolTip::font() != font) QToolTip::setFont(font);
    return TipMarkup(text, font);
}

} // namespace pd
