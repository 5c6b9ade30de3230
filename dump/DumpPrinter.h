// The three forms of a listing. Each is whole text with its line ends; none depends on anything
// but its arguments.
#pragma once

#include <string>
#include <string_view>

#include "DumpListing.h"

namespace lumnis {

// A line for each piece: offset, bytes, token, meaning. Indentation stops growing at 32 levels, so
// that its size is linear in that of the file. theFile is what the listing was made from.
std::string printDumpText(const DumpListing& theListing, std::string_view theFile);

// One object: "format", "pieces" (each on a line of its own) and, for a damaged file, "error".
std::string printDumpJson(const DumpListing& theListing, std::string_view theFile);

// The markup of a WBXML listing without fault, in UTF-8.
//
// A document of the WML family encodes to the same bytes again, if it came from this library from
// a source without processing instructions, meta elements, an internal subset and NUL bytes. What
// markup has no place for is put into text: an extension token in braces, OPAQUE bytes that are no
// text in hexadecimal.
std::string printDumpXml(const DumpListing& theListing);

}  // namespace lumnis
