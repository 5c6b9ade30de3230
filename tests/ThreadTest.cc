// Eight threads compile at once, good scripts and bad ones, and get what one thread gets. Under
// the thread sanitizer this also shows shared state that nobody guards.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "lumnisutil.h"

namespace lumnis {
namespace {

const char* const theSources[] = {
    "extern function f(a) { while (a) a = a - 1; return Lang.abs(a); }",
    "use url u \"x\"; use meta user agent \"p\" \"c\"; extern function g() { return u#h(1.5, 300); "
    "}",
    "use access domain \"d\" path \"p\"; function f() { return WTAPublic.makeCall(\"\\u20AC\"); }",
    "function f() { for (var i = 0; i < 70000; i++) { if (i && f() || i) continue; break; } }",
    "function f() {\n x; }",
    "function f() {\n\n switch; }",
    "function f() { Lang.abs(1, 2); }",
    "function f() { 'a",
    "function f() { 1 = ",
    "",
};
constexpr int theThreads = 8;
constexpr int theRounds = 40;

std::string compile(const std::string& theSource) {
    char* result = nullptr;
    char* error = nullptr;
    unsigned short length = 0;
    const int code =
        WMLSCompile(theSource.data(), static_cast<int>(theSource.size()), &result, &length, &error);
    const std::string text = code == 0          ? std::string(result, length)
                             : error != nullptr ? error
                                                : "";
    std::free(result);
    std::free(error);
    return std::to_string(code) + text;
}

std::vector<std::string> compileAll(int theFirst) {
    constexpr int theCount = static_cast<int>(std::size(theSources));
    std::vector<std::string> results(std::size(theSources));
    for (int i = 0; i < theCount; ++i) {
        const auto index = static_cast<std::size_t>((theFirst + i) % theCount);
        results[index] = compile(theSources[index]);
    }
    return results;
}

TEST(Threads, GetWhatOneThreadGets) {
    // The threads come first, so that they also meet where the singletons are made.
    std::vector<std::vector<std::vector<std::string>>> found(theThreads);
    std::vector<std::thread> threads;
    for (int i = 0; i < theThreads; ++i) {
        threads.emplace_back([i, &mine = found[static_cast<std::size_t>(i)]] {
            for (int round = 0; round < theRounds; ++round) {
                mine.push_back(compileAll(i + round));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    const std::vector<std::string> expected = compileAll(0);
    EXPECT_EQ(expected[0][0], '0');
    EXPECT_EQ(expected[4],
              "1\nCompilation error: \nError at line: 2. \r\n"
              "Semantic Error: Variable \"x\" not found\n");
    for (const auto& mine : found) {
        for (const auto& results : mine) {
            EXPECT_EQ(results, expected);
        }
    }
}

}  // namespace
}  // namespace lumnis
