// The restart helper: waits until the process that started it has ended, then starts the program
// again. Usage: Reloader <pid> <program>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <unistd.h>

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: %s <pid> <program>\n", argv[0]);
        return 2;
    }
    const pid_t pid = static_cast<pid_t>(std::atol(argv[1]));
    // Poll for the old process for up to a minute; kill(pid, 0) fails with ESRCH once it has gone.
    for (int i = 0; i < 600 && pid > 0; ++i) {
        if (kill(pid, 0) != 0 && errno == ESRCH) break;
        const timespec tenth{0, 100 * 1000 * 1000};
        nanosleep(&tenth, nullptr);
    }
    execl(argv[2], argv[2], static_cast<char*>(nullptr));
    std::perror("Reloader");
    return 1;
}
