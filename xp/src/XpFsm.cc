#include "XpFsm.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace lumnis {

static_assert(XpModelSize::theNodeSize >= sizeof(XpDtd::FsmNode) + sizeof(void*),
              "a node and what the allocator adds");
static_assert(XpModelSize::theTransitionSize >= sizeof(XpDtd::FsmNode::Transition));

CpsString XpModelSize::TooLargeException::toString() const {
    return "content model too large";
}

XpDtd::Choice::Choice()
    : GrammarUnit(std::make_unique<FsmNode>()), behindM(getStart().chainNode()) {}

bool XpDtd::Choice::addItem(const Item* theItem) {
    return getStart().addTransition(theItem, behindM);
}

std::size_t XpDtd::Choice::closeChoice(bool isOptional, bool isRepeated) {
    if (isRepeated) {
        behindM->copyTransitions(getStart());
    }
    behindM->addEnd();
    if (isOptional) {
        getStart().addEnd();
    }
    std::size_t tableSize = 0;
    tableM = getStart().freeze(tableSize);
    return tableSize;
}

XpDtd::Fsm::Fsm(XpModelSize& theSize)
    : GrammarUnit(std::make_unique<FsmNode>()),
      sizeM(theSize),
      startCreationM(Item::nextCreation()),
      lastM(&getStart()),
      endsM(std::make_unique<Ends>()),
      listM(theSize.numberList()) {}

XpDtd::Fsm::Fsm(const Element* theElement, bool isOptional, bool isRepeated, XpModelSize& theSize)
    : Fsm(theSize) {
    sizeM.addNode();
    FsmNode* node = getStart().chainNode();
    lastM = node;
    addTransition(getStart(), theElement, node);
    Known known;
    if (isRepeated) {
        addTransition(*node, theElement, node);
        known = allOfStart();
    }
    getEnds().insert({Item::nextCreation(), node, known});
    if (isOptional) {
        getEnds().insert(startEnd());
    }
    isRepeatedM = isRepeated;
}

XpDtd::Fsm::~Fsm() = default;

void XpDtd::Fsm::addTransition(FsmNode& theNode, const Item* theItem, const FsmNode* theTarget) {
    sizeM.add(theNode.addTransition(theItem, theTarget) ? 1 : 0);
}

void XpDtd::Fsm::copyTransitions(FsmNode& theNode, FsmNode& theFrom) {
    sizeM.add(theNode.copyTransitions(theFrom));
}

bool XpDtd::Fsm::adopt(Fsm& theOther) {
    FsmNode& start = getStart();
    if (theOther.lastM != &theOther.getStart()) {
        start.adoptNodes(theOther.getStart(), *theOther.lastM);
        if (lastM == &start) {
            lastM = theOther.lastM;
        }
        theOther.lastM = &theOther.getStart();
    }
    Ends& ends = getEnds();
    Ends& others = theOther.getEnds();
    const bool wasEmpty = others.erase(theOther.startEnd()) != 0;
    if (ends.size() < others.size()) {
        ends.swap(others);
    }
    ends.merge(others);
    return wasEmpty;
}

XpDtd::Fsm::Known XpDtd::Fsm::allOfStart() {
    return {listM, static_cast<std::uint32_t>(getStart().countTransitions())};
}

// The list of a start with one transition is not kept.
void XpDtd::Fsm::listStart() {
    const auto transitions = getStart().getTransitions();
    if (listedM.empty()) {
        listedM.assign(transitions.begin(), transitions.end());
    }
}

void XpDtd::Fsm::joinLists(Fsm& theOther) {
    listStart();
    theOther.listStart();
    if (listedM.size() < theOther.listedM.size()) {
        listedM.swap(theOther.listedM);
        std::swap(listM, theOther.listM);
    }
    listedM.insert(listedM.end(), theOther.listedM.begin(), theOther.listedM.end());
}

// Gives theEnd what it has not got of the transitions of the start.
void XpDtd::Fsm::repeat(const End& theEnd, Transitions& theBuffer) {
    FsmNode& start = getStart();
    const std::size_t known = theEnd.known.list == listM ? theEnd.known.count : 0;
    if (known == 0) {
        copyTransitions(*theEnd.node, start);
    } else if (known < start.countTransitions()) {
        theBuffer.assign(listedM.begin() + static_cast<std::ptrdiff_t>(known), listedM.end());
        std::sort(theBuffer.begin(), theBuffer.end(), [](const auto& theOne, const auto& theOther) {
            return ByCreation()(theOne.item, theOther.item);
        });
        for (const FsmNode::Transition& transition : theBuffer) {
            addTransition(*theEnd.node, transition.item, transition.target);
        }
    }
    theEnd.known = allOfStart();
}

void XpDtd::Fsm::applyModifier(bool isOptional, bool isRepeated) {
    if (isRepeated && !isRepeatedM) {
        Transitions buffer;
        for (const End& end : getEnds()) {
            repeat(end, buffer);
        }
        isRepeatedM = true;
    }
    if (isOptional) {
        getEnds().insert(startEnd());
    }
}

void XpDtd::Fsm::finish(bool isOptional, bool isRepeated) {
    applyModifier(isOptional, isRepeated);
    for (const End& end : getEnds()) {
        sizeM.add(1);
        end.node->addEnd();
    }
    endsM = nullptr;
    listedM = Transitions();
    std::size_t tableSize = 0;
    tableM = getStart().freeze(tableSize);
    sizeM.endModel(tableSize);
}

XpDtd::ChoiceFsm::ChoiceFsm(XpModelSize& theSize) : Fsm(theSize) {}

void XpDtd::ChoiceFsm::addAlternative(Fsm& theOther) {
    joinLists(theOther);
    getStart().moveTransitions(startOf(theOther));
    if (adopt(theOther)) {
        getEnds().insert(startEnd());
    }
}

XpDtd::SeqFsm::SeqFsm(XpModelSize& theSize) : Fsm(theSize) {
    getEnds().insert(startEnd());
}

void XpDtd::SeqFsm::appendSequence(Fsm& theOther) {
    FsmNode& other = startOf(theOther);
    const bool isStartEnd = mayBeEmpty(*this);
    const bool isOtherEmpty = mayBeEmpty(theOther);
    const Known before = allOfStart();
    if (isStartEnd) {
        joinLists(theOther);
    }
    // The last end may take what the others copy.
    const auto last = std::prev(getEnds().end());
    for (auto end = getEnds().begin(); end != last; ++end) {
        copyTransitions(*end->node, other);
    }
    last->node->moveTransitions(other);
    if (!isOtherEmpty) {
        getEnds().clear();
    } else if (isStartEnd) {
        // The ends have got what the start has got.
        for (const End& end : getEnds()) {
            if (end.known.list == before.list && end.known.count == before.count) {
                end.known = allOfStart();
            }
        }
    }
    adopt(theOther);
}

}  // namespace lumnis
