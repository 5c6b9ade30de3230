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

#include <cstring>

#include "XaMbUInt.h"

namespace lumnis {

XaWbxmlCtrl::StringTable::Number XaWbxmlCtrl::StringTable::obtainNumber(
    std::string_view theString) {
    const int known = numbersM.find(theString);
    if (known >= 0) {
        return static_cast<Number>(known);
    }
    auto* bytes = static_cast<char*>(memoryM.allocate(theString.size()));
    std::memcpy(bytes, theString.data(), theString.size());
    const auto number = static_cast<Number>(stringsM.size());
    stringsM.push_back({{bytes, theString.size()}});
    numbersM.add(stringsM.back().text, static_cast<int>(number));
    return number;
}

std::uint32_t XaWbxmlCtrl::StringTable::addString(Number theNumber) {
    Usage& usage = stringsM[theNumber];
    if (usage.offset == theNoOffset) {
        usage.offset = static_cast<std::int64_t>(contentM.size());
        contentM += usage.text;
    }
    return static_cast<std::uint32_t>(usage.offset);
}

bool XaWbxmlCtrl::StringTable::conditionalAddString(Number theNumber, Bytes& theOutput) {
    const Usage& usage = stringsM[theNumber];
    const bool isNew = usage.offset == theNoOffset;
    const XaMbUInt offset(isNew ? static_cast<std::uint32_t>(contentM.size())
                                : static_cast<std::uint32_t>(usage.offset));
    const auto length = static_cast<std::int64_t>(usage.text.size());
    const std::int64_t saving = length - static_cast<std::int64_t>(offset.length());
    if (saving <= 0 || (isNew && saving * usage.count <= length)) {
        theOutput.push_back(static_cast<char>(XaWbxmlToken::STR_I));
        append(theOutput, usage.text);
        return false;
    }
    addString(theNumber);
    theOutput.push_back(static_cast<char>(XaWbxmlToken::STR_T));
    append(theOutput, offset.view());
    return true;
}

CpsString XaWbxmlCtrl::StringTable::getLength() const {
    return getAsMbUInt(static_cast<std::uint32_t>(contentM.size()));
}

}  // namespace lumnis
