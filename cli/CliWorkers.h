// Work on several things at once, with results in order.
#pragma once

#include <pthread.h>

#include <algorithm>
#include <condition_variable>
#include <csignal>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace lumnis {

// Threads that do a numbered work ahead of the one thread that takes the results. At most a few
// results per thread wait to be taken, so memory does not grow with the number of things.
template <typename Result>
class CliWorkers {
  public:
    using Work = std::function<Result(std::size_t)>;

    // Begins to call theWork(0) to theWork(theCount - 1) on theThreads threads, on fewer if the
    // system gives no more. theWork must not throw, and must outlive the object.
    CliWorkers(std::size_t theCount, std::size_t theThreads, const Work& theWork)
        : countM(theCount), workM(theWork), resultsM(theThreads * theResultsPerThread) {
        threadsM.reserve(theThreads);
        // Signals are the main thread's: a new thread inherits the mask.
        sigset_t all;
        sigset_t old;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &old);
        try {
            while (threadsM.size() < theThreads) {
                threadsM.emplace_back([this] { work(); });
            }
        } catch (const std::exception&) {
            // Fewer threads do as well; without any, take does the work.
        }
        pthread_sigmask(SIG_SETMASK, &old, nullptr);
    }
    CliWorkers(const CliWorkers&) = delete;
    CliWorkers& operator=(const CliWorkers&) = delete;
    // Waits for the work that has been begun; the rest is not done.
    ~CliWorkers() {
        const std::lock_guard lock(mutexM);
        isStoppedM = true;
        hasChangedM.notify_all();
    }

    // Waits for the next result, in the order of the numbers. At most theCount calls.
    Result take() {
        if (threadsM.empty()) {
            return workM(takenM++);
        }
        std::unique_lock lock(mutexM);
        std::optional<Result>& place = placeOf(takenM);
        hasChangedM.wait(lock, [&] { return place.has_value(); });
        Result result = std::move(*place);
        place.reset();
        ++takenM;
        hasChangedM.notify_all();
        return result;
    }

  private:
    static constexpr std::size_t theResultsPerThread = 4;

    // What each thread runs.
    void work() {
        std::unique_lock lock(mutexM);
        for (;;) {
            hasChangedM.wait(lock, [this] { return isDone() || nextM < takenM + resultsM.size(); });
            if (isDone()) {
                return;
            }
            const std::size_t number = nextM++;
            lock.unlock();
            Result result = workM(number);
            lock.lock();
            placeOf(number) = std::move(result);
            hasChangedM.notify_all();
        }
    }
    bool isDone() const { return isStoppedM || nextM == countM; }
    std::optional<Result>& placeOf(std::size_t theNumber) {
        return resultsM[theNumber % resultsM.size()];
    }

    const std::size_t countM;
    const Work& workM;
    std::mutex mutexM;  // of all below
    std::condition_variable hasChangedM;
    std::vector<std::optional<Result>> resultsM;  // that wait to be taken
    std::size_t nextM = 0;                        // the first that no thread has begun
    std::size_t takenM = 0;
    bool isStoppedM = false;
    std::vector<std::jthread> threadsM;  // last: joined before what they look at goes
};

// Calls theWork(0) to theWork(theCount - 1) on up to theThreads threads, and on the calling thread
// theCommit(i, result of i) in the order of i, each as soon as all before it are through. With one
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
    CliWorkers<Result> workers(theCount, theThreads, theWork);
    for (std::size_t i = 0; i < theCount; ++i) {
        Result result = workers.take();
        theCommit(i, result);
    }
}

}  // namespace lumnis
