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

#include "CpsArray.h"
#include "FwTraceScope.h"

namespace lumnis {

namespace {

constexpr std::uint32_t theMaxShortOffset = 31;
constexpr std::uint32_t theMaxByteOffset = 255;
constexpr std::uint32_t theMaxWordOffset = 65535;
// A jump that reaches across a position lies nearer than this, unless it has its three bytes.
constexpr std::uint32_t theReach = theMaxByteOffset + 3;

// A jump or a label.
struct Flow {
    WscInstruction* instruction;
    std::uint32_t gap;       // bytes of other instructions in front of it
    std::uint32_t position;  // in bytes from the start of the function's code
};

struct Jump {
    std::uint32_t flow = 0;  // itself and the label that it goes to, by number
    std::uint32_t target = 0;
    std::uint32_t start = 0;   // position with all jumps of one byte; distances only grow from it
    std::uint32_t offset = 0;  // as it stands in the code: from the end of a forward jump, from
                               // the start of a backward one
    // The jumps whose growth makes the offset grow: from lowest to highest - 1, by number.
    std::uint32_t lowest = 0;
    std::uint32_t highest = 0;
    bool isForward = false;
    bool isConditional = false;
    std::uint8_t size = 1;
};

struct Label {
    std::uint32_t flow = 0;
    std::uint32_t jumpsBefore = 0;  // number of jumps in front of it
};

std::uint8_t sizeFor(const Jump& theJump) noexcept {
    if (theJump.offset <= theMaxShortOffset && (theJump.isForward || !theJump.isConditional)) {
        return 1;
    }
    return theJump.offset <= theMaxByteOffset ? 2 : 3;
}

WscOpcode opcodeFor(const Jump& theJump) {
    const std::uint8_t size = theJump.size;
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
    // The first layout, with one byte for each jump, and what follows from it.
    Layout(std::span<WscInstruction> theCode, std::uint32_t theFirstLabel)
        : firstLabelM(theFirstLabel) {
        Labels labels;
        reserve(theCode, labels);
        collect(theCode, labels);
        place();
        resolve(labels);
    }

    // Gives each jump its form. As layoutJumps.
    std::int64_t run() {
        for (std::uint32_t i = 0; i < jumpsM.size(); ++i) {
            grow(i);
        }
        while (!disturbedM.empty()) {
            const std::uint32_t jump = disturbedM.back();
            disturbedM.pop();
            grow(jump);
        }
        const std::uint32_t size = place();
        for (Jump& jump : jumpsM) {
            jump.offset = offsetOf(jump);
            if (jump.offset > theMaxWordOffset) {
                return -1;
            }
            WscInstruction& instruction = *flowsM[jump.flow].instruction;
            instruction.setInstructionNbr(opcodeFor(jump));
            instruction.setOffset(static_cast<std::uint16_t>(jump.offset));
        }
        return size;
    }

  private:
    using Labels = CpsArray<Label, 32>;  // by number, the first label of the function first

    void reserve(std::span<const WscInstruction> theCode, Labels& theLabels) {
        std::size_t jumpCount = 0;
        std::size_t labelCount = 0;
        for (const WscInstruction& instruction : theCode) {
            const bool isLabel = instruction.is(WscOpcode::PseudoLabel);
            labelCount += isLabel;
            jumpCount += !isLabel && instruction.isFlow();
        }
        flowsM.reserve(jumpCount + labelCount);
        jumpsM.reserve(jumpCount);
        theLabels.reserve(labelCount);
    }

    // Finds the jumps and the labels.
    void collect(std::span<WscInstruction> theCode, Labels& theLabels) {
        std::uint32_t gap = 0;
        for (WscInstruction& instruction : theCode) {
            if (!instruction.isFlow()) {
                gap += instruction.getSize();
                continue;
            }
            const auto flow = static_cast<std::uint32_t>(flowsM.size());
            flowsM.append(Flow{&instruction, gap, 0});
            gap = 0;
            if (instruction.is(WscOpcode::PseudoLabel)) {
                const std::size_t index = indexOf(instruction);
                if (index >= theLabels.size()) {
                    theLabels.resize(index + 1);
                }
                theLabels[index] = {flow, static_cast<std::uint32_t>(jumpsM.size())};
            } else {
                instruction.setSize(1);
                Jump jump;
                jump.flow = flow;
                jump.isConditional = instruction.is(WscOpcode::PseudoTjump);
                jumpsM.append(jump);
            }
        }
        tailM = gap;
    }

    // Tells each jump where it goes and whose growth it feels.
    void resolve(const Labels& theLabels) noexcept {
        for (std::uint32_t i = 0; i < jumpsM.size(); ++i) {
            Jump& jump = jumpsM[i];
            const Flow& flow = flowsM[jump.flow];
            const Label& label = theLabels[indexOf(*flow.instruction)];
            jump.target = label.flow;
            jump.start = flow.position;
            jump.isForward = flowsM[jump.target].position > jump.start;
            jump.lowest = jump.isForward ? i + 1 : label.jumpsBefore;
            jump.highest = jump.isForward ? label.jumpsBefore : i;
            jump.offset = offsetOf(jump);
        }
    }

    std::size_t indexOf(const WscInstruction& theFlow) const noexcept {
        return theFlow.getLabel() - firstLabelM;
    }

    // Sets all positions by the sizes as they are; returns the size of the code.
    std::uint32_t place() noexcept {
        std::uint32_t position = 0;
        for (Flow& flow : flowsM) {
            position += flow.gap;
            flow.position = position;
            position += flow.instruction->getSize();
        }
        return position + tailM;
    }

    std::uint32_t offsetOf(const Jump& theJump) const noexcept {
        const std::uint32_t from = flowsM[theJump.flow].position;
        const std::uint32_t to = flowsM[theJump.target].position;
        return theJump.isForward ? to - from - theJump.size : from - to;
    }

    // Gives the jump the size that its offset wants, and notes the jumps that this pushes over a
    // limit: they are to grow, too.
    void grow(std::uint32_t theJump) {
        Jump& jump = jumpsM[theJump];
        const std::uint8_t size = sizeFor(jump);
        if (size <= jump.size) {
            return;
        }
        const std::uint8_t growth = static_cast<std::uint8_t>(size - jump.size);
        jump.size = size;
        flowsM[jump.flow].instruction->setSize(size);
        for (std::uint32_t i = theJump; i-- != 0 && jump.start - jumpsM[i].start <= theReach;) {
            pushApart(i, theJump, growth);
        }
        for (std::uint32_t i = theJump + 1;
             i < jumpsM.size() && jumpsM[i].start - jump.start <= theReach; ++i) {
            pushApart(i, theJump, growth);
        }
    }

    void pushApart(std::uint32_t theJump, std::uint32_t theGrown, std::uint8_t theGrowth) {
        Jump& jump = jumpsM[theJump];
        if (theGrown >= jump.lowest && theGrown < jump.highest) {
            jump.offset += theGrowth;
            if (sizeFor(jump) > jump.size) {
                disturbedM.append(theJump);
            }
        }
    }

    std::uint32_t firstLabelM;
    CpsArray<Flow, 48> flowsM;  // in order
    std::uint32_t tailM = 0;    // bytes behind the last of them
    CpsArray<Jump, 32> jumpsM;  // in order
    CpsArray<std::uint32_t, 16> disturbedM;
};

}  // namespace

std::int64_t layoutJumps(std::span<WscInstruction> theCode, std::uint32_t theFirstLabel) {
    FwTraceScope scope("layoutJumps");
    return Layout(theCode, theFirstLabel).run();
}

}  // namespace lumnis
