#include "FwHostGuard.h"

#include <pthread.h>

#include <cerrno>

namespace lumnis {

FwHostGuard::FwHostGuard() noexcept : errnoM(errno) {
    pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &cancelStateM);
}

FwHostGuard::~FwHostGuard() {
    pthread_setcancelstate(cancelStateM, nullptr);
    errno = errnoM;
}

}  // namespace lumnis
