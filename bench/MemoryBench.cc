// Allocations and peak heap of one compilation, ours and the peers'. These figures do not depend
// on the machine's mood.
#include <cstdio>
#include <string>

#include "Contenders.h"
#include "HeapCounter.h"

namespace lumnis::bench {
namespace {

struct Work {
    const Contender* contender;
    std::string source;
};

void report(const char* theGroup, const Contender& theContender, std::string theSource) {
    Work work{&theContender, std::move(theSource)};
    const auto compile = [](void* theArgument) {
        const Work& task = *static_cast<Work*>(theArgument);
        task.contender->compile(task.source);
    };
    compile(&work);  // what is made once for the process does not count
    const HeapUse use = measureHeap(compile, &work);
    const auto size = static_cast<double>(work.source.size());
    std::printf("%-20s %-10s %10zu %12.4f %12zu %10.1f\n", theGroup, theContender.name,
                use.allocations, static_cast<double>(use.allocations) / size, use.peakBytes,
                static_cast<double>(use.peakBytes) / size);
}

}  // namespace
}  // namespace lumnis::bench

int main() {
    using namespace lumnis::bench;
    std::printf("%-20s %-10s %10s %12s %12s %10s\n", "source", "compiler", "allocs", "allocs/byte",
                "peak bytes", "peak/byte");
    for (const std::size_t size : {300u, 6000u, 64000u}) {
        for (const Contender& contender : theContenders) {
            report(std::to_string(size).c_str(), contender, makeProgram(contender.dialect, size));
        }
    }
    report("60,000 instructions", theContenders[0], makeLongFunction(60000));
    report("5,000 jumps", theContenders[0], makeJumpingFunction(5000));
    return 0;
}
