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
//
// A repetition copies to each end what the end does not have yet. In (((a?, b?)*, c?)*, d?)* that
// is little, since the ends of a part got the transitions of its start when the part was repeated.
// So a part keeps the transitions of its start in the order in which they came, and each end knows
// how many of them, from the first on, it has. When two starts are joined, the longer of the two
// lists goes on with the shorter one behind it, and the ends that knew the shorter one have to look
// at all again: that is no more than twice what they then copy. Joining thus costs in proportion to
// the transitions that are made.
#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <vector>

#include "XpContentNode.h"
#include "XpModelSize.h"

namespace lumnis {

// Mixed content, and the tokens of an enumerated or NOTATION attribute: two nodes A and B, from
// A to B by each item.
class XpDtd::Choice final : public XpDtd::GrammarUnit {
  public:
    Choice();

    // False if the item has been there before.
    bool addItem(const Item* theItem);
    // With repeat from B to B, too; with optional A may be the end. Complete after that. Returns
    // the number of transitions that are kept.
    std::size_t closeChoice(bool isOptional, bool isRepeated);

  private:
    FsmNode& getStart() { return static_cast<FsmNode&>(*getFirstNode()); }

    FsmNode* behindM;  // B
    FsmNode::Table tableM;
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
    using Transitions = std::vector<FsmNode::Transition>;

    // The first theCount transitions of one of the lists below. 32 bits do: each list belongs to a
    // name or a group in a text, which has less than 4 GiB.
    struct Known {
        std::uint32_t list = 0;  // 0 is none
        std::uint32_t count = 0;
    };
    struct End {
        std::uint64_t creation;  // of the node
        FsmNode* node;
        mutable Known known;

        bool operator<(const End& theOther) const { return creation < theOther.creation; }
    };
    using Ends = std::set<End>;

    explicit Fsm(XpModelSize& theSize);

    FsmNode& getStart() { return static_cast<FsmNode&>(*getFirstNode()); }
    Ends& getEnds() { return *endsM; }
    static FsmNode& startOf(Fsm& theFsm) { return theFsm.getStart(); }
    End startEnd() { return {startCreationM, &getStart(), {}}; }
    static bool mayBeEmpty(Fsm& theFsm) { return theFsm.getEnds().count(theFsm.startEnd()) != 0; }
    void addTransition(FsmNode& theNode, const Item* theItem, const FsmNode* theTarget);
    void copyTransitions(FsmNode& theNode, FsmNode& theFrom);
    // Takes the nodes of theOther and adds its ends, but for its start node. theOther is to be
    // destroyed then. True if its start node was an end, that is, if theOther may be empty.
    bool adopt(Fsm& theOther);
    // All transitions of the start, as they are now.
    Known allOfStart();
    // To be called before the start gets the transitions of the start of theOther.
    void joinLists(Fsm& theOther);

    XpModelSize& sizeM;

  private:
    void repeat(const End& theEnd, Transitions& theBuffer);
    void listStart();

    std::uint64_t startCreationM;
    FsmNode* lastM;               // of the chain of nodes
    std::unique_ptr<Ends> endsM;  // null once complete
    std::uint32_t listM;          // the number of listedM
    // The transitions of the start in the order in which they came. Empty while there is one.
    Transitions listedM;
    FsmNode::Table tableM;
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
