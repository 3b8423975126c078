// Fuzz target for the shell link (.lnk) reader: arbitrary bytes are parsed straight from memory and the
// target is taken by its rules; then the same bytes, written as a .lnk file, go through the program's
// reader of dropped link files, which resolves a relative target against the link's folder.
//
// Besides the sanitizers' findings, the target aborts when the target and the source it names disagree
// (an empty target with a source, a relative or ID list target that is not that field), or when a
// resolved relative target is not an absolute, clean path.

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
    g_dir = QDir::temp().filePath(QStringLiteral("perchdock-fuzz-lnk-%1").arg(QCoreApplication::applicationPid()));
    QDir().mkpath(g_dir + QStringLiteral("/links"));
    g_file = g_dir + QStringLiteral("/links/fuzz.lnk");
    std::atexit([] { QDir(g_dir).removeRecursively(); });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArrayView bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));

    const auto link = pd::ShellLink::Parse(bytes);
    pd::ShellLink::TargetSource source = pd::ShellLink::TargetSource::None;
    if (link) {
        const QString target = link->Target(&source);
        // An empty target comes with no source, and a source always gives a text.
        if (target.isEmpty() != (source == pd::ShellLink::TargetSource::None)) std::abort();
        if (source == pd::ShellLink::TargetSource::RelativePath && target != link->relativePath) std::abort();
        if (source == pd::ShellLink::TargetSource::IDList && target != link->idListPath) std::abort();
    }

    QFile f(g_file);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) return 0;
    f.write(bytes.data(), bytes.size());
    f.close();
    const QString resolved = pd::ResolveLinkTarget(g_file);
    if (!link && !resolved.isEmpty()) std::abort();
    if (source == pd::ShellLink::TargetSource::RelativePath && !resolved.isEmpty() &&
        (!resolved.startsWith(QLatin1Char('/')) || resolved != QDir::cleanPath(resolved)))
        std::abort();
    return 0;
}
