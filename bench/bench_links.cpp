// Shortcut layout with 10,000 shortcuts: RefreshLinks (F5, and the end of a load) places and draws every
// icon, and one pointer move of a drag, which walks the icons of the owner for the swap guides but never
// redraws an icon. 100 containers hold 50 shortcuts each; 5,000 more stand on the background.

#include "app/workspace/Workspace.h"
#include "shortcuts/LinkDrag.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr int kContainers = 100;
constexpr int kInEach = 50;
constexpr int kOnBackground = 5000;

struct Made {
    pd::test::TestWorkspace t;
    Made() {
        t.start();
        pd::Workspace& ws = *t.ws;
        for (int c = 0; c < kContainers; ++c) {
            const int g = t.newContainerAt(100 + static_cast<float>(c % 10) * 3100, 600 + static_cast<float>(c / 10) * 3100);
            for (int k = 0; k < kInEach; ++k) {
                pd::AddShortcut(ws, QStringLiteral("/data/c%1/file %2.txt").arg(c).arg(k), ws.grpBorder(g));
                ws.Link(ws.LinkCount - 1).Move(400 + static_cast<float>(k / 10) * 500, 300 + static_cast<float>(k % 10) * 260);
            }
        }
        for (int k = 0; k < kOnBackground; ++k) {
            pd::AddShortcut(ws, QStringLiteral("/data/background/item %1.txt").arg(k), ws.picBack(0));
            ws.Link(ws.LinkCount - 1).Move(static_cast<float>(k % 50) * 600, 40000 + static_cast<float>(k / 50) * 300);
        }
        // Every other one in a larger font, so that both icon sizes are drawn.
        for (int n = 0; n < ws.LinkCount; n += 2) ws.Link(n).FontSize = 12;
        ws.IsLoading = false;
    }
};

Made& Shared() {
    static auto made = std::make_unique<Made>();
    return *made;
}

void BM_RefreshLinks(benchmark::State& state) {
    pd::Workspace& ws = *Shared().t.ws;
    for (auto _ : state) {
        pd::RefreshLinks(ws);
        benchmark::DoNotOptimize(ws.PicIcon(ws.IconCount - 1).Left.get());
    }
    state.counters["shortcuts"] = ws.LinkCount;
    state.SetItemsProcessed(state.iterations() * ws.LinkCount);
}
BENCHMARK(BM_RefreshLinks)->Unit(benchmark::kMillisecond);

// One pointer move of a drag of a background shortcut among 5,000 others on the background.
void BM_DragMoveOnBackground(benchmark::State& state) {
    pd::Workspace& ws = *Shared().t.ws;
    const int n = ws.LinkCount - 1;
    ws.MouseDownX = 0;
    ws.MouseDownY = 0;
    float step = 15;
    for (auto _ : state) {
        pd::LinkDragMove(ws, 0, n, step, 0);
        step = -step; // back and forth, so that the label stays where it was
    }
    pd::EndLinkDrag(ws, 0, n);
}
BENCHMARK(BM_DragMoveOnBackground)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
