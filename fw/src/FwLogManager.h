// The event logs of the process by name.
#pragma once

#include <atomic>

#include "CpsString.h"
#include "FwLog.h"

namespace lumnis {

// One object for the process, made on first use; the logs stay as long as it. Any number of
// threads. The system reports to one log, "Orrel".
class FwLogManager {
  public:
    static FwLogManager& instance();

    FwLogManager(const FwLogManager&) = delete;
    FwLogManager& operator=(const FwLogManager&) = delete;

    // The log of that name, made at the first request. Throws std::bad_alloc alone.
    FwLog* getLog(const char* theName);

  private:
    struct Entry {
        Entry(const char* theName, Entry* theNext) : name(theName), log(theName), next(theNext) {}

        const CpsString name;
        FwLog log;
        Entry* next;
    };

    FwLogManager() = default;

    FwLog* find(const char* theName) const;

    // Grows at its head alone, so that it can be read without a lock.
    std::atomic<Entry*> entriesM{nullptr};
};

}  // namespace lumnis
