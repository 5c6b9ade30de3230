// Names of character sets (IANA registry of character sets, RFC 2978) and their numbers.
#pragma once

#include "HedCharsetId.h"
#include "HedNameMap.h"

namespace lumnis {

// getNumber("UTF-8") is 106, getName(106) is "utf-8", whichever alias came in. "*" is number 0.
class HedCharsetMap final : public HedNameMap {
  public:
    static const HedCharsetMap& instance();

  private:
    HedCharsetMap();
};

}  // namespace lumnis
