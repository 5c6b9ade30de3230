#include "XpLexer.h"

#include <algorithm>
#include <utility>

#include "XpGrammar.h"
#include "XpInternalError.h"
#include "XpParserError.h"

namespace lumnis {

namespace {

// Entities may make a document large, or many times larger than it is, but not both.
constexpr std::uint64_t theExpansionLimit = 8u << 20;
constexpr std::uint64_t theExpansionRatio = 100;

constexpr unsigned theLastCodePoint = 0x10FFFF;
// The input that is at its end at once.
constexpr unsigned char theNothing[] = {0};

const unsigned char* beginOf(const CpsString& theText) {
    return reinterpret_cast<const unsigned char*>(theText.data());
}

// XML 1.0, [2].
bool isXmlChar(unsigned theCodePoint) {
    return theCodePoint == 0x9 || theCodePoint == 0xA || theCodePoint == 0xD ||
           (theCodePoint >= 0x20 && theCodePoint <= 0xD7FF) ||
           (theCodePoint >= 0xE000 && theCodePoint <= 0xFFFD) ||
           (theCodePoint >= 0x10000 && theCodePoint <= theLastCodePoint);
}

}  // namespace

XpLexer::XpLexer(const CpsString* theInput)
    : cursorM(beginOf(*theInput)),
      limitM(cursorM + theInput->length()),
      idsM(std::make_shared<XpDtd::IdTable>()),
      documentSizeM(theInput->length()) {
    theInput->c_str();
}

void XpLexer::startDtd() {
    conditionM = DTD;
    pushNothing(XP_PARSE_DTD);
}

void XpLexer::startProlog() {
    conditionM = PROLOG;
    pushNothing(XP_PARSE_PROLOG);
}

void XpLexer::startDocument() {
    conditionM = CONTENT;
    pushNothing(XP_PARSE_DOCUMENT);
}

void XpLexer::pushInput(const CpsString* theText, int theEndToken) {
    pushBytes(beginOf(*theText), beginOf(*theText) + theText->length(), theEndToken);
}

void XpLexer::pushNothing(int theEndToken) {
    pushBytes(theNothing, theNothing, theEndToken);
}

void XpLexer::pushBytes(const unsigned char* theBegin, const unsigned char* theEnd,
                        int theEndToken) {
    inputStackM.push_back({cursorM, limitM, theEndToken});
    cursorM = theBegin;
    limitM = theEnd;
}

int XpLexer::endInput() {
    if (inputStackM.empty()) {
        return XP_YYEOF;
    }
    const Frame frame = inputStackM.back();
    inputStackM.pop_back();
    cursorM = frame.cursor;
    limitM = frame.limit;
    return frame.endToken;
}

void XpLexer::countExpansion(std::uint64_t theLength) {
    expandedM += theLength;
    if (expandedM > theExpansionLimit && expandedM > documentSizeM * theExpansionRatio) {
        failToExpand();
    }
}

void XpLexer::failToExpand() const {
    fail("entity expansion limit exceeded");
}

void XpLexer::yy_push_state(Condition theCondition) {
    conditionStackM.push_back(conditionM);
    conditionM = theCondition;
}

void XpLexer::yy_pop_state() {
    if (conditionStackM.empty()) {
        throw XpInternalError("start-condition stack underflow");
    }
    conditionM = conditionStackM.back();
    conditionStackM.pop_back();
}

void XpLexer::addString() {
    stringsM.push_back(std::make_unique<CpsString>());
}

bool XpLexer::getUndefinedIds(CpsString& theOutput) const {
    std::vector<std::string_view> names;
    for (const XpDtd::Id& id : idsM->getIds()) {
        if (!id.isDefined()) {
            names.push_back(id.getName());
        }
    }
    std::sort(names.begin(), names.end());
    for (const std::string_view name : names) {
        theOutput.appendPiece(" ");
        theOutput.appendPiece(name);
    }
    return !names.empty();
}

void XpLexer::fail(CpsString theMessage) const {
    throw XpParserError(std::move(theMessage), lineM);
}

void XpLexer::failAtText(std::string_view theMessage) const {
    fail(CpsString(theMessage, yytextM));
}

void XpLexer::takeRun(const unsigned char* theCursor) {
    takeWord(theCursor);
    if (inputStackM.empty()) {
        std::string_view rest = yytextM;
        for (std::size_t at = rest.find('\n'); at != std::string_view::npos; at = rest.find('\n')) {
            ++lineM;
            rest.remove_prefix(at + 1);
        }
    }
}

std::optional<unsigned> XpLexer::characterOf(std::string_view theDigits, unsigned theRadix) {
    unsigned codePoint = 0;
    for (const char digit : theDigits) {
        const unsigned value = digit <= '9' ? static_cast<unsigned>(digit - '0')
                                            : static_cast<unsigned>((digit | 0x20) - 'a' + 10);
        // Stays above the last code point once it is there.
        codePoint = std::min(codePoint, theLastCodePoint + 1) * theRadix + value;
    }
    return isXmlChar(codePoint) ? std::optional(codePoint) : std::nullopt;
}

int XpLexer::characterToken(std::string_view theDigits, unsigned theRadix) {
    const auto codePoint = characterOf(theDigits, theRadix);
    if (!codePoint) {
        failAtText("illegal character entity ");
    }
    yylvalM.codePoint = *codePoint;
    return XP_CHARREF;
}

}  // namespace lumnis
