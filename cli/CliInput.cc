#include "CliInput.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>

#include "CliError.h"

namespace lumnis {

namespace {

class InputDescriptor {
  public:
    explicit InputDescriptor(const std::string& thePath)
        : descriptorM(thePath == "-" ? STDIN_FILENO : open(thePath.c_str(), O_RDONLY | O_CLOEXEC)) {
    }
    InputDescriptor(const InputDescriptor&) = delete;
    InputDescriptor& operator=(const InputDescriptor&) = delete;
    ~InputDescriptor() {
        if (descriptorM > STDIN_FILENO) {
            close(descriptorM);
        }
    }
    int get() const { return descriptorM; }

  private:
    int descriptorM;
};

[[noreturn]] void failTooLarge(const std::string& thePath) {
    throw CliFileError(inputName(thePath),
                       "too large: a source has at most " + std::to_string(INT_MAX) + " bytes");
}

}  // namespace

CpsString readInput(const std::string& thePath) {
    const InputDescriptor input(thePath);
    if (input.get() < 0) {
        throw CliFileError(inputName(thePath), "cannot read", errno);
    }
    CpsString content;
    struct stat status {};
    if (fstat(input.get(), &status) == 0 && S_ISREG(status.st_mode)) {
        if (status.st_size > INT_MAX) {
            failTooLarge(thePath);
        }
        content.reserve(static_cast<std::uint32_t>(status.st_size));
    }
    // The size is a hint alone: a pipe has none, and a file may grow.
    std::array<char, 65536> block;
    for (;;) {
        const ssize_t count = read(input.get(), block.data(), block.size());
        if (count == 0) {
            break;
        }
        if (count < 0) {
            if (errno == EINTR) {
                continue;
            }
            throw CliFileError(inputName(thePath), "cannot read", errno);
        }
        if (content.length() + static_cast<std::size_t>(count) > INT_MAX) {
            failTooLarge(thePath);
        }
        content.append(std::string_view(block.data(), static_cast<std::size_t>(count)));
    }
    return content;
}

std::string inputName(const std::string& thePath) {
    return thePath == "-" ? "<stdin>" : thePath;
}

}  // namespace lumnis
