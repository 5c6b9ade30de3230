#include "WscInstructions.h"

#include <charconv>
#include <stdexcept>

namespace lumnis {

namespace {

void writeByte(CpsString& theOutput, unsigned theValue) {
    theOutput += static_cast<char>(theValue & 0xFF);
}

void writeOpcode(CpsString& theOutput, WscOpcode theOpcode) {
    writeByte(theOutput, valueOf(theOpcode));
}

void writeWord(CpsString& theOutput, unsigned theValue) {
    writeByte(theOutput, theValue >> 8);
    writeByte(theOutput, theValue);
}

void writeOperand(CpsString& theOutput, std::uint8_t theValue) {
    writeByte(theOutput, theValue);
}

void writeOperand(CpsString& theOutput, std::uint16_t theValue) {
    writeWord(theOutput, theValue);
}

void writeNumber(CpsString& theOutput, unsigned theValue) {
    char text[16];
    const auto end = std::to_chars(text, text + sizeof text, theValue);
    theOutput += std::string_view(text, static_cast<std::size_t>(end.ptr - text));
    theOutput += ' ';
}

}  // namespace

void WscFlowInstruction::writeByteCodeInformation(CpsString& theOutput) const {
    switch (getInstructionNbr()) {
        case WscOpcode::JumpFw:
        case WscOpcode::JumpBw:
        case WscOpcode::TjumpFw:
        case WscOpcode::TjumpBw:
            writeOpcode(theOutput, getInstructionNbr());
            writeByte(theOutput, offsetM);
            break;
        case WscOpcode::JumpFwW:
        case WscOpcode::JumpBwW:
        case WscOpcode::TjumpFwW:
        case WscOpcode::TjumpBwW:
            writeOpcode(theOutput, getInstructionNbr());
            writeWord(theOutput, offsetM);
            break;
        case WscOpcode::JumpFwS:
        case WscOpcode::JumpBwS:
        case WscOpcode::TjumpFwS:
            writeByte(theOutput, valueOf(getInstructionNbr()) | offsetM);
            break;
        case WscOpcode::PseudoLabel:
            break;
        default:
            throw std::runtime_error("Internal error: Error in instruction Nbr");
    }
}

void WscFlowInstruction::writeAssemblyCodeInformation(CpsString& theOutput) const {
    if (is(WscOpcode::PseudoJump) || is(WscOpcode::PseudoTjump)) {
        return;
    }
    theOutput += "$LABEL";
    writeNumber(theOutput, labelM);
    if (is(WscOpcode::PseudoLabel)) {
        writeNumber(theOutput, positionM);
    } else {
        writeNumber(theOutput, offsetM);
        writeNumber(theOutput, getSize());
    }
}

void WscShortInstruction::writeByteCodeInformation(CpsString& theOutput) const {
    writeByte(theOutput, valueOf(getInstructionNbr()) | indexM);
}

void WscShortInstruction::writeAssemblyCodeInformation(CpsString& theOutput) const {
    writeNumber(theOutput, indexM);
}

template <class Index>
void WscOperandInstruction<Index>::writeByteCodeInformation(CpsString& theOutput) const {
    writeOpcode(theOutput, getInstructionNbr());
    writeOperand(theOutput, indexM);
}

template <class Index>
void WscOperandInstruction<Index>::writeAssemblyCodeInformation(CpsString& theOutput) const {
    writeNumber(theOutput, indexM);
}

template class WscOperandInstruction<std::uint8_t>;
template class WscOperandInstruction<std::uint16_t>;

void WscCallLibShortInstruction::writeByteCodeInformation(CpsString& theOutput) const {
    writeByte(theOutput, valueOf(getInstructionNbr()) | functionIdM);
    writeByte(theOutput, libraryIdM);
}

void WscCallLibShortInstruction::writeAssemblyCodeInformation(CpsString& theOutput) const {
    writeNumber(theOutput, functionIdM);
    writeNumber(theOutput, libraryIdM);
}

template <class LibraryId>
void WscCallLibInstruction<LibraryId>::writeByteCodeInformation(CpsString& theOutput) const {
    writeOpcode(theOutput, getInstructionNbr());
    writeOperand(theOutput, functionIdM);
    writeOperand(theOutput, libraryIdM);
}

template <class LibraryId>
void WscCallLibInstruction<LibraryId>::writeAssemblyCodeInformation(CpsString& theOutput) const {
    writeNumber(theOutput, functionIdM);
    writeNumber(theOutput, libraryIdM);
}

template class WscCallLibInstruction<std::uint8_t>;
template class WscCallLibInstruction<std::uint16_t>;

template <class Index>
void WscCallUrlInstruction<Index>::writeByteCodeInformation(CpsString& theOutput) const {
    writeOpcode(theOutput, getInstructionNbr());
    writeOperand(theOutput, urlIndexM);
    writeOperand(theOutput, functionIndexM);
    writeOperand(theOutput, argumentCountM);
}

template <class Index>
void WscCallUrlInstruction<Index>::writeAssemblyCodeInformation(CpsString& theOutput) const {
    writeNumber(theOutput, urlIndexM);
    writeNumber(theOutput, functionIndexM);
    writeNumber(theOutput, argumentCountM);
}

template class WscCallUrlInstruction<std::uint8_t>;
template class WscCallUrlInstruction<std::uint16_t>;

void WscNormalInstruction::writeByteCodeInformation(CpsString& theOutput) const {
    writeOpcode(theOutput, getInstructionNbr());
}

void WscNormalInstruction::writeAssemblyCodeInformation(CpsString&) const {}

}  // namespace lumnis
