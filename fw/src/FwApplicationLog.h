// The application log: lines of trace, debug and events, as the settings ask for them.
//
// docs/logging.md tells the settings and shows the lines. Without settings the log writes nothing;
// that they are missing goes to the system's log, once. It never fails its user: nothing is thrown,
// errno and signals stay as they were, and a line that cannot be written vanishes.
#pragma once

#include <atomic>
#include <string>
#include <string_view>

#include "CpsString.h"
#include "FwLogFile.h"
#include "FwTraceScope.h"

namespace lumnis {

// One object for the process, made on first use and never destroyed. Any number of threads.
class FwApplicationLog {
  public:
    static FwApplicationLog& instance() noexcept;

    FwApplicationLog(const FwApplicationLog&) = delete;
    FwApplicationLog& operator=(const FwApplicationLog&) = delete;

    // Entry to or exit from a function, if the row trace is on.
    void trace(FwTraceKind theKind, const char* theFunction, const char* theFile,
               int theLine) noexcept;
    // A free text, if the row debug is on.
    void debug(const char* theText, const char* theFile = __builtin_FILE(),
               int theLine = __builtin_LINE()) noexcept;
    // The echo of an event, in its low 16 bits. Severities 4 and 5 are alarms. A null theText
    // counts as empty.
    void event(int theSeverity, int theId, unsigned theEventId, const char* theText) noexcept;

  private:
    FwApplicationLog() noexcept;
    // Nobody destroys the log: scopes may end when static objects are destroyed already.
    ~FwApplicationLog() = default;

    // Throws at the first setting that cannot be read.
    void readSettings();
    void reportBadSettings(const char* theReason) const noexcept;
    bool hasDestination() const { return standardErrorDestinationM || fileDestinationM; }

    std::string prefix() const;
    std::string indentation() const;
    std::string place(const char* theFile, int theLine) const;
    // To every destination that is on.
    void write(std::string theLine);

    unsigned processIdM = 0;
    std::string commandLineM;     // when the column is on
    std::string processNameM;     // the same; empty for a process that the system does not list
    std::atomic<int> indentM{0};  // one for all threads: approximate when several of them trace

    bool dateColumnM = false;
    bool timeColumnM = false;
    bool commandLineColumnM = false;
    bool processNameColumnM = false;
    bool processIdColumnM = false;
    bool threadIdColumnM = false;
    bool debugRowM = false;
    bool traceRowM = false;
    bool fileColumnM = false;
    bool lineColumnM = false;
    bool standardErrorDestinationM = false;
    bool fileDestinationM = false;

    FwLogFile logFileM;
};

}  // namespace lumnis
