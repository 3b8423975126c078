// Fuzz target for the desktop entry (.desktop) reader: arbitrary bytes straight from memory, with the
// programs it names "found" by a stand-in so that no run depends on the machine's PATH, and the Exec
// line's splitting into words on the same bytes as text.

#include "shortcuts/ShellLink.h"

#include <QByteArrayView>
#include <QString>

#include <cstdint>

namespace {

QString StandInFinder(const QString& name) {
    return QStringLiteral("/usr/bin/") + name;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArrayView bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    (void)pd::DesktopEntryTarget(bytes, StandInFinder);
    (void)pd::DesktopExecWords(QString::fromUtf8(bytes));
    return 0;
}
