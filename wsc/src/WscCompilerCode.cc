// The part of WscCompilerData that makes the code of a function: from what the tree's nodes ask for
// to the instructions that go into the file, each in the shortest form that its operands fit.
#include <stdexcept>

#include "FwTraceScope.h"
#include "WscCompilerData.h"
#include "WscFunctionLibraryTable.h"
#include "WscGrammar.h"
#include "WscJumpLayout.h"
#include "WscOptimizer.h"
#include "WscStringAndIntHandler.h"

namespace lumnis {

namespace {

// The largest operand of a form with a byte of its own.
constexpr int theMaxByte = 255;

void requireRange(int theValue, int theMaximum, const char* theMessage) {
    if (theValue < 0 || theValue > theMaximum) {
        throw std::runtime_error(theMessage);
    }
}

}  // namespace

void WscCompilerData::startFunctionCode() {
    FwTraceScope scope("WscCompilerData::startFunctionCode");
    codeM.clear();
    for (WscName* variable : variablesM) {
        variable->variable = -1;
    }
    variablesM.clear();
    firstLabelM = nextLabelM;
}

template <class Instruction, WscOperands theForm, class... Operands>
void WscCompilerData::emit(WscOpcode theOpcode, Operands... theOperands) {
    codeM.append<Instruction>(theOpcode, sizeOf(theForm), theOperands...);
}

void WscCompilerData::emitShort(WscOpcode theOpcode, int theOperand) {
    emit<WscShortInstruction, WscOperands::Short>(theOpcode, static_cast<std::uint8_t>(theOperand));
}

void WscCompilerData::emitByte(WscOpcode theOpcode, int theOperand) {
    emit<WscMediumInstruction, WscOperands::Byte>(theOpcode, static_cast<std::uint8_t>(theOperand));
}

void WscCompilerData::emitWord(WscOpcode theOpcode, int theOperand) {
    emit<WscWideInstruction, WscOperands::Word>(theOpcode, static_cast<std::uint16_t>(theOperand));
}

void WscCompilerData::generate(WscOpcode theOpcode) {
    emit<WscNormalInstruction, WscOperands::None>(theOpcode);
}

void WscCompilerData::generateOperator(int theOperator) {
    switch (theOperator) {
        case '+':
            return generate(WscOpcode::Add);
        case '-':
            return generate(WscOpcode::Sub);
        case '*':
            return generate(WscOpcode::Mul);
        case '/':
            return generate(WscOpcode::Div);
        case '%':
            return generate(WscOpcode::Rem);
        case WSC_DIV:
            return generate(WscOpcode::Idiv);
        case '&':
            return generate(WscOpcode::BAnd);
        case '|':
            return generate(WscOpcode::BOr);
        case '^':
            return generate(WscOpcode::BXor);
        case WSC_SHIFT_LEFT:
            return generate(WscOpcode::BLshift);
        case WSC_SHIFT_RIGHT:
            return generate(WscOpcode::BRsshift);
        case WSC_SHIFT_RIGHT_ZERO:
            return generate(WscOpcode::BRszshift);
        case '<':
            return generate(WscOpcode::Lt);
        case '>':
            return generate(WscOpcode::Gt);
        case WSC_LESS_EQUAL:
            return generate(WscOpcode::Le);
        case WSC_GREATER_EQUAL:
            return generate(WscOpcode::Ge);
        case WSC_EQUAL:
            return generate(WscOpcode::Eq);
        case WSC_NOT_EQUAL:
            return generate(WscOpcode::Ne);
        default:
            throw std::runtime_error("Internal error:Operator not implemented");
    }
}

void WscCompilerData::emitWithVariable(WscOpcode theOpcode, int theVarNo) {
    requireRange(theVarNo, theMaxVariableNumber, "Internal error: Wrong variable number");
    emitByte(theOpcode, theVarNo);
}

void WscCompilerData::generateAddAssign(int theVarNo) {
    emitWithVariable(WscOpcode::AddAsg, theVarNo);
}

void WscCompilerData::generateSubAssign(int theVarNo) {
    emitWithVariable(WscOpcode::SubAsg, theVarNo);
}

void WscCompilerData::generateLoadVar(int theVarNo) {
    if (fitsShortForm<WscOpcode::LoadVarS>(theVarNo)) {
        emitShort(WscOpcode::LoadVarS, theVarNo);
    } else {
        emitWithVariable(WscOpcode::LoadVar, theVarNo);
    }
}

void WscCompilerData::generateStoreVar(int theVarNo) {
    if (fitsShortForm<WscOpcode::StoreVarS>(theVarNo)) {
        emitShort(WscOpcode::StoreVarS, theVarNo);
    } else {
        emitWithVariable(WscOpcode::StoreVar, theVarNo);
    }
}

void WscCompilerData::generateIncrVar(int theVarNo) {
    if (fitsShortForm<WscOpcode::IncrVarS>(theVarNo)) {
        emitShort(WscOpcode::IncrVarS, theVarNo);
    } else {
        emitWithVariable(WscOpcode::IncrVar, theVarNo);
    }
}

void WscCompilerData::generateDecrVar(int theVarNo) {
    emitWithVariable(WscOpcode::DecrVar, theVarNo);
}

void WscCompilerData::generateDebug(int theLineNumber) {
    if (getDebugMode()) {
        generate(WscOpcode::Debug);
        *debugStreamM << std::to_string(theLineNumber) << '\n';
    }
}

void WscCompilerData::generateBoolean(bool theValue) {
    generate(theValue ? WscOpcode::ConstTrue : WscOpcode::ConstFalse);
}

void WscCompilerData::generateString(std::string_view theText) {
    if (theText.empty()) {
        generate(WscOpcode::ConstEs);
    } else {
        generateLoadConst(addStringConst(theText));
    }
}

void WscCompilerData::generateInteger(std::int32_t theValue) {
    switch (theValue) {
        case 0:
            return generate(WscOpcode::Const0);
        case 1:
            return generate(WscOpcode::Const1);
        case -1:
            return generate(WscOpcode::ConstM1);
        default:
            return generateLoadConst(addIntConst(theValue));
    }
}

void WscCompilerData::generateFloat(float theValue) {
    generateLoadConst(addFloatConst(theValue));
}

void WscCompilerData::generateLoadConst(int theConstNo) {
    requireRange(theConstNo, theMaxConstIndex, "Internal error: Wrong const number");
    if (fitsShortForm<WscOpcode::LoadConstS>(theConstNo)) {
        emitShort(WscOpcode::LoadConstS, theConstNo);
    } else if (theConstNo <= theMaxByte) {
        emitByte(WscOpcode::LoadConst, theConstNo);
    } else {
        emitWord(WscOpcode::LoadConstW, theConstNo);
    }
}

void WscCompilerData::generateLocalCall(int theFuncNo) {
    requireRange(theFuncNo, theMaxByte, "Internal error: Wrong function number");
    if (fitsShortForm<WscOpcode::CallS>(theFuncNo)) {
        emitShort(WscOpcode::CallS, theFuncNo);
    } else {
        emitByte(WscOpcode::Call, theFuncNo);
    }
}

void WscCompilerData::generateExternalCall(int theUrlNo, int theFuncNo, unsigned theArgumentCount) {
    const char* message = "Internal error: Wrong url number or function number";
    requireRange(theUrlNo, theMaxConstIndex, message);
    requireRange(theFuncNo, theMaxConstIndex, message);
    const auto arguments = static_cast<std::uint8_t>(theArgumentCount);
    if (theUrlNo <= theMaxByte && theFuncNo <= theMaxByte) {
        emit<WscCallUrlMediumInstruction, WscOperands::UrlByte>(
            WscOpcode::CallUrl, static_cast<std::uint8_t>(theUrlNo),
            static_cast<std::uint8_t>(theFuncNo), arguments);
    } else {
        emit<WscCallUrlWideInstruction, WscOperands::UrlWord>(
            WscOpcode::CallUrlW, static_cast<std::uint16_t>(theUrlNo),
            static_cast<std::uint16_t>(theFuncNo), arguments);
    }
}

bool WscCompilerData::generateLibraryCall(std::string_view theLibrary, std::string_view theFunction,
                                          unsigned theArgumentCount) {
    std::int32_t library = -1;
    std::int32_t function = -1;
    WscFunctionLibraryTable::instance().findLibraryFunction(
        theLibrary, theFunction, static_cast<std::int32_t>(theArgumentCount), library, function);
    if (library < 0 || function < 0) {
        return false;
    }
    const auto functionId = static_cast<std::uint8_t>(function);
    if (library > theMaxByte) {
        emit<WscCallLibWideInstruction, WscOperands::LibraryWord>(
            WscOpcode::CallLibW, functionId, static_cast<std::uint16_t>(library));
        return true;
    }
    const auto libraryId = static_cast<std::uint8_t>(library);
    if (fitsShortForm<WscOpcode::CallLibS>(function)) {
        emit<WscCallLibShortInstruction, WscOperands::LibraryShort>(WscOpcode::CallLibS, functionId,
                                                                    libraryId);
    } else {
        emit<WscCallLibMediumInstruction, WscOperands::LibraryByte>(WscOpcode::CallLib, functionId,
                                                                    libraryId);
    }
    return true;
}

void WscCompilerData::generateJump(int theLabel) {
    codeM.append<WscFlowInstruction>(WscOpcode::PseudoJump, static_cast<std::uint32_t>(theLabel));
}

void WscCompilerData::generateTJump(int theLabel) {
    codeM.append<WscFlowInstruction>(WscOpcode::PseudoTjump, static_cast<std::uint32_t>(theLabel));
}

void WscCompilerData::generateLabel(int theLabel) {
    codeM.append<WscFlowInstruction>(WscOpcode::PseudoLabel, static_cast<std::uint32_t>(theLabel));
}

std::int64_t WscCompilerData::stopFunctionCode(const WscName& theName, unsigned theNoOfVariables) {
    FwTraceScope scope("WscCompilerData::stopFunctionCode");
    const int number = searchFunctionNo(theName);
    if (number < 0) {
        throw std::runtime_error("Internal error: Function not found");
    }
    const WscFunctionInfo& function = functionsM[static_cast<std::size_t>(number)];
    WscOptimizer::instance().optimizeFunctionCode(codeM, optimizeModeM);
    dropClosingReturn();
    const std::int64_t size = layoutJumps(codeM.instructions(), firstLabelM);
    if (size < 0) {
        return -1;
    }
    writeFunction(function, theNoOfVariables, static_cast<std::uint32_t>(size));
    if (listingStreamM != nullptr) {
        writeListing(function);
    }
    return size;
}

// A function returns the empty string at the end of its code anyway. Where a label stands at
// the end, jumps may go there, and the instruction stays.
void WscCompilerData::dropClosingReturn() {
    const auto code = codeM.instructions();
    if (code.empty() || !code.back().is(WscOpcode::ReturnEs)) {
        return;
    }
    if (code.size() == 1 || !code[code.size() - 2].is(WscOpcode::PseudoLabel)) {
        codeM.truncate(code.size() - 1);
    }
}

}  // namespace lumnis
