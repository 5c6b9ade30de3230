// Sources that are cut at every byte and damaged at every byte, through the exports: what comes
// back is a result that the dump reads or a message whose line is there, and the same one the
// second time. (DumpTest.cc does so with compiled files, XmlLimitsTest.cc with other documents.)
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>

#include "DumpReader.h"
#include "ExportCalls.h"
#include "RichDeck.h"

namespace lumnis {
namespace {

using test::ExportCall;
using test::ExportResult;

// Every prefix of theWhole, and theWhole with each byte replaced by each of theBytes.
void forAllDamages(const std::string& theWhole, std::string_view theBytes,
                   const std::function<void(const std::string&)>& theTest) {
    for (std::size_t i = 0; i < theWhole.size() && !testing::Test::HasFailure(); ++i) {
        theTest(theWhole.substr(0, i));
        for (const char byte : theBytes) {
            std::string damaged = theWhole;
            damaged[i] = byte;
            theTest(damaged);
        }
    }
}

const std::string theDecks[] = {
    std::string(test::theRichDeck),
    R"(<!DOCTYPE wml [
<!ELEMENT wml (a, b*)> <!ELEMENT a EMPTY> <!ELEMENT b (#PCDATA)> <!NOTATION g PUBLIC "g">
<!ENTITY u SYSTEM "u" NDATA g> <!ENTITY t "1&#38;lt;2"> <!ENTITY % p "<!ENTITY v 'w'>"> %p;
<!ATTLIST a t CDATA "&t;" i ID #IMPLIED k IDREFS #IMPLIED e ENTITY #IMPLIED m NMTOKENS #FIXED "x y">]>
<wml><a t=" &v; " i="i1" k="i1 i1" e="u" m="x  y"/><b>x&t;</b><!-- c --></wml>
)",
    "<!DOCTYPE wta-wml PUBLIC '-//WAPFORUM//DTD WTA-WML 1.2//EN' 'x'>\n<wta-wml><card>"
    "<onevent type='wtaev-cc/ic'><go href='wtai://wp/mc;$(n)'/></onevent></card></wta-wml>",
};

const std::string theScripts[] = {
    R"(use url u "http://h/s"; use access domain "d" path "p";
use meta name "n" "c" "s"; use meta http equiv "e" "c"; // of all kinds
extern function f(a, b) { var c = u#g(1.5, 300, -7), d = "\u20AC" + "t" + 'é', e = invalid;
  for (var i = 0; i < a && !b || i == 3; i++) { if (c) continue; else break; }
  while (typeof d == 2) d = Lang.abs(e) ? a << 2 : ~b; return h(a, d), isvalid c; }
/* of two
   lines */ function h(x, y) { x += y--; return x div y % 7 >>> 0x1F; }
)",
    "extern function g() {\n\treturn \"\\x41\\101\\n\" + 1e3 + .5 + 017;\n}",
};

// The line that theMark stands in front of, if there is one.
void checkLine(const std::string& theText, std::string_view theMark, const std::string& theSource) {
    const std::size_t place = theText.find(theMark);
    if (place != std::string::npos) {
        const long line = std::stol(theText.substr(place + theMark.size()));
        EXPECT_GE(line, 1) << theSource;
        EXPECT_LE(line, 1 + std::count(theSource.begin(), theSource.end(), '\n')) << theSource;
    }
}

void checkSource(ExportCall theCall, const std::string& theSource) {
    const ExportResult result = theCall(theSource, nullptr);
    EXPECT_EQ(result, theCall(theSource, nullptr)) << theSource;
    checkLine(result.text, "(before or at line: ", theSource);
    checkLine(result.text, "Error at line: ", theSource);
    if (result.code == 0) {
        if (theSource.find('\0') == std::string::npos) {
            EXPECT_FALSE(readDump(result.bytes, std::nullopt).fault) << theSource;
        }
    } else if (!theSource.empty() || theCall == test::callCompile) {
        EXPECT_NE(result.text, "") << theSource;
    }
}

TEST(Damage, ofDecks) {
    testing::internal::CaptureStdout();
    for (const std::string& deck : theDecks) {
        forAllDamages(deck, std::string_view("\0<\"$\xFF", 5), [](const std::string& theSource) {
            checkSource(test::callEncode, theSource);
        });
    }
    // An empty deck alone cannot be converted.
    const std::string text = "There was no input character data to process.\n";
    EXPECT_EQ(testing::internal::GetCapturedStdout(), text + text + text + text + text + text);
}

TEST(Damage, ofScripts) {
    for (const std::string& script : theScripts) {
        forAllDamages(
            script, std::string_view("\0;(\"\n\xFF", 6),
            [](const std::string& theSource) { checkSource(test::callCompile, theSource); });
    }
}

}  // namespace
}  // namespace lumnis
