// What the trace scopes cost while the trace is off: one script through the compiler as it is and
// through the same compiler with the scopes compiled to nothing, in turns.
#include <benchmark/benchmark.h>
#include <dlfcn.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "RatioReporter.h"
#include "ScriptPrograms.h"

namespace lumnis::bench {
namespace {

using Compile = int (*)(const char*, std::size_t);

Compile load(const char* thePath) {
    void* library = dlopen(thePath, RTLD_NOW | RTLD_LOCAL);
    void* symbol = library == nullptr ? nullptr : dlsym(library, "compileScript");
    if (symbol == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        std::exit(1);
    }
    return reinterpret_cast<Compile>(symbol);
}

void compileOnce(Compile theCompile, const std::string& theSource) {
    if (theCompile(theSource.data(), theSource.size()) != 1) {
        std::fprintf(stderr, "the script is refused\n");
        std::exit(1);
    }
}

std::vector<std::string> registerAll() {
    std::vector<std::string> names;
    struct Variant {
        const char* name;
        Compile compile;
    };
    const Variant variants[] = {{"without scopes", load(UNTRACED)},
                                {"with scopes, trace off", load(TRACED)}};
    for (const std::size_t size : {300u, 6000u, 64000u}) {
        const std::string source = makeProgram(Dialect::WmlScript, size);
        for (const Variant& variant : variants) {
            names.push_back("script of " + std::to_string(size) + " bytes/" + variant.name);
            benchmark::RegisterBenchmark(names.back().c_str(), [source, compile = variant.compile](
                                                                   benchmark::State& theState) {
                for ([[maybe_unused]] auto _ : theState) {
                    compileOnce(compile, source);
                }
                theState.SetBytesProcessed(static_cast<std::int64_t>(source.size()) *
                                           theState.iterations());
            });
        }
    }
    return names;
}

}  // namespace
}  // namespace lumnis::bench

int main(int argc, char** argv) {
    return lumnis::bench::runWithRatios(lumnis::bench::registerAll(), argc, argv);
}
