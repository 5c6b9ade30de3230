// Nodes without code of their own structure: literals, names, operators and the markers of what
// is missing.
#pragma once

#include <string_view>

#include "WscCompilerData.h"
#include "WscSimpleNode.h"
#include "WscSourceTexts.h"

namespace lumnis {

class WscAstLiteral final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::Literal;
    using WscSimpleNode::WscSimpleNode;

    void setInvalidValue() noexcept { set(Kind::Invalid, 0); }
    void setBooleanValue(bool theValue) noexcept { set(Kind::Boolean, theValue ? 1 : 0); }
    void setDecimalValue(std::int32_t theValue) noexcept;
    void setFloatingPointValue(float theValue) noexcept;
    // theNumber: of the text in WscSourceTexts.
    void setStringLiteralValue(std::size_t theNumber) noexcept;
    // The text's number; of a string alone.
    std::size_t getStringLiteralValue() const noexcept { return getValue(); }

    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
    CpsString getDumpText(const WscSourceTexts& theTexts) const;

  private:
    enum class Kind : std::uint8_t { Invalid, Boolean, Float, Integer, String };

    void set(Kind theKind, std::uint32_t theValue) noexcept {
        kindM = static_cast<std::uint8_t>(theKind);
        setValue(theValue);
    }
    Kind getKind() const noexcept { return static_cast<Kind>(kindM); }
    std::int32_t getDecimalValue() const noexcept { return static_cast<std::int32_t>(getValue()); }
    float getFloatingPointValue() const noexcept;
};

class WscAstIdentifier final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::Identifier;
    using WscSimpleNode::WscSimpleNode;

    // theNumber: of the name in WscSourceTexts.
    void setName(std::size_t theNumber) noexcept {
        setValue(static_cast<std::uint32_t>(theNumber));
    }
    std::size_t getName() const noexcept { return getValue(); }

    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
    CpsString getDumpText(const WscSourceTexts& theTexts) const;
};

// An operator between, in front of or behind operands, which read it: it has no action.
class WscAstOperator final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::Operator;
    using WscSimpleNode::WscSimpleNode;

    // The token's number: a character code or one of wsctokentype.
    void setOperator(int theOperator) noexcept {
        setValue(static_cast<std::uint32_t>(theOperator));
    }
    int getOperator() const noexcept { return static_cast<int>(getValue()); }

    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Stands for every optional part that is missing, and for the empty statement.
class WscAstEmpty final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::Empty;
    using WscSimpleNode::WscSimpleNode;

    const WscSimpleNode* semanticAction(WscCompilerData&, WscActionFrame&) const { return nullptr; }
};

// The mark of a function that other units may call.
class WscAstExtern final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::Extern;
    using WscSimpleNode::WscSimpleNode;

    const WscSimpleNode* semanticAction(WscCompilerData&, WscActionFrame&) const { return nullptr; }
};

// Parents know what the grammar put below them.
inline WscName& nameOf(WscCompilerData& theData, const WscSimpleNode* theIdentifier) noexcept {
    return theData.getTexts().getName(
        static_cast<const WscAstIdentifier*>(theIdentifier)->getName());
}
inline int operatorOf(const WscSimpleNode* theOperator) noexcept {
    return static_cast<const WscAstOperator*>(theOperator)->getOperator();
}
inline std::string_view stringOf(WscCompilerData& theData,
                                 const WscSimpleNode* theLiteral) noexcept {
    return theData.getTexts().getString(
        static_cast<const WscAstLiteral*>(theLiteral)->getStringLiteralValue());
}

}  // namespace lumnis
