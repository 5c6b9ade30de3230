// A jump takes one byte when its distance is at most 31, two up to 255, three up to 65535; there
// is no backward conditional jump of one byte. The sizes depend on each other: a jump that grows
// pushes apart what lies on its two sides, and so may push a second jump over a limit.
//
//     JUMP end        distance 31: one byte   ...  32 once the TJUMP inside has grown
//     ... TJUMP far   needs two bytes
//     end:
//
// Growing never shortens a distance, so there is one least solution: begin with one byte each
// and grow what does not fit until all do. The order of growing does not matter.
//
// To find what a growth disturbs without walking all jumps: only jumps that are still short of
// three bytes can grow, those reach at most 255 bytes, and every jump in between takes at least
// one byte. So a jump that grows looks at its neighbours within about 255 bytes on either side,
// and it grows twice at most: the cost is linear in the number of jumps, with a constant bound.
#include "WscJumpLayout.h"

#include <cstddef>
#include <stdexcept>
#include <vector>
#include "FwTraceScope.h"

namespace lumnis {

namespace {

constexpr std::uint32_t theMaxShortOffset = 31;
constexpr std::uint32_t theMaxByteOffset = 255;
constexpr std::uint32_t theMaxWordOffset = 65535;
// A jump that reaches across a position lies nearer than this, unless it has its three bytes.
constexpr std::uint32_t theReach = theMaxByteOffset + 3;

struct Jump {
    WscFlowInstruction* instruction;
    const WscFlowInstruction* target;
    std::uint32_t start;   // position with all jumps of one byte; distances only grow from it
    std::uint32_t offset;  // as it stands in the code: from the end of a forward jump, from the
                           // start of a backward one
    // The jumps whose growth makes the offset grow: from lowest to highest - 1, by number.
    std::size_t lowest;
    std::size_t highest;
    bool isForward;
    bool isConditional;
};

std::uint8_t sizeFor(const Jump& theJump) noexcept {
    if (theJump.offset <= theMaxShortOffset && (theJump.isForward || !theJump.isConditional)) {
        return 1;
    }
    return theJump.offset <= theMaxByteOffset ? 2 : 3;
}

WscOpcode opcodeFor(const Jump& theJump) {
    const std::uint8_t size = theJump.instruction->getSize();
    if (theJump.isConditional) {
        if (theJump.isForward) {
            return size == 1   ? WscOpcode::TjumpFwS
                   : size == 2 ? WscOpcode::TjumpFw
                               : WscOpcode::TjumpFwW;
        }
        if (size == 1) {
            throw std::runtime_error("Internal error: There exists no TJump_BW_S instruction");
        }
        return size == 2 ? WscOpcode::TjumpBw : WscOpcode::TjumpBwW;
    }
    if (theJump.isForward) {
        return size == 1 ? WscOpcode::JumpFwS : size == 2 ? WscOpcode::JumpFw : WscOpcode::JumpFwW;
    }
    return size == 1 ? WscOpcode::JumpBwS : size == 2 ? WscOpcode::JumpBw : WscOpcode::JumpBwW;
}

class Layout {
  public:
    Layout(std::span<WscInstruction* const> theCode, std::uint32_t theFirstLabel) {
        collect(theCode, theFirstLabel);
    }

    std::int64_t run() {
        for (std::size_t i = 0; i < jumpsM.size(); ++i) {
            grow(i);
        }
        while (!disturbedM.empty()) {
            const std::size_t jump = disturbedM.back();
            disturbedM.pop_back();
            grow(jump);
        }
        const std::uint32_t size = place();
        for (Jump& jump : jumpsM) {
            jump.offset = offsetOf(jump);
            if (jump.offset > theMaxWordOffset) {
                return -1;
            }
            jump.instruction->setInstructionNbr(opcodeFor(jump));
            jump.instruction->setOffset(static_cast<std::uint16_t>(jump.offset));
        }
        return size;
    }

  private:
    // A jump or a label, and the bytes of other instructions in front of it.
    struct Flow {
        WscFlowInstruction* instruction;
        std::uint32_t gap;
    };

