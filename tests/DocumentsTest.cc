// The README and the pages of docs: what they show is run, and what they say comes out is compared.
//
// The blocks of a page work in one folder of its own, from the top of the page down. The word
// behind the fence says what a block is:
//
//     console      "$ COMMAND" and below it all that the command prints. A line "..." stands for
//                  any number of lines. A command goes on behind a "\" at its end. "cc" finds
//                  header and library; "lumnis" is the program, $TREE the source tree.
//     xml js c ... a file. Its name is the last one in backticks in the line above the block.
//     diff         a change that still applies to the tree
//     sh           commands for the tree, which would build it within its own test: their programs
//                  and presets must be there
//     text         a drawing
//
// A block of another kind is a fault of the page, and so is one that is only indented.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "Files.h"

namespace lumnis {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

// Their blocks have tests of their own, by other rules.
constexpr std::string_view theOtherPages[] = {
    "docs/logging.md",   // test application_log and tests/cases/cli/examples.txt
    "docs/messages.md",  // test messages
};

constexpr std::string_view theFileKinds[] = {"c",  "cmake", "cpp", "ini",      "js",
                                             "sh", "json",  "xml", "makefile", "ninja"};

struct Block {
    std::string kind;
    std::string above;  // the last line of text in front of the block
    Lines lines;
    std::size_t line;  // of its fence, from 1
};

using test::contentOf;
using test::linesOf;

std::string joined(const Lines& theLines) {
    std::string text;
    for (const std::string& line : theLines) {
        text += line + '\n';
    }
    return text;
}

std::vector<Block> blocksOf(const fs::path& thePage) {
    std::vector<Block> blocks;
    bool isInBlock = false;
    std::string above;
    std::string before;
    std::size_t number = 0;
    std::size_t indent = 0;  // of the fence, in a list
    for (const std::string& line : linesOf(contentOf(thePage))) {
        ++number;
        const std::size_t start = std::min(line.find_first_not_of(' '), line.size());
        if (std::string_view(line).substr(start).starts_with("```")) {
            isInBlock = !isInBlock;
            if (isInBlock) {
                indent = start;
                blocks.push_back({line.substr(start + 3), above, {}, number});
            }
            above.clear();
        } else if (isInBlock) {
            blocks.back().lines.push_back(line.substr(std::min(indent, line.size())));
        } else {
            if (line.starts_with("    ") && before.empty()) {
                blocks.push_back({"(indented)", "", {}, number});
            }
            if (!line.empty()) {
                above = line;
            }
        }
        before = line;
    }
    return blocks;
}

// Trailing blanks cannot be seen on a page, and the listing ends its lines with them.
Lines trimmed(Lines theLines) {
    for (std::string& line : theLines) {
        line.erase(line.find_last_not_of(" \r") + 1);
    }
    while (!theLines.empty() && theLines.back().empty()) {
        theLines.pop_back();
    }
    return theLines;
}

// "..." stands for any number of lines, as few as will do.
bool isShown(const Lines& theExpected, const Lines& theActual) {
    std::size_t at = 0;
    bool isOpen = false;
    for (const std::string& line : theExpected) {
        if (line == "...") {
            isOpen = true;
            continue;
        }
        while (isOpen && at < theActual.size() && theActual[at] != line) {
            ++at;
        }
        if (at == theActual.size() || theActual[at] != line) {
            return false;
        }
        ++at;
        isOpen = false;
    }
    return isOpen || at == theActual.size();
}

class Page : public testing::TestWithParam<std::string> {
  protected:
    void SetUp() override { fs::create_directory(folderM / "work"); }

    Lines run(const std::string& theCommand) const {
        std::ofstream(folderM / "command", std::ios::binary) << theCommand << '\n';
        const std::string whole =
            "cd '" + (folderM / "work").string() + "' && sh ../command </dev/null >../out 2>&1";
        // The page shows its exit status where that matters.
        static_cast<void>(std::system(whole.c_str()));
        return linesOf(contentOf(folderM / "out"));
    }

    void runConsole(const Block& theBlock) const {
        for (std::size_t i = 0; i < theBlock.lines.size();) {
            ASSERT_TRUE(theBlock.lines[i].starts_with("$ ")) << theBlock.lines[i];
            std::string command = theBlock.lines[i++].substr(2);
            while (command.ends_with('\\') && i < theBlock.lines.size()) {
                command += '\n' + theBlock.lines[i++];
            }
            Lines expected;
            while (i < theBlock.lines.size() && !theBlock.lines[i].starts_with("$ ")) {
                expected.push_back(theBlock.lines[i++]);
            }
            const Lines actual = trimmed(run(command));
            EXPECT_TRUE(isShown(trimmed(expected), actual)) << "$ " << command << '\n'
                                                            << joined(actual);
        }
    }

    void writeFile(const Block& theBlock) const {
        const std::regex name("`([A-Za-z0-9_.-]+\\.[a-z]+|Makefile)`");
        std::string found;
        for (std::sregex_iterator at(theBlock.above.begin(), theBlock.above.end(), name), end;
             at != end; ++at) {
            found = (*at)[1];
        }
        ASSERT_FALSE(found.empty()) << "the line above names no file: " << theBlock.above;
        std::ofstream(folderM / "work" / found, std::ios::binary) << joined(theBlock.lines);
    }

