// What the first call of a process costs above the later ones: tables, and the DTD of the document
// type. Each round is a process of its own, which tells the time of its calls; the least time of
// all rounds counts.
//
//   bench_first_call [ROUNDS]
#include <lumnisutil.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace lumnis::bench {
namespace {

using Call = decltype(&WMLEncode);

double measure(Call theCall, const std::string& theSource) {
    char* result = nullptr;
    char* error = nullptr;
    unsigned short length = 0;
    const auto start = std::chrono::steady_clock::now();
    const int status =
        theCall(theSource.data(), static_cast<int>(theSource.size()), &result, &length, &error);
    const std::chrono::duration<double> duration = std::chrono::steady_clock::now() - start;
    if (status != 0) {
        std::fprintf(stderr, "lumnis refuses the input: %s\n", error == nullptr ? "" : error);
        std::exit(1);
    }
    std::free(result);
    return duration.count();
}

std::string deckOfType(const std::string& theRoot, const std::string& theType) {
    return "<!DOCTYPE " + theRoot + " PUBLIC \"-//WAPFORUM//DTD " + theType + "//EN\" \"x.dtd\"><" +
           theRoot + "><card id=\"c\"><p>text</p></card></" + theRoot + ">";
}

struct Step {
    const char* name;
    Call call;
    std::string source;
};

// The calls of one round, in this order.
std::vector<Step> steps() {
    const std::string script = "extern function f() { return 1; }";
    return {{"WMLEncode, first call (WML 1.3)", WMLEncode, deckOfType("wml", "WML 1.3")},
            {"WMLEncode, the same again", WMLEncode, deckOfType("wml", "WML 1.3")},
            {"WMLEncode, first of WML 1.1", WMLEncode, deckOfType("wml", "WML 1.1")},
            {"WMLEncode, first of WML 1.2", WMLEncode, deckOfType("wml", "WML 1.2")},
            {"WMLEncode, first of WTA-WML 1.2", WMLEncode, deckOfType("wta-wml", "WTA-WML 1.2")},
            {"WMLSCompile, first call", WMLSCompile, script},
            {"WMLSCompile, the same again", WMLSCompile, script}};
}

// In the process of a round: the times of all calls to theDescriptor.
void runRound(int theDescriptor) {
    std::vector<double> times;
    for (const Step& step : steps()) {
        times.push_back(measure(step.call, step.source));
    }
    const std::size_t size = times.size() * sizeof times[0];
    if (write(theDescriptor, times.data(), size) != static_cast<ssize_t>(size)) {
        std::exit(1);
    }
}

std::vector<double> startRound(const char* theProgram) {
    int ends[2];
    if (pipe(ends) != 0) {
        std::exit(1);
    }
    const pid_t child = fork();
    if (child == 0) {
        const std::string descriptor = std::to_string(ends[1]);
        execl(theProgram, theProgram, "--round", descriptor.c_str(), nullptr);
        _exit(1);
    }
    close(ends[1]);
    std::vector<double> times(steps().size());
    const std::size_t size = times.size() * sizeof times[0];
    const bool isRead = read(ends[0], times.data(), size) == static_cast<ssize_t>(size);
    close(ends[0]);
    int status = 0;
    if (waitpid(child, &status, 0) != child || status != 0 || !isRead) {
        std::fprintf(stderr, "a round has failed\n");
        std::exit(1);
    }
    return times;
}

void report(int theRounds) {
    std::vector<double> best = startRound("/proc/self/exe");
    for (int round = 1; round < theRounds; ++round) {
        const std::vector<double> times = startRound("/proc/self/exe");
        std::transform(best.begin(), best.end(), times.begin(), best.begin(),
                       [](double theLeft, double theRight) { return std::min(theLeft, theRight); });
    }
    std::printf("\n%-40s %12s\n", "least of all rounds", "us");
    double decks = 0;
    const std::vector<Step> all = steps();
    for (std::size_t i = 0; i < all.size(); ++i) {
        std::printf("  %-38s %12.1f\n", all[i].name, best[i] * 1e6);
        const bool isFirst = std::strstr(all[i].name, "first") != nullptr;
        decks += isFirst && all[i].call == WMLEncode ? best[i] : 0;
    }
    std::printf("  %-38s %12.1f\n", "all four document types together", decks * 1e6);
}

}  // namespace
}  // namespace lumnis::bench

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--round") == 0) {
        lumnis::bench::runRound(std::atoi(argv[2]));
        return 0;
    }
    // The options of the other benchmarks mean nothing here, but that few rounds are wanted.
    const bool isShort = argc > 1 && argv[1][0] == '-';
    lumnis::bench::report(isShort ? 5 : argc > 1 ? std::max(std::atoi(argv[1]), 1) : 200);
    return 0;
}
