#include "FwLog.h"

#include "FwApplicationLog.h"
#include "FwHostGuard.h"

namespace lumnis {

namespace {

constexpr int theEventSeverity = 2;

}  // namespace

void FwLog::report(int theId, unsigned theEventCode, const char* theText) const noexcept {
    {
        const FwHostGuard guard;
        sourceM.report(FwEventType::error, theId % 1000, theEventCode, {theText});
    }
    FwApplicationLog::instance().event(theEventSeverity, theId, theEventCode & 0xFFFF, theText);
}

}  // namespace lumnis
