// The code of the function that is being compiled: its instructions in order, and the arena in
// which they live.
#pragma once

#include <cstddef>
#include <memory_resource>
#include <new>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

#include "WscInstructions.h"

namespace lumnis {

class WscFunctionCode {
  public:
    // Makes an instruction that lives until clear. It is no part of the code yet.
    template <class Instruction, class... Arguments>
    Instruction* make(Arguments&&... theArguments) {
        static_assert(std::is_trivially_destructible_v<Instruction>);
        void* place = arenaM.allocate(sizeof(Instruction), alignof(Instruction));
        return new (place) Instruction(std::forward<Arguments>(theArguments)...);
    }
    void append(WscInstruction* theInstruction) { instructionsM.push_back(theInstruction); }

    // Drops all but the first theCount instructions.
    void truncate(std::size_t theCount) { instructionsM.resize(theCount); }
    void clear() {
        instructionsM.clear();
        arenaM.release();
    }

    std::span<WscInstruction*> instructions() noexcept { return instructionsM; }

  private:
    std::pmr::monotonic_buffer_resource arenaM{4096};
    std::vector<WscInstruction*> instructionsM;
};

}  // namespace lumnis
