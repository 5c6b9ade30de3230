#include "WscParser.h"

#include <limits>

#include "FwTraceScope.h"
#include "WscCompilerException.h"
#include "WscGrammar.h"

namespace lumnis {

namespace {

// A double beyond the floats becomes infinity, as IEEE 754 rounds it; the language leaves the
// plain conversion undefined.
float narrowed(double theValue) noexcept {
    // Halfway between the largest float and the one that would come behind it.
    constexpr double theOverflow = 0x1.FFFFFFp+127;
    if (theValue >= theOverflow) {
        return std::numeric_limits<float>::infinity();
    }
    if (theValue <= -theOverflow) {
        return -std::numeric_limits<float>::infinity();
    }
    return static_cast<float>(theValue);
}

}  // namespace

WscParser::WscParser(const CpsString& theSource) : lexerM(theSource) {}

WscParser::~WscParser() = default;

int WscParser::yyparse() {
    return wscparse(*this);
}

void WscParser::yyerror(const CpsString& theText) const {
    throw WscCompilerException(lexerM.getCurrentLineNumber(), theText);
}

WscAstLiteral* WscParser::literal(const CpsString* theString) {
    auto* result = node<WscAstLiteral>();
    result->setStringLiteralValue(theString);
    return result;
}

WscAstLiteral* WscParser::invalidLiteral() {
    auto* result = node<WscAstLiteral>();
    result->setInvalidValue();
    return result;
}

WscAstLiteral* WscParser::booleanLiteral(bool theValue) {
    auto* result = node<WscAstLiteral>();
    result->setBooleanValue(theValue);
    return result;
}

WscAstLiteral* WscParser::integerLiteral(std::int64_t theValue) {
    auto* result = node<WscAstLiteral>();
    result->setDecimalValue(static_cast<std::int32_t>(theValue));
    return result;
}

WscAstLiteral* WscParser::floatLiteral(double theValue) {
    auto* result = node<WscAstLiteral>();
    result->setFloatingPointValue(narrowed(theValue));
    return result;
}

std::int32_t WscParser::negated(std::int64_t theValue) noexcept {
    return static_cast<std::int32_t>(0u - static_cast<std::uint32_t>(theValue));
}

WscSimpleNode* WscParser::sequence(WscSimpleNode* theLeft, WscSimpleNode* theOperator,
                                   WscSimpleNode* theRight) {
    return node<WscAstBinaryExpressionSequence>(theLeft, theOperator, theRight);
}

WscSimpleNode* WscParser::extend(WscSimpleNode* theSequence, WscSimpleNode* theOperator,
                                 WscSimpleNode* theRight) {
    theSequence->addChild(theOperator);
    theSequence->addChild(theRight);
    return theSequence;
}

WscSimpleNode* WscParser::function(WscSimpleNode* theExtern, const WscName* theName,
                                   WscSimpleNode* theParameters, WscSimpleNode* theBlock) {
    if (theParameters == nullptr) {
        theParameters = node<WscAstFormalParameterList>();
    }
    return node<WscAstFunctionDeclaration>(theExtern, identifier(theName), theParameters, theBlock);
}

WscSimpleNode* WscParser::forLoop(WscSimpleNode* theInit, WscSimpleNode* theCondition,
                                  WscSimpleNode* theIncrement, WscSimpleNode* theBody) {
    const auto orEmpty = [this](WscSimpleNode* theNode) {
        return theNode == nullptr ? empty() : theNode;
    };
    return node<WscAstForStatement>(orEmpty(theInit), orEmpty(theCondition), orEmpty(theIncrement),
                                    theBody);
}

}  // namespace lumnis
