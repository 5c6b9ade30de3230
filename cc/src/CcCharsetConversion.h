// The ENTITY token of WBXML, which stands for a character that a character set lacks.
#pragma once

#include <cstdint>
#include <string_view>

#include "CpsString.h"

namespace lumnis {

class CcCharsetConversion {
  public:
    // The token for one character, given as its UTF-8 bytes: 0x02 and the character's code value
    // as an mb_u_int32. Bytes that are no character count as CcCharsetUcs4 decodes them.
    static CpsString getEntityToken(std::string_view theCharacter);

    // Appends the token for a code value.
    static void appendEntityToken(std::uint32_t theValue, CpsString& theOutput);
};

}  // namespace lumnis
