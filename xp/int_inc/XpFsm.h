// Automata of content models, joined from those of their parts.
//
// A part of a model is an automaton with one start node S, the nodes behind it and the set of
// nodes in which the part may end. Each construct joins its parts at once, while the declaration
// is read, and the first conflict of two transitions is the error of nondeterminism. There is no
// tree of the model and no later step that makes an automaton deterministic.
//
//     b         S -b-> N                            ends: N
//     (x, y)    every end of x gets the transitions of y's start; ends: those of y, and those of
//               x too if y may be empty
//     (x | y)   S gets the transitions of both starts; ends: those of both
//     (x)*      every end of x gets the transitions of S; ends: also S
//     a model   every end gets "[END]"
//
// For example (a, b?)+ is  S -a-> A,  A -b-> B,  A -a-> A,  B -a-> A,  ends A and B.
//
// Nothing leads to a start node, so that of a part is dead once the part has been joined, and its
// transitions may move instead of being copied. With that, and with the smaller of two sets going
// into the larger, a model of n names costs about n log n unless the automaton itself is larger.
#pragma once

#include <memory>
#include <set>

#include "XpContentNode.h"
#include "XpModelSize.h"

namespace lumnis {

// Mixed content, and the tokens of an enumerated or NOTATION attribute: two nodes A and B, from
// A to B by each item.
class XpDtd::Choice final : public XpDtd::GrammarUnit {
  public:
    Choice();

    // An item may come twice.
    void addItem(const Item* theItem);
    // With repeat from B to B, too; with optional A may be the end. Complete after that.
    void closeChoice(bool isOptional, bool isRepeated);

  private:
    FsmNode& getStart() { return static_cast<FsmNode&>(*getFirstNode()); }

    FsmNode* behindM;  // B
};

class XpDtd::Fsm : public XpDtd::GrammarUnit {
  public:
    // A name with its modifier. theSize must live as long as this object is built.
    Fsm(const Element* theElement, bool isOptional, bool isRepeated, XpModelSize& theSize);
    ~Fsm() override;

    // The modifier of a group.
    void applyModifier(bool isOptional, bool isRepeated);
    // The modifier of the outermost group. The automaton is complete after that.
    void finish(bool isOptional, bool isRepeated);

  protected:
    using Ends = std::set<FsmNode*, ByCreation>;

    explicit Fsm(XpModelSize& theSize);

    FsmNode& getStart() { return static_cast<FsmNode&>(*getFirstNode()); }
    Ends& getEnds() { return *endsM; }
    static FsmNode& startOf(Fsm& theFsm) { return theFsm.getStart(); }
    static bool mayBeEmpty(Fsm& theFsm) { return theFsm.getEnds().count(&theFsm.getStart()) != 0; }
    void addTransition(FsmNode& theNode, const Item* theItem, const FsmNode* theTarget);
    void copyTransitions(FsmNode& theNode, FsmNode& theFrom);
    // Takes the nodes of theOther and adds its ends, but for its start node. theOther is to be
    // destroyed then. True if its start node was an end, that is, if theOther may be empty.
    bool adopt(Fsm& theOther);

    XpModelSize& sizeM;

  private:
    std::unique_ptr<Ends> endsM;  // null once complete
    // All ends have the transitions of the start: repeating again changes nothing.
    bool isRepeatedM = false;
};

class XpDtd::ChoiceFsm final : public XpDtd::Fsm {
  public:
    explicit ChoiceFsm(XpModelSize& theSize);

    // theOther is to be destroyed then.
    void addAlternative(Fsm& theOther);
};

class XpDtd::SeqFsm final : public XpDtd::Fsm {
  public:
    explicit SeqFsm(XpModelSize& theSize);

    // theOther is to be destroyed then.
    void appendSequence(Fsm& theOther);
};

}  // namespace lumnis
