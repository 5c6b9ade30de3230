#include "WmlCtrl.h"

#include <algorithm>
#include <array>
#include <bitset>

#include "CpsBytes.h"
#include "WmlTokens.h"
#include "WmlVariableName.h"

namespace lumnis {
namespace {

constexpr const char* theBadFirstCharacter = "Variable name has to begin with alpha or '_'\n";

// The value table by the bytes of its texts, their second bytes, and where the texts of each first
// byte begin. None of them is shorter than two bytes.
struct ValueIndex {
    static constexpr std::size_t theSize = theWmlAttrValueTokens.size();

    std::array<WmlAttrValueToken, theSize> rows = theWmlAttrValueTokens;
    std::array<char, theSize> seconds{};
    std::array<unsigned char, 257> starts{};

    constexpr ValueIndex() {
        std::sort(rows.begin(), rows.end(),
                  [](const auto& a, const auto& b) { return a.text < b.text; });
        std::transform(rows.begin(), rows.end(), seconds.begin(),
                       [](const auto& row) { return row.text[1]; });
        for (const WmlAttrValueToken& row : rows) {
            for (std::size_t k = static_cast<unsigned char>(row.text[0]) + 1U; k < 257; ++k) {
                ++starts[k];
            }
        }
    }
};
constexpr ValueIndex theValueIndex;

bool hasVariables(std::string_view theText) {
    return theText.find('$') != std::string_view::npos;
}

// How many bytes of theText come before white space that is more than one blank.
std::size_t collapsedLength(std::string_view theText) {
    for (std::size_t i = 0; i < theText.size(); ++i) {
        if (isXmlSpace(theText[i]) &&
            (theText[i] != ' ' || (i + 1 < theText.size() && isXmlSpace(theText[i + 1])))) {
            return i;
        }
    }
    return theText.size();
}

// Appends theText with each run of white space as one blank.
void appendCollapsed(CpsString& theResult, std::string_view theText) {
    for (;;) {
        const std::size_t length = collapsedLength(theText);
        theResult.appendPiece(theText.substr(0, length));
        if (length == theText.size()) {
            return;
        }
        theResult.appendPiece(" ");
        theText.remove_prefix(length);
        while (!theText.empty() && isXmlSpace(theText[0])) {
            theText.remove_prefix(1);
        }
    }
}

// The token of a conversion (WML 1.3, 10.3.1), END for one that is not known.
unsigned char tokenOfConversion(std::string_view theConversion, bool areShortKnown) {
    CpsString name(theConversion);
    std::transform(name.data(), name.data() + name.length(), name.data(), asciiLower);
    if (name == "escape" || (areShortKnown && name == "e")) {
        return XaWbxmlToken::EXT_T_0;
    }
    if (name == "unesc" || (areShortKnown && name == "u")) {
        return XaWbxmlToken::EXT_T_1;
    }
    if (name == "noesc" || (areShortKnown && name == "n")) {
        return XaWbxmlToken::EXT_T_2;
    }
    return XaWbxmlToken::END;
}

}  // namespace

WmlCtrl::WmlCtrl(HedCharsetId theCharset, std::list<XaMetaData>& theMetaDataList)
    : XaWbxmlCtrl(theCharset, 0), metaDataListM(theMetaDataList) {}

WmlCtrl::~WmlCtrl() = default;

// ---- Variables

bool WmlCtrl::validateVariableDecl(std::string_view theSource, CpsString& theOutput,
                                   std::uint32_t& thePosition, CpsString& theError,
                                   bool theEscapeDefault) {
    std::uint32_t position = thePosition;
    const bool isBracketed = position < theSource.size() && theSource[position] == '(';
    if (isBracketed) {
        ++position;
    }
    if (position == theSource.size() || !isWmlNameStart(theSource[position])) {
        theError = theBadFirstCharacter;
        return false;
    }
    const std::uint32_t start = position;
    while (position < theSource.size() && isWmlNameChar(theSource[position])) {
        ++position;
    }
    return finishVariable(theSource, theSource.substr(start, position - start), position,
                          isBracketed, Conversions::LONG_AND_SHORT, theOutput, thePosition,
                          theError, theEscapeDefault);
}

bool WmlCtrl::finishVariable(std::string_view theSource, std::string_view theName,
                             std::uint32_t theEnd, bool isBracketed, Conversions theConversions,
                             CpsString& theOutput, std::uint32_t& thePosition, CpsString& theError,
                             bool theEscapeDefault) {
    std::uint32_t position = theEnd;
    unsigned char token = theEscapeDefault ? XaWbxmlToken::EXT_T_0 : XaWbxmlToken::EXT_T_2;
    if (isBracketed) {
        bool isKnown = true;
        if (position < theSource.size() && theSource[position] == ':') {
            CpsString error;
            const std::string_view conversion = getToken(theSource, ++position, ")", error);
            if (!error.empty()) {
                theError = error;
                return false;
            }
            position += static_cast<std::uint32_t>(conversion.size());
            token = tokenOfConversion(conversion, theConversions == Conversions::LONG_AND_SHORT);
            isKnown = token != XaWbxmlToken::END;
        }
        if (position == theSource.size() || theSource[position] != ')') {
            theError = "no closing parenthesis in variable: " + CpsString(theName);
            return false;
        }
        if (!isKnown) {
            theError = "wrong escape sequence in variable: " + CpsString(theName);
            return false;
        }
        ++position;
    }
    theOutput += static_cast<char>(token);
    theOutput += addStringToStringtable(theName);
    thePosition = position;
    return true;
}

// Walks theSource. theText gets each piece between variables, with "$$" made "$" in it, and
// theVariable the bytes of each variable.
template <typename Text, typename Variable>
bool WmlCtrl::splitAtVariables(std::string_view theSource, CpsString& theError,
                               bool theEscapeDefault, Text theText, Variable theVariable) {
    CpsString pending;
    std::size_t start = 0;
    for (;;) {
        const std::size_t dollar = std::min(theSource.find('$', start), theSource.size());
        pending.appendPiece(theSource.substr(start, dollar - start));
        const bool isAtEnd = dollar == theSource.size();
        if (!isAtEnd && dollar + 1 < theSource.size() && theSource[dollar + 1] == '$') {
            pending.appendPiece("$");
            start = dollar + 2;
            continue;
        }
        if (!pending.empty()) {
            theText(pending);
            pending.clear();
        }
        if (isAtEnd) {
            return true;
        }
        CpsString variable;
        auto position = static_cast<std::uint32_t>(dollar + 1);
        if (!validateVariableDecl(theSource, variable, position, theError, theEscapeDefault)) {
            return false;
        }
        theVariable(variable);
        start = position;
    }
}

bool WmlCtrl::parseVData(std::string_view theSource, CpsString& theError, bool theTokenize,
                         bool theEscapeDefault) {
    const auto write = [&](std::string_view text) {
        if (theTokenize) {
            tokenizeAttributeValue(text);
        } else {
            addStringToOutput(text);
        }
    };
    // Most values are one piece, and as they are to be.
    if (!hasVariables(theSource) && collapsedLength(theSource) == theSource.size()) {
        if (!theSource.empty()) {
            write(theSource);
        }
        return true;
    }
    return splitAtVariables(
        theSource, theError, theEscapeDefault,
        [&](CpsString& text) {
            removeWhitespaces(text);
            write(text);
        },
        [&](const CpsString& variable) { addToOutput(variable.view()); });
}

bool WmlCtrl::parsePcData(std::string_view theSource, CpsString& theError, bool thePreserve) {
    return splitAtVariables(
        theSource, theError, false,
        [&](CpsString& text) {
            if (!thePreserve) {
                removeWhitespaces(text);
            }
            addInlineStringToPcData(text);
        },
        [&](const CpsString& variable) { addVarRefToPcData(variable); });
}

std::string_view WmlCtrl::getToken(std::string_view theSource, std::uint32_t theStart,
                                   std::string_view theSeparator, CpsString& theError) {
    const std::string_view rest = theSource.substr(theStart);
    const std::size_t end = rest.find(theSeparator);
    if (end == std::string_view::npos) {
        theError = "Separator: ";
        theError += theSeparator;
        theError += " not found in ";
        theError += rest;
    }
    return rest.substr(0, end);
}

// ---- Values

// One walk over the value. Each text is replaced once, as decks have always been written, where
// XaWbxmlActor::tokenizeString replaces all. A text counts as seen at its first occurrence, also
// where that is covered by a token; of several at one place the last in byte order wins, which is
// the longest, since each of them begins with the others.
void WmlCtrl::tokenizeAttributeValue(std::string_view theValue) {
    std::bitset<ValueIndex::theSize> seen;
    std::size_t cursor = 0;
    bool hasToken = false;
    for (std::size_t position = 0; position + 1 < theValue.size(); ++position) {
        const auto byte = static_cast<unsigned char>(theValue[position]);
        const char second = theValue[position + 1];
        const WmlAttrValueToken* found = nullptr;
        for (std::size_t k = theValueIndex.starts[byte]; k < theValueIndex.starts[byte + 1U]; ++k) {
            if (theValueIndex.seconds[k] != second || seen[k]) {
                continue;
            }
            const WmlAttrValueToken& row = theValueIndex.rows[k];
            if (CpsBytes::beginsWith(theValue.substr(position), row.text)) {
                seen.set(k);
                found = &row;
            }
        }
        if (found == nullptr || position < cursor) {
            continue;
        }
        if (cursor < position) {
            addStringToOutput(theValue.substr(cursor, position - cursor));
        }
        switchAttrPage(0);
        addToOutput(found->token);
        cursor = position + found->text.size();
        hasToken = true;
    }
    if (cursor < theValue.size() || !hasToken) {
        addStringToOutput(theValue.substr(cursor));
    }
}

bool WmlCtrl::checkNumber(std::string_view theText) {
    return std::all_of(theText.begin(), theText.end(), isAsciiDigit);
}

bool WmlCtrl::validateLength(std::string_view theText) {
    return checkNumber(theText.ends_with('%') ? theText.substr(0, theText.size() - 1) : theText);
}

// ---- White space

void WmlCtrl::removePrecedingWhitespaces(CpsString& theText, bool theKeepOne) {
    std::uint32_t count = 0;
    while (count < theText.length() && isXmlSpace(theText[count])) {
        ++count;
    }
    if (count > 0 && theKeepOne) {
        theText[--count] = ' ';
    }
    theText.erase(0, count);
}

void WmlCtrl::removeWhitespacesAtEnd(CpsString& theText, bool theKeepOne) {
    std::uint32_t end = theText.length();
    while (end > 0 && isXmlSpace(theText[end - 1])) {
        --end;
    }
    if (end < theText.length() && theKeepOne) {
        theText[end++] = ' ';
    }
    theText.erase(end, theText.length() - end);
}

void WmlCtrl::removeWhitespaces(CpsString& theText) {
    auto end = static_cast<std::uint32_t>(collapsedLength(theText));
    bool wasSpace = false;
    for (std::uint32_t i = end; i < theText.length(); ++i) {
        const bool isSpace = isXmlSpace(theText[i]);
        if (!isSpace) {
            theText[end++] = theText[i];
        } else if (!wasSpace) {
            theText[end++] = ' ';
        }
        wasSpace = isSpace;
    }
    theText.erase(end, theText.length() - end);
}

// ---- Text between tags

void WmlCtrl::addInlineStringToPcData(std::string_view theText) {
    pcDataBufferM.appendPiece(theText);
    lastWasVarRefM = false;
}

void WmlCtrl::addCollapsedPcData(std::string_view theText) {
    appendCollapsed(pcDataBufferM, theText);
    lastWasVarRefM = false;
}

void WmlCtrl::addVarRefToPcData(std::string_view theBytes) {
    if (!lastWasVarRefM) {
        flushPcData();
    }
    lastWasVarRefM = true;
    addToOutput(theBytes);
}

void WmlCtrl::flushPcData() {
    if (!pcDataBufferM.empty()) {
        addStringToOutput(pcDataBufferM);
        pcDataBufferM.clear();
    }
}

// ---- Document state

bool WmlCtrl::declareDoElement(const CpsString& theName) {
    return doElementsM.insert(theName).second;
}

}  // namespace lumnis
