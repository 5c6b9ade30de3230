// The script compiler behind one plain function, for a program that loads it in two variants.
#include <cstddef>
#include <cstdint>

#include "CpsString.h"
#include "WscWmlScriptCompiler.h"

// 1 when the script has been compiled.
extern "C" __attribute__((visibility("default"))) int compileScript(const char* theSource,
                                                                    std::size_t theLength) {
    const lumnis::CpsString source(theSource, static_cast<std::uint32_t>(theLength));
    lumnis::WscWmlScriptCompiler compiler;
    return compiler.compile(&source);
}
