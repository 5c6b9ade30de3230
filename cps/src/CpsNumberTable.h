// Remembers the numbers that things of a source got, texts or values: as fast as a table of hashes
// and without its weakness, since a source that is made to collide goes on in an ordered map.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>

#include "CpsArray.h"
#include "CpsBytes.h"

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
            if (candidate.entry == 0) {
                return -1;  // a full slot stays full: behind a free one there is nothing
            }
            if (candidate.hash == hash && isEqual(keyOf(candidate.entry), theKey)) {
                return numberOf(candidate.entry);
            }
        }
        const auto crowded = crowdedM.find(theKey);
        return crowded == crowdedM.end() ? -1 : numberOf(crowded->second);
    }

    // Gives theKey, which must not have one, a number of 0 or above.
    void add(Key theKey, int theNumber) {
        entriesM.append(Entry{theKey, theNumber});
        if (2 * entriesM.size() > slotsM.size()) {
            grow();
        }
        place({hashOf(theKey), static_cast<std::uint32_t>(entriesM.size())});
    }

  private:
    // A slot is small, so that the table stays in the processor's cache; what it stands for is
    // looked at only when the hashes agree.
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t entry = 0;  // from 1; 0 is a free slot
    };
    struct Entry {
        Key key;
        int number;
    };

    // How many slots a key may be away from its own. In a table at most half full ordinary keys
    // stay far below it.
    static constexpr std::size_t theMaxProbes = 32;

    // As many slots live in the table itself: enough for most of what a small source names.
    static constexpr std::size_t theFirstSize = 32;
    using Slots = CpsArray<Slot, theFirstSize>;

    std::size_t mask() const noexcept { return slotsM.size() - 1; }

    static std::uint32_t hashOf(std::string_view theText) noexcept {
        return CpsBytes::hashOf(theText);
    }
    static std::uint32_t hashOf(std::uint32_t theValue) noexcept {
        return static_cast<std::uint32_t>((theValue * 0x9E3779B97F4A7C15u) >> 32);
    }
    static bool isEqual(std::string_view theLeft, std::string_view theRight) noexcept {
        return CpsBytes::areSame(theLeft, theRight);
    }
    static bool isEqual(std::uint32_t theLeft, std::uint32_t theRight) noexcept {
        return theLeft == theRight;
    }

    const Key& keyOf(std::uint32_t theEntry) const { return entriesM[theEntry - 1].key; }
    int numberOf(std::uint32_t theEntry) const { return entriesM[theEntry - 1].number; }

    void place(const Slot& theNew) {
        std::size_t slot = theNew.hash & mask();
        for (std::size_t probe = 0; probe < theMaxProbes; ++probe, slot = (slot + 1) & mask()) {
            if (slotsM[slot].entry == 0) {
                slotsM[slot] = theNew;
                return;
            }
        }
        crowdedM.emplace(keyOf(theNew.entry), theNew.entry);
    }

    // In a larger table those that were crowded may find a place.
    void grow() {
        if (slotsM.empty()) {
            slotsM.resize(theFirstSize);
            return;
        }
        Slots old;
        old.resize(2 * slotsM.size());
        old.swap(slotsM);
        for (const Slot& slot : old) {
            if (slot.entry != 0) {
                place(slot);
            }
        }
        std::map<Key, std::uint32_t> crowded;
        crowded.swap(crowdedM);
        for (const auto& [key, entry] : crowded) {
            place({hashOf(key), entry});
        }
    }

    Slots slotsM;  // open addressing, at most half full, its size a power of two
    CpsArray<Entry, theFirstSize / 2> entriesM;
    std::map<Key, std::uint32_t> crowdedM;  // keys that found no slot near
};

}  // namespace lumnis
