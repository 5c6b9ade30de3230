#include "CcCharsetUtf16.h"

#include "CcCharsetConversion.h"

namespace lumnis {

namespace {

void appendUnit(std::uint32_t theUnit, CpsString& theBytes) {
    theBytes += static_cast<char>(theUnit >> 8);
    theBytes += static_cast<char>(theUnit & 0xFF);
}

}  // namespace

CcCharsetUtf16::CcCharsetUtf16(std::string_view theText) : decodedM(theText) {
    bytesM.reserve(static_cast<std::uint32_t>(decodedM.size() * 2));
    for (const std::uint32_t value : decodedM.values()) {
        if (value < 0x10000) {
            appendUnit(value, bytesM);
        } else if (value <= 0x10FFFF) {
            const std::uint32_t offset = value - 0x10000;
            appendUnit(0xD800 + (offset >> 10), bytesM);
            appendUnit(0xDC00 + (offset & 0x3FF), bytesM);
        } else {
            CcCharsetConversion::appendEntityToken(value, bytesM);
        }
    }
}

}  // namespace lumnis
