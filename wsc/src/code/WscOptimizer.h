// The peephole optimizer: slides a frame of four instructions over a function and replaces known
// patterns by shorter code. It runs before any jump has a size; jumps and labels take part like
// other instructions, so a label inside the frame stops every pattern that does not name it.
#pragma once

#include <cstdint>
#include <span>

#include "WscFunctionCode.h"

namespace lumnis {

class WscOptimizer {
  public:
    // What a rule does, by the places of a frame. A rule remembers one index, x.
    enum class Action : std::uint16_t {
        DeleteFirst = 0,
        DeleteSecond = 1,
        DeleteFirstTwo = 2,
        DeleteFirstAndThird = 3,
        DeleteSecondAndThird = 4,
        DeleteFirstThree = 5,
        DeleteAllButSecond = 6,
        DeleteAll = 7,
        StopUnlessSecondHasIndex = 101,  // x = index of the first; the rule stops if they differ
        StopUnlessThirdHasIndex = 102,
        StopUnlessFourthHasIndex = 103,
        TakeIndexOfSecond = 104,
        InsertIncr = 200,
        InsertDecr = 201,
        InsertAdd = 202,
        InsertConstM1 = 203,
        InsertConst1 = 204,
        InsertUminus = 205,
        InsertIncrVar = 206,  // of x, in its shortest form
        InsertDecrVar = 207,
        InsertAddAsgBehindFirst = 208,
        InsertSubAsgBehindFirst = 209
    };

    static const WscOptimizer& instance();

    // Rewrites theCode in place, in one sweep. Does nothing unless isOptimizing.
    void optimizeFunctionCode(WscFunctionCode& theCode, bool isOptimizing) const;

    // The actions of the one rule that theFrame matches, or none. A frame holds the instruction
    // numbers of up to four instructions, the first in the lowest byte, 0 after the last.
    std::span<const Action> getFrameAction(std::uint32_t theFrame) const;
};

}  // namespace lumnis
