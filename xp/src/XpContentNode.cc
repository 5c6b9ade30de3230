#include "XpContentNode.h"

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

#include "XpRowLayout.h"

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

// More transitions than one, while the automaton is built. They are sorted runs, each more than
// twice as long as the next: names mostly come in order and extend the only run, and where they do
// not, an addition still costs little more than log n steps twice over.
struct XpDtd::FsmNode::Block {
    using Runs = std::vector<std::uint32_t>;

    std::unique_ptr<Runs> runs;  // where they begin, but for the first; null while there is one
    std::uint32_t capacity;

    // Where the last run begins, and where the one in front of it does, if there are two.
    std::size_t lastRun() const { return runs == nullptr ? 0 : runs->back(); }
    std::size_t runBefore() const { return runs->size() == 1 ? 0 : runs->end()[-2]; }
    void beginRun(std::size_t theBegin) {
        if (runs == nullptr) {
            runs = std::make_unique<Runs>();
        }
        runs->push_back(static_cast<std::uint32_t>(theBegin));
    }
    // The transitions lie behind the block.
    Transition* data() { return reinterpret_cast<Transition*>(this + 1); }
    static Block* make(std::size_t theCapacity) {
        void* memory = ::operator new(sizeof(Block) + theCapacity * sizeof(Transition));
        return new (memory) Block{nullptr, static_cast<std::uint32_t>(theCapacity)};
    }
    static void drop(Block* theBlock) {
        theBlock->~Block();
        ::operator delete(theBlock);
    }
};

namespace {

// The last run is sorted by insertion while it has fewer transitions.
constexpr std::size_t theInsertLimit = 256;

using Transition = XpDtd::FsmNode::Transition;

bool isMadeBefore(const Transition& theTransition, std::uint64_t theCreation) {
    return theTransition.item->getCreation() < theCreation;
}

bool isMadeBeforeOther(const Transition& theLeft, const Transition& theRight) {
    return isMadeBefore(theLeft, theRight.item->getCreation());
}

}  // namespace

XpDtd::FsmNode::FsmNode() = default;

