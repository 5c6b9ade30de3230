/* Makes calls of libc fail when told to, as on a system that fails between two calls of a program:
 * a disk that goes bad before close, a signal that interrupts a read, a limit that is reached.
 * Loaded in front of libc by the script failing, for the cases of tests/cases/cli:
 *
 *     failing close:2:EIO lumnis compile hello.wmls     the second close fails
 *     failing fchmod:1+:EPERM,read:1:EINTR lumnis ...   every fchmod, and the first read
 *     failing open=/x.wml:1:EIO lumnis ...              the first open of a path that holds /x.wml
 *
 * A count of the program's own calls, with those of the C++ library in it: what libc does for
 * itself does not count. A name that is not in the list below ends the program. */
#define _GNU_SOURCE
#include <dirent.h>
#include <dlfcn.h>
#include <errno.h>
#include <poll.h>
#include <pthread.h>
#include <stdarg.h>
#include <stdatomic.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/signalfd.h>
#include <sys/stat.h>
#include <unistd.h>

struct plan {
    char name[24];
    char path[24]; /* what the path of an open holds */
    int first;    /* the call that fails */
    bool goes_on; /* and all behind it */
    int error;
    atomic_int count;
};

static struct plan the_plans[8];

static int error_of(const char* the_name) {
    for (int error = 1; error < 256; ++error) {
        const char* name = strerrorname_np(error);
        if (name != NULL && strcmp(name, the_name) == 0) {
            return error;
        }
    }
    return 0;
}

static const char* const the_names[] = {"close",   "fchmod",    "fchown",         "flock",
                                        "fstat",   "inotify_init1", "inotify_add_watch", "lstat",
                                        "open",    "opendir",   "poll",           "pthread_create",
                                        "read",    "readlink", "rename",    "signalfd", "stat", "write"};

static bool is_known(const char* the_name) {
    for (size_t i = 0; i < sizeof the_names / sizeof *the_names; ++i) {
        if (strcmp(the_names[i], the_name) == 0) {
            return true;
        }
    }
    return false;
}

/* For a test that has this file in its own program; the counts begin anew. */
void fail_calls(const char* the_plans_text) {
    const char* text = the_plans_text;
    memset(the_plans, 0, sizeof the_plans);
    for (struct plan* plan = the_plans; text != NULL && *text != '\0'; ++plan) {
        char onward[2] = "";
        char error[24] = "";
        int length = 0;
        if (plan == the_plans + sizeof the_plans / sizeof *the_plans) {
            abort();
        }
        sscanf(text, "%23[a-z0-9_]%n", plan->name, &length);
        text += length;
        if (sscanf(text, "=%23[^:]%n", plan->path, &length) == 1) {
            text += length;
        }
        length = 0;
        if (sscanf(text, ":%d%1[+]:%23[A-Z0-9]%n", &plan->first, onward, error, &length) != 3) {
            onward[0] = '\0';
            sscanf(text, ":%d:%23[A-Z0-9]%n", &plan->first, error, &length);
        }
        plan->goes_on = onward[0] == '+';
        plan->error = error_of(error);
        text += length;
        if (!is_known(plan->name) || plan->error == 0 || (*text != ',' && *text != '\0')) {
            fprintf(stderr, "failing: no such call or error: %s\n", the_plans_text);
            abort();
        }
        text += *text == ',';
    }
}

__attribute__((constructor)) static void read_plans(void) {
    fail_calls(getenv("FAILING_CALLS"));
}

/* Whether this call fails; errno is set then. */
static bool fails_at(const char* the_name, const char* the_path) {
    for (size_t i = 0; i < sizeof the_plans / sizeof *the_plans; ++i) {
        struct plan* plan = &the_plans[i];
        if (strcmp(plan->name, the_name) == 0 && strstr(the_path, plan->path) != NULL) {
            const int count = 1 + atomic_fetch_add(&plan->count, 1);
            if (count == plan->first || (plan->goes_on && count > plan->first)) {
                errno = plan->error;
                return true;
            }
        }
    }
    return false;
}

static bool fails(const char* the_name) { return fails_at(the_name, ""); }

/* The function NAME in front of libc's. */
#define CALL(RESULT, FAILURE, NAME, PARAMETERS, ...)                      \
    RESULT NAME PARAMETERS {                                              \
        RESULT(*next) PARAMETERS;                                         \
        *(void**)&next = dlsym(RTLD_NEXT, #NAME);                         \
        return fails(#NAME) ? FAILURE : next(__VA_ARGS__);                \
    }

CALL(int, -1, close, (int fd), fd)
CALL(int, -1, fchmod, (int fd, mode_t mode), fd, mode)
CALL(int, -1, fchown, (int fd, uid_t user, gid_t group), fd, user, group)
CALL(int, -1, flock, (int fd, int how), fd, how)
CALL(int, -1, fstat, (int fd, struct stat* status), fd, status)
CALL(int, -1, inotify_init1, (int flags), flags)
CALL(int, -1, inotify_add_watch, (int fd, const char* path, uint32_t mask), fd, path, mask)
CALL(int, -1, lstat, (const char* path, struct stat* status), path, status)
CALL(DIR*, NULL, opendir, (const char* path), path)
CALL(int, -1, poll, (struct pollfd * list, nfds_t count, int timeout), list, count, timeout)
CALL(int, errno, pthread_create,
     (pthread_t * thread, const pthread_attr_t* how, void* (*start)(void*), void* argument), thread,
     how, start, argument)
CALL(ssize_t, -1, read, (int fd, void* bytes, size_t size), fd, bytes, size)
CALL(ssize_t, -1, readlink, (const char* path, char* text, size_t size), path, text, size)
CALL(int, -1, rename, (const char* from, const char* to), from, to)
CALL(int, -1, signalfd, (int fd, const sigset_t* signals, int flags), fd, signals, flags)
CALL(int, -1, stat, (const char* path, struct stat* status), path, status)
CALL(ssize_t, -1, write, (int fd, const void* bytes, size_t size), fd, bytes, size)

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = flags & O_CREAT ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    int (*next)(const char*, int, ...);
    *(void**)&next = dlsym(RTLD_NEXT, "open");
    return fails_at("open", path) ? -1 : next(path, flags, mode);
}
