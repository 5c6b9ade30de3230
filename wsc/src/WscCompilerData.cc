#include "WscCompilerData.h"

#include <algorithm>
#include <bit>
#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>

#include "CcCharsetConverter.h"
#include "FwTraceScope.h"
#include "WscFunctionLibraryTable.h"
#include "WscGrammar.h"
#include "WscJumpLayout.h"
#include "WscOptimizer.h"
#include "WscStringAndIntHandler.h"

namespace lumnis {

namespace {

constexpr unsigned int theDefaultCharset = 106;  // UTF-8, as all text is inside
constexpr int theMaxVariableNumber = 255;
constexpr int theMaxConstIndex = 65535;

void requireRange(int theValue, int theMaximum, const char* theMessage) {
    if (theValue < 0 || theValue > theMaximum) {
        throw std::runtime_error(theMessage);
    }
}

// Doubles a buffer that is to take theCount more bytes, so that building it costs linear time.
void makeRoom(CpsString& theBuffer, std::uint32_t theCount) {
    const std::uint64_t length = theBuffer.length();
    if (length + theCount > theBuffer.capacity()) {
        // Beyond 32 bits the append itself reports the fault.
        theBuffer.reserve(
            static_cast<std::uint32_t>(std::min<std::uint64_t>(2 * length + theCount, 0xFFFFFE00)));
    }
}

}  // namespace

bool WscCompilerData::NameMap::add(const WscName& theName, int theValue) {
    if (find(theName) >= 0) {
        return false;
    }
    if (theName.number >= valuesM.size()) {
        valuesM.resize(theName.number + 1, -1);
    }
    namesM.push_back(theName.number);
    valuesM[theName.number] = theValue;
    return true;
}

void WscCompilerData::NameMap::clear() noexcept {
    for (const unsigned name : namesM) {
        valuesM[name] = -1;
    }
    namesM.clear();
}

WscCompilerData::WscCompilerData(std::ostream* theDebugStream, std::ostream* theListingStream,
                                 std::vector<unsigned int> theAcceptCharsets, bool theOptimizeMode,
                                 std::uint8_t theMajorVersion, std::uint8_t theMinorVersion)
    : debugStreamM(theDebugStream),
      listingStreamM(theListingStream),
      optimizeModeM(theOptimizeMode),
      majorVersionM(theMajorVersion),
      minorVersionM(theMinorVersion),
      acceptCharsetsM(std::move(theAcceptCharsets)),
      selectedCharsetM(theDefaultCharset) {}

WscCompilerData::~WscCompilerData() = default;

void WscCompilerData::addError(int theCode, const CpsString& theMessage) {
    FwTraceScope scope("WscCompilerData::addError");
    errorsM.emplace_back(theCode, theMessage);
}

bool WscCompilerData::addPragmaURL(const WscName& theName, const CpsString& theUrl) {
    return urlNamesM.find(theName) < 0 && urlNamesM.add(theName, addStringConst(theUrl));
}

int WscCompilerData::searchUrlConst(const WscName& theName) const {
    return urlNamesM.find(theName);
}

void WscCompilerData::addPragmaAccessDomain(const CpsString& theDomain) {
    const auto domain = static_cast<std::uint32_t>(addStringConst(theDomain));
    pragmasM.push_back(std::make_unique<WscPragmaAcessDomain>(domain));
    hasAccessDomainM = true;
}

void WscCompilerData::addPragmaAccessPath(const CpsString& thePath) {
    const auto path = static_cast<std::uint32_t>(addStringConst(thePath));
    pragmasM.push_back(std::make_unique<WscPragmaAcessPath>(path));
    hasAccessPathM = true;
}

void WscCompilerData::addPragmaAccessDomainPath(const CpsString& theDomain,
                                                const CpsString& thePath) {
    addPragmaAccessPath(thePath);
    addPragmaAccessDomain(theDomain);
}

void WscCompilerData::addPragmaMetaName(const CpsString& theProperty, const CpsString& theContent,
                                        const CpsString& theScheme) {
    metaNamesM.emplace_back(theProperty, theContent, theScheme);
}

void WscCompilerData::addPragmaMetaHttp(const CpsString& theProperty, const CpsString& theContent,
                                        const CpsString& theScheme) {
    metaHttpsM.emplace_back(theProperty, theContent, theScheme);
}

void WscCompilerData::addPragmaMetaUserAgent(const CpsString& theProperty,
                                             const CpsString& theContent,
                                             const CpsString& theScheme) {
    if (theScheme.empty()) {
        const auto content = static_cast<std::uint32_t>(addStringConst(theContent));
        const auto property = static_cast<std::uint32_t>(addStringConst(theProperty));
        pragmasM.push_back(std::make_unique<WscPragmaUserAgentProperty>(property, content));
        return;
    }
    const auto scheme = static_cast<std::uint32_t>(addStringConst(theScheme));
    const auto content = static_cast<std::uint32_t>(addStringConst(theContent));
    const auto property = static_cast<std::uint32_t>(addStringConst(theProperty));
    pragmasM.push_back(
        std::make_unique<WscPragmaUserAgentPropertyScheme>(property, content, scheme));
}

int WscCompilerData::addFunction(const WscName& theName, std::uint8_t theNoOfArgs,
                                 bool isExported) {
    const auto number = static_cast<std::uint8_t>(functionsM.size());
    if (!functionNumbersM.add(theName, number)) {
        return -1;
    }
    functionsM.emplace_back(theName.text, number, theNoOfArgs);
    if (isExported) {
        exportedFunctionsM.push_back(number);
    }
    return number;
}

int WscCompilerData::searchFunctionNo(const WscName& theName) const {
    return functionNumbersM.find(theName);
}

int WscCompilerData::searchFunctionArgs(const WscName& theName) const {
    const int number = functionNumbersM.find(theName);
    return number < 0 ? -1 : functionsM[static_cast<std::size_t>(number)].getNoOfFunctionArgs();
}

int WscCompilerData::addVariable(const WscName& theName) {
    const int number = std::min(static_cast<int>(variablesM.size()), theMaxVariableNumber);
    return variablesM.add(theName, number) ? number : -1;
}

int WscCompilerData::searchVariable(const WscName& theName) const {
    return variablesM.find(theName);
}

int WscCompilerData::nextConstIndex() const noexcept {
    return static_cast<int>(std::min<std::size_t>(constantsM.size(), theMaxConstIndex));
}

template <class Literal, class Value>
Literal& WscCompilerData::appendConst(const Value& theValue) {
    auto* literal = constantMemoryM.make<Literal>(theValue);
    constantsM.push_back(Constant(literal));
    return *literal;
}

template <class Literal, class Value>
int WscCompilerData::addNumber(CpsNumberTable<std::uint32_t>& theKnown, std::uint32_t theKey,
                               Value theValue) {
    int index = theKnown.find(theKey);
    if (index < 0) {
        index = nextConstIndex();
        appendConst<Literal>(theValue);
        theKnown.add(theKey, index);
    }
    return index;
}

template <class Literal>
int WscCompilerData::addText(CpsNumberTable<std::string_view>& theKnown, const CpsString& theText) {
    int index = theKnown.find(theText);
    if (index < 0) {
        index = nextConstIndex();
        theKnown.add(appendConst<Literal>(theText).getText(), index);
    }
    return index;
}

int WscCompilerData::addIntConst(std::int32_t theValue) {
    const auto key = static_cast<std::uint32_t>(theValue);
    if (theValue >= -128 && theValue <= 127) {
        return addNumber<WscLiteralInt8>(intConstantsM, key, static_cast<std::int8_t>(theValue));
    }
    if (theValue >= -32768 && theValue <= 32767) {
        return addNumber<WscLiteralInt16>(intConstantsM, key, static_cast<std::int16_t>(theValue));
    }
    return addNumber<WscLiteralInt32>(intConstantsM, key, theValue);
}

int WscCompilerData::addFloatConst(float theValue) {
    // 0.0 and -0.0 are equal: one constant, in the form that came first.
    const std::uint32_t key = theValue == 0 ? 0 : std::bit_cast<std::uint32_t>(theValue);
    return addNumber<WscLiteralFloat>(floatConstantsM, key, theValue);
}

int WscCompilerData::addStringConst(const CpsString& theText) {
    return addText<WscLiteralStringExtern>(stringConstantsM, theText);
}

int WscCompilerData::addUtf8Const(const CpsString& theText) {
    return addText<WscLiteralStringUtf8>(utf8ConstantsM, theText);
}

void WscCompilerData::pushLoopLabels(int theContinueLabel, int theBreakLabel) {
    loopLabelsM.push_back({theContinueLabel, theBreakLabel});
}

int WscCompilerData::getContinueLabel() const noexcept {
    return loopLabelsM.empty() ? -1 : loopLabelsM.back().continueLabel;
}

int WscCompilerData::getBreakLabel() const noexcept {
    return loopLabelsM.empty() ? -1 : loopLabelsM.back().breakLabel;
}

void WscCompilerData::startFunctionCode() {
    FwTraceScope scope("WscCompilerData::startFunctionCode");
    codeM.clear();
    variablesM.clear();
    firstLabelM = nextLabelM;
}

template <class Instruction, class... Operands>
void WscCompilerData::emit(WscOpcode theOpcode, Operands... theOperands) {
    codeM.append(codeM.make<Instruction>(theOpcode, theOperands...));
}

void WscCompilerData::generate(WscOpcode theOpcode) {
    emit<WscNormalInstruction>(theOpcode, std::uint8_t{1});
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

// The form with the variable in a byte of its own, which every number fits.
void WscCompilerData::emitWithVariable(WscOpcode theOpcode, int theVarNo) {
    requireRange(theVarNo, theMaxVariableNumber, "Internal error: Wrong variable number");
    emit<WscMediumInstruction>(theOpcode, std::uint8_t{2}, static_cast<std::uint8_t>(theVarNo));
}

void WscCompilerData::generateAddAssign(int theVarNo) {
    emitWithVariable(WscOpcode::AddAsg, theVarNo);
}

void WscCompilerData::generateSubAssign(int theVarNo) {
    emitWithVariable(WscOpcode::SubAsg, theVarNo);
}

void WscCompilerData::generateLoadVar(int theVarNo) {
    if (theVarNo >= 0 && theVarNo <= 31) {
        emit<WscShortInstruction>(WscOpcode::LoadVarS, std::uint8_t{1},
                                  static_cast<std::uint8_t>(theVarNo));
    } else {
        emitWithVariable(WscOpcode::LoadVar, theVarNo);
    }
}

void WscCompilerData::generateStoreVar(int theVarNo) {
    if (theVarNo >= 0 && theVarNo <= 15) {
        emit<WscShortInstruction>(WscOpcode::StoreVarS, std::uint8_t{1},
                                  static_cast<std::uint8_t>(theVarNo));
    } else {
        emitWithVariable(WscOpcode::StoreVar, theVarNo);
    }
}

void WscCompilerData::generateIncrVar(int theVarNo) {
    if (theVarNo >= 0 && theVarNo <= 7) {
        emit<WscShortInstruction>(WscOpcode::IncrVarS, std::uint8_t{1},
                                  static_cast<std::uint8_t>(theVarNo));
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

void WscCompilerData::generateString(const CpsString& theText) {
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
    if (theConstNo <= 15) {
        emit<WscShortInstruction>(WscOpcode::LoadConstS, std::uint8_t{1},
                                  static_cast<std::uint8_t>(theConstNo));
    } else if (theConstNo <= 255) {
        emit<WscMediumInstruction>(WscOpcode::LoadConst, std::uint8_t{2},
                                   static_cast<std::uint8_t>(theConstNo));
    } else {
        emit<WscWideInstruction>(WscOpcode::LoadConstW, std::uint8_t{3},
                                 static_cast<std::uint16_t>(theConstNo));
    }
}

void WscCompilerData::generateLocalCall(int theFuncNo) {
    requireRange(theFuncNo, 255, "Internal error: Wrong function number");
    const auto function = static_cast<std::uint8_t>(theFuncNo);
    if (theFuncNo <= 7) {
        emit<WscShortInstruction>(WscOpcode::CallS, std::uint8_t{1}, function);
    } else {
        emit<WscMediumInstruction>(WscOpcode::Call, std::uint8_t{2}, function);
    }
}

void WscCompilerData::generateExternalCall(int theUrlNo, int theFuncNo, unsigned theArgumentCount) {
    const char* message = "Internal error: Wrong url number or function number";
    requireRange(theUrlNo, theMaxConstIndex, message);
    requireRange(theFuncNo, theMaxConstIndex, message);
    const auto arguments = static_cast<std::uint8_t>(theArgumentCount);
    if (theUrlNo <= 255 && theFuncNo <= 255) {
        emit<WscCallUrlMediumInstruction>(WscOpcode::CallUrl, std::uint8_t{4},
                                          static_cast<std::uint8_t>(theUrlNo),
                                          static_cast<std::uint8_t>(theFuncNo), arguments);
    } else {
        emit<WscCallUrlWideInstruction>(WscOpcode::CallUrlW, std::uint8_t{6},
                                        static_cast<std::uint16_t>(theUrlNo),
                                        static_cast<std::uint16_t>(theFuncNo), arguments);
    }
}

bool WscCompilerData::generateLibraryCall(const CpsString& theLibrary, const CpsString& theFunction,
                                          unsigned theArgumentCount) {
    std::int32_t library = -1;
    std::int32_t function = -1;
    WscFunctionLibraryTable::instance().findLibraryFunction(
        theLibrary, theFunction, static_cast<std::int32_t>(theArgumentCount), library, function);
    if (library < 0 || function < 0) {
        return false;
    }
    const auto functionId = static_cast<std::uint8_t>(function);
    if (library <= 255 && function <= 7) {
        emit<WscCallLibShortInstruction>(WscOpcode::CallLibS, std::uint8_t{2}, functionId,
                                         static_cast<std::uint8_t>(library));
    } else if (library <= 255) {
        emit<WscCallLibMediumInstruction>(WscOpcode::CallLib, std::uint8_t{3}, functionId,
                                          static_cast<std::uint8_t>(library));
    } else {
        emit<WscCallLibWideInstruction>(WscOpcode::CallLibW, std::uint8_t{4}, functionId,
                                        static_cast<std::uint16_t>(library));
    }
    return true;
}

void WscCompilerData::generateJump(int theLabel) {
    emit<WscFlowInstruction>(WscOpcode::PseudoJump, static_cast<std::uint32_t>(theLabel));
}

void WscCompilerData::generateTJump(int theLabel) {
    emit<WscFlowInstruction>(WscOpcode::PseudoTjump, static_cast<std::uint32_t>(theLabel));
}

void WscCompilerData::generateLabel(int theLabel) {
    emit<WscFlowInstruction>(WscOpcode::PseudoLabel, static_cast<std::uint32_t>(theLabel));
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
    if (code.empty() || !code.back()->is(WscOpcode::ReturnEs)) {
        return;
    }
    if (code.size() == 1 || !code[code.size() - 2]->is(WscOpcode::PseudoLabel)) {
        codeM.truncate(code.size() - 1);
    }
}

void WscCompilerData::writeFunction(const WscFunctionInfo& theFunction, unsigned theNoOfVariables,
                                    std::uint32_t theCodeSize) {
    makeRoom(functionBufferM, theCodeSize + 8);
    const unsigned arguments = theFunction.getNoOfFunctionArgs();
    functionBufferM += static_cast<char>(arguments);
    functionBufferM += static_cast<char>(theNoOfVariables - arguments);
    WscStringAndIntHandler().getAsMultiByteInteger(theCodeSize, functionBufferM);
    for (const WscInstruction* instruction : codeM.instructions()) {
        instruction->writeByteCodeInformation(functionBufferM);
    }
}

void WscCompilerData::writeListing(const WscFunctionInfo& theFunction) {
    FwTraceScope scope("WscCompilerData::writeListing");
    CpsString text("FUNCTION \"");
    text += theFunction.getName();
    text += "\" Args=";
    text += std::to_string(theFunction.getNoOfFunctionArgs());
    text += "\r\n===========================\r\n";
    for (const WscInstruction* instruction : codeM.instructions()) {
        makeRoom(text, 64);
        text += instrName(instruction->getInstructionNbr());
        text += ' ';
        instruction->writeAssemblyCodeInformation(text);
        text += "\r\n";
    }
    text += "\r\n\r\n";
    listingStreamM->write(text.data(), text.length());
    listingStreamM->flush();
}

std::vector<WscLiteralStringExtern*> WscCompilerData::externStrings() const {
    std::vector<WscLiteralStringExtern*> result;
    for (const auto& constant : constantsM) {
        if (constant->getTypeNbr() == WscLiteralInfo::StringExtern) {
            result.push_back(static_cast<WscLiteralStringExtern*>(constant.get()));
        }
    }
    return result;
}

unsigned int WscCompilerData::selectOutEncoding() {
    FwTraceScope scope("WscCompilerData::selectOutEncoding");
    if (acceptCharsetsM.empty()) {
        return selectedCharsetM;
    }
    if (charsetConverterM == nullptr) {
        charsetConverterM = std::make_unique<CcCharsetConverter>();
    }
    const std::vector<WscLiteralStringExtern*> strings = externStrings();
    for (const unsigned int charset : acceptCharsetsM) {
        const auto isCarried = [&](WscLiteralStringExtern* theString) {
            const bool isDone =
                charset == theDefaultCharset || theString->transcode(*charsetConverterM, charset);
            theString->setCharset(charset);
            return isDone;
        };
        if (std::all_of(strings.begin(), strings.end(), isCarried)) {
            return selectedCharsetM = charset;
        }
    }
    // No accepted charset carries all strings: the most wanted one, with escapes.
    const unsigned int first = acceptCharsetsM.front();
    for (WscLiteralStringExtern* string : strings) {
        string->transcode(*charsetConverterM, first, true);
        string->setCharset(first);
    }
    return selectedCharsetM = first;
}

void WscCompilerData::writeByteCode() {
    FwTraceScope scope("WscCompilerData::writeByteCode");
    const WscStringAndIntHandler integers;
    CpsString pools;
    integers.getAsMultiByteInteger(getNoOfConstants(), pools);
    integers.getAsMultiByteInteger(selectedCharsetM, pools);
    for (const auto& constant : constantsM) {
        makeRoom(pools, 256);
        constant->writeByteCodeInformation(pools);
    }
    integers.getAsMultiByteInteger(static_cast<unsigned>(pragmasM.size()), pools);
    for (const auto& pragma : pragmasM) {
        makeRoom(pools, 256);
        pragma->writeByteCodeInformation(pools);
    }
    pools += static_cast<char>(functionsM.size());
    pools += static_cast<char>(exportedFunctionsM.size());
    for (const std::uint8_t number : exportedFunctionsM) {
        makeRoom(pools, 512);
        functionsM[number].writeByteCodeInformation(pools);
    }

    byteCodeM.clear();
    byteCodeM.reserve(pools.length() + functionBufferM.length() + 8);
    // High nibble: major version less one; low nibble: minor version.
    byteCodeM += static_cast<char>(((majorVersionM - 1) & 15) * 16 + (minorVersionM & 15));
    integers.getAsMultiByteInteger(pools.length() + functionBufferM.length(), byteCodeM);
    byteCodeM += pools;
    byteCodeM += functionBufferM;
}

CpsString WscCompilerData::instrName(WscOpcode theOpcode) {
    for (const WscOpcodeInfo& row : theOpcodeTable) {
        if (row.opcode == theOpcode) {
            return row.name;
        }
    }
    throw std::runtime_error("Internal error: Unknown compiler instruction");
}

}  // namespace lumnis
