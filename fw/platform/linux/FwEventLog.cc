#include "FwEventLog.h"

#include <syslog.h>

#include <cstdio>
#include <string>

namespace lumnis {

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
            if (string == nullptr) {
                continue;
            }
            line += ' ';
            for (const char* c = string; *c != '\0'; ++c) {
                // One line, whatever the text; line ends at its start are dropped.
                const bool isControl = static_cast<unsigned char>(*c) < 0x20 || *c == '\x7F';
                if (!isControl) {
                    line += *c;
                } else if (line.back() != ' ') {
                    line += ' ';
                }
            }
            if (line.back() == ' ') {
                line.pop_back();
            }
        }
        ::syslog(LOG_USER | (theType == FwEventType::error ? LOG_ERR : LOG_INFO), "%s",
                 line.c_str());
    } catch (...) {
        // No memory for the line.
    }
}

}  // namespace lumnis
