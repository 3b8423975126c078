/* A full disk for one program, for the end-to-end tests where no small file system can be mounted.
 * Loaded with LD_PRELOAD, it stands between the program and write(), fsync() and fdatasync() for files
 * below the folder PERCHDOCK_ENOSPC_DIR. The file PERCHDOCK_ENOSPC_CONTROL says how much room there is,
 * and is read again at every such write:
 *   "free"              no limit;
 *   "full <n> <token>"  from now on <n> more bytes fit; a write past them is cut short there, and the
 *                       next one fails with ENOSPC, as does every flush; a new token starts a new count.
 * Anything else (or no file) means no limit. Other files, pipes and sockets pass untouched. */
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

pthread_mutex_t lock = PTHREAD_MUTEX_INITIALIZER;
long long allowed = -1; /* bytes that fit since the token was first seen; -1: no limit */
long long used;
int refused; /* a write was refused since the token was first seen */
char token[64];

using WriteCall = ssize_t (*)(int, const void*, size_t);
using SyncCall = int (*)(int);
WriteCall next_write;
SyncCall next_fsync;
SyncCall next_fdatasync;

void find_next() {
    if (!next_write) next_write = reinterpret_cast<WriteCall>(dlsym(RTLD_NEXT, "write"));
    if (!next_fsync) next_fsync = reinterpret_cast<SyncCall>(dlsym(RTLD_NEXT, "fsync"));
    if (!next_fdatasync) next_fdatasync = reinterpret_cast<SyncCall>(dlsym(RTLD_NEXT, "fdatasync"));
}

/* Whether fd is a file below the folder. */
int below_folder(int fd) {
    const char* dir = getenv("PERCHDOCK_ENOSPC_DIR");
    char link[64], path[4096];
    size_t len;
    ssize_t n;
    if (!dir || !*dir) return 0;
    snprintf(link, sizeof link, "/proc/self/fd/%d", fd);
    n = readlink(link, path, sizeof path - 1);
    if (n <= 0) return 0;
    path[n] = 0;
    len = strlen(dir);
    while (len > 1 && dir[len - 1] == '/') --len;
    return strncmp(path, dir, len) == 0 && path[len] == '/';
}

/* Reads the control file; called with the lock held. */
void read_control() {
    const char* file = getenv("PERCHDOCK_ENOSPC_CONTROL");
    char text[160], tok[64];
    long long n;
    ssize_t got;
    int fd;
    if (!file) return;
    fd = open(file, O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        allowed = -1;
        return;
    }
    got = read(fd, text, sizeof text - 1);
    close(fd);
    if (got < 0) got = 0;
    text[got] = 0;
    if (sscanf(text, "full %lld %63s", &n, tok) == 2) {
        if (strcmp(tok, token) != 0) {
            strcpy(token, tok);
            allowed = n;
            used = 0;
            refused = 0;
        }
    } else {
        allowed = -1;
        token[0] = 0;
    }
}

int sync_refused(int fd) {
    int full;
    if (!below_folder(fd)) return 0;
    pthread_mutex_lock(&lock);
    read_control();
    full = allowed >= 0 && refused;
    pthread_mutex_unlock(&lock);
    return full;
}

} // namespace

extern "C" ssize_t write(int fd, const void* data, size_t size) noexcept {
    ssize_t r;
    size_t take = size;
    find_next();
    if (!below_folder(fd)) return next_write(fd, data, size);
    pthread_mutex_lock(&lock);
    read_control();
    if (allowed >= 0) {
        if (used >= allowed) {
            refused = 1;
            pthread_mutex_unlock(&lock);
            errno = ENOSPC;
            return -1;
        }
        if (static_cast<long long>(take) > allowed - used) take = static_cast<size_t>(allowed - used);
    }
    r = next_write(fd, data, take);
    if (r > 0) used += r;
    pthread_mutex_unlock(&lock);
    return r;
}

extern "C" int fsync(int fd) {
    find_next();
    if (sync_refused(fd)) {
        errno = ENOSPC;
        return -1;
    }
    return next_fsync(fd);
}

extern "C" int fdatasync(int fd) {
    find_next();
    if (sync_refused(fd)) {
        errno = ENOSPC;
        return -1;
    }
    return next_fdatasync(fd);
}
