// The two calls of the library. Nothing thrown passes beyond this file.
#include <cstdint>
#include <new>

#include "FwTraceScope.h"
#include "WmlsCompileDriver.h"
#include "lumnisutil.h"

namespace {

constexpr int theSuccess = 0;
constexpr int theFailure = 1;
// The size goes out in 16 bits, and 65535 has always been refused.
constexpr std::uint32_t theMaxResultLength = 65534;

}  // namespace

int WMLEncode(const char*, int, char**, unsigned short*, char**) {
    return theFailure;
}

int WMLSCompile(const char* source, int sourceLength, char** result, unsigned short* resultLength,
                char** errorText) {
    using lumnis::WmlsCompileDriver;
    lumnis::FwTraceScope scope("WMLSCompile");
    if (result == nullptr || resultLength == nullptr || errorText == nullptr) {
        return theFailure;
    }
    if (sourceLength < 0 || (source == nullptr && sourceLength != 0)) {
        WmlsCompileDriver::storeErrorText("\nOther error: \nThere is no source.", errorText);
        return theFailure;
    }
    std::uint32_t size = 0;
    try {
        WmlsCompileDriver driver;
        if (!driver.run(source, sourceLength, result, size, errorText)) {
            return theFailure;
        }
    } catch (const std::bad_alloc&) {
        WmlsCompileDriver::storeErrorText("\nOther error: \nOut of memory.", errorText);
        return theFailure;
    } catch (...) {
        WmlsCompileDriver::storeErrorText("\nOther error: \nInternal error.", errorText);
        return theFailure;
    }
    if (size == 0 || size > theMaxResultLength) {
        return theFailure;
    }
    *resultLength = static_cast<unsigned short>(size);
    return theSuccess;
}