// The chain can be as long as a content model: no recursion.
XpDtd::FsmNode::~FsmNode() {
    dropBlock();
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
    const std::size_t size = rowM.size;
    if (size <= 1) {
        return size == 1 && rowM.one.item == theItem ? rowM.one.target : nullptr;
    }
    // The most frequent ones: "#PCDATA" is older than any element, and "[END]" is the last.
    const Transition* const row = rowM.table;
    const Transition* const last = row + size - 1;
    if (row->item == theItem) {
        return row->target;
    }
    if (last->item == theItem) {
        return last->target;
    }
    // Most nodes know few items, and identity needs no look at them.
    constexpr std::size_t theScanLimit = 16;
    const Transition* place = row + 1;
    if (size <= theScanLimit) {
        while (place != last && place->item != theItem) {
            ++place;
        }
    } else if (isMadeBefore(*row, theItem->getCreation())) {
        place = std::lower_bound(place, last, theItem->getCreation(), isMadeBefore);
    } else {
        return nullptr;
    }
    return place != last && place->item == theItem ? place->target : nullptr;
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

const XpDtd::FsmNode::Transition* XpDtd::FsmNode::data() const {
    return rowM.size <= 1 ? &rowM.one : rowM.isFrozen ? rowM.table : rowM.block->data();
}

// Not of a frozen node.
XpDtd::FsmNode::Transition* XpDtd::FsmNode::data() {
    return rowM.size <= 1 ? &rowM.one : rowM.block->data();
}

void XpDtd::FsmNode::dropBlock() {
    if (rowM.size > 1 && !rowM.isFrozen) {
        Block::drop(rowM.block);
    }
}

// The node must get a second transition next if it has a single one: that one moves to the block.
void XpDtd::FsmNode::reallocate(std::size_t theCapacity) {
    Block* block = Block::make(theCapacity);
    std::copy_n(data(), rowM.size, block->data());
    if (rowM.size > 1) {
        block->runs = std::move(rowM.block->runs);
        Block::drop(rowM.block);
    }
    rowM.block = block;
}

// Names mostly come in order.
inline bool XpDtd::FsmNode::add(const Transition& theTransition) {
    const std::size_t size = rowM.size;
    if (size > 1 && rowM.block->runs == nullptr && size < rowM.block->capacity) {
        Transition* const end = rowM.block->data() + size;
        if (isMadeBefore(end[-1], theTransition.item->getCreation())) {
            *end = theTransition;
            ++rowM.size;
            return true;
        }
    }
    return insert(theTransition);
}

std::optional<std::size_t> XpDtd::FsmNode::findPlace(const Transition& theTransition) const {
    const std::uint64_t creation = theTransition.item->getCreation();
    const Transition* const first = data();
    const std::size_t size = rowM.size;
    const Block::Runs* const runs = size > 1 ? rowM.block->runs.get() : nullptr;
    if (runs == nullptr && (size == 0 || isMadeBefore(first[size - 1], creation))) {
        return size;
    }
    std::size_t place = size;
    std::size_t end = size;
    for (std::size_t run = runs == nullptr ? 1 : runs->size() + 1; run-- != 0;) {
        const std::size_t begin = run == 0 ? 0 : (*runs)[run - 1];
        const Transition* const found =
            std::lower_bound(first + begin, first + end, creation, isMadeBefore);
        if (found != first + end && found->item == theTransition.item) {
            if (found->target != theTransition.target) {
                throw NondeterministicException(*theTransition.item);
            }
            return std::nullopt;
        }
        if (end == size) {
            place = static_cast<std::size_t>(found - first);
        }
        end = begin;
    }
    return place;
}

bool XpDtd::FsmNode::insert(const Transition& theTransition) {
    const std::optional<std::size_t> place = findPlace(theTransition);
    if (!place) {
        return false;
    }
    const std::size_t size = rowM.size;
    if (size == 0) {
        rowM.one = theTransition;
        rowM.size = 1;
        return true;
    }
    if (size == 1 || size == rowM.block->capacity) {
        reallocate(2 * size);
    }
    Block& block = *rowM.block;
    Transition* const first = block.data();
    ++rowM.size;
    if (*place == size || size - block.lastRun() < theInsertLimit) {
        std::copy_backward(first + *place, first + size, first + size + 1);
        first[*place] = theTransition;
    } else {
        first[size] = theTransition;
        block.beginRun(size);
    }
    while (block.runs != nullptr &&
           block.lastRun() - block.runBefore() <= 2 * (rowM.size - block.lastRun())) {
        mergeLastRuns();
    }
    return true;
}

void XpDtd::FsmNode::mergeLastRuns() {
    Block& block = *rowM.block;
    Transition* const first = block.data();
    std::inplace_merge(first + block.runBefore(), first + block.lastRun(), first + rowM.size,
                       isMadeBeforeOther);
    block.runs->pop_back();
    if (block.runs->empty()) {
        block.runs = nullptr;
    }
}

void XpDtd::FsmNode::sort() {
    while (rowM.size > 1 && rowM.block->runs != nullptr) {
        mergeLastRuns();
    }
}

bool XpDtd::FsmNode::addTransition(const Item* theItem, const FsmNode* theTarget) {
    return add({theItem, theTarget});
}

void XpDtd::FsmNode::addEnd() {
    sort();
    if (rowM.size == 1 || (rowM.size > 1 && rowM.size == rowM.block->capacity)) {
        reallocate(rowM.size + std::size_t{1});
    }
    ++rowM.size;
    data()[rowM.size - 1] = {&XpPseudoElements::instance().end, &finalNode()};
}

std::size_t XpDtd::FsmNode::copyTransitions(FsmNode& theFrom) {
    if (this == &theFrom) {
        return 0;
    }
    if (theFrom.rowM.size == 1) {
        return add(theFrom.rowM.one) ? 1 : 0;
    }
    const std::size_t before = rowM.size;
    theFrom.sort();
    if (before == 0 && theFrom.rowM.size > 1) {
        rowM.block = Block::make(theFrom.rowM.size);
        std::copy_n(theFrom.data(), theFrom.rowM.size, rowM.block->data());
        rowM.size = theFrom.rowM.size;
        return rowM.size;
    }
    for (const Transition& transition : theFrom.getTransitions()) {
        add(transition);
    }
    return rowM.size - before;
}

// Which of the two is walked makes no difference to the conflict that is found: it is the first
// item that both have.
void XpDtd::FsmNode::moveTransitions(FsmNode& theFrom) {
    if (rowM.size < theFrom.rowM.size) {
        std::swap(rowM, theFrom.rowM);
    }
    copyTransitions(theFrom);
}

void XpDtd::FsmNode::adoptNodes(FsmNode& theOther, FsmNode& theLast) {
    theLast.chainNextM = std::move(chainNextM);
    chainNextM = std::move(theOther.chainNextM);
}

XpDtd::FsmNode* XpDtd::FsmNode::chainNode() {
    auto node = std::make_unique<FsmNode>();
    node->chainNextM = std::move(chainNextM);
    chainNextM = std::move(node);
    return chainNextM.get();
}

XpDtd::FsmNode::Table XpDtd::FsmNode::freeze(std::size_t& theTableSize) {
    std::vector<FsmNode*> nodes;
    std::vector<XpRowLayout::Row> rows;
    for (FsmNode* node = this; node != nullptr; node = node->chainNextM.get()) {
        if (node->rowM.size > 1) {
            node->sort();
            nodes.push_back(node);
            rows.push_back(node->getTransitions());
        }
    }
    const XpRowLayout layout(rows);
    theTableSize = layout.size();
    Table table = std::make_unique<Transition[]>(theTableSize);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        FsmNode& node = *nodes[i];
        Transition* const place = table.get() + layout.offsetOf(i);
        if (!layout.isShared(i)) {
            std::copy(rows[i].begin(), rows[i].end(), place);
        }
        Block::drop(node.rowM.block);
        node.rowM.table = place;
        node.rowM.isFrozen = true;
    }
    return table;
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
