#include "CcCharsetConversion.h"

#include "CcCharsetUcs4.h"

namespace lumnis {

namespace {

constexpr char theEntityToken = 0x02;  // WBXML 1.3, 7.1: global tokens

}  // namespace

CpsString CcCharsetConversion::getEntityToken(std::string_view theCharacter) {
    const CcCharsetUcs4 decoded(theCharacter);
    CpsString result;
    appendEntityToken(decoded.size() == 0 ? 0 : decoded.value(0), result);
    return result;
}

void CcCharsetConversion::appendEntityToken(std::uint32_t theValue, CpsString& theOutput) {
    theOutput += theEntityToken;
    // mb_u_int32: groups of 7 bits, most significant first, the top bit on all but the last.
    int shift = 28;
    while (shift > 0 && (theValue >> shift) == 0) {
        shift -= 7;
    }
    for (; shift > 0; shift -= 7) {
        theOutput += static_cast<char>(0x80 | ((theValue >> shift) & 0x7F));
    }
    theOutput += static_cast<char>(theValue & 0x7F);
}

}  // namespace lumnis
