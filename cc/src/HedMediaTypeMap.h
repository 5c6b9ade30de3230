// Names of media types and the numbers of the WSP content type table (WSP, assigned numbers).
#pragma once

#include "HedNameMap.h"

namespace lumnis {

// Signed 32-bit numbers; a few private ones are negative. "*/*" is number 0.
class HedMediaTypeMap final : public HedNameMap {
  public:
    static const HedMediaTypeMap& instance();

  private:
    HedMediaTypeMap();
};

}  // namespace lumnis
