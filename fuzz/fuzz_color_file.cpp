// Fuzz target for the reader of themes (.pkt) and colour schemes (.pkc): arbitrary bytes are written as a
// file in the data folder's Skin and read into the Display Properties dialog of a fresh workspace on the
// fake platform, as a click on a theme in the dialog's list does.

#include "app/MainWindow.h"
#include "app/Startup.h"
#include "app/clock/ManualClock.h"
#include "app/workspace/Workspace.h"
#include "support/FakePlatform.h"
#include "themes/ColorFile.h"

#include <QDir>
#include <QFile>
#include <QtGlobal>

#include <cstdint>

namespace {

QString g_programDir;
QString g_dataHome;

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    g_programDir = QDir::temp().filePath(QStringLiteral("perchdock-fuzz-colors"));
    g_dataHome = QDir(g_programDir).filePath(QStringLiteral("data"));
    QDir().mkpath(g_dataHome);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    pd::test::FakePlatform platform;
    platform.programDir = g_programDir;
    platform.dataDir = g_dataHome;
    pd::ManualClock clock;
    pd::Workspace ws(platform, clock);
    pd::MainWindowLoad(ws);
    pd::DetermineDataPath(ws);
    const QString skin = ws.dataFile(QStringLiteral("Skin"));
    QDir().mkpath(skin + QStringLiteral("/Wallpaper"));
    const QString path = skin + QStringLiteral("/fuzz.pkt");
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) return 0;
    f.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    f.close();
    pd::LoadColorFile(ws, path);
    return 0;
}
