// An identifier of the source, one for each distinct text, and what it means where the compiler
// stands.
#pragma once

#include <string_view>

namespace lumnis {

struct WscName {
    std::string_view text;
    // -1 where the name means none.
    int variable = -1;  // of the current function
    int function = -1;
    int urlConstant = -1;
};

}  // namespace lumnis
