// Service of the platform: the processes that run now.
#pragma once

#include <functional>
#include <string_view>

namespace lumnis {

// Calls theVisitor with the id and the name of each process, in the system's order. The name is
// "unknown" where the system does not tell it. No call when there is no list to be had.
void fwVisitProcesses(const std::function<void(unsigned, std::string_view)>& theVisitor);

}  // namespace lumnis
