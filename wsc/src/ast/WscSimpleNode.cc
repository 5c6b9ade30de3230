#include "WscSimpleNode.h"

#include <array>
#include <ostream>
#include <utility>
#include <vector>

#include "FwTraceScope.h"
#include "WscAstDeclarations.h"
#include "WscAstExpressions.h"
#include "WscAstPrimaries.h"
#include "WscAstStatements.h"
#include "WscCompilerException.h"

namespace lumnis {

namespace {

// By type number; the names of all levels of operators are one.
// clang-format off
constexpr std::array<std::string_view, 51> theNodeNames = {
    "void", "Literal", "Identifier", "Expression", "CallExpression", "LocalScriptFunctionCall",
    "ExternalScriptFunctionCall", "LibraryFunctionCall", "ArgumentList", "Operator",
    "PostfixExpression", "UnaryExpression", "BinaryExpressionSequence", "AndExpressionSequence",
    "OrExpressionSequence", "ConditionalExpression", "AssignmentExpression", "ExpressionList",
    "Statement", "Block", "StatementList", "VariableDeclaration", "Empty", "IfStatement",
    "WhileStatement", "ForStatement", "ContinueStatement", "BreakStatement", "ReturnStatement",
    "FunctionDeclaration", "FormalParameterList", "Extern", "CompilationUnit", "Pragmas",
    "FunctionDeclarations", "ExternalCompilationUnitPragma", "AccessControlPublic",
    "AccessControlDomain", "AccessControlPath", "AccessControlDomainPath", "MetaName",
    "MetaHttpEquiv", "MetaUserAgent", "BinaryExpressionSequence", "BinaryExpressionSequence",
    "BinaryExpressionSequence", "BinaryExpressionSequence", "BinaryExpressionSequence",
    "BinaryExpressionSequence", "BinaryExpressionSequence", "BinaryExpressionSequence"
};
// clang-format on
static_assert(theNodeNames[static_cast<std::size_t>(WscNodeType::Statement)] == "Statement");
static_assert(theNodeNames[static_cast<std::size_t>(WscNodeType::MetaUserAgent)] ==
              "MetaUserAgent");

using NodeAction = const WscSimpleNode* (*)(const WscSimpleNode&, WscCompilerData&,
                                            WscActionFrame&);

template <class Node>
const WscSimpleNode* act(const WscSimpleNode& theNode, WscCompilerData& theData,
                         WscActionFrame& theFrame) {
    return static_cast<const Node&>(theNode).semanticAction(theData, theFrame);
}

// The actions of theNodes by their type numbers.
template <class... Nodes>
constexpr std::array<NodeAction, theNodeNames.size()> makeNodeActions() {
    std::array<NodeAction, theNodeNames.size()> result{};
    ((result[static_cast<std::size_t>(Nodes::theNodeType)] = act<Nodes>), ...);
    return result;
}

constexpr auto theNodeActions = makeNodeActions<
    WscAstLiteral, WscAstIdentifier, WscAstExpression, WscAstLocalScriptFunctionCall,
    WscAstExternalScriptFunctionCall, WscAstLibraryFunctionCall, WscAstArgumentList, WscAstOperator,
    WscAstPostfixExpression, WscAstUnaryExpression, WscAstAndExpressionSequence,
    WscAstOrExpressionSequence, WscAstConditionalExpression, WscAstAssignmentExpression,
    WscAstExpressionList, WscAstStatement, WscAstBlock, WscAstStatementList,
    WscAstVariableDeclaration, WscAstEmpty, WscAstIfStatement, WscAstWhileStatement,
    WscAstForStatement, WscAstContinueStatement, WscAstBreakStatement, WscAstReturnStatement,
    WscAstFunctionDeclaration, WscAstFormalParameterList, WscAstExtern, WscAstCompilationUnit,
    WscAstPragmas, WscAstFunctionDeclarations, WscAstExternalCompilationUnitPragma,
    WscAstAccessControlDomain, WscAstAccessControlPath, WscAstAccessControlDomainPath,
    WscAstMetaName, WscAstMetaHttpEquiv, WscAstMetaUserAgent, WscAstBinaryExpressionSequence>();

}  // namespace

const WscSimpleNode* WscSimpleNode::semanticAction(WscCompilerData& theData,
                                                   WscActionFrame& theFrame) const {
    return theNodeActions[static_cast<std::size_t>(nodeTypeM)](*this, theData, theFrame);
}

void WscSimpleNode::runSemanticAction(WscCompilerData& theData) const {
    FwTraceScope scope("WscSimpleNode::runSemanticAction");
    CpsArray<WscActionFrame, 32> begun;
    begun.append(this);
    while (!begun.empty()) {
        WscActionFrame& frame = begun.back();
        const WscSimpleNode* next = frame.node->semanticAction(theData, frame);
        ++frame.step;
        if (next != nullptr) {
            begun.append(next);
        } else {
            begun.pop();
        }
    }
}

void WscSimpleNode::dump(const CpsString& thePrefix, const WscSourceTexts& theTexts,
                         std::ostream& theStream, std::ostream& theConsole) const {
    FwTraceScope scope("WscSimpleNode::dump");
    // The nodes on the way down from here. One prefix serves them all: it grows with the way.
    std::vector<const WscSimpleNode*> path;
    CpsString prefix(thePrefix);
    for (const WscSimpleNode* node = this; node != nullptr;) {
        CpsString line = node->addPrefix(prefix) + node->getDumpText(theTexts);
        line += '\n';
        theStream.write(line.data(), line.length());
        theConsole.write(line.data(), line.length());
        if (node->hasChildren()) {
            path.push_back(node);
            prefix += ' ';
            node = node->getFirstChild();
            continue;
        }
        const WscSimpleNode* next = nullptr;
        while (!path.empty() && next == nullptr) {
            next = path.back()->getNextChild(node);
            if (next == nullptr) {
                node = path.back();
                path.pop_back();
                prefix.erase(prefix.length() - 1, 1);
            }
        }
        node = next;
    }
    theStream.flush();
    theConsole.flush();
}

CpsString WscSimpleNode::getNodeName() const {
    return theNodeNames[static_cast<std::size_t>(nodeTypeM)];
}

CpsString WscSimpleNode::getDumpText(const WscSourceTexts& theTexts) const {
    switch (nodeTypeM) {
        case WscNodeType::Literal:
            return static_cast<const WscAstLiteral*>(this)->getDumpText(theTexts);
        case WscNodeType::Identifier:
            return static_cast<const WscAstIdentifier*>(this)->getDumpText(theTexts);
        default:
            return {};
    }
}

unsigned WscSimpleNode::getNumChildren() const noexcept {
    unsigned count = 0;
    for (const WscSimpleNode* child = getFirstChild(); child != nullptr;
         child = getNextChild(child)) {
        ++count;
    }
    return count;
}

void WscSimpleNode::fail(const CpsString& theMessage) const {
    throw WscCompilerException(lineNumberM, theMessage);
}

int WscSimpleNode::requireVariable(const WscName& theName) const {
    if (theName.variable < 0) {
        fail("Semantic Error: Variable \"" + CpsString(theName.text) + "\" not found");
    }
    return theName.variable;
}

}  // namespace lumnis
