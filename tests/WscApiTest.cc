// The two ways to compile a script, WMLSCompile and WscWmlScriptCompiler: what they promise apart
// from the byte code, and the words that the scanner knows.
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>

#include "ByteCodeReader.h"
#include "WmlsCompileDriver.h"
#include "WscWmlScriptCompiler.h"
#include "lumnisutil.h"

namespace lumnis {
namespace {

// One call of the export, with marks in the out-parameters that show what was written.
class Call {
  public:
    explicit Call(const std::string& theSource)
        : Call(theSource.data(), static_cast<int>(theSource.size())) {}
    Call(const char* theSource, int theLength)
        : codeM(WMLSCompile(theSource, theLength, &resultM, &lengthM, &errorM)) {}
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    ~Call() {
        if (resultM != &markM) {
            std::free(resultM);
        }
        if (errorM != &markM) {
            std::free(errorM);
        }
    }

    int code() const { return codeM; }
    bool hasResult() const { return resultM != &markM; }
    bool hasLength() const { return lengthM != theLengthMark; }
    bool hasError() const { return errorM != &markM; }
    unsigned short length() const { return lengthM; }
    std::string result() const { return {resultM, lengthM}; }
    std::string error() const { return hasError() && errorM != nullptr ? errorM : "no text"; }

