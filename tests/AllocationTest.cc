// Memory that runs out at every allocation in turn, whatever is called: an error comes back,
// nothing leaks, and the next call works.
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <sstream>
#include <string>

#include "CpsString.h"
#include "DumpPrinter.h"
#include "DumpReader.h"
#include "ExportCalls.h"
#include "FailingHeap.h"
#include "RichDeck.h"
#include "WscWmlScriptCompiler.h"

namespace lumnis {
namespace {

using test::ExportCall;
using test::ExportResult;

struct Sample {
    const char* name;
    ExportCall call;
    std::string source;
};

// A script with every kind of constant, one whose jumps and locals are many, one that is refused.
const std::string theRichScript = R"(use url u "http://h/s"; use access domain "d" path "p";
use meta name "n" "c" "s"; use meta http equiv "e" "c"; use meta user agent "a" "b";
extern function f(a, b) { var c = u#g(1.5, 300, -70000), d = "\u20AC" + "t" + 'é', e = invalid;
    for (var i = 0; i < a && !b || i == 3; i++) { if (c) continue; else break; }
    while (typeof d == 2) d = Lang.abs(e) ? a << 2 : ~b; return h(a, d), isvalid c; }
function h(x, y) { return x div y % 7; }
)";
const std::string theRefusedScript = "function f(a) {\n var b = \"text\" + a;\n return c; }";

std::string longScript() {
    std::string result = "extern function f() {\n";
    for (int i = 0; i < 90; ++i) {
        const std::string number = std::to_string(i);
        result += "var v" + number + " = \"a text of more than one block " + number + "\";\n";
        result += "if (v" + number + " > " + number + "000) { v0 = g" + number + "(); }\n";
    }
    result += "}\n";
    for (int i = 0; i < 90; ++i) {
        result += "function g" + std::to_string(i) + "() {}\n";
    }
    return result;
}

// A deck that declares, one that is refused.
const std::string theDeclaringDeck = R"(<!DOCTYPE wml [
<!ELEMENT wml (a, (b | c)*, d?)> <!ELEMENT a EMPTY> <!ELEMENT b (#PCDATA)>
<!ELEMENT c (#PCDATA | wml)*> <!ELEMENT d ANY> <!NOTATION g PUBLIC "g"> <!ENTITY u SYSTEM "u" NDATA g>
<!ENTITY t "1&#38;lt;2"> <!ENTITY e "<a t='&t;'/>"> <!ENTITY % p "<!ENTITY v 'w'>"> %p;
<!ATTLIST a t CDATA "&t;" i ID #IMPLIED k IDREFS #IMPLIED e ENTITIES #IMPLIED m NMTOKENS #FIXED "x y"
  o NOTATION (g) "g" v (v1|v2) "v1">]>
<wml><a t=" &v; " i="i1" k="i1 i1" e="u" m="x  y" v="v2"/><b>x&t;</b><c>t<!-- c --></c><d>&e;</d></wml>
)";
const std::string theRefusedDeck =
    "<!DOCTYPE wml PUBLIC '-//WAPFORUM//DTD WML 1.1//EN' "
    "'x'>\n<wml><card><p>t<table/></p></card></wml>";

const Sample theSamples[] = {
    {"encode, rich", test::callEncode, std::string(test::theRichDeck)},
    {"encode, declaring", test::callEncode, theDeclaringDeck},
    {"encode, refused", test::callEncode, theRefusedDeck},
    {"compile, rich", test::callCompile, theRichScript},
    {"compile, long", test::callCompile, longScript()},
    {"compile, refused", test::callCompile, theRefusedScript},
};

// The call with a failure of that allocation; false if it needs fewer. A failure that costs
// nothing, such as that of a lost line of the log, must leave theGood, if that is known.
bool failsAt(const Sample& theSample, long theNumber, const ExportResult* theGood) {
    test::failAllocation(theNumber);
    const ExportResult result = theSample.call(theSample.source, test::endFailures);
    const bool hasFailed = test::hasAllocationFailed();
    if (theGood == nullptr ? result.code == 0 : result == *theGood) {
        return hasFailed;
    }
    EXPECT_TRUE(hasFailed);
    EXPECT_EQ(result.code, 1) << theSample.name << theNumber;
    if (result.hasText) {
        EXPECT_EQ(result.text, theSample.call == test::callEncode
                                   ? "standard exception: std::bad_alloc\n"
                                   : "\nOther error: \nOut of memory.\n")
            << theSample.name << theNumber;
    }
    return hasFailed;
}

// Stands first: the first calls of the process make the singletons, and what a failed one leaves
// must not be in the way of the next.
TEST(Allocation, ofTheFirstCallsMayFail) {
    for (const Sample& sample : {theSamples[3], theSamples[0]}) {
        long step = 1;
        for (long number = 1; failsAt(sample, number, nullptr); number += step) {
            step = 1 + number / 64;
        }
        EXPECT_EQ(sample.call(sample.source, nullptr).code, 0) << sample.name;
    }
}

TEST(Allocation, mayFailAtEveryNumber) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    for (const Sample& sample : theSamples) {
        const ExportResult good = sample.call(sample.source, nullptr);
        EXPECT_EQ(good.code, std::string_view(sample.name).ends_with("refused") ? 1 : 0)
            << good.text;
        const long inUse = test::blocksInUse();
        long number = 1;
        for (; failsAt(sample, number, &good); ++number) {
            EXPECT_EQ(test::blocksInUse(), inUse) << sample.name << ", leak at " << number;
            EXPECT_EQ(sample.call(sample.source, nullptr), good)
                << sample.name << ", after " << number;
            if (HasFailure()) {
                break;
            }
        }
        EXPECT_GT(number, 5) << sample.name;
    }
    // Once for each good script and deck, at its last allocation but those behind it.
    constexpr const char* theNotice = "Could not malloc result buffer for wmlc data.\n";
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              std::string(theNotice) + theNotice + theNotice);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), std::string(theNotice) + theNotice);
}

