// What the trace scopes cost while the trace is off: one script through the library as it is and
// through the same library with the scopes compiled to nothing, in turns.
#include <benchmark/benchmark.h>
#include <dlfcn.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "RatioReporter.h"
#include "ScriptPrograms.h"

namespace lumnis::bench {
namespace {

using Compile = int (*)(const char*, int, char**, unsigned short*, char**);

Compile load(const char* thePath) {
    void* library = dlopen(thePath, RTLD_NOW | RTLD_LOCAL);
    void* symbol = library == nullptr ? nullptr : dlsym(library, "WMLSCompile");
    if (symbol == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        std::exit(1);
    }
    return reinterpret_cast<Compile>(symbol);
}

void compileOnce(Compile theCompile, const std::string& theSource) {
    char* result = nullptr;
    char* error = nullptr;
    unsigned short length = 0;
    if (theCompile(theSource.data(), static_cast<int>(theSource.size()), &result, &length,
                   &error) != 0) {
        std::fprintf(stderr, "refused: %s\n", error == nullptr ? "" : error);
        std::exit(1);
    }
    std::free(result);
}

std::vector<std::string> registerAll() {
    std::vector<std::string> names;
    struct Variant {
        const char* name;
        Compile compile;
    };
    const Variant variants[] = {{"without scopes", load(UNTRACED_LIBRARY)},
                                {"with scopes, trace off", load(LIBRARY)}};
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
