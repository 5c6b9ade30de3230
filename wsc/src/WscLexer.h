// The scanner of WMLScript (WMLScript standard, "Lexical Structure"). Its rules stand in
// WscScanner.l; the work of their actions stands here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string_view>

#include "CpsNumberTable.h"
#include "CpsString.h"
#include "FwArena.h"
#include "WscName.h"
#include "WscTokenValue.h"

namespace lumnis {

class WscLexer {
  public:
    // theSource is UTF-8; it is not converted, and bytes above 127 in strings pass as they are.
    explicit WscLexer(const CpsString& theSource);
    WscLexer(const WscLexer&) = delete;
    WscLexer& operator=(const WscLexer&) = delete;
    ~WscLexer() = default;

    // The next token's number and, in theValue, its value; 0 at the end of the source, in
    // whatever state that comes. Throws WscCompilerException at a lexical fault.
    int yylex(WscTokenValue& theValue) {
        const int token = scan(scannerM);
        theValue = tokenValueM;
        return token;
    }
    // The line, from 1, of the token read last.
    int getCurrentLineNumber() const noexcept { return lineNumberM; }

    [[noreturn]] void LexerError(const CpsString& theText) const;

    // UTF-8 in its original form of up to six bytes: no test for surrogates or a largest value.
    static CpsString getAsUtf8(std::uint32_t theValue);

    // Memory for the generated scanner, until the lexer dies.
    void* allocate(std::size_t theSize) { return memoryM.allocate(theSize); }

  private:
    void beginScan(const CpsString& theSource);
    // The generated scanner; theScanner is its state.
    int scan(void* theScanner);

    // Actions of the rules. theText is the text matched.
    int token(int theToken) noexcept {
        tokenValueM.token = theToken;
        return theToken;
    }
    int identifier(std::string_view theText);
    int integerLiteral(std::string_view theText) noexcept;
    int floatLiteral(std::string_view theText) noexcept;
    void beginString();
    void endString() noexcept;
    void addEscapedByte(std::string_view theDigits);
    void addEscapedCharacter(std::string_view theDigits, unsigned theBase);
    [[noreturn]] void reservedWord(std::string_view theWord) const;
    [[noreturn]] void unknownCharacter(std::string_view theCharacter) const;

    FwArena memoryM;
    void* scannerM = nullptr;  // lives in memoryM
    // What token values point to; addresses stay.
    std::deque<CpsString> stringsM;
    std::deque<WscName> namesM;  // by number
    CpsNumberTable<std::string_view> nameNumbersM;
    CpsString* currentStringM = nullptr;  // the literal under construction
    int lineNumberM = 1;
    WscTokenValue tokenValueM{};
};

}  // namespace lumnis
