// Conversion from and to UTF-8: the data of tests/cases/charset, and every message.
#include "CcCharsetConverter.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "CaseFile.h"
#include "HedCharsetMap.h"

namespace lumnis {
namespace {

using test::Case;
using test::CaseSection;

constexpr char theUnsupportedCharacter[] = "Unsupported character(s) in destination character set";
constexpr char theNoInput[] = "There was no input character data to process.";

std::string bytes(const CpsString& theString) {
    return std::string(theString.view());
}

std::vector<HedCharsetId> charsetsOf(const CaseSection& theSection) {
    std::istringstream stream(theSection.arguments);
    std::vector<HedCharsetId> result;
    for (HedCharsetId charset = 0; stream >> charset;) {
        result.push_back(charset);
    }
    return result;
}

class CharsetCase : public testing::TestWithParam<Case> {
  protected:
    void expectOut(HedCharsetId theCharset, bool useEscape, const std::string& theBytes) {
        CpsString output;
        EXPECT_TRUE(converterM.convertFromUtf8(GetParam().source, output, theCharset, useEscape))
            << converterM.getErrorMessage().view();
        EXPECT_EQ(test::hexDump(bytes(output)), test::hexDump(theBytes));
    }
    void expectIn(HedCharsetId theCharset, const std::string& theBytes) {
        CpsString output("before");
        EXPECT_TRUE(converterM.convertToUtf8(theBytes, output, theCharset))
            << converterM.getErrorMessage().view();
        EXPECT_EQ(bytes(output), GetParam().source);
    }
    void expectRefused(HedCharsetId theCharset) {
        CpsString output("before");
        EXPECT_FALSE(converterM.convertFromUtf8(GetParam().source, output, theCharset, false));
        EXPECT_EQ(converterM.getErrorMessage(), theUnsupportedCharacter);
        EXPECT_EQ(output, "before");
    }
    void expectBroken(HedCharsetId theCharset, const std::string& theBytes) {
        CpsString output("before");
        EXPECT_FALSE(converterM.convertToUtf8(theBytes, output, theCharset))
            << test::hexDump(theBytes);
        EXPECT_EQ(converterM.getErrorMessage(), theUnsupportedCharacter);
        EXPECT_EQ(output, "");
    }

