// Fuzz target for the Internet shortcut (.url) reader: arbitrary bytes straight from memory, and the same
// bytes as a .url file through the program's reader of dropped link files, which must agree.
// Besides the sanitizers' findings, the target aborts when the address is not trimmed or the two
// readings differ.

#include "shortcuts/ShellLink.h"
#include "shortcuts/Shortcuts.h"

#include <QByteArrayView>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QString>

#include <cstdint>
#include <cstdlib>

namespace {

QString g_dir;
QString g_file;

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    g_dir = QDir::temp().filePath(QStringLiteral("perchdock-fuzz-url-%1").arg(QCoreApplication::applicationPid()));
    QDir().mkpath(g_dir);
    g_file = g_dir + QStringLiteral("/fuzz.url");
    std::atexit([] { QDir(g_dir).removeRecursively(); });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArrayView bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString url = pd::InternetShortcutTarget(bytes);
    // The reader trims what it returns.
    if (url != url.trimmed()) std::abort();

    QFile f(g_file);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) return 0;
    f.write(bytes.data(), bytes.size());
    f.close();
    if (pd::ResolveLinkTarget(g_file) != url) std::abort();
    return 0;
}
