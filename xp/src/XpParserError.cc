#include "XpParserError.h"

#include <utility>

namespace lumnis {

XpParserError::XpParserError(CpsString theMessage, unsigned theLine)
    : messageM(std::move(theMessage)), lineM(theLine) {}

}  // namespace lumnis
