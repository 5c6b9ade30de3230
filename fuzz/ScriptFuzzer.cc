// WMLSCompile and the compiler's facade under any bytes at all. The first byte of the input turns
// streams on (ScriptProperties.h); the rest is the script.
#include <cstdint>

#include "ScriptProperties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* theData, std::size_t theSize) {
    if (theSize != 0) {
        const auto* source = reinterpret_cast<const char*>(theData + 1);
        lumnis::fuzz::checkScript({source, theSize - 1}, theData[0]);
    }
    return 0;
}
