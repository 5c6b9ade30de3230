// Marks entry and exit of a function in the application log.
#pragma once

#include <atomic>

// 0 compiles the scopes to nothing; set by the build for all that include this file.
#ifndef LUMNIS_TRACE_SCOPES
#define LUMNIS_TRACE_SCOPES 1
#endif

namespace lumnis {

enum class FwTraceKind { entry, exit };

// Opened at the top of a function of note with its qualified name, as in
//     FwTraceScope scope("WscParser::yyparse");
// Silent unless the settings of the log turn the trace on: then it costs a test of one byte at
// entry and at exit.
class [[maybe_unused]] FwTraceScope {
  public:
#if LUMNIS_TRACE_SCOPES
    // theFunction and theFile must outlive the scope: literals do.
    explicit FwTraceScope(const char* theFunction, const char* theFile = __builtin_FILE(),
                          int theLine = __builtin_LINE()) noexcept
        : functionM(theFunction), fileM(theFile), lineM(theLine) {
        if (theState.load(std::memory_order_relaxed) != State::off) [[unlikely]] {
            mark(FwTraceKind::entry, functionM, fileM, lineM);
        }
    }
    ~FwTraceScope() {
        if (theState.load(std::memory_order_relaxed) != State::off) [[unlikely]] {
            mark(FwTraceKind::exit, functionM, fileM, lineM);
        }
    }
#else
    explicit constexpr FwTraceScope(const char*, const char* = nullptr, int = 0) noexcept {}
    ~FwTraceScope() = default;
#endif
    FwTraceScope(const FwTraceScope&) = delete;
    FwTraceScope& operator=(const FwTraceScope&) = delete;

  private:
    friend class FwApplicationLog;

    // Whether the settings have the trace on. The first scope of the process finds it unknown and
    // makes the log, which reads the settings and sets it; after that it does not change.
    enum class State : unsigned char { unknown, off, on };
    static inline constinit std::atomic<State> theState{State::unknown};

#if LUMNIS_TRACE_SCOPES
    // Passed by value, so that the scope itself need not exist in memory.
    [[gnu::cold]] static void mark(FwTraceKind theKind, const char* theFunction,
                                   const char* theFile, int theLine) noexcept;

    const char* const functionM;
    const char* const fileM;
    const int lineM;
#endif
};

}  // namespace lumnis
