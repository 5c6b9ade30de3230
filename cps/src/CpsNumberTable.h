// Numbers things of a source, texts or values, as fast as a table of hashes and without its
// weakness: a source that is made to collide goes on in an ordered map.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>

#include "CpsArray.h"

namespace lumnis {

// Key: std::string_view, whose text must stay where it is once it has been added, or a number.
template <class Key>
class CpsNumberTable {
  public:
    // The number of theKey, or -1.
    int find(Key theKey) const {
        if (slotsM.empty()) {
            return -1;
        }
        const std::uint32_t hash = hashOf(theKey);
        std::size_t slot = hash & mask();
        for (std::size_t probe = 0; probe < theMaxProbes; ++probe, slot = (slot + 1) & mask()) {
            const Slot& candidate = slotsM[slot];
            if (candidate.number < 0) {
                return -1;  // a full slot stays full: behind a free one there is nothing
            }
            if (candidate.hash == hash && isEqual(candidate.key, theKey)) {
                return candidate.number;
            }
        }
        const auto crowded = crowdedM.find(theKey);
        return crowded == crowdedM.end() ? -1 : crowded->second;
    }

    // Gives theKey, which must not have one, a number of 0 or above.
    void add(Key theKey, int theNumber) {
        if (2 * ++countM > slotsM.size()) {
            grow();
        }
        place({theKey, hashOf(theKey), theNumber});
    }

  private:
    struct Slot {
        Key key{};
        std::uint32_t hash = 0;
        int number = -1;
    };

    // How many slots a key may be away from its own. In a table at most half full ordinary keys
    // stay far below it.
    static constexpr std::size_t theMaxProbes = 32;

    // As many slots live in the table itself: enough for most of what a small source names.
    static constexpr std::size_t theFirstSize = 32;
    using Slots = CpsArray<Slot, theFirstSize>;

    std::size_t mask() const noexcept { return slotsM.size() - 1; }

    // FNV-1a: texts are short, and a call of the library's hash costs more than it.
    static std::uint32_t hashOf(std::string_view theText) noexcept {
        std::uint64_t hash = 0xCBF29CE484222325;
        for (const char c : theText) {
            hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
        }
        return static_cast<std::uint32_t>(hash ^ (hash >> 32));
    }
    static std::uint32_t hashOf(std::uint32_t theValue) noexcept {
        return static_cast<std::uint32_t>((theValue * 0x9E3779B97F4A7C15u) >> 32);
    }
    static bool isEqual(std::string_view theLeft, std::string_view theRight) noexcept {
        return theLeft == theRight;
    }
    static bool isEqual(std::uint32_t theLeft, std::uint32_t theRight) noexcept {
        return theLeft == theRight;
    }

    void place(const Slot& theNew) {
        std::size_t slot = theNew.hash & mask();
        for (std::size_t probe = 0; probe < theMaxProbes; ++probe, slot = (slot + 1) & mask()) {
            if (slotsM[slot].number < 0) {
                slotsM[slot] = theNew;
                return;
            }
        }
        crowdedM.emplace(theNew.key, theNew.number);
    }

    void grow() {
        if (slotsM.empty()) {
            slotsM.resize(theFirstSize);
            return;
        }
        Slots old;
        old.resize(2 * slotsM.size());
        old.swap(slotsM);
        for (const Slot& slot : old) {
            if (slot.number >= 0) {
                place(slot);
            }
        }
        std::map<Key, int> crowded;
        crowded.swap(crowdedM);
        for (const auto& [key, number] : crowded) {
            place({key, hashOf(key), number});
        }
    }

    Slots slotsM;  // open addressing, at most half full, its size a power of two
    std::size_t countM = 0;
    std::map<Key, int> crowdedM;  // keys that found no slot near
};

}  // namespace lumnis
