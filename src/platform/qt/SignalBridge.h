#pragma once
// Turns SIGTERM, SIGINT and SIGHUP into a call on the event loop, so that ending the program from
// outside (log-out, kill, Ctrl+C) runs the same unload as "E&xit" and nothing is lost.

#include <functional>

namespace pd {

// Installs the handlers; `onSignal` runs on the event loop, once per signal received.
void InstallTerminationHandler(std::function<void()> onSignal);

} // namespace pd
