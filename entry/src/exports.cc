// The two calls of the library. Nothing thrown passes beyond this file.
#include <cstdint>
#include <cstdio>
#include <exception>
#include <new>

#include "FwTraceScope.h"
#include "WmlEncodeDriver.h"
#include "WmlsCompileDriver.h"
#include "lumnisutil.h"

namespace {

constexpr int theSuccess = 0;
constexpr int theFailure = 1;
// The size goes out in 16 bits, and 65535 has always been refused.
constexpr std::uint32_t theMaxResultLength = 65534;

bool isSource(const char* theSource, int theLength) {
    return theLength == 0 || (theLength > 0 && theSource != nullptr);
}

int storeLength(std::uint32_t theLength, unsigned short* theResultLength) {
    if (theLength == 0 || theLength > theMaxResultLength) {
        return theFailure;
    }
    *theResultLength = static_cast<unsigned short>(theLength);
    return theSuccess;
}

// Allocates nothing: the error may be a lack of memory.
void storeStandardException(const std::exception& theError, char** theErrorText) {
    char text[256];
    std::snprintf(text, sizeof text, "standard exception: %s\n", theError.what());
    lumnis::WmlEncodeDriver::storeErrorText(text, theErrorText);
}

}  // namespace

int WMLEncode(const char* source, int sourceLength, char** result, unsigned short* resultLength,
              char** errorText) {
    using lumnis::WmlEncodeDriver;
    lumnis::FwTraceScope scope("WMLEncode");
    if (result == nullptr || resultLength == nullptr) {
        return theFailure;
    }
    if (!isSource(source, sourceLength)) {
        WmlEncodeDriver::storeErrorText("There is no source.\n", errorText);
        return theFailure;
    }
    std::uint32_t size = 0;
    try {
        WmlEncodeDriver driver;
        if (!driver.run({source, static_cast<std::size_t>(sourceLength)}, result, size,
                        errorText)) {
            return theFailure;
        }
    } catch (const std::exception& error) {
        // Before the document is parsed, or after; what a document causes the driver has put into
        // words itself.
        storeStandardException(error, errorText);
        return theFailure;
    } catch (...) {
        WmlEncodeDriver::storeErrorText("undefined exception\n", errorText);
        return theFailure;
    }
    return storeLength(size, resultLength);
}

int WMLSCompile(const char* source, int sourceLength, char** result, unsigned short* resultLength,
                char** errorText) {
    using lumnis::WmlsCompileDriver;
    lumnis::FwTraceScope scope("WMLSCompile");
    if (result == nullptr || resultLength == nullptr) {
        return theFailure;
    }
    if (!isSource(source, sourceLength)) {
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
    return storeLength(size, resultLength);
}
