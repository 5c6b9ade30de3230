// The scanner's own machinery, which no document reaches through the parser.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "CaseFile.h"
#include "XpInternalError.h"
#include "XpLexer.h"
#include "XpParserError.h"

namespace lumnis {
namespace {

constexpr XpLexer::Condition theConditions[] = {
    XpLexer::DTD,      XpLexer::PROLOG,     XpLexer::CONTENT,     XpLexer::TAG,
    XpLexer::PITARGET, XpLexer::PIDATA,     XpLexer::ENTITYVALUE, XpLexer::ATTVALUE,
    XpLexer::ATTNAME,  XpLexer::ATTNMTOKEN, XpLexer::IGNORESECT};

// In each condition some rule takes every byte, wherever it stands and whatever is around it, or
// the scanner would be jammed. Each token but those that leave a byte unread gets on.
TEST(XmlScanner, neverJams) {
    // Bytes that some rule knows, and some that none does.
    constexpr char theBytes[] = "<>&%;!?-[]()|,*+#='\"/x0:. \t\n\r\0\x80\xC3\xFF";
    const std::string_view bytes(theBytes, sizeof theBytes - 1);
    const auto readAll = [](XpLexer::Condition theCondition, const std::string& theText) {
        const CpsString text{std::string_view(theText)};
        XpLexer lexer(&text);
        lexer.yy_push_state(theCondition);
        try {
            for (std::size_t count = 0; lexer.yylex() != 0; ++count) {
                if (count > theText.size()) {
                    return theCondition == XpLexer::PROLOG;  // END_PROLOG for ever
                }
            }
        } catch (const XpParserError&) {
            // The right end for most of them.
        }
        return true;
    };
    for (const XpLexer::Condition condition : theConditions) {
        EXPECT_TRUE(readAll(condition, "")) << condition;
        for (const char first : bytes) {
            for (const char second : bytes) {
                const std::string two{first, second};
                for (const std::string& text : {two, "<" + two, "]" + two, two + "x"}) {
                    EXPECT_NO_THROW(EXPECT_TRUE(readAll(condition, text)) << condition << text)
                        << condition << ": " << text;
                }
            }
        }
    }
}

// Marks the code points of a class of Appendix B: "0041-005A 00B7" and so on.
void mark(const std::string& theRanges, std::vector<bool>& theMarks) {
    std::istringstream ranges(theRanges);
    for (std::string range; ranges >> range;) {
        const unsigned long first = std::stoul(range.substr(0, 4), nullptr, 16);
        const unsigned long last = std::stoul(range.substr(range.size() - 4), nullptr, 16);
        std::fill(theMarks.begin() + static_cast<std::ptrdiff_t>(first),
                  theMarks.begin() + static_cast<std::ptrdiff_t>(last) + 1, true);
    }
}

bool isName(const std::string& theText) {
    const CpsString text{std::string_view(theText)};
    XpLexer lexer(&text);
    lexer.yy_push_state(XpLexer::ATTNAME);
    try {
        return lexer.yylex() != 0 && lexer.yylex() == 0;
    } catch (const XpParserError&) {
        return false;
    }
}

// Each character of two and three bytes, and what is none: overlong, or a byte beside the range.
TEST(XmlScanner, knowsEveryCharacterOfNames) {
    std::vector<bool> starts(0x10000);
    std::vector<bool> others(0x10000);
    for (const test::Case& each : test::readCases("unicode")) {
        mark(each.source, others);
        if (each.name == "BaseChar" || each.name == "Ideographic") {
            mark(each.source, starts);
        }
    }
    const auto expectNames = [&](const std::string& theBytes, unsigned theCodePoint) {
        EXPECT_EQ(isName(theBytes), starts[theCodePoint]) << std::hex << theCodePoint;
        EXPECT_EQ(isName("a" + theBytes), others[theCodePoint]) << std::hex << theCodePoint;
    };
    constexpr unsigned theNothing = 0;  // NUL is in no name
    const auto isFurther = [](unsigned theByte) { return theByte >= 0x80 && theByte <= 0xBF; };
    for (unsigned last = 0x7F; last <= 0xC0; ++last) {
        for (unsigned lead = 0xC0; lead <= 0xDF; ++lead) {
            const unsigned codePoint = (lead & 0x1F) << 6 | (last & 0x3F);
            expectNames({static_cast<char>(lead), static_cast<char>(last)},
                        isFurther(last) && codePoint >= 0x80 ? codePoint : theNothing);
        }
        for (unsigned second = 0x7F; second <= 0xC0; ++second) {
            for (unsigned lead = 0xE0; lead <= 0xEF; ++lead) {
                const unsigned codePoint =
                    (lead & 0xF) << 12 | (second & 0x3F) << 6 | (last & 0x3F);
                const bool isOne = isFurther(second) && isFurther(last) && codePoint >= 0x800;
                expectNames(
                    {static_cast<char>(lead), static_cast<char>(second), static_cast<char>(last)},
                    isOne ? codePoint : theNothing);
            }
        }
    }
}

TEST(XmlScanner, popsNoConditionThatWasNotPushed) {
    const CpsString text("");
    XpLexer lexer(&text);
    lexer.yy_push_state(XpLexer::DTD);
    lexer.yy_pop_state();
    try {
        lexer.yy_pop_state();
        FAIL();
    } catch (const XpInternalError& error) {
        EXPECT_STREQ("start-condition stack underflow", error.what());
    }
}

// A string that is in use must not be given out again.
TEST(XmlScanner, keepsMarkedStrings) {
    const CpsString text("");
    XpLexer lexer(&text);
    const CpsString* const name = lexer.internString("name");
    lexer.markStrings();
    const CpsString* const first = lexer.internString("first");
    const CpsString* const second = lexer.internString("second");
    lexer.releaseString(*first);  // not the newest one
    EXPECT_NE(first, lexer.internString("third"));
    EXPECT_EQ("second", *second);
    lexer.resetStrings();
    EXPECT_EQ(first, lexer.internString("fourth"));
    lexer.releaseString(*first);
    lexer.releaseString(*name);
    EXPECT_NE(name, lexer.internString("fifth"));
    lexer.unmarkStrings();
    lexer.resetStrings();
    EXPECT_EQ(name, lexer.internString("sixth"));
}

}  // namespace
}  // namespace lumnis
