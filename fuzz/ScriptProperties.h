// What holds of every script, whatever its bytes. A property that fails ends the process, with a
// line on standard error that names it.
#pragma once

#include <string_view>

namespace lumnis::fuzz {

// Bits of an input's first byte, so that the digits 0 to 7 choose them in a seed.
constexpr unsigned theDebugMode = 1;
constexpr unsigned theListing = 2;
constexpr unsigned theTreeDump = 4;

// Compiles theSource through the export and the facade, several times, and compares:
//   the same source gives the same bytes or the same message, from a new compiler, from one that
//   has been used before and from the export, and whatever streams are on (theOptions);
//   the bytes are 1 to 65534 at the export, and make a sound file (ByteCodeCheck.h);
//   a message has the documented form and names a line of the source, where the empty one behind
//   a final line feed counts;
//   the optimizer never makes a file longer and never refuses what compiles without it;
//   nothing goes to standard output.
void checkScript(std::string_view theSource, unsigned theOptions);

// Ends the process unless isTrue.
void require(bool isTrue, std::string_view theProperty);

}  // namespace lumnis::fuzz
