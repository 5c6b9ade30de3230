// A UTF-8 text as UTF-16 for a WBXML string.
#pragma once

#include <string_view>

#include "CcCharsetUcs4.h"
#include "CpsString.h"

namespace lumnis {

// 16-bit units, most significant byte first, without a byte order mark; a value above U+10FFFF,
// which a long UTF-8 form can give, goes as the ENTITY token. Malformed text ends as
// CcCharsetUcs4 tells.
class CcCharsetUtf16 {
  public:
    explicit CcCharsetUtf16(std::string_view theText);
    virtual ~CcCharsetUtf16() = default;

    CpsString getWbxmlValue() const { return bytesM; }

  private:
    const CcCharsetUcs4 decodedM;
    CpsString bytesM;
};

}  // namespace lumnis
