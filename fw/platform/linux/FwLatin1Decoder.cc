#include "FwLatin1Decoder.h"

#include <cstdint>
#include <cstring>

namespace lumnis {

namespace {

constexpr bool isAscii(char theByte) {
    return static_cast<unsigned char>(theByte) < 0x80;
}

// How many bytes of ASCII theText begins with.
std::size_t asciiLength(std::string_view theText) {
    constexpr std::uint64_t theTopBits = 0x8080808080808080;
    std::size_t length = 0;
    for (std::uint64_t word = 0; length + sizeof word <= theText.size(); length += sizeof word) {
        std::memcpy(&word, theText.data() + length, sizeof word);
        if ((word & theTopBits) != 0) {
            break;
        }
    }
    while (length < theText.size() && isAscii(theText[length])) {
        ++length;
    }
    return length;
}

}  // namespace

void FwLatin1Decoder::convert(std::string_view theSource, FwConversionSink& theSink) {
    while (!theSource.empty() && !theSink.isFullM) {
        const std::size_t length = asciiLength(theSource);
        theSink.put(theSource.substr(0, length));
        theSource.remove_prefix(length);
        while (!theSource.empty() && !isAscii(theSource[0]) && !theSink.isFullM) {
            const auto byte = static_cast<unsigned char>(theSource[0]);
            theSink.put(static_cast<char>(0xC0 | byte >> 6));
            theSink.put(static_cast<char>(0x80 | (byte & 0x3F)));
            theSource.remove_prefix(1);
        }
    }
}

}  // namespace lumnis
