#include "CliProgress.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>

#include "CliDiagnostics.h"
#include "CliError.h"
#include "CliOutput.h"
#include "PrintableText.h"

namespace lumnis {

namespace {

constexpr std::size_t theManyFiles = 8;

std::size_t terminalWidth() {
    winsize size{};  // stays so where nobody knows
    ioctl(STDERR_FILENO, TIOCGWINSZ, &size);
    return size.ws_col != 0 ? size.ws_col : 80u;
}

void print(const std::string& theText) {
    try {
        writeDescriptor(STDERR_FILENO, theText, "standard error");
    } catch (const CliFileError&) {
        // Progress is for those who can see it.
    }
}

}  // namespace

CliProgress::CliProgress(std::size_t theTotal)
    : totalM(theTotal), isWantedM(theTotal >= theManyFiles && isCapableTerminal(STDERR_FILENO)) {}

void CliProgress::show(std::size_t theDone, const std::string& theName) {
    if (!isWantedM) {
        return;
    }
    std::string line =
        "[" + std::to_string(theDone) + "/" + std::to_string(totalM) + "] " + visibleText(theName);
    // A line that wraps could not be taken away. Bytes are at least as many as columns.
    std::size_t end = std::min(line.size(), terminalWidth() - 1);
    while (end > 0 && end < line.size() && (static_cast<unsigned char>(line[end]) & 0xC0) == 0x80) {
        --end;
    }
    line.resize(end);
    print("\r\033[K" + line);
    isShownM = true;
}

void CliProgress::clear() {
    if (isShownM) {
        print("\r\033[K");
        isShownM = false;
    }
}

}  // namespace lumnis
