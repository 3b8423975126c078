// A measured run of the slide: a window as wide as a 1920-pixel screen slides off its left edge on
// Qt's own timers, with the real window and its workspace drawn. The test asserts the frames the slide
// makes and where it ends; the timing of the frames (the gap between them and the cost of each) is
// printed, not asserted: speed goals belong to the benchmarks.

#include "app/MainWindow.h"
#include "app/clock/QtClock.h"
#include "app/workspace/Workspace.h"
#include "support/FakePlatform.h"
#include "view/ElementView.h"
#include "view/MainView.h"
#include "window/Docking.h"
#include "window/ResizeForm.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <vector>

using namespace pd;
using namespace pd::test;

namespace {

TEST(SlideFrames, ASlideAcrossA1920PixelScreen) {
    FakePlatform platform;
    platform.cursor = QPoint(5000, 5000);
    QtClock clock;
    Workspace ws(platform, clock);
    MainWindowLoad(ws);
    WireDocking(ws);
    TopWindow main(ws, ws.frmMain(0), Qt::FramelessWindowHint | Qt::Tool);
    ElementView view(ws, {{&ws.frmMain(0), main.canvas()}});
    std::vector<qint64> frameAt;
    std::vector<qint64> frameCost;
    QElapsedTimer since;
    since.start();
    view.onWindowChanged = [&](Element& e, Prop p) {
        if (&e != &ws.frmMain(0)) return;
        QElapsedTimer cost;
        cost.start();
        main.apply(p);
        if (p == Prop::Left && ws.TimerSlide.Enabled()) {
            // Each step is drawn before the next one: the frame's cost includes the repaint.
            main.repaint();
            frameCost.push_back(cost.nsecsElapsed());
            frameAt.push_back(since.nsecsElapsed());
        }
    };
    view.attach();
    Element& win = ws.frmMain(0);
    win.Move(-100, 1500, 1920 * 15.0f, 600 * 15.0f);
    ResizeForm(ws, true);
    win.Visible = true;
    main.applyAll();
    QCoreApplication::processEvents();

    ASSERT_TRUE(DockMe(ws, true));
    ASSERT_TRUE(ws.TimerSlide.Enabled());
    QEventLoop loop;
    QTimer poll;
    poll.setInterval(1);
    QObject::connect(&poll, &QTimer::timeout, [&] {
        if (!ws.TimerSlide.Enabled()) loop.quit();
    });
    poll.start();
    QTimer::singleShot(10000, &loop, &QEventLoop::quit);
    const qint64 start = since.nsecsElapsed();
    loop.exec();
    const qint64 end = since.nsecsElapsed();

    ASSERT_FALSE(ws.TimerSlide.Enabled());
    EXPECT_EQ(win.Left, 40 - win.Width);
    // From -100 in steps of 500 until no more than 100 twips are left: 58 ticks, the last of which also
    // puts the window at its docked place (59 moves).
    EXPECT_EQ(frameAt.size(), 59u);
    EXPECT_TRUE(main.clipped());
    EXPECT_EQ(win.BackColor, ws.DockingColor);

    std::vector<double> gaps;
    for (size_t i = 1; i < frameAt.size(); ++i)
        gaps.push_back(static_cast<double>(frameAt[i] - frameAt[i - 1]) / 1e6);
    const double meanGap =
        gaps.empty() ? 0 : std::accumulate(gaps.begin(), gaps.end(), 0.0) / static_cast<double>(gaps.size());
    const double maxGap = gaps.empty() ? 0 : *std::max_element(gaps.begin(), gaps.end());
    const double meanCost =
        static_cast<double>(std::accumulate(frameCost.begin(), frameCost.end(), qint64{0})) /
        static_cast<double>(std::max<size_t>(1, frameCost.size())) / 1e6;
    const double maxCost = static_cast<double>(*std::max_element(frameCost.begin(), frameCost.end())) / 1e6;
    std::printf("slide of a 1920-pixel window on %s: %zu frames in %.1f ms; gap between frames mean %.2f ms, "
                "max %.2f ms; cost of a frame mean %.2f ms, max %.2f ms\n",
                qPrintable(QGuiApplication::platformName()), frameAt.size(),
                static_cast<double>(end - start) / 1e6, meanGap, maxGap, meanCost, maxCost);
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
