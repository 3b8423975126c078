#pragma once
// Turns the bytes of a fetched feed into text: a byte-order mark first, then the charset of the
// Content-Type header, then the encoding the document's XML declaration names, else UTF-8.

#include <QByteArray>
#include <QString>

namespace pd {

QString DecodeFeedBody(const QByteArray& body, const QByteArray& contentType = {});

} // namespace pd
