// The scanner's own machinery, which no document reaches through the parser.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

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
