// What is compared on scripts: our compiler and the peers, each from source text to byte code.
#pragma once

#include <string>

#include "ScriptPrograms.h"

namespace lumnis::bench {

struct Contender {
    const char* name;
    Dialect dialect;
    // Compiles theSource once; ends the process when it is refused, which would spoil a figure.
    void (*compile)(const std::string& theSource);
};

// Ours is the first.
extern const Contender theContenders[4];

}  // namespace lumnis::bench
