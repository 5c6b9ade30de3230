#include "CcCharsetUcs4.h"

#include <bit>

namespace lumnis {

CcCharsetUcs4::CcCharsetUcs4(std::string_view theText) : isWellFormedM(true) {
    valuesM.reserve(theText.size());
    for (std::size_t at = 0; at < theText.size() && isWellFormedM;) {
        std::uint32_t value = 0;
        at += decodeOne(theText.substr(at), value);
        valuesM.push_back(value);
    }
}

std::size_t CcCharsetUcs4::decodeOne(std::string_view theText, std::uint32_t& theValue) {
    const auto lead = static_cast<unsigned char>(theText[0]);
    const auto length = static_cast<std::size_t>(std::countl_one(lead));
    if (length == 0) {
        theValue = lead;
        return 1;
    }
    if (length == 1 || length > 6 || length > theText.size()) {
        isWellFormedM = false;
        return 1;
    }
    theValue = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto further = static_cast<unsigned char>(theText[i]);
        if ((further & 0xC0) == 0x80) {
            theValue = theValue << 6 | (further & 0x3F);
        } else {
            // Adds nothing; the rest of the character still counts.
            isWellFormedM = false;
        }
    }
    return length;
}

CpsString CcCharsetUcs4::getWbxmlValue() const {
    CpsString result;
    result.reserve(static_cast<std::uint32_t>(valuesM.size() * 4));
    for (const std::uint32_t value : valuesM) {
        for (int shift = 24; shift >= 0; shift -= 8) {
            result += static_cast<char>(value >> shift & 0xFF);
        }
    }
    return result;
}

}  // namespace lumnis
