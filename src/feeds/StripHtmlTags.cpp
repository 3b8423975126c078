#include "feeds/StripHtmlTags.h"

namespace pd {

QString StripHTMLTags(QString& text) {
    const QChar lt = QLatin1Char('<');
    const QChar gt = QLatin1Char('>');
    qsizetype p = text.indexOf(lt);
    qsizetype q = text.indexOf(gt);
    // Each round deletes at least the tag found at p, so the loop ends.
    while (p >= 0 && q >= 0) {
        if (q <= p) break;
        const QString tag = text.mid(p, q - p + 1);
        text.remove(tag, Qt::CaseSensitive);
        p = text.indexOf(lt);
        q = text.indexOf(gt);
    }

    // The order matters: "&amp;lt;" becomes "&lt;" and then "<". Numbers of numeric references stay.
    text.replace(QLatin1String("&nbsp;"), QLatin1String(" "));
    text.replace(QLatin1String("&amp;"), QLatin1String("&"));
    text.replace(QLatin1String("&quot;"), QLatin1String("'"));
    text.replace(QLatin1String("&#"), QLatin1String("#"));
    text.replace(QLatin1String("&lt;"), QLatin1String("<"));
    text.replace(QLatin1String("&gt;"), QLatin1String(">"));
    text.replace(QLatin1String("%20"), QLatin1String(" "));

    // Only blanks are trimmed (tabs and line breaks stay), then leading line breaks go; blanks behind
    // them stay.
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && text.at(start) == QLatin1Char(' ')) ++start;
    while (end > start && text.at(end - 1) == QLatin1Char(' ')) --end;
    while (start < end && (text.at(start) == QLatin1Char('\r') || text.at(start) == QLatin1Char('\n'))) ++start;
    text = text.mid(start, end - start);
    return text;
}

} // namespace pd
