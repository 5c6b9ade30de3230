// Service of the platform: the log must not disturb the host that does not know of it.
#pragma once

namespace lumnis {

// While the object lives, what the log does stays hidden from the code that the log was called
// from: errno stays, and the thread is not cancelled in the middle.
class FwHostGuard {
  public:
    FwHostGuard() noexcept;
    FwHostGuard(const FwHostGuard&) = delete;
    FwHostGuard& operator=(const FwHostGuard&) = delete;
    ~FwHostGuard();

  private:
    const int errnoM;
    int cancelStateM = 0;
};

}  // namespace lumnis
