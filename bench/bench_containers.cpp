// How long containers take to make, to save and to load with 1,000 of them: a quarter of them notes,
// every tenth with two web shortcuts. The save that matters most is the one after a small change (a
// container renamed), which every command makes: it should rewrite that one container's file and no
// other, and take well under 10 ms. The benchmark counts the container files each save really
// replaced, by their inode numbers (an atomic replace gives the file a new inode).

#include "app/MainWindow.h"
#include "app/WorkspaceFile.h"
#include "app/files/TextFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <benchmark/benchmark.h>

#include <sys/stat.h>

#include <map>
#include <memory>

namespace {

constexpr int kContainers = 1000;

// Fills a started workspace with the containers through the menu command, each named as Enter would
// leave it but without the save that the rename's end makes (that save is measured on its own).
void MakeContainers(pd::Workspace& ws) {
    for (int i = 0; i < kContainers; ++i) {
        pd::mnuNew_Click(ws);
        const int n = ws.ContainerCount - 1;
        ws.lblName(n).Caption = QStringLiteral("Container %1").arg(i);
        ws.groupName(n).Visible = false;
        ws.Group(n).Move(100 + (i % 20) * 1400, 600 + (i / 20) * 400);
        pd::NoteContainerGeometry(ws, n);
        if (i % 4 == 1) {
            ws.txtNote(n).Visible = true;
            ws.txtNote(n).Text = QStringLiteral("Note of container %1\r\nsecond line\r\nthird line").arg(i);
        }
        if (i % 10 == 2) {
            for (int k = 0; k < 2; ++k) {
                pd::AddURL(ws, QStringLiteral("https://www.example.org/%1/%2.html").arg(i).arg(k),
                           QStringLiteral("Page %1.%2").arg(i).arg(k), ws.grpBorder(n));
                ws.Link(ws.LinkCount - 1).Move(120, 400 + 300 * k);
            }
        }
    }
    ws.IsLoading = false;
}

// A workspace of 1,000 containers whose files are on disk after a clean save.
struct Made {
    pd::test::TestWorkspace t;
    Made() {
        t.start();
        MakeContainers(*t.ws);
        pd::SaveDesktop(*t.ws, false, false);
    }
    QString containersDir() const { return t.dataFile(QStringLiteral("Containers")); }
};

// The inode of every container file by name.
std::map<QString, ino_t> Inodes(const QString& dir) {
    std::map<QString, ino_t> out;
    for (const QString& name : QDir(dir).entryList({QStringLiteral("*.con")}, QDir::Files)) {
        struct stat st {};
        if (::stat(QFile::encodeName(QDir(dir).filePath(name)).constData(), &st) == 0) out[name] = st.st_ino;
    }
    return out;
}

int Replaced(const std::map<QString, ino_t>& before, const std::map<QString, ino_t>& after) {
    int n = 0;
    for (const auto& [name, ino] : after) {
        auto it = before.find(name);
        if (it == before.end() || it->second != ino) ++n;
    }
    return n;
}

// 1,000 containers through "&Container" on a fresh workspace.
void BM_Create_mnuNew(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto t = std::make_unique<pd::test::TestWorkspace>();
        t->start();
        state.ResumeTiming();
        for (int i = 0; i < kContainers; ++i)
            pd::mnuNew_Click(*t->ws);
        state.PauseTiming();
        if (t->ws->ContainerCount != kContainers) state.SkipWithError("not every container was made");
        t.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kContainers);
}

// The same with NewGroup alone: the members and the record, no colours, icon or rename field.
void BM_Create_NewGroup(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto t = std::make_unique<pd::test::TestWorkspace>();
        t->start();
        state.ResumeTiming();
        for (int i = 0; i < kContainers; ++i)
            pd::NewGroup(*t->ws, -1);
        state.PauseTiming();
        if (t->ws->ContainerCount != kContainers) state.SkipWithError("not every container was made");
        t.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kContainers);
}

Made& SaveFixture() {
    static Made m;
    return m;
}

