// Refresh All of 50 feed containers against a loopback feed server that waits 200 ms before each
// answer (tests/e2e/feed_server.py), through the real HTTP client and Qt's event loop: the time until
// the last feed is shown, and the longest stall of the event loop meanwhile (a 5 ms timer notes the
// gaps between its ticks). Build in Release and run `bench/bench_feeds_refresh` from the build folder.

#include "app/MainWindow.h"
#include "app/WorkspaceFile.h"
#include "app/clock/QtClock.h"
#include "app/workspace/Workspace.h"
#include "feeds/FeedContainers.h"
#include "feeds/FeedsState.h"
#include "platform/qt/QtPlatform.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>

using namespace pd;

namespace {

constexpr int kFeeds = 50;
constexpr int kLatencyMs = 200;

struct Setup {
    QTemporaryDir home;
    QProcess server;
    int port = 0;
    std::unique_ptr<QtPlatform> platform;
    std::unique_ptr<QtClock> clock;
    std::unique_ptr<Workspace> ws;

    bool start() {
        qputenv("XDG_DATA_HOME", home.path().toUtf8());
        const QString portFile = home.filePath(QStringLiteral("port"));
        server.start(QStringLiteral("python3"),
                     {QStringLiteral(PERCHDOCK_FEED_SERVER), QStringLiteral("--port-file"), portFile,
                      QStringLiteral("--latency"), QString::number(kLatencyMs)});
        for (int k = 0; k < 100 && !QFile::exists(portFile); ++k)
            QThread::msleep(50);
        QFile f(portFile);
        if (!f.open(QIODevice::ReadOnly)) return false;
        port = f.readAll().trimmed().toInt();
        platform = std::make_unique<QtPlatform>();
        clock = std::make_unique<QtClock>();
        ws = std::make_unique<Workspace>(*platform, *clock);
        WireCoreCommands(*ws);
        MainWindowLoad(*ws);
        LoadSettings(*ws);
        // Made as the load makes them: the waiting line, nothing fetched yet.
        ws->IsLoading = true;
        for (int k = 0; k < kFeeds; ++k) {
            QString url = QStringLiteral("http://127.0.0.1:%1/feed/%2.xml").arg(port).arg(k);
            AddRSS(*ws, url, -1);
        }
        ws->IsLoading = false;
        return true;
    }
    ~Setup() {
        ws.reset();
        server.kill();
        server.waitForFinished(2000);
    }
};

Setup* g_setup = nullptr;

void BM_RefreshAll50Feeds(benchmark::State& state) {
    Workspace& ws = *g_setup->ws;
    FeedsState& f = Feeds(ws);
    double longest = 0;
    for (auto _ : state) {
        QEventLoop loop;
        QElapsedTimer gap;
        qint64 worst = 0;
        QTimer tick;
        QObject::connect(&tick, &QTimer::timeout, [&] { worst = std::max(worst, gap.restart()); });
        f.onRefreshAllDone = [&loop] { loop.quit(); };
        QElapsedTimer total;
        total.start();
        gap.start();
        tick.start(5);
        mnuRSSRefreshAll_Click(ws);
        if (f.RefreshAll.Running) loop.exec();
        state.SetIterationTime(static_cast<double>(total.nsecsElapsed()) / 1e9);
        worst = std::max(worst, gap.elapsed());
        longest = std::max(longest, static_cast<double>(worst));
        f.onRefreshAllDone = nullptr;
        int shown = 0;
        for (int i = 0; i < ws.ContainerCount; ++i)
            if (ws.Containers[i].IsFeed && f.Reader(ws.Containers[i].FeedIndex).Count() == 20) ++shown;
        if (shown != kFeeds) state.SkipWithError("not every feed was shown");
        // Let the favicon requests of this round end before the next.
        QEventLoop settle;
        QTimer::singleShot(1500, &settle, &QEventLoop::quit);
        settle.exec();
    }
    state.counters["longest_stall_ms"] = longest;
    state.counters["feeds"] = kFeeds;
}
BENCHMARK(BM_RefreshAll50Feeds)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    Setup setup;
    if (!setup.start()) return 1;
    g_setup = &setup;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    g_setup = nullptr;
    return 0;
}
