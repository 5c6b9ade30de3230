#include "CliOutput.h"

#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <climits>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <optional>
#include <utility>

#include "CliError.h"

namespace lumnis {

namespace {

namespace fs = std::filesystem;

constexpr std::array<int, 3> theEndingSignals = {SIGINT, SIGTERM, SIGHUP};

// What the signal handler removes. Only the main thread writes, and workers block the signals, so
// the handler never runs beside a change of these.
std::array<char, PATH_MAX> theTemporaryPath;
volatile std::sig_atomic_t theTemporaryExists = 0;

void removeTemporary(int theSignal) {
    if (theTemporaryExists != 0) {
        unlink(theTemporaryPath.data());
    }
    // The action is back at its default: the process ends as the signal wants it.
    raise(theSignal);
}

// Holds the ending signals back while the disk and theTemporaryExists disagree.
class SignalPause {
  public:
    SignalPause() {
        sigset_t signals;
        sigemptyset(&signals);
        for (const int signal : theEndingSignals) {
            sigaddset(&signals, signal);
        }
        pthread_sigmask(SIG_BLOCK, &signals, &oldM);
    }
    SignalPause(const SignalPause&) = delete;
    SignalPause& operator=(const SignalPause&) = delete;
    ~SignalPause() { pthread_sigmask(SIG_SETMASK, &oldM, nullptr); }

