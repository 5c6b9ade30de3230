// The same generated programs in the syntax of each language that is compared.
#pragma once

#include <cstddef>
#include <string>

namespace lumnis::bench {

enum class Dialect { WmlScript, Lua, JavaScript };

// A program of functions with declarations, arithmetic, conditions, loops and calls, of about
// theSize bytes in WMLScript. Equal sizes give the same program in every dialect, always.
std::string makeProgram(Dialect theDialect, std::size_t theSize);

// One WMLScript function of about theCount instructions without a jump.
std::string makeLongFunction(std::size_t theCount);
// One WMLScript function of theCount jumps of mixed distances, each growing others.
std::string makeJumpingFunction(std::size_t theCount);

}  // namespace lumnis::bench
