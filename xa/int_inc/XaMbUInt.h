// A number as a multi-byte integer (WBXML 1.3, 5.1), ready to be written.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "XaByteBuffer.h"

namespace lumnis {

class XaMbUInt {
  public:
    explicit constexpr XaMbUInt(std::uint32_t theValue) {
        // From the last byte to the first: it alone has no top bit.
        bytesM[--beginM] = static_cast<char>(theValue & 0x7F);
        while ((theValue >>= 7) != 0) {
            bytesM[--beginM] = static_cast<char>(0x80 | (theValue & 0x7F));
        }
    }

    // How many bytes theValue takes.
    static constexpr std::size_t lengthOf(std::uint32_t theValue) {
        return static_cast<std::size_t>(std::bit_width(theValue | 1) + 6) / 7;
    }
    constexpr std::size_t length() const { return theMaxLength - beginM; }
    void appendTo(XaByteBuffer& theOutput) const {
        for (const char byte : view()) {
            theOutput.append(static_cast<unsigned char>(byte));
        }
    }
    constexpr std::string_view view() const { return {bytesM + beginM, length()}; }

  private:
    static constexpr std::size_t theMaxLength = 5;

    char bytesM[theMaxLength] = {};
    std::size_t beginM = theMaxLength;
};

}  // namespace lumnis
