// Base of the syntax tree's nodes.
//
// A node's semanticAction checks the node and emits its code. Source text may nest thousands of
// levels deep while a host thread may have a small stack, so actions do not call each other: an
// action runs in steps, each of which names the child whose action is due next, and
// runSemanticAction keeps the nodes that have begun on a list of its own.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string_view>

#include "CpsString.h"

namespace lumnis {

class WscCompilerData;
class WscSimpleNode;

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
    WscSimpleNode(const WscSimpleNode&) = delete;
    WscSimpleNode& operator=(const WscSimpleNode&) = delete;

    // The next step of the action: names the child that comes next, or null when the node is
    // done. Throws WscCompilerException with the node's line when the source breaks a rule.
    virtual const WscSimpleNode* semanticAction(WscCompilerData& theData,
                                                WscActionFrame& theFrame) const = 0;
    // Runs all steps of this node and of everything below.
    void runSemanticAction(WscCompilerData& theData) const;

    // Writes the tree from here, a line a node and thePrefix longer by a blank for each level,
    // once to theStream and once to theConsole.
    void dump(const CpsString& thePrefix, std::ostream& theStream, std::ostream& theConsole) const;
    CpsString addPrefix(const CpsString& thePrefix) const { return thePrefix + getNodeName(); }
    CpsString getNodeName() const;

    // Appends. A node has one parent.
    void addChild(WscSimpleNode* theChild) noexcept {
        if (lastChildM == nullptr) {
            theChild->nextSiblingM = theChild;
        } else {
            theChild->nextSiblingM = lastChildM->nextSiblingM;
            lastChildM->nextSiblingM = theChild;
        }
        lastChildM = theChild;
    }
    // theIndex below getNumChildren. Costs theIndex steps; lists are walked by getNextChild.
    const WscSimpleNode* getChild(unsigned theIndex) const noexcept {
        const WscSimpleNode* child = getFirstChild();
        while (theIndex-- != 0) {
            child = child->nextSiblingM;
        }
        return child;
    }
    // Costs a step a child.
    unsigned getNumChildren() const noexcept;
    // Null when there is none.
    const WscSimpleNode* getFirstChild() const noexcept {
        return lastChildM == nullptr ? nullptr : lastChildM->nextSiblingM;
    }
    // The child behind theChild, null behind the last.
    const WscSimpleNode* getNextChild(const WscSimpleNode* theChild) const noexcept {
        return theChild == lastChildM ? nullptr : theChild->nextSiblingM;
    }

    WscNodeType getNodeType() const noexcept { return nodeTypeM; }
    bool isA(WscNodeType theType) const noexcept { return nodeTypeM == theType; }
    // The source line, from 1, at which the parser made the node: that of the last token it had
    // read, which may be the one behind the node.
    int getLineNumber() const noexcept { return lineNumberM; }

  protected:
    // Nodes die with the parser's arena, without a call.
    ~WscSimpleNode() = default;

    // What stands behind the node's name in a dump.
    virtual CpsString getDumpText() const { return {}; }

    // Steps through all children in order: the next one, or null behind the last.
    const WscSimpleNode* nextChild(WscActionFrame& theFrame) const noexcept {
        theFrame.currentChild = theFrame.currentChild == nullptr
                                    ? getFirstChild()
                                    : getNextChild(theFrame.currentChild);
        return theFrame.currentChild;
    }
    [[noreturn]] void fail(const CpsString& theMessage) const;

  private:
    // The children form a ring: the last one's next is the first.
    WscSimpleNode* lastChildM = nullptr;
    WscSimpleNode* nextSiblingM = nullptr;
    int lineNumberM;
    WscNodeType nodeTypeM;
};

}  // namespace lumnis
