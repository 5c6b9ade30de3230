// One object per instruction of the function that is being compiled.
//
// Instructions live in the arena of their function and die with it, without a call.
#pragma once

#include <cstdint>

#include "CpsString.h"
#include "WscOpcode.h"

namespace lumnis {

class WscInstruction {
  public:
    WscInstruction(WscOpcode theInstructionNbr, std::uint8_t theSize) noexcept
        : instructionNbrM(theInstructionNbr), sizeM(theSize) {}
    WscInstruction(const WscInstruction&) = delete;
    WscInstruction& operator=(const WscInstruction&) = delete;

    // The operand that the optimizer compares: a variable or constant; 0 where there is none.
    virtual unsigned getIndex() const noexcept { return 0; }
    // Appends the bytes of the file.
    virtual void writeByteCodeInformation(CpsString& theOutput) const = 0;
    // Appends the operands as decimal numbers, a blank behind each.
    virtual void writeAssemblyCodeInformation(CpsString& theOutput) const = 0;

    // For a short form the base value: the operand is joined to it only in the file.
    WscOpcode getInstructionNbr() const noexcept { return instructionNbrM; }
    void setInstructionNbr(WscOpcode theNumber) noexcept { instructionNbrM = theNumber; }
    // In bytes; 0 for a jump without a form yet and for a label.
    std::uint8_t getSize() const noexcept { return sizeM; }
    void setSize(std::uint8_t theSize) noexcept { sizeM = theSize; }

    bool is(WscOpcode theOpcode) const noexcept { return instructionNbrM == theOpcode; }

  protected:
    ~WscInstruction() = default;

  private:
    WscOpcode instructionNbrM;
    std::uint8_t sizeM;
};

// A jump, or the label that jumps go to.
class WscFlowInstruction final : public WscInstruction {
  public:
    WscFlowInstruction(WscOpcode theInstructionNbr, std::uint32_t theLabel) noexcept
        : WscInstruction(theInstructionNbr, 0), labelM(theLabel) {}

    // Throws std::runtime_error for a jump without a form.
    void writeByteCodeInformation(CpsString& theOutput) const override;
    void writeAssemblyCodeInformation(CpsString& theOutput) const override;

    std::uint32_t getLabel() const noexcept { return labelM; }
    // In bytes from the start of the function's code.
    std::uint32_t getPos() const noexcept { return positionM; }
    void setPos(std::uint32_t thePosition) noexcept { positionM = thePosition; }
    void setOffset(std::uint16_t theOffset) noexcept { offsetM = theOffset; }

  private:
    std::uint32_t labelM;
    std::uint16_t offsetM = 0;
    std::uint32_t positionM = 0;
};

// Opcode and operand in one byte.
class WscShortInstruction final : public WscInstruction {
  public:
    WscShortInstruction(WscOpcode theInstructionNbr, std::uint8_t theSize,
                        std::uint8_t theIndex) noexcept
        : WscInstruction(theInstructionNbr, theSize), indexM(theIndex) {}

    unsigned getIndex() const noexcept override { return indexM; }
    void writeByteCodeInformation(CpsString& theOutput) const override;
    void writeAssemblyCodeInformation(CpsString& theOutput) const override;

  private:
    std::uint8_t indexM;
};

// Opcode and an operand of the size of Index.
template <class Index>
class WscOperandInstruction final : public WscInstruction {
  public:
    WscOperandInstruction(WscOpcode theInstructionNbr, std::uint8_t theSize,
                          Index theIndex) noexcept
        : WscInstruction(theInstructionNbr, theSize), indexM(theIndex) {}

    unsigned getIndex() const noexcept override { return indexM; }
    void writeByteCodeInformation(CpsString& theOutput) const override;
    void writeAssemblyCodeInformation(CpsString& theOutput) const override;

  private:
    Index indexM;
};
using WscMediumInstruction = WscOperandInstruction<std::uint8_t>;
using WscWideInstruction = WscOperandInstruction<std::uint16_t>;

// A call of a library function, the function id in the opcode's low bits.
class WscCallLibShortInstruction final : public WscInstruction {
  public:
    WscCallLibShortInstruction(WscOpcode theInstructionNbr, std::uint8_t theSize,
                               std::uint8_t theFunctionId, std::uint8_t theLibraryId) noexcept
        : WscInstruction(theInstructionNbr, theSize),
          functionIdM(theFunctionId),
          libraryIdM(theLibraryId) {}

    void writeByteCodeInformation(CpsString& theOutput) const override;
    void writeAssemblyCodeInformation(CpsString& theOutput) const override;

  private:
    std::uint8_t functionIdM;
    std::uint8_t libraryIdM;
};

// The same, the function id in a byte of its own and the library id of the size of LibraryId.
template <class LibraryId>
class WscCallLibInstruction final : public WscInstruction {
  public:
    WscCallLibInstruction(WscOpcode theInstructionNbr, std::uint8_t theSize,
                          std::uint8_t theFunctionId, LibraryId theLibraryId) noexcept
        : WscInstruction(theInstructionNbr, theSize),
          functionIdM(theFunctionId),
          libraryIdM(theLibraryId) {}

    void writeByteCodeInformation(CpsString& theOutput) const override;
    void writeAssemblyCodeInformation(CpsString& theOutput) const override;

  private:
    std::uint8_t functionIdM;
    LibraryId libraryIdM;
};
using WscCallLibMediumInstruction = WscCallLibInstruction<std::uint8_t>;
using WscCallLibWideInstruction = WscCallLibInstruction<std::uint16_t>;

// A call into another unit, both constants with indices of the size of Index.
template <class Index>
class WscCallUrlInstruction final : public WscInstruction {
  public:
    WscCallUrlInstruction(WscOpcode theInstructionNbr, std::uint8_t theSize, Index theUrlIndex,
                          Index theFunctionIndex, std::uint8_t theArgumentCount) noexcept
        : WscInstruction(theInstructionNbr, theSize),
          urlIndexM(theUrlIndex),
          functionIndexM(theFunctionIndex),
          argumentCountM(theArgumentCount) {}

    void writeByteCodeInformation(CpsString& theOutput) const override;
    void writeAssemblyCodeInformation(CpsString& theOutput) const override;

  private:
    Index urlIndexM;
    Index functionIndexM;
    std::uint8_t argumentCountM;
};
using WscCallUrlMediumInstruction = WscCallUrlInstruction<std::uint8_t>;
using WscCallUrlWideInstruction = WscCallUrlInstruction<std::uint16_t>;

// An opcode alone.
class WscNormalInstruction final : public WscInstruction {
  public:
    using WscInstruction::WscInstruction;

    void writeByteCodeInformation(CpsString& theOutput) const override;
    void writeAssemblyCodeInformation(CpsString& theOutput) const override;
};

}  // namespace lumnis
