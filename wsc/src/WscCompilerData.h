// Context of one compilation. The actions of the syntax tree register pragmas, functions,
// variables and constants here and emit instructions; at the end it writes the byte-code file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string_view>
#include <vector>

#include "CpsArray.h"
#include "CpsNumberTable.h"
#include "CpsString.h"
#include "FwArena.h"
#include "WscFunctionCode.h"
#include "WscFunctionInfo.h"
#include "WscLiteralInfo.h"
#include "WscName.h"
#include "WscOpcode.h"
#include "WscPragmaInfo.h"
#include "WscPragmaMeta.h"
#include "WscSourceTexts.h"
#include "WscWmlScriptError.h"

namespace lumnis {

class CcCharsetConverter;

class WscCompilerData {
  public:
    // theDebugStream receives the line number of every DEBUG instruction, and debug mode is on
    // when there is one; theListingStream receives the listing. Neither is owned. The charsets
    // (MIBenum numbers) are those that the caller accepts for the output, most wanted first.
    WscCompilerData(std::ostream* theDebugStream, std::ostream* theListingStream,
                    std::vector<unsigned int> theAcceptCharsets, bool theOptimizeMode,
                    std::uint8_t theMajorVersion, std::uint8_t theMinorVersion);
    WscCompilerData(const WscCompilerData&) = delete;
    WscCompilerData& operator=(const WscCompilerData&) = delete;
    virtual ~WscCompilerData();

    // The names and literals of the source, which the parser puts there.
    WscSourceTexts& getTexts() noexcept { return textsM; }
    const WscSourceTexts& getTexts() const noexcept { return textsM; }

    // Errors and results.

    void addError(int theCode, const CpsString& theMessage);
    const std::vector<WscWmlScriptError>& getErrors() const noexcept { return errorsM; }
    const std::vector<WscPragmaMeta>& getPragmaMetaName() const noexcept { return metaNamesM; }
    const std::vector<WscPragmaMeta>& getPragmaMetaHttp() const noexcept { return metaHttpsM; }
    unsigned int getSelectedOutCharSet() const noexcept { return selectedCharsetM; }
    bool getDebugMode() const noexcept { return debugStreamM != nullptr; }
    const CpsString& getByteCode() const noexcept { return byteCodeM; }
    unsigned int getByteCodeSize() const noexcept { return byteCodeM.length(); }

    // Pragmas. The order in which they add their constants decides the constants' indices.

    bool hasPragmaAccessDomain() const noexcept { return hasAccessDomainM; }
    bool hasPragmaAccessPath() const noexcept { return hasAccessPathM; }
    // False, and nothing added, when theName is taken.
    bool addPragmaURL(WscName& theName, std::string_view theUrl);
    // Constant index of the URL, or -1.
    int searchUrlConst(const WscName& theName) const noexcept { return theName.urlConstant; }
    void addPragmaAccessDomain(std::string_view theDomain);
    void addPragmaAccessPath(std::string_view thePath);
    void addPragmaAccessDomainPath(std::string_view theDomain, std::string_view thePath);
    // The two kinds of meta pragma that never reach the file.
    void addPragmaMetaName(std::string_view theProperty, std::string_view theContent,
                           std::string_view theScheme);
    void addPragmaMetaHttp(std::string_view theProperty, std::string_view theContent,
                           std::string_view theScheme);
    void addPragmaMetaUserAgent(std::string_view theProperty, std::string_view theContent,
                                std::string_view theScheme);

    // Functions. Numbers count from 0 in order of addition.

    // The function's number, or -1 when theName is taken.
    int addFunction(WscName& theName, std::uint8_t theNoOfArgs, bool isExported);
    unsigned getNoOfFunctions() const noexcept { return static_cast<unsigned>(functionsM.size()); }
    // Number, or number of arguments, or -1.
    int searchFunctionNo(const WscName& theName) const noexcept { return theName.function; }
    int searchFunctionArgs(const WscName& theName) const;

    // Variables of the current function. The numbers that they answer stop at 255, the largest
    // that an instruction holds: a function with more variables is refused at its end.

    // The variable's number, or -1 when theName is taken.
    int addVariable(WscName& theName);
    int searchVariable(const WscName& theName) const noexcept { return theName.variable; }
    unsigned getNoOfVariables() const noexcept { return static_cast<unsigned>(variablesM.size()); }

    // Constants. Each answers the index of the constant, the old one when an equal constant is
    // there. The indices stop at 65535: a unit with more constants is refused at its end.

    int addIntConst(std::int32_t theValue);
    int addFloatConst(float theValue);
    int addStringConst(std::string_view theText);
    int addUtf8Const(std::string_view theText);
    unsigned getNoOfConstants() const noexcept { return static_cast<unsigned>(constantsM.size()); }

    // Labels are unique in the unit.

    int newLabel() noexcept { return static_cast<int>(nextLabelM++); }
    void pushLoopLabels(int theContinueLabel, int theBreakLabel);
    void popLoopLabels() noexcept { loopLabelsM.pop(); }
    // Of the innermost loop; -1 outside of loops.
    int getContinueLabel() const noexcept;
    int getBreakLabel() const noexcept;

    // Emission. Operands out of the range of their encoding are an internal error
    // (std::runtime_error): what a source can bring has been tested or stops at the range.

    // Begins a function: forgets code and variables of the one before.
    void startFunctionCode();
    // Ends the function theName, which has theNoOfVariables parameters and variables together:
    // optimizes the code, fixes the jumps, writes the body. Returns the size of the code in
    // bytes, or -1 when a jump is too long.
    std::int64_t stopFunctionCode(const WscName& theName, unsigned theNoOfVariables);

