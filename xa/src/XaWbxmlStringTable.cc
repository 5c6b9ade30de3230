// The placement of strings.
//
// A string costs its length and the STR_I token inline; in the table it costs its length once, and
// at each occurrence the length of its offset and the STR_T token. With
//     saving = length - length of the offset
// per occurrence, a new string goes into the table if saving * occurrences exceeds the length. It
// does not for a single occurrence. The table grows while the body is gone through, so the offset,
// and with it the choice, is that of the moment; what is in the table already, as a name or by an
// earlier occurrence, costs no length any more and is referred to unless the offset is as long as
// the string.
#include "XaWbxmlStringTable.h"

#include <functional>

#include "XaMbUInt.h"

namespace lumnis {

XaWbxmlCtrl::StringTable::Entry& XaWbxmlCtrl::StringTable::obtainEntry(std::string_view theString) {
    const KeyView key{std::hash<std::string_view>()(theString), theString};
    const auto place = usageM.lower_bound(key);
    if (place != usageM.end() && place->first.hash == key.hash && place->first.text == key.text) {
        return *place;
    }
    return *usageM.try_emplace(place, Key{key.hash, key.text});
}

std::uint32_t XaWbxmlCtrl::StringTable::addString(Entry& theEntry) {
    Usage& usage = theEntry.second;
    if (usage.offset == Usage::theNoOffset) {
        usage.offset = static_cast<std::int64_t>(contentM.size());
        contentM += theEntry.first.text.view();
    }
    return static_cast<std::uint32_t>(usage.offset);
}

bool XaWbxmlCtrl::StringTable::conditionalAddString(Entry& theEntry, std::string& theOutput) {
    const std::string_view string = theEntry.first.text.view();
    const Usage& usage = theEntry.second;
    const bool isNew = usage.offset == Usage::theNoOffset;
    const XaMbUInt offset(isNew ? static_cast<std::uint32_t>(contentM.size())
                                : static_cast<std::uint32_t>(usage.offset));
    const auto length = static_cast<std::int64_t>(string.size());
    const std::int64_t saving = length - static_cast<std::int64_t>(offset.length());
    if (saving <= 0 || (isNew && saving * usage.count <= length)) {
        theOutput.push_back(static_cast<char>(XaWbxmlToken::STR_I));
        theOutput.append(string);
        return false;
    }
    addString(theEntry);
    theOutput.push_back(static_cast<char>(XaWbxmlToken::STR_T));
    theOutput.append(offset.view());
    return true;
}

CpsString XaWbxmlCtrl::StringTable::getLength() const {
    return getAsMbUInt(static_cast<std::uint32_t>(contentM.size()));
}

}  // namespace lumnis
