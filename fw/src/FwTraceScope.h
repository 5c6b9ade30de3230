// Marks entry and exit of a function in the application log.
#pragma once

namespace lumnis {

// Opened at the top of a function of note with its qualified name, as in
//     FwTraceScope scope("WscParser::parse");
// Silent unless the settings of the log turn the trace on.
class FwTraceScope {
  public:
    // theFunction and theFile must outlive the scope: literals do.
    explicit FwTraceScope(const char* theFunction, const char* theFile = __builtin_FILE(),
                          int theLine = __builtin_LINE()) {
        static_cast<void>(theFunction);
        static_cast<void>(theFile);
        static_cast<void>(theLine);
    }
    FwTraceScope(const FwTraceScope&) = delete;
    FwTraceScope& operator=(const FwTraceScope&) = delete;
    ~FwTraceScope() {}
};

}  // namespace lumnis
