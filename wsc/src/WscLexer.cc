#include "WscLexer.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

#include "WscCompilerException.h"
#include "WscGrammar.h"

namespace lumnis {

namespace {

// As strtoul in base 16, 10 or, with a leading 0, 8; 4294967295 for what is larger.
std::uint32_t parseInteger(std::string_view theText) noexcept {
    int base = 10;
    if (theText.size() > 2 && (theText[1] == 'x' || theText[1] == 'X')) {
        base = 16;
        theText.remove_prefix(2);
    } else if (theText[0] == '0') {
        base = 8;
    }
    std::uint32_t value = 0;
    const auto result =
        std::from_chars(theText.data(), theText.data() + theText.size(), value, base);
    return result.ec == std::errc::result_out_of_range ? std::numeric_limits<std::uint32_t>::max()
                                                       : value;
}

// Whether the decimal number theText, which no double can hold, is too large rather than too
// near to 0: where its first digit other than 0 stands, counted from the point, tells.
bool isTooLarge(std::string_view theText) noexcept {
    const std::size_t exponentAt = theText.find_first_of("eE");
    const std::string_view digits = theText.substr(0, exponentAt);
    const std::size_t first = digits.find_first_of("123456789");
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const auto magnitude = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    if (exponentAt == std::string_view::npos) {
        return magnitude > 0;
    }
    std::string_view exponent = theText.substr(exponentAt + 1);
    if (exponent[0] == '+') {
        exponent.remove_prefix(1);
    }
    std::int64_t value = 0;
    const auto result = std::from_chars(exponent.data(), exponent.data() + exponent.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        return exponent[0] != '-';
    }
    return value > -magnitude;
}

// As strtod in the C locale: infinity for what is too large, 0 for what is too small.
double parseFloat(std::string_view theText) noexcept {
    double value = 0;
    const auto result = std::from_chars(theText.data(), theText.data() + theText.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        return isTooLarge(theText) ? std::numeric_limits<double>::infinity() : 0;
    }
    return value;
}

}  // namespace

WscLexer::WscLexer(const CpsString& theSource, WscSourceTexts& theTexts)
    : cursorM(reinterpret_cast<const unsigned char*>(theSource.data())),
      limitM(cursorM + theSource.length()),
      textsM(theTexts) {
    theSource.c_str();  // puts a terminator behind the source, which the scanner reads
}

void WscLexer::LexerError(const CpsString& theText) const {
    throw WscCompilerException(lineNumberM, theText);
}

CpsString WscLexer::getAsUtf8(std::uint32_t theValue) {
    struct Form {
        std::uint32_t limit;
        unsigned lead;
        unsigned further;
    };
    constexpr Form theForms[] = {{0x80, 0x00, 0},
                                 {0x800, 0xC0, 1},
                                 {0x10000, 0xE0, 2},
                                 {0x200000, 0xF0, 3},
                                 {0x4000000, 0xF8, 4}};
    Form form = {0, 0xFC, 5};
    for (const Form& candidate : theForms) {
        if (theValue < candidate.limit) {
            form = candidate;
            break;
        }
    }
    CpsString result;
    result += static_cast<char>(form.lead | (theValue >> (6 * form.further)));
    while (form.further-- != 0) {
        result += static_cast<char>(0x80 | ((theValue >> (6 * form.further)) & 0x3F));
    }
    return result;
}

int WscLexer::identifier(std::string_view theText) {
    tokenValueM.name = textsM.addName(theText);
    return WSC_IDENTIFIER;
}

int WscLexer::integerLiteral(std::string_view theText) noexcept {
    tokenValueM.integerValue = static_cast<std::int32_t>(parseInteger(theText));
    return WSC_INTEGER_LITERAL;
}

int WscLexer::floatLiteral(std::string_view theText) noexcept {
    tokenValueM.floatValue = parseFloat(theText);
    return WSC_FLOAT_LITERAL;
}

bool WscLexer::scanString() {
    const unsigned char quote = cursorM[-1];
    CpsString escaped;  // the text up to and with the last escape
    for (bool hasEscape = false;; hasEscape = true) {
        const unsigned char* const end = std::find_if(cursorM, limitM, [&](unsigned char theByte) {
            return theByte == quote || theByte == '\\' || theByte == '\n';
        });
        take(end);
        std::string_view text = textM.substr(0, textM.find('\0'));  // behind a NUL nothing counts
        if (end == limitM) {
            return false;
        }
        if (hasEscape || *end == '\\') {
            escaped += text;
        }
        if (*end == '\\') {
            if (!scanEscape(escaped)) {
                return false;
            }
            continue;
        }
        take(end + 1);
        if (*end == '\n') {
            LexerError("Error in lexical stage. Unterminated string literal: " + CpsString(textM));
        }
        tokenValueM.text = textsM.addString(hasEscape ? textsM.keep(escaped) : text);
        return true;
    }
}

void WscLexer::skipLineComment() {
    cursorM = std::find(cursorM, limitM, '\n');
    if (cursorM != limitM) {
        ++cursorM;
        ++lineNumberM;
    }
}

void WscLexer::skipBlockComment() {
    for (; cursorM != limitM; ++cursorM) {
        if (cursorM[0] == '*' && cursorM[1] == '/') {
            cursorM += 2;
            return;
        }
        lineNumberM += *cursorM == '\n';
    }
}

// One or two octal digits give a byte, not a character; they cannot exceed 63.
void WscLexer::addEscapedByte(CpsString& theString, std::string_view theDigits) {
    std::uint32_t value = 0;
    std::from_chars(theDigits.data(), theDigits.data() + theDigits.size(), value, 8);
    theString += static_cast<char>(value);
}

void WscLexer::addEscapedCharacter(CpsString& theString, std::string_view theDigits,
                                   unsigned theBase) {
    std::uint32_t value = 0;
    std::from_chars(theDigits.data(), theDigits.data() + theDigits.size(), value,
                    static_cast<int>(theBase));
    theString += getAsUtf8(value);
}

void WscLexer::reservedWord(std::string_view theWord) const {
    LexerError("Error in lexical stage. The word " + CpsString(theWord) +
               " is reserved by or not used in WML-script.");
}

void WscLexer::unknownCharacter(std::string_view theCharacter) const {
    LexerError("Error in lexical stage. Unknown character: " + CpsString(theCharacter));
}

}  // namespace lumnis