    // An instruction of the opcode alone.
    void generate(WscOpcode theOpcode);
    // theOperator: token of a binary operator.
    void generateOperator(int theOperator);
    void generateAddAssign(int theVarNo);
    void generateSubAssign(int theVarNo);
    void generateLoadVar(int theVarNo);
    void generateStoreVar(int theVarNo);
    void generateIncrVar(int theVarNo);
    void generateDecrVar(int theVarNo);
    // Nothing unless debug mode is on.
    void generateDebug(int theLineNumber);
    void generateInvalid() { generate(WscOpcode::ConstInvalid); }
    void generateToBool() { generate(WscOpcode::Tobool); }
    void generateBoolean(bool theValue);
    void generateString(std::string_view theText);
    void generateInteger(std::int32_t theValue);
    void generateFloat(float theValue);
    void generateLoadConst(int theConstNo);
    void generateLocalCall(int theFuncNo);
    // theArgumentCount up to 255.
    void generateExternalCall(int theUrlNo, int theFuncNo, unsigned theArgumentCount);
    // False, and nothing emitted, when there is no such function with so many arguments.
    bool generateLibraryCall(std::string_view theLibrary, std::string_view theFunction,
                             unsigned theArgumentCount);
    void generateJump(int theLabel);
    void generateTJump(int theLabel);
    void generateLabel(int theLabel);

    // The end of the unit, once each and in this order.

    // Chooses the charset of the strings: the first accepted one that carries all of them, else
    // the first of all, with escapes. Returns it. Throws CCException when there is no converter.
    unsigned int selectOutEncoding();
    void writeByteCode();

    // Name of an opcode. Throws std::runtime_error for a number that is none.
    static CpsString instrName(WscOpcode theOpcode);

  private:
    static constexpr int theMaxVariableNumber = 255;
    static constexpr int theMaxConstIndex = 65535;
    // Enough for the constants of a small unit.
    static constexpr std::size_t theFirstConstants = 32;

    struct LoopLabels {
        int continueLabel;
        int breakLabel;
    };
    // For what lives in an arena: ends it and leaves its memory.
    struct Destroy {
        void operator()(WscLiteralInfo* theConstant) const noexcept {
            theConstant->~WscLiteralInfo();
        }
    };
    using Constant = std::unique_ptr<WscLiteralInfo, Destroy>;

    // Makes a constant and gives it the next index.
    template <class Literal, class Value>
    Literal& appendConst(const Value& theValue);
    template <class Literal, class Value>
    int addNumber(CpsNumberTable<std::uint32_t>& theKnown, std::uint32_t theKey, Value theValue);
    template <class Literal>
    int addText(CpsNumberTable<std::string_view>& theKnown, std::string_view theText);
    int nextConstIndex() const noexcept;
    template <class Instruction, WscOperands theForm, class... Operands>
    void emit(WscOpcode theOpcode, Operands... theOperands);
    // One operand: in the low bits of the opcode, in a byte or in two of its own.
    void emitShort(WscOpcode theOpcode, int theOperand);
    void emitByte(WscOpcode theOpcode, int theOperand);
    void emitWord(WscOpcode theOpcode, int theOperand);
    // In a byte of its own, which has room for the number of every variable.
    void emitWithVariable(WscOpcode theOpcode, int theVarNo);
    // The constants that the charset concerns, by index.
    std::vector<WscLiteralStringExtern*> externStrings() const;
    void dropClosingReturn();
    void writeFunction(const WscFunctionInfo& theFunction, unsigned theNoOfVariables,
                       std::uint32_t theCodeSize);
    void writeListing(const WscFunctionInfo& theFunction);

    std::ostream* debugStreamM;
    std::ostream* listingStreamM;
    bool optimizeModeM;
    std::uint8_t majorVersionM;
    std::uint8_t minorVersionM;
    std::vector<unsigned int> acceptCharsetsM;
    unsigned int selectedCharsetM;

    std::vector<WscWmlScriptError> errorsM;
    std::vector<WscPragmaMeta> metaNamesM;
    std::vector<WscPragmaMeta> metaHttpsM;
    CpsArray<LoopLabels, 16> loopLabelsM;  // the innermost last

    WscSourceTexts textsM;
    CpsArray<WscName*, 32> variablesM;              // of the current function, by number
    CpsArray<WscFunctionInfo, 16> functionsM;       // by number
    CpsArray<std::uint8_t, 32> exportedFunctionsM;  // numbers, in order of registration
    std::vector<std::unique_ptr<WscPragmaInfo>> pragmasM;
    bool hasAccessDomainM = false;
    bool hasAccessPathM = false;

    alignas(8) std::byte firstConstantsM[theFirstConstants * sizeof(WscLiteralInt32)];
    FwArena constantMemoryM{firstConstantsM};
    std::vector<Constant> constantsM;  // by index; they live in constantMemoryM
    // The index of each constant by its value; the texts are views of the constants' own.
    CpsNumberTable<std::uint32_t> intConstantsM;
    CpsNumberTable<std::uint32_t> floatConstantsM;  // by their bits
    CpsNumberTable<std::string_view> stringConstantsM;
    CpsNumberTable<std::string_view> utf8ConstantsM;

    std::uint32_t nextLabelM = 0;
    std::uint32_t firstLabelM = 0;  // of the current function
    WscFunctionCode codeM;

    CpsString functionBufferM;                              // finished bodies
    CpsString byteCodeM;                                    // the file
    std::unique_ptr<CcCharsetConverter> charsetConverterM;  // made on first need
};

}  // namespace lumnis
