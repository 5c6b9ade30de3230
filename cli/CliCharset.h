// Charset names on the command line: the one place that knows which there are.
#pragma once

#include <string>
#include <string_view>

namespace lumnis {

constexpr unsigned theUtf8Charset = 106;

// The MIBenum number of a charset given by name, alias or number, in any letter case. theOption is
// for the message. Throws CliUsageError when the charset is not supported.
unsigned charsetByName(std::string_view theOption, const std::string& theName);

}  // namespace lumnis
