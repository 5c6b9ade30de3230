#include "XpContentNode.h"

#include <algorithm>
#include <utility>

namespace lumnis {

XpDtd::ContentNode::~ContentNode() = default;

const XpPseudoElements& XpPseudoElements::instance() {
    static const XpPseudoElements theInstance;
    return theInstance;
}

XpDtd::FsmNode::FsmNode() : chainLastM(this), creationM(Item::nextCreation()) {}

// The chain can be as long as a content model: no recursion.
XpDtd::FsmNode::~FsmNode() {
    while (chainNextM != nullptr) {
        chainNextM = std::exchange(chainNextM->chainNextM, nullptr);
    }
}

const XpDtd::FsmNode& XpDtd::FsmNode::finalNode() {
    static const FsmNode theNode;
    return theNode;
}

const XpDtd::FsmNode* XpDtd::FsmNode::find(const Item* theItem) const {
    // Most nodes know few items, and identity needs no look at them.
    constexpr std::size_t theScanLimit = 8;
    if (tableM.size() <= theScanLimit) {
        for (const Transition& transition : tableM) {
            if (transition.item == theItem) {
                return transition.target;
            }
        }
        return nullptr;
    }
    const std::uint64_t creation = theItem->getCreation();
    const auto place =
        std::lower_bound(tableM.begin(), tableM.end(), creation,
                         [](const Transition& theTransition, std::uint64_t theCreation) {
                             return theTransition.creation < theCreation;
                         });
    return place != tableM.end() && place->item == theItem ? place->target : nullptr;
}

// An element of an internal subset passes where the model of the external subset names its base.
const XpDtd::ContentNode* XpDtd::FsmNode::next(const Item* theItem) const {
    for (const Item* item = theItem; item != nullptr; item = item->getBase()) {
        if (const FsmNode* target = find(item)) {
            return target;
        }
    }
    return nullptr;
}

bool XpDtd::FsmNode::addTransition(const Item* theItem, const FsmNode* theTarget) {
    const auto [place, isNew] = transitionsM.try_emplace(theItem, theTarget);
    if (!isNew && place->second != theTarget) {
        throw NondeterministicException(*theItem);
    }
    return isNew;
}

std::size_t XpDtd::FsmNode::copyTransitions(const FsmNode& theFrom) {
    if (this == &theFrom) {
        return 0;
    }
    const std::size_t before = transitionsM.size();
    auto hint = transitionsM.begin();
    for (const auto& [item, target] : theFrom.transitionsM) {
        if (hint == transitionsM.end() || hint->first != item) {
            hint = transitionsM.try_emplace(hint, item, target);
        }
        if (hint->second != target) {
            throw NondeterministicException(*item);
        }
        ++hint;
    }
    return transitionsM.size() - before;
}

void XpDtd::FsmNode::moveTransitions(FsmNode& theFrom) {
    if (transitionsM.size() < theFrom.transitionsM.size()) {
        transitionsM.swap(theFrom.transitionsM);
    }
    // What is left behind by merge is in both, with targets that differ: those of two parts do.
    transitionsM.merge(theFrom.transitionsM);
    if (!theFrom.transitionsM.empty()) {
        throw NondeterministicException(*theFrom.transitionsM.begin()->first);
    }
}

void XpDtd::FsmNode::adoptNodes(FsmNode& theOther) {
    if (theOther.chainNextM == nullptr) {
        return;
    }
    FsmNode* last = theOther.chainLastM;
    last->chainNextM = std::move(chainNextM);
    chainNextM = std::move(theOther.chainNextM);
    if (chainLastM == this) {
        chainLastM = last;
    }
    theOther.chainLastM = &theOther;
}

XpDtd::FsmNode* XpDtd::FsmNode::chainNode() {
    auto node = std::make_unique<FsmNode>();
    node->chainNextM = std::move(chainNextM);
    chainNextM = std::move(node);
    if (chainLastM == this) {
        chainLastM = chainNextM.get();
    }
    return chainNextM.get();
}

void XpDtd::FsmNode::freeze() {
    for (FsmNode* node = this; node != nullptr; node = node->chainNextM.get()) {
        node->tableM.reserve(node->transitionsM.size());
        for (const auto& [item, target] : node->transitionsM) {
            node->tableM.push_back({item->getCreation(), item, target});
        }
        node->transitionsM.clear();
    }
}

const XpDtd::ContentNode* XpDtd::AnyNode::next(const Item* theItem) const {
    return theItem == &XpPseudoElements::instance().end ? &FsmNode::finalNode()
                                                        : static_cast<const ContentNode*>(this);
}

const XpDtd::AnyNode& XpDtd::AnyNode::shared() {
    static const AnyNode theNode;
    return theNode;
}

const XpDtd::ContentNode* XpDtd::EmptyNode::next(const Item* theItem) const {
    if (theItem == &XpPseudoElements::instance().end) {
        return &FsmNode::finalNode();
    }
    return theItem == &XpPseudoElements::instance().empty ? this : nullptr;
}

}  // namespace lumnis
