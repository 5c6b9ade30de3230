#include "XaLog.h"

#include <array>
#include <new>

#include "FwApplicationLog.h"
#include "FwLogManager.h"

namespace lumnis {

namespace {

// The event of a fault of the parser or a director.
constexpr int theEventId = 137697;
constexpr unsigned theEventCode = 0xC0000CBD;

}  // namespace

void XaLog::trace(std::string_view thePrefix, std::string_view theText, const char* theFile,
                  int theLine) noexcept {
    std::array<char, 1024> buffer;
    std::size_t size = thePrefix.copy(buffer.data(), buffer.size() - 1);
    size += theText.copy(buffer.data() + size, buffer.size() - 1 - size);
    buffer[size] = '\0';
    FwApplicationLog::instance().debug(buffer.data(), theFile, theLine);
}

void XaLog::report(const char* theText) noexcept {
    try {
        FwLogManager::instance().getLog("Orrel")->report(theEventId, theEventCode, theText);
    } catch (const std::bad_alloc&) {
        // The event is lost; the fault itself is not.
    }
}

}  // namespace lumnis
