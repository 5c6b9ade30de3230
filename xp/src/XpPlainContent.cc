#include "XpPlainContent.h"

#include <array>
#include <cstring>
#include <string_view>

#include "XpLexer.h"
#include "XpParserBase.h"

namespace lumnis {

namespace {

// The most that one step pushes, and one for the parser itself, which grows its stack early.
constexpr std::ptrdiff_t theRoom = 8;

enum ByteClass : unsigned char {
    SPACE = 1,
    NAME_START = 2,
    NAME = 4,
    TEXT_END = 8,   // ends a run of text, or makes it one that is not plain
    VALUE_END = 16  // the same for the value of an attribute
};

// Of ASCII alone: other bytes are no part of a plain name.
constexpr std::array<unsigned char, 256> makeClasses() {
    std::array<unsigned char, 256> classes{};
    const auto mark = [&](std::string_view theBytes, unsigned theClass) {
        for (const char byte : theBytes) {
            auto& place = classes[static_cast<unsigned char>(byte)];
            place = static_cast<unsigned char>(place | theClass);
        }
    };
    mark(" \t\n\r", SPACE);
    mark("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_:", NAME_START | NAME);
    mark("0123456789.-", NAME);
    mark(std::string_view("<&]\0", 4), TEXT_END);
    mark(std::string_view("<&\t\n\r\"'\0", 8), VALUE_END);
    return classes;
}

constexpr auto theClasses = makeClasses();

bool is(unsigned char theByte, ByteClass theClass) {
    return (theClasses[theByte] & theClass) != 0;
}

std::string_view between(const unsigned char* theBegin, const unsigned char* theEnd) {
    return {reinterpret_cast<const char*>(theBegin), static_cast<std::size_t>(theEnd - theBegin)};
}

const unsigned char* skipName(const unsigned char* theAt) {
    while (is(*theAt, NAME)) {
        ++theAt;
    }
    return theAt;
}

const unsigned char* skipSpace(const unsigned char* theAt, unsigned& theLineFeeds) {
    while (is(*theAt, SPACE)) {
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
    bool isSpace;
};

XpPlainContent::State* XpPlainContent::read(XpParserBase& theParser, State* theTop,
                                            const State* theEnd) const {
    if (!theParser.getLexer().isInDocument()) {
        return theTop;
    }
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
    if (at == begin || !is(*at, NAME_START)) {
        return false;
    }
    const unsigned char* const name = at;
    at = skipName(at);
    if (*at != '=' || (at[1] != '"' && at[1] != '\'')) {
        return false;
    }
    const unsigned char* const nameEnd = at;
    const unsigned char quote = at[1];
    const unsigned char* const value = at + 2;
    for (at = value; !is(*at, VALUE_END); ++at) {
    }
    if (*at != quote) {
        return false;
    }
    lexer.skipTo(at + 1, lineFeeds);
    theParser.addPlainAttribute(between(name, nameEnd), between(value, at));
    return true;
}

bool XpPlainContent::readInContent(XpParserBase& theParser, State*& theTop) const {
    const unsigned char* const begin = theParser.getLexer().getCursor();
    XpPlainText text{begin, begin, 0, true};
    text.end = skipSpace(begin, text.lineFeeds);
    if (*text.end != '<') {
        text.isSpace = false;
        for (; !is(*text.end, TEXT_END); ++text.end) {
            text.lineFeeds += *text.end == '\n';
        }
        if (*text.end != '<') {
            return false;
        }
    }
    return text.end[1] == '/' ? readEndTag(theParser, theTop, text)
                              : readStartTag(theParser, theTop, text);
}

bool XpPlainContent::readEndTag(XpParserBase& theParser, State*& theTop,
                                const XpPlainText& theText) const {
    XpLexer& lexer = theParser.getLexer();
    const std::string_view name = theParser.getCurrentElement().getName();
    const std::string_view rest = between(theText.end + 2, lexer.getLimit());
    const bool isOpened = *theTop == statesM.opened;
    State* const tag = theTop - (isOpened ? 2 : 4);
    if (rest.size() <= name.size() || rest[name.size()] != '>' || !rest.starts_with(name) ||
        !isInContent(tag)) {
        return false;
    }
    lexer.skipTo(theText.end + 2 + name.size() + 1, theText.lineFeeds);
    const bool hasText = theText.begin != theText.end;
    if (hasText && !theText.isSpace) {
        if (isOpened) {
            theParser.beginWithContent();
        }
        theParser.addCharData(between(theText.begin, theText.end));
    } else {
        if (hasText) {
            theParser.addSpace(between(theText.begin, theText.end));
        }
        if (isOpened) {
            theParser.beginWithoutContent(hasText);
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
    if (!is(*name, NAME_START)) {
        return false;
    }
    const unsigned char* const nameEnd = skipName(name + 1);
    if (*nameEnd >= 0x80) {
        return false;
    }
    theParser.getLexer().skipTo(nameEnd, theText.lineFeeds);
    const bool isOpened = *theTop == statesM.opened;
    if (theText.begin != theText.end && theText.isSpace) {
        theParser.addSpace(between(theText.begin, theText.end));
    }
    if (isOpened) {
        theParser.beginWithContent();
    }
    if (!theText.isSpace) {
        theParser.addCharData(between(theText.begin, theText.end));
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
