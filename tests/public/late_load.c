/* A host that loads the library while it runs and calls it from a new thread, with a heap that
 * fails: the loader itself takes memory then, for what belongs to a thread. For each allocation in
 * turn a process of its own in which that one fails, or that one and all behind it. The call must
 * come back with 0 or 1, and the next one must work.
 *
 *     late_load LIBRARY
 */
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/wait.h>
#include <unistd.h>

/* The heap of the C library behind the one below. */
extern void* __libc_malloc(size_t size);
extern void* __libc_calloc(size_t count, size_t size);
extern void* __libc_realloc(void* block, size_t size);
extern void* __libc_memalign(size_t alignment, size_t size);

typedef int (*Export)(const char*, int, char**, unsigned short*, char**);

enum { GOOD = 0, NO_FAILURE = 10, WRONG = 20 };

static const char* const names[] = {"WMLEncode", "WMLSCompile"};
static const char* const sources[] = {
    "<!DOCTYPE wml PUBLIC \"-//WAPFORUM//DTD WML 1.1//EN\" "
    "\"x\"><wml><card><p>hello</p></card></wml>",
    "extern function f() { return \"hello\"; }"};

/* The calling thread's, from its start. */
static __thread long left;
static __thread int isArmed;
static __thread int staysEmpty;
static __thread int hasFailed;

static int fails(void) {
    if (!isArmed || (left != 0 && --left != 0))
        return 0;
    isArmed = staysEmpty;
    hasFailed = 1;
    return 1;
}

void* malloc(size_t size) {
    return fails() ? NULL : __libc_malloc(size);
}
void* calloc(size_t count, size_t size) {
    return fails() ? NULL : __libc_calloc(count, size);
}
void* realloc(void* block, size_t size) {
    return fails() ? NULL : __libc_realloc(block, size);
}
void* aligned_alloc(size_t alignment, size_t size) {
    return fails() ? NULL : __libc_memalign(alignment, size);
}

struct Run {
    Export call;
    const char* source;
    long number;
    int staysEmpty;
};

static int callOnce(const struct Run* run) {
    char* result = NULL;
    char* error = NULL;
    unsigned short length = 0;
    return run->call(run->source, (int)strlen(run->source), &result, &length, &error);
}

static void* callTwice(void* argument) {
    const struct Run* const run = argument;
    int first;
    left = run->number;
    staysEmpty = run->staysEmpty;
    isArmed = 1;
    first = callOnce(run);
    isArmed = 0;
    if ((first != 0 && first != 1) || callOnce(run) != 0)
        return (void*)(long)WRONG;
    return (void*)(long)(hasFailed ? GOOD : NO_FAILURE);
}

static int child(const char* library, int kind, struct Run run) {
    void* const handle = dlopen(library, RTLD_NOW);
    const int nowhere = open("/dev/null", O_WRONLY);
    pthread_t thread;
    void* outcome = NULL;
    dup2(nowhere, STDOUT_FILENO); /* the library prints what it cannot do */
    if (handle == NULL)
        return WRONG;
    /* A function pointer through void*, as POSIX wants it. */
    *(void**)&run.call = dlsym(handle, names[kind]);
    run.source = sources[kind];
    if (run.call == NULL || pthread_create(&thread, NULL, callTwice, &run) != 0)
        return WRONG;
    pthread_join(thread, &outcome);
    return (int)(long)outcome;
}

int main(int argc, char** argv) {
    int kind;
    if (argc != 2)
        return 2;
    for (kind = 0; kind < 2; ++kind) {
        int empty;
        for (empty = 0; empty < 2; ++empty) {
            struct Run run = {NULL, NULL, 1, empty};
            for (;; ++run.number) {
                int status = 0;
                const pid_t process = fork();
                if (process == 0)
                    _exit(child(argv[1], kind, run));
                waitpid(process, &status, 0);
                if (WIFEXITED(status) && WEXITSTATUS(status) == NO_FAILURE)
                    break;
                if (!WIFEXITED(status) || WEXITSTATUS(status) != GOOD) {
                    fprintf(stderr, "%s, allocation %ld%s: status 0x%x\n", names[kind], run.number,
                            empty ? " and all behind it" : "", (unsigned)status);
                    return 1;
                }
            }
            if (run.number < 20) {
                fprintf(stderr, "%s: only %ld allocations\n", names[kind], run.number);
                return 1;
            }
        }
    }
    return 0;
}
