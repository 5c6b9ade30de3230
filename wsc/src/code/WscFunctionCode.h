// The code of the function that is being compiled: its instructions in order.
#pragma once

#include <cstddef>
#include <span>

#include "CpsArray.h"
#include "WscInstructions.h"

namespace lumnis {

class WscFunctionCode {
  public:
    void append(const WscInstruction& theInstruction) { instructionsM.append(theInstruction); }

    // Drops all but the first theCount instructions.
    void truncate(std::size_t theCount) noexcept { instructionsM.truncate(theCount); }
    void clear() noexcept { instructionsM.clear(); }

    std::span<WscInstruction> instructions() noexcept { return instructionsM.values(); }

  private:
    CpsArray<WscInstruction, 128> instructionsM;
};

}  // namespace lumnis
