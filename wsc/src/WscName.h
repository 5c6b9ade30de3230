// An identifier of the source. The lexer makes one for each distinct name and numbers them, so
// that everything behind it looks names up by number.
#pragma once

#include "CpsString.h"

namespace lumnis {

struct WscName {
    CpsString text;
    unsigned number;  // from 0, in order of first appearance
};

}  // namespace lumnis
