// DTD texts alone, as the library parses its own and `lumnis check --dtd` those of a file.
//
// What must hold: the same text gives the same message twice, and the line it names exists; and a
// DTD that has been taken judges documents without doing more harm than that.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>

#include "DocumentChecker.h"
#include "Require.h"

namespace {

using lumnis::CpsString;
using lumnis::DocumentChecker;
using lumnis::fuzz::require;
using lumnis::fuzz::requireLine;

// The root is one that the seeds declare; elements and attributes that a DTD does not know are
// refused at once, so that each has a document to itself.
constexpr std::string_view theDocuments[] = {
    "<r/>", "<r>\n<a/>&e;</r>", "<wml><card><p>&nbsp;</p></card></wml>", "<a i='i' j='i' e='u'/>"};

std::string run(std::string_view theDtd) {
    std::ostringstream output;
    DocumentChecker checker(&output);
    if (const auto fault = checker.setDtd(CpsString(theDtd))) {
        requireLine(fault->line, theDtd);
        output << fault->line << ": " << fault->message.view();
        return output.str();
    }
    for (const std::string_view document : theDocuments) {
        if (const auto fault = checker.check(CpsString(document), nullptr)) {
            requireLine(fault->line, document);
            output << fault->line << ": " << fault->message.view() << "\n";
        }
    }
    return output.str();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* theData, std::size_t theSize) {
    const std::string_view dtd(reinterpret_cast<const char*>(theData), theSize);
    require(run(dtd) == run(dtd));
    return 0;
}
