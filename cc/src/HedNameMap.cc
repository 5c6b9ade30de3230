#include "HedNameMap.h"

#include <string>

#include "CpsAscii.h"

namespace lumnis {

std::int32_t HedNameMap::getNumber(std::string_view theName) const {
    std::string lowered(theName);
    std::transform(lowered.begin(), lowered.end(), lowered.begin(), asciiLower);
    const auto found = std::lower_bound(
        namesM.begin(), namesM.end(), std::string_view(lowered),
        [](const HedNameRow& theRow, std::string_view theText) { return theRow.name < theText; });
    return found != namesM.end() && found->name == lowered ? found->number : theUnknownNumber;
}

CpsString HedNameMap::getName(std::int32_t theNumber) const {
    const auto found = std::lower_bound(
        numbersM.begin(), numbersM.end(), theNumber,
        [](const HedNameRow& theRow, std::int32_t theKey) { return theRow.number < theKey; });
    return found != numbersM.end() && found->number == theNumber ? CpsString(found->name)
                                                                 : CpsString();
}

}  // namespace lumnis
