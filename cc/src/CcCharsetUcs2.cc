#include "CcCharsetUcs2.h"

#include "CcCharsetConversion.h"

namespace lumnis {

CcCharsetUcs2::CcCharsetUcs2(std::string_view theText) : decodedM(theText) {
    bytesM.reserve(static_cast<std::uint32_t>(decodedM.size() * 2));
    for (const std::uint32_t value : decodedM.values()) {
        if (value < 0x10000) {
            bytesM += static_cast<char>(value >> 8);
            bytesM += static_cast<char>(value & 0xFF);
        } else {
            CcCharsetConversion::appendEntityToken(value, bytesM);
        }
    }
}

}  // namespace lumnis