    // The first layout, with one byte for each jump, and what follows from it.
    void collect(std::span<WscInstruction* const> theCode, std::uint32_t theFirstLabel) {
        // For each label: its instruction and the number of jumps in front of it.
        std::vector<const WscFlowInstruction*> labels;
        std::vector<std::size_t> jumpsBefore;
        std::uint32_t gap = 0;
        for (WscInstruction* instruction : theCode) {
            if (!isFlow(*instruction)) {
                gap += instruction->getSize();
                continue;
            }
            auto* flow = static_cast<WscFlowInstruction*>(instruction);
            flowsM.push_back({flow, gap});
            gap = 0;
            if (flow->is(WscOpcode::PseudoLabel)) {
                const std::size_t index = flow->getLabel() - theFirstLabel;
                if (index >= labels.size()) {
                    labels.resize(index + 1);
                    jumpsBefore.resize(index + 1);
                }
                labels[index] = flow;
                jumpsBefore[index] = jumpsM.size();
            } else {
                flow->setSize(1);
                jumpsM.push_back(
                    {flow, nullptr, 0, 0, 0, 0, false, flow->is(WscOpcode::PseudoTjump)});
            }
        }
        tailM = gap;
        place();
        for (std::size_t i = 0; i < jumpsM.size(); ++i) {
            Jump& jump = jumpsM[i];
            const std::size_t label = jump.instruction->getLabel() - theFirstLabel;
            jump.target = labels.at(label);
            jump.start = jump.instruction->getPos();
            jump.isForward = jump.target->getPos() > jump.start;
            jump.lowest = jump.isForward ? i + 1 : jumpsBefore[label];
            jump.highest = jump.isForward ? jumpsBefore[label] : i;
            jump.offset = offsetOf(jump);
        }
    }

    static bool isFlow(const WscInstruction& theInstruction) noexcept {
        return theInstruction.is(WscOpcode::PseudoLabel) ||
               theInstruction.is(WscOpcode::PseudoJump) ||
               theInstruction.is(WscOpcode::PseudoTjump);
    }

    // Sets all positions by the sizes as they are; returns the size of the code.
    std::uint32_t place() noexcept {
        std::uint32_t position = 0;
        for (const Flow& flow : flowsM) {
            position += flow.gap;
            flow.instruction->setPos(position);
            position += flow.instruction->getSize();
        }
        return position + tailM;
    }

    static std::uint32_t offsetOf(const Jump& theJump) noexcept {
        const std::uint32_t from = theJump.instruction->getPos();
        const std::uint32_t to = theJump.target->getPos();
        return theJump.isForward ? to - from - theJump.instruction->getSize() : from - to;
    }

    // Gives the jump the size that its offset wants and disturbs whom that pushes over a limit.
    void grow(std::size_t theJump) {
        Jump& jump = jumpsM[theJump];
        const std::uint8_t size = sizeFor(jump);
        if (size <= jump.instruction->getSize()) {
            return;
        }
        const std::uint8_t growth = static_cast<std::uint8_t>(size - jump.instruction->getSize());
        jump.instruction->setSize(size);
        for (std::size_t i = theJump; i-- != 0 && jump.start - jumpsM[i].start <= theReach;) {
            pushApart(i, theJump, growth);
        }
        for (std::size_t i = theJump + 1;
             i < jumpsM.size() && jumpsM[i].start - jump.start <= theReach; ++i) {
            pushApart(i, theJump, growth);
        }
    }

    void pushApart(std::size_t theJump, std::size_t theGrown, std::uint8_t theGrowth) {
        Jump& jump = jumpsM[theJump];
        if (theGrown >= jump.lowest && theGrown < jump.highest) {
            jump.offset += theGrowth;
            if (sizeFor(jump) > jump.instruction->getSize()) {
                disturbedM.push_back(theJump);
            }
        }
    }

    std::vector<Flow> flowsM;  // in order
    std::uint32_t tailM = 0;   // bytes behind the last of them
    std::vector<Jump> jumpsM;  // in order
    std::vector<std::size_t> disturbedM;
};

}  // namespace

std::int64_t layoutJumps(std::span<WscInstruction* const> theCode, std::uint32_t theFirstLabel) {
    FwTraceScope scope("layoutJumps");
    return Layout(theCode, theFirstLabel).run();
}

}  // namespace lumnis
