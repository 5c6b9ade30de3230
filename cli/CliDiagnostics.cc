#include "CliDiagnostics.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include "CliMessages.h"
#include "CliOutput.h"
#include "PrintableText.h"

namespace lumnis {

namespace {

// Of a source that stands on one line nobody wants to see more on a terminal.
constexpr std::size_t theLongestShownLine = 240;
// Of a longer line this much is shown in front of the marked place.
constexpr std::size_t theShownBefore = 80;

// The first byte of the character that thePosition, a place in theText, is in.
std::size_t characterStart(std::string_view theText, std::size_t thePosition) {
    while (thePosition > 0 && (static_cast<unsigned char>(theText[thePosition]) & 0xC0) == 0x80) {
        --thePosition;
    }
    return thePosition;
}

// How many columns of a terminal theText, which is visible and has no tabs, takes: one a
// character, two for the wide ones of East Asia, none for the common combining ones.
std::size_t columnsOf(std::string_view theText) {
    std::size_t columns = 0;
    for (std::size_t i = 0; i < theText.size();) {
        const std::size_t length = std::max<std::size_t>(1, utf8SequenceLength(theText, i));
        std::uint32_t code = static_cast<unsigned char>(theText[i]) & (0xFFu >> (length + 1));
        for (std::size_t k = 1; k < length; ++k) {
            code = code << 6 | (static_cast<unsigned char>(theText[i + k]) & 0x3F);
        }
        const bool isCombining = length > 1 && code >= 0x300 && code <= 0x36F;
        const bool isWide =
            length > 2 &&
            ((code >= 0x1100 && code <= 0x115F) || (code >= 0x2E80 && code <= 0xA4CF) ||
             (code >= 0xAC00 && code <= 0xD7A3) || (code >= 0xF900 && code <= 0xFAFF) ||
             (code >= 0xFE30 && code <= 0xFE6F) || (code >= 0xFF00 && code <= 0xFF60) ||
             (code >= 0xFFE0 && code <= 0xFFE6) || (code >= 0x1F300 && code <= 0x1FAFF) ||
             (code >= 0x20000 && code <= 0x3FFFD));
        columns += isCombining ? 0 : isWide ? 2 : 1;
        i += length;
    }
    return columns;
}

// Blanks as wide as theText; tabs stay tabs.
std::string blankOf(std::string_view theText) {
    std::string result;
    for (std::size_t tab = theText.find('\t'); tab != std::string_view::npos;
         tab = theText.find('\t')) {
        result += std::string(columnsOf(theText.substr(0, tab)), ' ') + '\t';
        theText.remove_prefix(tab + 1);
    }
    return result + std::string(columnsOf(theText), ' ');
}

// theLine, and a second line with a mark below thePlace of it if that has a length.
std::string excerpt(std::string_view theLine, CliSpan thePlace, const char* theColour,
                    const char* thePlain) {
    constexpr const char* indent = "    ";
    std::size_t begin = 0;
    if (thePlace.begin + thePlace.length > theLongestShownLine) {
        begin = characterStart(
            theLine, thePlace.begin > theShownBefore ? thePlace.begin - theShownBefore : 0);
    }
    std::size_t end = theLine.size();
    if (end - begin > theLongestShownLine) {
        end = characterStart(theLine, begin + theLongestShownLine);
    }
    const std::string before = begin == 0 ? "" : "...";
    std::string result = indent + before + visibleText(theLine.substr(begin, end - begin)) +
                         (end < theLine.size() ? "..." : "") + "\n";
    if (thePlace.length > 0) {
        const std::size_t markEnd = std::min(thePlace.begin + thePlace.length, end);
        const std::string marked =
            visibleText(theLine.substr(thePlace.begin, markEnd - thePlace.begin));
        result +=
            indent + blankOf(before + visibleText(theLine.substr(begin, thePlace.begin - begin))) +
            theColour + "^" + std::string(std::max<std::size_t>(1, columnsOf(marked)) - 1, '~') +
            thePlain + "\n";
    }
    return result;
}

std::string editorForm(const CliDiagnostic& theDiagnostic, bool isColoured, bool isPlain) {
    const char* const bold = isColoured ? "\033[1m" : "";
    const char* const red = isColoured ? "\033[1;31m" : "";
    const char* const plain = isColoured ? "\033[0m" : "";
    std::string place = visibleText(theDiagnostic.file) + ":";
    if (theDiagnostic.line != 0) {
        place += std::to_string(theDiagnostic.line) + ":";
    }
    std::string result = bold + place + plain + " " + red + "error:" + plain + " " + bold +
                         visibleText(theDiagnostic.message) + plain + "\n";
    if (isPlain) {
        return result;
    }
    if (!theDiagnostic.sourceLine.empty()) {
        result += excerpt(theDiagnostic.sourceLine,
                          markedPlace(theDiagnostic.message, theDiagnostic.sourceLine), red, plain);
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

CliDiagnostic fileDiagnostic(std::string theFile, std::string theMessage) {
    return {std::move(theFile), 0, std::move(theMessage), {}, {}};
}

CliDiagnostic sourceDiagnostic(std::string theFile, std::string_view theMessage,
                               std::string_view theSource, std::string theRawText) {
    constexpr std::string_view head = "Error at line: ";
    constexpr std::string_view tail = ". \r\n";
    CliDiagnostic result{std::move(theFile), 0, {}, {}, std::move(theRawText)};
    if (theMessage.substr(0, head.size()) == head) {
        int line = 0;
        const char* const end = theMessage.data() + theMessage.size();
        const char* const rest = std::from_chars(theMessage.data() + head.size(), end, line).ptr;
        result.line = line;
        result.sourceLine = sourceLineAt(theSource, line);
        theMessage.remove_prefix(static_cast<std::size_t>(rest - theMessage.data()) + tail.size());
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
    return editorForm(theDiagnostic, isColoured, theFormat == CliErrorFormat::plain);
}

void printDiagnostic(const CliDiagnostic& theDiagnostic, CliErrorFormat theFormat) {
    writeDescriptor(STDERR_FILENO,
                    formatDiagnostic(theDiagnostic, theFormat, isColourWanted(STDERR_FILENO)),
                    "standard error");
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
