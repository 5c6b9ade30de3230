// Statements. Jumps go to labels; stopFunctionCode turns them into distances.
#pragma once

#include "WscSimpleNode.h"

namespace lumnis {

// Wraps every statement; drops the value that an expression leaves.
class WscAstStatement final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::Statement;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// One statement list. Opens no scope.
class WscAstBlock final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::Block;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData&, WscActionFrame& theFrame) const {
        return nextChild(theFrame);
    }
};

// Statements, or the declarations of one var with several names.
class WscAstStatementList final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::StatementList;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Identifier, initial value or Empty.
class WscAstVariableDeclaration final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::VariableDeclaration;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Condition, statement, else-statement or Empty.
class WscAstIfStatement final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::IfStatement;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Condition, body.
class WscAstWhileStatement final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::WhileStatement;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Init, condition, increment, body; Empty where one of the first three is missing.
class WscAstForStatement final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::ForStatement;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

class WscAstContinueStatement final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::ContinueStatement;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

class WscAstBreakStatement final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::BreakStatement;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Value or Empty.
class WscAstReturnStatement final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::ReturnStatement;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

}  // namespace lumnis
