// Character sets on the command line: by name, alias or number, and what they turn a source into.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CpsString.h"
#include "HedCharsetId.h"

namespace lumnis {

// The number of a charset given by name, alias or number, in any letter case. theOption is for the
// message. Throws CliUsageError when there is no such charset or it cannot be converted.
HedCharsetId charsetByName(std::string_view theOption, const std::string& theName);

// All names, numbers aside, that charsetByName takes, in the order of the table. The texts are
// those of the table.
std::vector<std::string_view> charsetNames();

// The number of a charset that a source itself declares. Nothing if the charset cannot be
// converted, or if a declaration in it could not have been read as ASCII (UCS-2, UCS-4).
std::optional<HedCharsetId> declaredCharset(std::string_view theName);

// Replaces theSource, which is in theCharset, by the same in UTF-8. A byte order mark of UTF-8,
// which editors write, is taken off. False, with the reason in theMessage, when the bytes are no
// text of that charset.
bool convertSource(CpsString& theSource, HedCharsetId theCharset, std::string& theMessage);

}  // namespace lumnis
