#include "CliMessages.h"

#include <algorithm>

#include "CliMessageTables.h"
#include "CpsAscii.h"

namespace lumnis {

namespace {

constexpr std::string_view theHole = "{}";

// What stands between the holes of a message.
std::vector<std::string_view> fixedParts(std::string_view theText) {
    std::vector<std::string_view> parts;
    for (std::size_t hole = theText.find(theHole); hole != std::string_view::npos;
         hole = theText.find(theHole)) {
        parts.push_back(theText.substr(0, hole));
        theText.remove_prefix(hole + theHole.size());
    }
    parts.push_back(theText);
    return parts;
}

std::size_t fixedLength(const CliMessageRow& theRow) {
    std::size_t length = 0;
    for (const std::string_view part : fixedParts(theRow.text)) {
        length += part.size();
    }
    return length;
}

// Where thePart stands at the end of theText, from theBegin on; npos if it does not.
std::size_t findAtEnd(std::string_view theText, std::string_view thePart, std::size_t theBegin) {
    return theText.substr(theBegin).ends_with(thePart) ? theText.size() - thePart.size()
                                                       : std::string_view::npos;
}

bool containsWithoutCase(std::string_view theText, std::string_view thePart) {
    return std::search(theText.begin(), theText.end(), thePart.begin(), thePart.end(),
                       [](char theLeft, char theRight) {
                           return asciiLower(theLeft) == asciiLower(theRight);
                       }) != theText.end();
}

bool isWordByte(char theByte) {
    return static_cast<unsigned char>(theByte) >= 0x80 || isAsciiDigit(theByte) ||
           isAsciiLetter(theByte) || theByte == '_';
}

// Where theWord stands in theLine as a whole word; npos unless it does so exactly once.
std::size_t onlyPlace(std::string_view theLine, std::string_view theWord) {
    std::size_t only = std::string_view::npos;
    for (std::size_t at = theLine.find(theWord); at != std::string_view::npos;
         at = theLine.find(theWord, at + 1)) {
        const std::size_t end = at + theWord.size();
        const bool goesOnLeft =
            at > 0 && isWordByte(theWord.front()) && isWordByte(theLine[at - 1]);
        const bool goesOnRight =
            end < theLine.size() && isWordByte(theWord.back()) && isWordByte(theLine[end]);
        if (goesOnLeft || goesOnRight) {
            continue;
        }
        if (only != std::string_view::npos) {
            return std::string_view::npos;
        }
        only = at;
    }
    return only;
}

// The lines of a name may go on: the first is what stands in the source line.
std::string_view firstLine(std::string_view theText) {
    return theText.substr(0, theText.find_first_of("\r\n"));
}

// The names in theMessage, by the row that matches it with most fixed text.
std::vector<std::string_view> namesOf(std::string_view theMessage) {
    std::vector<std::string_view> names;
    std::size_t best = 0;
    for (const CliMessageRow& row : messageRows()) {
        std::vector<std::string_view> found;
        const std::size_t length = fixedLength(row);
        if (length > best && matchesMessage(row, theMessage, false, &found)) {
            best = length;
            names = std::move(found);
        }
    }
    return names;
}

// Of a name that the message shows as an end tag, the end tag in theLine.
CliSpan markedEndTag(std::string_view theMessage, const std::vector<std::string_view>& theNames,
                     std::string_view theLine) {
    for (const std::string_view name : theNames) {
        const auto at = static_cast<std::size_t>(name.data() - theMessage.data());
        if (theMessage.substr(0, at).ends_with("</")) {
            const std::string tag = "</" + std::string(name);
            const std::size_t place = onlyPlace(theLine, tag);
            return place == std::string_view::npos ? CliSpan{} : CliSpan{place, tag.size()};
        }
    }
    return {};
}

}  // namespace

std::span<const CliMessageRow> messageRows() {
    static const std::vector<CliMessageRow> rows = [] {
        std::vector<CliMessageRow> result;
        const auto add = [&](std::span<const CliMessageRow> theTable, CliMessageOrigin theOrigin) {
            for (const CliMessageRow& row : theTable) {
                result.push_back(row);
                result.back().origin = theOrigin;
            }
        };
        add(scriptMessages(), CliMessageOrigin::script);
        add(deckMessages(), CliMessageOrigin::deck);
        add(xmlMessages(), CliMessageOrigin::xml);
        add(charsetMessages(), CliMessageOrigin::charset);
        add(dumpMessages(), CliMessageOrigin::dump);
        add(toolMessages(), CliMessageOrigin::tool);
        return result;
    }();
    return rows;
}

std::string_view originName(CliMessageOrigin theOrigin) {
    constexpr std::string_view theNames[] = {"Scripts",
                                             "Decks",
                                             "XML documents, decks among them",
                                             "Charsets",
                                             "Files that are dumped",
                                             "The command line"};
    return theNames[static_cast<std::size_t>(theOrigin)];
}

bool matchesMessage(const CliMessageRow& theRow, std::string_view theText, bool isPart,
                    std::vector<std::string_view>* theNames) {
    const std::vector<std::string_view> parts = fixedParts(theRow.text);
    std::size_t at = isPart ? theText.find(parts.front()) : 0;
    if (at == std::string_view::npos || !theText.substr(at).starts_with(parts.front())) {
        return false;
    }
    at += parts.front().size();
    for (std::size_t i = 1; i < parts.size(); ++i) {
        const bool isLast = i + 1 == parts.size();
        const std::size_t next =
            isLast && !isPart ? findAtEnd(theText, parts[i], at) : theText.find(parts[i], at);
        if (next == std::string_view::npos) {
            return false;
        }
        if (theNames != nullptr) {
            theNames->push_back(theText.substr(at, next - at));
        }
        at = next + parts[i].size();
    }
    return isPart || at == theText.size();
}

std::vector<const CliMessageRow*> findMessages(std::string_view theText) {
    std::vector<const CliMessageRow*> found;
    std::size_t best = 1;
    for (const bool isPart : {false, true}) {
        for (const CliMessageRow& row : messageRows()) {
            const std::size_t length = fixedLength(row);
            if (length >= best && matchesMessage(row, theText, isPart)) {
                if (length > best) {
                    found.clear();
                    best = length;
                }
                if (std::find(found.begin(), found.end(), &row) == found.end()) {
                    found.push_back(&row);
                }
            }
        }
    }
    if (found.empty()) {
        for (const CliMessageRow& row : messageRows()) {
            if (containsWithoutCase(row.text, theText)) {
                found.push_back(&row);
            }
        }
    }
    return found;
}

CliSpan markedPlace(std::string_view theMessage, std::string_view theSourceLine) {
    // A message may frame another one, which is shorter.
    for (std::vector<std::string_view> names = namesOf(theMessage); !names.empty();
         names = namesOf(theMessage)) {
        if (const CliSpan tag = markedEndTag(theMessage, names, theSourceLine); tag.length > 0) {
            return tag;
        }
        for (const std::string_view name : names) {
            const std::string_view word = firstLine(name);
            const std::size_t at =
                word.empty() ? std::string_view::npos : onlyPlace(theSourceLine, word);
            if (at != std::string_view::npos) {
                return {at, word.size()};
            }
        }
        theMessage = names.back();
    }
    return {};
}

}  // namespace lumnis
