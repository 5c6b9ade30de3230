// Decks and the WBXML or the message that comes of them: tests/cases/wml.
//
// Sections of a case:
//     -- options WORD...   type=1.1, 1.2, 1.3 or wta: a DOCTYPE of that type is put in front of the
//                          source, on its first line
//                          media=-6, charset=NAME: through XaProducer, from UTF-8; without these
//                          two through WMLEncode, from ISO-8859-1
//     -- bytes             the whole result
//     -- meta              lines of the transport meta data, NAME: CONTENT
//     -- error line N      the message, with C escapes
//     -- refused           a message without line
#include <gtest/gtest.h>
#include <lumnisutil.h>

#include <cstdlib>
#include <list>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "CaseFile.h"
#include "HedCharsetMap.h"
#include "WmlDeckActors.h"
#include "WmlDirector.h"
#include "WmlDtdTexts.h"
#include "WmlTaskActors.h"
#include "XaProducer.h"

namespace lumnis {

namespace {

using test::Case;
using test::CaseSection;

struct Options {
    std::string doctype;
    int mediaType = WmlDirector::theWmlMediaType;
    HedCharsetId charset = theUtf8Charset;
    bool isForProducer = false;
};

std::string makeDoctype(const std::string& theType) {
    const std::string root = theType == "wta" ? "wta-wml" : "wml";
    const std::string name = theType == "wta" ? "WTA-WML 1.2" : "WML " + theType;
    return "<!DOCTYPE " + root + " PUBLIC \"-//WAPFORUM//DTD " + name + "//EN\" \"x.dtd\">";
}

Options readOptions(const Case& theCase) {
    Options options;
    const CaseSection* section = theCase.section("options");
    std::istringstream words(section == nullptr ? "" : section->arguments);
    for (std::string word; words >> word;) {
        const std::string value = word.substr(word.find('=') + 1);
        if (word.rfind("type=", 0) == 0) {
            options.doctype = makeDoctype(value);
            continue;
        }
        options.isForProducer = true;
        if (word.rfind("media=", 0) == 0) {
            options.mediaType = std::stoi(value);
        } else if (word.rfind("charset=", 0) == 0) {
            options.charset = HedCharsetMap::instance().getNumber(value);
        } else {
            ADD_FAILURE() << "unknown option " << word;
        }
    }
    options.isForProducer = options.isForProducer || theCase.section("meta") != nullptr;
    return options;
}

struct Outcome {
    std::string bytes;
    std::string message;  // as WMLEncode gives it
    std::vector<std::string> metaData;
};

// theLine is "line N".
std::string frame(const std::string& theMessage, const std::string& theLine) {
    return theMessage + "  (before or at line: " + theLine.substr(theLine.find(' ') + 1) + ")\n";
}

Outcome runExport(const std::string& theSource) {
    Outcome outcome;
    char* result = nullptr;
    char* error = nullptr;
    unsigned short length = 0;
    const int status =
        WMLEncode(theSource.data(), static_cast<int>(theSource.size()), &result, &length, &error);
    if (status == 0) {
        outcome.bytes.assign(result, length);
    } else {
        outcome.message = error == nullptr ? "no message" : error;
    }
    std::free(result);
    return outcome;
}

Outcome runProducer(const std::string& theSource, const Options& theOptions) {
    Outcome outcome;
    CpsString output;
    int mediaType = 0;
    try {
        const auto run = XaProducer::instance().process(CpsString(std::string_view(theSource)),
                                                        theOptions.mediaType, theOptions.charset,
                                                        &mediaType, output);
        for (const XaMetaData& each : run->getMetaDataList()) {
            EXPECT_TRUE(each.isMetaDataForward());
            outcome.metaData.push_back(
                std::string((each.getHttpEquiv() + ": " + each.getContent()).view()));
        }
        const bool isWta = theOptions.mediaType == WmlDirector::theWtaWmlMediaType;
        EXPECT_EQ(mediaType,
                  isWta ? WmlDirector::theWtaWmlcMediaType : WmlDirector::theWmlcMediaType);
    } catch (const XpParserError& error) {
        outcome.message =
            frame(std::string(error.toString().view()), "line " + std::to_string(error.getLine()));
    } catch (const XpException& error) {
        outcome.message = error.toString().view();
    }
    outcome.bytes = output.view();
    return outcome;
}

class WmlCases : public testing::TestWithParam<Case> {};

TEST_P(WmlCases, deckGivesBytesOrMessage) {
    WmlDirector::init();
    const Case& testCase = GetParam();
    const Options options = readOptions(testCase);
    const std::string source = options.doctype + testCase.source;
    const Outcome outcome =
        options.isForProducer ? runProducer(source, options) : runExport(source);

    const CaseSection* bytes = testCase.section("bytes");
    const CaseSection* error = testCase.section("error");
    const CaseSection* refused = testCase.section("refused");
    ASSERT_EQ((bytes != nullptr) + (error != nullptr) + (refused != nullptr), 1);
    std::string message;
    if (error != nullptr) {
        message = frame(test::parseEscaped(error->lines), error->arguments);
    } else if (refused != nullptr) {
        message = test::parseEscaped(refused->lines);
    }
    EXPECT_EQ(message, outcome.message);
    if (bytes != nullptr) {
        EXPECT_EQ(test::hexDump(test::parseBytes(bytes->lines)), test::hexDump(outcome.bytes));
    }
    if (const CaseSection* meta = testCase.section("meta")) {
        EXPECT_EQ(meta->lines, outcome.metaData);
    }
}

// Every case by the call that it asks for, with the result as one text.
std::vector<std::string> runAll(const std::vector<Case>& theCases) {
    std::vector<std::string> results;
    for (const Case& each : theCases) {
        const Options options = readOptions(each);
        const std::string source = options.doctype + each.source;
        const Outcome outcome =
            options.isForProducer ? runProducer(source, options) : runExport(source);
        results.push_back(outcome.bytes + "\n" + outcome.message);
    }
    return results;
}

// Registered in front of the cases, so that the threads meet where the director is made.
TEST(WmlThreads, GetWhatOneThreadGets) {
    constexpr std::size_t theThreads = 8;
    const std::vector<Case> cases = test::readCases("wml");
    std::vector<std::vector<std::string>> found(theThreads);
    std::vector<std::thread> threads;
    for (std::vector<std::string>& mine : found) {
        threads.emplace_back([&mine, &cases] {
            WmlDirector::init();
            mine = runAll(cases);
        });
    }
    for (std::thread& each : threads) {
        each.join();
    }
    const std::vector<std::string> expected = runAll(cases);
    for (const std::vector<std::string>& each : found) {
        EXPECT_EQ(expected, each);
    }
}

// The setting is off in the library; an actor that has it on shows what it does. The message of
// theDeck and its line, or nothing.
std::string validateNames(const std::string& theDeck) {
    XpDtd dtd;
    XaDirector::setupDtd(theWml13DtdText, dtd);
    DoTagActor doActor({dtd, dtd.obtainElement("do"), 3}, true);
    CardTagActor cardActor({dtd, dtd.obtainElement("card"), 3});
    TemplateTagActor templateActor({dtd, dtd.obtainElement("template"), 3});
    dtd.obtainElement("do").setActor(&doActor);
    dtd.obtainElement("card").setActor(&cardActor);
    dtd.obtainElement("template").setActor(&templateActor);
    std::list<XaMetaData> metaData;
    WmlCtrl ctrl(theUtf8Charset, metaData);
    const CpsString document("<wml>" + theDeck + "</wml>");
    XpParser parser(&document, nullptr, nullptr, nullptr);
    parser.parseProlog();
    parser.setDtd(&dtd, static_cast<XaWbxmlCtrl*>(&ctrl), nullptr, nullptr, nullptr, nullptr,
                  nullptr);
    try {
        parser.parseDocument();
    } catch (const XpParserError& error) {
        return std::to_string(error.getLine()) + ": " + std::string(error.toString().view());
    }
    return "";
}

TEST(DoTagActor, RefusesASecondNameWithValidation) {
    const std::string help = "\n<do type='help'><noop/></do>";
    const std::string named = "\n<do type='help' name='n'><noop/></do>";
    const std::string upper = "\n<do type='help' name='N'><noop/></do>";
    const std::string likeHelp = "\n<do type='prev' name='help'><noop/></do>";
    const std::string typeN = "\n<do type='n'><noop/></do>";
    const auto card = [](const std::string& theContent) {
        return "<card>" + theContent + "</card>";
    };
    const auto deckTemplate = [](const std::string& theContent) {
        return "<template>" + theContent + "</template>";
    };
    const std::string text = ": error: duplicate declaration of do element with same name: ";
    const struct {
        std::string deck;
        std::string message;
    } cases[] = {
        {card(help + help), "3" + text + "help"},
        {card(named + named), "3" + text + "n"},
        // A type stands in for the name that is missing, and for no other.
        {card(typeN + named), "3" + text + "n"},
        {card(named + typeN), "3" + text + "n"},
        {card(likeHelp + help), "3" + text + "help"},
        {card(help + named), ""},
        {card(named + upper), ""},
        // Wherever in the card the second one stands.
        {card(help + named + "<p>" + help + "</p>"), "4" + text + "help"},
        {card("<p><fieldset>" + named + "</fieldset></p><p>" + named + "</p>"), "3" + text + "n"},
        // A card may have the name that another card has, or the template: it takes its place.
        {card(help) + card(help), ""},
        {deckTemplate(help + named) + card(help + named), ""},
        {deckTemplate(help) + card(help + help), "4" + text + "help"},
        {deckTemplate(named + named) + card(""), "3" + text + "n"},
        {card(help) + card(named + named), "4" + text + "n"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(validateNames(each.deck), each.message) << each.deck;
    }
}

// All elements in one deck, cut behind every byte: a message with a line, and then the whole deck
// as before.
TEST(WmlDecks, CutAnywhereAreRefused) {
    WmlDirector::init();
    const std::string deck =
        makeDoctype("1.3") +
        "<wml><head><meta name='a' content='b'/></head><template><do type='prev'><prev/></do>"
        "</template><card title='$(t)&nbsp;'><timer value='1'/><p>a<b>c<![CDATA[d]]></b><select>"
        "<optgroup><option>e</option></optgroup></select><input name='f'/><fieldset><anchor>g"
        "<go href='http://h'><postfield name='i' value='$j'/></go></anchor></fieldset><table "
        "columns='1'><tr><td><img alt='' src='k'/></td></tr></table></p><?l m?><!-- n --><pre "
        "xml:space='preserve'>o</pre></card></wml>";
    const Outcome whole = runExport(deck);
    EXPECT_NE("", whole.bytes) << whole.message;
    for (std::size_t length = 1; length < deck.size(); ++length) {
        const Outcome cut = runExport(deck.substr(0, length));
        EXPECT_EQ("", cut.bytes) << length;
        EXPECT_NE(std::string::npos, cut.message.find("(before or at line: 1)")) << length;
    }
    EXPECT_EQ(whole.bytes, runExport(deck).bytes);
}

INSTANTIATE_TEST_SUITE_P(all, WmlCases, testing::ValuesIn(test::readCases("wml")),
                         [](const testing::TestParamInfo<Case>& theInfo) {
                             return test::parameterName(theInfo.param);
                         });

}  // namespace
}  // namespace lumnis
