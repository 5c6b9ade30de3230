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

std::string folded(std::string_view theText) {
    std::string result(theText);
    for (char& c : result) {
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return result;
}

}  // namespace

std::size_t FwSettingsText::parse(std::string_view theText) {
    sectionsM.clear();
    currentM = nullptr;
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
            sectionsM.clear();
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
        currentM = &sectionsM[folded(key)];
        return !key.empty();
    }
    const std::size_t sign = theLine.find('=');
    if (sign == std::string_view::npos || currentM == nullptr) {
        return false;
    }
    const std::string_view name = trimmed(theLine.substr(0, sign));
    std::string_view value = trimmed(theLine.substr(sign + 1));
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
        value = value.substr(1, value.size() - 2);
    }
    (*currentM)[folded(name)] = value;
    return !name.empty();
}

const FwSettingsText::Section* FwSettingsText::findKey(std::string_view theKey) const {
    const auto found = sectionsM.find(folded(theKey));
    return found == sectionsM.end() ? nullptr : &found->second;
}

const std::string* FwSettingsText::findValue(const Section& theSection, std::string_view theName) {
    const auto found = theSection.find(folded(theName));
    return found == theSection.end() ? nullptr : &found->second;
}

}  // namespace lumnis
