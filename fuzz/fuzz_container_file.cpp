// Fuzz target for the container file reader: the input is cut at form feeds (0x0C) into up to eight
// container files, Containers/0.con, 1.con, ..., which a start of the program then reads, as it does:
// the window's load and LoadSettings (no workspace file, so the first-run settings), the key loop of
// each file, the restore steps and the nesting pass. The workspace then writes its container files back
// over them, as the last step of a save, and a second start reads what was written.
//
// With PERCHDOCK_FUZZ_ROUNDTRIP=1 in the environment the target also checks that container files this
// program wrote read back to the same files, and aborts when they do not.

#include "app/MainWindow.h"
#include "app/Startup.h"
#include "app/WorkspaceFile.h"
#include "app/clock/ManualClock.h"
#include "app/workspace/Workspace.h"
#include "containers/ContainerFiles.h"
#include "support/FakePlatform.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtGlobal>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>

namespace {

constexpr int kMaxFiles = 8;

// The fake platform with images: any path whose name ends in an image suffix loads as 32 by 32 pixels,
// so that picture records and shrink icons are made; other paths do not load.
class FuzzPlatform : public pd::test::FakePlatform {
public:
    QSize imageSize(const QString& path) const override {
        static const char* const suffixes[] = {".gif", ".png", ".jpg", ".jpeg", ".bmp", ".ico"};
        for (const char* s : suffixes)
            if (path.endsWith(QLatin1String(s), Qt::CaseInsensitive)) return {32, 32};
        return {};
    }
};

QString g_programDir;
QString g_dataHome;
bool g_roundTrip = false;

// The data folder's Containers, as the program names it on the fake platform (found by a first start).
QString g_containers;

void ClearContainers() {
    QDir dir(g_containers);
    for (const QString& name : dir.entryList(QDir::Files | QDir::Hidden | QDir::System))
        dir.remove(name);
}

// One start of the program over the data folder as it is; then the save's last step, and what the
// folder holds after it.
std::map<QString, QByteArray> StartAndWrite() {
    FuzzPlatform platform;
    platform.programDir = g_programDir;
    platform.dataDir = g_dataHome;
    pd::ManualClock clock;
    pd::Workspace ws(platform, clock);
    pd::MainWindowLoad(ws);
    pd::LoadSettings(ws);
    pd::WriteContainerFiles(ws);
    std::map<QString, QByteArray> files;
    const QDir dir(g_containers);
    for (const QString& name : dir.entryList({QStringLiteral("*.con")}, QDir::Files)) {
        QFile f(dir.filePath(name));
        if (f.open(QIODevice::ReadOnly)) files[name] = f.readAll();
    }
    return files;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // Qt warns of every path with a NUL character that reaches a file check; such paths are expected.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    g_programDir = QDir::temp().filePath(QStringLiteral("perchdock-fuzz-containers-%1")
                                             .arg(QCoreApplication::applicationPid()));
    g_dataHome = QDir(g_programDir).filePath(QStringLiteral("data"));
    QDir().mkpath(g_dataHome);
    // Where the program keeps its container files on this platform.
    FuzzPlatform platform;
    platform.programDir = g_programDir;
    platform.dataDir = g_dataHome;
    pd::ManualClock clock;
    pd::Workspace ws(platform, clock);
    pd::DetermineDataPath(ws);
    g_containers = ws.dataFile(QStringLiteral("Containers"));
    QDir().mkpath(g_containers);
    // The folder is this process's own (named by its id); it goes at a normal end.
    std::atexit([] { QDir(g_programDir).removeRecursively(); });
    const char* rt = std::getenv("PERCHDOCK_FUZZ_ROUNDTRIP");
    g_roundTrip = rt && *rt == '1';
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray input(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    ClearContainers();
    // A left-over workspace file of an earlier run would change the start: there is none.
    const QList<QByteArray> parts = input.split('\f');
    for (int k = 0; k < parts.size() && k < kMaxFiles; ++k) {
        QFile f(QDir(g_containers).filePath(QString::number(k) + QStringLiteral(".con")));
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) return 0;
        f.write(parts[k]);
    }
    const auto first = StartAndWrite();
    // What this program wrote must read again.
    const auto second = StartAndWrite();
    if (g_roundTrip && first != second) {
        for (const auto& [name, bytes] : second) {
            auto it = first.find(name);
            if (it != first.end() && it->second == bytes) continue;
            std::fprintf(stderr, "Round trip changed %s:\n--- written\n%s\n--- read back and written\n%s\n",
                         qPrintable(name), it == first.end() ? "(none)" : it->second.constData(),
                         bytes.constData());
        }
        std::abort();
    }
    return 0;
}
