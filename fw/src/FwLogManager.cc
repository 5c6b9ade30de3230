#include "FwLogManager.h"

#include <mutex>

#include "FwHostGuard.h"
#include "FwNamedMutex.h"

namespace lumnis {

FwLogManager& FwLogManager::instance() {
    // Never destroyed: a call may come while the process ends.
    static FwLogManager& theManager = *new FwLogManager;
    return theManager;
}

FwLog* FwLogManager::find(const char* theName) const {
    for (Entry* entry = entriesM.load(std::memory_order_acquire); entry != nullptr;
         entry = entry->next) {
        if (entry->name == theName) {
            return &entry->log;
        }
    }
    return nullptr;
}

FwLog* FwLogManager::getLog(const char* theName) {
    if (FwLog* log = find(theName); log != nullptr) {
        return log;
    }
    const FwHostGuard guard;
    static std::mutex theCreation;
    // The mutex between processes is for the platform, which learns of a new source here. It may
    // not be had (see FwNamedMutex.h), so the list has a lock of its own.
    const FwNamedMutex mutex("FwLogManagerMutex");
    const std::lock_guard lock(theCreation);
    if (FwLog* log = find(theName); log != nullptr) {
        return log;
    }
    auto* entry = new Entry(theName, entriesM.load(std::memory_order_relaxed));
    entriesM.store(entry, std::memory_order_release);
    return &entry->log;
}

}  // namespace lumnis
