// Runs tests/cases/xa: a document and the WBXML that comes of it through XaProducer.
//
// Sections of a case:
//     -- options WORD...   media=N: media type of the document, 40 (text/xml) if left out
//                          charset=NAME: of the result, utf-8 if left out
//     -- bytes             the whole result
//     -- doctype TEXT      what the run returns as document type
//     -- error line N      the message of the parser
//     -- refused           the text of another exception, which has no line
//
// Media type 1000 is that of the director below, with the tables that tokens.txt tells; 1001 is
// the same with a DTD and an actor of its own.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "CaseFile.h"
#include "HedCharsetMap.h"
#include "XaDirector.h"
#include "XaProducer.h"
#include "XaWbxmlDirector.h"
#include "XaWbxmlTokenizer.h"

namespace lumnis {

namespace {

using test::Case;
using test::CaseSection;

constexpr int theTextXml = 40;
constexpr int theApplicationWbxml = 41;
constexpr int theTableMediaType = 1000;
constexpr int theDtdMediaType = 1001;

constexpr const char* theDtdText = R"(
<!ELEMENT r (e*)> <!ELEMENT e EMPTY>
<!ATTLIST e n NMTOKEN "dflt" m NMTOKEN #IMPLIED v (x|y|z) "x" w (x|y) #IMPLIED p CDATA #IMPLIED>
)";

// Of the element e of the DTD. p stands for an attribute of page 1.
class ElementActor final : public XaWbxmlActor {
  public:
    explicit ElementActor(const XpDtd& theDtd) : ElementActor(theDtd, theDtd.obtainElement("e")) {}

    void begin(const XpDtd::Element*, const XpDtd::AttributeMap& theAttributes, int,
               void* theContext) override {
        XaWbxmlCtrl& ctrl = XaWbxmlCtrl::contextOf(theContext);
        ctrl.addToOutput(0x06);
        if (theAttributes.empty()) {
            return;
        }
        ctrl.popLastOutputByte();
        ctrl.addToOutput(0x86);
        if (theAttributes.find(pM) != nullptr) {
            ctrl.switchAttrPage(1);
        }
        tokenizeNmToken(0x21, nM, theAttributes, ctrl);
        tokenizeNmToken(0x22, mM, theAttributes, ctrl);
        tokenizeEnum(vTokensM, vM, theAttributes, ctrl);
        tokenizeEnum(wTokensM, wM, theAttributes, ctrl);
        ctrl.addToOutput(XaWbxmlToken::END);
    }
    void end(const XpDtd::Element*, void*) override {}

  private:
    ElementActor(const XpDtd& theDtd, const XpDtd::Element& theElement)
        : nM(&theElement.getAttribute("n")),
          mM(&theElement.getAttribute("m")),
          vM(&theElement.getAttribute("v")),
          wM(&theElement.getAttribute("w")),
          pM(&theElement.getAttribute("p")),
          vTokensM{{&theDtd.obtainEnum("x"), 0x31},
                   {&theDtd.obtainEnum("y"), 0x32},
                   {&theDtd.obtainEnum("z"), 0x33}},
          wTokensM{{&theDtd.obtainEnum("x"), 0x41}, {&theDtd.obtainEnum("y"), 0x42}} {}

    const XpDtd::Attribute* nM;
    const XpDtd::Attribute* mM;
    const XpDtd::Attribute* vM;
    const XpDtd::Attribute* wM;
    const XpDtd::Attribute* pM;
    const EnumTokenMap vTokensM;
    const EnumTokenMap wTokensM;
};

class TableDirector final : public XaDirector {
  public:
    static void init() { static TableDirector director; }

