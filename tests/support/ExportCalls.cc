#include "ExportCalls.h"

#include <cstdlib>

#include "lumnisutil.h"

namespace lumnis::test {

namespace {

ExportResult call(decltype(WMLEncode)& theExport, bool theTextIsOurs, std::string_view theSource,
                  ExportEnd theEnd) {
    char* block = nullptr;
    char* text = nullptr;
    unsigned short length = 0;
    ExportResult result;
    result.code =
        theExport(theSource.data(), static_cast<int>(theSource.size()), &block, &length, &text);
    if (theEnd != nullptr) {
        theEnd();
    }
    result.hasBlock = block != nullptr;
    result.hasText = text != nullptr;
    if (result.code == 0) {
        result.bytes.assign(block, length);
    }
    if (text != nullptr) {
        result.text = text;
    }
    std::free(block);
    if (theTextIsOurs) {
        std::free(text);
    }
    return result;
}

}  // namespace

ExportResult callEncode(std::string_view theSource, ExportEnd theEnd) {
    return call(WMLEncode, false, theSource, theEnd);
}

ExportResult callCompile(std::string_view theSource, ExportEnd theEnd) {
    return call(WMLSCompile, true, theSource, theEnd);
}

}  // namespace lumnis::test
