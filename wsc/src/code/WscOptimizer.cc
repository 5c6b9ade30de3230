#include "WscOptimizer.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "FwTraceScope.h"

namespace lumnis {

namespace {

using Action = WscOptimizer::Action;

// Rule n is row n: count of the actions, in order.
struct Rule {
    std::array<Action, 3> actions;
    std::size_t count;
};

constexpr std::array<Rule, 18> theRules = {{
    // 0: both go
    {{Action::DeleteFirstTwo}, 1},
    // 1: only the middle one stays
    {{Action::DeleteFirstAndThird}, 1},
    // 2: a variable is stored into itself
    {{Action::StopUnlessSecondHasIndex, Action::DeleteFirstTwo}, 2},
    // 3: load, INCR, store of one variable
    {{Action::StopUnlessThirdHasIndex, Action::DeleteFirstThree, Action::InsertIncrVar}, 3},
    // 4: load, DECR, store of one variable
    {{Action::StopUnlessThirdHasIndex, Action::DeleteFirstThree, Action::InsertDecrVar}, 3},
    // 5: load, value, ADD, store of one variable
    {{Action::StopUnlessFourthHasIndex, Action::DeleteAllButSecond,
      Action::InsertAddAsgBehindFirst},
     3},
    // 6: load, value, SUB, store of one variable
    {{Action::StopUnlessFourthHasIndex, Action::DeleteAllButSecond,
      Action::InsertSubAsgBehindFirst},
     3},
    // 7 to 14: arithmetic with 1 and -1
    {{Action::DeleteFirstTwo, Action::InsertDecr}, 2},
    {{Action::DeleteFirstTwo, Action::InsertConstM1}, 2},
    {{Action::TakeIndexOfSecond, Action::DeleteFirstTwo, Action::InsertDecrVar}, 3},
    {{Action::DeleteFirstTwo, Action::InsertIncr}, 2},
    {{Action::DeleteFirstTwo, Action::InsertConst1}, 2},
    {{Action::DeleteFirstTwo, Action::InsertUminus}, 2},
    {{Action::TakeIndexOfSecond, Action::DeleteFirstTwo, Action::InsertIncrVar}, 3},
    {{Action::DeleteFirstTwo, Action::InsertAdd}, 2},
    // 15: the first goes
    {{Action::DeleteFirst}, 1},
    // 16: only the first stays
    {{Action::DeleteSecondAndThird}, 1},
    // 17: the second goes
    {{Action::DeleteSecond}, 1},
}};

constexpr int theNoRule = -1;

// Which of the frame's four go, the first in the lowest bit.
constexpr std::array<unsigned, 8> theDeletions = {0b0001, 0b0010, 0b0011, 0b0101,
                                                  0b0110, 0b0111, 0b1101, 0b1111};

constexpr bool isStoreVar(WscOpcode theOpcode) noexcept {
    return theOpcode == WscOpcode::StoreVar || theOpcode == WscOpcode::StoreVarS;
}

// What rules 5 and 6 take as the value. The small constants are not among them.
constexpr bool isLoad(WscOpcode theOpcode) noexcept {
    switch (theOpcode) {
        case WscOpcode::LoadVar:
        case WscOpcode::LoadVarS:
        case WscOpcode::LoadConst:
        case WscOpcode::LoadConstW:
        case WscOpcode::LoadConstS:
        case WscOpcode::ConstEs:
        case WscOpcode::ConstInvalid:
        case WscOpcode::ConstTrue:
        case WscOpcode::ConstFalse:
            return true;
        default:
            return false;
    }
}

// Patterns that begin with the load of a variable. isShort: by LOAD_VAR_S. A variable loaded by
// LOAD_VAR is above 31 and so never stored by STORE_VAR_S.
int findLoadVarRule(bool isShort, WscOpcode theSecond, WscOpcode theThird, WscOpcode theFourth) {
    const auto storesBack = [isShort](WscOpcode theOpcode) {
        return isShort ? isStoreVar(theOpcode) : theOpcode == WscOpcode::StoreVar;
    };
    if (theSecond == WscOpcode::Pop) {
        return 0;
    }
    if (theThird == WscOpcode::Pop &&
        (theSecond == WscOpcode::IncrVar || theSecond == WscOpcode::IncrVarS ||
         theSecond == WscOpcode::DecrVar)) {
        return 1;
    }
    if (storesBack(theSecond)) {
        return 2;
    }
    if (theSecond == WscOpcode::Incr && storesBack(theThird)) {
        return 3;
    }
    if (theSecond == WscOpcode::Decr && storesBack(theThird)) {
        return 4;
    }
    if (isLoad(theSecond) && storesBack(theFourth)) {
        if (theThird == WscOpcode::Add) {
            return 5;
        }
        if (theThird == WscOpcode::Sub) {
            return 6;
        }
    }
    return theNoRule;
}

int findRule(WscOpcode theFirst, WscOpcode theSecond, WscOpcode theThird, WscOpcode theFourth) {
    switch (theFirst) {
        case WscOpcode::LoadVar:
        case WscOpcode::LoadVarS:
            return findLoadVarRule(theFirst == WscOpcode::LoadVarS, theSecond, theThird, theFourth);
        case WscOpcode::StoreVar:
        case WscOpcode::StoreVarS:
        case WscOpcode::LoadConst:
        case WscOpcode::LoadConstW:
        case WscOpcode::LoadConstS:
        case WscOpcode::ConstEs:
        case WscOpcode::ConstInvalid:
            return theSecond == WscOpcode::Pop ? 0 : theNoRule;
        case WscOpcode::ConstTrue:
        case WscOpcode::ConstFalse:
            return theSecond == WscOpcode::Pop      ? 0
                   : theSecond == WscOpcode::Tobool ? 17
                                                    : theNoRule;
        case WscOpcode::Const0:
            if (theSecond == WscOpcode::Pop || theSecond == WscOpcode::SubAsg) {
                return 0;
            }
            return theSecond == WscOpcode::Uminus && theThird == WscOpcode::Uminus ? 16 : theNoRule;
        case WscOpcode::Const1:
            switch (theSecond) {
                case WscOpcode::Pop:
                    return 0;
                case WscOpcode::Sub:
                    return 7;
                case WscOpcode::Uminus:
                    return 8;
                case WscOpcode::SubAsg:
                    return 9;
                default:
                    return theNoRule;
            }
        case WscOpcode::ConstM1:
            switch (theSecond) {
                case WscOpcode::Pop:
                    return 0;
                case WscOpcode::Sub:
                    return 10;
                case WscOpcode::Uminus:
                    return 11;
                case WscOpcode::Mul:
                case WscOpcode::Div:
                case WscOpcode::Idiv:
                    return 12;
                case WscOpcode::SubAsg:
                    return 13;
                default:
                    return theNoRule;
            }
        case WscOpcode::Incr:
            return theSecond == WscOpcode::Decr ? 0 : theNoRule;
        case WscOpcode::Decr:
            return theSecond == WscOpcode::Incr ? 0 : theNoRule;
        case WscOpcode::Uminus:
            return theSecond == WscOpcode::Sub ? 14 : theNoRule;
        case WscOpcode::Tobool:
            return theSecond == WscOpcode::PseudoLabel && theThird == WscOpcode::Scor ? 15
                                                                                      : theNoRule;
        case WscOpcode::Isvalid:
            return theSecond == WscOpcode::Tobool ? 17 : theNoRule;
        default:
            return theNoRule;
    }
}

// Which instructions begin a pattern at all: most do not, and the sweep steps over them.
constexpr std::array<bool, 256> makeBeginners() {
    std::array<bool, 256> result{};
    for (const WscOpcode opcode :
         {WscOpcode::LoadVar, WscOpcode::LoadVarS, WscOpcode::StoreVar, WscOpcode::StoreVarS,
          WscOpcode::LoadConst, WscOpcode::LoadConstW, WscOpcode::LoadConstS, WscOpcode::ConstEs,
          WscOpcode::ConstInvalid, WscOpcode::ConstTrue, WscOpcode::ConstFalse, WscOpcode::Const0,
          WscOpcode::Const1, WscOpcode::ConstM1, WscOpcode::Incr, WscOpcode::Decr,
          WscOpcode::Uminus, WscOpcode::Tobool, WscOpcode::Isvalid}) {
        result[valueOf(opcode)] = true;
    }
    return result;
}
constexpr std::array<bool, 256> theBeginners = makeBeginners();

// The sweep's view of the code: what lies behind the sweep, a gap where instructions have gone,
// and what lies ahead. A rewrite touches the edges of the gap alone, so the sweep costs the
// same per instruction in every function.
class Sweep {
  public:
    explicit Sweep(std::span<WscInstruction> theCode) noexcept : instructionsM(theCode) {}

