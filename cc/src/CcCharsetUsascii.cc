#include "CcCharsetUsascii.h"

#include "CcCharsetConversion.h"

namespace lumnis {

CcCharsetUsascii::CcCharsetUsascii(std::string_view theText) : decodedM(theText) {
    bytesM.reserve(static_cast<std::uint32_t>(decodedM.size()));
    for (const std::uint32_t value : decodedM.values()) {
        if (value < 0x80) {
            bytesM += static_cast<char>(value);
        } else {
            CcCharsetConversion::appendEntityToken(value, bytesM);
        }
    }
}

}  // namespace lumnis
