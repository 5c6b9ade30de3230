// Where the rows of an automaton's states lie in one table, if a row that is the end of another one
// lies inside of that: in (a | b | c)* all rows are the same, and in (a?, b?, c?) each one is the
// end of the one before.
//
// Rows are found by a hash that is taken from the end on, so that one walk over a row gives the
// hashes of all its ends. The cost is in proportion to the rows together.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "XpContentNode.h"

namespace lumnis {

class XpRowLayout {
  public:
    using Row = std::span<const XpDtd::FsmNode::Transition>;

    // theRows are only read here. None is empty.
    explicit XpRowLayout(const std::vector<Row>& theRows);

    // Of the table.
    std::size_t size() const { return sizeM; }
    // Where the row of this number begins.
    std::size_t offsetOf(std::size_t theRow) const { return offsetsM[theRow]; }
    // True if it lies in another one.
    bool isShared(std::size_t theRow) const { return holdersM[theRow] != theNone; }

  private:
    static constexpr std::uint32_t theNone = UINT32_MAX;

    void enter(std::uint32_t theRow);
    void findEnds(std::uint32_t theRow);
    // The place of the row that equals theRow in the slots, or the free one for it.
    std::size_t placeOf(Row theRow, std::uint64_t theHash) const;
    void place();

    const std::vector<Row>& rowsM;
    std::vector<std::uint64_t> hashesM;   // of the whole rows
    std::vector<std::uint32_t> slotsM;    // rows by hash; open addressing
    std::vector<std::uint32_t> holdersM;  // the row of which a row is an end, or theNone
    std::vector<std::size_t> offsetsM;
    std::size_t sizeM = 0;
};

}  // namespace lumnis
