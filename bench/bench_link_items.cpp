// Shortcut items: building the hover text (the file is asked for its size at every pointer move) over
// 10,000 file shortcuts of real files, and the size text alone.

#include "app/workspace/Workspace.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr int kShortcuts = 10000;

struct Made {
    QTemporaryDir files;
    pd::test::TestWorkspace t;
    Made() {
        t.start();
        pd::Workspace& ws = *t.ws;
        // A hundred real files of different sizes; each is the target of a hundred shortcuts.
        for (int f = 0; f < 100; ++f) {
            QFile file(QDir(files.path()).filePath(QStringLiteral("file %1.bin").arg(f)));
            if (file.open(QIODevice::WriteOnly)) file.write(QByteArray(f * 97, 'x'));
        }
        for (int k = 0; k < kShortcuts; ++k)
            pd::AddShortcut(ws, QDir(files.path()).filePath(QStringLiteral("file %1.bin").arg(k % 100)), ws.picBack(0));
    }
};

Made& Shared() {
    static auto made = std::make_unique<Made>();
    return *made;
}

void BM_HoverTextOfEveryShortcut(benchmark::State& state) {
    pd::Workspace& ws = *Shared().t.ws;
    for (auto _ : state) {
        for (int n = 0; n < kShortcuts; ++n) benchmark::DoNotOptimize(pd::LinkHoverText(ws, n));
    }
    state.SetItemsProcessed(state.iterations() * kShortcuts);
}
BENCHMARK(BM_HoverTextOfEveryShortcut)->Unit(benchmark::kMillisecond);

// One pointer move over a shortcut: tooltip, underline and pointer, with 10,000 shortcuts to clear.
void BM_OneHoverMove(benchmark::State& state) {
    pd::Workspace& ws = *Shared().t.ws;
    int n = 0;
    for (auto _ : state) {
        pd::Link_Hover(ws, 0, n);
        n = (n + 1) % kShortcuts;
    }
}
BENCHMARK(BM_OneHoverMove)->Unit(benchmark::kMicrosecond);

void BM_FormatFileSize(benchmark::State& state) {
    long long size = 1;
    for (auto _ : state) {
        benchmark::DoNotOptimize(pd::FormatFileSize(size));
        size = size * 7 % 1000000007LL;
    }
}
BENCHMARK(BM_FormatFileSize);

} // namespace

BENCHMARK_MAIN();
