// The exit statuses of every verb.
#pragma once

namespace lumnis {

enum class CliExit {
    success = 0,  // all is well
    refused = 1,  // some source was refused
    failed = 2,   // wrong usage, or a file that cannot be read or written
};

// Of several outcomes the gravest is the one that the program ends with.
constexpr CliExit graver(CliExit theLeft, CliExit theRight) {
    return theLeft < theRight ? theRight : theLeft;
}

}  // namespace lumnis
