// The scanner of WMLScript (WMLScript standard, "Lexical Structure"). Its rules stand in
// WscScanner.re; the work of their actions stands here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "CpsString.h"
#include "WscSourceTexts.h"
#include "WscTokenValue.h"

namespace lumnis {

class WscLexer {
  public:
    // theSource is UTF-8; it is not converted, and bytes above 127 in strings pass as they are.
    // Names and literals go into theTexts, most of them as views of the source.
    WscLexer(const CpsString& theSource, WscSourceTexts& theTexts);
    WscLexer(const WscLexer&) = delete;
    WscLexer& operator=(const WscLexer&) = delete;
    ~WscLexer() = default;

    // The next token's number and, in theValue, its value; 0 at the end of the source, in
    // whatever state that comes. Throws WscCompilerException at a lexical fault.
    int yylex(WscTokenValue& theValue) {
        const int token = scan();
        theValue = tokenValueM;
        return token;
    }
    // The line, from 1, of the token read last.
    int getCurrentLineNumber() const noexcept { return lineNumberM; }

    [[noreturn]] void LexerError(const CpsString& theText) const;

    // UTF-8 in its original form of up to six bytes: no test for surrogates or a largest value.
    static CpsString getAsUtf8(std::uint32_t theValue);

  private:
    int scan();
    // The bytes from cursorM up to theCursor become textM; reading goes on from there.
    void take(const unsigned char* theCursor) noexcept {
        textM = {reinterpret_cast<const char*>(cursorM),
                 static_cast<std::size_t>(theCursor - cursorM)};
        cursorM = theCursor;
    }

    // Actions of the rules. theText is the text matched, theCursor its end.
    int token(const unsigned char* theCursor, int theToken) noexcept {
        cursorM = theCursor;
        tokenValueM.token = theToken;
        return theToken;
    }
    int identifier(std::string_view theText);
    int integerLiteral(std::string_view theText) noexcept;
    int floatLiteral(std::string_view theText) noexcept;
    // The characters of a literal behind its opening quote. False at the end of the source: the
    // literal is dropped then, and with it a back-slash that nothing follows.
    bool scanString();
    // Appends what an escape stands for. cursorM is at its back-slash. False at the end of the
    // source.
    bool scanEscape(CpsString& theString);
    void addEscapedByte(CpsString& theString, std::string_view theDigits);
    void addEscapedCharacter(CpsString& theString, std::string_view theDigits, unsigned theBase);
    // From behind the opening mark to the end of the comment.
    void skipLineComment();
    void skipBlockComment();
    [[noreturn]] void reservedWord(std::string_view theWord) const;
    [[noreturn]] void unknownCharacter(std::string_view theCharacter) const;

    const unsigned char* cursorM;
    const unsigned char* limitM;
    std::string_view textM;
    WscSourceTexts& textsM;
    int lineNumberM = 1;
    WscTokenValue tokenValueM{};
};

}  // namespace lumnis
