// An identifier of the source, one for each distinct text, and what it means where the compiler
// stands.
#pragma once

#include <string_view>

namespace lumnis {

struct WscName {
    std::string_view text;
    // What the name stands for, by number; -1 where it stands for nothing of the kind.
    int variable = -1;  // of the current function
    int function = -1;
    int urlConstant = -1;  // the constant that holds the URL
};

}  // namespace lumnis
