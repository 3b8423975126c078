#include "app/clock/QtClock.h"

#include <QTimer>

namespace pd {

QtClock::QtClock() { elapsed_.start(); }

QtClock::~QtClock() = default;

void QtClock::timerAdded(Timer& t) {
    auto q = std::make_unique<QTimer>();
    q->setTimerType(Qt::PreciseTimer);
    QObject::connect(q.get(), &QTimer::timeout, [&t] { t.fire(); });
    timers_[&t] = std::move(q);
}

void QtClock::timerRemoved(Timer& t) { timers_.erase(&t); }

void QtClock::timerChanged(Timer& t) {
    auto it = timers_.find(&t);
    if (it == timers_.end()) return;
    QTimer& q = *it->second;
    q.setInterval(t.Interval());
    if (!t.Enabled()) q.stop();
    else if (!q.isActive()) q.start();
}

} // namespace pd
