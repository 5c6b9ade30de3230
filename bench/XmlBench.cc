// WML decks through the XML parser, validated, with actors that do nothing: time against libxml2
// (parse to a tree and validate) and expat (well-formedness alone), in one run and in turns; the
// cost per byte as decks grow; and the DTD itself from its text.
#include <benchmark/benchmark.h>
#include <expat.h>
#include <libxml/parser.h>
#include <libxml/valid.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "RatioReporter.h"
#include "WmlDtd.h"
#include "XpDtdParser.h"
#include "XpParser.h"

namespace lumnis::bench {
namespace {

std::vector<std::string> theNames;

// A deck of cards with text, links, forms and tables until theSize bytes are reached.
std::string makeDeck(std::size_t theSize) {
    std::string deck =
        "<?xml version=\"1.0\"?>\n"
        "<!DOCTYPE wml PUBLIC \"-//WAPFORUM//DTD WML 1.3//EN\" "
        "\"http://www.wapforum.org/DTD/wml13.dtd\">\n"
        "<wml>\n  <head><meta name=\"generator\" content=\"bench\"/></head>\n";
    for (int i = 0; deck.size() < theSize; ++i) {
        const std::string n = std::to_string(i);
        deck += "  <card id=\"c" + n + "\" title=\"Card " + n +
                "\">\n"
                "    <onevent type=\"onenterforward\"><refresh><setvar name=\"v" +
                n + "\" value=\"$(w" + n +
                ")\"/></refresh></onevent>\n"
                "    <do type=\"accept\" label=\"Next\"><go href=\"#c" +
                n +
                "\" method=\"post\"><postfield name=\"q\" value=\"a&amp;b\"/></go></do>\n"
                "    <p align=\"center\">News of the <b>day</b>, &#169; and <i>more</i> text "
                "that goes on for a while, as text does in a deck.<br/>\n"
                "      <a href=\"http://www.example.com/" +
                n +
                "\">A link</a> <img src=\"i.wbmp\" alt=\"An image\"/><br/>\n"
                "      <select name=\"s\"><option value=\"1\">One</option>"
                "<option value=\"2\">Two</option></select>\n"
                "      <input name=\"i" +
                n +
                "\" type=\"text\" maxlength=\"20\"/>\n"
                "      <table columns=\"2\"><tr><td>left</td><td>right</td></tr></table>\n"
                "    </p>\n  </card>\n";
    }
    return deck + "</wml>\n";
}

[[noreturn]] void refuse(const char* theWho, const char* theWhat) {
    std::fprintf(stderr, "%s refuses the input: %s\n", theWho, theWhat);
    std::exit(1);
}

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

xmlDtdPtr parseDtdWithLibxml2() {
    const int length = static_cast<int>(std::string_view(theWmlDtd).size());
    xmlParserInputBufferPtr input =
        xmlParserInputBufferCreateMem(theWmlDtd, length, XML_CHAR_ENCODING_UTF8);
    xmlDtdPtr dtd = xmlIOParseDTD(nullptr, input, XML_CHAR_ENCODING_UTF8);
    if (dtd == nullptr) {
        refuse("libxml2", "the DTD");
    }
    return dtd;
}

void parseWithLibxml2(const std::string& theDeck) {
    static const xmlDtdPtr theDtd = parseDtdWithLibxml2();
    xmlDocPtr document = xmlReadMemory(theDeck.data(), static_cast<int>(theDeck.size()), nullptr,
                                       nullptr, XML_PARSE_NONET);
    xmlValidCtxtPtr context = xmlNewValidCtxt();
    if (document == nullptr || xmlValidateDtd(context, document, theDtd) != 1) {
        refuse("libxml2", "the deck");
    }
    xmlFreeValidCtxt(context);
    xmlFreeDoc(document);
}

void parseWithExpat(const std::string& theDeck) {
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetElementHandler(
        parser, [](void*, const XML_Char*, const XML_Char**) {}, [](void*, const XML_Char*) {});
    XML_SetCharacterDataHandler(parser, [](void*, const XML_Char*, int) {});
    if (XML_Parse(parser, theDeck.data(), static_cast<int>(theDeck.size()), 1) != XML_STATUS_OK) {
        refuse("expat", XML_ErrorString(XML_GetErrorCode(parser)));
    }
    XML_ParserFree(parser);
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
        registerCase(group, "libxml2", deck, parseWithLibxml2);
        registerCase(group, "expat", deck, parseWithExpat);
    }
    registerCase("DTD of WML 1.3", "lumnis", theWmlDtd, [](const std::string& theText) {
        const CpsString text{std::string_view(theText)};
        XpDtd dtd;
        XpDtdParser(&text, &dtd, nullptr).parseDtd();
    });
    registerCase("DTD of WML 1.3", "libxml2", theWmlDtd,
                 [](const std::string&) { xmlFreeDtd(parseDtdWithLibxml2()); });
}

}  // namespace
}  // namespace lumnis::bench

int main(int argc, char** argv) {
    lumnis::bench::registerAll();
    return lumnis::bench::runWithRatios(lumnis::bench::theNames, argc, argv);
}
