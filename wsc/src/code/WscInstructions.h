// The instructions of the function that is being compiled.
//
// An instruction is a value of eight bytes, whatever its kind: a function's code is one array of
// them. The classes derived from WscInstruction add no data; each is the way to make one kind.
#pragma once

#include <cstdint>

#include "CpsString.h"
#include "WscOpcode.h"

namespace lumnis {

class WscInstruction {
  public:
    // The operand that the optimizer compares: a variable, constant or function; 0 where there is
    // none.
    unsigned getIndex() const noexcept;
    // Appends the bytes of the file. Throws std::runtime_error for a jump without a form.
    void writeByteCodeInformation(CpsString& theOutput) const;
    // Appends the operands as decimal numbers, a blank behind each. thePosition, in bytes from the
    // start of the function's code, is what the listing shows of a label.
    void writeAssemblyCodeInformation(CpsString& theOutput, std::uint32_t thePosition) const;

    // For a short form the base value: the operand is joined to it only in the file.
    WscOpcode getInstructionNbr() const noexcept { return instructionNbrM; }
    void setInstructionNbr(WscOpcode theNumber) noexcept { instructionNbrM = theNumber; }
    // In bytes; 0 for a jump without a form yet and for a label.
    std::uint8_t getSize() const noexcept { return sizeM; }
    void setSize(std::uint8_t theSize) noexcept { sizeM = theSize; }

    bool is(WscOpcode theOpcode) const noexcept { return instructionNbrM == theOpcode; }
    // A jump without a form yet, or a label.
    bool isFlow() const noexcept {
        return valueOf(instructionNbrM) >= valueOf(WscOpcode::PseudoJump);
    }

    // Of jumps and labels.
    std::uint32_t getLabel() const noexcept { return secondM; }
    void setOffset(std::uint16_t theOffset) noexcept { firstM = theOffset; }

  protected:
    WscInstruction(WscOpcode theInstructionNbr, std::uint8_t theSize, std::uint16_t theFirst,
                   std::uint32_t theSecond) noexcept
        : instructionNbrM(theInstructionNbr),
          sizeM(theSize),
          firstM(theFirst),
          secondM(theSecond) {}

  private:
    WscOpcode instructionNbrM;
    std::uint8_t sizeM;
    // What they hold depends on the kind:
    //     jump and label      offset                              label
    //     index               variable, constant or function
    //     library call        function id                         library id
    //     call by URL         URL constant                        name constant, and above its 16
    //                                                             bits the number of arguments
    std::uint16_t firstM;
    std::uint32_t secondM;
};
static_assert(sizeof(WscInstruction) == 8);

// A jump, or the label that jumps go to.
class WscFlowInstruction final : public WscInstruction {
  public:
    WscFlowInstruction(WscOpcode theInstructionNbr, std::uint32_t theLabel) noexcept
        : WscInstruction(theInstructionNbr, 0, 0, theLabel) {}
};

// Opcode and an operand: in one byte, or with the operand in a byte or two of its own.
template <class Index>
class WscOperandInstruction final : public WscInstruction {
  public:
    WscOperandInstruction(WscOpcode theInstructionNbr, std::uint8_t theSize,
                          Index theIndex) noexcept
        : WscInstruction(theInstructionNbr, theSize, theIndex, 0) {}
};
using WscShortInstruction = WscOperandInstruction<std::uint8_t>;
using WscMediumInstruction = WscOperandInstruction<std::uint8_t>;
using WscWideInstruction = WscOperandInstruction<std::uint16_t>;

// A call of a library function; in the short form the function id is in the opcode's low bits.
template <class LibraryId>
class WscCallLibInstruction final : public WscInstruction {
  public:
    WscCallLibInstruction(WscOpcode theInstructionNbr, std::uint8_t theSize,
                          std::uint8_t theFunctionId, LibraryId theLibraryId) noexcept
        : WscInstruction(theInstructionNbr, theSize, theFunctionId, theLibraryId) {}
};
using WscCallLibShortInstruction = WscCallLibInstruction<std::uint8_t>;
using WscCallLibMediumInstruction = WscCallLibInstruction<std::uint8_t>;
using WscCallLibWideInstruction = WscCallLibInstruction<std::uint16_t>;

// A call into another unit, both constants with indices of the size of Index.
template <class Index>
class WscCallUrlInstruction final : public WscInstruction {
  public:
    WscCallUrlInstruction(WscOpcode theInstructionNbr, std::uint8_t theSize, Index theUrlIndex,
                          Index theFunctionIndex, std::uint8_t theArgumentCount) noexcept
        : WscInstruction(theInstructionNbr, theSize, theUrlIndex,
                         theFunctionIndex | std::uint32_t{theArgumentCount} << 16) {}
};
using WscCallUrlMediumInstruction = WscCallUrlInstruction<std::uint8_t>;
using WscCallUrlWideInstruction = WscCallUrlInstruction<std::uint16_t>;

// An opcode alone.
class WscNormalInstruction final : public WscInstruction {
  public:
    WscNormalInstruction(WscOpcode theInstructionNbr, std::uint8_t theSize) noexcept
        : WscInstruction(theInstructionNbr, theSize, 0, 0) {}
};

}  // namespace lumnis
