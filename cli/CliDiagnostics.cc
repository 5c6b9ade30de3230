#include "CliDiagnostics.h"

#include <unistd.h>

#include <charconv>
#include <cstdlib>
#include <utility>

#include "CliText.h"

namespace lumnis {

namespace {

// Of a source that stands on one line nobody wants to see more on a terminal.
constexpr std::size_t theLongestShownLine = 240;

std::string shownLine(std::string_view theLine) {
    if (theLine.size() <= theLongestShownLine) {
        return visibleText(theLine);
    }
    std::size_t end = theLongestShownLine;
    while (end > 0 && (static_cast<unsigned char>(theLine[end]) & 0xC0) == 0x80) {
        --end;
    }
    return visibleText(theLine.substr(0, end)) + "...";
}

std::string editorForm(const CliDiagnostic& theDiagnostic, bool isColoured) {
    const char* const bold = isColoured ? "\033[1m" : "";
    const char* const red = isColoured ? "\033[1;31m" : "";
    const char* const plain = isColoured ? "\033[0m" : "";
    std::string place = visibleText(theDiagnostic.file) + ":";
    if (theDiagnostic.line != 0) {
        place += std::to_string(theDiagnostic.line) + ":";
    }
    std::string result = bold + place + plain + " " + red + "error:" + plain + " " + bold +
                         visibleText(theDiagnostic.message) + plain + "\n";
    if (!theDiagnostic.sourceLine.empty()) {
        result += "    " + shownLine(theDiagnostic.sourceLine) + "\n";
    }
    if (!theDiagnostic.note.empty()) {
        result += bold + place + plain + " note: " + visibleText(theDiagnostic.note) + "\n";
    }
    return result;
}

std::string jsonForm(const CliDiagnostic& theDiagnostic) {
    const bool hasLine = theDiagnostic.line != 0;
    return "{\"file\":" + jsonString(theDiagnostic.file) +
           ",\"line\":" + (hasLine ? std::to_string(theDiagnostic.line) : "null") +
           ",\"message\":" + jsonString(theDiagnostic.message) +
           ",\"source\":" + (hasLine ? jsonString(theDiagnostic.sourceLine) : "null") + "}\n";
}

}  // namespace

CliErrorFormat errorFormatByName(std::string_view theName) {
    return theName == "json"  ? CliErrorFormat::json
           : theName == "raw" ? CliErrorFormat::raw
                              : CliErrorFormat::gcc;
}

CliDiagnostic sourceDiagnostic(std::string theFile, std::string_view theMessage,
                               std::string_view theSource, std::string theRawText) {
    constexpr std::string_view head = "Error at line: ";
    constexpr std::string_view tail = ". \r\n";
    CliDiagnostic result{std::move(theFile), 0, {}, {}, std::move(theRawText)};
    if (theMessage.substr(0, head.size()) == head) {
        int line = 0;
        const char* const end = theMessage.data() + theMessage.size();
        const auto [rest, error] = std::from_chars(theMessage.data() + head.size(), end, line);
        const std::string_view behind(rest, static_cast<std::size_t>(end - rest));
        if (error == std::errc() && line > 0 && behind.substr(0, tail.size()) == tail) {
            result.line = line;
            result.sourceLine = sourceLineAt(theSource, line);
            theMessage = behind.substr(tail.size());
        }
    }
    result.message = theMessage;
    return result;
}

std::string_view sourceLineAt(std::string_view theSource, int theLine) {
    std::size_t begin = 0;
    for (; theLine > 1; --theLine) {
        const std::size_t end = theSource.find('\n', begin);
        if (end == std::string_view::npos) {
            return {};
        }
        begin = end + 1;
    }
    std::string_view line = theSource.substr(begin, theSource.find('\n', begin) - begin);
    if (!line.empty() && line.back() == '\r') {
        line.remove_suffix(1);
    }
    return line;
}

std::string formatDiagnostic(const CliDiagnostic& theDiagnostic, CliErrorFormat theFormat,
                             bool isColoured) {
    if (theFormat == CliErrorFormat::json) {
        return jsonForm(theDiagnostic);
    }
    if (theFormat == CliErrorFormat::raw && !theDiagnostic.rawText.empty()) {
        return theDiagnostic.rawText;
    }
    return editorForm(theDiagnostic, isColoured);
}

bool isCapableTerminal(int theDescriptor) {
    const char* const terminal = std::getenv("TERM");
    return isatty(theDescriptor) == 1 && terminal != nullptr &&
           std::string_view(terminal) != "dumb";
}

bool isColourWanted(int theDescriptor) {
    const char* const refusal = std::getenv("NO_COLOR");
    return isCapableTerminal(theDescriptor) && (refusal == nullptr || *refusal == '\0');
}

}  // namespace lumnis
