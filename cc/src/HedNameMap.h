// Names to numbers and numbers to names: the base of the tables of charsets and media types.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string_view>

#include "CpsString.h"

namespace lumnis {

struct HedNameRow {
    std::string_view name;
    std::int32_t number;
};

// A table is written in an order for the reader; this sorts it for the search, by name or by
// number. A key that stands twice is a fault of the build.
template <auto theKey, std::size_t theSize>
consteval std::array<HedNameRow, theSize> sortedBy(std::array<HedNameRow, theSize> theRows) {
    std::ranges::sort(theRows, {}, theKey);
    if (std::ranges::adjacent_find(theRows, {}, theKey) != theRows.end()) {
        throw std::logic_error("a key stands twice");
    }
    return theRows;
}

// The tables are made by the compiler and only read: any number of threads may ask at once.
class HedNameMap {
  public:
    static constexpr std::int32_t theUnknownNumber = -1;

    HedNameMap(const HedNameMap&) = delete;
    HedNameMap& operator=(const HedNameMap&) = delete;

    // The number of a name or an alias, the letters A to Z in either case; -1 for any other text.
    std::int32_t getNumber(std::string_view theName) const;
    // The canonical name; the empty string for a number that is not in the table.
    CpsString getName(std::int32_t theNumber) const;

    // Every name and alias, by name in the order of bytes.
    std::span<const HedNameRow> names() const { return namesM; }
    // The canonical name of each number, by number.
    std::span<const HedNameRow> numbers() const { return numbersM; }

  protected:
    // By name and by number, from sortedBy; the tables behind the spans outlive the map.
    constexpr HedNameMap(std::span<const HedNameRow> theNames,
                         std::span<const HedNameRow> theNumbers)
        : namesM(theNames), numbersM(theNumbers) {}
    // Abstract: a table is one of the derived classes.
    virtual ~HedNameMap() = default;

  private:
    const std::span<const HedNameRow> namesM;
    const std::span<const HedNameRow> numbersM;
};

}  // namespace lumnis
