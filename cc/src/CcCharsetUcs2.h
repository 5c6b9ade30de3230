// A UTF-8 text as UCS-2 for a WBXML string.
#pragma once

#include <string_view>

#include "CcCharsetUcs4.h"
#include "CpsString.h"

namespace lumnis {

// Two bytes a character, most significant first; a character above U+FFFF goes as the ENTITY
// token. Malformed text ends as CcCharsetUcs4 tells.
class CcCharsetUcs2 {
  public:
    explicit CcCharsetUcs2(std::string_view theText);
    virtual ~CcCharsetUcs2() = default;

    CpsString getWbxmlValue() const { return bytesM; }

  private:
    const CcCharsetUcs4 decodedM;
    CpsString bytesM;
};

}  // namespace lumnis
