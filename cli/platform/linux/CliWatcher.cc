#include "CliWatcher.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <filesystem>

#include "CliError.h"

namespace lumnis {

namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t theWantedEvents = IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVE_SELF | IN_ONLYDIR;

// Programs write several files in a row; what comes within this time is built together.
constexpr int theMillisecondsOfQuiet = 10;
// How often a folder that has gone is looked for.
constexpr int theMillisecondsOfSearch = 200;

std::string folderOf(const fs::path& thePath) {
    const std::string folder = thePath.parent_path().string();
    return folder.empty() ? "." : folder;
}

// A descriptor that Ctrl-C makes readable instead of ending the program. -1, and all stays as it
// was, where there is none to be had, or where the parent has SIGINT ignored (a shell, for jobs in
// the background).
int openInterrupts() {
    struct sigaction action {};
    sigaction(SIGINT, nullptr, &action);
    if (action.sa_handler == SIG_IGN) {
        return -1;
    }
    sigset_t interrupt;
    sigemptyset(&interrupt);
    sigaddset(&interrupt, SIGINT);
    pthread_sigmask(SIG_BLOCK, &interrupt, nullptr);
    const int descriptor = signalfd(-1, &interrupt, SFD_CLOEXEC);
    if (descriptor < 0) {
        pthread_sigmask(SIG_UNBLOCK, &interrupt, nullptr);
    }
    return descriptor;
}

}  // namespace

CliWatcher::CliWatcher(const std::vector<std::string>& thePaths) {
    eventsM = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (eventsM < 0) {
        throw CliFileError(thePaths.front(), "cannot watch", errno);
    }
    try {
        for (std::size_t i = 0; i < thePaths.size(); ++i) {
            const fs::path path = thePaths[i];
            filesM[{folderOf(path), path.filename().string()}].push_back(i);
            // Through a link the file that it names changes.
            std::error_code error;
            const fs::path target = fs::canonical(path, error);
            if (!error && fs::is_symlink(path, error)) {
                filesM[{folderOf(target), target.filename().string()}].push_back(i);
            }
        }
        for (const auto& [file, places] : filesM) {
            watch(file.first);
        }
    } catch (...) {
        close(eventsM);
        throw;
    }
    interruptsM = openInterrupts();
}

CliWatcher::~CliWatcher() {
    close(eventsM);
    if (interruptsM >= 0) {
        close(interruptsM);
    }
}

void CliWatcher::watch(const std::string& theFolder) {
    const int number = inotify_add_watch(eventsM, theFolder.c_str(), theWantedEvents);
    if (number < 0) {
        throw CliFileError(theFolder, "cannot watch", errno);
    }
    // Two names of one folder share a watch; the files of both must be found.
    const auto [entry, isNew] = foldersM.emplace(number, theFolder);
    if (!isNew && entry->second != theFolder) {
        for (auto& [file, places] : std::map(filesM)) {
            if (file.first == theFolder) {
                auto& known = filesM[{entry->second, file.second}];
                known.insert(known.end(), places.begin(), places.end());
            }
        }
    }
}

std::vector<std::size_t> CliWatcher::wait() {
    std::set<std::size_t> changed;
    for (;;) {
        std::array<pollfd, 2> descriptors = {
            {{eventsM, POLLIN, 0}, {interruptsM, POLLIN, 0}}};  // -1 is passed over
        const int timeout = !changed.empty()       ? theMillisecondsOfQuiet
                            : lostFoldersM.empty() ? -1
                                                   : theMillisecondsOfSearch;
        const int count = poll(descriptors.data(), descriptors.size(), timeout);
        if (count < 0 && errno != EINTR) {
            throw CliFileError(filesM.begin()->first.first, "cannot watch", errno);
        }
        if ((descriptors[1].revents & POLLIN) != 0) {
            return {};
        }
        if (count > 0) {
            takeEvents(changed);
        } else if (!changed.empty()) {
            return {changed.begin(), changed.end()};
        }
        findLostFolders(changed);
    }
}

void CliWatcher::takeEvents(std::set<std::size_t>& theChanged) {
    alignas(inotify_event) std::array<char, 16 * (sizeof(inotify_event) + NAME_MAX + 1)> block;
    const ssize_t length = read(eventsM, block.data(), block.size());
    for (ssize_t at = 0; at < length;) {
        inotify_event event;
        const char* const place = block.data() + at;
        std::memcpy(&event, place, sizeof event);
        at += static_cast<ssize_t>(sizeof event) + static_cast<ssize_t>(event.len);
        if ((event.mask & IN_Q_OVERFLOW) != 0) {
            // Events are lost: all may have changed.
            for (const auto& [file, places] : filesM) {
                theChanged.insert(places.begin(), places.end());
            }
            continue;
        }
        const auto folder = foldersM.find(event.wd);
        if (folder == foldersM.end()) {
            continue;
        }
        if ((event.mask & (IN_IGNORED | IN_MOVE_SELF)) != 0) {
            lostFoldersM.insert(folder->second);
            if ((event.mask & IN_MOVE_SELF) != 0) {
                inotify_rm_watch(eventsM, event.wd);
            }
            foldersM.erase(folder);
        } else if (event.len > 0) {
            const auto file = filesM.find({folder->second, place + sizeof event});
            if (file != filesM.end()) {
                theChanged.insert(file->second.begin(), file->second.end());
            }
        }
    }
}

void CliWatcher::findLostFolders(std::set<std::size_t>& theChanged) {
    for (const std::string& folder : std::set(lostFoldersM)) {
        const int number = inotify_add_watch(eventsM, folder.c_str(), theWantedEvents);
        if (number < 0) {
            continue;
        }
        foldersM.emplace(number, folder);
        lostFoldersM.erase(folder);
        for (const auto& [file, places] : filesM) {
            std::error_code error;
            if (file.first == folder && fs::exists(fs::path(folder) / file.second, error)) {
                theChanged.insert(places.begin(), places.end());
            }
        }
    }
}

}  // namespace lumnis
