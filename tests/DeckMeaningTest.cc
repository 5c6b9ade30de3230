// The example decks after the way to WBXML and back: the same elements, attributes, texts and
// variables, read by the XML parser alone on both sides. What the standards leave to the encoder is
// brought to one form: attributes at their defaults, white space, the ways to write a variable.
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "DumpPrinter.h"
#include "DumpReader.h"
#include "WmlDirector.h"
#include "WmlDtdTexts.h"
#include "XaProducer.h"
#include "XpDtdParser.h"
#include "XpParser.h"

namespace lumnis {
namespace {

namespace fs = std::filesystem;

// Attributes in which a variable without conversion is escaped (WML 1.3, 10.3.1: URIs).
bool isUri(const std::string& theAttribute) {
    return theAttribute == "href" || theAttribute == "src" || theAttribute == "ontimer" ||
           theAttribute == "onpick" || theAttribute.starts_with("onenter");
}

bool isNameChar(char theCharacter) {
    return std::isalnum(static_cast<unsigned char>(theCharacter)) != 0 || theCharacter == '_';
}

std::string collapseSpace(const std::string& theText) {
    std::string result;
    for (const char c : theText) {
        const bool isSpace = c == ' ' || c == '\n' || c == '\t' || c == '\r';
        if (!isSpace || result.empty() || result.back() != ' ') {
            result += isSpace ? ' ' : c;
        }
    }
    return result;
}

// Each reference as $(NAME:e), $(NAME:u) or $(NAME:n).
std::string normalizeVariables(const std::string& theText, char theDefault) {
    std::string result;
    for (std::size_t i = 0; i < theText.size(); ++i) {
        result += theText[i];
        if (theText[i] != '$') {
            continue;
        }
        if (theText[i + 1] == '$') {
            result += theText[++i];
            continue;
        }
        const bool isBracketed = theText[++i] == '(';
        i += isBracketed ? 1 : 0;
        std::string name;
        for (; i < theText.size() && isNameChar(theText[i]); ++i) {
            name += theText[i];
        }
        char conversion = theDefault;
        if (isBracketed && theText[i] == ':') {
            conversion = theText[i + 1];
            i = theText.find(')', i);
        }
        result += "(" + name + ":" + conversion + ")";
        i -= isBracketed ? 0 : 1;
    }
    return result;
}

// What a deck says, a line for each tag and text.
class MeaningCollector final : public XpDtd::ElementActor, public XpDtd::PcDataActor {
  public:
    void begin(const XpDtd::Element* theElement, const XpDtd::AttributeMap& theAttributes, int,
               void*) override {
        flush();
        std::map<std::string, std::string> attributes;
        for (const auto& [attribute, value] : theAttributes) {
            const std::string name(attribute->getName().view());
            if (attribute->getDefault() == nullptr || *value != *attribute->getDefault()) {
                attributes[name] = normalizeVariables(
                    collapseSpace(std::string(value->toString().view())), isUri(name) ? 'e' : 'n');
            }
        }
        std::string tag = "<" + std::string(theElement->getName().view());
        if (tag == "<meta") {
            // For the transport; the others are for the user agent.
            isHiddenM = attributes.count("http-equiv") != 0;
            attributes["forua"] = "true";
        }
        for (const auto& [name, value] : attributes) {
            tag += " " + name + "=\"" + value + "\"";
        }
        if (!isHiddenM) {
            linesM.push_back(tag + ">");
        }
    }
    void end(const XpDtd::Element* theElement, void*) override {
        flush();
        if (theElement->getName() == "head" && linesM.back() == "<head>") {
            linesM.pop_back();  // it was all for the transport
        } else if (!isHiddenM) {
            linesM.push_back("</" + std::string(theElement->getName().view()) + ">");
        }
        isHiddenM = false;
    }
    void operator()(const CpsString& theText, void*) override { textM += theText.view(); }

    const std::vector<std::string>& getLines() const { return linesM; }

  private:
    void flush() {
        if (!textM.empty()) {
            linesM.push_back(normalizeVariables(collapseSpace(textM), 'n'));
            textM.clear();
        }
    }

