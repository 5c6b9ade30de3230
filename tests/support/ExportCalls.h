// The two exports as functions from a source to all that comes out of them.
#pragma once

#include <string>
#include <string_view>

namespace lumnis::test {

struct ExportResult {
    int code = 0;
    bool hasBlock = false;  // a block for the result, also for a deck that is refused
    bool hasText = false;
    std::string bytes;  // of a success
    std::string text;   // of a failure

    bool operator==(const ExportResult&) const = default;
};

// theEnd, if there is one, is called when the export has returned and nothing else has happened.
using ExportEnd = void (*)();
using ExportCall = ExportResult (*)(std::string_view theSource, ExportEnd theEnd);

ExportResult callEncode(std::string_view theSource, ExportEnd theEnd = nullptr);
ExportResult callCompile(std::string_view theSource, ExportEnd theEnd = nullptr);

}  // namespace lumnis::test
