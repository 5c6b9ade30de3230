// Reading a source.
#pragma once

#include <string>

#include "CpsString.h"

namespace lumnis {

// A whole file or pipe, "-" for standard input, as it is. May run on any thread. Throws
// CliFileError; also for more than INT_MAX bytes, as the library counts in int.
CpsString readInput(const std::string& thePath);

// How messages name thePath: "<stdin>" for "-".
std::string inputName(const std::string& thePath);

}  // namespace lumnis
