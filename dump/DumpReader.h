// Entrance of the folder: any file to its pieces.
#pragma once

#include <optional>
#include <string_view>

#include "DumpListing.h"

namespace lumnis {

// The largest file that is read: a thousand times what a handset takes would still fit in.
inline constexpr std::size_t theDumpFileLimit = std::size_t{4} << 20;

// What theFile is, is found by its content unless theFormat tells. Both formats begin alike, so a
// file whose second field is the number of the bytes behind it counts as byte code if it can be
// read as such; a damaged one counts as what its charset field makes likelier.
DumpListing readDump(std::string_view theFile, std::optional<DumpFormat> theFormat);

}  // namespace lumnis
