// Allocations and peak heap of one call, ours and the peers'. These figures do not depend on the
// machine's mood.
#include <cstdio>
#include <functional>
#include <string>

#include "Contenders.h"
#include "DeckDocuments.h"
#include "DeckEncoder.h"
#include "HeapCounter.h"
#include "XmlPeers.h"

namespace lumnis::bench {
namespace {

using Work = std::function<void()>;

void report(const std::string& theGroup, const char* theName, std::size_t theSize,
            const Work& theWork) {
    theWork();  // what is made once for the process does not count
    const HeapUse use =
        measureHeap([](void* theArgument) { (*static_cast<const Work*>(theArgument))(); },
                    const_cast<Work*>(&theWork));
    const auto size = static_cast<double>(theSize);
    std::printf("%-20s %-20s %10zu %12.4f %12zu %10.1f\n", theGroup.c_str(), theName,
                use.allocations, static_cast<double>(use.allocations) / size, use.peakBytes,
                static_cast<double>(use.peakBytes) / size);
}

void reportScript(const std::string& theGroup, const Contender& theContender,
                  const std::string& theSource) {
    report(theGroup, theContender.name, theSource.size(), [&] { theContender.compile(theSource); });
}

void reportScripts() {
    for (const std::size_t size : {300u, 6000u, 64000u}) {
        for (const Contender& contender : theContenders) {
            reportScript(std::to_string(size), contender, makeProgram(contender.dialect, size));
        }
    }
    reportScript("60,000 instructions", theContenders[0], makeLongFunction(60000));
    reportScript("5,000 jumps", theContenders[0], makeJumpingFunction(5000));
}

void reportDecks() {
    struct Parser {
        const char* name;
        void (*run)(const std::string& theDeck);
    };
    constexpr Parser theParsers[] = {{"lumnis", encodeDeck},
                                     {"libxml2, validating", validateWithLibxml2},
                                     {"expat", readWithExpat}};
    for (const std::size_t size : {2000u, 14000u, 88000u, 880000u}) {
        const std::string deck = makeDeck(size);
        for (const Parser& parser : theParsers) {
            report("deck of " + std::to_string(size), parser.name, deck.size(),
                   [&] { parser.run(deck); });
        }
    }
}

}  // namespace
}  // namespace lumnis::bench

int main() {
    std::printf("%-20s %-20s %10s %12s %12s %10s\n", "source", "by", "allocs", "allocs/byte",
                "peak bytes", "peak/byte");
    lumnis::bench::reportScripts();
    lumnis::bench::reportDecks();
    return 0;
}
