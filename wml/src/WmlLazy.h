// Something that is made when it is first asked for, by whichever thread comes first, and then only
// read.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>

namespace lumnis {

template <class T>
class WmlLazy {
  public:
    // theMake gives a std::unique_ptr<T>. If it throws, the next call tries again.
    template <class Make>
    T& get(Make theMake) {
        if (T* ready = readyM.load(std::memory_order_acquire)) {
            return *ready;
        }
        const std::lock_guard lock(mutexM);
        if (madeM == nullptr) {
            madeM = theMake();
            readyM.store(madeM.get(), std::memory_order_release);
        }
        return *madeM;
    }

  private:
    std::atomic<T*> readyM{nullptr};
    std::mutex mutexM;
    std::unique_ptr<T> madeM;
};

}  // namespace lumnis
