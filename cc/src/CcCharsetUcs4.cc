#include "CcCharsetUcs4.h"

#include <bit>

namespace lumnis {

namespace {

struct Decoded {
    std::uint32_t value;
    std::size_t length;  // what of the text it takes
    bool isWellFormed;
};

// The character at the start of theText, which is not empty.
Decoded decodeOne(std::string_view theText) {
    const auto lead = static_cast<unsigned char>(theText[0]);
    const auto length = static_cast<std::size_t>(std::countl_one(lead));
    if (length == 0) {
        return {lead, 1, true};
    }
    if (length == 1 || length > 6 || length > theText.size()) {
        return {0, 1, false};
    }
    Decoded result{lead & (0x7Fu >> length), length, true};
    for (std::size_t i = 1; i < length; ++i) {
        const auto further = static_cast<unsigned char>(theText[i]);
        if ((further & 0xC0) == 0x80) {
            result.value = result.value << 6 | (further & 0x3F);
        } else {
            // Adds nothing; the rest of the character still counts.
            result.isWellFormed = false;
        }
    }
    return result;
}

}  // namespace

CcCharsetUcs4::CcCharsetUcs4(std::string_view theText) {
    valuesM.reserve(theText.size());
    while (!theText.empty()) {
        const Decoded character = decodeOne(theText);
        valuesM.push_back(character.value);
        if (!character.isWellFormed) {
            break;
        }
        theText.remove_prefix(character.length);
    }
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
