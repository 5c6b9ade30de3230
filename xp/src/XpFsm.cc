#include "XpFsm.h"

#include <iterator>

namespace lumnis {

CpsString XpModelSize::TooLargeException::toString() const {
    return "content model too large";
}

XpDtd::Choice::Choice()
    : GrammarUnit(std::make_unique<FsmNode>()), behindM(getStart().chainNode()) {}

void XpDtd::Choice::addItem(const Item* theItem) {
    getStart().addTransition(theItem, behindM);
}

void XpDtd::Choice::closeChoice(bool isOptional, bool isRepeated) {
    if (isRepeated) {
        behindM->copyTransitions(getStart());
    }
    const Item* end = &XpPseudoElements::instance().end;
    behindM->addTransition(end, &FsmNode::finalNode());
    if (isOptional) {
        getStart().addTransition(end, &FsmNode::finalNode());
    }
    getStart().freeze();
}

XpDtd::Fsm::Fsm(XpModelSize& theSize)
    : GrammarUnit(std::make_unique<FsmNode>()), sizeM(theSize), endsM(std::make_unique<Ends>()) {}

XpDtd::Fsm::Fsm(const Element* theElement, bool isOptional, bool isRepeated, XpModelSize& theSize)
    : Fsm(theSize) {
    FsmNode* node = getStart().chainNode();
    addTransition(getStart(), theElement, node);
    getEnds().insert(node);
    if (isOptional) {
        getEnds().insert(&getStart());
    }
    if (isRepeated) {
        addTransition(*node, theElement, node);
    }
    isRepeatedM = isRepeated;
}

XpDtd::Fsm::~Fsm() = default;

void XpDtd::Fsm::addTransition(FsmNode& theNode, const Item* theItem, const FsmNode* theTarget) {
    sizeM.add(theNode.addTransition(theItem, theTarget) ? 1 : 0);
}

void XpDtd::Fsm::copyTransitions(FsmNode& theNode, FsmNode& theFrom) {
    sizeM.work(1 + theFrom.countTransitions());
    sizeM.add(theNode.copyTransitions(theFrom));
}

bool XpDtd::Fsm::adopt(Fsm& theOther) {
    getStart().adoptNodes(theOther.getStart());
    Ends& ends = getEnds();
    Ends& others = theOther.getEnds();
    const bool wasEmpty = others.erase(&theOther.getStart()) != 0;
    if (ends.size() < others.size()) {
        ends.swap(others);
    }
    ends.merge(others);
    return wasEmpty;
}

void XpDtd::Fsm::applyModifier(bool isOptional, bool isRepeated) {
    if (isRepeated && !isRepeatedM) {
        for (FsmNode* node : getEnds()) {
            copyTransitions(*node, getStart());
        }
        isRepeatedM = true;
    }
    if (isOptional) {
        getEnds().insert(&getStart());
    }
}

void XpDtd::Fsm::finish(bool isOptional, bool isRepeated) {
    applyModifier(isOptional, isRepeated);
    for (FsmNode* node : getEnds()) {
        addTransition(*node, &XpPseudoElements::instance().end, &FsmNode::finalNode());
    }
    endsM = nullptr;
    getStart().freeze();
    sizeM.endModel();
}

XpDtd::ChoiceFsm::ChoiceFsm(XpModelSize& theSize) : Fsm(theSize) {}

void XpDtd::ChoiceFsm::addAlternative(Fsm& theOther) {
    getStart().moveTransitions(startOf(theOther));
    if (adopt(theOther)) {
        getEnds().insert(&getStart());
    }
}

XpDtd::SeqFsm::SeqFsm(XpModelSize& theSize) : Fsm(theSize) {
    getEnds().insert(&getStart());
}

void XpDtd::SeqFsm::appendSequence(Fsm& theOther) {
    FsmNode& start = startOf(theOther);
    // The last end may take what the others copy.
    const auto last = std::prev(getEnds().end());
    for (auto node = getEnds().begin(); node != last; ++node) {
        copyTransitions(**node, start);
    }
    (*last)->moveTransitions(start);
    if (!mayBeEmpty(theOther)) {
        getEnds().clear();
    }
    adopt(theOther);
}

}  // namespace lumnis
