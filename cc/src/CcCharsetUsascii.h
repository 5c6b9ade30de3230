// A UTF-8 text as US-ASCII for a WBXML string.
#pragma once

#include <string_view>

#include "CcCharsetUcs4.h"
#include "CpsString.h"

namespace lumnis {

// One byte for U+0000 to U+007F, the ENTITY token for every other character. Malformed text ends
// as CcCharsetUcs4 tells.
class CcCharsetUsascii {
  public:
    explicit CcCharsetUsascii(std::string_view theText);
    virtual ~CcCharsetUsascii() = default;

    CpsString getWbxmlValue() const { return bytesM; }

  private:
    const CcCharsetUcs4 decodedM;
    CpsString bytesM;
};

}  // namespace lumnis
