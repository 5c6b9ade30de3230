#include "FwSystem.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <ctime>
#include <fstream>

namespace lumnis {

unsigned FwSystem::processId() {
    return static_cast<unsigned>(::getpid());
}

unsigned FwSystem::threadId() {
    return static_cast<unsigned>(::syscall(SYS_gettid));
}

std::string FwSystem::commandLine() {
    std::ifstream stream("/proc/self/cmdline", std::ios::binary);
    std::string result;
    for (std::string argument; std::getline(stream, argument, '\0');) {
        result += (result.empty() ? "" : " ") + argument;
    }
    return result;
}

FwLocalTime FwSystem::localTime() {
    timespec now{};
    tm parts{};
    if (::clock_gettime(CLOCK_REALTIME, &now) != 0 ||
        ::localtime_r(&now.tv_sec, &parts) == nullptr) {
        return {};
    }
    return {parts.tm_year + 1900,
            parts.tm_mon + 1,
            parts.tm_mday,
            parts.tm_hour,
            parts.tm_min,
            parts.tm_sec,
            static_cast<int>(now.tv_nsec / 1'000'000)};
}

}  // namespace lumnis
