// Nested input on a small stack: scripts, decks and compiled decks.
//
// Of scripts the deepest source of each construct that the parser's 10000 entries take, and the
// first that it refuses. Whatever walks the tree must not need stack in proportion to it.
//
// The entries of the parser's stack that are in use at the innermost point, of 9999 at most (with
// the 10000th the stack is full): the start state, "function" "f" "(" ")" "{", a parameter list
// between the parentheses where there is one, the keyword of the statement, `entries` for each
// level, and what stands innermost.
#include <gtest/gtest.h>

#include <ostream>
#include <streambuf>
#include <string>

#include "DumpPrinter.h"
#include "DumpReader.h"
#include "ExportCalls.h"
#include "SmallStack.h"
#include "WscWmlScriptCompiler.h"

namespace lumnis {
namespace {

// Counts what it takes and keeps nothing.
class DiscardBuffer : public std::streambuf {
  public:
    std::size_t count() const { return countM; }

  protected:
    int_type overflow(int_type theByte) override {
        ++countM;
        return traits_type::not_eof(theByte);
    }
    std::streamsize xsputn(const char*, std::streamsize theCount) override {
        countM += static_cast<std::size_t>(theCount);
        return theCount;
    }

  private:
    std::size_t countM = 0;
};

using test::onSmallStack;

// The message without its line, or "" for a script that compiles, whose tree of at least theDepth
// levels is dumped as well: a line for each, one blank longer than the line above.
std::string compile(const std::string& theSource, std::size_t theDepth = 1) {
    std::string message;
    onSmallStack([&] {
        DiscardBuffer treeBuffer;
        DiscardBuffer consoleBuffer;
        DiscardBuffer listingBuffer;
        std::ostream tree(&treeBuffer);
        std::ostream console(&consoleBuffer);
        std::ostream listing(&listingBuffer);
        WscWmlScriptCompiler compiler;
        compiler.setParseTreeStream(&tree);
        compiler.setConsoleStream(console);
        compiler.setAssemblyStream(&listing);
        const CpsString source(theSource);
        if (compiler.compile(&source) == 1) {
            EXPECT_GT(consoleBuffer.count(), theDepth * (theDepth + 1) / 2);
            EXPECT_GT(treeBuffer.count(), consoleBuffer.count());
        } else {
            CpsString text;
            compiler.getErrorMessage(0, text);
            const std::string_view whole = text.view();
            message = whole.substr(whole.find("\r\n") + 2);
        }
    });
    return message;
}

struct Nesting {
    const char* name;
    const char* head;   // in front of the levels
    const char* open;   // a level
    const char* inner;  // what stands innermost
    const char* close;  // the end of a level
    const char* tail;
    int largest;  // levels
};

std::string nested(const Nesting& theRow, int theLevels) {
    std::string result = theRow.head;
    for (int i = 0; i < theLevels; ++i) {
        result += theRow.open;
    }
    result += theRow.inner;
    for (int i = 0; i < theLevels; ++i) {
        result += theRow.close;
    }
    return result + theRow.tail;
}

const char* const theReturn = "function f() { return ";    // 7 entries
const char* const theReturnA = "function f(a) { return ";  // 8
const char* const theBody = "function f() { ";             // 6
const char* const theBodyA = "function f(a) { ";           // 7

const Nesting theNestings[] = {
    // 7 + n + 2: Expression, ) on top of the innermost (
    {"Parentheses", theReturn, "(", "1", ")", ";}", 9990},
    // 7 + n + 1
    {"Not", theReturn, "!", "1", "", ";}", 9991},
    {"Typeof", theReturn, "typeof ", "1", "", ";}", 9991},
    {"Isvalid", theReturn, "isvalid ", "1", "", ";}", 9991},
    {"Complement", theReturn, "~", "true", "", ";}", 9991},
    {"Plus", theReturn, "+ ", "1", "", ";}", 9991},
    // The - in front of the literal is an operator for the moment that it takes to see the literal.
    {"Minus", theReturn, "- ", "1", "", ";}", 9991},
    // 7 + 2 * n + 2: an operator and a ( a level
    {"MinusParenthesis", theReturn, "-(", "1", ")", ";}", 4995},
    // 7 + 2 * n + 1: Identifier, operator a level
    {"Assignments", theBodyA, "a=", "1", "", ";}", 4995},
    {"AddAssignments", theBodyA, "a+=", "1", "", ";}", 4995},
    {"ShiftAssignments", theBodyA, "a>>>=", "1", "", ";}", 4995},
    // 7 + 4 * n + 1: 1, ?, 1, : a level
    {"ConditionalsElse", theReturn, "1?1:", "1", "", ";}", 2497},
    // 7 + 2 * n + 3: 1, ? a level; innermost 1, :, 1 on top
    {"ConditionalsThen", theReturn, "1?", "1", ":1", ";}", 4994},
    // 8 + 2 * n + 2: Identifier, ( a level; innermost the list, )
    {"Calls", theReturnA, "f(", "1", ")", ";}", 4994},
    // 7 + 4 * n + 2: Identifier, ., Identifier, (
    {"LibraryCalls", theReturn, "Lang.abs(", "1", ")", ";}", 2497},
    // 8 + 4 * n + 2: the Pragmas stand in front of all
    {"ExternalCalls", "use url u \"x\"; function f() { return ", "u#g(", "1", ")", ";}", 2497},
    // 8 + 4 * n + 1: Identifier, (, the list so far, a comma
    {"SecondArguments", "function f(a,b) { return ", "f(1,", "1", ")", ";}", 2497},
    // 7 + 3 * n + 2: 1, operator, ( a level
    {"Sums", theReturn, "1+(", "1", ")", ";}", 3330},
    {"Ands", theReturn, "1&&(", "1", ")", ";}", 3330},
    {"Ors", theReturn, "1||(", "1", ")", ";}", 3330},
    {"Commas", theReturn, "1,(", "1", ")", ";}", 3330},
    // 7 + 21 * n + 2: ten levels of operators and a ( a level
    {"AllLevels", theReturn, "1||1&&1|1^1&1==1<1<<1+1*(", "1", ")", ";}", 475},
    // 6 + n + 1
    {"Blocks", theBody, "{", "", "}", "}", 9992},
    // 6 + 2 * n + 2: the list so far, { a level; innermost the list, }
    {"LaterBlocks", theBody, ";{", ";", "}", "}", 4995},
    // 6 + 4 * n + 1: if, (, Expression, )
    {"Ifs", theBody, "if(1)", ";", "", "}", 2498},
    // 6 + 6 * n + 1: if, (, Expression, ), Statement, else
    {"ElseIfs", theBody, "if(1);else ", ";", "", "}", 1665},
    {"IfsWithElse", theBody, "if(1)", ";", " else ;", "}", 2497},
    {"Whiles", theBody, "while(1)", ";", "", "}", 2498},
    // 6 + 5 * n + 1: for, (, ;, ;, )
    {"Fors", theBody, "for(;;)", ";", "", "}", 1998},
    // 6 + 8 * n + 1
    {"ForsWithAll", theBody, "for(1;1;1)", ";", "", "}", 1249},
    // 6 + 5 * n + 1: while, (, Expression, ), {
    {"WhileBlocks", theBody, "while(1){", "", "}", "}", 1998},
};

class NestingTest : public testing::TestWithParam<Nesting> {};

TEST_P(NestingTest, LargestCompilesAndNextOverflows) {
    const Nesting& row = GetParam();
    EXPECT_EQ(compile(nested(row, row.largest), static_cast<std::size_t>(row.largest)), "");
    EXPECT_EQ(compile(nested(row, row.largest + 1)), "parser stack overflow") << row.largest + 1;
    EXPECT_EQ(compile(nested(row, 100000)), "parser stack overflow");
}

INSTANTIATE_TEST_SUITE_P(All, NestingTest, testing::ValuesIn(theNestings),
                         [](const testing::TestParamInfo<Nesting>& theInfo) {
                             return std::string(theInfo.param.name);
                         });

// What is built as a list needs no depth of the parser's stack and must need none elsewhere.
TEST(Lists, HaveNoDepth) {
    const Nesting lists[] = {
        {"Commas", theReturn, "1,", "1", "", ";}", 50000},
        {"Sums", theReturn, "1+", "1", "", ";}", 50000},
        // Five bytes each, below a jump's range of 65535.
        {"Ors", theReturn, "1||", "1", "", ";}", 13000},
        {"Statements", theBody, ";", "", "", "}", 50000},
        {"Loops", theBodyA, "for(a;a;a);", "", "", "}", 50000},
        {"Calls", "use url u \"x\"; function f() { ", "u#g(1,1),", "1", "", ";}", 50000},
    };
    for (const Nesting& row : lists) {
        EXPECT_EQ(compile(nested(row, row.largest)), "") << row.name;
    }
}

// A fault at the innermost point leaves through all levels.
TEST(Faults, InTheInnermostLevel) {
    EXPECT_EQ(compile("function f() { return " + std::string(9990, '(') + "x" +
                      std::string(9990, ')') + ";}"),
              "Semantic Error: Variable \"x\" not found");
    EXPECT_EQ(compile("function f() {" + std::string(9990, '{') + "break;" +
                      std::string(9990, '}') + "}"),
              "Semantic Error: Break without for or while");
    EXPECT_EQ(compile("function f() { return " + std::string(9000, '(')), "parse error");
    EXPECT_EQ(compile("function f() { return " + std::string(9000, '(') + "@"),
              "Error in lexical stage. Unknown character: @");
}

// Text theCount times, each @ in it the number of the repetition.
std::string repeated(std::string_view theText, int theCount) {
    std::string result;
    for (int i = 0; i < theCount; ++i) {
        for (const char byte : theText) {
            result += byte == '@' ? std::to_string(i) : std::string(1, byte);
        }
    }
    return result;
}

// What has no nesting in the tree, of any number.
TEST(Lists, OfDeclarations) {
    EXPECT_EQ(compile(repeated("use meta name \"@\" \"\";", 20000) + "function f() {}"), "");
    EXPECT_EQ(compile(repeated("use url u@ \"\";", 20000) + "function f() {}"), "");
    EXPECT_EQ(compile(repeated("function f@() {}", 20000)),
              "Semantic Error: Number of functions too many (>255)");
    EXPECT_EQ(compile("function f(a" + repeated(",a@", 20000) + ") {}"),
              "Semantic error: Number of formal parameters in function \"f\" too many (>255)");
}

// theDeclarations in a document whose root element may have anything in it.
std::string declaring(const std::string& theDeclarations, const std::string& theContent = {}) {
    return "<!DOCTYPE wml [<!ELEMENT wml ANY>" + theDeclarations + "]><wml>" + theContent +
           "</wml>";
}

constexpr const char* theOverflow = "parser stack overflow  (before or at line: 1)\n";

// Of what the parser's stack bounds, the deepest and the first that it refuses; of the others any
// number.
TEST(Decks, OfEveryConstruct) {
    const auto elements = [](int theCount) {
        return "<wml><card><p>" + repeated("<b>", theCount - 3) + repeated("</b>", theCount - 3) +
               "</p></card></wml>";
    };
    const auto groups = [](int theCount) {
        return declaring("<!ELEMENT a " + repeated("(", theCount) + "b" + repeated(")", theCount) +
                         ">");
    };
    const auto laterGroups = [](int theCount) {
        return declaring("<!ELEMENT a " + repeated("(b@,", theCount) + "b" +
                         repeated(")", theCount) + ">");
    };
    const auto entities = [](int theCount) {
        std::string chain = "<!ENTITY e0 'x'>";
        for (int i = 1; i <= theCount; ++i) {
            chain += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i - 1) + ";'>";
        }
        return declaring(chain, "&e" + std::to_string(theCount) + ";");
    };
    const std::pair<std::string, const char*> rows[] = {
        {elements(1428), ""},
        {elements(1429), theOverflow},
        {elements(100000), theOverflow},
        {groups(3326), ""},
        {groups(3327), theOverflow},
        {groups(100000), theOverflow},
        {laterGroups(2494), ""},
        {laterGroups(2495), theOverflow},
        {entities(9988), ""},
        {entities(9989), theOverflow},
        {declaring("<!ELEMENT a (b" + repeated(",b@", 20000) + ")>"), ""},
        {declaring("<!ELEMENT a (#PCDATA" + repeated("|b@", 20000) + ")*>"), ""},
        {declaring("<!ATTLIST wml" + repeated(" a@ CDATA 'x'", 20000) + ">"), ""},
        {declaring("<!ATTLIST wml a (b" + repeated("|b@", 20000) + ") 'b'>"), ""},
        {"<wml" + repeated(" a@='x'", 20000) + "/>", ""},
        {"<wml>" + repeated("<p a@='x'>t</p>", 20000) + "</wml>", ""},
    };
    for (const auto& [source, text] : rows) {
        test::ExportResult result;
        onSmallStack([&result, &source = source] { result = test::callEncode(source); });
        EXPECT_EQ(result.text, text) << source.substr(0, 100) << source.size();
    }
}

// Nesting in the compiled form has no limit but the file's. A frame of 60 bytes a level would
// be more than the stack.
TEST(Dump, OfNestedElements) {
    const std::string head("\x01\x04\x6A\x02x\0", 6);
    const std::pair<std::string, bool> rows[] = {
        {head + std::string(20000, '\x60') + std::string(20000, '\x01'), true},
        {head + repeated(std::string_view("\x44\0", 2), 20000) + std::string(20000, '\x01'), true},
        // With an attribute each, whose value has a variable in it.
        {head + repeated(std::string_view("\xE0\x11\x80\0\x03v\0\x01", 8), 20000) +
             std::string(20000, '\x01'),
         true},
        {head + std::string(20000, '\x60'), false},
    };
    for (const auto& [file, isWhole] : rows) {
        onSmallStack([&file = file, isWhole = isWhole] {
            const DumpListing listing = readDump(file, DumpFormat::wbxml);
            EXPECT_EQ(!listing.fault.has_value(), isWhole)
                << (listing.fault ? listing.fault->message : "");
            EXPECT_GT(printDumpText(listing, file).size(), file.size());
            EXPECT_GT(printDumpJson(listing, file).size(), file.size());
            if (isWhole) {
                EXPECT_GT(printDumpXml(listing).size(), 20000u);
            }
        });
    }
}

}  // namespace
}  // namespace lumnis
