// The application log as its user sees it. Each run is a process of its own, with settings of its
// own; the events that it would send to the system's log arrive in a file.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <regex.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <syslog.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <thread>

#include "CcCharsetConverter.h"
#include "ChildProcess.h"
#include "Files.h"
#include "FwApplicationLog.h"
#include "FwLogManager.h"
#include "FwTraceScope.h"

namespace {
int theEventFile = -1;
}

// support/failing_calls.c: "CALL:N:ERRNO,..." fails from here on.
extern "C" void fail_calls(const char* thePlans);

// Stands in front of the system's function: one line "PRIORITY TEXT" for an event.
extern "C" void syslog(int thePriority, const char* theFormat, ...) {
    va_list arguments;
    va_start(arguments, theFormat);
    dprintf(theEventFile, "%d ", thePriority);
    vdprintf(theEventFile, theFormat, arguments);
    dprintf(theEventFile, "\n");
    va_end(arguments);
}

namespace lumnis {
namespace {

namespace fs = std::filesystem;

using test::contentOf;
using test::leave;
using test::linesOf;

// Whether all of theText is an extended regular expression of POSIX.
bool matches(const std::string& theText, const std::string& theForm) {
    regex_t form;
    if (regcomp(&form, ("^(" + theForm + ")$").c_str(), REG_EXTENDED | REG_NOSUB) != 0) {
        ADD_FAILURE() << "bad expression " << theForm;
        return false;
    }
    const bool result = regexec(&form, theText.c_str(), 0, nullptr, 0) == 0;
    regfree(&form);
    return result;
}

// With 0 in the place of each number.
std::string withoutNumbers(const std::string& theText) {
    std::string result;
    for (const char c : theText) {
        const bool isDigit = c >= '0' && c <= '9';
        if (!isDigit) {
            result += c;
        } else if (result.empty() || result.back() != '0') {
            result += '0';
        }
    }
    return result;
}

using Settings = std::map<std::string, std::string>;

// Every setting, with trace and debug to the file, and what theChanges say ("Rows/Trace").
// A value of "-" leaves the setting out.
std::string settingsText(const fs::path& theFolder, const Settings& theChanges) {
    constexpr const char* theNames[] = {
        "Common\\File/Directory",         "Common\\File/Name",
        "Interface\\Destination/StdErr",  "Interface\\Destination/File",
        "Interface\\Rows/Trace",          "Interface\\Rows/Debug",
        "Interface\\Columns/Date",        "Interface\\Columns/Time",
        "Interface\\Columns/CommandLine", "Interface\\Columns/ProcessName",
        "Interface\\Columns/ProcessId",   "Interface\\Columns/ThreadId",
        "Interface\\Columns/File",        "Interface\\Columns/Line"};
    std::string text;
    for (const std::string name : theNames) {
        const std::string shortName = name.substr(name.find('\\') + 1);
        std::string value = shortName == "Destination/File" || shortName == "Rows/Trace" ||
                                    shortName == "Rows/Debug"
                                ? "1"
                                : "0";
        value = shortName == "File/Directory" ? theFolder.string() : value;
        value = shortName == "File/Name" ? "log" : value;
        const auto change = theChanges.find(shortName);
        value = change == theChanges.end() ? value : change->second;
        if (value != "-") {
            text += "[Software\\Halvern\\Qir\\ApplicationLog\\" + name.substr(0, name.find('/')) +
                    "]\n" + name.substr(name.find('/') + 1) + " = " + value + "\n";
        }
    }
    return text;
}

class ApplicationLog : public testing::Test {
  protected:
    ApplicationLog() { change({}); }

    void change(const Settings& theChanges) {
        std::ofstream(folderM / "settings") << settingsText(folderM, theChanges);
    }

