// Messages about sources and files, and the three forms in which they are printed.
#pragma once

#include <string>
#include <string_view>

namespace lumnis {

enum class CliErrorFormat {
    gcc,    // FILE:LINE: error: MESSAGE, with the source line below it: what editors understand
    plain,  // the first line of that alone
    json,   // one object a line: file, line, message, source
    raw,    // the library's own text; the first form where the library gives none
};

// "gcc", "json" or "raw"; any other name gives gcc.
CliErrorFormat errorFormatByName(std::string_view theName);

struct CliDiagnostic {
    std::string file;        // as the user named it
    int line = 0;            // from 1; 0 where the fault has no place
    std::string message;     // without "Error at line"
    std::string sourceLine;  // the whole line, without its end; empty where line is 0
    std::string rawText;     // the library's own text; empty where it gives none
    std::string note = {};   // what to do about it, for people; empty for nothing
};

// A message about a file as a whole, without a line.
CliDiagnostic fileDiagnostic(std::string theFile, std::string theMessage);

// Splits the library's "Error at line: N. \r\nMESSAGE" and finds line N in theSource. A message
// of another form is taken whole, without a line. theRawText is kept as it is.
CliDiagnostic sourceDiagnostic(std::string theFile, std::string_view theMessage,
                               std::string_view theSource, std::string theRawText);

// Line theLine of theSource, from 1, without its end; empty if there are fewer.
std::string_view sourceLineAt(std::string_view theSource, int theLine);

// The whole text to print, line ends included.
std::string formatDiagnostic(const CliDiagnostic& theDiagnostic, CliErrorFormat theFormat,
                             bool isColoured);

// Prints it on standard error, in colour where isColourWanted. Throws CliFileError.
void printDiagnostic(const CliDiagnostic& theDiagnostic, CliErrorFormat theFormat);

// Whether a person looks at theDescriptor: a terminal that can do more than print.
bool isCapableTerminal(int theDescriptor);
// That, and the environment does not ask for NO_COLOR.
bool isColourWanted(int theDescriptor);

}  // namespace lumnis
