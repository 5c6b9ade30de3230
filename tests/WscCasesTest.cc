// Runs tests/cases/wsc: a script and what must come of it.
//
// Sections of a case:
//     -- options WORD...   facade, no-optimize, debug, charsets=N,N...: through the facade
//                          WscWmlScriptCompiler; without this section through WMLSCompile
//     -- error line N      the message; the frame that the export puts around it is added here
//     -- bytes             the whole byte-code file
//     -- code [N]          the code of function N (0 if left out); any number of such sections
//     -- constants         the constant pool, a line each as in ByteCodeReader.h
//     -- pool              the pragma pool likewise
//     -- functions         a line each: args A locals L, and for an exported one extern "NAME"
//     -- listing           the assembly listing; a line's CR LF and the blank in front of it, which
//                          every line of an instruction must have, are left out
//     -- tree              the dump of the syntax tree without its two head lines
//     -- pragmas           lines name "PROPERTY" "CONTENT" "SCHEME", then http ... likewise
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <set>
#include <sstream>

#include "ByteCodeReader.h"
#include "CaseFile.h"
#include "WscWmlScriptCompiler.h"
#include "lumnisutil.h"

namespace lumnis {

namespace {

using test::Case;
using test::CaseSection;

struct Outcome {
    bool isCompiled = false;
    std::string text;  // byte code, or the text of the export for an error
    std::string listing;
    std::string tree;
    std::string console;
    std::vector<std::string> pragmas;
};

std::string bytes(const CpsString& theString) {
    return std::string(theString.view());
}

Outcome compileByExport(const std::string& theSource) {
    char* result = nullptr;
    char* error = nullptr;
    unsigned short length = 0;
    const int code =
        WMLSCompile(theSource.data(), static_cast<int>(theSource.size()), &result, &length, &error);
    const std::unique_ptr<char, void (*)(void*)> freeResult(result, std::free);
    const std::unique_ptr<char, void (*)(void*)> freeError(error, std::free);
    EXPECT_EQ(code, error == nullptr ? 0 : 1);
    EXPECT_EQ(result == nullptr, error != nullptr);
    Outcome outcome;
    outcome.isCompiled = code == 0;
    if (outcome.isCompiled) {
        outcome.text.assign(result, length);
    } else if (error != nullptr) {
        outcome.text = error;
    }
    return outcome;
}

void setOption(WscWmlScriptCompiler& theCompiler, const std::string& theWord) {
    if (theWord == "no-optimize") {
        theCompiler.setOptimizeMode(false);
    } else if (theWord == "debug") {
        theCompiler.setDebugMode(true);
    } else if (theWord.rfind("charsets=", 0) == 0) {
        std::istringstream numbers(theWord.substr(9));
        std::string number;
        while (std::getline(numbers, number, ',')) {
            EXPECT_EQ(
                theCompiler.setAcceptCharacterSet(static_cast<unsigned int>(std::stoul(number))),
                1);
        }
    } else if (theWord != "facade") {
        ADD_FAILURE() << "unknown option " << theWord;
    }
}

Outcome compileByFacade(const std::string& theSource, const std::string& theOptions) {
    std::ostringstream listing;
    std::ostringstream tree;
    std::ostringstream console;
    WscWmlScriptCompiler compiler;
    compiler.setAssemblyStream(&listing);
    compiler.setParseTreeStream(&tree);
    compiler.setConsoleStream(console);
    std::istringstream words(theOptions);
    for (std::string word; words >> word;) {
        setOption(compiler, word);
    }
    const CpsString source(theSource);
    Outcome outcome;
    outcome.isCompiled = compiler.compile(&source) == 1;
    EXPECT_EQ(compiler.getNumErrors(), outcome.isCompiled ? 0u : 1u);
    if (outcome.isCompiled) {
        outcome.text = bytes(*compiler.getByteCode());
        EXPECT_EQ(compiler.getByteCodeSize(), outcome.text.size());
    } else {
        CpsString message;
        compiler.getErrorMessage(0, message);
        EXPECT_EQ(compiler.getErrorCode(0), 0);
        outcome.text = "\nCompilation error: \n" + bytes(message) + "\n";
    }
    outcome.listing = listing.str();
    outcome.tree = tree.str();
    outcome.console = console.str();
    for (unsigned int i = 0; i < compiler.getNumMetaName(); ++i) {
        outcome.pragmas.push_back("name \"" + bytes(compiler.getMetaNameProperty(i)) + "\" \"" +
                                  bytes(compiler.getMetaNameContent(i)) + "\" \"" +
                                  bytes(compiler.getMetaNameScheme(i)) + "\"");
    }
    for (unsigned int i = 0; i < compiler.getNumMetaHttp(); ++i) {
        outcome.pragmas.push_back("http \"" + bytes(compiler.getMetaHttpProperty(i)) + "\" \"" +
                                  bytes(compiler.getMetaHttpContent(i)) + "\" \"" +
                                  bytes(compiler.getMetaHttpScheme(i)) + "\"");
    }
    return outcome;
}

void expectBytes(const std::string& theActual, const std::string& theExpected,
                 const std::string& theWhat) {
    EXPECT_TRUE(theActual == theExpected)
        << theWhat << "\nexpected:\n"
        << test::hexDump(theExpected.substr(0, 4096)) << "\nfound:\n"
        << test::hexDump(theActual.substr(0, 4096));
}

std::string joined(const std::vector<std::string>& theLines) {
    std::string result;
    for (const std::string& line : theLines) {
        result += line + "\n";
    }
    return result;
}

std::vector<std::string> lines(const std::string& theText, const std::string& theEnd) {
    std::vector<std::string> result;
    std::size_t at = 0;
    while (at < theText.size()) {
        const std::size_t end = theText.find(theEnd, at);
        if (end == std::string::npos) {
            ADD_FAILURE() << "last line without its end";
            break;
        }
        result.push_back(theText.substr(at, end - at));
        at = end + theEnd.size();
    }
    return result;
}

// Without the line ends, the blank in front of them and empty lines at the end.
std::vector<std::string> plainListing(const std::string& theListing) {
    std::vector<std::string> result = lines(theListing, "\r\n");
    for (std::string& line : result) {
        if (line.empty() || line.rfind("FUNCTION ", 0) == 0 || line[0] == '=') {
            continue;
        }
        EXPECT_EQ(line.back(), ' ') << line;
        line.pop_back();
    }
    while (!result.empty() && result.back().empty()) {
        result.pop_back();
    }
    return result;
}

std::vector<std::string> functionLines(const test::ByteCodeFile& theFile) {
    std::vector<std::string> result;
    for (const test::ByteCodeFunction& function : theFile.functions) {
        result.push_back("args " + std::to_string(function.arguments) + " locals " +
                         std::to_string(function.locals) +
                         (function.hasName ? " extern \"" + function.name + "\"" : ""));
    }
    return result;
}

void checkError(const Outcome& theOutcome, const CaseSection& theSection) {
    ASSERT_EQ(theSection.arguments.rfind("line ", 0), 0u) << "the line of the error is missing";
    EXPECT_FALSE(theOutcome.isCompiled);
    expectBytes(theOutcome.text,
                "\nCompilation error: \nError at line: " + theSection.arguments.substr(5) +
                    ". \r\n" + test::parseEscaped(theSection.lines) + "\n",
                theOutcome.text);
}

void checkResult(const Outcome& theOutcome, const CaseSection& theSection) {
    ASSERT_TRUE(theOutcome.isCompiled) << theOutcome.text;
    const std::string& name = theSection.name;
    const test::ByteCodeFile file = test::readByteCode(theOutcome.text);
    if (name == "bytes") {
        expectBytes(theOutcome.text, test::parseBytes(theSection.lines), "file");
    } else if (name == "code") {
        const std::size_t number =
            theSection.arguments.empty() ? 0 : std::stoul(theSection.arguments);
        ASSERT_LT(number, file.functions.size());
        expectBytes(file.functions[number].code, test::parseBytes(theSection.lines),
                    "code of function " + std::to_string(number));
    } else if (name == "constants") {
        EXPECT_EQ(joined(file.constants), joined(theSection.lines));
    } else if (name == "pool") {
        EXPECT_EQ(joined(file.pragmas), joined(theSection.lines));
    } else if (name == "functions") {
        EXPECT_EQ(joined(functionLines(file)), joined(theSection.lines));
    } else if (name == "listing") {
        EXPECT_EQ(joined(plainListing(theOutcome.listing)), joined(theSection.lines));
    } else if (name == "tree") {
        const std::string head =
            "Dump using dump() routine of nodes\n----------------------------------\n";
        EXPECT_EQ(theOutcome.tree, head + theOutcome.console);
        EXPECT_EQ(theOutcome.console, joined(theSection.lines));
    } else if (name == "pragmas") {
        EXPECT_EQ(joined(theOutcome.pragmas), joined(theSection.lines));
    } else {
        FAIL() << "unknown section " << name;
    }
}

class WscCases : public testing::TestWithParam<Case> {};

TEST_P(WscCases, GivesWhatTheCaseSays) {
    const Case& testCase = GetParam();
    SCOPED_TRACE(testCase.file + ".txt:" + std::to_string(testCase.line));
    static const std::set<std::string> theFacadeSections = {"listing", "tree", "pragmas"};
    const CaseSection* options = testCase.section("options");
    const Outcome outcome = options != nullptr
                                ? compileByFacade(testCase.source, options->arguments)
                                : compileByExport(testCase.source);
    const Outcome report =
        options != nullptr ? outcome : compileByFacade(testCase.source, "facade");
    int checks = 0;
    for (const CaseSection& section : testCase.sections) {
        if (section.name == "options") {
            continue;
        }
        ++checks;
        if (section.name == "error") {
            checkError(outcome, section);
        } else {
            checkResult(theFacadeSections.count(section.name) != 0 ? report : outcome, section);
        }
    }
    EXPECT_NE(checks, 0) << "the case expects nothing";
    expectBytes(report.text, outcome.text, "facade and export differ");
}

// The beginning of each text that a script can cause.
const char* const theMessages[] = {
    "Error in lexical stage. The word ",
    "Error in lexical stage. Unknown character: ",
    "Error in lexical stage. Unterminated string literal: ",
    "Error in lexical stage. Bad octal escape sequence: ",
    "Error in lexical stage. Bad escape sequence: ",
    "parse error",
    "parser stack overflow",
    "Semantic error: Number of constants too many",
    "Semantic error: URL identifier \"",
    "Semantic Error: Domain \"",
    "Semantic error: path \"",
    "Semantic Error: Domain or path\"",
    "Semantic error: External function name \"",
    "Semantic error: Number of formal parameters in function \"",
    "Semantic error: Function \"",
    "Semantic Error: Number of functions too many",
    "Semantic Error: Function parameter \"",
    "Semantic Error: Number of variables in function \"",
    "SemanticError: Number of variables & formal parameters in function \"",
    "Semantic Error: Unable to generate code for function \"",
    "Semantic Error: Variable \"",
    "Semantic Error: Continue without for or while",
    "Semantic Error: Break without for or while",
    "Semantic Error: Function \"",
    "Semantic Error: Wrong number of arguments in call of function \"",
    "URL reference \"",
    "Semantic Error: Library or function not found",
    "Semantic Error: Too many arguments in call of function \"",
};

TEST(WscMessages, EachHasACaseAndNoCaseHasAnother) {
    std::set<std::string> reached;
    for (const Case& testCase : test::readCases("wsc")) {
        if (const CaseSection* error = testCase.section("error")) {
            const std::string text = test::parseEscaped(error->lines);
            const auto found = std::find_if(
                std::begin(theMessages), std::end(theMessages),
                [&](const char* theMessage) { return text.rfind(theMessage, 0) == 0; });
            if (found == std::end(theMessages)) {
                ADD_FAILURE() << text;
            } else {
                reached.insert(*found);
            }
        }
    }
    for (const char* message : theMessages) {
        EXPECT_EQ(reached.count(message), 1u) << message;
    }
}

INSTANTIATE_TEST_SUITE_P(All, WscCases, testing::ValuesIn(test::readCases("wsc")),
                         [](const testing::TestParamInfo<Case>& theInfo) {
                             return test::parameterName(theInfo.param);
                         });

}  // namespace
}  // namespace lumnis
