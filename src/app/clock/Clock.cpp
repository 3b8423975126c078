#include "app/clock/Clock.h"

namespace pd {

Timer::Timer(Clock& clock, QString name, int intervalMs)
    : clock_(clock), name_(std::move(name)), interval_(intervalMs) {
    clock_.timerAdded(*this);
}

Timer::~Timer() { clock_.timerRemoved(*this); }

void Timer::setInterval(int ms) {
    if (interval_ == ms) return;
    interval_ = ms;
    clock_.timerChanged(*this);
}

void Timer::setEnabled(bool on) {
    if (enabled_ == on) return;
    enabled_ = on;
    clock_.timerChanged(*this);
}

} // namespace pd
