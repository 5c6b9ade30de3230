// Tables of charsets and media types, and the encodings that need no table.
#include <gtest/gtest.h>

#include <clocale>
#include <sstream>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "CcCharsetConversion.h"
#include "CcCharsetConverter.h"
#include "CcCharsetIso88591.h"
#include "CcCharsetUcs2.h"
#include "CcCharsetUcs4.h"
#include "CcCharsetUsascii.h"
#include "CcCharsetUtf16.h"
#include "HedCharsetMap.h"
#include "HedMediaTypeMap.h"

namespace lumnis {
namespace {

struct NameRow {
    std::string_view name;
    std::int32_t number;
    const char* canonical;
};

void expectRows(const HedNameMap& theMap, std::span<const NameRow> theRows) {
    for (const NameRow& row : theRows) {
        SCOPED_TRACE(std::string(row.name));
        EXPECT_EQ(theMap.getNumber(row.name), row.number);
        EXPECT_EQ(theMap.getName(row.number), row.canonical);
    }
}

TEST(HedCharsetMap, FindsNamesAndAliases) {
    const NameRow rows[] = {
        {"utf-8", 106, "utf-8"},
        {"UTF-8", 106, "utf-8"},
        {"X-Unicode-2-0-UTF8", 106, "utf-8"},
        {"windows-1252", 2252, "cp1252"},
        {"cp1252", 2252, "cp1252"},
        {"iso-10646-ucs-2", 1000, "iso-10646-ucs-2"},
        {"csunicode", 1000, "iso-10646-ucs-2"},
        {"*", 0, "*"},
        {"ANSI_X3.4-1968", 3, "us-ascii"},
        {"Latin1", 4, "iso-8859-1"},
        {"MS_Kanji", 17, "shift_jis"},
        {"logical", -30, "iso-8859-8-i"},
        {"cssio10swedish", 35, "sen_850200_b"},
        {"windows-1258", 2258, "windows-1258"},
        {"unknown charset", -1, "unknown charset"},
        {"", -1, "unknown charset"},
        {"utf-8 ", -1, "unknown charset"},
        {"utf-", -1, "unknown charset"},
        {"\xFFutf-8", -1, "unknown charset"},
        {std::string_view("utf-8\0", 6), -1, "unknown charset"},
    };
    const HedCharsetMap& map = HedCharsetMap::instance();
    expectRows(map, rows);
    EXPECT_EQ(map.getName(9999), "");
    EXPECT_EQ(map.getName(-404), "x-chinese-cns");
    EXPECT_EQ(map.numbers().size(), 89u);
    EXPECT_EQ(map.names().size(), 89u + 105u);
}

TEST(HedMediaTypeMap, FindsNames) {
    const NameRow rows[] = {
        {"*/*", 0, "*/*"},
        {"Text/vnd.WAP.wml", 8, "text/vnd.wap.wml"},
        {"text/vnd.wap.channel", 10, "text/vnd.wap.channel"},
        {"application/vnd.wap.channelc", 22, "application/vnd.wap.channelc"},
        {"application/vnd.wap.wmlscriptc", 21, "application/vnd.wap.wmlscriptc"},
        {"application/vnd.wap.connectivity-wbxml", 54, "application/vnd.wap.connectivity-wbxml"},
        {"multipart/related", -4, "multipart/related"},
        {"application/x-wap-wta-wmlc", -5, "application/x-wap-wta-wmlc"},
        {"text/x-wap-wta-wml", -6, "text/x-wap-wta-wml"},
        // Its name has a capital, and a query is lowered.
        {"unknown Media-Type", -1, "unknown Media-Type"},
        {"", -1, "unknown Media-Type"},
    };
    const HedMediaTypeMap& map = HedMediaTypeMap::instance();
    expectRows(map, rows);
    EXPECT_EQ(map.getName(9999), "");
    // 0 to 54, -1, -4, -5 and -6.
    EXPECT_EQ(map.numbers().size(), 59u);
    for (std::int32_t number = 0; number <= 54; ++number) {
        EXPECT_FALSE(map.getName(number).empty()) << number;
    }
}

// Each line of tests/cases/names: a number and its name.
void expectNames(const HedNameMap& theMap, const std::string& theLines, bool isCanonical) {
    std::istringstream lines(theLines);
    for (std::string line; std::getline(lines, line);) {
        SCOPED_TRACE(line);
        const std::size_t blank = line.find(' ');
        const std::int32_t number = std::stoi(line.substr(0, blank));
        EXPECT_EQ(theMap.getNumber(line.substr(blank + 1)), number);
        if (isCanonical) {
            EXPECT_EQ(theMap.getName(number), line.substr(blank + 1));
        }
    }
}

TEST(HedNameMaps, HaveEveryRowOfTheRegistries) {
    const std::vector<test::Case> cases = test::readCases("names");
    ASSERT_EQ(cases.size(), 2u);
    expectNames(HedCharsetMap::instance(), cases[0].source, true);
    for (const std::string& alias : cases[0].section("aliases")->lines) {
        expectNames(HedCharsetMap::instance(), alias, false);
    }
    expectNames(HedMediaTypeMap::instance(), cases[1].source, true);
}

TEST(CcCharsetConverter, CodePagesAreOfKnownSets) {
    for (const CcCodePage& row : CcCharsetConverter::codePages()) {
        EXPECT_FALSE(HedCharsetMap::instance().getName(row.charset).empty());
        EXPECT_TRUE(CcCharsetConverter::canConvert(row.charset));
    }
    EXPECT_TRUE(CcCharsetConverter::canConvert(106));
    EXPECT_FALSE(CcCharsetConverter::canConvert(1015));
    EXPECT_FALSE(CcCharsetConverter::canConvert(-1));
}

std::string bytes(const CpsString& theString) {
    return std::string(theString.view());
}

TEST(CharsetValues, EncodeEachCharacter) {
    struct Row {
        std::string_view text;
        std::string_view ucs4;
        std::string_view ucs2;
        std::string_view utf16;
        std::string_view ascii;
        std::string_view latin1;
    };
    using namespace std::string_view_literals;
    const Row rows[] = {
        {"", "", "", "", "", ""},
        {"A\0"sv, "\0\0\0A\0\0\0\0"sv, "\0A\0\0"sv, "\0A\0\0"sv, "A\0"sv, "A\0"sv},
        {"\x7E", "\0\0\0\x7E"sv, "\0\x7E"sv, "\0\x7E"sv, "\x7E", "\x7E"},
        {"\x7F", "\0\0\0\x7F"sv, "\0\x7F"sv, "\0\x7F"sv, "\x7F", "\x02\x7F"},
        {"\xC2\x9F", "\0\0\0\x9F"sv, "\0\x9F"sv, "\0\x9F"sv, "\x02\x81\x1F", "\x02\x81\x1F"},
        {"\xC2\xA0", "\0\0\0\xA0"sv, "\0\xA0"sv, "\0\xA0"sv, "\x02\x81\x20", "\xA0"},
        {"\xC3\xA9", "\0\0\0\xE9"sv, "\0\xE9"sv, "\0\xE9"sv, "\x02\x81\x69", "\xE9"},
        {"\xC4\x80", "\0\0\1\0"sv, "\1\0"sv, "\1\0"sv, "\x02\x82\0"sv, "\x02\x82\0"sv},
        {"\xEF\xBF\xBF", "\0\0\xFF\xFF"sv, "\xFF\xFF", "\xFF\xFF", "\x02\x83\xFF\x7F",
         "\x02\x83\xFF\x7F"},
        {"\xF0\x90\x80\x80", "\0\1\0\0"sv, "\x02\x84\x80\0"sv, "\xD8\0\xDC\0"sv, "\x02\x84\x80\0"sv,
         "\x02\x84\x80\0"sv},
        {"\xF4\x8F\xBF\xBF", "\0\x10\xFF\xFF"sv, "\x02\xC3\xFF\x7F", "\xDB\xFF\xDF\xFF",
         "\x02\xC3\xFF\x7F", "\x02\xC3\xFF\x7F"},
        // Above the last character: an entity in UTF-16, too.
        {"\xF4\x90\x80\x80", "\0\x11\0\0"sv, "\x02\xC4\x80\0"sv, "\x02\xC4\x80\0"sv,
         "\x02\xC4\x80\0"sv, "\x02\xC4\x80\0"sv},
        // 0x7FFFFFFF takes five groups, the first of three bits.
        {"\xFD\xBF\xBF\xBF\xBF\xBF", "\x7F\xFF\xFF\xFF", "\x02\x87\xFF\xFF\xFF\x7F",
         "\x02\x87\xFF\xFF\xFF\x7F", "\x02\x87\xFF\xFF\xFF\x7F", "\x02\x87\xFF\xFF\xFF\x7F"},
        // An overlong slash.
        {"\xC0\xAF", "\0\0\0/"sv, "\0/"sv, "\0/"sv, "/", "/"},
        // Cut off, stray and impossible bytes end the text with a 0 for the lost character.
        {"a\xE2\x82", "\0\0\0a\0\0\0\0"sv, "\0a\0\0"sv, "\0a\0\0"sv, "a\0"sv, "a\0"sv},
        {"\x80z", "\0\0\0\0"sv, "\0\0"sv, "\0\0"sv, "\0"sv, "\0"sv},
        {"\xFEz", "\0\0\0\0"sv, "\0\0"sv, "\0\0"sv, "\0"sv, "\0"sv},
        // A bad second byte adds nothing, the third one does: 2 * 64 + 0x2C.
        {"\xE2z\xACz", "\0\0\0\xAC"sv, "\0\xAC"sv, "\0\xAC"sv, "\x02\x81\x2C", "\xAC"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.text));
        EXPECT_EQ(bytes(CcCharsetUcs4(row.text).getWbxmlValue()), row.ucs4);
        EXPECT_EQ(bytes(CcCharsetUcs2(row.text).getWbxmlValue()), row.ucs2);
        EXPECT_EQ(bytes(CcCharsetUtf16(row.text).getWbxmlValue()), row.utf16);
        EXPECT_EQ(bytes(CcCharsetUsascii(row.text).getWbxmlValue()), row.ascii);
        EXPECT_EQ(bytes(CcCharsetIso88591(row.text).getWbxmlValue()), row.latin1);
    }
}

TEST(CharsetValues, EntityTokenOfOneCharacter) {
    EXPECT_EQ(bytes(CcCharsetConversion::getEntityToken("\xC3\xA9")), "\x02\x81\x69");
    EXPECT_EQ(bytes(CcCharsetConversion::getEntityToken("a")), "\x02\x61");
    EXPECT_EQ(bytes(CcCharsetConversion::getEntityToken("")), std::string("\x02\0", 2));
}

}  // namespace
}  // namespace lumnis
