// The table of messages: each example gives its message and the repaired one passes, and no
// message of the sources is missing from the table.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "CliMessages.h"
#include "Files.h"

namespace lumnis {

namespace {

namespace fs = std::filesystem;

using test::contentOf;

// ---- Examples

class Workplace {
  public:
    Workplace() {
        fs::create_directory(folderM / "work");
        std::ofstream(folderM / "work/hello.wmls") << "extern function f() { return \"hello\"; }\n";
        std::ofstream(folderM / "work/news.wml") << "<wml><card><p>news</p></card></wml>\n";
    }

    // The exit status; what is printed stands in theOutput, both streams.
    int run(CliMessageOrigin theOrigin, std::string_view theExample, std::string& theOutput) const {
        std::string script;
        if (theExample.starts_with("$ ")) {
            std::istringstream lines{std::string(theExample)};
            for (std::string line; std::getline(lines, line);) {
                script += line.substr(2) + "\n";
            }
        } else {
            const bool isScript = theOrigin == CliMessageOrigin::script;
            std::ofstream(folderM / "work/example", std::ios::binary) << theExample << "\n";
            script = isScript ? "lumnis compile -o /dev/null example"
                     : theExample.find("//WAPFORUM//DTD") != std::string_view::npos
                         ? "lumnis encode -o /dev/null example"
                     : theExample.find("<!DOCTYPE") == std::string_view::npos
                         ? "lumnis check --nonvalidating example"
                         : "lumnis check example";
        }
        std::ofstream(folderM / "script") << script;
        const int status = std::system(
            ("cd '" + (folderM / "work").string() + "' && sh ../script >../out 2>&1 </dev/null")
                .c_str());
        theOutput = contentOf(folderM / "out");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

  private:
    const test::TemporaryFolder temporaryM;
    const fs::path& folderM = temporaryM.get();
};

// The messages among the lines of theOutput.
bool gives(const CliMessageRow& theRow, const std::string& theOutput) {
    std::istringstream lines(theOutput);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t mark = line.find("error: ");
        if (mark != std::string::npos &&
            matchesMessage(theRow, std::string_view(line).substr(mark + 7), true)) {
            return true;
        }
    }
    return false;
}

class MessageTest : public testing::TestWithParam<std::size_t> {};

TEST_P(MessageTest, exampleGivesItAndRepairedOnePasses) {
    const CliMessageRow& row = messageRows()[GetParam()];
    SCOPED_TRACE(row.text);
    EXPECT_FALSE(row.meaning.empty());
    EXPECT_FALSE(row.cause.empty());
    if (row.broken.empty()) {
        EXPECT_TRUE(row.repaired.empty());
        return;
    }
    std::string output;
    EXPECT_NE(Workplace().run(row.origin, row.broken, output), 0);
    EXPECT_TRUE(gives(row, output)) << output;
    EXPECT_EQ(Workplace().run(row.origin, row.repaired, output), 0) << output;
}

INSTANTIATE_TEST_SUITE_P(, MessageTest, testing::Range(std::size_t{0}, messageRows().size()));

// Of all that an author can cause there is an example; these need something else.
TEST(MessagesTest, mostHaveAnExample) {
    const auto hasNone = [](const CliMessageRow& theRow) { return theRow.broken.empty(); };
    for (const CliMessageRow& row : messageRows()) {
        if (hasNone(row) &&
            (row.origin == CliMessageOrigin::script || row.origin == CliMessageOrigin::xml)) {
            EXPECT_TRUE(row.cause.starts_with("Nothing an author writes")) << row.text;
        }
    }
    EXPECT_LE(std::count_if(messageRows().begin(), messageRows().end(), hasNone), 40);
}

TEST(MessagesTest, noTextStandsTwiceForOneOrigin) {
    std::set<std::pair<CliMessageOrigin, std::string_view>> texts;
    for (const CliMessageRow& row : messageRows()) {
        EXPECT_TRUE(texts.insert({row.origin, row.text}).second) << row.text;
    }
}

// ---- Completeness

// A string literal, pieces that follow each other joined, and the statement up to it.
struct Literal {
    std::string text;
    std::string statement;
    std::string place;
};

// Escapes of C++ that our messages have.
char unescaped(char theLetter) {
    return theLetter == 'n' ? '\n' : theLetter == 'r' ? '\r' : theLetter == 't' ? '\t' : theLetter;
}

std::vector<Literal> literalsOf(const fs::path& thePath) {
    const std::string source = contentOf(thePath);
    std::vector<Literal> result;
    std::string statement;
    int line = 1;
    bool isJoined = false;  // nothing but blanks since the last literal
    for (std::size_t i = 0; i < source.size(); ++i) {
        const char c = source[i];
        line += c == '\n';
        if (source.compare(i, 2, "//") == 0) {
            i = source.find('\n', i) - 1;
        } else if (source.compare(i, 2, "/*") == 0) {
            i = source.find("*/", i) + 1;
        } else if (source.compare(i, 8, "#include") == 0) {
            i = source.find('\n', i) - 1;
        } else if (c == '\'' &&
                   (i == 0 || !std::isalnum(static_cast<unsigned char>(source[i - 1])))) {
            i += source[i + 1] == '\\' ? 2U : 1U;
            i = source.find('\'', i + (source[i] == '\'' ? 1U : 0U));
        } else if (c == '"') {
            std::string text;
            for (++i; source[i] != '"'; ++i) {
                text += source[i] == '\\' ? unescaped(source[++i]) : source[i];
            }
            if (isJoined) {
                result.back().text += text;
            } else {
                result.push_back(
                    {text, statement, thePath.filename().string() + ":" + std::to_string(line)});
            }
            isJoined = true;
        } else {
            statement += c;
            isJoined = isJoined && std::isspace(static_cast<unsigned char>(c));
            if (c == ';' || c == '{' || c == '}') {
                statement.clear();
            }
        }
    }
    return result;
}

// Texts of the library that are no messages: what it writes when all is well, and what stands in
// front of messages.
const std::set<std::string> theOtherTexts = {
    "Compilation error: ",
    "Other error: ",
    "Not an error: ",
    "Unknown error code: ",
    "Error at line: ",
    "  (before or at line: ",
    ", or --input-charset",
    "Try \"lumnis --help\" or \"lumnis VERB --help\".",
    "\" Args=",
    "Version 1.1",
    "Dump using dump() routine of nodes",
    "[unknown doctype]",
};

bool isOneOf(const std::string& theStatement, const std::vector<std::string>& theWords) {
    return std::any_of(theWords.begin(), theWords.end(), [&](const std::string& theWord) {
        return theStatement.find(theWord) != std::string::npos;
    });
}

// Whether theText reads like a part of a message.
bool isProse(const std::string& theText) {
    const std::size_t blank = theText.find(' ');
    return blank != std::string::npos &&
           std::count_if(theText.begin(), theText.end(),
                         [](unsigned char theByte) { return std::islower(theByte) != 0; }) >= 3;
}

std::string trimmed(std::string theText) {
    theText.erase(theText.find_last_not_of("\n\r") + 1);
    theText.erase(0, std::min(theText.find_first_not_of("\n\r"), theText.size()));
    return theText;
}

// Behind a heading on a line of its own and in front of what printf fills in.
std::string coreOf(const std::string& theText) {
    const std::string text = trimmed(theText);
    const std::string core = text.substr(text.rfind('\n') + 1);
    return core.substr(0, core.find("%s"));
}

bool isListed(const std::string& theText) {
    const std::string text = coreOf(theText);
    if (text.starts_with("Internal error")) {
        return true;  // one row for all
    }
    return std::any_of(messageRows().begin(), messageRows().end(),
                       [&](const CliMessageRow& theRow) {
                           return theRow.text.find(text) != std::string_view::npos;
                       });
}

class Folder {
  public:
    std::string path;
    std::vector<std::string> asking;   // of statements with a message; empty for all
    std::vector<std::string> refused;  // of statements with other texts
};

TEST(MessagesTest, noneOfTheSourcesIsMissing) {
    // The text of a length_error stands behind "standard exception: ".
    const std::vector<std::string> log = {"FwTraceScope", "XaLog::trace",  "report(",
                                          "debug(",       "static_assert", "length_error"};
    const std::vector<std::string> listing = {"FwTraceScope", "XaLog::trace",  "report(",
                                              "debug(",       "static_assert", "writePragma",
                                              "theStream",    "getDumpText"};
    const std::vector<std::string> toolErrors = {
        "CliUsageError(", "CliFileError(", "CliTextFault{", "failure(",    "refusal(",
        "report(name",    "message",       "usageError(",   "text = rest", "failTooLarge"};
    const std::vector<Folder> folders = {
        {"wsc", {}, listing},
        {"xp", {}, log},
        {"xa", {}, log},
        {"wml/src", {}, log},
        {"entry", {}, listing},
        {"cc/src", {"errorMessageM", "fail(", "result ==", "theCreateFailure"}, {"debug("}},
        {"dump", {"fail(", "DumpFault{", "endsInside", "positionM"}, {"add(", "theStream"}},
        {"cli", toolErrors, {"add_option", "add_flag", "add_subcommand"}},
    };
    std::size_t count = 0;
    for (const Folder& folder : folders) {
        for (const fs::directory_entry& entry :
             fs::recursive_directory_iterator(fs::path(LUMNIS_TREE) / folder.path)) {
            const std::string extension = entry.path().extension().string();
            const bool isTable = entry.path().parent_path().filename() == "messages";
            if ((extension != ".cc" && extension != ".h") || isTable) {
                continue;
            }
            for (const Literal& literal : literalsOf(entry.path())) {
                const bool isMessage =
                    !literal.text.starts_with("CcCharsetConverter::") &&  // of the log
                    isProse(literal.text) && !theOtherTexts.count(trimmed(literal.text)) &&
                    (folder.asking.empty() || isOneOf(literal.statement, folder.asking) ||
                     (literal.place.starts_with("CliBatch.cc") &&
                      literal.statement.find("return") != std::string::npos)) &&
                    !isOneOf(literal.statement, folder.refused);
                if (isMessage) {
                    ++count;
                    EXPECT_TRUE(isListed(literal.text))
                        << literal.place << ": " << literal.text << "\n"
                        << literal.statement;
                }
            }
        }
    }
    EXPECT_GT(count, 150u) << "the sources are read no more";
}

// The rules of the scanners hold texts that are no C++.
TEST(MessagesTest, noneOfTheScannersIsMissing) {
    std::size_t count = 0;
    for (const char* const file : {"wsc/src/WscScanner.re", "wsc/src/WscGrammar.y",
                                   "xp/src/XpScanner.re", "xp/src/XpGrammar.y"}) {
        std::istringstream lines(contentOf(fs::path(LUMNIS_TREE) / file));
        for (std::string line; std::getline(lines, line);) {
            for (const char* const call :
                 {"fail(\"", "failAtText(\"", "LexerError(\"", "XpInternalError(\""}) {
                const std::size_t at = line.find(call);
                if (at == std::string::npos) {
                    continue;
                }
                std::string text;
                for (std::size_t i = at + std::string(call).size(); line[i] != '"'; ++i) {
                    text += line[i] == '\\' ? unescaped(line[++i]) : line[i];
                }
                ++count;
                EXPECT_TRUE(isListed(text)) << file << ": " << text;
            }
        }
    }
    EXPECT_GT(count, 30u);
}

TEST(MessagesTest, noneIsListedThatNoSourceGives) {
    const std::set<std::string> others = {
        "The following argument was not expected: ",  // of the library that reads the options
        " for document with public ID ",              // put together
    };
    std::string texts;
    for (const char* const folder :
         {"cps", "fw", "cc", "wsc", "xp", "xa", "wml", "dump", "entry", "cli"}) {
        for (const auto& entry : fs::recursive_directory_iterator(fs::path(LUMNIS_TREE) / folder)) {
            const std::string path = entry.path().string();
            if (path.find("/messages/") != std::string::npos) {
                continue;
            }
            if (path.ends_with(".cc") || path.ends_with(".h")) {
                for (const Literal& literal : literalsOf(entry.path())) {
                    texts += literal.text + '\0';
                }
            } else if (path.ends_with(".re") || path.ends_with(".y")) {
                std::string rules = contentOf(entry.path());
                std::erase(rules, '\\');  // in front of quotes
                texts += rules + '\0';
            }
        }
    }
    for (const CliMessageRow& row : messageRows()) {
        for (std::size_t at = 0; at != std::string::npos;) {
            const std::size_t end = row.text.find("{}", at);
            const std::string part(row.text.substr(at, end - at));
            at = end == std::string::npos ? end : end + 2;
            const bool isKnown = std::any_of(
                others.begin(), others.end(),
                [&](const auto& theOther) { return part.find(theOther) != std::string::npos; });
            if (part.size() > 2 && !isKnown) {
                EXPECT_NE(std::string::npos, texts.find(part)) << row.text << "\n" << part;
            }
        }
    }
}

// ---- Looking up

TEST(MessagesTest, aMessageIsFoundWithItsNamesFilledIn) {
    const struct {
        std::string text;
        std::string row;
    } cases[] = {
        {"Semantic Error: Variable \"x y\" not found", "Semantic Error: Variable \"{}\" not found"},
        {"a.wml:3: error: accesskey undefined", "{} undefined"},
        {"error in Vdata: no closing parenthesis in variable: n",
         "no closing parenthesis in variable: {}"},
        {"element tag mismatch: <p> ... </card>", "element tag mismatch: <{}> ... </{}>"},
        {"MULTIPLY DEFINED: ", "ID multiply defined: {}"},
    };
    for (const auto& each : cases) {
        const std::vector<const CliMessageRow*> found = findMessages(each.text);
        ASSERT_FALSE(found.empty()) << each.text;
        EXPECT_EQ(found.front()->text, each.row);
    }
    EXPECT_TRUE(findMessages("segmentation fault").empty());
    EXPECT_EQ(findMessages("parse error").size(), 2u);  // scripts and XML
}

TEST(MessagesTest, whatAMessageNamesIsMarkedWhereItStandsOnce) {
    const struct {
        std::string message;
        std::string line;
        std::string marked;
    } cases[] = {
        {"Semantic Error: Variable \"ab\" not found", "  abc = ab + cab;", "ab"},
        {"Semantic Error: Variable \"a\" not found", "a = a;", ""},
        {"element tag mismatch: <p> ... </card>", "<card><p></card>", "</card"},
        {"error in Vdata: no closing parenthesis in variable: n", "<a href=\"$(n\"/>", "n"},
        {"parse error", "return 1 +;", ""},
        {"missing ; following &y", "<a b=\"?x&y=1\"/>", "&y"},
        {"Error in lexical stage. Bad escape sequence: \\%", "\"50\\%\"", "\\%"},
    };
    for (const auto& each : cases) {
        const CliSpan place = markedPlace(each.message, each.line);
        EXPECT_EQ(each.line.substr(place.begin, place.length), each.marked) << each.message;
    }
}

}  // namespace

}  // namespace lumnis

int main(int theCount, char** theArguments) {
    const char* const path = std::getenv("PATH");
    setenv("PATH", (std::string(LUMNIS_PROGRAMS ":") + (path == nullptr ? "" : path)).c_str(), 1);
    setenv("LC_ALL", "C", 1);
    testing::InitGoogleTest(&theCount, theArguments);
    return RUN_ALL_TESTS();
}
