// Service of the platform: waiting for files to change.
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace lumnis {

// Watches files by their names in their folders: a file counts as changed when it has been written
// and closed, and when another file has been renamed to its name, as editors do. It may be missing
// and come later. For one thread; from its construction on, Ctrl-C ends the waiting and not the
// program.
class CliWatcher {
  public:
    // Watches from now on: what changes before the first wait is not lost. Throws CliFileError for
    // a folder that cannot be watched.
    explicit CliWatcher(const std::vector<std::string>& thePaths);
    CliWatcher(const CliWatcher&) = delete;
    CliWatcher& operator=(const CliWatcher&) = delete;
    ~CliWatcher();

    // Waits until something has changed and gives the places of those paths, in order. Empty when
    // the user has pressed Ctrl-C.
    std::vector<std::size_t> wait();

  private:
    void watch(const std::string& theFolder);
    void takeEvents(std::set<std::size_t>& theChanged);
    void findLostFolders(std::set<std::size_t>& theChanged);

    // Folder and name to the places of the paths.
    std::map<std::pair<std::string, std::string>, std::vector<std::size_t>> filesM;
    std::map<int, std::string> foldersM;  // by the system's number of the watch
    std::set<std::string> lostFoldersM;   // deleted or renamed since, to be found again
    int eventsM = -1;                     // descriptors
    int interruptsM = -1;
};

}  // namespace lumnis
