// Conversion with entity tokenization on, which the settings of the content handler turn off.
// The converter is compiled into this program against settings of its own (see CMakeLists.txt).
#include <gtest/gtest.h>

#include <string>

#include "CcCharsetConverter.h"
#include "ChConfigData.h"

namespace lumnis {

ChConfigData::ChConfigData() {
    readConfigData();
}

void ChConfigData::readConfigData() {
    chWbxmlEntityTokenizationM = true;
    dataReadM = true;
}

const ChConfigData& ChConfigData::instance() {
    static const ChConfigData theData;
    return theData;
}

namespace {

TEST(EntityTokenization, StandsForWhatASetLacks) {
    using namespace std::string_view_literals;
    struct Row {
        HedCharsetId charset;
        std::string_view text;
        std::string_view bytes;
    };
    const Row rows[] = {
        // US-ASCII and ISO-8859-1 by their own rules, whether code page 1252 has the character
        // or not.
        {3, "a\xC3\xA9\x7F", "a\x02\x81\x69\x7F"},
        {4, "a\xC3\xA9\x7F", "a\xE9\x02\x7F"},
        {4, "\xC2\x85", "\x02\x81\x05"},
        // U+20AC = 0x41 * 2^7 + 0x2C, the terminator behind it.
        {5, "\xC5\x81\xE2\x82\xAC\0"sv, "\xA3\x02\xC1\x2C\0"sv},
        // Katakana go character by character, once one of them does not.
        {17, "\xEF\xBD\xB1\xE2\x82\xAC", "\xB1\x02\xC1\x2C"},
        {17, "\xEF\xBD\xB1", "\xB1"},
        // Nothing behind malformed text.
        {5,
         "a\xFF"
         "b",
         "a"},
    };
    CcCharsetConverter converter;
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.text));
        CpsString output;
        EXPECT_TRUE(converter.convertFromUtf8(row.text, output, row.charset, true));
        EXPECT_EQ(output.view(), row.bytes);
    }
    // Without escapes a character that the set lacks fails as ever.
    CpsString output("before");
    EXPECT_FALSE(converter.convertFromUtf8("\xE2\x82\xAC", output, 4, false));
    EXPECT_EQ(output, "before");
    EXPECT_TRUE(converter.convertFromUtf8("\xC3\xA9", output, 3, false));
    EXPECT_EQ(output, "\xE9");
}

}  // namespace
}  // namespace lumnis