    // Runs theBody in a process; its wait status is the result.
    int run(const std::function<void()>& theBody) {
        const pid_t child = fork();
        if (child == 0) {
            setenv("LUMNISUTIL_SETTINGS", (folderM / "settings").c_str(), 1);
            theEventFile = openFor("events");
            dup2(openFor("stderr"), STDERR_FILENO);
            theBody();
            leave(0);
        }
        int status = -1;
        waitpid(child, &status, 0);
        return status;
    }

    int openFor(const char* theName) const {
        return open((folderM / theName).c_str(), O_CREAT | O_APPEND | O_WRONLY | O_CLOEXEC, 0600);
    }
    std::string log() const { return contentOf(folderM / "log"); }
    std::string standardError() const { return contentOf(folderM / "stderr"); }
    std::string events() const { return contentOf(folderM / "events"); }

    const test::TemporaryFolder temporaryM;
    const fs::path& folderM = temporaryM.get();
};

void nest() {
    FwTraceScope outer("outer", "some/File.cc", 7);
    FwApplicationLog::instance().debug("text", "some/File.cc", 8);
    FwTraceScope inner("inner", "some/File.cc", 9);
}

constexpr char theNestedLines[] =
    ">> , outer\n"
    "   , text\n"
    " >> , inner\n"
    " << , inner\n"
    "<< , outer\n";

TEST_F(ApplicationLog, NestsTheLinesOfScopes) {
    EXPECT_EQ(run(nest), 0);
    EXPECT_EQ(log(), theNestedLines);
    EXPECT_EQ(standardError(), "");
    EXPECT_EQ(events(), "");
}

TEST_F(ApplicationLog, WritesTheRowsThatAreOn) {
    change({{"Rows/Trace", "0"}});
    EXPECT_EQ(run(nest), 0);
    EXPECT_EQ(log(), "  , text\n");
    fs::remove(folderM / "log");
    change({{"Rows/Debug", "0"}, {"Columns/File", "1"}});
    EXPECT_EQ(run(nest), 0);
    EXPECT_EQ(log(),
              ">> FILE: some/File.cc , outer\n"
              " >> FILE: some/File.cc , inner\n"
              " << FILE: some/File.cc , inner\n"
              "<< FILE: some/File.cc , outer\n");
}

TEST_F(ApplicationLog, WritesEveryColumnToBothDestinations) {
    Settings changes;
    for (const char* column :
         {"Date", "Time", "CommandLine", "ProcessName", "ProcessId", "ThreadId", "File", "Line"}) {
        changes[std::string("Columns/") + column] = "1";
    }
    changes["Destination/StdErr"] = "1";
    change(changes);
    EXPECT_EQ(run([] {
                  FwTraceScope scope("scope", "F.cc", 3);
                  FwApplicationLog::instance().debug("text", "F.cc", 4);
                  FwApplicationLog::instance().event(4, 5, 6, "event");
              }),
              0);
    EXPECT_EQ(log(), standardError());
    const std::string prefix =
        "[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{3} "
        "CLINE: [^ ]*test_application_log( [^ ]+)* "
        "PNAME: test_applicatio PID: [0-9]+ TID: [0-9]+, ";
    const char* const tails[] = {">> FILE: F.cc LINE: 3 , scope", " FILE: F.cc LINE: 4   , text",
                                 "A: 5, EID: 6, event", "<< FILE: F.cc LINE: 3 , scope"};
    const std::vector<std::string> lines = linesOf(log());
    ASSERT_EQ(lines.size(), std::size(tails));
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_TRUE(matches(lines[i], prefix + tails[i])) << lines[i];
    }
}

TEST_F(ApplicationLog, ReportsEvents) {
    EXPECT_EQ(run([] {
                  FwLog* log = FwLogManager::instance().getLog("Orrel");
                  EXPECT_EQ(FwLogManager::instance().getLog("Orrel"), log);
                  EXPECT_NE(FwLogManager::instance().getLog("Other"), log);
                  log->report(137628, 0xC0000CBF, "");
                  log->report(137697, 0xC0000CBD, "first\nsecond %s");
                  log->report(1, 2, nullptr);
                  FwApplicationLog::instance().event(5, 1, 0x10002, "low 16 bits");
                  FwApplicationLog::instance().event(3, 1, 2, nullptr);
                  leave(testing::Test::HasFailure());
              }),
              0);
    EXPECT_EQ(events(),
              "11 Orrel: event 0xC0000CBF, category 628:\n"
              "11 Orrel: event 0xC0000CBD, category 697: first second %s\n"
              "11 Orrel: event 0x00000002, category 1:\n");
    EXPECT_EQ(log(),
              "I: 137628, EID: 3263, \n"
              "I: 137697, EID: 3261, first\nsecond %s\n"
              "I: 1, EID: 2, \n"
              "A: 1, EID: 2, low 16 bits\n"
              "I: 1, EID: 2, \n");
}

TEST_F(ApplicationLog, JoinsFolderAndNameByOneSeparator) {
    const std::string folder = folderM.string();
    const Settings rows[] = {{{"File/Directory", folder}, {"File/Name", "log"}},
                             {{"File/Directory", folder + "/"}, {"File/Name", "log"}},
                             {{"File/Directory", folder}, {"File/Name", "/log"}},
                             {{"File/Directory", folder + "/"}, {"File/Name", "/log"}},
                             {{"File/Directory", '"' + folder + '"'}, {"File/Name", "\"log\""}}};
    for (const Settings& row : rows) {
        change(row);
        EXPECT_EQ(run(nest), 0);
        EXPECT_EQ(log(), theNestedLines);
        fs::remove(folderM / "log");
    }
}

TEST_F(ApplicationLog, TakesEveryNumberButZeroForOn) {
    for (const char* value : {"1", "-1", "+3", "007", "2x", "4294967296", "99999999999999999999"}) {
        change({{"Columns/File", value}, {"Rows/Trace", "0"}});
        EXPECT_EQ(run(nest), 0);
        EXPECT_EQ(log(), "FILE: some/File.cc   , text\n") << value;
        fs::remove(folderM / "log");
    }
    for (const char* value : {"0", "-0", "000", "0x1"}) {
        change({{"Columns/File", value}, {"Rows/Trace", "0"}});
        EXPECT_EQ(run(nest), 0);
        EXPECT_EQ(log(), "  , text\n") << value;
        fs::remove(folderM / "log");
    }
}

constexpr char theBadConfiguration[] =
    "14 Application Log Interface: event 0x00000000, category 0: Incorrect configuration, ";

TEST_F(ApplicationLog, IsSilentWithoutSettingsButForOneEvent) {
    fs::remove(folderM / "settings");
    EXPECT_EQ(run([] {
                  nest();
                  nest();
                  FwApplicationLog::instance().event(2, 1, 1, "unseen");
              }),
              0);
    EXPECT_EQ(standardError(), "");
    EXPECT_FALSE(fs::exists(folderM / "log"));
    EXPECT_EQ(events(), std::string(theBadConfiguration) +
                            "Unable to open registry key, Software\\Halvern\\Qir\\"
                            "ApplicationLog\\Common\\File. "
                            "System message: No such file or directory\n");
}

TEST_F(ApplicationLog, TellsWhatIsWrongWithTheSettings) {
    struct Row {
        Settings changes;
        const char* reason;
    };
    const Row rows[] = {
        {{{"File/Directory", ""}}, "No directory name. "},
        {{{"File/Name", "\"\""}}, "No file name. "},
        {{{"File/Directory", ""}, {"File/Name", ""}}, "No directory name. No file name. "},
        {{{"File/Name", "-"}},
         "Unable to get registry value, Name. System message: No data available"},
        {{{"Destination/StdErr", "yes"}}, "Unable to convert from string to unsigned int."},
        {{{"Rows/Trace", ""}}, "Unable to convert from string to unsigned int."},
        {{{"Rows/Debug", "-"}, {"Rows/Trace", "-"}},
         "Unable to open registry key, Software\\Halvern\\Qir\\ApplicationLog\\Interface\\Rows. "
         "System message: No such file or directory"},
    };
    for (const Row& row : rows) {
        change(row.changes);
        EXPECT_EQ(run(nest), 0);
        EXPECT_EQ(events(), theBadConfiguration + std::string(row.reason) + "\n");
        EXPECT_EQ(log(), "");
        fs::remove(folderM / "events");
    }
}

TEST_F(ApplicationLog, KeepsWhatItReadBeforeABadSetting) {
    change({{"Columns/Date", "today"}, {"Columns/File", "1"}});
    EXPECT_EQ(run(nest), 0);
    EXPECT_EQ(log(), theNestedLines);
    EXPECT_EQ(events(), std::string(theBadConfiguration) +
                            "Unable to convert from string to unsigned int.\n");
}

TEST_F(ApplicationLog, SettingsThatCannotBeReadAreNoHarm) {
    const std::string connect = std::string(theBadConfiguration) +
                                "Unable to connect to registry on local mashine. System message: ";
    const fs::path path = folderM / "settings";
    struct Row {
        std::function<void()> prepare;
        std::string reason;
    };
    const Row rows[] = {
        {[&] { fs::create_directory(path); }, "Is a directory"},
        {[&] { mkfifo(path.c_str(), 0600); }, "Invalid argument"},
        {[&] { fs::create_symlink("settings", path); }, "Too many levels of symbolic links"},
        {[&] { std::ofstream(path) << std::string((1 << 20) + 1, '#'); }, "File too large"},
        {[&] { std::ofstream(path) << "[A]\n\nTrace 1\n"; },
         "Invalid argument, line 3 of " + path.string()},
    };
    for (const Row& row : rows) {
        fs::remove_all(path);
        row.prepare();
        EXPECT_EQ(run(nest), 0);
        EXPECT_EQ(events(), connect + row.reason + "\n");
        fs::remove(folderM / "events");
    }
}

TEST_F(ApplicationLog, ASystemThatFailsIsNoHarm) {
    const std::string connect = std::string(theBadConfiguration) +
                                "Unable to connect to registry on local mashine. System message: ";
    struct Row {
        const char* plans;
        std::string log;
        std::string events;
    };
    const std::string lines = theNestedLines;
    const Row rows[] = {
        {"fstat:1:EIO", "", connect + "Input/output error\n"},
        {"read:1:EIO", "", connect + "Input/output error\n"},
        {"read:1:EINTR", lines, ""},
        {"open=/log:1:EMFILE", "", ""},
        {"write:1:EINTR", lines, ""},
        {"write:1:ENOSPC", lines.substr(lines.find('\n') + 1), ""},
        // A line is written without the mutex, too.
        {"open=lumnisutil.App:1+:EACCES", lines, ""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(run([&] {
                      fail_calls(row.plans);
                      nest();
                      fail_calls(nullptr);
                  }),
                  0);
        EXPECT_EQ(log(), row.log) << row.plans;
        EXPECT_EQ(events(), row.events) << row.plans;
        fs::remove(folderM / "log");
        fs::remove(folderM / "events");
    }
}

TEST_F(ApplicationLog, TakesNoStandardStreamForItsFile) {
    EXPECT_EQ(run([] {
                  close(STDIN_FILENO);
                  nest();
                  leave(fcntl(STDIN_FILENO, F_GETFD) == -1 ? 0 : 1);
              }),
              0);
    EXPECT_EQ(log(), theNestedLines);
}

TEST_F(ApplicationLog, NeedsADestinationAndKnowsEachColumn) {
    const auto debugLine = [] { FwApplicationLog::instance().debug("text"); };
    change({{"Destination/File", "0"}});
    EXPECT_EQ(run(nest), 0);
    EXPECT_FALSE(fs::exists(folderM / "log"));
    change({{"Destination/File", "0"}, {"Destination/StdErr", "1"}});
    EXPECT_EQ(run(nest), 0);
    EXPECT_FALSE(fs::exists(folderM / "log"));
    EXPECT_EQ(standardError(), theNestedLines);
    struct Row {
        const char* column;
        const char* form;
    };
    const Row rows[] = {{"Columns/Date", "[0-9]{4}-[0-9]{2}-[0-9]{2}   , text\n"},
                        {"Columns/Time", "[0-9:.]{12}   , text\n"},
                        {"Columns/ProcessName", "PNAME:    , text\n"}};
    for (const Row& row : rows) {
        change({{row.column, "1"}});
        EXPECT_EQ(run([&] {
                      fail_calls("opendir:1:EMFILE");  // no list of processes, no name
                      debugLine();
                      fail_calls(nullptr);
                  }),
                  0);
        EXPECT_TRUE(matches(log(), row.form)) << log();
        fs::remove(folderM / "log");
    }
    EXPECT_EQ(run([&] {
                  setenv("LUMNISUTIL_SETTINGS", "", 1);  // as if it were not set
                  fail_calls("open=/etc/lumnisutil.conf:1+:ENOENT");
                  debugLine();
                  fail_calls(nullptr);
              }),
              0);
    EXPECT_TRUE(matches(events(), ".*Unable to open registry key.*\n")) << events();
}

TEST_F(ApplicationLog, AFullDiskIsNoHarm) {
    change({{"File/Directory", "/dev"}, {"File/Name", "full"}});
    EXPECT_EQ(run(nest), 0);
    change({{"File/Directory", "/nowhere/at/all"}});
    EXPECT_EQ(run(nest), 0);
    EXPECT_EQ(events(), "");
}

TEST_F(ApplicationLog, AFileSizeLimitIsNoHarmAndTearsNoLaterLine) {
    EXPECT_EQ(run([&] {
                  FwApplicationLog& log = FwApplicationLog::instance();
                  rlimit limit{};
                  getrlimit(RLIMIT_FSIZE, &limit);
                  const rlim_t before = limit.rlim_cur;
                  limit.rlim_cur = 10;
                  setrlimit(RLIMIT_FSIZE, &limit);
                  log.debug("longer than ten bytes");
                  log.debug("not at all");
                  limit.rlim_cur = before;
                  setrlimit(RLIMIT_FSIZE, &limit);
                  log.debug("next");
              }),
              0);
    EXPECT_EQ(log(), "  , longer\n  , next\n");
}

TEST_F(ApplicationLog, FollowsARenamedFileAndMakesNoneAnew) {
    EXPECT_EQ(run([&] {
                  FwApplicationLog& log = FwApplicationLog::instance();
                  log.debug("first");
                  fs::rename(folderM / "log", folderM / "renamed");
                  log.debug("second");
                  fs::remove(folderM / "renamed");
                  log.debug("vanishes");
              }),
              0);
    EXPECT_FALSE(fs::exists(folderM / "log"));
    EXPECT_FALSE(fs::exists(folderM / "renamed"));
}

TEST_F(ApplicationLog, DoesNotWriteIntoAFileOfTheHost) {
    EXPECT_EQ(run([&] {
                  FwApplicationLog::instance().debug("ours");
                  // A host that becomes a daemon, and goes on with files of its own.
                  for (int handle = 3; handle < 64; ++handle) {
                      close(handle);
                  }
                  for (int i = 0; i < 61; ++i) {
                      openFor("theirs");
                  }
                  FwApplicationLog::instance().debug("not theirs");
              }),
              0);
    EXPECT_EQ(log(), "  , ours\n");
    EXPECT_EQ(contentOf(folderM / "theirs"), "");
}

TEST_F(ApplicationLog, ABrokenPipeIsNoHarmAndErrnoStays) {
    change({{"Destination/StdErr", "1"}});
    EXPECT_EQ(run([] {
                  int ends[2];
                  EXPECT_EQ(pipe(ends), 0);
                  dup2(ends[1], STDERR_FILENO);
                  close(ends[0]);
                  errno = ENOTTY;
                  nest();
                  leave(errno == ENOTTY ? 0 : 1);
              }),
              0);
    EXPECT_EQ(log(), theNestedLines);
}

TEST_F(ApplicationLog, APipeThatNobodyReadsIsNoHarm) {
    ASSERT_EQ(mkfifo((folderM / "log").c_str(), 0600), 0);
    EXPECT_EQ(run(nest), 0);
}

// Each line names its writer and is long enough to be torn if it could be.
void expectWholeLines(const std::string& theText, std::size_t theCount) {
    const std::vector<std::string> lines = linesOf(theText);
    EXPECT_EQ(lines.size(), theCount);
    for (const std::string& line : lines) {
        ASSERT_EQ(line, "  , " + std::string(5000, line[4]));
    }
}

TEST_F(ApplicationLog, LinesOfProcessesDoNotMix) {
    change({{"Destination/StdErr", "1"}});
    EXPECT_EQ(run([] {
                  for (char writer = 'a'; writer < 'e'; ++writer) {
                      if (fork() == 0) {
                          for (int i = 0; i < 100; ++i) {
                              FwApplicationLog::instance().debug(std::string(5000, writer).c_str());
                          }
                          leave(0);
                      }
                  }
                  while (wait(nullptr) > 0) {
                  }
              }),
              0);
    expectWholeLines(log(), 400);
    expectWholeLines(standardError(), 400);
}

TEST_F(ApplicationLog, LinesOfThreadsDoNotMix) {
    change({{"Rows/Trace", "1"}});
    EXPECT_EQ(run([] {
                  std::vector<std::thread> threads;
                  for (int t = 0; t < 8; ++t) {
                      threads.emplace_back([] {
                          for (int i = 0; i < 50; ++i) {
                              nest();
                              FwLogManager::instance().getLog("Orrel");
                          }
                      });
                  }
                  for (std::thread& thread : threads) {
                      thread.join();
                  }
              }),
              0);
    EXPECT_EQ(standardError(), "");  // where a thread sanitizer would complain
    const std::vector<std::string> lines = linesOf(log());
    EXPECT_EQ(lines.size(), 8u * 50 * 5);
    for (const std::string& line : lines) {
        EXPECT_TRUE(matches(line, " *((>>|<<) , (outer|inner)|  , text)")) << line;
    }
}

// The part of a document between the lines "```" behind theHeading.
std::string blockOf(const std::string& theDocument, const std::string& theHeading) {
    const std::size_t heading = theDocument.find(theHeading);
    const std::size_t begin = theDocument.find("```\n", heading) + 4;
    return theDocument.substr(begin, theDocument.find("```\n", begin) - begin);
}

// The example of the documentation is what the program does; numbers are those of its day.
TEST_F(ApplicationLog, DoesWhatItsDocumentShows) {
    const std::string document = contentOf(LUMNIS_LOGGING_DOCUMENT);
    std::string settings = blockOf(document, "## Example: settings");
    const std::string folder = "/var/log/lumnisutil";
    ASSERT_NE(settings.find(folder), std::string::npos);
    settings.replace(settings.find(folder), folder.size(), folderM.string());
    std::ofstream(folderM / "settings") << settings;
    EXPECT_EQ(run([] {
                  CcCharsetConverter converter;
                  CpsString output;
                  converter.convertToUtf8("ab", output, 1015);
                  FwLogManager::instance().getLog("Orrel")->report(137697, 0xC0000CBD,
                                                                   "no such element");
              }),
              0);
    EXPECT_EQ(withoutNumbers(contentOf(folderM / "application.log")),
              withoutNumbers(blockOf(document, "## Example: lines")));
}

}  // namespace
}  // namespace lumnis
