#include "WscOptimizer.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "FwTraceScope.h"

namespace lumnis {

namespace {

using Action = WscOptimizer::Action;

struct Rule {
    std::array<Action, 3> actions;
    std::size_t count;
};

template <class... Actions>
constexpr Rule rule(Actions... theActions) noexcept {
    return {{theActions...}, sizeof...(theActions)};
}

// What becomes of the instructions that a pattern names.
constexpr Rule theFirstGoes = rule(Action::DeleteFirst);
constexpr Rule theSecondGoes = rule(Action::DeleteSecond);
constexpr Rule theFirstTwoGo = rule(Action::DeleteFirstTwo);
constexpr Rule theFirstStays = rule(Action::DeleteSecondAndThird);
constexpr Rule theSecondStays = rule(Action::DeleteFirstAndThird);
// Load and store, if of one variable.
constexpr Rule theSelfStoreGoes = rule(Action::StopUnlessSecondHasIndex, Action::DeleteFirstTwo);
// Load, INCR or DECR, store, if of one variable.
constexpr Rule theIncrVarStays =
    rule(Action::StopUnlessThirdHasIndex, Action::DeleteFirstThree, Action::InsertIncrVar);
constexpr Rule theDecrVarStays =
    rule(Action::StopUnlessThirdHasIndex, Action::DeleteFirstThree, Action::InsertDecrVar);
// Load, a value, ADD or SUB, store, if of one variable.
constexpr Rule theAddAsgStays = rule(Action::StopUnlessFourthHasIndex, Action::DeleteAllButSecond,
                                     Action::InsertAddAsgBehindFirst);
constexpr Rule theSubAsgStays = rule(Action::StopUnlessFourthHasIndex, Action::DeleteAllButSecond,
                                     Action::InsertSubAsgBehindFirst);
// Two instructions that one can do.
constexpr Rule theIncrDoes = rule(Action::DeleteFirstTwo, Action::InsertIncr);
constexpr Rule theDecrDoes = rule(Action::DeleteFirstTwo, Action::InsertDecr);
constexpr Rule theAddDoes = rule(Action::DeleteFirstTwo, Action::InsertAdd);
constexpr Rule theUminusDoes = rule(Action::DeleteFirstTwo, Action::InsertUminus);
constexpr Rule theConst1Does = rule(Action::DeleteFirstTwo, Action::InsertConst1);
constexpr Rule theConstM1Does = rule(Action::DeleteFirstTwo, Action::InsertConstM1);
// The same for 1 or -1 and SUB_ASG, whose variable it takes.
constexpr Rule theIncrVarDoes =
    rule(Action::TakeIndexOfSecond, Action::DeleteFirstTwo, Action::InsertIncrVar);
constexpr Rule theDecrVarDoes =
    rule(Action::TakeIndexOfSecond, Action::DeleteFirstTwo, Action::InsertDecrVar);

// Which of the frame's four go, the first in the lowest bit.
constexpr std::array<unsigned, 8> theDeletions = {0b0001, 0b0010, 0b0011, 0b0101,
                                                  0b0110, 0b0111, 0b1101, 0b1111};

constexpr bool isStoreVar(WscOpcode theOpcode) noexcept {
    return theOpcode == WscOpcode::StoreVar || theOpcode == WscOpcode::StoreVarS;
}

// What ADD_ASG and SUB_ASG take as the value. The small constants are not among them.
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
const Rule* findLoadVarRule(bool isShort, WscOpcode theSecond, WscOpcode theThird,
                            WscOpcode theFourth) {
    const auto storesBack = [isShort](WscOpcode theOpcode) {
        return isShort ? isStoreVar(theOpcode) : theOpcode == WscOpcode::StoreVar;
    };
    if (theSecond == WscOpcode::Pop) {
        return &theFirstTwoGo;
    }
    if (theThird == WscOpcode::Pop &&
        (theSecond == WscOpcode::IncrVar || theSecond == WscOpcode::IncrVarS ||
         theSecond == WscOpcode::DecrVar)) {
        return &theSecondStays;
    }
    if (storesBack(theSecond)) {
        return &theSelfStoreGoes;
    }
    if (theSecond == WscOpcode::Incr && storesBack(theThird)) {
        return &theIncrVarStays;
    }
    if (theSecond == WscOpcode::Decr && storesBack(theThird)) {
        return &theDecrVarStays;
    }
    if (isLoad(theSecond) && storesBack(theFourth)) {
        if (theThird == WscOpcode::Add) {
            return &theAddAsgStays;
        }
        if (theThird == WscOpcode::Sub) {
            return &theSubAsgStays;
        }
    }
    return nullptr;
}

// The rule of the one pattern that fits, or null. All give the same value for integers. Not for all
// else: UMINUS SUB made ADD joins texts, a conversion goes with the instruction that did it, and
// IDIV by -1 is invalid for a float. The patterns stay as they are: byte code must not change.
const Rule* findRule(WscOpcode theFirst, WscOpcode theSecond, WscOpcode theThird,
                     WscOpcode theFourth) {
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
            return theSecond == WscOpcode::Pop ? &theFirstTwoGo : nullptr;
        case WscOpcode::ConstTrue:
        case WscOpcode::ConstFalse:
            return theSecond == WscOpcode::Pop      ? &theFirstTwoGo
                   : theSecond == WscOpcode::Tobool ? &theSecondGoes
                                                    : nullptr;
        case WscOpcode::Const0:
            if (theSecond == WscOpcode::Pop || theSecond == WscOpcode::SubAsg) {
                return &theFirstTwoGo;
            }
            return theSecond == WscOpcode::Uminus && theThird == WscOpcode::Uminus ? &theFirstStays
                                                                                   : nullptr;
        case WscOpcode::Const1:
            switch (theSecond) {
                case WscOpcode::Pop:
                    return &theFirstTwoGo;
                case WscOpcode::Sub:
                    return &theDecrDoes;
                case WscOpcode::Uminus:
                    return &theConstM1Does;
                case WscOpcode::SubAsg:
                    return &theDecrVarDoes;
                default:
                    return nullptr;
            }
        case WscOpcode::ConstM1:
            switch (theSecond) {
                case WscOpcode::Pop:
                    return &theFirstTwoGo;
                case WscOpcode::Sub:
                    return &theIncrDoes;
                case WscOpcode::Uminus:
                    return &theConst1Does;
                case WscOpcode::Mul:
                case WscOpcode::Div:
                case WscOpcode::Idiv:
                    return &theUminusDoes;
                case WscOpcode::SubAsg:
                    return &theIncrVarDoes;
                default:
                    return nullptr;
            }
        case WscOpcode::Incr:
            return theSecond == WscOpcode::Decr ? &theFirstTwoGo : nullptr;
        case WscOpcode::Decr:
            return theSecond == WscOpcode::Incr ? &theFirstTwoGo : nullptr;
        case WscOpcode::Uminus:
            return theSecond == WscOpcode::Sub ? &theAddDoes : nullptr;
        case WscOpcode::Tobool:
            return theSecond == WscOpcode::PseudoLabel && theThird == WscOpcode::Scor
                       ? &theFirstGoes
                       : nullptr;
        case WscOpcode::Isvalid:
            return theSecond == WscOpcode::Tobool ? &theSecondGoes : nullptr;
        default:
            return nullptr;
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

    // Runs the actions of a rule. False when a test has stopped it; nothing has changed then, for
    // tests come first.
    bool run(std::span<const Action> theActions) {
        unsigned index = 0;
        return std::all_of(theActions.begin(), theActions.end(),
                           [&](Action theAction) { return run(theAction, index); });
    }

  private:
    const WscInstruction& ahead(std::size_t theIndex) const noexcept {
        return instructionsM[aheadM + theIndex];
    }

    // False when the action is a test that stops the rule. theIndex is what the rule remembers.
    bool run(Action theAction, unsigned& theIndex) {
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
            default:
                change(theAction, static_cast<std::uint8_t>(theIndex));
                return true;
        }
    }