    void checkChange(const Block& theBlock) const {
        std::ofstream(folderM / "change", std::ios::binary) << joined(theBlock.lines);
        const Lines said = run("git -C \"$TREE\" apply --check - <../change && echo good");
        EXPECT_EQ(joined(said), "good\n") << "where the tree has moved on, renew the diff";
    }

    void checkCommands(const Block& theBlock) const {
        const std::string presets = contentOf(LUMNIS_TREE "/CMakePresets.json");
        const std::regex preset("--preset[ =]([a-z]+)");
        for (const std::string& line : theBlock.lines) {
            std::smatch match;
            if (std::regex_search(line, match, preset)) {
                EXPECT_NE(presets.find("\"" + match[1].str() + "\""), std::string::npos) << line;
            }
            const std::string program = line.substr(0, line.find(' '));
            if (program.empty() || program[0] == '#' || program.starts_with("build/")) {
                continue;
            }
            const bool isThere = program.find('/') != std::string::npos
                                     ? access((LUMNIS_TREE "/" + program).c_str(), X_OK) == 0
                                     : !run("command -v " + program).empty();
            EXPECT_TRUE(isThere) << line;
        }
    }

    const test::TemporaryFolder temporaryM;
    const fs::path& folderM = temporaryM.get();
};

TEST_P(Page, showsWhatHappens) {
    for (const Block& block : blocksOf(LUMNIS_TREE "/" + GetParam())) {
        SCOPED_TRACE(GetParam() + ":" + std::to_string(block.line));
        const bool isFile =
            std::count(std::begin(theFileKinds), std::end(theFileKinds), block.kind) != 0;
        if (block.kind == "console") {
            runConsole(block);
        } else if (block.kind == "diff") {
            checkChange(block);
        } else if (block.kind == "sh" && block.above.find(".sh`") == std::string::npos) {
            checkCommands(block);
        } else if (isFile) {
            writeFile(block);
        } else {
            EXPECT_EQ(block.kind, "text") << "not a kind of block that is tested";
        }
    }
}

// Every page that a link names is there.
TEST_P(Page, linksToWhatIsThere) {
    const fs::path page = fs::path(LUMNIS_TREE) / GetParam();
    const std::string text = contentOf(page);
    const std::regex link("\\]\\(([^)#: ]+)[^)]*\\)");
    for (std::sregex_iterator at(text.begin(), text.end(), link), end; at != end; ++at) {
        EXPECT_TRUE(fs::exists(page.parent_path() / (*at)[1].str())) << (*at)[1];
    }
}

Lines pages() {
    Lines result;
    for (const char* const folder : {".", "docs"}) {
        for (const auto& entry : fs::directory_iterator(fs::path(LUMNIS_TREE) / folder)) {
            const std::string name =
                fs::relative(entry.path(), LUMNIS_TREE).lexically_normal().string();
            if (name.ends_with(".md") &&
                std::count(std::begin(theOtherPages), std::end(theOtherPages), name) == 0) {
                result.push_back(name);
            }
        }
    }
    std::sort(result.begin(), result.end());
    return result;
}

std::string testName(const testing::TestParamInfo<std::string>& theInfo) {
    std::string name = theInfo.param;
    std::replace_if(
        name.begin(), name.end(),
        [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(, Page, testing::ValuesIn(pages()), testName);

// A page that only has to hold would hold in silence if the comparison were too kind.
TEST(PageComparison, noticesADifference) {
    const Lines actual = {"one", "two", "three"};
    EXPECT_TRUE(isShown({"one", "two", "three"}, actual));
    EXPECT_TRUE(isShown({"one", "..."}, actual));
    EXPECT_TRUE(isShown({"...", "three"}, actual));
    EXPECT_FALSE(isShown({"one", "two"}, actual));
    EXPECT_FALSE(isShown({"one", "two", "three", "four"}, actual));
    EXPECT_FALSE(isShown({"one", "...", "four"}, actual));
    EXPECT_FALSE(isShown({}, actual));
}

}  // namespace
}  // namespace lumnis

int main(int theCount, char** theArguments) {
    const char* const path = std::getenv("PATH");
    setenv("PATH", (std::string(LUMNIS_PROGRAMS ":") + (path == nullptr ? "" : path)).c_str(), 1);
    setenv("TREE", LUMNIS_TREE, 1);
    // For dlopen, which the sanitizers call in the place of the program whose path counts.
    setenv("LD_LIBRARY_PATH", LUMNIS_LIBRARY, 1);
    setenv("LC_ALL", "C", 1);
    // In CI the checkout may belong to somebody else.
    setenv("GIT_CONFIG_COUNT", "1", 1);
    setenv("GIT_CONFIG_KEY_0", "safe.directory", 1);
    setenv("GIT_CONFIG_VALUE_0", "*", 1);
    for (const char* const name : {"NO_COLOR", "TERM", "COLUMNS", "LUMNISUTIL_SETTINGS"}) {
        unsetenv(name);
    }
    testing::InitGoogleTest(&theCount, theArguments);
    return RUN_ALL_TESTS();
}
