#include "CcCharsetIso88591.h"

#include "CcCharsetConversion.h"

namespace lumnis {

CcCharsetIso88591::CcCharsetIso88591(std::string_view theText) : decodedM(theText) {
    bytesM.reserve(static_cast<std::uint32_t>(decodedM.size()));
    for (const std::uint32_t value : decodedM.values()) {
        if (value < 0x7F || (value >= 0xA0 && value <= 0xFF)) {
            bytesM += static_cast<char>(value);
        } else {
            CcCharsetConversion::appendEntityToken(value, bytesM);
        }
    }
}

}  // namespace lumnis
