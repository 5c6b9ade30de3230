// Gives every jump of a finished function its form and its distance.
#pragma once

#include <cstdint>
#include <span>

#include "WscInstructions.h"

namespace lumnis {

// Turns the PSEUDO_JUMPs and PSEUDO_TJUMPs of theCode into real jumps, each in the shortest form
// in which all fit at once. Every label of a jump must have been placed; theFirstLabel is the
// lowest label number in use.
// Returns the size of the code in bytes, or -1 when a jump is longer than 65535 bytes.
std::int64_t layoutJumps(std::span<WscInstruction> theCode, std::uint32_t theFirstLabel);

}  // namespace lumnis
