// The distinct identifiers of a source, each kept once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string_view>
#include <vector>

#include "WscName.h"

namespace lumnis {

class WscNameTable {
  public:
    // The name with theText, made at its first appearance. It stays where it is.
    const WscName& intern(std::string_view theText);

  private:
    void grow();

    std::deque<WscName> namesM;  // by number
    // Open addressing, at most half full, its size a power of two; 0 or a name's number plus 1.
    std::vector<std::uint32_t> slotsM;
};

}  // namespace lumnis
