// Base of the syntax tree's nodes.
//
// A node's semanticAction checks the node and emits its code. Source text may nest thousands of
// levels deep while a host thread may have a small stack, so actions do not call each other: an
// action runs in steps, each of which names the child whose action is due next, and
// runSemanticAction keeps the nodes that have begun on a list of its own.
//
// The tree is most of the memory of a compilation: a node takes 16 bytes, whatever its class. All
// nodes of a tree stand in one array and find each other by their distance in it; what a class
// knows of its own is a number in the place of the children that it does not have; and the type,
// not a pointer to a table, tells whose action is due.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <iterator>
#include <string_view>

#include "CpsString.h"

namespace lumnis {

class WscCompilerData;
class WscSimpleNode;
class WscSourceTexts;
struct WscName;

// The numbers are those of the tree's published node names; the gaps are types of which no node
// is made. All levels of left-associative operators share BinaryExpressionSequence.
enum class WscNodeType : std::uint8_t {
    Literal = 1,
    Identifier = 2,
    Expression = 3,
    LocalScriptFunctionCall = 5,
    ExternalScriptFunctionCall = 6,
    LibraryFunctionCall = 7,
    ArgumentList = 8,
    Operator = 9,
    PostfixExpression = 10,
    UnaryExpression = 11,
    AndExpressionSequence = 13,
    OrExpressionSequence = 14,
    ConditionalExpression = 15,
    AssignmentExpression = 16,
    ExpressionList = 17,
    Statement = 18,
    Block = 19,
    StatementList = 20,
    VariableDeclaration = 21,
    Empty = 22,
    IfStatement = 23,
    WhileStatement = 24,
    ForStatement = 25,
    ContinueStatement = 26,
    BreakStatement = 27,
    ReturnStatement = 28,
    FunctionDeclaration = 29,
    FormalParameterList = 30,
    Extern = 31,
    CompilationUnit = 32,
    Pragmas = 33,
    FunctionDeclarations = 34,
    ExternalCompilationUnitPragma = 35,
    AccessControlDomain = 37,
    AccessControlPath = 38,
    AccessControlDomainPath = 39,
    MetaName = 40,
    MetaHttpEquiv = 41,
    MetaUserAgent = 42,
    BinaryExpressionSequence = 43
};

// A node in the middle of its action.
struct WscActionFrame {
    explicit WscActionFrame(const WscSimpleNode* theNode) noexcept : node(theNode) {}

    const WscSimpleNode* node;
    unsigned step = 0;                            // children whose actions are done
    const WscSimpleNode* currentChild = nullptr;  // for lists: the child named last
    // What the action remembers between its steps: labels or numbers, as it likes.
    std::int32_t first = 0;
    std::int32_t second = 0;
};

class WscSimpleNode {
  public:
    WscSimpleNode(WscNodeType theNodeType, int theLineNumber) noexcept
        : lineNumberM(theLineNumber), nodeTypeM(theNodeType) {}

    // The next step of the action that each class derived from this one has under the same name:
    // names the child that comes next, or null when the node is done. Throws WscCompilerException
    // with the node's line when the source breaks a rule.
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
    // Runs all steps of this node and of everything below.
    void runSemanticAction(WscCompilerData& theData) const;

    // Writes the tree from here, a line a node and thePrefix longer by a blank for each level,
    // once to theStream and once to theConsole. theTexts are those of the source.
    void dump(const CpsString& thePrefix, const WscSourceTexts& theTexts, std::ostream& theStream,
              std::ostream& theConsole) const;
    CpsString addPrefix(const CpsString& thePrefix) const { return thePrefix + getNodeName(); }
    CpsString getNodeName() const;

    // The children, in order, of a node that has none yet; all are nodes of the same array. A node
    // has one parent.
    template <class... Children>
    void setChildren(Children&... theChildren) noexcept {
        WscSimpleNode* const ring[] = {&theChildren...};
        for (std::size_t i = 0; i < std::size(ring); ++i) {
            ring[i]->nextSiblingM = distance(ring[i], ring[(i + 1) % std::size(ring)]);
        }
        lastChildM = distance(this, ring[std::size(ring) - 1]);
    }
    // Appends one.
    void addChild(WscSimpleNode& theChild) noexcept {
        if (lastChildM != 0) {
            WscSimpleNode* last = this + lastChildM;
            theChild.nextSiblingM = distance(&theChild, last + last->nextSiblingM);
            last->nextSiblingM = distance(last, &theChild);
        } else {
            theChild.nextSiblingM = 0;
        }
        lastChildM = distance(this, &theChild);
    }
    bool hasChildren() const noexcept { return lastChildM != 0 && !hasValueM; }
    // theIndex below getNumChildren. Costs theIndex steps; lists are walked by getNextChild.
    const WscSimpleNode* getChild(unsigned theIndex) const noexcept {
        const WscSimpleNode* child = getFirstChild();
        while (theIndex-- != 0) {
            child += child->nextSiblingM;
        }
        return child;
    }
    // Costs a step a child.
    unsigned getNumChildren() const noexcept;
    // Null when there is none. Not for a node that holds a value.
    const WscSimpleNode* getFirstChild() const noexcept {
        return lastChildM != 0 ? this + lastChildM + this[lastChildM].nextSiblingM : nullptr;
    }
    // The child after theChild, null after the last.
    const WscSimpleNode* getNextChild(const WscSimpleNode* theChild) const noexcept {
        return theChild == this + lastChildM ? nullptr : theChild + theChild->nextSiblingM;
    }

    WscNodeType getNodeType() const noexcept { return nodeTypeM; }
    bool isA(WscNodeType theType) const noexcept { return nodeTypeM == theType; }
    // The source line, from 1, at which the parser made the node: that of the last token it had
    // read, which may be the one after the node.
    int getLineNumber() const noexcept { return lineNumberM; }

  protected:
    // A node is copied with its whole array alone: elsewhere it would find other neighbours.
    WscSimpleNode(const WscSimpleNode&) = default;
    WscSimpleNode& operator=(const WscSimpleNode&) = default;

    // A node that has no children may hold a number instead.
    void setValue(std::uint32_t theValue) noexcept {
        valueM = theValue;
        hasValueM = true;
    }
    std::uint32_t getValue() const noexcept { return valueM; }

    // Steps through all children in order: the next one, or null after the last.
    const WscSimpleNode* nextChild(WscActionFrame& theFrame) const noexcept {
        theFrame.currentChild = theFrame.currentChild == nullptr
                                    ? getFirstChild()
                                    : getNextChild(theFrame.currentChild);
        return theFrame.currentChild;
    }
    [[noreturn]] void fail(const CpsString& theMessage) const;
    // The number of the variable theName; fails when there is none.
    int requireVariable(const WscName& theName) const;

  private:
    static std::int32_t distance(const WscSimpleNode* theFrom,
                                 const WscSimpleNode* theTo) noexcept {
        return static_cast<std::int32_t>(theTo - theFrom);
    }
    // What follows the node's name in a dump.
    CpsString getDumpText(const WscSourceTexts& theTexts) const;

    // Distances in the array. The children form a ring: the last one's next is the first.
    union {
        std::int32_t lastChildM = 0;  // 0 for none
        std::uint32_t valueM;         // when hasValueM
    };
    std::int32_t nextSiblingM = 0;
    int lineNumberM;
    WscNodeType nodeTypeM;
    bool hasValueM = false;

  protected:
    std::uint8_t kindM = 0;  // of the value; a class says which kinds there are
};
static_assert(sizeof(WscSimpleNode) == 16);

}  // namespace lumnis
