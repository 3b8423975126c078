#pragma once
// The program's clock: each enabled Timer runs a QTimer on the event loop.

#include "app/clock/Clock.h"

#include <QElapsedTimer>

#include <map>
#include <memory>

class QTimer;

namespace pd {

class QtClock : public Clock {
public:
    QtClock();
    ~QtClock() override;
    QDateTime now() const override { return QDateTime::currentDateTime(); }
    qint64 ticks() const override { return elapsed_.elapsed(); }

protected:
    void timerAdded(Timer& t) override;
    void timerRemoved(Timer& t) override;
    void timerChanged(Timer& t) override;

private:
    QElapsedTimer elapsed_;
    std::map<Timer*, std::unique_ptr<QTimer>> timers_;
};

} // namespace pd
