#pragma once
// A clock advanced by hand: `advance(ms)` fires every due timer in time order, as the event loop would,
// so tests of slides, hold-offs and reminders run instantly and deterministically.

#include "app/clock/Clock.h"

#include <map>

namespace pd {

class ManualClock : public Clock {
public:
    explicit ManualClock(QDateTime start = QDateTime(QDate(2026, 1, 1), QTime(12, 0)));
    QDateTime now() const override { return start_.addMSecs(ticks_); }
    qint64 ticks() const override { return ticks_; }

    // Moves time on by `ms`, firing each timer whenever its interval has passed.
    void advance(qint64 ms);
    bool isEnabled(const QString& timerName) const;

protected:
    void timerAdded(Timer& t) override;
    void timerRemoved(Timer& t) override;
    void timerChanged(Timer& t) override;

private:
    QDateTime start_;
    qint64 ticks_ = 0;
    // Next due tick of each enabled timer.
    std::map<Timer*, qint64> due_;
    std::map<Timer*, bool> known_;
};

} // namespace pd
