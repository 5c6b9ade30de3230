// Eight threads call both exports at once, with good and bad sources, and get what one thread
// gets. Under the thread sanitizer this also shows shared state that nobody guards.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <barrier>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "ExportCalls.h"

namespace lumnis {
namespace {

using test::ExportResult;

struct Source {
    test::ExportCall call;
    const char* text;
    const char* message;  // null for a good one
};

// A thread begins with the source of its number, so that a race for the first call has both
// exports and every outcome in it.
const Source theSources[] = {
    {test::callEncode, "<wml><card id='c'>\n<p>$(x) http://www.a.com</p></card></wml>", nullptr},
    {test::callCompile, "extern function f(a) { while (a) a = a - 1; return Lang.abs(a); }",
     nullptr},
    {test::callEncode,
     "<!DOCTYPE wml PUBLIC '-//WAPFORUM//DTD WML 1.1//EN' 'x'><wml>\n<card><p/></wml>",
     "element tag mismatch: <card> ... </wml>  (before or at line: 2)\n"},
    {test::callCompile, "function f() {\n x; }",
     "\nCompilation error: \nError at line: 2. \r\nSemantic Error: Variable \"x\" not found\n"},
    {test::callEncode,
     "<!DOCTYPE wta-wml PUBLIC '-//WAPFORUM//DTD WTA-WML 1.2//EN' 'x'>"
     "<wta-wml><card><onevent type='wtaev-cc/ic'><noop/></onevent></card></wta-wml>",
     nullptr},
    {test::callCompile,
     "use url u \"x\"; use meta user agent \"p\" \"c\"; extern function g() { return u#h(1.5, "
     "300); }",
     nullptr},
    {test::callEncode,
     "<!DOCTYPE wml PUBLIC '-//WAPFORUM//DTD WML 1.3//EN' 'x'><wml><card class='c'>"
     "<p><![CDATA[ ]]>&nbsp;</p></card></wml>",
     nullptr},
    {test::callCompile, "function f() { 'a", "\nCompilation error: \nError at line: 1. \r\n"},
    {test::callEncode, "<!DOCTYPE wml [<!ELEMENT wml (#PCDATA)>]><wml>\n<p/></wml>",
     "p undefined  (before or at line: 2)\n"},
    {test::callCompile,
     "function f() { for (var i = 0; i < 70000; i++) { if (i && f() || i) continue; break; } }",
     nullptr},
    {test::callEncode, "<wml>\n\n$</wml>",
     "Variable name has to begin with alpha or '_'\n  (before or at line: 3)\n"},
    {test::callCompile, "", "\nCompilation error: \nError at line: 1. \r\nparse error\n"},
};
constexpr std::size_t theThreads = 8;

std::vector<ExportResult> callAll(std::size_t theFirst) {
    std::vector<ExportResult> results(std::size(theSources));
    for (std::size_t i = 0; i < results.size(); ++i) {
        const std::size_t index = (theFirst + i) % results.size();
        results[index] = theSources[index].call(theSources[index].text, nullptr);
    }
    return results;
}

// What each thread finds in its rounds, all of which start together.
std::vector<std::vector<ExportResult>> callOnThreads(std::size_t theRounds) {
    std::vector<std::vector<ExportResult>> found(theThreads * theRounds);
    std::barrier start(static_cast<std::ptrdiff_t>(theThreads));
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i < theThreads; ++i) {
        threads.emplace_back([&, i] {
            start.arrive_and_wait();
            for (std::size_t round = 0; round < theRounds; ++round) {
                found[i * theRounds + round] = callAll(i + round);
            }
        });
    }
    threads.clear();
    return found;
}

// Stands first and makes no call in this process. In each child the first calls are those of the
// threads, which race for all that is made once.
TEST(Threads, raceForTheFirstCall) {
    constexpr int theProcesses = 10;
    for (int i = 0; i < theProcesses; ++i) {
        std::fflush(nullptr);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            const auto found = callOnThreads(1);
            const auto expected = callAll(0);
            for (const auto& results : found) {
                if (results != expected) {
                    std::exit(1);
                }
            }
            std::exit(0);  // where the sanitizer adds what it has found
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status)) << status;
        EXPECT_EQ(WEXITSTATUS(status), 0);
    }
}

TEST(Threads, getWhatOneThreadGets) {
    const auto found = callOnThreads(40);
    const auto expected = callAll(0);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const Source& source = theSources[i];
        EXPECT_EQ(expected[i].code, source.message == nullptr ? 0 : 1) << expected[i].text;
        EXPECT_EQ(expected[i].text.rfind(source.message == nullptr ? "" : source.message, 0), 0u)
            << expected[i].text;
    }
    for (const auto& results : found) {
        EXPECT_EQ(results, expected);
    }
}

}  // namespace
}  // namespace lumnis
