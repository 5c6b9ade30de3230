#include "XpPlainContent.h"

#include <optional>
#include <string_view>
#include <utility>

#include "CpsBytes.h"
#include "XpByteClass.h"
#include "XpLexer.h"
#include "XpParserBase.h"

namespace lumnis {

namespace {

// A start tag: content, flushed, beginStag, begun, attributes.
constexpr std::ptrdiff_t theMostPushed = 5;
// One more is for the parser itself, which grows its stack early.
constexpr std::ptrdiff_t theRoom = theMostPushed + 1;

std::string_view between(const unsigned char* theBegin, const unsigned char* theEnd) {
    return {reinterpret_cast<const char*>(theBegin), static_cast<std::size_t>(theEnd - theBegin)};
}

const unsigned char* skipName(const unsigned char* theAt) {
    while (XpByteClass::isName(*theAt)) {
        ++theAt;
    }
    return theAt;
}

struct Reference {
    unsigned codePoint;
    const unsigned char* end;
};

// The character reference at theAt, if it is one, and to a character that XML allows.
std::optional<Reference> readReference(const unsigned char* theAt) {
    if (theAt[0] != '&' || theAt[1] != '#') {
        return std::nullopt;
    }
    const bool isHex = theAt[2] == 'x';
    const unsigned char* const digits = theAt + (isHex ? 3 : 2);
    const unsigned char* end = digits;
    while (XpByteClass::isDigit(*end) || (isHex && XpByteClass::isHexDigit(*end))) {
        ++end;
    }
    if (end == digits || *end != ';') {
        return std::nullopt;
    }
    const auto codePoint = XpLexer::characterOf(between(digits, end), isHex ? 16 : 10);
    return codePoint ? std::optional(Reference{*codePoint, end + 1}) : std::nullopt;
}

const unsigned char* skipSpace(const unsigned char* theAt, unsigned& theLineFeeds) {
    while (XpByteClass::isSpace(*theAt)) {
        theLineFeeds += *theAt == '\n';
        ++theAt;
    }
    return theAt;
}

}  // namespace

// What stands in front of the next tag.
struct XpPlainText {
    const unsigned char* begin;
    const unsigned char* end;
    unsigned lineFeeds;
    bool isSpace;  // or nothing
    bool hasReferences;