    void change(Action theAction, std::uint8_t theVariable) noexcept {
        switch (theAction) {
            case Action::InsertIncr:
                return insertPlain(WscOpcode::Incr);
            case Action::InsertDecr:
                return insertPlain(WscOpcode::Decr);
            case Action::InsertAdd:
                return insertPlain(WscOpcode::Add);
            case Action::InsertConstM1:
                return insertPlain(WscOpcode::ConstM1);
            case Action::InsertConst1:
                return insertPlain(WscOpcode::Const1);
            case Action::InsertUminus:
                return insertPlain(WscOpcode::Uminus);
            case Action::InsertIncrVar:
                return fitsShortForm<WscOpcode::IncrVarS>(theVariable)
                           ? insert(WscShortInstruction(WscOpcode::IncrVarS,
                                                        sizeOf(WscOperands::Short), theVariable))
                           : insert(withVariable(WscOpcode::IncrVar, theVariable));
            case Action::InsertDecrVar:
                return insert(withVariable(WscOpcode::DecrVar, theVariable));
            case Action::InsertAddAsgBehindFirst:
                return insertBehindFirst(withVariable(WscOpcode::AddAsg, theVariable));
            case Action::InsertSubAsgBehindFirst:
                return insertBehindFirst(withVariable(WscOpcode::SubAsg, theVariable));
            default:
                return remove(theDeletions[static_cast<std::size_t>(theAction)]);
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
    void insertPlain(WscOpcode theOpcode) noexcept {
        insert(WscNormalInstruction(theOpcode, sizeOf(WscOperands::None)));
    }
    void insertBehindFirst(const WscInstruction& theInstruction) noexcept {
        const WscInstruction first = ahead(0);
        instructionsM[aheadM] = theInstruction;
        insert(first);
    }
    static WscMediumInstruction withVariable(WscOpcode theOpcode,
                                             std::uint8_t theVariable) noexcept {
        return {theOpcode, sizeOf(WscOperands::Byte), theVariable};
    }

    std::span<WscInstruction> instructionsM;
    std::size_t behindM = 0;  // how many lie behind the sweep
    std::size_t aheadM = 0;   // where those ahead begin
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
    const Rule* rule = findRule(place(0), place(1), place(2), place(3));
    if (rule == nullptr) {
        return {};
    }
    return {rule->actions.data(), rule->count};
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
