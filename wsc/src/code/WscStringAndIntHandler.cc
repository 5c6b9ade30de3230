#include "WscStringAndIntHandler.h"

namespace lumnis {

void WscStringAndIntHandler::getAsMultiByteInteger(unsigned int theValue,
                                                   CpsString& theOutput) const {
    if (theValue < 0x80) {
        theOutput += static_cast<char>(theValue);
        return;
    }
    int shift = 28;
    while (shift > 0 && (theValue >> shift) == 0) {
        shift -= 7;
    }
    for (; shift > 0; shift -= 7) {
        theOutput += static_cast<char>(((theValue >> shift) & 0x7F) | 0x80);
    }
    theOutput += static_cast<char>(theValue & 0x7F);
}

}  // namespace lumnis