    std::vector<std::string> linesM;
    std::string textM;
    bool isHiddenM = false;
};

std::string_view dtdTextOf(std::string_view thePublicId) {
    return thePublicId.find("WML 1.1") != std::string_view::npos   ? theWml11DtdText
           : thePublicId.find("WTA-WML") != std::string_view::npos ? theWtaWml12DtdText
           : thePublicId.find("WML 1.2") != std::string_view::npos ? theWml12DtdText
                                                                   : theWml13DtdText;
}

std::vector<std::string> meaningOf(const std::string& theDeck) {
    MeaningCollector collector;
    const CpsString document{std::string_view(theDeck)};
    XpParser parser(&document, nullptr, nullptr, nullptr);
    parser.parseProlog();
    const CpsString text(dtdTextOf(parser.getPublicIdentifier()));
    XpDtd dtd;
    XpDtdParser(&text, &dtd, nullptr).parseDtd();
    dtd.setElementActors(&collector);
    dtd.setPcDataActor(&collector);
    parser.setDtd(&dtd, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    parser.parseDocument();
    return collector.getLines();
}

std::string decode(const std::string& theDeck, int theMediaType) {
    WmlDirector::init();
    CpsString output;
    int outputMediaType = 0;
    XaProducer::instance().process(CpsString(std::string_view(theDeck)), theMediaType,
                                   theUtf8Charset, &outputMediaType, output);
    const DumpListing listing = readDump(std::string(output.view()), std::nullopt);
    EXPECT_FALSE(listing.fault);
    // Its meta data is not in the file, and a head without any is in no DTD.
    return std::regex_replace(printDumpXml(listing), std::regex("<head>\\s*</head>"), "");
}

std::map<std::string, std::string> exampleDecks() {
    std::map<std::string, std::string> decks;
    for (const auto& entry : fs::directory_iterator(LUMNIS_TREE "/examples/decks")) {
        std::ostringstream content;
        content << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        decks[entry.path().filename().string()] = content.str();
    }
    return decks;
}

TEST(DeckMeaning, OfEveryExampleIsKept) {
    const std::map<std::string, std::string> decks = exampleDecks();
    EXPECT_GE(decks.size(), 8u);
    for (const auto& [name, deck] : decks) {
        SCOPED_TRACE(name);
        const bool isWta = deck.find("<wta-wml>") != std::string::npos;
        const std::vector<std::string> expected = meaningOf(deck);
        EXPECT_GT(expected.size(), 40u);
        EXPECT_EQ(meaningOf(decode(deck, isWta ? WmlDirector::theWtaWmlMediaType
                                               : WmlDirector::theWmlMediaType)),
                  expected);
    }
}

// The collector itself, on what it brings to one form.
TEST(DeckMeaning, IsThatOfTheStandard) {
    const std::string doctype = "<!DOCTYPE wml PUBLIC \"-//WAPFORUM//DTD WML 1.3//EN\" \"\">";
    const std::vector<std::string> expected = {"<wml>",
                                               "<head>",
                                               "<meta content=\"b\" forua=\"true\" name=\"a\">",
                                               "</meta>",
                                               "</head>",
                                               "<card title=\"x $(t:n)\">",
                                               "<p>",
                                               "a $$ $(v:n)b $(w:u)",
                                               "<a href=\"#$(v:e)\">",
                                               "c",
                                               "</a>",
                                               "</p>",
                                               "</card>",
                                               "</wml>"};
    const std::string deck =
        doctype +
        "<wml><head><meta http-equiv=\"e\" content=\"0\"/><meta name=\"a\" content=\"b\"/></head>"
        "<card title=\"x \n$t\" ordered=\"true\"><p align=\"left\">a  $$ $(v:n)b $(w:unesc)"
        "<a href=\"#$v\">c</a></p></card></wml>";
    EXPECT_EQ(meaningOf(deck), expected);
    EXPECT_EQ(meaningOf(decode(deck, WmlDirector::theWmlMediaType)), expected);
}

}  // namespace
}  // namespace lumnis
