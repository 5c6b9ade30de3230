// Files by hand and what a dump shows of them: tests/cases/dump. The source of a case is in the
// form of "-- bytes" (CaseFile.h).
//
// Sections of a case:
//     -- text     lines of the text form
//     -- xml      the markup, behind the XML declaration
//     -- json     the lines of the JSON form
//     -- error N  the message of a damaged file, and its offset
#include <gtest/gtest.h>
#include <lumnisutil.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "CcCharsetConverter.h"
#include "DumpPrinter.h"
#include "DumpReader.h"
#include "WmlDirector.h"
#include "WscWmlScriptCompiler.h"
#include "XaProducer.h"

namespace lumnis {

namespace {

using test::Case;
using test::CaseSection;

constexpr std::string_view theXmlDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

std::string joined(const std::vector<std::string>& theLines) {
    std::string result;
    for (const std::string& line : theLines) {
        result += line + '\n';
    }
    return result;
}

std::vector<std::string> splitLines(const std::string& theText) {
    std::vector<std::string> lines;
    std::string line;
    for (const char c : theText + '\n') {
        if (c == '\n') {
            lines.push_back(line);
            line.clear();
        } else {
            line += c;
        }
    }
    return lines;
}

class DumpCases : public testing::TestWithParam<Case> {};

TEST_P(DumpCases, bytesGiveTextOrMessage) {
    const Case& testCase = GetParam();
    const std::string file = test::parseBytes(splitLines(testCase.source));
    const DumpListing listing = readDump(file, std::nullopt);
    const CaseSection* const error = testCase.section("error");
    ASSERT_EQ(listing.fault.has_value(), error != nullptr)
        << (listing.fault ? listing.fault->message : "");
    if (error != nullptr) {
        EXPECT_EQ(joined(error->lines), listing.fault->message + '\n');
        EXPECT_EQ(std::stoul(error->arguments), listing.fault->offset);
    }
    if (const CaseSection* text = testCase.section("text")) {
        EXPECT_EQ(joined(text->lines), printDumpText(listing, file));
    }
    if (const CaseSection* xml = testCase.section("xml")) {
        EXPECT_EQ(std::string(theXmlDeclaration) + joined(xml->lines), printDumpXml(listing));
    }
    if (const CaseSection* json = testCase.section("json")) {
        EXPECT_EQ(joined(json->lines), printDumpJson(listing, file));
    }
}

INSTANTIATE_TEST_SUITE_P(all, DumpCases, testing::ValuesIn(test::readCases("dump")),
                         [](const testing::TestParamInfo<Case>& theInfo) {
                             return test::parameterName(theInfo.param);
                         });

std::string encode(const std::string& theDeck, int theMediaType) {
    WmlDirector::init();
    CpsString output;
    int outputMediaType = 0;
    XaProducer::instance().process(CpsString(std::string_view(theDeck)), theMediaType,
                                   theUtf8Charset, &outputMediaType, output);
    return std::string(output.view());
}

// The decks of the encoder's own cases, as far as they are accepted.
std::vector<std::string> acceptedDecks() {
    std::vector<std::string> decks;
    for (const Case& each : test::readCases("wml")) {
        const CaseSection* const options = each.section("options");
        const std::string words = options == nullptr ? "" : options->arguments;
        const std::size_t type = words.find("type=");
        const bool hasInstruction = each.source.find("<?") != std::string::npos;
        const bool hasNul = each.source.find('\0') != std::string::npos;
        if (each.section("bytes") == nullptr || type == std::string::npos || hasInstruction ||
            hasNul || !CcCharsetConverter::isValidUtf8(each.source) ||
            each.source.find("<meta") != std::string::npos) {
            continue;
        }
        const std::string name = words.substr(type + 5, 3);
        const std::string doctype =
            name == "wta" ? "<!DOCTYPE wta-wml PUBLIC \"-//WAPFORUM//DTD WTA-WML 1.2//EN\" \"\">"
                          : "<!DOCTYPE wml PUBLIC \"-//WAPFORUM//DTD WML " + name + "//EN\" \"\">";
        decks.push_back(doctype + each.source);
    }
    return decks;
}

TEST(DumpTest, markupOfADeckEncodesToTheSameBytes) {
    const std::vector<std::string> decks = acceptedDecks();
    EXPECT_GT(decks.size(), 50u);
    int count = 0;
    for (const std::string& deck : decks) {
        for (const int mediaType :
             {WmlDirector::theWmlMediaType, WmlDirector::theWtaWmlMediaType}) {
            std::string bytes;
            try {
                bytes = encode(deck, mediaType);
            } catch (const XpException&) {
                continue;  // not of this media type, or in another charset
            }
            SCOPED_TRACE(deck);
            const DumpListing listing = readDump(bytes, std::nullopt);
            ASSERT_FALSE(listing.fault) << listing.fault->message;
            const std::string markup = printDumpXml(listing);
            SCOPED_TRACE(markup);
            try {
                EXPECT_EQ(test::hexDump(bytes), test::hexDump(encode(markup, mediaType)));
            } catch (const XpException& error) {
                ADD_FAILURE() << error.toString().view();
            }
            ++count;
        }
    }
    EXPECT_GT(count, 100);
}

std::vector<std::string> compiledScripts() {
    std::vector<std::string> files;
    for (const Case& each : test::readCases("wsc")) {
        char* result = nullptr;
        char* error = nullptr;
        unsigned short length = 0;
        const int status = WMLSCompile(each.source.data(), static_cast<int>(each.source.size()),
                                       &result, &length, &error);
        if (status == 0) {
            files.emplace_back(result, length);
        }
        std::free(result);
        std::free(error);
    }
    return files;
}

TEST(DumpTest, whatTheCompilerWritesIsByteCode) {
    const std::vector<std::string> files = compiledScripts();
    EXPECT_GT(files.size(), 100u);
    for (const std::string& file : files) {
        const DumpListing listing = readDump(file, std::nullopt);
        ASSERT_FALSE(listing.fault) << listing.fault->message << '\n' << test::hexDump(file);
        EXPECT_EQ(listing.format, DumpFormat::script);
        std::size_t covered = 0;
        for (const DumpPiece& piece : listing.pieces) {
            EXPECT_EQ(covered, piece.offset);
            covered += piece.length;
        }
        EXPECT_EQ(covered, file.size());
    }
}

// All forms are printed; a fault lies in the file or just behind it.
void survive(const std::string& theFile) {
    for (const std::optional<DumpFormat> format :
         {std::optional<DumpFormat>(), std::optional(DumpFormat::wbxml),
          std::optional(DumpFormat::script)}) {
        const DumpListing listing = readDump(theFile, format);
        const std::string text = printDumpText(listing, theFile);
        const std::string json = printDumpJson(listing, theFile);
        EXPECT_EQ(listing.fault.has_value(), json.find("],\"error\"") != std::string::npos);
        EXPECT_GE(std::count(text.begin(), text.end(), '\n'),
                  static_cast<std::ptrdiff_t>(listing.pieces.size()));
        if (listing.fault) {
            EXPECT_LE(listing.fault->offset, theFile.size());
        } else if (listing.format == DumpFormat::wbxml) {
            EXPECT_TRUE(printDumpXml(listing).starts_with(theXmlDeclaration));
        }
    }
}

TEST(DumpTest, damagedFilesGiveAMessage) {
    std::vector<std::string> files;
    for (const Case& each : test::readCases("dump")) {
        files.push_back(test::parseBytes(splitLines(each.source)));
    }
    std::string script =
        "extern function f(a) { while (a < 9) { a += Lang.abs(a); }"
        " return \"text\" + 1.5 + f(300); }";
    char* result = nullptr;
    char* error = nullptr;
    unsigned short length = 0;
    ASSERT_EQ(WMLSCompile(script.data(), static_cast<int>(script.size()), &result, &length, &error),
              0);
    files.emplace_back(result, length);
    std::free(result);
    for (const std::string& file : files) {
        if (file.size() > 200) {
            continue;
        }
        for (std::size_t i = 0; i < file.size(); ++i) {
            survive(file.substr(0, i));
            std::string damaged = file;
            for (const int change : {0x01, 0x40, 0x80, 0xFF}) {
                damaged[i] = static_cast<char>(file[i] ^ change);
                survive(damaged);
            }
        }
    }
}

TEST(DumpTest, deepNestingTakesNoStackAndLinearOutput) {
    constexpr std::size_t theDepth = 1000000;
    const std::string file = std::string("\x03\x0A\x6A\x00", 4) + std::string(theDepth, '\x7F') +
                             std::string(theDepth, '\x01');
    const DumpListing listing = readDump(file, std::nullopt);
    ASSERT_FALSE(listing.fault);
    EXPECT_LT(printDumpText(listing, file).size(), 250 * theDepth);
    EXPECT_LT(printDumpXml(listing).size(), 160 * theDepth);
}

TEST(DumpTest, manyReferencesToALongStringAreRefused) {
    std::string file("\x03\x01\x6A\x82\x80\x01\x01", 7);  // 32769 bytes of table
    file.resize(6);
    file += std::string(32768, 'a') + '\0' + "\x45";
    for (int i = 0; i < 1000; ++i) {
        file += std::string("\x83\x00", 2);
    }
    const DumpListing listing = readDump(file + '\x01', DumpFormat::wbxml);
    ASSERT_TRUE(listing.fault);
    EXPECT_EQ(listing.fault->message, "the document has more than 16 MiB of text");
}

}  // namespace
}  // namespace lumnis
