// Bytes of unknown origin made fit for a terminal and for JSON.
#pragma once

#include <string>
#include <string_view>

namespace lumnis {

// Two hexadecimal digits, in capitals.
std::string hexByte(unsigned char theByte);

// Length of the well-formed UTF-8 sequence at thePosition, 1 to 4; 0 when there is none.
std::size_t utf8SequenceLength(std::string_view theText, std::size_t thePosition);

// One line that cannot drive a terminal: control characters and bytes that are no UTF-8 come out
// as \n, \r or \xNN. Tabs stay.
std::string visibleText(std::string_view theText);

// A JSON string with its quotes. Bytes that are no UTF-8 become U+FFFD, as JSON has no place for
// them.
std::string jsonString(std::string_view theText);

}  // namespace lumnis
