// Reads the case files under tests/cases: source and what must come of it, side by side.
//
//     # A comment up to the first case or between a case's last section and the next case.
//     == name of the case
//     extern function f() { return 1; }
//     -- bytes
//     01 0C          ; a comment: where the bytes come from
//     61*160 "text"  ; a byte 160 times, then four ASCII bytes
//     -- error line 3
//     parse error
//
// A case has its source and then any number of sections, each "-- NAME [ARGUMENTS]" and lines.
// The runner of a theme decides which sections it understands. A line of the source or of a
// section that begins with "== ", "-- " or "# " has a back-slash in front that is dropped.
// Lines of a source are joined by line feeds, with none behind the last one.
//
// In a source, %{ ... } stands for what cannot be written plainly:
//     %{00 FF}        bytes, in hexadecimal
//     %{"abc"*300}    a text 300 times; @ in it is the number of the repetition, from 0
//     %{}             nothing, for a blank at the end of a line or an empty last line
// Inside the quotes \n, \r, \t, \", \\ and \xHH are as in C.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace lumnis::test {

struct CaseSection {
    std::string name;       // the first word behind "-- "
    std::string arguments;  // the rest of that line
    std::vector<std::string> lines;
};

struct Case {
    std::string file;  // without folder and extension
    std::string name;
    int line = 0;        // of the case's head in its file
    std::string source;  // expanded
    std::vector<CaseSection> sections;

    // Null when the case has no such section.
    const CaseSection* section(const std::string& theName) const;
};

// All cases of the files *.txt in tests/cases/<theFolder>, by file name and place in the file.
// Throws std::runtime_error with file and line when a file breaks the form.
std::vector<Case> readCases(const std::string& theFolder);

// The form of "-- bytes": hexadecimal pairs, optionally *COUNT, "ASCII" texts, ; comments.
std::string parseBytes(const std::vector<std::string>& theLines);
// Lines of C escapes, joined by nothing: an expected message with its exact line ends.
std::string parseEscaped(const std::vector<std::string>& theLines);
// Bytes as a hexadecimal dump of 16 a line, to show a difference.
std::string hexDump(const std::string& theBytes);

// For the name of a GoogleTest parameter: file and case, letters and digits alone.
std::string parameterName(const Case& theCase);
// What GoogleTest shows of a case that fails: file, line and name.
void PrintTo(const Case& theCase, std::ostream* theStream);

}  // namespace lumnis::test
