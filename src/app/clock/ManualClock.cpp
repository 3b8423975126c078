#include "app/clock/ManualClock.h"

#include <algorithm>

namespace pd {

ManualClock::ManualClock(QDateTime start) : start_(std::move(start)) {}

void ManualClock::timerAdded(Timer& t) { known_[&t] = true; }

void ManualClock::timerRemoved(Timer& t) {
    known_.erase(&t);
    due_.erase(&t);
}

void ManualClock::timerChanged(Timer& t) {
    if (t.Enabled() && t.Interval() > 0) due_[&t] = ticks_ + t.Interval();
    else due_.erase(&t);
}

bool ManualClock::isEnabled(const QString& timerName) const {
    return std::any_of(known_.begin(), known_.end(),
                       [&](const auto& kv) { return kv.first->name() == timerName && kv.first->Enabled(); });
}

void ManualClock::advance(qint64 ms) {
    const qint64 end = ticks_ + ms;
    for (;;) {
        // The earliest due timer within the step.
        Timer* next = nullptr;
        qint64 when = end + 1;
        for (const auto& [t, d] : due_) {
            if (d < when) {
                when = d;
                next = t;
            }
        }
        if (!next) break;
        ticks_ = when;
        due_[next] = when + std::max(1, next->Interval());
        next->fire();
    }
    ticks_ = end;
}

} // namespace pd
