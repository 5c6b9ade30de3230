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

#include "CpsBytes.h"
#include "XaMbUInt.h"

namespace lumnis {

XaWbxmlCtrl::StringTable::Number XaWbxmlCtrl::StringTable::obtainNumber(std::string_view theString,
                                                                        bool isBare) {
    const int known = numbersM.find(theString);
    if (known >= 0) {
        return static_cast<Number>(known);
    }
    const std::size_t size = theString.size() + (isBare ? 1 : 0);
    auto* bytes = static_cast<char*>(memoryM.allocate(size));
    CpsBytes::copy(bytes, theString);
    if (isBare) {
        bytes[theString.size()] = '\0';
    }
    const auto number = static_cast<Number>(stringsM.size());
    stringsM.push_back({{bytes, size}});
    numbersM.add({bytes, theString.size()}, static_cast<int>(number));
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

bool XaWbxmlCtrl::StringTable::conditionalAddString(Number theNumber, XaByteBuffer& theOutput) {
    const Usage& usage = stringsM[theNumber];
    const bool isNew = usage.offset == theNoOffset;
    const auto offset = static_cast<std::uint32_t>(isNew ? contentM.size()
                                                         : static_cast<std::size_t>(usage.offset));
    const auto length = static_cast<std::int64_t>(usage.text.size());
    const std::int64_t saving = length - static_cast<std::int64_t>(XaMbUInt::lengthOf(offset));
    if (saving <= 0 || (isNew && saving * usage.count <= length)) {
        theOutput.append(XaWbxmlToken::STR_I);
        theOutput.append(usage.text);
        return false;
    }
    addString(theNumber);
    theOutput.append(XaWbxmlToken::STR_T);
    XaMbUInt(offset).appendTo(theOutput);
    return true;
}

CpsString XaWbxmlCtrl::StringTable::getLength() const {
    return getAsMbUInt(static_cast<std::uint32_t>(contentM.size()));
}

}  // namespace lumnis