    std::unique_ptr<XaOutput> process(XpParser& theParser, XaPrologOutput& theProlog,
                                      int theMediaType, HedCharsetId theCharset,
                                      int* theOutputMediaType, CpsString& theOutput) override {
        XaWbxmlCtrl ctrl(theCharset, 0);
        ctrl.addProlog(CpsString("\x01\x01") + XaWbxmlCtrl::getAsMbUInt(106));
        XaWbxmlCtrl::SimplePcDataActor text;
        theParser.setDtd(theMediaType == theDtdMediaType ? &dtdM : nullptr, &ctrl, &tokenizerM,
                         &text, &text, nullptr, &tokenizerM);
        theProlog.reproduce(&tokenizerM, nullptr, &ctrl);
        parse(theParser);
        theOutput = ctrl.makeOutput();
        *theOutputMediaType = theApplicationWbxml;
        return std::make_unique<XaOutput>("tables");
    }

  private:
    TableDirector() {
        setupDtd(theDtdText, dtdM);
        elementActorM = std::make_unique<ElementActor>(dtdM);
        dtdM.obtainElement("r").setActor(&literalActorM);
        dtdM.obtainElement("e").setActor(elementActorM.get());
        tokenizerM.addTagToken("c", 0x05, 1);
        tokenizerM.addTagToken("b", 0x07, 1);
        tokenizerM.addTagToken("a", 0x05, 0);
        tokenizerM.addTagToken("b", 0x06, 0);
        tokenizerM.addAttrToken("h", "wtai://", 0x07, 1);
        tokenizerM.addAttrToken("h", "wtai://wp/", 0x08, 1);
        tokenizerM.addAttrToken("h", "", 0x05, 0);
        tokenizerM.addAttrToken("h", "http://", 0x06, 0);
        tokenizerM.addAttrToken("k", "yes", 0x09, 0);
        tokenizerM.addAttrToken("t", "", 0x10, 0);
        tokenizerM.addAttrToken("t", "", 0x11, 1);
        tokenizerM.addAttrValueToken(".com/", 0x85, 0);
        tokenizerM.addAttrValueToken("http://", 0x8E, 0);
        tokenizerM.addAttrValueToken("http://www.", 0x8F, 0);
        tokenizerM.addAttrValueToken("abc", 0xA0, 0);
        tokenizerM.addAttrValueToken("bcd", 0xA1, 0);
        XaProducer::instance().registerDirector(this, nullptr, theTableMediaType);
        XaProducer::instance().registerDirector(this, nullptr, theDtdMediaType);
    }