// What only throws: it may end early, but must leave nothing behind.
TEST(Allocation, ofOtherEntrancesMayFail) {
    const std::string deck = test::callEncode(test::theRichDeck).bytes;
    const std::string script = test::callCompile(theRichScript).bytes;
    std::size_t sizes[2] = {};
    const std::function<void()> entrances[] = {
        [&] {
            const DumpListing listing = readDump(deck, std::nullopt);
            sizes[0] = (printDumpText(listing, deck) + printDumpJson(listing, deck) +
                        printDumpXml(listing))
                           .size();
        },
        [&] {
            const DumpListing listing = readDump(script, std::nullopt);
            sizes[1] = (printDumpText(listing, script) + printDumpJson(listing, script)).size();
        },
        [&] {  // with all that the exports leave out
            std::ostringstream tree;
            std::ostringstream listing;
            WscWmlScriptCompiler compiler;
            compiler.setDebugMode(true);
            compiler.setAcceptCharacterSet(4);
            compiler.setParseTreeStream(&tree);
            compiler.setConsoleStream(tree);
            compiler.setAssemblyStream(&listing);
            const CpsString source{std::string_view(theRichScript)};
            (void)compiler.compile(&source);
        },
    };
    for (const auto& enter : entrances) {
        enter();
        const long inUse = test::blocksInUse();
        long number = 1;
        for (bool hasFailed = true; hasFailed; ++number) {
            test::failAllocation(number);
            try {
                enter();
            } catch (const std::bad_alloc&) {
            }
            hasFailed = test::hasAllocationFailed();
            test::endFailures();
            ASSERT_EQ(test::blocksInUse(), inUse) << number;
        }
        EXPECT_GT(number, 50);
    }
    EXPECT_GT(sizes[0], 1000u);
    EXPECT_GT(sizes[1], 1000u);
}

}  // namespace
}  // namespace lumnis
