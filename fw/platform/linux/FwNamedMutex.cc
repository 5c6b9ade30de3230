// A mutex is a lock of flock on an empty file. The system lets go of it when the last descriptor
// is closed, so when its holder dies; each object opens the file anew, so threads exclude each
// other as processes do. There is no state in the file that could be left damaged.
#include "FwNamedMutex.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <ctime>

namespace lumnis {

namespace {

constexpr mode_t theLockMode = 0666;
constexpr long theFirstPause = 50'000;  // nanoseconds
constexpr long theLongestPause = 5'000'000;
constexpr long thePatience = 1'000'000'000;  // in all

// Set when a wait has been in vain: a holder that does not let go is waited for once, not at
// every line.
std::atomic<bool> isStuck{false};

// Shared memory is there for all users of a system and is seen by no one else; not every system
// has mounted it.
const char* lockFolder() {
    struct stat status {};
    return ::stat("/dev/shm", &status) == 0 && S_ISDIR(status.st_mode) ? "/dev/shm" : "/tmp";
}

// Made readable for all, whatever the umask: a lock needs no more than that.
int openLockFile(const char* thePath) {
    constexpr int theFlags = O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
    // First without O_CREAT: in a folder for all, some systems forbid it for files of others.
    int handle = ::open(thePath, theFlags);
    if (handle < 0 && errno == ENOENT) {
        handle = ::open(thePath, theFlags | O_CREAT | O_EXCL, theLockMode);
        if (handle >= 0) {
            ::fchmod(handle, theLockMode);
        } else if (errno == EEXIST) {
            handle = ::open(thePath, theFlags);
        }
    }
    return handle;
}

bool isStillThere(int theHandle, const char* thePath) {
    struct stat opened {};
    struct stat named {};
    return ::fstat(theHandle, &opened) == 0 && ::lstat(thePath, &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

// A locked descriptor of the file of that name, or -1. isBusy tells whether the lock is held by
// someone else.
int tryLock(const char* thePath, bool& isBusy) {
    isBusy = false;
    // Once more when somebody tidied the file away between opening and locking.
    for (int attempt = 0; attempt < 4; ++attempt) {
        const int handle = openLockFile(thePath);
        if (handle < 0) {
            return -1;
        }
        if (::flock(handle, LOCK_EX | LOCK_NB) != 0) {
            isBusy = errno == EWOULDBLOCK || errno == EINTR;
            ::close(handle);
            return -1;
        }
        if (isStillThere(handle, thePath)) {
            return handle;
        }
        ::close(handle);
    }
    return -1;
}

}  // namespace

FwNamedMutex::FwNamedMutex(const char* theName) noexcept : handleM(-1) {
    char path[128];
    std::snprintf(path, sizeof path, "%s/lumnisutil.%s", lockFolder(), theName);
    long waited = 0;
    long pause = theFirstPause;
    for (;;) {
        bool isBusy = false;
        handleM = tryLock(path, isBusy);
        if (!isBusy) {
            isStuck.store(false, std::memory_order_relaxed);
            return;
        }
        if (waited >= thePatience || isStuck.load(std::memory_order_relaxed)) {
            isStuck.store(true, std::memory_order_relaxed);
            return;
        }
        const timespec duration{0, pause};
        ::nanosleep(&duration, nullptr);
        waited += pause;
        pause = std::min(2 * pause, theLongestPause);
    }
}

FwNamedMutex::~FwNamedMutex() {
    if (handleM >= 0) {
        // Not left to close: a child made in the meantime may hold the descriptor, too.
        ::flock(handleM, LOCK_UN);
        ::close(handleM);
    }
}

}  // namespace lumnis
