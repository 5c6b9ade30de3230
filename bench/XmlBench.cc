// WML decks through the XML parser, validated, with actors that do nothing: time against libxml2
// (parse to a tree and validate) and expat (well-formedness alone), in one run and in turns; the
// cost per byte as decks grow; and the DTD itself from its text.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

#include "DeckDocuments.h"
#include "RatioReporter.h"
#include "WmlDtd.h"
#include "XmlPeers.h"
#include "XpDtdParser.h"
#include "XpParser.h"

namespace lumnis::bench {
namespace {

std::vector<std::string> theNames;

class EmptyElementActor final : public XpDtd::ElementActor {
  public:
    void begin(const XpDtd::Element*, const XpDtd::AttributeMap&, int, void*) override {}
};

class EmptyTextActor final : public XpDtd::PcDataActor {
  public:
    void operator()(const CpsString&, void*) override {}
};

const XpDtd& sharedDtd() {
    static EmptyElementActor elementActor;
    static EmptyTextActor textActor;
    static XpDtd dtd;
    static const bool isReady = [] {
        const CpsString text(theWmlDtd);
        XpDtdParser(&text, &dtd, nullptr).parseDtd();
        dtd.setElementActors(&elementActor);
        dtd.setPcDataActor(&textActor);
        return true;
    }();
    static_cast<void>(isReady);
    return dtd;
}

void parseWithOurs(const std::string& theDeck) {
    const CpsString document{std::string_view(theDeck)};
    try {
        XpParser parser(&document, nullptr, nullptr, nullptr);
        parser.parseProlog();
        parser.setDtd(&sharedDtd(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
        parser.parseDocument();
    } catch (const XpParserError& error) {
        refuse("ours", error.what());
    }
}

void registerCase(const std::string& theGroup, const std::string& theName,
                  const std::string& theText, void (*theParse)(const std::string&)) {
    theNames.push_back(theGroup + "/" + theName);
    benchmark::RegisterBenchmark(
        theNames.back().c_str(), [theText, theParse](benchmark::State& theState) {
            for ([[maybe_unused]] auto _ : theState) {
                theParse(theText);
            }
            theState.SetBytesProcessed(static_cast<std::int64_t>(theText.size()) *
                                       static_cast<std::int64_t>(theState.iterations()));
        });
}

void registerAll() {
    struct Size {
        const char* name;
        std::size_t bytes;
    };
    for (const Size& size :
         {Size{"2 KB", 2000}, Size{"14 KB", 14000}, Size{"88 KB", 88000}, Size{"2 MB", 2000000}}) {
        const std::string group = std::string("decks of ") + size.name;
        const std::string deck = makeDeck(size.bytes);
        registerCase(group, "lumnis", deck, parseWithOurs);
        registerCase(group, "libxml2", deck, validateWithLibxml2);
        registerCase(group, "expat", deck, readWithExpat);
    }
    registerCase("DTD of WML 1.3", "lumnis", theWmlDtd, [](const std::string& theText) {
        const CpsString text{std::string_view(theText)};
        XpDtd dtd;
        XpDtdParser(&text, &dtd, nullptr).parseDtd();
    });
    registerCase("DTD of WML 1.3", "libxml2", theWmlDtd, readDtdWithLibxml2);
}

}  // namespace
}  // namespace lumnis::bench

int main(int argc, char** argv) {
    lumnis::bench::registerAll();
    return lumnis::bench::runWithRatios(lumnis::bench::theNames, argc, argv);
}
