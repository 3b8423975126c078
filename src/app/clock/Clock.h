#pragma once
// Named timers on a clock. The program's clock runs on Qt's event loop; the tests' clock is advanced by
// hand, so every timed behaviour (slides, hold-offs, reminders) can be tested without waiting. "Now" is
// always the clock's.

#include <QDateTime>
#include <QString>

#include <functional>

namespace pd {

class Clock;

class Timer {
public:
    Timer(Clock& clock, QString name, int intervalMs);
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    const QString& name() const { return name_; }
    int Interval() const { return interval_; }
    bool Enabled() const { return enabled_; }
    void setInterval(int ms);
    // Enabling a running timer leaves its schedule alone; disabling and enabling restarts the interval.
    void setEnabled(bool on);

    std::function<void()> onTimer;
    void fire() {
        if (onTimer) onTimer();
    }

private:
    Clock& clock_;
    QString name_;
    int interval_;
    bool enabled_ = false;
};

class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;
    // Milliseconds since an arbitrary start; only differences mean something.
    virtual qint64 ticks() const = 0;

protected:
    friend class Timer;
    virtual void timerAdded(Timer& t) = 0;
    virtual void timerRemoved(Timer& t) = 0;
    // Called when a timer is enabled, disabled or given a new interval.
    virtual void timerChanged(Timer& t) = 0;
};

} // namespace pd
