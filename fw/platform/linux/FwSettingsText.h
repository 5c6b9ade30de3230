// The text form of the settings.
//
//     # A comment, as is a line that begins with a semicolon.
//     [Software\Halvern\Qir\ApplicationLog\Interface\Rows]
//     Trace = 1
//     Debug = "1"
//
// A line in brackets begins the section of a key; "NAME = VALUE" lines follow. Blanks around keys,
// names and values do not count, except inside quotes around a value. Nothing is escaped. Of two
// lines that give the same value the later one holds, and a section may be continued later on.
// Letters A to Z are the same in either case in keys and names. Lines end with a line feed, with
// or without a carriage return; a UTF-8 byte order mark at the start is passed over.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumnis {

class FwSettingsText {
  public:
    // Reads a text. On a line that is none of the forms above the result is its number, from 1,
    // and nothing is kept; 0 is success.
    std::size_t parse(std::string_view theText);

    // The number of a key's section, if there is one.
    std::optional<std::size_t> findKey(std::string_view theKey) const;
    // Null when the section has no such value. Valid until the next parse.
    const std::string* findValue(std::size_t theSection, std::string_view theName) const;

  private:
    struct Value {
        std::size_t section;
        std::string name;
        std::string value;
    };

    bool parseLine(std::string_view theLine);

    std::vector<std::string> keysM;
    std::vector<Value> valuesM;
    std::size_t currentM = 0;  // in keysM
};

}  // namespace lumnis
