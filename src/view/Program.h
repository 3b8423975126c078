#pragma once
// The whole program: the start (its tests, the splash, the load), the windows and the way out.

namespace pd {

// Runs the program with its command line; returns the process's exit code.
int RunProgram(int argc, char** argv);

} // namespace pd
