// Service of the platform: files that lines are appended to.
#pragma once

#include <atomic>
#include <cstdint>
#include <string_view>

namespace lumnis {

// A file open for appending. All failures are silent: a line that cannot be written vanishes.
// One write of the system for a line, at the end of the file, so that lines of several writers
// do not mix even where no mutex keeps them apart. Signals that a write raises, for a broken pipe
// or a size limit, do not reach the host.
class FwLogFile {
  public:
    FwLogFile() = default;
    FwLogFile(const FwLogFile&) = delete;
    FwLogFile& operator=(const FwLogFile&) = delete;
    ~FwLogFile();

    // Makes the file if there is none. The file stays open whatever becomes of its name: lines
    // follow a file that is renamed, and vanish with one that is deleted.
    void open(const char* thePath) noexcept;
    // Any number of threads.
    void write(std::string_view theLine) noexcept;

    static void writeStandardError(std::string_view theLine) noexcept;

  private:
    int handleM = -1;
    // Which file was opened: a host that closes descriptors which it does not know, and opens
    // files of its own under the same numbers, must not find our lines in them.
    std::uint64_t deviceM = 0;
    std::uint64_t fileM = 0;
    // Part of a line got out before the disk was full: the next line must not be glued to it.
    std::atomic<bool> isTornM{false};
};

}  // namespace lumnis
