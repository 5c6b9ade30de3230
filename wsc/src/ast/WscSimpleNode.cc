#include "WscSimpleNode.h"

#include <array>
#include <ostream>
#include <utility>
#include <vector>

#include "FwTraceScope.h"
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

}  // namespace

void WscSimpleNode::runSemanticAction(WscCompilerData& theData) const {
    FwTraceScope scope("WscSimpleNode::runSemanticAction");
    std::vector<WscActionFrame> begun;
    begun.push_back({this});
    while (!begun.empty()) {
        WscActionFrame& frame = begun.back();
        const WscSimpleNode* next = frame.node->semanticAction(theData, frame);
        ++frame.step;
        if (next != nullptr) {
            begun.push_back({next});
        } else {
            begun.pop_back();
        }
    }
}

void WscSimpleNode::dump(const CpsString& thePrefix, std::ostream& theStream,
                         std::ostream& theConsole) const {
    FwTraceScope scope("WscSimpleNode::dump");
    // The nodes on the way down from here. One prefix serves them all: it grows with the way.
    std::vector<const WscSimpleNode*> path;
    CpsString prefix(thePrefix);
    for (const WscSimpleNode* node = this; node != nullptr;) {
        CpsString line = node->addPrefix(prefix) + node->getDumpText();
        line += '\n';
        theStream.write(line.data(), line.length());
        theConsole.write(line.data(), line.length());
        if (node->lastChildM != nullptr) {
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

}  // namespace lumnis
