// The XML parser under load and on hostile input: long chains on a small stack, threads that
// share a DTD, input that is cut or damaged at every byte, memory that runs out or that a small
// document asks for.
#include <gtest/gtest.h>
#include <pthread.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <new>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "DocumentChecker.h"
#include "FailingHeap.h"
#include "XpDtdParser.h"
#include "XpParser.h"

namespace lumnis {
namespace {

// A document that uses every kind of declaration, attribute and content.
constexpr const char* theSample = R"(<?xml version="1.0" encoding="utf-8"?>
<?p d?><!DOCTYPE r [
<!ELEMENT r (a, (b | c)*, d?)> <!ELEMENT a EMPTY> <!ELEMENT b (#PCDATA)>
<!ELEMENT c (#PCDATA | r)*> <!ELEMENT d ANY>
<!NOTATION g PUBLIC "g"> <!ENTITY u SYSTEM "u" NDATA g>
<!ENTITY t "1&#38;lt;2"> <!ENTITY e "<a t='&t;'/>"> <!ENTITY % p "<!ENTITY v 'w'>"> %p;
<!ATTLIST a t CDATA "&t;" i ID #IMPLIED j IDREF #IMPLIED k IDREFS #IMPLIED e ENTITY #IMPLIED
  f ENTITIES #IMPLIED n NMTOKEN #IMPLIED m NMTOKENS #FIXED "x y" o NOTATION (g) "g" v (v1|v2) "v1">
]>
<r><a t=" &v; " i="i1" j="i1" k="i1 i1" e="u" f="u u" n="1" m="x  y" o="g" v="v2"/>
<b>x&t;&#233;</b><c><![CDATA[]]]]>t<!-- c --></c><d>&e;<?q r?></d></r>
)";

struct Outcome {
    std::string events;
    std::string message;  // empty if valid
    unsigned line = 0;

    bool operator==(const Outcome&) const = default;
};

Outcome check(std::string_view theDocument) {
    std::ostringstream events;
    DocumentChecker checker(&events);
    Outcome outcome;
    if (const auto fault = checker.check(CpsString(theDocument), nullptr)) {
        outcome.message = fault->message.view();
        outcome.line = fault->line;
    }
    outcome.events = events.str();
    return outcome;
}

std::string repeat(int theCount, const std::function<std::string(int)>& theText) {
    std::string result;
    for (int i = 0; i < theCount; ++i) {
        result += theText(i);
    }
    return result;
}

std::string number(int theNumber) {
    return std::to_string(theNumber);
}

// The stack that a host may give a thread. The sanitizers' frames are larger.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr std::size_t theStackSize = 8u << 20;
#else
constexpr std::size_t theStackSize = 1u << 20;
#endif

void onSmallStack(const std::function<void()>& theWork) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, theStackSize);
    pthread_t thread{};
    const auto run = [](void* theArgument) -> void* {
        (*static_cast<const std::function<void()>*>(theArgument))();
        return nullptr;
    };
    ASSERT_EQ(
        0, pthread_create(&thread, &attributes, run, const_cast<std::function<void()>*>(&theWork)));
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

constexpr int theCount = 100000;  // of the names in a chain

// Recursion, or a cost that grows with the square: each of these then takes minutes.
TEST(XmlLimits, longChainsOnASmallStack) {
    const auto valid = [](const std::string& theDocument) {
        const Outcome outcome = check(theDocument);
        EXPECT_EQ("", outcome.message) << theDocument.substr(0, 60);
    };
    onSmallStack([&] {
        const std::string sequence = repeat(theCount, [](int i) { return ",a" + number(i); });
        valid("<!DOCTYPE r [<!ELEMENT q (z" + sequence + ")><!ELEMENT r EMPTY>]><r/>");
        const std::string backwards =
            repeat(theCount, [](int i) { return "|a" + number(theCount - 1 - i); });
        const std::string forwards = repeat(theCount, [](int i) { return "|a" + number(i); });
        // Names in the order in which they were made and in the opposite one.
        valid("<!DOCTYPE r [<!ELEMENT q (z" + forwards + ")><!ELEMENT p (z" + backwards +
              ")><!ELEMENT r (#PCDATA" + backwards + ")*>]><r/>");
        valid("<!DOCTYPE r [<!ELEMENT r EMPTY><!ATTLIST r x (z" + backwards + ") 'z'>]><r/>");
        // Attributes in the opposite order of their declaration.
        valid("<!DOCTYPE r [<!ELEMENT r EMPTY><!ATTLIST r" +
              repeat(theCount, [](int i) { return " a" + number(i) + " CDATA #REQUIRED"; }) +
              ">]><r" +
              repeat(theCount, [](int i) { return " a" + number(theCount - 1 - i) + "=''"; }) +
              "/>");
        // Each entity holds the one before.
        const std::string chain = repeat(theCount, [](int i) {
            return "<!ENTITY e" + number(i + 1) + " '&e" + number(i) + ";'>";
        });
        valid("<!DOCTYPE r [<!ELEMENT r EMPTY><!ENTITY e0 'x'>" + chain +
              "<!ATTLIST r x CDATA '&e" + number(theCount) + ";'>]><r/>");
        valid(
            "<!DOCTYPE r [<!ELEMENT r EMPTY><!ATTLIST r i ID #IMPLIED j IDREFS #IMPLIED>]>"
            "<r i='a' j='" +
            repeat(theCount, [](int) { return "a "; }) + "'/>");
    });
}

// 11 KB may grow to 8 MiB by their entities. What the parser makes of that must not be many times
// larger again: each of these once took 140 to 900 MB, a string or more for each word.
TEST(XmlLimits, smallDocumentsStaySmall) {
    constexpr std::ptrdiff_t theMostBytes = 110'000'000;
    constexpr int theLength = 8000;
    const auto filled = [](const std::string& theUnit) {
        return repeat(theLength / static_cast<int>(theUnit.size()), [&](int) { return theUnit; });
    };
    // References of 8 KB each, as many as are allowed, and half of them, to be counted twice.
    const std::string all = repeat(1040, [](int) { return "&e;"; });
    const std::string half = repeat(523, [](int) { return "%q;"; });
    const auto document = [](const std::string& theDtd, const std::string& theRoot) {
        return "<!DOCTYPE r [<!ELEMENT r ANY>" + theDtd + "]>" + theRoot;
    };
    // An attribute of theType in the root.
    const auto value = [&](const std::string& theType, const std::string& theUnit,
                           const std::string& theDtd) {
        return document(theDtd + "<!ENTITY e '" + filled(theUnit) + "'><!ATTLIST r x " + theType +
                            " #IMPLIED i ID #IMPLIED>",
                        "<r i='a' x='" + all + "'/>");
    };
    // A declaration with theUnit in it as often as may be.
    const auto declaration = [&](const std::string& theHead, const std::string& theUnit,
                                 const std::string& theTail) {
        return document("<!ENTITY % q \"" + filled(theUnit) + "\"><!ENTITY % d \"" + theHead +
                            half + theTail + "\">%d;",
                        "<r/>");
    };
    // Any number of declarations of theUnit.
    const auto declarations = [&](const std::string& theUnit) {
        return document(
            "<!ENTITY % e \"" + filled(theUnit) + "\">" + repeat(1040, [](int) { return "%e;"; }),
            "<r/>");
    };
    const std::string unparsed = "<!NOTATION n SYSTEM 'n'><!ENTITY a SYSTEM 'a' NDATA n>";
    const struct {
        const char* name;
        std::string document;
    } cases[] = {
        {"NMTOKENS", value("NMTOKENS", "a ", "")},
        {"IDREFS", value("IDREFS", "a ", "")},
        {"ENTITIES", value("ENTITIES", "a ", unparsed)},
        {"references in a value", value("CDATA", "&n;", "<!ENTITY n ''>")},
        {"references in content",
         document("<!ENTITY n ''><!ENTITY e 'x" + filled("&n;") + "'>", "<r>" + all + "</r>")},
        {"entities", declarations("<!ENTITY a ''>")},
        {"instructions", declarations("<?a b?>")},
        {"definitions", declaration("<!ATTLIST m ", "a CDATA '' ", ">")},
        {"tokens", declaration("<!ATTLIST m a (a", "|a", ") #IMPLIED>")},
        {"mixed", declaration("<!ELEMENT m (#PCDATA", "|a", ")*>")},
        {"states", declaration("<!ELEMENT m (a", ",a", ")>")},
    };
    for (const auto& [name, text] : cases) {
        ASSERT_LE(text.size(), 13000U);
        const std::ptrdiff_t before = test::bytesInUse();
        test::startPeak();
        const Outcome outcome = check(text);
        EXPECT_LE(test::mostBytesInUse() - before, theMostBytes) << name;
        EXPECT_EQ(std::string(name) == "states" ? "content model too large" : "", outcome.message)
            << name;
    }
}

// A DTD is only read once it is made.
TEST(XmlLimits, threadsShareADtd) {
    const CpsString text(
        "<!ELEMENT r (a, (b | c)*)><!ELEMENT a EMPTY><!ELEMENT b (#PCDATA)><!ELEMENT c ANY>"
        "<!ENTITY t '1&#38;lt;2'><!ENTITY x SYSTEM 'x'>"
        "<!ATTLIST a i ID #REQUIRED v (v1 | v2) 'v1' j IDREF #IMPLIED f CDATA #FIXED '&t;'>");
    EventPrinter silent(nullptr);
    XpDtd dtd;
    XpDtdParser(&text, &dtd, nullptr).parseDtd();
    dtd.setElementActors(silent.getDtdActors().element);
    dtd.setPcDataActor(silent.getDtdActors().pcData);
    const XpDtd& shared = dtd;
    std::vector<std::string> messages(8);
    std::vector<std::thread> threads;
    for (std::string& message : messages) {
        threads.emplace_back([&shared, &message] {
            for (int i = 0; i < 100; ++i) {
                const CpsString document(
                    i % 2 == 0
                        ? "<r><a i='n' v='v2' j='n' f='1&lt;2'/><b>&t;</b><c>&x;<r/></c></r>"
                        : "<!DOCTYPE r [<!ELEMENT n EMPTY>]><r><a i='n'/><c>&t;<n/></c></r>");
                XpParser parser(&document, nullptr, nullptr, nullptr);
                try {
                    parser.parseProlog();
                    parser.setDtd(&shared, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
                    parser.parseDocument();
                } catch (const XpParserError& error) {
                    message += error.toString().view();
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    // <r/> in <c> is empty: a fault of every other document.
    EXPECT_EQ(50 * std::string("element must not be empty").size(), messages[0].size());
    EXPECT_EQ(8, std::count(messages.begin(), messages.end(), messages[0]));
}

void expectSane(const std::string& theDocument) {
    const Outcome outcome = check(theDocument);
    EXPECT_EQ(outcome, check(theDocument)) << theDocument;
    const auto lines = std::count(theDocument.begin(), theDocument.end(), '\n');
    EXPECT_LE(outcome.line, lines + 1) << theDocument;
}

TEST(XmlLimits, cutAndDamagedAtEveryByte) {
    const std::string sample(theSample);
    ASSERT_EQ("", check(sample).message);
    for (std::size_t i = 0; i < sample.size(); ++i) {
        expectSane(sample.substr(0, i));
        for (const char byte : {'\0', '<', '>', '&', '"', ']', ' ', '\xFF'}) {
            std::string damaged = sample;
            damaged[i] = byte;
            expectSane(damaged);
        }
    }
}

TEST(XmlLimits, everyAllocationMayFail) {
    const CpsString document{std::string_view(theSample)};
    long failures = 0;
    for (bool isDone = false; !isDone; ++failures) {
        DocumentChecker checker(nullptr);
        try {
            test::failAllocation(failures + 1);
            const auto fault = checker.check(document, nullptr);
            isDone = !fault;
            test::endFailures();
            EXPECT_TRUE(isDone) << fault->message.view();
        } catch (const std::bad_alloc&) {
            test::endFailures();
        }
    }
    EXPECT_GT(failures, 100);
}

std::string utf8(unsigned theCode) {
    const auto byte = [](unsigned theByte) { return std::string(1, static_cast<char>(theByte)); };
    if (theCode < 0x80) {
        return byte(theCode);
    }
    const std::string tail = byte(0x80 | (theCode & 0x3F));
    return theCode < 0x800
               ? byte(0xC0 | (theCode >> 6)) + tail
               : byte(0xE0 | (theCode >> 12)) + byte(0x80 | ((theCode >> 6) & 0x3F)) + tail;
}

// XML 1.0 (first edition), Appendix B, has 34514 letters (with those of ASCII), to which "_" and
// ":" come, and 604 digits, combining characters and extenders, with "." and "-" 606. A change in
// any row of the scanner's table shows here.
TEST(XmlLimits, asManyNameCharactersAsTheStandardHas) {
    int starts = 0;
    int characters = 0;
    for (unsigned code = 1; code < 0x10000; ++code) {
        starts += check("<" + utf8(code) + "b/>").message.empty();
        characters += check("<a" + utf8(code) + "b/>").message.empty();
    }
    EXPECT_EQ(34514 + 2, starts);
    EXPECT_EQ(34516 + 606, characters);
}

}  // namespace
}  // namespace lumnis
