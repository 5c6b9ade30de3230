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
#include <sstream>
#include <string>

#include "CaseFile.h"
#include "HedCharsetMap.h"
#include "WmlDirector.h"
#include "XaProducer.h"

namespace lumnis {

namespace test {

void PrintTo(const Case& theCase, std::ostream* theStream) {
    *theStream << theCase.file << ".txt:" << theCase.line << ": " << theCase.name;
}

}  // namespace test

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

INSTANTIATE_TEST_SUITE_P(all, WmlCases, testing::ValuesIn(test::readCases("wml")),
                         [](const testing::TestParamInfo<Case>& theInfo) {
                             return test::parameterName(theInfo.param);
                         });

}  // namespace
}  // namespace lumnis