    XpDtd dtdM;
    XaWbxmlActor literalActorM;
    std::unique_ptr<ElementActor> elementActorM;
    XaWbxmlTokenizer tokenizerM;
};

struct Outcome {
    std::string bytes;
    std::string doctype;
    std::string message;  // of the parser
    unsigned line = 0;
    std::string refusal;
};

Outcome run(const std::string& theSource, int theMediaType, HedCharsetId theCharset) {
    Outcome outcome;
    CpsString output;
    int mediaType = 0;
    try {
        const auto runOutput = XaProducer::instance().process(CpsString(theSource), theMediaType,
                                                              theCharset, &mediaType, output);
        outcome.doctype = runOutput->getDoctype().view();
        EXPECT_EQ(mediaType, theApplicationWbxml);
    } catch (const XpParserError& error) {
        outcome.message = error.toString().view();
        outcome.line = error.getLine();
    } catch (const XpException& error) {
        outcome.refusal = error.toString().view();
    } catch (const XaException& error) {
        outcome.refusal = error.what();
    }
    EXPECT_EQ(output.empty(), mediaType == 0) << "a failed run has written";
    outcome.bytes = output.view();
    return outcome;
}

class XaCases : public testing::TestWithParam<Case> {};

TEST_P(XaCases, documentGivesBytesOrMessage) {
    XaWbxmlDirector::init();
    TableDirector::init();
    const Case& testCase = GetParam();
    int mediaType = theTextXml;
    HedCharsetId charset = theUtf8Charset;
    if (const CaseSection* section = testCase.section("options")) {
        std::istringstream words(section->arguments);
        for (std::string word; words >> word;) {
            const std::string value = word.substr(word.find('=') + 1);
            if (word.rfind("media=", 0) == 0) {
                mediaType = std::stoi(value);
            } else if (word.rfind("charset=", 0) == 0) {
                charset = HedCharsetMap::instance().getNumber(value);
            } else {
                ADD_FAILURE() << "unknown option " << word;
            }
        }
    }
    const Outcome outcome = run(testCase.source, mediaType, charset);
    const CaseSection* error = testCase.section("error");
    const CaseSection* refused = testCase.section("refused");
    const CaseSection* bytes = testCase.section("bytes");
    EXPECT_EQ((error != nullptr) + (refused != nullptr) + (bytes != nullptr), 1);
    EXPECT_EQ(error != nullptr ? test::parseEscaped(error->lines) : "", outcome.message);
    EXPECT_EQ(error != nullptr ? error->arguments : "line 0",
              "line " + std::to_string(outcome.line));
    EXPECT_EQ(refused != nullptr ? test::parseEscaped(refused->lines) : "", outcome.refusal);
    if (bytes != nullptr) {
        EXPECT_EQ(test::hexDump(test::parseBytes(bytes->lines)), test::hexDump(outcome.bytes));
    }
    if (const CaseSection* doctype = testCase.section("doctype")) {
        EXPECT_EQ(doctype->arguments, outcome.doctype);
    }
}

INSTANTIATE_TEST_SUITE_P(all, XaCases, testing::ValuesIn(test::readCases("xa")),
                         [](const testing::TestParamInfo<Case>& theInfo) {
                             return test::parameterName(theInfo.param);
                         });

TEST(XaWbxmlCtrl, trimsTextByMode) {
    const std::string text = " \t a \r\n b\tc  ";
    const std::string expected[] = {text, " a b c ", "a \r\n b\tc", "a b c"};
    for (int mode = 0; mode < 4; ++mode) {
        XaWbxmlCtrl ctrl(theUtf8Charset, mode);
        ctrl.addPcData(text.substr(0, 4));
        ctrl.addPcData(text.substr(4));
        ctrl.flushPcData();
        ctrl.flushPcData();
        const std::string body = expected[mode] + '\0';
        EXPECT_EQ(test::hexDump('\0' + ('\x03' + body)),
                  test::hexDump(std::string(ctrl.makeOutput().view())))
            << "mode " << mode;
    }
}

TEST(XaWbxmlCtrl, multiByteIntegersAtTheirLimits) {
    const std::pair<std::uint32_t, std::string_view> rows[] = {
        {0, {"\x00", 1}},
        {0x7F, "\x7F"},
        {0x80, {"\x81\x00", 2}},
        {0x3FFF, "\xFF\x7F"},
        {0x4000, {"\x81\x80\x00", 3}},
        {0xFFFFFFFF, "\x8F\xFF\xFF\xFF\x7F"},
    };
    for (const auto& [value, bytes] : rows) {
        EXPECT_EQ(XaWbxmlCtrl::getAsMbUInt(value).view(), bytes) << value;
    }
}

TEST(XaWbxmlCtrl, takesBackNoByteInFrontOfAString) {
    XaWbxmlCtrl ctrl(theUtf8Charset, 0);
    ctrl.addToOutput(0x05);
    ctrl.addStringToOutput("x");
    ctrl.addToOutput(0x06);
    ctrl.popLastOutputByte();
    ctrl.popLastOutputByte();
    EXPECT_EQ(ctrl.makeOutput().view(), std::string_view("\x00\x05\x03x\x00", 5));
}

// The placement must not look at all strings for each string, nor copy the body for each of its
// parts.
TEST(XaWbxmlCtrl, manyStringsInLittleTime) {
    XaWbxmlCtrl ctrl(theUtf8Charset, 0);
    constexpr int theCount = 200000;
    for (int i = 0; i < theCount; ++i) {
        ctrl.addPcData("t");
        ctrl.addToOutput(0x05);
        ctrl.addStringToOutput(std::to_string(i % (theCount / 4)));
        ctrl.addOffsetToOutput("n");
    }
    EXPECT_GT(ctrl.makeOutput().length(), 4u * theCount);
}

}  // namespace
}  // namespace lumnis