  private:
    static constexpr unsigned short theLengthMark = 4711;
    char markM = 'x';
    char* resultM = &markM;
    char* errorM = &markM;
    unsigned short lengthM = theLengthMark;
    int codeM;
};

std::string framed(int theLine, const std::string& theMessage) {
    return "\nCompilation error: \nError at line: " + std::to_string(theLine) + ". \r\n" +
           theMessage + "\n";
}

std::string repeated(const std::string& theText, int theCount) {
    std::string result;
    for (int i = 0; i < theCount; ++i) {
        result += theText;
    }
    return result;
}

std::string bytes(const CpsString& theString) {
    return std::string(theString.view());
}

TEST(WMLSCompile, SuccessLeavesTheErrorTextAsItWas) {
    const Call call("extern function f() {}");
    EXPECT_EQ(call.code(), 0);
    EXPECT_EQ(call.result(), std::string("\x01\x0B\0\x6A\0\x01\x01\0\x01\x66\0\0\0", 13));
    EXPECT_FALSE(call.hasError());
}

TEST(WMLSCompile, RefusalLeavesTheResultAsItWas) {
    const Call call("function f() {\n\n 1 = ; }");
    EXPECT_EQ(call.code(), 1);
    EXPECT_EQ(call.error(), "\nCompilation error: \nError at line: 3. \r\nparse error\n");
    EXPECT_FALSE(call.hasResult());
    EXPECT_FALSE(call.hasLength());
}

TEST(WMLSCompile, LengthAloneSaysWhereTheSourceEnds) {
    EXPECT_EQ(Call("function f() {} @", 15).code(), 0);
    EXPECT_EQ(Call("", 0).error(), framed(1, "parse error"));
    EXPECT_EQ(Call(nullptr, 0).error(), framed(1, "parse error"));
    const std::string text("function f() { return '\\0'; } /* \0 */", 37);
    EXPECT_EQ(Call(text).code(), 0);
}

TEST(WMLSCompile, NegativeLengthIsRefused) {
    for (const int length : {-1, -2147483647 - 1}) {
        const Call call("function f() {}", length);
        EXPECT_EQ(call.code(), 1);
        EXPECT_EQ(call.error(), "\nOther error: \nThere is no source.\n");
        EXPECT_FALSE(call.hasResult());
        EXPECT_FALSE(call.hasLength());
    }
}

TEST(WMLSCompile, NulOutsideOfTextsIsUnknown) {
    const std::string message = framed(2, "Error in lexical stage. Unknown character: ");
    const std::string text("function f() {\n\0}", 17);
    // The character itself ends the text for those who look for a terminator.
    EXPECT_EQ(Call(text).error().substr(0, message.size() - 1),
              message.substr(0, message.size() - 1));
    const std::string escape = framed(1, "Error in lexical stage. Bad escape sequence: \\");
    const std::string second("function f() { '\\\0'; }", 22);
    EXPECT_EQ(Call(second).error().substr(0, escape.size() - 1),
              escape.substr(0, escape.size() - 1));
}

TEST(WMLSCompile, ResultHas65534BytesAtMost) {
    // 1 + 3 bytes of head, 8 of pools and name, 5 in front of the code; f(); is two bytes of code
    // and ~0; three.
    const std::string head = "extern function f() { ";
    const Call largest(head + repeated("f();", 32757) + "~0; }");
    EXPECT_EQ(largest.code(), 0);
    EXPECT_EQ(largest.length(), 65534);
    if (largest.code() == 0) {
        EXPECT_EQ(test::readByteCode(largest.result()).functions.at(0).code.size(), 65517u);
    }

    const Call tooLarge(head + repeated("f();", 32759) + "}");
    EXPECT_EQ(tooLarge.code(), 1);
    EXPECT_TRUE(tooLarge.hasResult());
    EXPECT_FALSE(tooLarge.hasLength());
    EXPECT_FALSE(tooLarge.hasError());
}

TEST(WMLSCompile, RefusesCallsWithoutPlaceForTheResult) {
    char* result = nullptr;
    unsigned short length = 0;
    EXPECT_EQ(WMLSCompile("function f() {}", 15, nullptr, &length, nullptr), 1);
    EXPECT_EQ(WMLSCompile("function f() {}", 15, &result, nullptr, nullptr), 1);
    EXPECT_EQ(WMLSCompile("function", 8, &result, &length, nullptr), 1);
    EXPECT_EQ(result, nullptr);
}

// What no export turns on.
TEST(WmlsCompileDriver, ConvertsItsSourceAndReportsItsPragmas) {
    const std::string source =
        "use meta http equiv \"\xE9\" \"c\" \"s\"; use meta name \"n\" \"d\";"
        "extern function f() { return \"\xE9\"; }";
    WmlsCompileDriver driver;
    driver.setInputCharset(4);
    driver.setPrintPragmas(1);
    char* result = nullptr;
    std::uint32_t length = 0;
    testing::internal::CaptureStdout();
    const bool isDone =
        driver.run(source.data(), static_cast<int>(source.size()), &result, length, nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "<PRAGMA> MetaHTTP: \"\xC3\xA9\" \"c\" \"s\"\n<PRAGMA> MetaName: \"n\" \"d\"\n\n");
    ASSERT_TRUE(isDone);
    const std::unique_ptr<char, void (*)(void*)> freeResult(result, std::free);
    EXPECT_NE(std::string(result, length).find("\xC3\xA9"), std::string::npos);
}

TEST(WmlsCompileDriver, PrintsWhyASourceIsNotConverted) {
    WmlsCompileDriver driver;
    driver.setInputCharset(1015);
    char mark = 'x';
    char* result = &mark;
    char* error = &mark;
    std::uint32_t length = 0;
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_FALSE(driver.run("ab", 2, &result, length, &error));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Charset conversion from utf-16 is not supported.\n\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Charset conversion failed.\n");
    EXPECT_EQ(result, &mark);
    EXPECT_EQ(error, &mark);
}

TEST(WscLexer, ReservedWordsAreRefusedAndKeywordsAreNoNames) {
    for (const char* word :
         {"delete", "in",     "lib",    "new",     "null",    "this",     "void",
          "with",   "case",   "catch",  "class",   "const",   "debugger", "default",
          "do",     "enum",   "export", "extends", "finally", "import",   "private",
          "sizeof", "struct", "super",  "switch",  "throw",   "try",      "public"}) {
        EXPECT_EQ(Call(std::string("function f() { var ") + word + "; }").error(),
                  framed(1, std::string("Error in lexical stage. The word ") + word +
                                " is reserved by or not used in WML-script."));
    }
    for (const char* word :
         {"access", "agent",  "break", "continue", "div",    "div=", "domain", "else",
          "equiv",  "extern", "for",   "function", "header", "http", "if",     "isvalid",
          "meta",   "name",   "path",  "return",   "typeof", "url",  "use",    "user",
          "var",    "while",  "true",  "false",    "invalid"}) {
        EXPECT_EQ(Call(std::string("function f() {\nvar ") + word + "; }").error(),
                  framed(2, "parse error"))
            << word;
    }
    for (const char* word : {"Delete", "public_", "classes", "URL", "_use", "div1", "trueX"}) {
        EXPECT_EQ(Call(std::string("function f() { var ") + word + "; }").code(), 0) << word;
    }
}

TEST(WscLexer, OtherCharactersAreUnknown) {
    const std::string known =
        "\t\n\v\f\r \"'/;,:={}().&!~-+*%<>^|#?_"
        "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    for (int i = 1; i < 256; ++i) {
        const std::string character(1, static_cast<char>(i));
        if (known.find(character) == std::string::npos) {
            EXPECT_EQ(Call("function f() {} " + character).error(),
                      framed(1, "Error in lexical stage. Unknown character: " + character));
        }
    }
}

class Compiler : public testing::Test {
  protected:
    Compiler() { compilerM.setConsoleStream(consoleM); }

