// The code of the function that is being compiled: its instructions in order.
#pragma once

#include <cstddef>
#include <span>

#include "CpsArray.h"
#include "WscInstructions.h"

namespace lumnis {

class WscFunctionCode {
  public:
    // Makes an instruction at the end, in its place: one that is made elsewhere and copied costs
    // the processor a wait for its parts.
    template <class Instruction, class... Operands>
    void append(WscOpcode theOpcode, Operands... theOperands) {
        instructionsM.appendAs<Instruction>(theOpcode, theOperands...);
    }

    // Drops all but the first theCount instructions.
    void truncate(std::size_t theCount) noexcept { instructionsM.truncate(theCount); }
    void clear() noexcept { instructionsM.clear(); }
    // The same, and gives back the memory.
    void release() noexcept { instructionsM.release(); }

    std::span<WscInstruction> instructions() noexcept { return instructionsM.values(); }

  private:
    CpsArray<WscInstruction, 128> instructionsM;
};

}  // namespace lumnis
