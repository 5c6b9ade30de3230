// A "use meta name" pragma, for the origin server, or a "use meta http equiv" one, a header for the
// way to the handset. It never stands in the byte code; the compiler hands it to its caller.
#pragma once

#include <utility>

#include "CpsString.h"

namespace lumnis {

class WscPragmaMeta {
  public:
    WscPragmaMeta(CpsString thePropertyName, CpsString theContent, CpsString theScheme = {})
        : propertyNameM(std::move(thePropertyName)),
          contentM(std::move(theContent)),
          schemeM(std::move(theScheme)) {}

    const CpsString& getPropertyName() const noexcept { return propertyNameM; }
    const CpsString& getContent() const noexcept { return contentM; }
    // Empty when the pragma has none.
    const CpsString& getScheme() const noexcept { return schemeM; }

  private:
    CpsString propertyNameM;
    CpsString contentM;
    CpsString schemeM;
};

}  // namespace lumnis