    // The source lives as long as its results are read.
    int compile(const std::string& theSource) {
        sourceM = std::make_unique<CpsString>(theSource);
        return compilerM.compile(sourceM.get());
    }
    std::string message(unsigned int theIndex) const {
        CpsString text("old");
        compilerM.getErrorMessage(theIndex, text);
        return bytes(text);
    }

    std::ostringstream consoleM;
    std::unique_ptr<CpsString> sourceM;
    WscWmlScriptCompiler compilerM;
};

TEST_F(Compiler, GettersBeforeTheFirstRun) {
    EXPECT_EQ(compilerM.getByteCodeSize(), 0u);
    ASSERT_NE(compilerM.getByteCode(), nullptr);
    EXPECT_TRUE(compilerM.getByteCode()->empty());
    EXPECT_EQ(compilerM.getNumMetaName(), 0u);
    EXPECT_EQ(compilerM.getNumMetaHttp(), 0u);
    EXPECT_EQ(compilerM.getNumErrors(), 0u);
    EXPECT_EQ(compilerM.getErrorCode(0), 2);
    EXPECT_EQ(message(0), "");
    EXPECT_EQ(bytes(compilerM.getMetaNameProperty(0)), "");
    EXPECT_EQ(bytes(compilerM.getMetaHttpScheme(7)), "");
    EXPECT_EQ(compilerM.compile(nullptr), 2);
    EXPECT_EQ(compilerM.getNumErrors(), 0u);
    CpsString version("old");
    compilerM.getCompilerVersion(version);
    EXPECT_EQ(bytes(version), "Version 1.1");
    EXPECT_EQ(compilerM.setAcceptCharacterSet(106), 1);
}

TEST_F(Compiler, IndexOutOfRangeGivesNothing) {
    ASSERT_EQ(compile("use meta name \"a\" \"b\" \"c\"; use meta http equiv \"d\" \"e\" \"f\"; "
                      "function f() {}"),
              1);
    EXPECT_EQ(compilerM.getNumMetaName(), 1u);
    for (const unsigned int index : {1u, 2u, 4294967295u}) {
        EXPECT_EQ(bytes(compilerM.getMetaNameProperty(index)), "");
        EXPECT_EQ(bytes(compilerM.getMetaNameContent(index)), "");
        EXPECT_EQ(bytes(compilerM.getMetaNameScheme(index)), "");
        EXPECT_EQ(bytes(compilerM.getMetaHttpProperty(index)), "");
        EXPECT_EQ(bytes(compilerM.getMetaHttpContent(index)), "");
        EXPECT_EQ(bytes(compilerM.getMetaHttpScheme(index)), "");
        EXPECT_EQ(compilerM.getErrorCode(index), 2);
        EXPECT_EQ(message(index), "");
    }
    EXPECT_EQ(compilerM.getErrorCode(0), 2);
    EXPECT_EQ(bytes(compilerM.getMetaNameScheme(0)), "c");
    EXPECT_EQ(bytes(compilerM.getMetaHttpContent(0)), "e");
}

TEST_F(Compiler, EachRunStartsAfresh) {
    ASSERT_EQ(compile("use meta name \"a\" \"b\"; use url u \"x\"; use access domain \"d\"; "
                      "function f() { for (;;) { 5; } }"),
              1);
    // The labels, pools and names of the run before would show here.
    ASSERT_EQ(compile("use access domain \"d\"; function f(a) { var b; if (a) return 7; }"), 1);
    EXPECT_EQ(compilerM.getNumMetaName(), 0u);
    const Call other("use access domain \"d\"; function f(a) { var b; if (a) return 7; }");
    EXPECT_EQ(bytes(*compilerM.getByteCode()), other.result());
    EXPECT_EQ(compilerM.getByteCodeSize(), other.length());

    EXPECT_EQ(compile("function f() { x; }"), 2);
    EXPECT_EQ(compilerM.getByteCodeSize(), 0u);
    EXPECT_TRUE(compilerM.getByteCode()->empty());
    EXPECT_EQ(compilerM.getNumErrors(), 1u);
    EXPECT_EQ(compilerM.getErrorCode(0), 0);
    EXPECT_EQ(message(0), "Error at line: 1. \r\nSemantic Error: Variable \"x\" not found");

    EXPECT_EQ(compile("\n\nfunction f() { for (;;) { break"), 2);
    EXPECT_EQ(compilerM.getNumErrors(), 1u);
    EXPECT_EQ(message(0), "Error at line: 3. \r\nparse error");
    // The loop that the refused run left open is not open any more.
    EXPECT_EQ(compile("function f() { break; }"), 2);
    EXPECT_EQ(message(0), "Error at line: 1. \r\nSemantic Error: Break without for or while");

    EXPECT_EQ(compile("function f() { 5; }"), 1);
    EXPECT_EQ(compilerM.getNumErrors(), 0u);
    EXPECT_EQ(consoleM.str(), "") << "nothing was to be printed";
}

TEST_F(Compiler, NullSourceKeepsTheResults) {
    ASSERT_EQ(compile("function f() { return 1; }"), 1);
    const std::string before = bytes(*compilerM.getByteCode());
    EXPECT_EQ(compilerM.compile(nullptr), 2);
    EXPECT_EQ(bytes(*compilerM.getByteCode()), before);
    EXPECT_EQ(compilerM.getNumErrors(), 0u);
    ASSERT_EQ(compile("1"), 2);
    EXPECT_EQ(compilerM.compile(nullptr), 2);
    EXPECT_EQ(message(0), "Error at line: 1. \r\nparse error");
}

TEST_F(Compiler, OptionsStayUntilTheyAreSet) {
    const std::string source = "function f(a) { a = a; }";
    const auto code = [&] {
        EXPECT_EQ(compile(source), 1);
        return test::readByteCode(*compilerM.getByteCode()).functions.at(0).code;
    };
    compilerM.setOptimizeMode(false);
    compilerM.setDebugMode(true);
    EXPECT_EQ(code(), "\x3C\xE0\x40\xE0\x37");
    EXPECT_EQ(code(), "\x3C\xE0\x40\xE0\x37");
    compilerM.setDebugMode(false);
    EXPECT_EQ(code(), "\xE0\x40\xE0\x37");
    compilerM.setOptimizeMode(true);
    EXPECT_EQ(code(), "");
}

TEST_F(Compiler, ListingAndTreeByteForByte) {
    std::ostringstream listing;
    std::ostringstream tree;
    compilerM.setAssemblyStream(&listing);
    compilerM.setParseTreeStream(&tree);
    ASSERT_EQ(compile("function f(a) { if (a) return 1; }"), 1);
    EXPECT_EQ(listing.str(),
              "FUNCTION \"f\" Args=1\r\n===========================\r\nLOAD_VAR_S 0 \r\n"
              "TJUMP_FW_S $LABEL0 2 1 \r\nCONST_1 \r\nRETURN \r\nPSEUDO_LABEL $LABEL0 4 \r\n"
              "RETURN_ES \r\n\r\n\r\n");
    const std::string nodes =
        "CompilationUnit\n Pragmas\n FunctionDeclarations\n"
        "  FunctionDeclaration\n   Empty\n   Identifier IDENTIFIER:f\n"
        "   FormalParameterList\n    Identifier IDENTIFIER:a\n   Block\n"
        "    StatementList\n     Statement\n      IfStatement\n"
        "       Identifier IDENTIFIER:a\n       Statement\n"
        "        ReturnStatement\n         Literal INTEGER:1\n"
        "       Empty\n";
    EXPECT_EQ(tree.str(),
              "Dump using dump() routine of nodes\n"
              "----------------------------------\n" +
                  nodes);
    EXPECT_EQ(consoleM.str(), nodes);

    // A refused script has no tree; the functions in front of the fault have their listing.
    listing.str("");
    tree.str("");
    consoleM.str("");
    EXPECT_EQ(compile("function f() {} function g() { x; }"), 2);
    EXPECT_EQ(listing.str(), "FUNCTION \"f\" Args=0\r\n===========================\r\n\r\n\r\n");
    EXPECT_EQ(tree.str() + consoleM.str(), "");

    compilerM.setAssemblyStream(nullptr);
    compilerM.setParseTreeStream(nullptr);
    listing.str("");
    EXPECT_EQ(compile("function f() {}"), 1);
    EXPECT_EQ(listing.str() + tree.str() + consoleM.str(), "");
}

TEST_F(Compiler, NulInTextsIsContent) {
    std::ostringstream tree;
    compilerM.setParseTreeStream(&tree);
    ASSERT_EQ(compile("use meta name \"a\\0b\" \"\\000\"; function f() { \"x\\0y\"; }"), 1);
    EXPECT_EQ(bytes(compilerM.getMetaNameProperty(0)), std::string("a\0b", 3));
    EXPECT_EQ(bytes(compilerM.getMetaNameContent(0)), std::string("\0", 1));
    EXPECT_NE(tree.str().find(std::string("STRING:x\0y\n", 11)), std::string::npos);
}

}  // namespace
}  // namespace lumnis
