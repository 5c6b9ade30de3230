// Service of the platform: the log that the operator of the system reads.
#pragma once

#include <initializer_list>

#include "CpsString.h"

namespace lumnis {

enum class FwEventType { error = 1, information = 4 };

// Reports events under the name of one source.
class FwEventSource {
  public:
    explicit FwEventSource(const char* theName);

    // Null pointers among theStrings are left out. A failure is not told: nobody could help.
    void report(FwEventType theType, int theCategory, unsigned theEventCode,
                std::initializer_list<const char*> theStrings) const noexcept;

  private:
    const CpsString nameM;
};

}  // namespace lumnis
