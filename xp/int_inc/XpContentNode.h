// The states of a content model, and the pseudo-elements that they know beside elements.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

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
    const XpDtd::Element pcData{"#PCDATA"};  // text
    const XpDtd::Element end{"[END]"};       // the end tag
    const XpDtd::Element empty{"[EMPTY]"};   // no content at all, which EMPTY and ANY know

    static const XpPseudoElements& instance();
};

// A state of an automaton.
//
// An 11 KB text can ask for two million states, so they are small: one transition lies inside of
// the state, and once the automaton is frozen all others lie in one table. States that know the
// same, or that know what another one knows last, share it there: in (a | b | c)* all do.
class XpDtd::FsmNode final : public XpDtd::ContentNode {
  public:
    struct Transition {
        const Item* item;
        const FsmNode* target;
    };
    using Table = std::unique_ptr<Transition[]>;

    FsmNode();
    ~FsmNode() override;

    // The state behind "[END]".
    static const FsmNode& finalNode();

    // Only once the automaton is frozen, unless the node has a single transition.
    const ContentNode* next(const Item* theItem) const override;

    // True if the transition is new. Throws NondeterministicException if theItem leads to
    // another node already: this is the whole test of determinism.
    bool addTransition(const Item* theItem, const FsmNode* theTarget);
    // The transition of "[END]" to finalNode, once and as the last one.
    void addEnd();
    // addTransition for each transition of theFrom, in order of creation. Returns how many are
    // new.
    std::size_t copyTransitions(FsmNode& theFrom);
    // The same, but theFrom is of no use afterwards and the cost is that of the smaller node.
    void moveTransitions(FsmNode& theFrom);
    std::size_t countTransitions() const { return rowM.size; }
    // In order of creation unless some were added out of it.
    std::span<const Transition> getTransitions() const { return {data(), rowM.size}; }

    // The nodes of one automaton are a chain that begins at its start node and owns them.
    // Takes the nodes behind theOther, which stays where it is; theLast is the last of them.
    void adoptNodes(FsmNode& theOther, FsmNode& theLast);
    // Makes a node next in the chain.
    FsmNode* chainNode();
    // Ends the construction of all nodes of the chain: from now on next may be called. Gives the
    // table, which must live as long as the nodes, and the number of its rows.
    [[nodiscard]] Table freeze(std::size_t& theTableSize);

  private:
    struct Block;

    // One transition, or a block of them, or once frozen a part of the table.
    struct Row {
        union {
            Transition one;
            Block* block;
            const Transition* table;
        };
        std::uint32_t size;
        bool isFrozen;
    };

    bool add(const Transition& theTransition);
    bool insert(const Transition& theTransition);
    // Where theTransition belongs in the last run, nothing if some run has it already. Throws as
    // addTransition.
    std::optional<std::size_t> findPlace(const Transition& theTransition) const;
    void reallocate(std::size_t theCapacity);
    void mergeLastRuns();
    void sort();
    void dropBlock();
    const Transition* data() const;
    Transition* data();
    const FsmNode* find(const Item* theItem) const;

    // Sorted by creation of the items once frozen, with "[END]" last.
    Row rowM{};
    std::unique_ptr<FsmNode> chainNextM;
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