    bool isAtEnd() const noexcept { return aheadM == instructionsM.size(); }
    std::size_t length() const noexcept { return behindM; }

    std::uint8_t first() const noexcept { return valueOf(ahead(0).getInstructionNbr()); }
    std::uint32_t frame() const noexcept {
        std::uint32_t result = 0;
        const std::size_t count = std::min<std::size_t>(4, instructionsM.size() - aheadM);
        for (std::size_t i = 0; i < count; ++i) {
            result |= std::uint32_t{valueOf(ahead(i).getInstructionNbr())} << (8 * i);
        }
        return result;
    }

    void stepForward() noexcept { instructionsM[behindM++] = instructionsM[aheadM++]; }
    void stepBack(std::size_t theCount) noexcept {
        for (theCount = std::min(theCount, behindM); theCount != 0; --theCount) {
            instructionsM[--aheadM] = instructionsM[--behindM];
        }
    }

    // False when a test has stopped the rule; nothing has changed then, for tests come first.
    bool run(std::span<const Action> theActions) {
        unsigned index = 0;
        return std::all_of(theActions.begin(), theActions.end(),
                           [&](Action theAction) { return run(theAction, index); });
    }

  private:
    const WscInstruction& ahead(std::size_t theIndex) const noexcept {
        return instructionsM[aheadM + theIndex];
    }

