#include "CliCharset.h"

#include <algorithm>

#include "CliError.h"
#include "CliText.h"

namespace lumnis {

unsigned charsetByName(std::string_view theOption, const std::string& theName) {
    std::string name = theName;
    std::transform(name.begin(), name.end(), name.begin(), [](char theByte) {
        return theByte >= 'A' && theByte <= 'Z' ? static_cast<char>(theByte + 32) : theByte;
    });
    // The names of the IANA registry, the common misspelling and the MIBenum number.
    for (const std::string_view known : {"utf-8", "utf8", "csutf8", "106"}) {
        if (name == known) {
            return theUtf8Charset;
        }
    }
    throw CliUsageError(std::string(theOption) + ": charset \"" + visibleText(theName) +
                        "\" is not supported (supported: UTF-8)");
}

}  // namespace lumnis
