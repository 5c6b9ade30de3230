// Scripts from source to byte code: time against the peers, in one run and in turns, and the
// cost per byte as functions grow.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

#include "Contenders.h"
#include "RatioReporter.h"

namespace lumnis::bench {
namespace {

std::vector<std::string> theNames;

void registerCase(const std::string& theGroup, const std::string& theName, std::string theSource,
                  void (*theCompile)(const std::string&)) {
    const auto size = static_cast<std::int64_t>(theSource.size());
    theNames.push_back(theGroup + "/" + theName);
    benchmark::RegisterBenchmark(theNames.back().c_str(), [source = std::move(theSource), size,
                                                           theCompile](benchmark::State& theState) {
        for ([[maybe_unused]] auto _ : theState) {
            theCompile(source);
        }
        theState.SetBytesProcessed(size * static_cast<std::int64_t>(theState.iterations()));
    });
}

void registerAll() {
    struct Size {
        const char* name;
        std::size_t bytes;
    };
    for (const Size& size : {Size{"0.3 KB", 300}, Size{"6 KB", 6000}, Size{"64 KB", 64000}}) {
        for (const Contender& contender : theContenders) {
            registerCase(std::string("scripts of ") + size.name, contender.name,
                         makeProgram(contender.dialect, size.bytes), contender.compile);
        }
        // What the machine could do at best: one pass over the same bytes.
        registerCase(std::string("scripts of ") + size.name, "memcpy",
                     makeProgram(Dialect::WmlScript, size.bytes), [](const std::string& theSource) {
                         std::string copy(theSource);
                         benchmark::DoNotOptimize(copy.data());
                     });
    }
    for (const std::size_t count : {100u, 1000u, 10000u, 60000u}) {
        registerCase("one function, instructions", std::to_string(count), makeLongFunction(count),
                     theContenders[0].compile);
    }
    for (const std::size_t count : {10u, 100u, 1000u, 5000u}) {
        registerCase("one function, jumps", std::to_string(count), makeJumpingFunction(count),
                     theContenders[0].compile);
    }
}

}  // namespace
}  // namespace lumnis::bench

int main(int argc, char** argv) {
    lumnis::bench::registerAll();
    return lumnis::bench::runWithRatios(lumnis::bench::theNames, argc, argv);
}
