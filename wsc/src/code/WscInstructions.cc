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

void WscMediumInstruction::writeByteCodeInformation(CpsString& theOutput) const {
    writeOpcode(theOutput, getInstructionNbr());
    writeByte(theOutput, indexM);
}

void WscMediumInstruction::writeAssemblyCodeInformation(CpsString& theOutput) const {
    writeNumber(theOutput, indexM);
}

void WscWideInstruction::writeByteCodeInformation(CpsString& theOutput) const {
    writeOpcode(theOutput, getInstructionNbr());
    writeWord(theOutput, indexM);
}

void WscWideInstruction::writeAssemblyCodeInformation(CpsString& theOutput) const {
    writeNumber(theOutput, indexM);
}

void WscCallLibShortInstruction::writeByteCodeInformation(CpsString& theOutput) const {
    writeByte(theOutput, valueOf(getInstructionNbr()) | functionIdM);
    writeByte(theOutput, libraryIdM);
}

void WscCallLibShortInstruction::writeAssemblyCodeInformation(CpsString& theOutput) const {
    writeNumber(theOutput, functionIdM);
    writeNumber(theOutput, libraryIdM);
}

void WscCallLibMediumInstruction::writeByteCodeInformation(CpsString& theOutput) const {
    writeOpcode(theOutput, getInstructionNbr());
    writeByte(theOutput, functionIdM);
    writeByte(theOutput, libraryIdM);
}

void WscCallLibMediumInstruction::writeAssemblyCodeInformation(CpsString& theOutput) const {
    writeNumber(theOutput, functionIdM);
    writeNumber(theOutput, libraryIdM);
}

void WscCallLibWideInstruction::writeByteCodeInformation(CpsString& theOutput) const {
    writeOpcode(theOutput, getInstructionNbr());
    writeByte(theOutput, functionIdM);
    writeWord(theOutput, libraryIdM);
}

void WscCallLibWideInstruction::writeAssemblyCodeInformation(CpsString& theOutput) const {
    writeNumber(theOutput, functionIdM);
    writeNumber(theOutput, libraryIdM);
}

void WscCallUrlMediumInstruction::writeByteCodeInformation(CpsString& theOutput) const {
    writeOpcode(theOutput, getInstructionNbr());
    writeByte(theOutput, urlIndexM);
    writeByte(theOutput, functionIndexM);
    writeByte(theOutput, argumentCountM);
}

void WscCallUrlMediumInstruction::writeAssemblyCodeInformation(CpsString& theOutput) const {
    writeNumber(theOutput, urlIndexM);
    writeNumber(theOutput, functionIndexM);
    writeNumber(theOutput, argumentCountM);
}

void WscCallUrlWideInstruction::writeByteCodeInformation(CpsString& theOutput) const {
    writeOpcode(theOutput, getInstructionNbr());
    writeWord(theOutput, urlIndexM);
    writeWord(theOutput, functionIndexM);
    writeByte(theOutput, argumentCountM);
}

void WscCallUrlWideInstruction::writeAssemblyCodeInformation(CpsString& theOutput) const {
    writeNumber(theOutput, urlIndexM);
    writeNumber(theOutput, functionIndexM);
    writeNumber(theOutput, argumentCountM);
}

void WscNormalInstruction::writeByteCodeInformation(CpsString& theOutput) const {
    writeOpcode(theOutput, getInstructionNbr());
}

void WscNormalInstruction::writeAssemblyCodeInformation(CpsString&) const {}

}  // namespace lumnis
