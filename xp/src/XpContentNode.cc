#include "XpContentNode.h"

#include <algorithm>
#include <utility>

namespace lumnis {

XpDtd::ContentNode::~ContentNode() = default;

const XpPseudoElements& XpPseudoElements::instance() {
    // Never destroyed: a call may come while the process ends.
    static const XpPseudoElements& theInstance = []() -> const XpPseudoElements& {
        const XpDtd::Item::Beforehand scope;  // they are in every model
        return *new XpPseudoElements;
    }();
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
    // Never destroyed: a call may come while the process ends.
    static const FsmNode& theNode = *new FsmNode;
    return theNode;
}

const XpDtd::FsmNode* XpDtd::FsmNode::find(const Item* theItem) const {
    // Most nodes know few items, and identity needs no look at them.
    constexpr std::size_t theScanLimit = 8;
    if (transitionsM.size() <= theScanLimit) {
        for (const Transition& transition : transitionsM) {
            if (transition.item == theItem) {
                return transition.target;
            }
        }
        return nullptr;
    }
    const auto place = std::lower_bound(transitionsM.begin(), transitionsM.end(),
                                        Transition{theItem->getCreation(), theItem, nullptr});
    return place != transitionsM.end() && place->item == theItem ? place->target : nullptr;
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

bool XpDtd::FsmNode::add(const Transition& theTransition) {
    std::size_t end = transitionsM.size();
    const bool isLast = end == 0 || transitionsM.back() < theTransition;
    if (!isLast || !runsM.empty()) {
        for (std::size_t run = runsM.size() + 1; run-- != 0;) {
            const std::size_t begin = run == 0 ? 0 : runsM[run - 1];
            const auto first = transitionsM.begin();
            const auto last = first + static_cast<std::ptrdiff_t>(end);
            const auto place =
                std::lower_bound(first + static_cast<std::ptrdiff_t>(begin), last, theTransition);
            if (place != last && place->item == theTransition.item) {
                if (place->target != theTransition.target) {
                    throw NondeterministicException(*theTransition.item);
                }
                return false;
            }
            end = begin;
        }
    }
    if (!isLast) {
        runsM.push_back(transitionsM.size());
    }
    transitionsM.push_back(theTransition);
    while (!runsM.empty() && runsM.back() - (runsM.size() == 1 ? 0 : runsM[runsM.size() - 2]) <=
                                 2 * (transitionsM.size() - runsM.back())) {
        mergeLastRuns();
    }
    return true;
}

void XpDtd::FsmNode::mergeLastRuns() {
    const auto begin = transitionsM.begin();
    const std::size_t first = runsM.size() == 1 ? 0 : runsM[runsM.size() - 2];
    std::inplace_merge(begin + static_cast<std::ptrdiff_t>(first),
                       begin + static_cast<std::ptrdiff_t>(runsM.back()), transitionsM.end());
    runsM.pop_back();
}

void XpDtd::FsmNode::sort() {
    while (!runsM.empty()) {
        mergeLastRuns();
    }
}

bool XpDtd::FsmNode::addTransition(const Item* theItem, const FsmNode* theTarget) {
    return add({theItem->getCreation(), theItem, theTarget});
}

std::size_t XpDtd::FsmNode::copyTransitions(FsmNode& theFrom) {
    if (this == &theFrom) {
        return 0;
    }
    const std::size_t before = transitionsM.size();
    theFrom.sort();
    for (const Transition& transition : theFrom.transitionsM) {
        add(transition);
    }
    return transitionsM.size() - before;
}

// Which of the two is walked makes no difference to the conflict that is found: it is the first
// item that both have.
void XpDtd::FsmNode::moveTransitions(FsmNode& theFrom) {
    if (transitionsM.size() < theFrom.transitionsM.size()) {
        transitionsM.swap(theFrom.transitionsM);
        runsM.swap(theFrom.runsM);
    }
    copyTransitions(theFrom);
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
        node->sort();
        node->transitionsM.shrink_to_fit();
    }
}

const XpDtd::ContentNode* XpDtd::AnyNode::next(const Item* theItem) const {
    return theItem == &XpPseudoElements::instance().end ? &FsmNode::finalNode()
                                                        : static_cast<const ContentNode*>(this);
}

const XpDtd::AnyNode& XpDtd::AnyNode::shared() {
    // Never destroyed: a call may come while the process ends.
    static const AnyNode& theNode = *new AnyNode;
    return theNode;
}

const XpDtd::ContentNode* XpDtd::EmptyNode::next(const Item* theItem) const {
    if (theItem == &XpPseudoElements::instance().end) {
        return &FsmNode::finalNode();
    }
    return theItem == &XpPseudoElements::instance().empty ? this : nullptr;
}

}  // namespace lumnis