// The recovery save after one container was renamed. Reports how many container files it replaced.
void BM_Save_OneRenamed(benchmark::State& state) {
    Made& m = SaveFixture();
    pd::Workspace& ws = *m.t.ws;
    const QString dir = m.containersDir();
    const int target = kContainers / 2;
    int64_t replaced = 0;
    int64_t round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        ws.lblName(target).Caption = QStringLiteral("Renamed %1").arg(round++ % 2 == 0 ? "A" : "B");
        const auto before = Inodes(dir);
        state.ResumeTiming();
        pd::SaveDesktop(ws, true, false);
        state.PauseTiming();
        const auto after = Inodes(dir);
        if (static_cast<int>(after.size()) != kContainers)
            state.SkipWithError("the save lost container files");
        replaced += Replaced(before, after);
        state.ResumeTiming();
    }
    state.counters["containers"] = kContainers;
    state.counters["files_replaced"] =
        benchmark::Counter(static_cast<double>(replaced), benchmark::Counter::kAvgIterations);
}

// A recovery save with nothing changed: what every save costs before it writes anything.
void BM_Save_NothingChanged(benchmark::State& state) {
    Made& m = SaveFixture();
    pd::Workspace& ws = *m.t.ws;
    const QString dir = m.containersDir();
    pd::SaveDesktop(ws, true, false);
    int64_t replaced = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const auto before = Inodes(dir);
        state.ResumeTiming();
        pd::SaveDesktop(ws, true, false);
        state.PauseTiming();
        replaced += Replaced(before, Inodes(dir));
        state.ResumeTiming();
    }
    state.counters["files_replaced"] =
        benchmark::Counter(static_cast<double>(replaced), benchmark::Counter::kAvgIterations);
}

// The parts of a save, to tell where its time goes: the workspace file made in memory; one small file
// replaced atomically, flushed to the disk (every save writes at least the workspace or recovery file);
// the listing of the container files; a size asked of each of them.
void BM_Save_WorkspaceFileBytes(benchmark::State& state) {
    Made& m = SaveFixture();
    for (auto _ : state) {
        const QByteArray b = pd::WorkspaceFileBytes(*m.t.ws, false);
        benchmark::DoNotOptimize(b.constData());
    }
}

void BM_Save_OneFileAtomically(benchmark::State& state) {
    Made& m = SaveFixture();
    const QString path = m.t.dataFile(QStringLiteral("bench-one-file.txt"));
    const QByteArray bytes(300, 'x');
    for (auto _ : state)
        if (!pd::WriteFileAtomically(path, bytes)) state.SkipWithError("the file could not be written");
    QFile::remove(path);
}

// Listing the container files, as the save does at its end to find files no longer needed.
void BM_Save_ListContainerFiles(benchmark::State& state) {
    Made& m = SaveFixture();
    const QDir dir(m.containersDir());
    for (auto _ : state) {
        const QStringList names = dir.entryList({QStringLiteral("*.con")}, QDir::Files);
        if (names.size() != kContainers) state.SkipWithError("not every container file is there");
    }
}

// Asking each container file for its size, as the save does before it trusts the bytes it knows.
void BM_Save_SizeOfEachContainerFile(benchmark::State& state) {
    Made& m = SaveFixture();
    const QDir dir(m.containersDir());
    for (auto _ : state) {
        qint64 total = 0;
        for (int i = 0; i < kContainers; ++i)
            total += QFileInfo(dir.filePath(QString::number(i) + QStringLiteral(".con"))).size();
        benchmark::DoNotOptimize(total);
    }
}

// LoadSettings on a fresh workspace over a data folder of 1,000 container files.
void BM_Load_LoadSettings(benchmark::State& state) {
    static Made m; // a folder of its own, which the save benchmarks do not touch
    int count = 0;
    for (auto _ : state) {
        state.PauseTiming();
        m.t.restart();
        state.ResumeTiming();
        m.t.start();
        state.PauseTiming();
        count = m.t.ws->ContainerCount;
        state.ResumeTiming();
    }
    if (count != kContainers) state.SkipWithError("the load did not make every container");
    state.SetItemsProcessed(state.iterations() * kContainers);
}

BENCHMARK(BM_Create_mnuNew)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Create_NewGroup)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Save_OneRenamed)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Save_NothingChanged)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Save_WorkspaceFileBytes)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Save_OneFileAtomically)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Save_ListContainerFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Save_SizeOfEachContainerFile)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Load_LoadSettings)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
