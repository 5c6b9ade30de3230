#include "WscCompilerData.h"

#include <algorithm>
#include <bit>
#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>

#include "CcCharsetConverter.h"
#include "FwTraceScope.h"
#include "WscStringAndIntHandler.h"

namespace lumnis {

namespace {

constexpr unsigned int theDefaultCharset = 106;  // UTF-8, as all text is inside

// Called before up to theCount bytes are appended: a buffer that lacks the room doubles, so that
// building it costs linear time. A larger piece is no fault; the append itself makes room then.
void makeRoom(CpsString& theBuffer, std::uint32_t theCount) {
    const std::uint64_t length = theBuffer.length();
    if (length + theCount > theBuffer.capacity()) {
        // Beyond 32 bits the append itself reports the fault.
        theBuffer.reserve(
            static_cast<std::uint32_t>(std::min<std::uint64_t>(2 * length + theCount, 0xFFFFFE00)));
    }
}

}  // namespace

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

bool WscCompilerData::addPragmaURL(WscName& theName, std::string_view theUrl) {
    if (theName.urlConstant >= 0) {
        return false;
    }
    theName.urlConstant = addStringConst(theUrl);
    return true;
}

void WscCompilerData::addPragmaAccessDomain(std::string_view theDomain) {
    const auto domain = static_cast<std::uint32_t>(addStringConst(theDomain));
    pragmasM.push_back(std::make_unique<WscPragmaAcessDomain>(domain));
    hasAccessDomainM = true;
}

void WscCompilerData::addPragmaAccessPath(std::string_view thePath) {
    const auto path = static_cast<std::uint32_t>(addStringConst(thePath));
    pragmasM.push_back(std::make_unique<WscPragmaAcessPath>(path));
    hasAccessPathM = true;
}

void WscCompilerData::addPragmaAccessDomainPath(std::string_view theDomain,
                                                std::string_view thePath) {
    addPragmaAccessPath(thePath);
    addPragmaAccessDomain(theDomain);
}

void WscCompilerData::addPragmaMetaName(std::string_view theProperty, std::string_view theContent,
                                        std::string_view theScheme) {
    metaNamesM.emplace_back(theProperty, theContent, theScheme);
}

void WscCompilerData::addPragmaMetaHttp(std::string_view theProperty, std::string_view theContent,
                                        std::string_view theScheme) {
    metaHttpsM.emplace_back(theProperty, theContent, theScheme);
}

void WscCompilerData::addPragmaMetaUserAgent(std::string_view theProperty,
                                             std::string_view theContent,
                                             std::string_view theScheme) {
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

int WscCompilerData::addFunction(WscName& theName, std::uint8_t theNoOfArgs, bool isExported) {
    const auto number = static_cast<std::uint8_t>(functionsM.size());
    if (theName.function >= 0) {
        return -1;
    }
    theName.function = number;
    functionsM.append(theName.text, number, theNoOfArgs);
    if (isExported) {
        exportedFunctionsM.append(number);
    }
    return number;
}

int WscCompilerData::searchFunctionArgs(const WscName& theName) const {
    const int number = searchFunctionNo(theName);
    return number < 0 ? -1 : functionsM[static_cast<std::size_t>(number)].getNoOfFunctionArgs();
}

int WscCompilerData::addVariable(WscName& theName) {
    if (theName.variable >= 0) {
        return -1;
    }
    variablesM.append(&theName);
    theName.variable = std::min(static_cast<int>(variablesM.size()) - 1, theMaxVariableNumber);
    return theName.variable;
}

int WscCompilerData::nextConstIndex() const noexcept {
    return static_cast<int>(std::min<std::size_t>(constantsM.size(), theMaxConstIndex));
}

template <class Literal, class Value>
Literal& WscCompilerData::appendConst(const Value& theValue) {
    if (constantsM.empty()) {
        constantsM.reserve(theFirstConstants);
    }
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
int WscCompilerData::addText(CpsNumberTable<std::string_view>& theKnown, std::string_view theText) {
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

int WscCompilerData::addStringConst(std::string_view theText) {
    return addText<WscLiteralStringExtern>(stringConstantsM, theText);
}

int WscCompilerData::addUtf8Const(std::string_view theText) {
    return addText<WscLiteralStringUtf8>(utf8ConstantsM, theText);
}

void WscCompilerData::pushLoopLabels(int theContinueLabel, int theBreakLabel) {
    loopLabelsM.append(LoopLabels{theContinueLabel, theBreakLabel});
}

int WscCompilerData::getContinueLabel() const noexcept {
    return loopLabelsM.empty() ? -1 : loopLabelsM.back().continueLabel;
}

int WscCompilerData::getBreakLabel() const noexcept {
    return loopLabelsM.empty() ? -1 : loopLabelsM.back().breakLabel;
}

void WscCompilerData::writeFunction(const WscFunctionInfo& theFunction, unsigned theNoOfVariables,
                                    std::uint32_t theCodeSize) {
    makeRoom(functionBufferM, theCodeSize + 8);
    const unsigned arguments = theFunction.getNoOfFunctionArgs();
    functionBufferM += static_cast<char>(arguments);
    functionBufferM += static_cast<char>(theNoOfVariables - arguments);
    WscStringAndIntHandler().getAsMultiByteInteger(theCodeSize, functionBufferM);
    for (const WscInstruction& instruction : codeM.instructions()) {
        instruction.writeByteCodeInformation(functionBufferM);
    }
}

void WscCompilerData::writeListing(const WscFunctionInfo& theFunction) {
    FwTraceScope scope("WscCompilerData::writeListing");
    CpsString text("FUNCTION \"");
    text += theFunction.getName();
    text += "\" Args=";
    text += std::to_string(theFunction.getNoOfFunctionArgs());
    text += "\r\n===========================\r\n";
    std::uint32_t position = 0;
    for (const WscInstruction& instruction : codeM.instructions()) {
        makeRoom(text, 64);
        text += instrName(instruction.getInstructionNbr());
        text += ' ';
        instruction.writeAssemblyCodeInformation(text, position);
        text += "\r\n";
        position += instruction.getSize();
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
        // Puts a string into the charset; false when that lacks one of its characters.
        const auto convert = [&](WscLiteralStringExtern* theString) {
            const bool isCarried =
                charset == theDefaultCharset || theString->transcode(*charsetConverterM, charset);
            theString->setCharset(charset);
            return isCarried;
        };
        if (std::all_of(strings.begin(), strings.end(), convert)) {
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
    codeM.release();  // the file is as large as the code of a large function, and follows it
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
