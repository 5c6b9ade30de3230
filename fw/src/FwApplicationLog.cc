#include "FwApplicationLog.h"

#include <cstdio>
#include <exception>
#include <new>
#include <stdexcept>

#include "FwEventLog.h"
#include "FwHostGuard.h"
#include "FwNamedMutex.h"
#include "FwProcessTable.h"
#include "FwRegistry.h"
#include "FwSystem.h"

namespace lumnis {

namespace {

constexpr char theSettingsRoot[] = "Software\\Halvern\\Qir";
constexpr char theColumnsKey[] = "ApplicationLog\\Interface\\Columns";
constexpr char theRowsKey[] = "ApplicationLog\\Interface\\Rows";
constexpr char theDestinationKey[] = "ApplicationLog\\Interface\\Destination";
constexpr char theFileKey[] = "ApplicationLog\\Common\\File";

bool readFlag(const char* theKey, const char* theName) {
    unsigned value = 0;
    FwRegistry(nullptr, FwHive::localMachine, theSettingsRoot).getUnsigned(theKey, theName, value);
    return value != 0;
}

CpsString readText(const char* theKey, const char* theName) {
    CpsString value;
    FwRegistry(nullptr, FwHive::localMachine, theSettingsRoot).getString(theKey, theName, value);
    return value;
}

// Exactly one separator stands between the two.
std::string joinPath(std::string_view theFolder, std::string_view theName) {
    const std::string problem = std::string(theFolder.empty() ? "No directory name. " : "") +
                                (theName.empty() ? "No file name. " : "");
    if (!problem.empty()) {
        throw std::runtime_error(problem);
    }
    const bool folderHas = theFolder.ends_with(FwSystem::thePathSeparator);
    const bool nameHas = theName.starts_with(FwSystem::thePathSeparator);
    std::string path(theFolder);
    if (folderHas && nameHas) {
        path.pop_back();
    } else if (!folderHas && !nameHas) {
        path += FwSystem::thePathSeparator;
    }
    return path.append(theName);
}

}  // namespace

FwApplicationLog& FwApplicationLog::instance() noexcept {
    // In memory of its own, so that no destructor runs.
    alignas(FwApplicationLog) static unsigned char theMemory[sizeof(FwApplicationLog)];
    static FwApplicationLog* const theLog = [] {
        const FwHostGuard guard;
        return new (theMemory) FwApplicationLog;
    }();
    return *theLog;
}

FwApplicationLog::FwApplicationLog() noexcept {
    try {
        readSettings();
    } catch (const std::exception& error) {
        reportBadSettings(error.what());
    } catch (...) {
        reportBadSettings("");
    }
    FwTraceScope::theState.store(
        traceRowM && hasDestination() ? FwTraceScope::State::on : FwTraceScope::State::off,
        std::memory_order_relaxed);
}

// The order is part of what the log promises: a setting that cannot be read ends it, and the flags
// after it stay off.
void FwApplicationLog::readSettings() {
    processIdM = FwSystem::processId();
    const CpsString folder = readText(theFileKey, "Directory");
    const CpsString name = readText(theFileKey, "Name");
    const std::string path = joinPath(folder, name);
    standardErrorDestinationM = readFlag(theDestinationKey, "StdErr");
    fileDestinationM = readFlag(theDestinationKey, "File");
    if (fileDestinationM) {
        logFileM.open(path.c_str());
    }
    traceRowM = readFlag(theRowsKey, "Trace");
    debugRowM = readFlag(theRowsKey, "Debug");
    dateColumnM = readFlag(theColumnsKey, "Date");
    timeColumnM = readFlag(theColumnsKey, "Time");
    commandLineColumnM = readFlag(theColumnsKey, "CommandLine");
    if (commandLineColumnM) {
        commandLineM = FwSystem::commandLine();
    }
    processNameColumnM = readFlag(theColumnsKey, "ProcessName");
    if (processNameColumnM) {
        FwProcessTable table(true);
        if (table.find(processIdM)) {
            processNameM = table.name().view();
        }
    }
    processIdColumnM = readFlag(theColumnsKey, "ProcessId");
    threadIdColumnM = readFlag(theColumnsKey, "ThreadId");
    fileColumnM = readFlag(theColumnsKey, "File");
    lineColumnM = readFlag(theColumnsKey, "Line");
}

void FwApplicationLog::reportBadSettings(const char* theReason) const noexcept {
    try {
        const std::string text = std::string("Incorrect configuration, ") + theReason;
        FwEventSource("Application Log Interface")
            .report(FwEventType::information, 0, 0, {"\n\n", text.c_str()});
    } catch (...) {
        // No memory for the text.
    }
}

void FwApplicationLog::trace(FwTraceKind theKind, const char* theFunction, const char* theFile,
                             int theLine) noexcept {
    if (!traceRowM || !hasDestination()) {
        return;
    }
    const FwHostGuard guard;
    const bool isExit = theKind == FwTraceKind::exit;
    if (isExit) {
        indentM.fetch_sub(1, std::memory_order_relaxed);
    }
    try {
        write(prefix() + indentation() + (isExit ? "<< " : ">> ") + place(theFile, theLine) + ", " +
              theFunction);
    } catch (...) {
        // No memory for the line.
    }
    if (!isExit) {
        indentM.fetch_add(1, std::memory_order_relaxed);
    }
}

void FwApplicationLog::debug(const char* theText, const char* theFile, int theLine) noexcept {
    if (!debugRowM || !hasDestination()) {
        return;
    }
    const FwHostGuard guard;
    try {
        write(prefix() + indentation() + place(theFile, theLine) + "  , " + theText);
    } catch (...) {
        // No memory for the line.
    }
}

void FwApplicationLog::event(int theSeverity, int theId, unsigned theEventId,
                             const char* theText) noexcept {
    if (!hasDestination()) {
        return;
    }
    const FwHostGuard guard;
    try {
        const bool isAlarm = theSeverity == 4 || theSeverity == 5;
        write(prefix() + (isAlarm ? "A: " : "I: ") + std::to_string(theId) + ", EID: " +
              std::to_string(theEventId & 0xFFFF) + ", " + (theText == nullptr ? "" : theText));
    } catch (...) {
        // No memory for the line.
    }
}

std::string FwApplicationLog::prefix() const {
    std::string result;
    char text[64];
    if (dateColumnM || timeColumnM) {
        const FwLocalTime now = FwSystem::localTime();
        if (dateColumnM) {
            std::snprintf(text, sizeof text, "%04d-%02d-%02d ", now.year, now.month, now.day);
            result += text;
        }
        if (timeColumnM) {
            std::snprintf(text, sizeof text, "%02d:%02d:%02d.%03d ", now.hour, now.minute,
                          now.second, now.millisecond);
            result += text;
        }
    }
    if (commandLineColumnM) {
        result += "CLINE: " + commandLineM + ' ';
    }
    if (processNameColumnM) {
        result += "PNAME: " + processNameM + ' ';
    }
    if (processIdColumnM) {
        result += "PID: " + std::to_string(processIdM) + ' ';
    }
    if (threadIdColumnM) {
        result += "TID: " + std::to_string(FwSystem::threadId()) + ", ";
    }
    return result;
}

std::string FwApplicationLog::indentation() const {
    const int indent = indentM.load(std::memory_order_relaxed);
    return std::string(indent > 0 ? static_cast<std::size_t>(indent) : 0, ' ');
}

std::string FwApplicationLog::place(const char* theFile, int theLine) const {
    std::string result;
    if (fileColumnM) {
        result += std::string("FILE: ") + theFile + ' ';
    }
    if (lineColumnM) {
        result += "LINE: " + std::to_string(theLine) + ' ';
    }
    return result;
}

void FwApplicationLog::write(std::string theLine) {
    theLine += '\n';
    if (standardErrorDestinationM) {
        const FwNamedMutex mutex("ApplicationLogMutex");
        FwLogFile::writeStandardError(theLine);
    }
    if (fileDestinationM) {
        const FwNamedMutex mutex("ApplicationLogMutex");
        logFileM.write(theLine);
    }
}

}  // namespace lumnis
