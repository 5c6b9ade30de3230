#include "FwTraceScope.h"

#include "FwApplicationLog.h"

namespace lumnis {

#if LUMNIS_TRACE_SCOPES
void FwTraceScope::mark(FwTraceKind theKind, const char* theFunction, const char* theFile,
                        int theLine) noexcept {
    FwApplicationLog::instance().trace(theKind, theFunction, theFile, theLine);
}
#endif

}  // namespace lumnis