    bool empty() const { return begin == end; }
    std::string_view view() const { return between(begin, end); }
};

XpPlainContent::State* XpPlainContent::read(XpParserBase& theParser, State* theTop,
                                            const State* theEnd) const {
    while (theEnd - theTop > theRoom &&
           (*theTop == statesM.attributes ? readInTag(theParser, theTop)
                                          : readInContent(theParser, theTop))) {
    }
    return theTop;
}

bool XpPlainContent::readInTag(XpParserBase& theParser, State*& theTop) const {
    XpLexer& lexer = theParser.getLexer();
    const unsigned char* const begin = lexer.getCursor();
    unsigned lineFeeds = 0;
    const unsigned char* at = skipSpace(begin, lineFeeds);
    if (*at == '>') {
        lexer.skipTo(at + 1, lineFeeds);
        theParser.endStartTag();
        *++theTop = statesM.rangle;
        *++theTop = statesM.opened;
        return true;
    }
    if (*at == '/') {
        if (at[1] != '>' || !isInContent(theTop)) {
            return false;
        }
        lexer.skipTo(at + 2, lineFeeds);
        theParser.endEmptyElement();
        lexer.resetStrings();
        theTop = leave(theTop);
        return true;
    }
    return at != begin && XpByteClass::isNameStart(*at) && readAttribute(theParser, at, lineFeeds);
}

bool XpPlainContent::readAttribute(XpParserBase& theParser, const unsigned char* theName,
                                   unsigned theLineFeeds) {
    const unsigned char* const nameEnd = skipName(theName);
    if (*nameEnd != '=' || (nameEnd[1] != '"' && nameEnd[1] != '\'')) {
        return false;
    }
    const unsigned char quote = nameEnd[1];
    const unsigned char* const value = nameEnd + 2;
    const unsigned char* end = value;
    while (!XpByteClass::isValueEnd(*end)) {
        ++end;
    }
    const bool isPlain = *end == quote;
    for (; *end != quote; ++end) {
        if (*end == '\0') {
            return false;  // the end, or a byte of the value: the scanner knows
        }
        theLineFeeds += *end == '\n';
    }
    XpLexer& lexer = theParser.getLexer();
    lexer.skipTo(end + 1, theLineFeeds);
    const std::string_view name = between(theName, nameEnd);
    const std::string_view literal = between(value, end);
    if (isPlain) {
        theParser.addPlainAttribute(name, literal);
    } else {
        theParser.addAttribute(*lexer.internString(name), *lexer.internString(literal));
    }
    return true;
}

bool XpPlainContent::readInContent(XpParserBase& theParser, State*& theTop) const {
    const unsigned char* const begin = theParser.getLexer().getCursor();
    XpPlainText text{begin, begin, 0, true, false};
    text.end = skipSpace(begin, text.lineFeeds);
    while (*text.end != '<') {
        text.isSpace = false;
        for (; !XpByteClass::isTextEnd(*text.end); ++text.end) {
            text.lineFeeds += *text.end == '\n';
        }
        if (*text.end != '<') {
            const auto reference = readReference(text.end);
            if (!reference) {
                return false;
            }
            text.hasReferences = true;
            text.end = reference->end;
        }
    }
    return text.end[1] == '/' ? readEndTag(theParser, theTop, text)
                              : readStartTag(theParser, theTop, text);
}

// Each piece of the text is an action of its own, and the lines count when it is read: the begin of
// the element may find a fault.
void XpPlainContent::takeReferences(XpParserBase& theParser, const XpPlainText& theText,
                                    bool isOpened) const {
    XpLexer& lexer = theParser.getLexer();
    const auto begin = [&] {
        if (std::exchange(isOpened, false)) {
            theParser.beginWithContent();
        }
    };
    for (const unsigned char* at = theText.begin; at != theText.end;) {
        if (const auto reference = readReference(at)) {
            lexer.skipTo(reference->end, 0);
            begin();
            theParser.addCharacter(reference->codePoint);
            at = reference->end;
            continue;
        }
        unsigned lineFeeds = 0;
        const unsigned char* end = skipSpace(at, lineFeeds);
        const bool isSpace = end == theText.end || *end == '&';
        for (; end != theText.end && *end != '&'; ++end) {
            lineFeeds += *end == '\n';
        }
        lexer.skipTo(end, lineFeeds);
        if (isSpace) {
            theParser.addSpace(between(at, end));
        } else {
            begin();
            theParser.addCharData(between(at, end));
        }
        at = end;
    }
}

bool XpPlainContent::readEndTag(XpParserBase& theParser, State*& theTop,
                                const XpPlainText& theText) const {
    XpLexer& lexer = theParser.getLexer();
    const std::string_view name = theParser.getCurrentElement().getName();
    const std::string_view rest = between(theText.end + 2, lexer.getLimit());
    const bool isOpened = *theTop == statesM.opened;
    State* const tag = theTop - (isOpened ? theOpenedOffset : theSingleContentOffset);
    if (rest.size() <= name.size() || rest[name.size()] != '>' ||
        !CpsBytes::beginsWith(rest, name) || !isInContent(tag)) {
        return false;
    }
    const unsigned char* const end = theText.end + 2 + name.size() + 1;
    if (theText.hasReferences) {
        takeReferences(theParser, theText, isOpened);
        lexer.skipTo(end, 0);
    } else {
        lexer.skipTo(end, theText.lineFeeds);
        if (!theText.isSpace) {
            if (isOpened) {
                theParser.beginWithContent();
            }
            theParser.addCharData(theText.view());
        } else {
            if (!theText.empty()) {
                theParser.addSpace(theText.view());
            }
            if (isOpened) {
                theParser.beginWithoutContent(!theText.empty());
            }
        }
    }
    theParser.flushCharData();
    theParser.endElement(name);
    lexer.resetStrings();
    theTop = leave(tag);
    return true;
}

bool XpPlainContent::readStartTag(XpParserBase& theParser, State*& theTop,
                                  const XpPlainText& theText) const {
    const unsigned char* const name = theText.end + 1;
    if (!XpByteClass::isNameStart(*name)) {
        return false;
    }
    const unsigned char* const nameEnd = skipName(name + 1);
    if (*nameEnd >= 0x80) {
        return false;
    }
    XpLexer& lexer = theParser.getLexer();
    const bool isOpened = *theTop == statesM.opened;
    if (theText.hasReferences) {
        takeReferences(theParser, theText, isOpened);
        lexer.skipTo(nameEnd, 0);
    } else {
        lexer.skipTo(nameEnd, theText.lineFeeds);
        if (theText.isSpace && !theText.empty()) {
            theParser.addSpace(theText.view());
        }
        if (isOpened) {
            theParser.beginWithContent();
        }
        if (!theText.isSpace) {
            theParser.addCharData(theText.view());
        }
    }
    theParser.flushCharData();
    theParser.beginElement(between(name, nameEnd));
    if (isOpened) {
        *++theTop = statesM.content;
    } else {
        --theTop;
    }
    *++theTop = statesM.flushed;
    *++theTop = statesM.beginStag;
    *++theTop = statesM.begun;
    *++theTop = statesM.attributes;
    return true;
}

}  // namespace lumnis
