// Expressions. The code of each leaves exactly one value on the operand stack.
#pragma once

#include "WscSimpleNode.h"

namespace lumnis {

// A parenthesis.
class WscAstExpression final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::Expression;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// The comma: all children are worked out, the last one's value stays.
class WscAstExpressionList final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::ExpressionList;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Operand, operator, operand and so on, all of one level of precedence.
class WscAstBinaryExpressionSequence final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::BinaryExpressionSequence;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Operands of &&, without operator nodes.
class WscAstAndExpressionSequence final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::AndExpressionSequence;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Operands of ||, without operator nodes.
class WscAstOrExpressionSequence final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::OrExpressionSequence;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Condition, value if true, value if not.
class WscAstConditionalExpression final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::ConditionalExpression;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Identifier, operator, value.
class WscAstAssignmentExpression final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::AssignmentExpression;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Operator, operand.
class WscAstUnaryExpression final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::UnaryExpression;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Identifier, ++ or --.
class WscAstPostfixExpression final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::PostfixExpression;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Identifier, arguments: a function of this unit.
class WscAstLocalScriptFunctionCall final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::LocalScriptFunctionCall;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Name of a unit, identifier, arguments: a function of another unit.
class WscAstExternalScriptFunctionCall final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::ExternalScriptFunctionCall;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Name of a library, identifier, arguments.
class WscAstLibraryFunctionCall final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::LibraryFunctionCall;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// The arguments of a call, pushed from the first to the last.
class WscAstArgumentList final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::ArgumentList;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData&, WscActionFrame& theFrame) const {
        return nextChild(theFrame);
    }
};

}  // namespace lumnis
