#include "platform/qt/SignalBridge.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace pd {

namespace {
int g_pipe[2] = {-1, -1};

void OnSignal(int) {
    // Only async-signal-safe work here: one byte into the pipe wakes the event loop.
    const char b = 1;
    [[maybe_unused]] ssize_t n = ::write(g_pipe[0], &b, 1);
}
} // namespace

void InstallTerminationHandler(std::function<void()> onSignal) {
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, g_pipe) != 0) return;
    // Owned by the application, so that it goes with it.
    auto* notifier = new QSocketNotifier(g_pipe[1], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, [onSignal = std::move(onSignal)] {
        char b;
        [[maybe_unused]] ssize_t n = ::read(g_pipe[1], &b, 1);
        onSignal();
    });
    struct sigaction sa {};
    sa.sa_handler = OnSignal;
    sigemptyset(&sa.sa_mask);
    sa.sa_flags = SA_RESTART;
    for (int sig : {SIGTERM, SIGINT, SIGHUP}) sigaction(sig, &sa, nullptr);
}

} // namespace pd
