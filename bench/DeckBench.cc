// Decks from source to WBXML through the public call: time against libxml2 (parse to a tree and
// validate; events alone) and expat (with handlers; bare), which write nothing, in one run and in
// turns; and the cost per byte as decks grow.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

#include "DeckDocuments.h"
#include "DeckEncoder.h"
#include "RatioReporter.h"
#include "XmlPeers.h"

namespace lumnis::bench {
namespace {

std::vector<std::string> theNames;

void copy(const std::string& theDeck) {
    std::string bytes(theDeck);
    benchmark::DoNotOptimize(bytes.data());
}

struct Contender {
    const char* name;
    void (*run)(const std::string& theDeck);
};
constexpr Contender theContenders[] = {
    {"lumnis", encodeDeck},
    {"libxml2, validating", validateWithLibxml2},
    {"libxml2, events", readWithLibxml2},
    {"expat", readWithExpat},
    {"expat without handlers", readWithBareExpat},
    // What the machine could do at best: one pass over the same bytes.
    {"memcpy", copy},
};

struct Size {
    const char* name;
    std::size_t bytes;
};
constexpr Size theSizes[] = {
    {"2 KB", 2000}, {"14 KB", 14000}, {"88 KB", 88000}, {"880 KB", 880000}, {"2 MB", 2000000}};

void registerAll() {
    for (const Size& size : theSizes) {
        const std::string deck = makeDeck(size.bytes);
        for (const Contender& contender : theContenders) {
            theNames.push_back(std::string("decks of ") + size.name + "/" + contender.name);
            benchmark::RegisterBenchmark(
                theNames.back().c_str(), [deck, &contender](benchmark::State& theState) {
                    for ([[maybe_unused]] auto _ : theState) {
                        contender.run(deck);
                    }
                    theState.SetBytesProcessed(static_cast<std::int64_t>(deck.size()) *
                                               static_cast<std::int64_t>(theState.iterations()));
                });
        }
    }
}

}  // namespace
}  // namespace lumnis::bench

int main(int argc, char** argv) {
    lumnis::bench::registerAll();
    return lumnis::bench::runWithRatios(lumnis::bench::theNames, argc, argv);
}
