// A UTF-8 text as ISO-8859-1 for a WBXML string.
#pragma once

#include <string_view>

#include "CcCharsetUcs4.h"
#include "CpsString.h"

namespace lumnis {

// One byte for U+0000 to U+007E and U+00A0 to U+00FF, the ENTITY token for every other
// character, U+007F to U+009F among them. Malformed text ends as CcCharsetUcs4 tells.
class CcCharsetIso88591 {
  public:
    explicit CcCharsetIso88591(std::string_view theText);
    virtual ~CcCharsetIso88591() = default;

    CpsString getWbxmlValue() const { return bytesM; }

  private:
    const CcCharsetUcs4 decodedM;
    CpsString bytesM;
};

}  // namespace lumnis
