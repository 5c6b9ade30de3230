// Work on several things at once, with results in order.
#pragma once

#include <pthread.h>
#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <csignal>
#include <functional>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <vector>

namespace lumnis {

// Calls theWork(0) to theWork(theCount - 1) on up to theThreads threads, and on the calling thread
// theCommit(i, result of i) in the order of i, each as soon as all before it are through. At most a
// few results per thread wait for their turn, so memory does not grow with theCount. With one
// thread everything happens on the calling one. theWork must not throw.
template <typename Result>
void runInOrder(std::size_t theCount, std::size_t theThreads,
                const std::function<Result(std::size_t)>& theWork,
                const std::function<void(std::size_t, Result&)>& theCommit) {
    theThreads = std::min(theThreads, theCount);
    if (theThreads <= 1) {
        for (std::size_t i = 0; i < theCount; ++i) {
            Result result = theWork(i);
            theCommit(i, result);
        }
        return;
    }
    const std::size_t window = theThreads * 4;
    std::mutex mutex;
    std::condition_variable hasChanged;
    std::vector<std::optional<Result>> results(window);  // of i at i % window
    std::size_t next = 0;                                // the first that no worker has taken
    std::size_t committed = 0;                           // how many are through
    bool isStopped = false;
    const auto worker = [&] {
        std::unique_lock lock(mutex);
        for (;;) {
            hasChanged.wait(
                lock, [&] { return isStopped || next == theCount || next < committed + window; });
            if (isStopped || next == theCount) {
                return;
            }
            const std::size_t i = next++;
            lock.unlock();
            Result result = theWork(i);
            lock.lock();
            results[i % window] = std::move(result);
            hasChanged.notify_all();
        }
    };
    std::vector<std::jthread> threads;  // joined by its destructor, before what it looks at goes
    struct Stop {
        std::mutex& mutexM;
        std::condition_variable& hasChangedM;
        bool& isStoppedM;
        ~Stop() {
            const std::lock_guard lock(mutexM);
            isStoppedM = true;
            hasChangedM.notify_all();
        }
    } const stop{mutex, hasChanged, isStopped};
    // Signals are the main thread's: a new thread inherits the mask.
    sigset_t all;
    sigset_t old;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &old);
    try {
        while (threads.size() < theThreads) {
            threads.emplace_back(worker);
        }
    } catch (const std::system_error&) {
        // Fewer threads do as well; without any the calling thread does the work below.
    }
    pthread_sigmask(SIG_SETMASK, &old, nullptr);
    for (std::size_t i = 0; i < theCount; ++i) {
        std::optional<Result> result;
        if (threads.empty()) {
            result = theWork(i);
        } else {
            std::unique_lock lock(mutex);
            hasChanged.wait(lock, [&] { return results[i % window].has_value(); });
            result.swap(results[i % window]);
        }
        theCommit(i, *result);
        const std::lock_guard lock(mutex);
        ++committed;
        hasChanged.notify_all();
    }
}

}  // namespace lumnis
