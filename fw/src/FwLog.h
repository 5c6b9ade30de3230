// A named log of events.
#pragma once

#include "FwEventLog.h"

namespace lumnis {

class FwLog {
  public:
    // theName is the source of the events in the platform's log.
    explicit FwLog(const char* theName) : sourceM(theName) {}
    FwLog(const FwLog&) = delete;
    FwLog& operator=(const FwLog&) = delete;

    // Tells the platform's event log of an error, and echoes it to the application log. The
    // category is theId modulo 1000. theText may be null. Never throws.
    void report(int theId, unsigned theEventCode, const char* theText) const noexcept;

  private:
    const FwEventSource sourceM;
};

}  // namespace lumnis
