// The command line as its users see it: each case of tests/cases/cli is a shell script, run in a
// folder of its own, with what it must print and its exit status.
//
//     == name
//     lumnis compile missing.wmls
//     -- err
//     missing.wmls: error: cannot read: No such file or directory
//     -- status 2
//
// A section that is left out stands for no output, or status 0. The script finds the program as
// "lumnis", the source tree as $TREE, tests/cases as $CASES, and the files of tests/cases/cli/setup
// in its folder. "failing CALL:N:ERRNO COMMAND" runs a command whose N-th call of CALL fails
// (support/failing_calls.c). The cases of terminal.txt are skipped where there are no terminals.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "CaseFile.h"
#include "Files.h"

namespace lumnis {

namespace {

namespace fs = std::filesystem;

std::string quoted(const std::string& thePath) {
    return "'" + thePath + "'";
}

// Each line of the section with its end.
std::string expected(const test::Case& theCase, const std::string& theSection) {
    std::string text;
    if (const test::CaseSection* const section = theCase.section(theSection)) {
        for (const std::string& line : section->lines) {
            text += line + "\n";
        }
    }
    return text;
}

// A change root often comes without /dev/pts, and "script" then fails before it runs anything.
bool hasTerminals() {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    return terminal >= 0 && close(terminal) == 0;
}

class CliTest : public testing::TestWithParam<test::Case> {};

TEST_P(CliTest, saysAndDoes) {
    for (const test::CaseSection& section : GetParam().sections) {
        ASSERT_TRUE(section.name == "out" || section.name == "err" || section.name == "status")
            << section.name;
    }
    if (GetParam().file == "terminal" && !hasTerminals()) {
        GTEST_SKIP() << "no pseudo-terminal can be opened here; is /dev/pts mounted?";
    }
    const test::TemporaryFolder folder;
    const fs::path work = folder.get() / "work";
    fs::copy(LUMNIS_CASES "/cli/setup", work, fs::copy_options::recursive);
    const std::string script = (folder.get() / "script").string();
    std::ofstream(script, std::ios::binary) << GetParam().source << "\n";
    const std::string command =
        "cd " + quoted(work.string()) + " && sh " + quoted(script) + " </dev/null >../out 2>../err";

    const int status = std::system(command.c_str());

    EXPECT_EQ(test::contentOf(folder.get() / "out"), expected(GetParam(), "out"));
    EXPECT_EQ(test::contentOf(folder.get() / "err"), expected(GetParam(), "err"));
    const test::CaseSection* const wanted = GetParam().section("status");
    ASSERT_TRUE(WIFEXITED(status)) << status;
    EXPECT_EQ(WEXITSTATUS(status), wanted == nullptr ? 0 : std::stoi(wanted->arguments));
}

INSTANTIATE_TEST_SUITE_P(, CliTest, testing::ValuesIn(test::readCases("cli")),
                         [](const auto& theInfo) { return test::parameterName(theInfo.param); });

}  // namespace

}  // namespace lumnis

int main(int theCount, char** theArguments) {
    const char* const path = std::getenv("PATH");
    setenv("PATH", (std::string(LUMNIS_PROGRAMS ":") + (path == nullptr ? "" : path)).c_str(), 1);
    setenv("TREE", LUMNIS_TREE, 1);
    setenv("CASES", LUMNIS_CASES, 1);
    setenv("FAILING_LIBRARY", LUMNIS_FAILING_LIBRARY, 1);
    setenv("LC_ALL", "C", 1);
    for (const char* const name : {"NO_COLOR", "TERM", "COLUMNS"}) {
        unsetenv(name);
    }
    testing::InitGoogleTest(&theCount, theArguments);
    return RUN_ALL_TESTS();
}
