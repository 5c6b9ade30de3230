// XML files made ready for the parser, which reads UTF-8 alone.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "CpsString.h"

namespace lumnis {

// A fault of a file's bytes.
struct CliTextFault {
    std::string message;
    int line;  // from 1
};

// Replaces theSource, an XML file as it is, by the same in UTF-8 without byte order mark. The
// charset is that of the byte order mark (UTF-8 or UTF-16), else the one that the XML declaration
// names, else UTF-8. A source that has nothing but ASCII in it stays as it is, whatever it names.
// After a fault theSource is the text in which the line of the fault counts.
std::optional<CliTextFault> convertXmlSource(CpsString& theSource);

// The first byte of theText that is no well-formed UTF-8.
std::optional<CliTextFault> findBadUtf8(std::string_view theText);

// The name of the root element of theDocument, which is UTF-8: that in its document type
// declaration, else its first element's. Empty if there is none; nothing is validated.
std::string_view rootElementName(std::string_view theDocument);

}  // namespace lumnis
