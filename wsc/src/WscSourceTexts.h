// The names and the string literals of a source, each by its number, from 0 in order of first
// appearance. A node of the tree holds the number, in half the bytes of a pointer.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "CpsArray.h"
#include "CpsNumberTable.h"
#include "FwArena.h"
#include "WscName.h"

namespace lumnis {

class WscSourceTexts {
  public:
    // The number of a name, the same for the same text; theText must stay where it is.
    std::size_t addName(std::string_view theText) {
        int number = numbersM.find(theText);
        if (number < 0) {
            number = static_cast<int>(namesM.size());
            namesM.append(WscName{theText});
            numbersM.add(theText, number);
        }
        return static_cast<std::size_t>(number);
    }
    // The number of one more string literal; theText must stay where it is.
    std::size_t addString(std::string_view theText) {
        stringsM.append(theText);
        return stringsM.size() - 1;
    }
    // A copy of theText that stays.
    std::string_view keep(std::string_view theText) {
        auto* copy = static_cast<char*>(memoryM.allocate(theText.size()));
        std::copy(theText.begin(), theText.end(), copy);
        return {copy, theText.size()};
    }

    // A name stays where it is once the last one has been added.
    WscName& getName(std::size_t theNumber) noexcept { return namesM[theNumber]; }
    const WscName& getName(std::size_t theNumber) const noexcept { return namesM[theNumber]; }
    std::string_view getString(std::size_t theNumber) const noexcept { return stringsM[theNumber]; }

  private:
    CpsArray<WscName, 32> namesM;
    CpsNumberTable<std::string_view> numbersM;  // of the names
    CpsArray<std::string_view, 16> stringsM;
    FwArena memoryM;
};

}  // namespace lumnis
