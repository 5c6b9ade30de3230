#include "FwThreadBuffer.h"

#include <pthread.h>

#include <cstdlib>
#include <optional>

namespace lumnis {

namespace {

std::optional<pthread_key_t> makeKey() noexcept {
    pthread_key_t key{};
    return pthread_key_create(&key, std::free) == 0 ? std::optional(key) : std::nullopt;
}

}  // namespace

char* fwThreadBuffer() noexcept {
    static const std::optional<pthread_key_t> theKey = makeKey();
    if (!theKey) {
        return nullptr;
    }
    void* buffer = pthread_getspecific(*theKey);
    if (buffer == nullptr) {
        buffer = std::malloc(theThreadBufferSize);
        if (buffer != nullptr && pthread_setspecific(*theKey, buffer) != 0) {
            std::free(buffer);
            buffer = nullptr;
        }
    }
    return static_cast<char*>(buffer);
}

}  // namespace lumnis
