// How long the workspace file takes to load and to save with 10,000 shortcuts on the background, half
// web addresses and half files, all with tags. The file is made here: a workspace is filled through the
// adders and written by the program's own writer.

#include "app/MainWindow.h"
#include "app/Startup.h"
#include "app/WorkspaceFile.h"
#include "app/WorkspaceSettings.h"
#include "app/clock/ManualClock.h"
#include "app/files/TextFile.h"
#include "app/workspace/Workspace.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/Shortcuts.h"
#include "support/FakePlatform.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr int kLinks = 10000;

// A workspace on the fake platform and the hand clock, set up as the start does before the file is read.
struct Bench {
    pd::test::FakePlatform platform;
    pd::ManualClock clock;
    std::unique_ptr<pd::Workspace> ws;

    explicit Bench(const QString& dataHome) {
        platform.dataDir = dataHome;
        platform.programDir = dataHome;
        ws = std::make_unique<pd::Workspace>(platform, clock);
        pd::MainWindowLoad(*ws);
        ws->LinkFontSize = 10;
        ws->LargeIconSize = 32;
        ws->LinkFontName = QStringLiteral("Verdana");
        ws->ButtonSet = QStringLiteral("Plain White on Blue");
        pd::DetermineDataPath(*ws);
    }
};

// Fills a workspace with the shortcuts and returns the file it writes.
QByteArray MakeFile(const QString& dataHome) {
    Bench b(dataHome);
    pd::Workspace& ws = *b.ws;
    pd::Element& back = ws.picBack(0);
    for (int i = 0; i < kLinks; ++i) {
        const QString n = QString::number(i);
        if (i % 2 == 0) {
            pd::AddURL(ws, QStringLiteral("https://www.example.org/section/%1/page-%2.html").arg(i % 97).arg(i),
                       QStringLiteral("Example page ") + n, back);
        } else {
            pd::AddShortcut(ws, QStringLiteral("/home/user/Documents/Projects/%1/report-%2.odt").arg(i % 89).arg(i), back);
        }
        const int L = ws.LinkCount - 1;
        pd::LinkRecord& r = ws.Links[L];
        ws.Link(L).Move(600 + (i % 20) * 1500, 200 + (i / 20) * 300);
        r.Tags = i % 2 == 0 ? QStringLiteral("web,news,tag") + QString::number(i % 10)
                            : QStringLiteral("docs,work,project") + QString::number(i % 7);
        r.MarkTag = i % 3 == 0 ? QStringLiteral("work") : QString();
        r.LinkParam = i % 2 == 0 ? QString() : QStringLiteral("--view");
        r.LinkColor = i % 5 == 0 ? 0x00FF00 : -1;
        r.Bold = i % 7 == 0;
        pd::MoveLinkIcon(ws, L);
    }
    ws.IsLoading = false;
    return pd::WorkspaceFileBytes(ws, false);
}

// Shared by all benchmarks: the temporary folder, the file's bytes and its lines.
struct Fixture {
    QTemporaryDir dir;
    QByteArray bytes;
    QStringList lines;
    QString path;

    Fixture() {
        bytes = MakeFile(dir.path());
        lines = pd::SplitLines(pd::DecodeText(bytes));
        path = QDir(dir.path()).filePath(QStringLiteral("Perchdock.ini"));
        QFile f(path);
        if (f.open(QIODevice::WriteOnly)) f.write(bytes);
    }
    static Fixture& get() {
        static Fixture f;
        return f;
    }
};

void Report(benchmark::State& state, qsizetype bytes) {
    state.SetItemsProcessed(state.iterations() * kLinks);
    state.SetBytesProcessed(state.iterations() * bytes);
    state.counters["links"] = kLinks;
}

// The key loop over lines already decoded.
void BM_Load_ReadWorkspaceLines(benchmark::State& state) {
    Fixture& fx = Fixture::get();
    for (auto _ : state) {
        state.PauseTiming();
        auto b = std::make_unique<Bench>(fx.dir.path());
        state.ResumeTiming();
        pd::LoadState st;
        pd::ReadWorkspaceLines(*b->ws, fx.lines, st);
        state.PauseTiming();
        if (b->ws->LinkCount != kLinks) state.SkipWithError("the file did not load every shortcut");
        b.reset();
        state.ResumeTiming();
    }
    Report(state, fx.bytes.size());
}

// The whole read: the file from disk, decoded, split into lines, and the key loop.
void BM_Load_FromDisk(benchmark::State& state) {
    Fixture& fx = Fixture::get();
    for (auto _ : state) {
        state.PauseTiming();
        auto b = std::make_unique<Bench>(fx.dir.path());
        state.ResumeTiming();
        pd::LoadState st;
        pd::ReadWorkspaceLines(*b->ws, pd::ReadTextLines(fx.path).value_or(QStringList()), st);
        state.PauseTiming();
        if (b->ws->LinkCount != kLinks) state.SkipWithError("the file did not load every shortcut");
        b.reset();
        state.ResumeTiming();
    }
    Report(state, fx.bytes.size());
}

// Reading and decoding alone, for comparison.
void BM_Load_ReadTextLines(benchmark::State& state) {
    Fixture& fx = Fixture::get();
    for (auto _ : state) {
        auto lines = pd::ReadTextLines(fx.path);
        benchmark::DoNotOptimize(lines);
    }
    Report(state, fx.bytes.size());
}

// A loaded workspace for the save benchmarks, with its data in its own folder.
struct Loaded {
    QTemporaryDir dir;
    Bench b{dir.path()};
    explicit Loaded(const QStringList& lines) {
        pd::LoadState st;
        pd::ReadWorkspaceLines(*b.ws, lines, st);
        b.ws->IsLoading = false;
    }
};

// The bytes of the workspace file, made in memory.
void BM_Save_WorkspaceFileBytes(benchmark::State& state) {
    Fixture& fx = Fixture::get();
    Loaded l(fx.lines);
    if (l.b.ws->LinkCount != kLinks) state.SkipWithError("the file did not load every shortcut");
    qsizetype size = 0;
    for (auto _ : state) {
        const QByteArray out = pd::WorkspaceFileBytes(*l.b.ws, false);
        size = out.size();
        benchmark::DoNotOptimize(out.constData());
    }
    if (size != fx.bytes.size()) state.SkipWithError("the written file differs in size from the one read");
    Report(state, size);
}

// A whole clean save to a temporary folder: the file written beside, flushed to disk and renamed over.
void BM_Save_SaveDesktop(benchmark::State& state) {
    Fixture& fx = Fixture::get();
    Loaded l(fx.lines);
    pd::Workspace& ws = *l.b.ws;
    for (auto _ : state) pd::SaveDesktop(ws, false, false);
    if (QFile(ws.dataFile(QStringLiteral("Perchdock.ini"))).size() != fx.bytes.size())
        state.SkipWithError("the saved file differs in size from the one read");
    Report(state, fx.bytes.size());
}

BENCHMARK(BM_Load_ReadWorkspaceLines)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Load_FromDisk)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Load_ReadTextLines)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Save_WorkspaceFileBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Save_SaveDesktop)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
