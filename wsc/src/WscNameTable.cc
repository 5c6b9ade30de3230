#include "WscNameTable.h"

namespace lumnis {

namespace {

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
    for (; slotsM[slot] != 0; slot = (slot + 1) & mask) {
        const WscName& name = namesM[slotsM[slot] - 1];
        if (name.text == theText) {
            return name;
        }
    }
    const auto number = static_cast<unsigned>(namesM.size());
    namesM.push_back({theText, number});
    slotsM[slot] = number + 1;
    return namesM.back();
}

void WscNameTable::grow() {
    std::vector<std::uint32_t> slots(slotsM.empty() ? 64 : 2 * slotsM.size());
    const std::size_t mask = slots.size() - 1;
    for (const WscName& name : namesM) {
        std::size_t slot = hashOf(name.text) & mask;
        while (slots[slot] != 0) {
            slot = (slot + 1) & mask;
        }
        slots[slot] = name.number + 1;
    }
    slotsM = std::move(slots);
}

}  // namespace lumnis
