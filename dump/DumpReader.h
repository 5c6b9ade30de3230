// The entrance of this folder: from a file of either format to its pieces.
#pragma once

#include <optional>
#include <string_view>

#include "DumpListing.h"

namespace lumnis {

// The largest file that is read, in bytes: 64 times what a handset takes.
inline constexpr std::size_t theDumpFileLimit = std::size_t{4} << 20;

// Reads theFile as theFormat, or as what its content shows it to be. Both formats begin alike: a
// file that can be read as byte code is byte code; a damaged one is what its charset field makes
// likelier.
DumpListing readDump(std::string_view theFile, std::optional<DumpFormat> theFormat);

}  // namespace lumnis
