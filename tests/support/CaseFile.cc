#include "CaseFile.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <stdexcept>

namespace lumnis::test {

namespace {

bool startsWith(const std::string& theText, const char* thePrefix) {
    return theText.rfind(thePrefix, 0) == 0;
}

[[noreturn]] void fail(const std::string& theWhat, const std::string& theText) {
    throw std::runtime_error(theWhat + ": " + theText);
}

unsigned hexDigit(char theDigit, const std::string& theText) {
    if (std::isxdigit(static_cast<unsigned char>(theDigit)) == 0) {
        fail("not a hexadecimal digit", theText);
    }
    return static_cast<unsigned>(std::stoul(std::string(1, theDigit), nullptr, 16));
}

char hexByte(const std::string& theText, std::size_t theAt) {
    if (theAt + 2 > theText.size()) {
        fail("half a byte", theText);
    }
    return static_cast<char>(hexDigit(theText[theAt], theText) * 16 +
                             hexDigit(theText[theAt + 1], theText));
}

std::string unescape(const std::string& theText) {
    std::string result;
    for (std::size_t i = 0; i < theText.size(); ++i) {
        if (theText[i] != '\\') {
            result += theText[i];
            continue;
        }
        if (++i == theText.size()) {
            fail("back-slash at the end", theText);
        }
        switch (theText[i]) {
            case 'n':
                result += '\n';
                break;
            case 'r':
                result += '\r';
                break;
            case 't':
                result += '\t';
                break;
            case '"':
                result += '"';
                break;
            case '\\':
                result += '\\';
                break;
            case 'x':
                result += hexByte(theText, i + 1);
                i += 2;
                break;
            default:
                fail("unknown escape", theText);
        }
    }
    return result;
}

// "TEXT" at theAt, which moves behind the closing quote.
std::string quoted(const std::string& theText, std::size_t& theAt) {
    const std::size_t begin = ++theAt;
    while (theAt < theText.size() && theText[theAt] != '"') {
        theAt += theText[theAt] == '\\' ? 2u : 1u;
    }
    if (theAt >= theText.size()) {
        fail("quote without end", theText);
    }
    return unescape(theText.substr(begin, theAt++ - begin));
}

// *COUNT at theAt, 1 if there is none.
std::size_t repetitions(const std::string& theText, std::size_t& theAt) {
    if (theAt >= theText.size() || theText[theAt] != '*') {
        return 1;
    }
    std::size_t used = 0;
    const std::size_t count = std::stoul(theText.substr(theAt + 1), &used);
    theAt += 1 + used;
    return count;
}

std::string bytesOf(const std::string& theLine) {
    std::string result;
    for (std::size_t at = 0; at < theLine.size() && theLine[at] != ';';) {
        if (theLine[at] == ' ' || theLine[at] == '\t') {
            ++at;
            continue;
        }
        std::string item;
        if (theLine[at] == '"') {
            item = quoted(theLine, at);
        } else {
            item = hexByte(theLine, at);
            at += 2;
        }
        for (std::size_t count = repetitions(theLine, at); count != 0; --count) {
            result += item;
        }
    }
    return result;
}

std::string expandEscape(const std::string& theEscape) {
    if (theEscape.empty() || theEscape[0] != '"') {
        return bytesOf(theEscape);
    }
    std::size_t at = 0;
    const std::string text = quoted(theEscape, at);
    const std::size_t count = repetitions(theEscape, at);
    if (at != theEscape.size()) {
        fail("rest behind the text", theEscape);
    }
    std::string result;
    for (std::size_t i = 0; i < count; ++i) {
        for (const char c : text) {
            c == '@' ? result += std::to_string(i) : result += c;
        }
    }
    return result;
}

std::string expand(const std::string& theLine) {
    std::string result;
    std::size_t at = 0;
    for (;;) {
        const std::size_t begin = theLine.find("%{", at);
        result += theLine.substr(at, begin - at);
        if (begin == std::string::npos) {
            return result;
        }
        // The end: the first } outside of quotes.
        std::size_t end = begin + 2;
        while (end < theLine.size() && theLine[end] != '}') {
            if (theLine[end] == '"') {
                quoted(theLine, end);
            } else {
                ++end;
            }
        }
        if (end >= theLine.size()) {
            fail("%{ without }", theLine);
        }
        result += expandEscape(theLine.substr(begin + 2, end - begin - 2));
        at = end + 1;
    }
}

std::string unguarded(const std::string& theLine) {
    const bool isGuarded =
        startsWith(theLine, "\\== ") || startsWith(theLine, "\\-- ") || startsWith(theLine, "\\# ");
    return isGuarded ? theLine.substr(1) : theLine;
}

void readFile(const std::filesystem::path& thePath, std::vector<Case>& theCases) {
    std::ifstream stream(thePath, std::ios::binary);
    std::string line;
    int number = 0;
    bool isInCase = false;
    bool isFirstSourceLine = false;
    try {
        while (std::getline(stream, line)) {
            ++number;
            if (startsWith(line, "== ")) {
                theCases.push_back({thePath.stem().string(), line.substr(3), number, {}, {}});
                isInCase = isFirstSourceLine = true;
            } else if (startsWith(line, "# ") || line == "#") {
                continue;
            } else if (!isInCase) {
                if (!line.empty()) {
                    fail("text in front of the first case", line);
                }
            } else if (startsWith(line, "-- ")) {
                const std::size_t blank = line.find(' ', 3);
                theCases.back().sections.push_back(
                    {line.substr(3, blank - 3),
                     blank == std::string::npos ? "" : line.substr(blank + 1),
                     {}});
            } else if (!theCases.back().sections.empty()) {
                theCases.back().sections.back().lines.push_back(unguarded(line));
            } else {
                std::string& source = theCases.back().source;
                source += (isFirstSourceLine ? "" : "\n") + expand(unguarded(line));
                isFirstSourceLine = false;
            }
        }
    } catch (const std::exception& error) {
        throw std::runtime_error(thePath.string() + ":" + std::to_string(number) + ": " +
                                 error.what());
    }
}

}  // namespace

const CaseSection* Case::section(const std::string& theName) const {
    const auto found =
        std::find_if(sections.begin(), sections.end(),
                     [&](const CaseSection& theSection) { return theSection.name == theName; });
    return found == sections.end() ? nullptr : &*found;
}

std::vector<Case> readCases(const std::string& theFolder) {
    std::vector<std::filesystem::path> paths;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::string(LUMNIS_TEST_CASES) + "/" + theFolder)) {
        if (entry.path().extension() == ".txt") {
            paths.push_back(entry.path());
        }
    }
    std::sort(paths.begin(), paths.end());
    std::vector<Case> cases;
    for (const auto& path : paths) {
        readFile(path, cases);
    }
    for (Case& testCase : cases) {
        for (CaseSection& section : testCase.sections) {
            // Empty lines in front of the next case are for the reader.
            while (!section.lines.empty() && section.lines.back().empty()) {
                section.lines.pop_back();
            }
        }
    }
    return cases;
}

std::string parseBytes(const std::vector<std::string>& theLines) {
    std::string result;
    for (const std::string& line : theLines) {
        result += bytesOf(line);
    }
    return result;
}

std::string parseEscaped(const std::vector<std::string>& theLines) {
    std::string result;
    for (const std::string& line : theLines) {
        result += unescape(line);
    }
    return result;
}

std::string hexDump(const std::string& theBytes) {
    std::string result;
    for (std::size_t i = 0; i < theBytes.size(); ++i) {
        char text[32];
        if (i % 16 == 0) {
            std::snprintf(text, sizeof text, "%s%04zx:", i == 0 ? "" : "\n", i);
            result += text;
        }
        std::snprintf(text, sizeof text, " %02X", static_cast<unsigned char>(theBytes[i]));
        result += text;
    }
    return result;
}

std::string parameterName(const Case& theCase) {
    std::string result;
    for (const char c : theCase.file + "_" + theCase.name) {
        result += std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
    }
    return result;
}

void PrintTo(const Case& theCase, std::ostream* theStream) {
    *theStream << theCase.file << ".txt:" << theCase.line << ": " << theCase.name;
}

}  // namespace lumnis::test
