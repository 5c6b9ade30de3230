// The line that tells a person at a terminal how far a long run is.
#pragma once

#include <cstddef>
#include <string>

namespace lumnis {

class CliProgress {
  public:
    // Shown on standard error when that is a terminal and there are many files. theTotal is their
    // number.
    explicit CliProgress(std::size_t theTotal);
    CliProgress(const CliProgress&) = delete;
    CliProgress& operator=(const CliProgress&) = delete;
    ~CliProgress() { clear(); }

    // theDone files are through; theName is the next.
    void show(std::size_t theDone, const std::string& theName);
    // Takes the line away, so that other text can stand in its place.
    void clear();

  private:
    std::size_t totalM;
    bool isWantedM;
    bool isShownM = false;
};

}  // namespace lumnis
