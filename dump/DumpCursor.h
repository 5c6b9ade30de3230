// A position in a file to read from. No read goes beyond the end.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "DumpListing.h"

namespace lumnis {

// What is not there is thrown as a DumpFault. The bytes must outlive the cursor.
class DumpCursor {
  public:
    explicit DumpCursor(std::string_view theBytes)
        : bytesM(theBytes), endM(static_cast<std::uint32_t>(theBytes.size())) {}

    std::uint32_t position() const noexcept { return positionM; }
    std::uint32_t end() const noexcept { return endM; }
    std::uint32_t rest() const noexcept { return endM - positionM; }
    bool isAtEnd() const noexcept { return positionM == endM; }
    // Where byte and the others stop, and what ends there in their messages.
    void setEnd(std::uint32_t theEnd, const char* theWhole) noexcept {
        endM = theEnd;
        wholeM = theWhole;
    }

    // theWhat names the thing read in the message "the file ends inside of WHAT".
    std::uint8_t byte(const char* theWhat);
    std::uint32_t word(const char* theWhat);       // two bytes, the most significant first
    std::uint32_t multiByte(const char* theWhat);  // of 1 to 5 bytes, at most 32 bits
    std::string_view take(std::uint32_t theCount, const char* theWhat);
    // Up to and without a terminator of theWidth zero bytes, which is passed over.
    std::string_view terminated(std::uint32_t theWidth, const char* theWhat);

    // How many bytes precede the first terminator in theBytes: theWidth zero bytes at a multiple of
    // theWidth. npos if there is none.
    static std::size_t terminatedLength(std::string_view theBytes, std::uint32_t theWidth);

  private:
    DumpFault endsInside(const char* theWhat) const;

    std::string_view bytesM;
    std::uint32_t positionM = 0;
    std::uint32_t endM;
    const char* wholeM = "file";
};

}  // namespace lumnis
