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

WscOperands operandsOf(WscOpcode theOpcode) noexcept {
    return theOperandsByOpcode[valueOf(theOpcode)];
}

}  // namespace

unsigned WscInstruction::getIndex() const noexcept {
    switch (operandsOf(instructionNbrM)) {
        case WscOperands::Short:
        case WscOperands::Byte:
        case WscOperands::Word:
            return firstM;
        default:
            return 0;
    }
}

void WscInstruction::writeByteCodeInformation(CpsString& theOutput) const {
    switch (operandsOf(instructionNbrM)) {
        case WscOperands::None:
            writeOpcode(theOutput, instructionNbrM);
            break;
        case WscOperands::Short:
        case WscOperands::JumpShort:
            writeByte(theOutput, valueOf(instructionNbrM) | firstM);
            break;
        case WscOperands::Byte:
        case WscOperands::JumpByte:
            writeOpcode(theOutput, instructionNbrM);
            writeByte(theOutput, firstM);
            break;
        case WscOperands::Word:
        case WscOperands::JumpWord:
            writeOpcode(theOutput, instructionNbrM);
            writeWord(theOutput, firstM);
            break;
        case WscOperands::LibraryShort:
            writeByte(theOutput, valueOf(instructionNbrM) | firstM);
            writeByte(theOutput, secondM);
            break;
        case WscOperands::LibraryByte:
            writeOpcode(theOutput, instructionNbrM);
            writeByte(theOutput, firstM);
            writeByte(theOutput, secondM);
            break;
        case WscOperands::LibraryWord:
            writeOpcode(theOutput, instructionNbrM);
            writeByte(theOutput, firstM);
            writeWord(theOutput, secondM);
            break;
        case WscOperands::UrlByte:
            writeOpcode(theOutput, instructionNbrM);
            writeByte(theOutput, firstM);
            writeByte(theOutput, secondM);
            writeByte(theOutput, secondM >> 16);
            break;
        case WscOperands::UrlWord:
            writeOpcode(theOutput, instructionNbrM);
            writeWord(theOutput, firstM);
            writeWord(theOutput, secondM);
            writeByte(theOutput, secondM >> 16);
            break;
        case WscOperands::Pseudo:
            if (!is(WscOpcode::PseudoLabel)) {
                throw std::runtime_error("Internal error: Error in instruction Nbr");
            }
            break;
    }
}

void WscInstruction::writeAssemblyCodeInformation(CpsString& theOutput,
                                                  std::uint32_t thePosition) const {
    switch (operandsOf(instructionNbrM)) {
        case WscOperands::None:
            break;
        case WscOperands::Short:
        case WscOperands::Byte:
        case WscOperands::Word:
            writeNumber(theOutput, firstM);
            break;
        case WscOperands::JumpShort:
        case WscOperands::JumpByte:
        case WscOperands::JumpWord:
            theOutput += "$LABEL";
            writeNumber(theOutput, secondM);
            writeNumber(theOutput, firstM);
            writeNumber(theOutput, sizeM);
            break;
        case WscOperands::LibraryShort:
        case WscOperands::LibraryByte:
        case WscOperands::LibraryWord:
            writeNumber(theOutput, firstM);
            writeNumber(theOutput, secondM);
            break;
        case WscOperands::UrlByte:
        case WscOperands::UrlWord:
            writeNumber(theOutput, firstM);
            writeNumber(theOutput, secondM & 0xFFFF);
            writeNumber(theOutput, secondM >> 16);
            break;
        case WscOperands::Pseudo:
            if (is(WscOpcode::PseudoLabel)) {
                theOutput += "$LABEL";
                writeNumber(theOutput, secondM);
                writeNumber(theOutput, thePosition);
            }
            break;
    }
}

}  // namespace lumnis
