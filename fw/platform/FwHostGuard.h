// Service of the platform: keeps the log from disturbing a host that does not know of it.
#pragma once

namespace lumnis {

// While the object lives the thread cannot be cancelled, and errno is afterwards what it was.
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
