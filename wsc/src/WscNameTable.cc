#include "WscNameTable.h"

namespace lumnis {

namespace {

// How many slots a name may be away from its own. In a table at most half full ordinary names
// stay far below it; a source whose names are made to collide goes on in the ordered map.
constexpr std::size_t theMaxProbes = 32;

// FNV-1a: names are short, and a call of the library's hash costs more than it.
std::size_t hashOf(std::string_view theText) noexcept {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char c : theText) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    }
    return static_cast<std::size_t>(hash ^ (hash >> 32));
}

}  // namespace

const WscName& WscNameTable::intern(std::string_view theText) {
    if (2 * namesM.size() >= slotsM.size()) {
        grow();
    }
    const std::size_t mask = slotsM.size() - 1;
    std::size_t slot = hashOf(theText) & mask;
    std::size_t probes = 0;
    for (; probes < theMaxProbes && slotsM[slot] != 0; ++probes, slot = (slot + 1) & mask) {
        const WscName& name = namesM[slotsM[slot] - 1];
        if (name.text == theText) {
            return name;
        }
    }
    // A full slot stays full until the table grows, so behind a free one there is nothing.
    if (probes == theMaxProbes) {
        const auto crowded = crowdedM.find(theText);
        if (crowded != crowdedM.end()) {
            return namesM[crowded->second];
        }
    }
    const auto number = static_cast<unsigned>(namesM.size());
    namesM.push_back({theText, number});
    place(namesM.back());
    return namesM.back();
}

void WscNameTable::place(const WscName& theName) {
    const std::size_t mask = slotsM.size() - 1;
    std::size_t slot = hashOf(theName.text) & mask;
    for (std::size_t i = 0; i < theMaxProbes; ++i, slot = (slot + 1) & mask) {
        if (slotsM[slot] == 0) {
            slotsM[slot] = theName.number + 1;
            return;
        }
    }
    crowdedM.emplace(theName.text.view(), theName.number);
}

void WscNameTable::grow() {
    slotsM.assign(slotsM.empty() ? 64 : 2 * slotsM.size(), 0);
    crowdedM.clear();
    for (const WscName& name : namesM) {
        place(name);
    }
}

}  // namespace lumnis
