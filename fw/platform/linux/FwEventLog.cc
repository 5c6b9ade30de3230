#include "FwEventLog.h"

#include <syslog.h>

#include <cstdio>
#include <string>
#include <string_view>

namespace lumnis {

namespace {

bool isControl(char theCharacter) {
    return static_cast<unsigned char>(theCharacter) < 0x20 || theCharacter == '\x7F';
}

// The log has lines: control characters become blanks, those at the start are dropped, and so is
// a string of nothing else.
void appendString(std::string_view theString, std::string& theLine) {
    while (!theString.empty() && isControl(theString[0])) {
        theString.remove_prefix(1);
    }
    if (!theString.empty()) {
        theLine += ' ';
        for (const char c : theString) {
            theLine += isControl(c) ? ' ' : c;
        }
    }
}

}  // namespace

FwEventSource::FwEventSource(const char* theName) : nameM(theName) {}

// One line: SOURCE: event 0xCODE, category N: STRINGS. No openlog: what it sets belongs to the
// host, so the line stands under the host's name, and the source is part of its text.
void FwEventSource::report(FwEventType theType, int theCategory, unsigned theEventCode,
                           std::initializer_list<const char*> theStrings) const noexcept {
    try {
        char head[64];
        std::snprintf(head, sizeof head, ": event 0x%08X, category %d:", theEventCode, theCategory);
        std::string line(nameM.view());
        line += head;
        for (const char* string : theStrings) {
            if (string != nullptr) {
                appendString(string, line);
            }
        }
        ::syslog(LOG_USER | (theType == FwEventType::error ? LOG_ERR : LOG_INFO), "%s",
                 line.c_str());
    } catch (...) {
        // No memory for the line.
    }
}

}  // namespace lumnis
