// The code of the function that is being compiled: its instructions in order, and the arena in
// which they live.
#pragma once

#include <cstddef>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

#include "FwArena.h"
#include "WscInstructions.h"

namespace lumnis {

class WscFunctionCode {
  public:
    // Makes an instruction that lives until clear. It is no part of the code yet.
    template <class Instruction, class... Arguments>
    Instruction* make(Arguments&&... theArguments) {
        static_assert(std::is_trivially_destructible_v<Instruction>);
        return arenaM.make<Instruction>(std::forward<Arguments>(theArguments)...);
    }
    void append(WscInstruction* theInstruction) { instructionsM.push_back(theInstruction); }

    // Drops all but the first theCount instructions.
    void truncate(std::size_t theCount) { instructionsM.resize(theCount); }
    void clear() {
        instructionsM.clear();
        arenaM.clear();
    }

    std::span<WscInstruction*> instructions() noexcept { return instructionsM; }

  private:
    FwArena arenaM;
    std::vector<WscInstruction*> instructionsM;
};

}  // namespace lumnis
