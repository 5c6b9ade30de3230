#include "FwLogFile.h"

#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <ctime>

namespace lumnis {

namespace {

constexpr int theFirstOrdinaryHandle = STDERR_FILENO + 1;

// The signals that a write can raise in the writing thread.
sigset_t writeSignals() {
    sigset_t result;
    sigemptyset(&result);
    sigaddset(&result, SIGPIPE);
    sigaddset(&result, SIGXFSZ);
    return result;
}

// Keeps the signals of a write from the host, which did not write.
class WriteSignalGuard {
  public:
    WriteSignalGuard() {
        const sigset_t signals = writeSignals();
        sigset_t pending;
        sigpending(&pending);
        hadPipeM = sigismember(&pending, SIGPIPE) == 1;
        hadSizeM = sigismember(&pending, SIGXFSZ) == 1;
        pthread_sigmask(SIG_BLOCK, &signals, &previousM);
    }
    WriteSignalGuard(const WriteSignalGuard&) = delete;
    WriteSignalGuard& operator=(const WriteSignalGuard&) = delete;
    ~WriteSignalGuard() {
        discard(SIGPIPE, hadPipeM);
        discard(SIGXFSZ, hadSizeM);
        pthread_sigmask(SIG_SETMASK, &previousM, nullptr);
    }

  private:
    static void discard(int theSignal, bool wasPending) {
        sigset_t pending;
        sigpending(&pending);
        if (!wasPending && sigismember(&pending, theSignal) == 1) {
            sigset_t one;
            sigemptyset(&one);
            sigaddset(&one, theSignal);
            const timespec now{0, 0};
            sigtimedwait(&one, nullptr, &now);
        }
    }

    sigset_t previousM;
    bool hadPipeM;
    bool hadSizeM;
};

// The bytes that got out.
std::size_t writeAll(int theHandle, std::string_view theLine) {
    const WriteSignalGuard guard;
    const std::size_t size = theLine.size();
    while (!theLine.empty()) {
        const ssize_t written = ::write(theHandle, theLine.data(), theLine.size());
        if (written > 0) {
            theLine.remove_prefix(static_cast<std::size_t>(written));
        } else if (written == 0 || errno != EINTR) {
            break;
        }
    }
    return size - theLine.size();
}

}  // namespace

FwLogFile::~FwLogFile() {
    if (handleM >= 0) {
        ::close(handleM);
    }
}

void FwLogFile::open(const char* thePath) noexcept {
    // O_NONBLOCK: a pipe of that name that nobody reads must not hold the host up.
    int handle =
        ::open(thePath, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666);
    if (handle >= 0 && handle < theFirstOrdinaryHandle) {
        // The host closed one of its standard streams; this is not the file it writes to then.
        const int ordinary = ::fcntl(handle, F_DUPFD_CLOEXEC, theFirstOrdinaryHandle);
        ::close(handle);
        handle = ordinary;
    }
    struct stat status {};
    if (handle >= 0 && ::fstat(handle, &status) == 0) {
        deviceM = status.st_dev;
        fileM = status.st_ino;
    }
    handleM = handle;
}

void FwLogFile::write(std::string_view theLine) noexcept {
    struct stat status {};
    if (handleM < 0 || ::fstat(handleM, &status) != 0 || status.st_dev != deviceM ||
        status.st_ino != fileM) {
        return;
    }
    if (isTornM.load(std::memory_order_relaxed) && writeAll(handleM, "\n") == 0) {
        return;
    }
    const std::size_t written = writeAll(handleM, theLine);
    isTornM.store(written != 0 && written != theLine.size(), std::memory_order_relaxed);
}

void FwLogFile::writeStandardError(std::string_view theLine) noexcept {
    writeAll(STDERR_FILENO, theLine);
}

}  // namespace lumnis