    bool run(Action theAction, unsigned& theIndex) {
        const auto variable = static_cast<std::uint8_t>(theIndex);
        switch (theAction) {
            case Action::StopUnlessSecondHasIndex:
                theIndex = ahead(0).getIndex();
                return theIndex == ahead(1).getIndex();
            case Action::StopUnlessThirdHasIndex:
                theIndex = ahead(0).getIndex();
                return theIndex == ahead(2).getIndex();
            case Action::StopUnlessFourthHasIndex:
                theIndex = ahead(0).getIndex();
                return theIndex == ahead(3).getIndex();
            case Action::TakeIndexOfSecond:
                theIndex = ahead(1).getIndex();
                return true;
            case Action::InsertIncr:
                insert(WscNormalInstruction(WscOpcode::Incr, std::uint8_t{1}));
                return true;
            case Action::InsertDecr:
                insert(WscNormalInstruction(WscOpcode::Decr, std::uint8_t{1}));
                return true;
            case Action::InsertAdd:
                insert(WscNormalInstruction(WscOpcode::Add, std::uint8_t{1}));
                return true;
            case Action::InsertConstM1:
                insert(WscNormalInstruction(WscOpcode::ConstM1, std::uint8_t{1}));
                return true;
            case Action::InsertConst1:
                insert(WscNormalInstruction(WscOpcode::Const1, std::uint8_t{1}));
                return true;
            case Action::InsertUminus:
                insert(WscNormalInstruction(WscOpcode::Uminus, std::uint8_t{1}));
                return true;
            case Action::InsertIncrVar:
                if (variable < 8) {
                    insert(WscShortInstruction(WscOpcode::IncrVarS, std::uint8_t{1}, variable));
                } else {
                    insert(WscMediumInstruction(WscOpcode::IncrVar, std::uint8_t{2}, variable));
                }
                return true;
            case Action::InsertDecrVar:
                insert(WscMediumInstruction(WscOpcode::DecrVar, std::uint8_t{2}, variable));
                return true;
            case Action::InsertAddAsgBehindFirst:
                insertBehindFirst(
                    WscMediumInstruction(WscOpcode::AddAsg, std::uint8_t{2}, variable));
                return true;
            case Action::InsertSubAsgBehindFirst:
                insertBehindFirst(
                    WscMediumInstruction(WscOpcode::SubAsg, std::uint8_t{2}, variable));
                return true;
            default:
                remove(theDeletions[static_cast<std::size_t>(theAction)]);
                return true;
        }
    }

    // Moves what stays of the first four to the far edge of what goes.
    void remove(unsigned theDeletion) noexcept {
        std::size_t to = aheadM + 4;
        for (std::size_t i = 4; i-- != 0;) {
            const bool goes = (theDeletion & (1u << i)) != 0;
            if (!goes && aheadM + i < instructionsM.size()) {
                instructionsM[--to] = ahead(i);
            } else if (!goes) {
                --to;  // the frame reaches beyond the code
            }
        }
        aheadM = to;
    }
    // Every rule deletes before it inserts, so the gap has room.
    void insert(const WscInstruction& theInstruction) noexcept {
        instructionsM[--aheadM] = theInstruction;
    }
    void insertBehindFirst(const WscInstruction& theInstruction) noexcept {
        const WscInstruction first = ahead(0);
        instructionsM[aheadM] = theInstruction;
        insert(first);
    }

    std::span<WscInstruction> instructionsM;
    std::size_t behindM = 0;  // instructions behind the sweep: p
    std::size_t aheadM = 0;   // where the ones ahead begin
};

}  // namespace

const WscOptimizer& WscOptimizer::instance() {
    static const WscOptimizer theOptimizer;
    return theOptimizer;
}

std::span<const Action> WscOptimizer::getFrameAction(std::uint32_t theFrame) const {
    const auto place = [theFrame](unsigned theIndex) {
        return static_cast<WscOpcode>((theFrame >> (8 * theIndex)) & 0xFF);
    };
    const int rule = findRule(place(0), place(1), place(2), place(3));
    if (rule == theNoRule) {
        return {};
    }
    const Rule& found = theRules[static_cast<std::size_t>(rule)];
    return {found.actions.data(), found.count};
}

void WscOptimizer::optimizeFunctionCode(WscFunctionCode& theCode, bool isOptimizing) const {
    FwTraceScope scope("WscOptimizer::optimizeFunctionCode");
    if (!isOptimizing || theCode.instructions().size() < 2) {
        return;
    }
    Sweep sweep(theCode.instructions());
    while (!sweep.isAtEnd()) {
        if (theBeginners[sweep.first()]) {
            const std::span<const Action> actions = getFrameAction(sweep.frame());
            if (!actions.empty() && sweep.run(actions)) {
                // A rewrite may complete a pattern that begins up to three places earlier.
                sweep.stepBack(3);
                continue;
            }
        }
        sweep.stepForward();
    }
    theCode.truncate(sweep.length());
}

}  // namespace lumnis
