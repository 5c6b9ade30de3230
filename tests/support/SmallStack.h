// A thread with the least stack that a host may give the library.
#pragma once

#include <pthread.h>

#include <functional>
#include <stdexcept>

namespace lumnis::test {

// 1 MiB. The frames of the sanitizers and of code that is not optimized are larger.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(NDEBUG)
constexpr std::size_t theSmallStack = 8u << 20;
#else
constexpr std::size_t theSmallStack = 1u << 20;
#endif

// Runs theWork, which must not throw, to its end.
inline void onSmallStack(const std::function<void()>& theWork) {
    pthread_attr_t attributes;
    pthread_t thread;
    const auto run = [](void* theArgument) -> void* {
        (*static_cast<const std::function<void()>*>(theArgument))();
        return nullptr;
    };
    void* const argument = const_cast<std::function<void()>*>(&theWork);
    if (pthread_attr_init(&attributes) != 0 ||
        pthread_attr_setstacksize(&attributes, theSmallStack) != 0 ||
        pthread_create(&thread, &attributes, run, argument) != 0 ||
        pthread_join(thread, nullptr) != 0) {
        throw std::runtime_error("no thread with a small stack");
    }
    pthread_attr_destroy(&attributes);
}

}  // namespace lumnis::test
