// What can stop a verb, or one file of it, besides a fault in the source.
#pragma once

#include <cstring>
#include <stdexcept>
#include <string>

namespace lumnis {

// Wrong usage: nothing has been done when it is thrown.
class CliUsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// A file that cannot be read or written. what() is "cannot read: No such file or directory" or
// the like, without the path.
class CliFileError : public std::runtime_error {
  public:
    CliFileError(std::string thePath, const std::string& theText)
        : std::runtime_error(theText), pathM(std::move(thePath)) {}
    // With the system's own text for theErrno behind theText.
    CliFileError(std::string thePath, const std::string& theText, int theErrno)
        : CliFileError(std::move(thePath), theText + ": " + std::strerror(theErrno)) {}

    const std::string& getPath() const { return pathM; }

  private:
    std::string pathM;
};

}  // namespace lumnis
