// Type-to-find and the tags menu over 10,000 shortcuts: one keystroke in the search field (the text's
// change and the search of its key-up) for a term found by prefix near the end, one found only by
// containment, and one found nowhere; the list filled for the drop-down; BuildTagsMenu over 10,000
// tagged shortcuts. 100 containers hold 100 shortcuts each.

#include "app/workspace/Workspace.h"
#include "shortcuts/FindCommands.h"
#include "shortcuts/FindState.h"
#include "shortcuts/JumpTo.h"
#include "shortcuts/Shortcuts.h"
#include "shortcuts/Tags.h"
#include "support/TestWorkspace.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr int kContainers = 100;
constexpr int kInEach = 100;

struct Made {
    pd::test::TestWorkspace t;
    Made() {
        t.start();
        pd::Workspace& ws = *t.ws;
        pd::WireFindCommands(ws);
        for (int c = 0; c < kContainers; ++c) {
            const int g = t.newContainerAt(100 + static_cast<float>(c % 10) * 3100,
                                           600 + static_cast<float>(c / 10) * 3100);
            for (int k = 0; k < kInEach; ++k) {
                pd::AddShortcut(
                    ws, QStringLiteral("/data/c%1/Report %2-%3.txt").arg(c).arg(k).arg(c * kInEach + k),
                    ws.grpBorder(g));
                const int n = ws.LinkCount - 1;
                // Two hundred projects, thirty-seven teams and one tag that every shortcut shares.
                ws.Links[n].Tags = QStringLiteral("project%1, team%2, shared").arg(n % 200).arg(n % 37);
            }
        }
        ws.IsLoading = false;
        pd::OpenJumpTo(ws, QStringLiteral("r"));
    }
};

Made& Shared() {
    static auto made = std::make_unique<Made>();
    return *made;
}

// One keystroke: the field's text changes to `term`, then the key-up searches for it.
void Keystroke(benchmark::State& state, const QString& term) {
    pd::Workspace& ws = *Shared().t.ws;
    for (auto _ : state) {
        pd::cboSearch_Change(ws, term);
        pd::cboSearch_KeyUp(ws);
        benchmark::DoNotOptimize(ws.SelectedLink);
    }
    state.counters["shortcuts"] = ws.LinkCount;
}

// Found by prefix: the walk runs over all 10,000 labels in both directions of the test.
void BM_KeystrokePrefix(benchmark::State& state) {
    Keystroke(state, QStringLiteral("report 99-"));
}
BENCHMARK(BM_KeystrokePrefix)->Unit(benchmark::kMillisecond);

// Found only by containment: both passes run.
void BM_KeystrokeContains(benchmark::State& state) {
    Keystroke(state, QStringLiteral("-9999.t"));
}
BENCHMARK(BM_KeystrokeContains)->Unit(benchmark::kMillisecond);

// Found nowhere: both passes run and nothing is selected.
void BM_KeystrokeNoMatch(benchmark::State& state) {
    Keystroke(state, QStringLiteral("zzz"));
}
BENCHMARK(BM_KeystrokeNoMatch)->Unit(benchmark::kMillisecond);

// The drop-down's list for a term that 100 labels contain.
void BM_FillSearchList(benchmark::State& state) {
    pd::Workspace& ws = *Shared().t.ws;
    for (auto _ : state) {
        pd::cboSearch_Change(ws, QStringLiteral("  "));
        pd::cboSearch_Change(ws, QStringLiteral("report 42-"));
        pd::FillSearchList(ws);
        benchmark::DoNotOptimize(pd::Find(ws).cboSearchList.size());
    }
    state.counters["items"] = static_cast<double>(pd::Find(ws).cboSearchList.size());
}
BENCHMARK(BM_FillSearchList)->Unit(benchmark::kMillisecond);

void BM_BuildTagsMenu(benchmark::State& state) {
    pd::Workspace& ws = *Shared().t.ws;
    for (auto _ : state) {
        pd::BuildTagsMenu(ws);
        benchmark::DoNotOptimize(pd::Find(ws).TagsItemCount);
    }
    state.counters["tags"] = pd::Find(ws).TagsItemCount;
    state.counters["shortcuts"] = ws.LinkCount;
}
BENCHMARK(BM_BuildTagsMenu)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
