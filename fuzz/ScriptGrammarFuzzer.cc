// The compiler under scripts that are valid for the most part, so that the semantic actions, the
// optimizer and the writers get their share. The first byte turns streams on
// (ScriptProperties.h); the rest are the choices of ScriptWriter. With LUMNIS_SHOW_SCRIPT in the
// environment the script goes to standard error ahead of its run.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "ScriptProperties.h"
#include "ScriptWriter.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* theData, std::size_t theSize) {
    static const bool isShown = std::getenv("LUMNIS_SHOW_SCRIPT") != nullptr;
    if (theSize != 0) {
        const std::string script = lumnis::fuzz::ScriptWriter({theData + 1, theSize - 1}).write();
        if (isShown) {
            std::fprintf(stderr, "%s\n", script.c_str());
        }
        lumnis::fuzz::checkScript(script, theData[0]);
    }
    return 0;
}
