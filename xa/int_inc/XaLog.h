// How the framework reports faults: to the trace, and to the event log of the system.
#pragma once

#include <string_view>

namespace lumnis {

class XaLog {
  public:
    // Both texts as one, as much of them as goes into 1023 bytes, with the place of the caller.
    static void trace(std::string_view thePrefix, std::string_view theText,
                      const char* theFile = __builtin_FILE(),
                      int theLine = __builtin_LINE()) noexcept;
    // An error event. Nothing thrown: it is called while another fault is on its way.
    static void report(const char* theText) noexcept;
};

}  // namespace lumnis
