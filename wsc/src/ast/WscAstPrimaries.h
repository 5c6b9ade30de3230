// Nodes without code of their own structure: literals, names, operators and the markers of what
// is missing.
#pragma once

#include "WscName.h"
#include "WscSimpleNode.h"

namespace lumnis {

class WscAstLiteral final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::Literal;
    using WscSimpleNode::WscSimpleNode;

    void setInvalidValue() noexcept { literalKindM = Kind::Invalid; }
    void setBooleanValue(bool theValue) noexcept;
    void setDecimalValue(std::int32_t theValue) noexcept;
    void setFloatingPointValue(float theValue) noexcept;
    // theValue belongs to the lexer and must outlive the node.
    void setStringLiteralValue(const CpsString* theValue) noexcept;
    // Null when the literal is no string.
    const CpsString* getStringLiteralValue() const noexcept {
        return literalKindM == Kind::String ? stringLiteralValueM : nullptr;
    }

    const WscSimpleNode* semanticAction(WscCompilerData& theData,
                                        WscActionFrame& theFrame) const override;

  private:
    enum class Kind : std::uint8_t { Invalid, Boolean, Float, Integer, String };

    CpsString getDumpText() const override;

    Kind literalKindM = Kind::Invalid;
    // By kind.
    union {
        bool booleanValueM;
        std::int32_t decimalValueM;
        float floatingPointValueM;
        const CpsString* stringLiteralValueM = nullptr;
    };
};

class WscAstIdentifier final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::Identifier;
    using WscSimpleNode::WscSimpleNode;

    // theName belongs to the lexer and must outlive the node.
    void setName(const WscName* theName) noexcept { nameM = theName; }
    const WscName& getName() const noexcept { return *nameM; }

    const WscSimpleNode* semanticAction(WscCompilerData& theData,
                                        WscActionFrame& theFrame) const override;

  private:
    CpsString getDumpText() const override { return " IDENTIFIER:" + nameM->text; }

    const WscName* nameM = nullptr;
};

// An operator between, in front of or behind operands, which read it: it has no action.
class WscAstOperator final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::Operator;
    using WscSimpleNode::WscSimpleNode;

    // The token's number: a character code or one of wsctokentype.
    void setOperator(int theOperator) noexcept {
        operatorM = static_cast<std::uint16_t>(theOperator);
    }
    int getOperator() const noexcept { return operatorM; }

    const WscSimpleNode* semanticAction(WscCompilerData& theData,
                                        WscActionFrame& theFrame) const override;

  private:
    std::uint16_t operatorM = 0;
};

// Stands for every optional part that is missing, and for the empty statement.
class WscAstEmpty final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::Empty;
    using WscSimpleNode::WscSimpleNode;

    const WscSimpleNode* semanticAction(WscCompilerData&, WscActionFrame&) const override {
        return nullptr;
    }
};

// The mark of a function that other units may call.
class WscAstExtern final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::Extern;
    using WscSimpleNode::WscSimpleNode;

    const WscSimpleNode* semanticAction(WscCompilerData&, WscActionFrame&) const override {
        return nullptr;
    }
};

// Parents know what the grammar put below them.
inline const WscName& nameOf(const WscSimpleNode* theIdentifier) noexcept {
    return static_cast<const WscAstIdentifier*>(theIdentifier)->getName();
}
inline int operatorOf(const WscSimpleNode* theOperator) noexcept {
    return static_cast<const WscAstOperator*>(theOperator)->getOperator();
}
inline const CpsString& stringOf(const WscSimpleNode* theLiteral) noexcept {
    return *static_cast<const WscAstLiteral*>(theLiteral)->getStringLiteralValue();
}

}  // namespace lumnis
