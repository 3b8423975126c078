// Fuzz target for the workspace file reader: arbitrary bytes go through the same steps as a start of the
// program (decode, split into lines, the key loop with its records) into a fresh workspace on the fake
// platform and the hand clock; the workspace is then written back and the written bytes are read again.
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

// A fixed program directory holding the default reminder image, so that the seeds can name it, and a
// data folder that stays empty: nothing here writes files.
QString g_programDir;
QString g_dataHome;
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

    // The steps of a start before the key loop: the window's load and the defaults of LoadSettings.
    pd::MainWindowLoad(ws);
    ws.LinkFontSize = 10;
    ws.LargeIconSize = 32;
    ws.LinkFontName = QStringLiteral("Verdana");
    ws.ButtonSet = QStringLiteral("Plain White on Blue");
    pd::DetermineDataPath(ws);

    pd::LoadState st;
    pd::ReadWorkspaceLines(ws, pd::SplitLines(pd::DecodeText(bytes)), st);
    // The save refuses to run while loading; the writer below does not look at the flag, but clear it as
    // the end of the load does.
    ws.IsLoading = false;
    return pd::WorkspaceFileBytes(ws, forExit);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // Qt warns of every path with a NUL character that reaches a file check; the reader is expected to
    // meet such paths, so its warnings are noise here.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    g_programDir = QDir::temp().filePath(QStringLiteral("perchdock-fuzz"));
    g_dataHome = QDir(g_programDir).filePath(QStringLiteral("data"));
    MakeDir(g_programDir);
    MakeDir(g_dataHome);
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
