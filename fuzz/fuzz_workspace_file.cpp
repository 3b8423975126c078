// Fuzz target for the workspace file reader: arbitrary bytes are written as the workspace file of a data
// folder and read by a start of the program (the window's load and LoadSettings: decode, split into
// lines, the key loop with its records, then the collected window state, lock, buttons and the form's
// layout applied) into a fresh workspace on the fake platform and the hand clock; the workspace is then
// written back and the written bytes are read again the same way.
//
// With PERCHDOCK_FUZZ_ROUNDTRIP=1 in the environment the target also checks that a file this program
// wrote reads back to the same file, and aborts when it does not.

#include "app/MainWindow.h"
#include "app/Startup.h"
#include "app/WorkspaceFile.h"
#include "app/WorkspaceSettings.h"
#include "app/clock/ManualClock.h"
#include "app/files/TextFile.h"
#include "app/workspace/Workspace.h"
#include "support/FakePlatform.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtGlobal>

#include <cstdio>
#include <cstdlib>
#include <cstdint>

namespace {

// The fake platform with images: any path whose name ends in an image suffix loads as 32 by 32 pixels,
// so that picture and reminder records are created; other paths do not load.
class FuzzPlatform : public pd::test::FakePlatform {
public:
    QSize imageSize(const QString& path) const override {
        static const char* const suffixes[] = {".gif", ".png", ".jpg", ".jpeg", ".bmp", ".ico"};
        for (const char* s : suffixes)
            if (path.endsWith(QLatin1String(s), Qt::CaseInsensitive)) return {32, 32};
        return {};
    }
};

// A program directory holding the default reminder image of old files, and a data folder that holds
// the workspace file being read (and nothing else: the start finds no container files).
QString g_programDir;
QString g_dataHome;
QString g_workspaceFile;
bool g_roundTrip = false;

void MakeDir(const QString& path) { QDir().mkpath(path); }

void WriteIfMissing(const QString& path, const QByteArray& bytes) {
    if (QFileInfo::exists(path)) return;
    QFile f(path);
    if (f.open(QIODevice::WriteOnly)) f.write(bytes);
}

// Reads one workspace file's bytes into a new workspace and returns what it writes back.
QByteArray LoadAndWrite(const QByteArray& bytes, bool forExit) {
    FuzzPlatform platform;
    platform.programDir = g_programDir;
    platform.dataDir = g_dataHome;
    pd::ManualClock clock;
    pd::Workspace ws(platform, clock);

    {
        QFile f(g_workspaceFile);
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) std::abort();
        f.write(bytes);
    }
    // The steps of a start: the window's load, then LoadSettings reads the file and applies it.
    pd::MainWindowLoad(ws);
    pd::LoadSettings(ws);
    return pd::WorkspaceFileBytes(ws, forExit);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // Qt warns of every path with a NUL character that reaches a file check; the reader is expected to
    // meet such paths, so its warnings are noise here.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    // The folders are this process's own (named by its id), so that runs side by side do not share the
    // workspace file; they go at a normal end.
    g_programDir = QDir::temp().filePath(
        QStringLiteral("perchdock-fuzz-workspace-%1").arg(QCoreApplication::applicationPid()));
    g_dataHome = QDir(g_programDir).filePath(QStringLiteral("data"));
    MakeDir(g_programDir);
    MakeDir(g_dataHome);
    std::atexit([] { QDir(g_programDir).removeRecursively(); });
    {
        FuzzPlatform platform;
        platform.programDir = g_programDir;
        platform.dataDir = g_dataHome;
        pd::ManualClock clock;
        pd::Workspace ws(platform, clock);
        pd::DetermineDataPath(ws);
        MakeDir(ws.DataPath);
        g_workspaceFile = ws.dataFile(QString::fromLatin1(pd::kWorkspaceFile));
    }
    // A 1 by 1 GIF made here: the default image of reminders in old files.
    static const unsigned char gif[] = {0x47, 0x49, 0x46, 0x38, 0x39, 0x61, 0x01, 0x00, 0x01, 0x00, 0x80, 0x00,
                                        0x00, 0x00, 0x00, 0x00, 0xff, 0xff, 0xff, 0x21, 0xf9, 0x04, 0x01, 0x00,
                                        0x00, 0x00, 0x00, 0x2c, 0x00, 0x00, 0x00, 0x00, 0x01, 0x00, 0x01, 0x00,
                                        0x00, 0x02, 0x02, 0x44, 0x01, 0x00, 0x3b};
    WriteIfMissing(QDir(g_programDir).filePath(QStringLiteral("alarmclock.gif")),
                   QByteArray(reinterpret_cast<const char*>(gif), sizeof gif));
    const char* rt = std::getenv("PERCHDOCK_FUZZ_ROUNDTRIP");
    g_roundTrip = rt && *rt == '1';
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray input(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QByteArray first = LoadAndWrite(input, false);
    // What this program wrote must read again; an exit save also stores the window's normal place.
    const QByteArray second = LoadAndWrite(first, true);
    if (g_roundTrip) {
        const QByteArray third = LoadAndWrite(second, true);
        if (second != third) {
            std::fprintf(stderr, "Round trip changed the file:\n--- written\n%s\n--- read back and written\n%s\n",
                         second.constData(), third.constData());
            std::abort();
        }
    }
    return 0;
}
