// A UTF-8 text as code values, and as UCS-4.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "CpsString.h"

namespace lumnis {

// Decodes UTF-8 in its widest form: sequences of up to six bytes and overlong forms yield their
// value. The first malformed character ends the text; its value, as far as it got, stays.
class CcCharsetUcs4 {
  public:
    explicit CcCharsetUcs4(std::string_view theText);
    virtual ~CcCharsetUcs4() = default;

    // The text as four bytes a character, most significant first.
    CpsString getWbxmlValue() const;

    // The code value at a position below size; no range test.
    std::uint32_t value(std::size_t thePosition) const { return valuesM[thePosition]; }
    std::size_t size() const { return valuesM.size(); }
    const std::vector<std::uint32_t>& values() const { return valuesM; }

  private:
    // Decodes the character at the start of theText; returns the bytes that it takes.
    std::size_t decodeOne(std::string_view theText, std::uint32_t& theValue);

    bool isWellFormedM;
    std::vector<std::uint32_t> valuesM;
};

}  // namespace lumnis
