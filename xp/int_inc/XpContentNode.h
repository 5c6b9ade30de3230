// The states of a content model, and the pseudo-elements that they know beside elements.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "XpDtd.h"

namespace lumnis {

class XpDtd::ContentNode {
  public:
    ContentNode() = default;
    ContentNode(const ContentNode&) = delete;
    ContentNode& operator=(const ContentNode&) = delete;
    virtual ~ContentNode();

    // The state behind theItem, null if theItem is not allowed here.
    virtual const ContentNode* next(const Item* theItem) const = 0;
};

// What a content model sees beside elements. The objects belong to no DTD and have no state.
struct XpPseudoElements {
    const XpDtd::Element pcData{"#PCDATA"};
    const XpDtd::Element end{"[END]"};
    const XpDtd::Element empty{"[EMPTY]"};

    static const XpPseudoElements& instance();
};

// A state of an automaton.
class XpDtd::FsmNode final : public XpDtd::ContentNode {
  public:
    FsmNode();
    ~FsmNode() override;

    // The state behind "[END]".
    static const FsmNode& finalNode();

    // Only once the automaton is frozen.
    const ContentNode* next(const Item* theItem) const override;
    std::uint64_t getCreation() const { return creationM; }

    // True if the transition is new. Throws NondeterministicException if theItem leads to
    // another node already: this is the whole test of determinism.
    bool addTransition(const Item* theItem, const FsmNode* theTarget);
    // addTransition for each transition of theFrom, in order of creation. Returns how many are
    // new.
    std::size_t copyTransitions(FsmNode& theFrom);
    // The same, but theFrom is of no use afterwards and the cost is that of the smaller node.
    void moveTransitions(FsmNode& theFrom);
    std::size_t countTransitions() const { return transitionsM.size(); }

    // The nodes of one automaton are a chain that begins at its start node and owns them.
    // Takes the nodes behind theOther, which stays where it is.
    void adoptNodes(FsmNode& theOther);
    // Makes a node next in the chain.
    FsmNode* chainNode();
    // Ends the construction of all nodes of the chain: from now on next may be called.
    void freeze();

  private:
    struct Transition {
        std::uint64_t creation;  // of the item
        const Item* item;
        const FsmNode* target;

        bool operator<(const Transition& theOther) const { return creation < theOther.creation; }
    };
    using Transitions = std::vector<Transition>;

    bool add(const Transition& theTransition);
    void mergeLastRuns();
    void sort();
    const FsmNode* find(const Item* theItem) const;

    // Sorted by creation once frozen. Before that sorted runs, each more than twice as long as
    // the next: names mostly come in order and extend the only run, and where they do not, an
    // addition still costs no more than log n steps twice over.
    Transitions transitionsM;
    std::vector<std::size_t> runsM;  // where the runs begin, but for the first
    std::unique_ptr<FsmNode> chainNextM;
    FsmNode* chainLastM;  // the last node of the chain that begins here
    std::uint64_t creationM;
};

// ANY: takes everything, text and the end included.
class XpDtd::AnyNode final : public XpDtd::ContentNode {
  public:
    const ContentNode* next(const Item* theItem) const override;
    // For content that is not known; has no state.
    static const AnyNode& shared();
};

class XpDtd::EmptyNode final : public XpDtd::ContentNode {
  public:
    const ContentNode* next(const Item* theItem) const override;
};

}  // namespace lumnis
