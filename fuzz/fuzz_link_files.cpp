// Fuzz target for the link file readers: the same bytes go to the shell link reader (with its target
// rule), the Internet shortcut reader and the desktop entry reader, straight from memory. Programs named
// by desktop entries are "found" by a stand-in, so that no run depends on the machine's PATH.
//
// Besides the sanitizers' findings, the target aborts when a shell link's target and the source it names
// disagree (an empty target with a source, a relative or ID list target that is not that field), or when
// an Internet shortcut's address is not trimmed.

#include "shortcuts/ShellLink.h"

#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <cstdlib>

namespace {

QString StandInFinder(const QString& name) {
    return QStringLiteral("/usr/bin/") + name;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArrayView bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));

    if (const auto link = pd::ShellLink::Parse(bytes)) {
        pd::ShellLink::TargetSource source = pd::ShellLink::TargetSource::None;
        const QString target = link->Target(&source);
        // An empty target comes with no source, and a source always gives a text.
        if (target.isEmpty() != (source == pd::ShellLink::TargetSource::None)) std::abort();
        if (source == pd::ShellLink::TargetSource::RelativePath && target != link->relativePath) std::abort();
        if (source == pd::ShellLink::TargetSource::IDList && target != link->idListPath) std::abort();
    }

    const QString url = pd::InternetShortcutTarget(bytes);
    // The reader trims what it returns.
    if (url != url.trimmed()) std::abort();

    (void)pd::DesktopEntryTarget(bytes, StandInFinder);
    (void)pd::DesktopExecWords(QString::fromUtf8(bytes));
    return 0;
}
