// Documents, DTDs and attribute values through the XML parser.
//
// The first byte chooses what the rest is; where it is two texts, the first byte 0xFF parts them.
// What must hold: the same input gives the same events and the same message, and the line that a
// message names exists.
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

// A DTD that has every kind of content model and every type of attribute.
constexpr const char* theDtd = R"(
<!ELEMENT r (a*, (b | c)+, d?)><!ELEMENT a EMPTY><!ELEMENT b (#PCDATA)><!ELEMENT c (#PCDATA|r)*>
<!ELEMENT d ANY><!NOTATION g SYSTEM "g"><!NOTATION h PUBLIC "h"><!ENTITY u SYSTEM "u" NDATA g>
<!ENTITY x SYSTEM "x"><!ENTITY t "1&#38;lt;2"><!ENTITY e "<a t='&t;'/>"><!ENTITY k "&l;"><!ENTITY l "&k;">
<!ATTLIST a t CDATA "&t;" i ID #IMPLIED j IDREF #IMPLIED k IDREFS #IMPLIED e ENTITY #IMPLIED
  f ENTITIES #IMPLIED n NMTOKEN #IMPLIED m NMTOKENS #FIXED "x y" o NOTATION (g|h) "g" v (v1|v2) "v1">
<!ATTLIST b z CDATA #REQUIRED>
)";

// Every system identifier leads to the same text.
class OneTextResolver final : public lumnis::XpEntityResolver {
  public:
    explicit OneTextResolver(std::string_view theText) : textM(theText) {}
    const CpsString* fetch(const CpsString*, const CpsString*) override { return &textM; }
    void release(const CpsString*) override {}

  private:
    CpsString textM;
};

enum Mode { ALONE, NONVALIDATING, FIXED_DTD, DTD_TEXT, DTD_AND_DOCUMENT, EXTERNAL, MODES };

std::string run(Mode theMode, std::string_view theFirst, std::string_view theSecond) {
    std::ostringstream output;
    DocumentChecker checker(&output);
    OneTextResolver resolver(theSecond);
    std::optional<DocumentChecker::Fault> fault;
    std::string_view document = theFirst;
    if (theMode == FIXED_DTD) {
        require(!checker.setDtd(theDtd));
    }
    if (theMode == DTD_TEXT || theMode == DTD_AND_DOCUMENT) {
        fault = checker.setDtd(CpsString(theFirst));
        document = theSecond;
        if (fault) {
            requireLine(fault->line, theFirst);
        }
    }
    if (!fault && theMode != DTD_TEXT) {
        checker.setNonvalidating(theMode == NONVALIDATING);
        fault = checker.check(CpsString(document), theMode == EXTERNAL ? &resolver : nullptr);
        if (fault) {
            // The lines of external texts do not count.
            requireLine(fault->line, document);
        }
    }
    if (fault) {
        output << fault->line << ": " << fault->message.view();
    }
    return output.str();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* theData, std::size_t theSize) {
    if (theSize == 0) {
        return 0;
    }
    const auto mode = static_cast<Mode>(theData[0] % MODES);
    const std::string_view text(reinterpret_cast<const char*>(theData) + 1, theSize - 1);
    std::string_view first = text;
    std::string_view second;
    if (mode == DTD_AND_DOCUMENT || mode == EXTERNAL) {
        const std::size_t at = std::min(text.find('\xFF'), text.size());
        first = text.substr(0, at);
        second = text.substr(std::min(at + 1, text.size()));
    }
    require(run(mode, first, second) == run(mode, first, second));
    return 0;
}
