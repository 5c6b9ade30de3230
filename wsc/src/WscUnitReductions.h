// What a build step puts into the generated parser's loop: passes through rules that only hand a
// value up, without a full turn of the loop for each.
//
// An operand climbs through a level for each precedence, fifteen in all, before it meets its
// operator. None of these rules has an action, and none moves the stacks: each replaces the state
// on top by the one that follows from the state below. Everything else is left to the loop, which
// would take the same steps; in particular no look-ahead is read here.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace lumnis {

// The tables of a generated parser, under the names that bison gives them.
template <class Pact, class Defact, class Pgoto, class Defgoto, class Table, class Check, class R1,
          class R2, class Translate>
struct UnitReductionTables {
    const Pact* pact;
    const Defact* defact;
    const Pgoto* pgoto;
    const Defgoto* defgoto;
    const Table* table;
    const Check* check;
    const R1* r1;
    const R2* r2;
    const Translate* translate;
    int pactNinf;  // the value in pact of a state that needs no look-ahead
    int last;      // the last index of table and check
    int tokens;    // number of terminal symbols
};
// Compilers before the deduction for aggregates of C++20 was complete need it told.
template <class Pact, class Defact, class Pgoto, class Defgoto, class Table, class Check, class R1,
          class R2, class Translate>
UnitReductionTables(const Pact*, const Defact*, const Pgoto*, const Defgoto*, const Table*,
                    const Check*, const R1*, const R2*, const Translate*, int, int, int)
    -> UnitReductionTables<Pact, Defact, Pgoto, Defgoto, Table, Check, R1, R2, Translate>;

// The climbs that have been made already: scripts have few that differ. All parses of the process
// share one memory, since the tables are the same for all: an entry is written and read as a whole,
// and whoever writes it writes the same.
class UnitReductionMemo {
  public:
    // States and symbols are below it: keyOf packs them in ten and eleven bits.
    static constexpr int theLimit = 1024;

    // Names the climb that begins at theState above theStateBelow; theSymbol is the look-ahead,
    // negative for none. Never 0.
    static std::uint32_t keyOf(int theState, int theStateBelow, int theSymbol) noexcept {
        return static_cast<std::uint32_t>(theState) << 21 |
               static_cast<std::uint32_t>(theStateBelow) << 11 |
               static_cast<std::uint32_t>(theSymbol + 1);
    }
    // The state in which the climb ends, or -1 when it is not known.
    int find(std::uint32_t theKey) const noexcept {
        const std::uint64_t entry = entriesM[placeOf(theKey)].load(std::memory_order_relaxed);
        return entry >> 32 == theKey ? static_cast<int>(entry & 0xFFFFFFFF) : -1;
    }
    // In the place of another one that may be there.
    void add(std::uint32_t theKey, int theState) noexcept {
        entriesM[placeOf(theKey)].store(
            std::uint64_t{theKey} << 32 | static_cast<std::uint32_t>(theState),
            std::memory_order_relaxed);
    }

  private:
    static std::size_t placeOf(std::uint32_t theKey) noexcept {
        return (theKey * 0x9E3779B1u) >> 23;
    }

    std::array<std::atomic<std::uint64_t>, 512> entriesM{};
};

// For each state the rule by which it reduces when nothing else is to be done, if that one only
// hands a value up; else 0. isTransparent tells for the number of a nonterminal whether its rules
// of one symbol are without action.
template <std::size_t theStates, class Tables, class Predicate>
std::array<std::int16_t, theStates> findUnitRules(const Tables& theTables,
                                                  Predicate isTransparent) {
    std::array<std::int16_t, theStates> rules{};
    for (std::size_t state = 0; state < rules.size(); ++state) {
        const int rule = theTables.defact[state];
        if (theTables.r2[rule] == 1 && isTransparent(theTables.r1[rule])) {
            rules[state] = static_cast<std::int16_t>(rule);
        }
    }
    return rules;
}

// The state to go on from when theState has been reached above theStateBelow. theToken is the
// look-ahead, negative when none has been read.
template <class Tables, class UnitRules>
inline int passUnits(int theState, int theStateBelow, int theToken, const Tables& theTables,
                     const UnitRules& theUnitRules, UnitReductionMemo& theMemo) {
    const int lookAhead = theToken < 0 ? -1 : theTables.translate[theToken];
    // The rule by which the loop would reduce here, if it is one to pass through; else 0.
    const auto passedRule = [&](int theStep) {
        const int base = theTables.pact[theStep];
        if (base != theTables.pactNinf) {
            const int index = base + lookAhead;
            if (lookAhead < 0 ||
                (index >= 0 && index <= theTables.last && theTables.check[index] == lookAhead)) {
                return 0;  // the look-ahead decides: no default reduction
            }
        }
        return static_cast<int>(theUnitRules[static_cast<std::size_t>(theStep)]);
    };
    int rule = passedRule(theState);
    if (rule == 0) {
        return theState;
    }
    const std::uint32_t key = UnitReductionMemo::keyOf(theState, theStateBelow, lookAhead);
    if (const int known = theMemo.find(key); known >= 0) {
        return known;
    }
    for (; rule != 0; rule = passedRule(theState)) {
        const int nonterminal = theTables.r1[rule] - theTables.tokens;
        const int index = theTables.pgoto[nonterminal] + theStateBelow;
        theState = index >= 0 && index <= theTables.last && theTables.check[index] == theStateBelow
                       ? theTables.table[index]
                       : theTables.defgoto[nonterminal];
    }
    theMemo.add(key, theState);
    return theState;
}

}  // namespace lumnis
