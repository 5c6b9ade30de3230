#include "FwSettingsText.h"

#include <algorithm>

namespace lumnis {

namespace {

std::string_view trimmed(std::string_view theText) {
    constexpr std::string_view theBlanks = " \t";
    const std::size_t first = theText.find_first_not_of(theBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return theText.substr(first, theText.find_last_not_of(theBlanks) - first + 1);
}

char upper(char theLetter) {
    return theLetter >= 'a' && theLetter <= 'z' ? static_cast<char>(theLetter - 'a' + 'A')
                                                : theLetter;
}

bool isSame(std::string_view theLeft, std::string_view theRight) {
    return std::equal(theLeft.begin(), theLeft.end(), theRight.begin(), theRight.end(),
                      [](char l, char r) { return upper(l) == upper(r); });
}

}  // namespace

std::size_t FwSettingsText::parse(std::string_view theText) {
    keysM.clear();
    valuesM.clear();
    if (theText.starts_with("\xEF\xBB\xBF")) {
        theText.remove_prefix(3);
    }
    for (std::size_t line = 1; !theText.empty(); ++line) {
        const std::size_t end = std::min(theText.find('\n'), theText.size());
        std::string_view content = theText.substr(0, end);
        theText.remove_prefix(std::min(end + 1, theText.size()));
        if (content.ends_with('\r')) {
            content.remove_suffix(1);
        }
        if (!parseLine(trimmed(content))) {
            keysM.clear();
            valuesM.clear();
            return line;
        }
    }
    return 0;
}

bool FwSettingsText::parseLine(std::string_view theLine) {
    if (theLine.empty() || theLine[0] == '#' || theLine[0] == ';') {
        return true;
    }
    if (theLine[0] == '[') {
        if (theLine.back() != ']') {
            return false;
        }
        const std::string_view key = trimmed(theLine.substr(1, theLine.size() - 2));
        const auto found = findKey(key);
        currentM = found.value_or(keysM.size());
        if (!found) {
            keysM.emplace_back(key);
        }
        return !key.empty();
    }
    const std::size_t sign = theLine.find('=');
    if (sign == std::string_view::npos || keysM.empty()) {
        return false;
    }
    const std::string_view name = trimmed(theLine.substr(0, sign));
    std::string_view value = trimmed(theLine.substr(sign + 1));
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
        value = value.substr(1, value.size() - 2);
    }
    valuesM.push_back({currentM, std::string(name), std::string(value)});
    return !name.empty();
}

std::optional<std::size_t> FwSettingsText::findKey(std::string_view theKey) const {
    const auto found = std::find_if(keysM.begin(), keysM.end(), [&](const std::string& theOther) {
        return isSame(theOther, theKey);
    });
    if (found == keysM.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - keysM.begin());
}

const std::string* FwSettingsText::findValue(std::size_t theSection,
                                             std::string_view theName) const {
    const auto found = std::find_if(valuesM.rbegin(), valuesM.rend(), [&](const Value& theValue) {
        return theValue.section == theSection && isSame(theValue.name, theName);
    });
    return found == valuesM.rend() ? nullptr : &found->value;
}

}  // namespace lumnis
