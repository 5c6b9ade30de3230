// The text form of the settings.
#include "FwSettingsText.h"

#include <gtest/gtest.h>

namespace lumnis {
namespace {

// "VALUE", or "no key", "no value", "line N" for a text that is refused.
std::string lookUp(std::string_view theText, std::string_view theKey, std::string_view theName) {
    FwSettingsText settings;
    if (const std::size_t line = settings.parse(theText); line != 0) {
        EXPECT_EQ(settings.findKey(theKey), nullptr);
        return "line " + std::to_string(line);
    }
    const FwSettingsText::Section* key = settings.findKey(theKey);
    if (key == nullptr) {
        return "no key";
    }
    const std::string* value = FwSettingsText::findValue(*key, theName);
    return value == nullptr ? "no value" : *value;
}

TEST(FwSettingsText, FindsValuesInTheirSections) {
    using namespace std::string_view_literals;
    struct Row {
        std::string_view text;
        std::string_view expected;
    };
    const Row rows[] = {
        {"", "no key"},
        {"[A\\B]", "no value"},
        {"[A\\B]\nName=1", "1"},
        {"[A\\B]\nName=1\n", "1"},
        {"\xEF\xBB\xBF[A\\B]\r\nName = 1\r\n", "1"},
        {"  [ a\\b ]\t\n\tNAME\t=\t1 2 \n", "1 2"},
        {"# [A\\B]\n; Name = 2\n[A\\B]\n#Name = 3\nName = 1", "1"},
        {"[A\\B]\nName = 1 # not a comment", "1 # not a comment"},
        {"[A\\B]\nName = a=b", "a=b"},
        {"[A\\B]\nName =", ""},
        {"[A\\B]\nName = \"\"", ""},
        {"[A\\B]\nName = \" 1 \"", " 1 "},
        {"[A\\B]\nName = \"", "\""},
        {"[A\\B]\nName = \"1", "\"1"},
        {"[A\\B]\nName = 1\nName = 2", "2"},
        {"[A\\B]\nName = 1\n[A]\nName = 2\n[A\\B]\nOther = 3", "1"},
        {"[A]\nName = 1\n[A\\B\\C]\nName = 2", "no key"},
        {"[A\\B]\nNames = 1\nNam = 2", "no value"},
        {"[A\\B]\nName = a\0b"sv, "a\0b"sv},
        {"Name = 1", "line 1"},
        {"[A\\B]\n\nName", "line 3"},
        {"[A\\B]\n= 1", "line 2"},
        {"[A\\B]\n[A", "line 2"},
        {"[A\\B]\n[]", "line 2"},
        {"[", "line 1"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(lookUp(row.text, "A\\B", "Name"), row.expected) << row.text;
    }
}

}  // namespace
}  // namespace lumnis
