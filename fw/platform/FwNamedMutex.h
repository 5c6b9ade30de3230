// Service of the platform: mutual exclusion between all threads of all processes, by name.
#pragma once

namespace lumnis {

// Takes the mutex of a name for the life of the object. Two objects exclude each other in
// different processes and in one; a thread must not take a name twice at once.
//
// The mutex comes free when its holder dies. A holder that lives but does not let go (a stopped
// process, a stranger) must not stop the host: after a second the object gives up, and until one
// has been had again no object of this process waits, whatever its name. So isHeld may be false,
// and what is guarded must be safe, if less tidy, without.
class FwNamedMutex {
  public:
    // Letters and digits.
    explicit FwNamedMutex(const char* theName) noexcept;
    FwNamedMutex(const FwNamedMutex&) = delete;
    FwNamedMutex& operator=(const FwNamedMutex&) = delete;
    ~FwNamedMutex();

    bool isHeld() const { return handleM >= 0; }

  private:
    int handleM;  // negative when the mutex could not be had
};

}  // namespace lumnis