    CcCharsetConverter converterM;
};

TEST_P(CharsetCase, GivesTheBytesOfTheCharts) {
    for (const CaseSection& section : GetParam().sections) {
        const std::string expected =
            section.name == "broken" ? "" : test::parseBytes(section.lines);
        ASSERT_FALSE(charsetsOf(section).empty());
        for (const HedCharsetId charset : charsetsOf(section)) {
            SCOPED_TRACE(section.name + " " + std::to_string(charset));
            if (section.name == "both") {
                expectOut(charset, false, expected);
                expectIn(charset, expected);
            } else if (section.name == "out") {
                expectOut(charset, false, expected);
            } else if (section.name == "in") {
                expectIn(charset, expected);
            } else if (section.name == "lacks") {
                expectRefused(charset);
                expectOut(charset, true, expected);
            } else if (section.name == "broken") {
                for (const std::string& line : section.lines) {
                    expectBroken(charset, test::parseBytes({line}));
                }
            } else {
                FAIL() << "unknown section " << section.name;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, CharsetCase, testing::ValuesIn(test::readCases("charset")),
                         [](const auto& theInfo) { return test::parameterName(theInfo.param); });

TEST(CcCharsetConverter, RefusesWhatItCannotRead) {
    struct Row {
        HedCharsetId charset;
        const char* input;
        const char* message;
    };
    const Row rows[] = {
        {106, "", theNoInput},
        {4, "", theNoInput},
        {9999, "", theNoInput},
        {1000, "abc", "Bit format of input character data does not conform to iso-10646-ucs-2."},
        {1001, "abcde", "Bit format of input character data does not conform to iso-10646-ucs-4."},
        {-4, "a", "Bit format of input character data does not conform to ."},
        {1015, "ab", "Charset conversion from utf-16 is not supported."},
        {-1, "ab", "Charset conversion from unknown charset is not supported."},
        {-2, "ab", "Charset conversion from  is not supported."},
        {0, "ab", "Charset conversion from * is not supported."},
        {9999, "ab", "Charset conversion from  is not supported."},
    };
    CcCharsetConverter converter;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.message);
        CpsString output("before");
        EXPECT_FALSE(converter.convertToUtf8(row.input, output, row.charset));
        EXPECT_EQ(converter.getErrorMessage(), row.message);
        EXPECT_EQ(output, "");
    }
}

TEST(CcCharsetConverter, RefusesWhatItCannotWrite) {
    struct Row {
        HedCharsetId charset;
        const char* input;
        const char* message;
        const char* output;
    };
    constexpr char theUnknown[] = "Unknown charset declared for output string.";
    constexpr char theUnsupported[] = "Unsupported charset declared for output string.";
    const Row rows[] = {
        {106, "", theNoInput, "before"}, {-1, "", theNoInput, "before"},
        {-1, "a", theUnknown, ""},       {0, "a", theUnsupported, ""},
        {1015, "a", theUnsupported, ""}, {9999, "a", theUnsupported, ""},
    };
    CcCharsetConverter converter;
    for (const bool useEscape : {false, true}) {
        for (const Row& row : rows) {
            SCOPED_TRACE(row.charset);
            CpsString output("before");
            EXPECT_FALSE(converter.convertFromUtf8(row.input, output, row.charset, useEscape));
            EXPECT_EQ(converter.getErrorMessage(), row.message);
            EXPECT_EQ(output, row.output);
        }
    }
}

TEST(CcCharsetConverter, ConvertsOnlyPairsWithUtf8) {
    CcCharsetConverter converter;
    CpsString output("before");
    // The first attempt fails at the setting up of the pair, the second at its use.
    EXPECT_FALSE(converter.convert(932, 51932, "a", output, true));
    EXPECT_EQ(converter.getErrorMessage(),
              "- the specified set of source/destination code pages is not supported");
    EXPECT_FALSE(converter.convert(932, 51932, "a", output, true));
    EXPECT_EQ(converter.getErrorMessage(), "Code page not supported");
    EXPECT_FALSE(converter.convert(65001, 437, "a", output, false));
    EXPECT_EQ(output, "before");
    // It is as good as before for the next pair.
    EXPECT_TRUE(converter.convert(932, 65001, "\xB1", output, false));
    EXPECT_EQ(output, "\xEF\xBD\xB1");
    EXPECT_EQ(converter.getErrorMessage(), "");
    // Read with escapes, malformed bytes are replaced one by one.
    EXPECT_TRUE(converter.convert(932, 65001, "a\x80z\x81", output, true));
    EXPECT_EQ(output, "a\xEF\xBF\xBDz\xEF\xBF\xBD");
}

TEST(CcCharsetConverter, TakesNothingOverFromTheFormerUserOfItsObject) {
    CpsString output;
    {
        CcCharsetConverter former;
        ASSERT_TRUE(former.convertToUtf8("\xE9", output, 4));
    }
    CcCharsetConverter converter;
    EXPECT_TRUE(converter.convert(65001, 65001, "\xC3\xA9", output, false));
    EXPECT_EQ(output, "\xC3\xA9");
    EXPECT_EQ(converter.getErrorMessage(), "");
}

TEST(CcCharsetConverter, WritesEntitiesCharacterByCharacter) {
    CcCharsetConverter converter;
    CpsString output;
    ASSERT_TRUE(converter.convertFromUtf8("x", output, 4, false));
    // U+00E9, U+20AC = 0x41 * 2^7 + 0x2C, then a lead byte that runs past the end.
    EXPECT_EQ(converter.getWbxmlString("\xC3\xA9\xE2\x82\xAC!\xE2\x82"), "\xE9\x02\xC1\x2C!");
    EXPECT_EQ(converter.getWbxmlString("a\x80z"), "a");
    EXPECT_EQ(converter.getWbxmlString("a\xFEz"), "a");
    // Seven bytes hold no kanji with its two shifts.
    ASSERT_TRUE(converter.convertFromUtf8("x", output, 39, false));
    EXPECT_EQ(converter.getWbxmlString("a\xE3\x81\x82"), "a\x02\xE0\x42");
}

TEST(CcCharsetConverter, ChecksTheFormOfUtf8Only) {
    struct Row {
        std::string_view text;
        bool isValid;
    };
    const Row rows[] = {{"", true},
                        {"\x80", false},
                        {"a\xC3", false},
                        {"\xC3\xA9", true},
                        {"\xC3z", false},
                        {"\xFE", false},
                        {"\xFF", false},
                        {"\xFD\xBF\xBF\xBF\xBF\xBF", true},
                        {"\xFD\xBF\xBF\xBF\xBF", false},
                        {"\xC0\x80", true},
                        {"\xED\xA0\x80", true},
                        {std::string_view("\0", 1), true}};
    for (const Row& row : rows) {
        EXPECT_EQ(CcCharsetConverter::isValidUtf8(row.text), row.isValid) << row.text;
    }
}

TEST(CcCharsetConverter, EncodesValuesUpToSixBytes) {
    struct Row {
        std::uint32_t value;
        const char* bytes;
    };
    const Row rows[] = {{0x7F, "\x7F"},
                        {0x80, "\xC2\x80"},
                        {0x7FF, "\xDF\xBF"},
                        {0x800, "\xE0\xA0\x80"},
                        {0xFFFF, "\xEF\xBF\xBF"},
                        {0x10000, "\xF0\x90\x80\x80"},
                        {0x1FFFFF, "\xF7\xBF\xBF\xBF"},
                        {0x200000, "\xF8\x88\x80\x80\x80"},
                        {0x4000000, "\xFC\x84\x80\x80\x80\x80"},
                        {0x7FFFFFFF, "\xFD\xBF\xBF\xBF\xBF\xBF"},
                        {0x80000000, ""}};
    for (const Row& row : rows) {
        EXPECT_EQ(CcCharsetConverter::getAsUtf8(row.value), row.bytes) << row.value;
    }
    EXPECT_EQ(CcCharsetConverter::getElementAsInt("\x01\x02\x03\xFF"), 0x010203FFu);
    CpsString output("kept");
    EXPECT_TRUE(CcCharsetConverter::getAsUtf8("\x41\xE9", 1, output));
    EXPECT_EQ(output, "keptA\xC3\xA9");
    EXPECT_FALSE(CcCharsetConverter::getAsUtf8("ab", 0, output));
}

TEST(CcCharsetConverter, TellsTheLatestFailure) {
    CcCharsetConverter converter;
    CpsString output;
    EXPECT_FALSE(converter.convertToUtf8("ab", output, 1015));
    EXPECT_FALSE(converter.convertToUtf8("abc", output, 1000));
    EXPECT_EQ(converter.getErrorMessage(),
              "Bit format of input character data does not conform to iso-10646-ucs-2.");
}

// Text of every set at a size where windows, buffers and the stack would show their ends.
TEST(CcCharsetConverter, LongTextsAreConvertedWhole) {
    CcCharsetConverter converter;
    for (const CcCodePage& row : CcCharsetConverter::codePages()) {
        SCOPED_TRACE(row.charset);
        std::string text;
        std::string substituted;
        for (int i = 0; i < 40'000; ++i) {
            text += "abc\xF0\x9F\x98\x80";
            substituted += "abc?";
        }
        CpsString output;
        EXPECT_TRUE(converter.convertFromUtf8(text, output, row.charset, true));
        EXPECT_TRUE(output == substituted);
        EXPECT_TRUE(converter.convertToUtf8(substituted, output, row.charset));
        EXPECT_TRUE(output == substituted);
    }
    // A double byte across the end of every window.
    for (const char* lead : {"", "x"}) {
        std::string kanji = lead;
        std::string utf8 = lead;
        for (int i = 0; i < 700'000; ++i) {
            kanji += "\x93\xFA";
            utf8 += "\xE6\x97\xA5";
        }
        CpsString output;
        EXPECT_TRUE(converter.convertToUtf8(kanji, output, 17));
        EXPECT_TRUE(output == utf8);
        EXPECT_TRUE(converter.convertFromUtf8(utf8, output, 17, false));
        EXPECT_TRUE(output == kanji);
    }
}

// More converters than the pool has objects, on several threads.
TEST(CcCharsetConverter, ServesThreads) {
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([t] {
            for (int i = 0; i < 50; ++i) {
                std::vector<std::unique_ptr<CcCharsetConverter>> converters;
                for (int c = 0; c < 6; ++c) {
                    converters.push_back(std::make_unique<CcCharsetConverter>());
                }
                for (auto& converter : converters) {
                    CpsString output;
                    EXPECT_TRUE(converter->convertToUtf8("\xC6\xFC", output, t % 2 == 0 ? 18 : 4));
                    EXPECT_EQ(output, t % 2 == 0 ? "\xE6\x97\xA5" : "\xC3\x86\xC3\xBC");
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

}  // namespace
}  // namespace lumnis
