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
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace lumnis {

class FwSettingsText {
  public:
    // Values by name; names are folded to one case.
    using Section = std::map<std::string, std::string, std::less<>>;

    // Reads a text. On a line that is none of the forms above the result is its number, from 1,
    // and nothing is kept; 0 is success.
    std::size_t parse(std::string_view theText);

    // Null when there is no section of that key, no value of that name. Valid until the next
    // parse.
    const Section* findKey(std::string_view theKey) const;
    static const std::string* findValue(const Section& theSection, std::string_view theName);

  private:
    bool parseLine(std::string_view theLine);

    std::map<std::string, Section, std::less<>> sectionsM;  // keys are folded, too
    Section* currentM = nullptr;                            // null in front of the first section
};

}  // namespace lumnis
