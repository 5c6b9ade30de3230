// All messages that users can meet, and what each means. "lumnis explain", the page
// docs/messages.md and the mark below a source line come from this table. A test keeps it complete.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lumnis {

// What a message is about; it tells what its example is run with, too.
enum class CliMessageOrigin {
    script,   // lumnis compile, WMLSCompile
    deck,     // lumnis encode, WMLEncode
    xml,      // the parser, beneath lumnis encode and lumnis check; the example is for check
    charset,  // all that converts
    dump,     // lumnis dump
    tool,     // the command line itself
};

struct CliMessageRow {
    std::string_view text;     // {} stands for a name or a number
    std::string_view meaning;  // what it says about the source
    std::string_view cause;    // what its author did
    // A source that gives it and one that does not, the same but for that. Lines that begin with
    // "$ " are commands of a shell instead. Empty where nothing that an author writes gives it.
    std::string_view broken;
    std::string_view repaired;
    CliMessageOrigin origin = CliMessageOrigin::script;
};

// All of them, by origin and then as they stand in the tables.
std::span<const CliMessageRow> messageRows();

// "Scripts" and the like: a heading.
std::string_view originName(CliMessageOrigin theOrigin);

// A place in a text.
struct CliSpan {
    std::size_t begin = 0;
    std::size_t length = 0;
};

// Whether theText is theRow's message with some names in its holes; with isPart, whether it holds
// that message. theNames, if there is one, gets the names found on the way, also for a text that
// fails.
bool matchesMessage(const CliMessageRow& theRow, std::string_view theText, bool isPart,
                    std::vector<std::string_view>* theNames = nullptr);

// The rows that explain theText: of those whose fixed parts stand in it, the ones with most fixed
// text; if there are none, those that theText is a part of, in any letter case.
std::vector<const CliMessageRow*> findMessages(std::string_view theText);

// What theMessage speaks of in theSourceLine: the first of its names that stands there exactly
// once, as a whole word. Length 0 if there is none.
CliSpan markedPlace(std::string_view theMessage, std::string_view theSourceLine);

}  // namespace lumnis
