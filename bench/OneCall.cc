// one_call deck|script SIZE COUNT: the export for it, COUNT times on a generated source of about
// SIZE bytes, and nothing else: what scripts/count-instructions counts. Prints the size of the
// source.
#include <lumnisutil.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "DeckDocuments.h"
#include "ScriptPrograms.h"

int main(int argc, char** argv) {
    using namespace lumnis::bench;
    const std::string_view kind = argc == 4 ? argv[1] : "";
    if (kind != "deck" && kind != "script") {
        std::fputs("usage: one_call deck|script SIZE COUNT\n", stderr);
        return 2;
    }
    const bool isDeck = kind == "deck";
    const std::size_t size = std::strtoul(argv[2], nullptr, 10);
    const std::string source = isDeck ? makeDeck(size) : makeProgram(Dialect::WmlScript, size);
    const auto call = isDeck ? WMLEncode : WMLSCompile;
    for (unsigned long count = std::strtoul(argv[3], nullptr, 10); count != 0; --count) {
        char* result = nullptr;
        char* error = nullptr;
        unsigned short length = 0;
        if (call(source.data(), static_cast<int>(source.size()), &result, &length, &error) != 0 &&
            error != nullptr) {
            std::fputs(error, stderr);
            return 1;
        }
        std::free(result);
    }
    std::printf("%zu\n", source.size());
    return 0;
}
