// The services of the system that the log stands on: the mutex of all processes, the store of the
// settings, the list of processes.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "ChildProcess.h"
#include "FwNamedMutex.h"
#include "FwProcessTable.h"
#include "FwRegistry.h"

// support/failing_calls.c: "CALL:N:ERRNO,..." fails from here on.
extern "C" void fail_calls(const char* thePlans);

namespace lumnis {
namespace {

namespace fs = std::filesystem;

// The child takes the mutex, tells so and waits.
pid_t startHolder() {
    int ends[2];
    if (pipe(ends) != 0) {
        return -1;
    }
    const pid_t child = fork();
    if (child == 0) {
        const FwNamedMutex mutex("HolderTest");
        const char told = mutex.isHeld() ? '1' : '0';
        if (write(ends[1], &told, 1) == 1) {
            pause();
        }
        test::leave(1);
    }
    char told = '0';
    EXPECT_EQ(read(ends[0], &told, 1), 1);
    EXPECT_EQ(told, '1');
    close(ends[0]);
    close(ends[1]);
    return child;
}

TEST(FwNamedMutex, SurvivesItsHolderAndDoesNotWaitForever) {
    const pid_t holder = startHolder();
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 100; ++i) {
        // The first attempt waits, the others know better.
        EXPECT_FALSE(FwNamedMutex("HolderTest").isHeld());
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    kill(holder, SIGKILL);
    waitpid(holder, nullptr, 0);
    const FwNamedMutex mutex("HolderTest");
    EXPECT_TRUE(mutex.isHeld());
    EXPECT_TRUE(FwNamedMutex("OtherTest").isHeld());
}

// Somebody may tidy the file away, or the folder may be missing.
TEST(FwNamedMutex, IsHeldWhereTheSystemLetsIt) {
    struct Row {
        const char* plans;
        bool isHeld;
    };
    const Row rows[] = {
        {"", true},
        {"flock:1:EINTR", true},
        {"flock:1+:ENOLCK", false},
        {"open=FailingTest:1+:EACCES", false},
        {"open=FailingTest:1:ENOENT", true},  // made by another process since
        {"open=FailingTest:1+:ENOENT", false},
        {"fstat:1:EIO", true},
        {"lstat:1:ENOENT", true},
        {"lstat:1+:ENOENT", false},
        {"stat:1:ENOENT", true},
    };
    for (const Row& row : rows) {
        fail_calls(row.plans);
        const FwNamedMutex mutex("FailingTest");
        fail_calls(nullptr);
        EXPECT_EQ(mutex.isHeld(), row.isHeld) << row.plans;
    }
    for (const char* folder : {"/dev/shm/", "/tmp/"}) {
        fs::remove(std::string(folder) + "lumnisutil.FailingTest");
    }
    EXPECT_TRUE(FwNamedMutex("FailingTest").isHeld());
    fs::remove("/dev/shm/lumnisutil.FailingTest");
}

TEST(FwRegistry, HasOneMachineOnly) {
    try {
        const FwRegistry registry("other", FwHive::localMachine, "Root");
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(),
                     "Unable to connect to registry on mashine, other. "
                     "System message: Operation not supported");
    }
}

TEST(FwProcessTable, FindsProcesses) {
    FwProcessTable table(true);
    EXPECT_EQ(table.name(), "");
    EXPECT_TRUE(table.find(static_cast<unsigned>(getpid())));
    EXPECT_EQ(table.name(), "test_applicatio");
    EXPECT_FALSE(table.find(0x7FFFFFFF));
    EXPECT_FALSE(FwProcessTable(false).find(static_cast<unsigned>(getpid())));
}

}  // namespace
}  // namespace lumnis