  private:
    sigset_t oldM;
};

// A file under a temporary name beside its place. It is removed with the object, unless it has
// taken its place before. One at a time.
class TemporaryFile {
  public:
    // theTarget is for messages; thePlace is where the file goes in the end.
    TemporaryFile(const std::string& theTarget, const fs::path& thePlace)
        : targetM(theTarget), placeM(thePlace) {
        // The process id keeps runs apart; the count steps over what a killed run has left.
        for (int count = 0;; ++count) {
            const std::string name =
                ".lumnis-" + std::to_string(getpid()) + "-" + std::to_string(count);
            pathM = (thePlace.parent_path() / name).string();
            if (pathM.size() >= theTemporaryPath.size()) {
                throw CliFileError(targetM, "cannot write", ENAMETOOLONG);
            }
            const SignalPause pause;
            descriptorM = open(pathM.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (descriptorM >= 0) {
                std::memcpy(theTemporaryPath.data(), pathM.c_str(), pathM.size() + 1);
                theTemporaryExists = 1;
                return;
            }
            if (errno != EEXIST || count == 1000) {
                throw CliFileError(targetM, "cannot write", errno);
            }
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        closeDescriptor();
        if (theTemporaryExists != 0) {
            const SignalPause pause;
            unlink(pathM.c_str());
            theTemporaryExists = 0;
        }
    }

    int getDescriptor() const { return descriptorM; }

    void takePlace() {
        if (closeDescriptor() != 0) {
            throw CliFileError(targetM, "cannot write", errno);
        }
        const SignalPause pause;
        if (rename(pathM.c_str(), placeM.c_str()) != 0) {
            throw CliFileError(targetM, "cannot write", errno);
        }
        theTemporaryExists = 0;
    }

  private:
    int closeDescriptor() {
        const int descriptor = std::exchange(descriptorM, -1);
        return descriptor < 0 ? 0 : close(descriptor);
    }

    std::string targetM;
    fs::path placeM;
    std::string pathM;
    int descriptorM = -1;
};

std::optional<struct stat> statusOf(const fs::path& thePath) {
    struct stat status {};
    if (stat(thePath.c_str(), &status) != 0) {
        return std::nullopt;
    }
    return status;
}

// thePath without links in its last component; the file itself need not exist.
fs::path withoutLinks(const std::string& thePath) {
    constexpr int theLongestChain = 40;  // as in the kernel
    fs::path path = thePath;
    for (int i = 0; i < theLongestChain; ++i) {
        std::error_code error;
        if (!fs::is_symlink(fs::symlink_status(path, error))) {
            return path;
        }
        const fs::path next = fs::read_symlink(path, error);
        if (error) {
            throw CliFileError(thePath, "cannot write", error.value());
        }
        path = path.parent_path() / next;  // an absolute one replaces the folder
    }
    throw CliFileError(thePath, "cannot write", ELOOP);
}

void writeAll(int theDescriptor, std::string_view theBytes, const std::string& theName) {
    while (!theBytes.empty()) {
        const ssize_t count = write(theDescriptor, theBytes.data(), theBytes.size());
        if (count >= 0) {
            theBytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            throw CliFileError(theName, "cannot write", errno);
        }
    }
}

// Gives the new file owner and mode of theOld, which it is to replace.
void copyRights(const struct stat& theOld, int theDescriptor, const std::string& thePath) {
    mode_t mode = theOld.st_mode & 07777;
    // The owner goes first, since a change of owner clears bits of the mode. Only root may give a
    // file away; anybody else keeps it, without the bits that lend his rights out.
    if (fchown(theDescriptor, theOld.st_uid, theOld.st_gid) != 0) {
        mode &= 0777;
    }
    if (fchmod(theDescriptor, mode) != 0) {
        throw CliFileError(thePath, "cannot set the mode", errno);
    }
}

// Into what is no regular file, where nothing can be renamed to.
void writeStraight(const std::string& thePath, std::string_view theBytes) {
    const int descriptor = open(thePath.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0) {
        throw CliFileError(thePath, "cannot write", errno);
    }
    try {
        writeAll(descriptor, theBytes, thePath);
    } catch (...) {
        close(descriptor);
        throw;
    }
    if (close(descriptor) != 0) {
        throw CliFileError(thePath, "cannot write", errno);
    }
}

}  // namespace

void prepareOutput() {
    // A descriptor of a standard stream must not come to mean a product. Read-only, so that a
    // write to it is still an error.
    for (int descriptor = open("/dev/null", O_RDONLY); descriptor >= 0;) {
        if (descriptor > STDERR_FILENO) {
            close(descriptor);
            break;
        }
        descriptor = open("/dev/null", O_RDONLY);
    }
    for (const int signal : theEndingSignals) {
        struct sigaction action {};
        // What the parent has ignored (nohup) stays ignored.
        sigaction(signal, nullptr, &action);
        if (action.sa_handler != SIG_IGN) {
            action.sa_handler = removeTemporary;
            action.sa_flags = static_cast<int>(SA_RESETHAND);
            sigfillset(&action.sa_mask);
            sigaction(signal, &action, nullptr);
        }
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

void writeOutput(const std::string& thePath, std::string_view theBytes) {
    if (const int descriptor = namedDescriptor(thePath); descriptor >= 0) {
        writeAll(descriptor, theBytes, thePath);
        return;
    }
    const std::optional<struct stat> old = statusOf(thePath);
    if (old.has_value() && S_ISDIR(old->st_mode)) {
        throw CliFileError(thePath, "cannot write", EISDIR);
    }
    if (old.has_value() && !S_ISREG(old->st_mode)) {
        writeStraight(thePath, theBytes);
        return;
    }
    // A rename would replace a file that its owner has made read-only.
    if (old.has_value() && faccessat(AT_FDCWD, thePath.c_str(), W_OK, AT_EACCESS) != 0) {
        throw CliFileError(thePath, "cannot write", errno);
    }
    TemporaryFile temporary(thePath, withoutLinks(thePath));
    writeAll(temporary.getDescriptor(), theBytes, thePath);
    if (old.has_value()) {
        copyRights(*old, temporary.getDescriptor(), thePath);
    }
    temporary.takePlace();
}

void writeDescriptor(int theDescriptor, std::string_view theBytes, const std::string& theName) {
    writeAll(theDescriptor, theBytes, theName);
}

void printText(std::string_view theText) {
    try {
        writeDescriptor(STDOUT_FILENO, theText, "standard output");
    } catch (const CliFileError& error) {
        throw CliUsageError(error.getPath() + ": " + error.what());
    }
}

int namedDescriptor(const std::string& thePath) {
    if (thePath == "/dev/stdout") {
        return STDOUT_FILENO;
    }
    if (thePath == "/dev/stderr") {
        return STDERR_FILENO;
    }
    for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
        int descriptor = -1;
        const char* const end = thePath.data() + thePath.size();
        if (thePath.starts_with(folder) &&
            std::from_chars(thePath.data() + folder.size(), end, descriptor).ptr == end) {
            return descriptor;
        }
    }
    return -1;
}

void makeFolder(const std::string& thePath) {
    if (const std::optional<struct stat> old =
            statusOf(thePath.substr(0, thePath.find_last_not_of('/') + 1))) {
        if (!S_ISDIR(old->st_mode)) {
            throw CliFileError(thePath, "cannot make the folder", ENOTDIR);
        }
        return;
    }
    std::error_code error;
    fs::create_directories(thePath, error);
    if (error) {
        throw CliFileError(thePath, "cannot make the folder", error.value());
    }
}

std::string outputIdentity(const std::string& thePath) {
    if (const std::optional<struct stat> status = statusOf(thePath)) {
        return !S_ISREG(status->st_mode)
                   ? std::string()
                   : std::to_string(status->st_dev) + ":" + std::to_string(status->st_ino);
    }
    try {
        return fs::weakly_canonical(fs::absolute(withoutLinks(thePath))).string();
    } catch (const std::exception&) {
        return thePath;  // the attempt to write it will say what is wrong
    }
}

}  // namespace lumnis
