// Service of the platform: who and when we are.
#pragma once

#include <string>

namespace lumnis {

struct FwLocalTime {
    int year, month, day;
    int hour, minute, second, millisecond;
};

class FwSystem {
  public:
    // Between a folder and a file.
    static constexpr char thePathSeparator = '/';

    static unsigned processId();
    static unsigned threadId();
    // The arguments of the process, the program first, with blanks between them. Empty when the
    // system does not tell.
    static std::string commandLine();
    // All zero when the system does not tell.
    static FwLocalTime localTime();
};

}  // namespace lumnis
