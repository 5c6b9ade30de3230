#include "XpRowLayout.h"

#include <algorithm>
#include <bit>
#include <numeric>

namespace lumnis {

namespace {

using Transition = XpDtd::FsmNode::Transition;

// Of a row and one more transition in front of it. Addresses decide what is looked at, never what
// is found.
std::uint64_t extend(std::uint64_t theHash, const Transition& theTransition) {
    constexpr std::uint64_t theFactor = 0x9E3779B97F4A7C15u;
    const auto item = reinterpret_cast<std::uintptr_t>(theTransition.item);
    const auto target = reinterpret_cast<std::uintptr_t>(theTransition.target);
    const std::uint64_t hash = (theHash ^ item ^ std::rotl(std::uint64_t{target}, 29)) * theFactor;
    return hash ^ (hash >> 32);
}

bool areEqual(XpRowLayout::Row theLeft, XpRowLayout::Row theRight) {
    return std::equal(theLeft.begin(), theLeft.end(), theRight.begin(), theRight.end(),
                      [](const Transition& theOne, const Transition& theOther) {
                          return theOne.item == theOther.item && theOne.target == theOther.target;
                      });
}

}  // namespace

XpRowLayout::XpRowLayout(const std::vector<Row>& theRows)
    : rowsM(theRows),
      hashesM(theRows.size()),
      slotsM(std::bit_ceil(2 * theRows.size() + 1), theNone),
      holdersM(theRows.size(), theNone),
      offsetsM(theRows.size()) {
    const auto count = static_cast<std::uint32_t>(rowsM.size());
    for (std::uint32_t row = 0; row < count; ++row) {
        enter(row);
    }
    for (std::uint32_t row = 0; row < count; ++row) {
        if (!isShared(row)) {
            findEnds(row);
        }
    }
    place();
}

std::size_t XpRowLayout::placeOf(Row theRow, std::uint64_t theHash) const {
    const std::size_t mask = slotsM.size() - 1;
    std::size_t slot = theHash & mask;
    while (slotsM[slot] != theNone) {
        const std::uint32_t other = slotsM[slot];
        if (hashesM[other] == theHash && areEqual(rowsM[other], theRow)) {
            break;
        }
        slot = (slot + 1) & mask;
    }
    return slot;
}

// Of rows that are equal the first one stands for all.
void XpRowLayout::enter(std::uint32_t theRow) {
    const Row row = rowsM[theRow];
    std::uint64_t hash = 0;
    for (std::size_t i = row.size(); i-- != 0;) {
        hash = extend(hash, row[i]);
    }
    hashesM[theRow] = hash;
    std::uint32_t& slot = slotsM[placeOf(row, hash)];
    if (slot == theNone) {
        slot = theRow;
    } else {
        holdersM[theRow] = slot;
    }
}

void XpRowLayout::findEnds(std::uint32_t theRow) {
    const Row row = rowsM[theRow];
    std::uint64_t hash = 0;
    for (std::size_t i = row.size(); i-- > 1;) {
        hash = extend(hash, row[i]);
        const std::size_t mask = slotsM.size() - 1;
        for (std::size_t slot = hash & mask; slotsM[slot] != theNone; slot = (slot + 1) & mask) {
            const std::uint32_t other = slotsM[slot];
            // One that has been found lies elsewhere as well.
            if (hashesM[other] == hash && holdersM[other] == theNone &&
                areEqual(rowsM[other], row.subspan(i))) {
                holdersM[other] = theRow;
                break;
            }
        }
    }
}

// The longest first, so that what holds a row has its place before it.
void XpRowLayout::place() {
    std::vector<std::uint32_t> order(rowsM.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](std::uint32_t theOne, std::uint32_t theOther) {
        return rowsM[theOne].size() > rowsM[theOther].size();
    });
    for (const std::uint32_t row : order) {
        const std::size_t length = rowsM[row].size();
        if (isShared(row)) {
            const std::uint32_t holder = holdersM[row];
            offsetsM[row] = offsetsM[holder] + rowsM[holder].size() - length;
        } else {
            offsetsM[row] = sizeM;
            sizeM += length;
        }
    }
}

}  // namespace lumnis
