// What a build step puts into the generated parser's loop: passes through rules that only hand a
// value up, without a full turn of the loop for each.
//
// An operand climbs through a level for each precedence, fifteen in all, before it meets its
// operator. None of these rules has an action, and none moves the stacks: each replaces the state
// on top by the one that follows from the state below. Everything else is left to the loop, which
// would take the same steps; in particular no look-ahead is read here.
#pragma once

#include <array>
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

// The climbs of one parse that have been made already: a script has few that differ.
class UnitReductionMemo {
  public:
    // States and symbols are below 1024.
    static constexpr int theLimit = 1024;

    // The place for the climb that begins at theState above theStateBelow; theSymbol is the
    // look-ahead, negative for none.
    struct Entry {
        std::uint32_t key = 0;
        int state = 0;
    };
    static std::uint32_t keyOf(int theState, int theStateBelow, int theSymbol) noexcept {
        return static_cast<std::uint32_t>(theState) << 21 |
               static_cast<std::uint32_t>(theStateBelow) << 11 |
               static_cast<std::uint32_t>(theSymbol + 1);
    }
    Entry& entryFor(std::uint32_t theKey) noexcept {
        return entriesM[(theKey * 0x9E3779B1u) >> 23];
    }

  private:
    std::array<Entry, 512> entriesM;
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
    UnitReductionMemo::Entry& entry = theMemo.entryFor(key);
    if (entry.key == key) {
        return entry.state;
    }
    for (; rule != 0; rule = passedRule(theState)) {
        const int nonterminal = theTables.r1[rule] - theTables.tokens;
        const int index = theTables.pgoto[nonterminal] + theStateBelow;
        theState = index >= 0 && index <= theTables.last && theTables.check[index] == theStateBelow
                       ? theTables.table[index]
                       : theTables.defgoto[nonterminal];
    }
    entry = {key, theState};
    return theState;
}

}  // namespace lumnis
