#include "WscParser.h"

#include <algorithm>
#include <limits>

#include "FwTraceScope.h"
#include "WscCompilerException.h"
#include "WscGrammar.h"

namespace lumnis {

namespace {

// For how many nodes a source of theLength bytes gets room at once.
//
// Dense source makes two nodes of every three bytes. The room is larger, seven for every eight,
// because the C library keeps twice the largest block that was freed before it gives memory back to
// the system: with less room, memory would go back after each call and come again with a fault for
// each page. It is bounded because a large source may be mostly comment.
std::size_t nodesAhead(std::size_t theLength) noexcept {
    constexpr std::size_t theLargestRoom = 32768;
    return std::min(theLength / 8 * 7, theLargestRoom);
}

// A double beyond the floats becomes infinity, as IEEE 754 rounds it; the language leaves the
// plain conversion undefined.
float narrowed(double theValue) noexcept {
    // Halfway between the largest float and the next one, if there were one.
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

WscParser::WscParser(const CpsString& theSource, WscSourceTexts& theTexts)
    : lexerM(theSource, theTexts) {
    nodesM.reserve(nodesAhead(theSource.length()));
}

WscParser::~WscParser() = default;

int WscParser::yyparse() {
    FwTraceScope scope("WscParser::yyparse");
    return wscparse(*this);
}

void WscParser::yyerror(const CpsString& theText) const {
    throw WscCompilerException(lexerM.getCurrentLineNumber(), theText);
}

std::size_t WscParser::identifier(std::size_t theName) {
    make<WscAstIdentifier>().setName(theName);
    return last();
}

std::size_t WscParser::anOperator(std::int64_t theOperator) {
    make<WscAstOperator>().setOperator(static_cast<int>(theOperator));
    return last();
}

std::size_t WscParser::literal(std::size_t theText) {
    make<WscAstLiteral>().setStringLiteralValue(theText);
    return last();
}

std::size_t WscParser::invalidLiteral() {
    make<WscAstLiteral>().setInvalidValue();
    return last();
}

std::size_t WscParser::booleanLiteral(bool theValue) {
    make<WscAstLiteral>().setBooleanValue(theValue);
    return last();
}

std::size_t WscParser::integerLiteral(std::int64_t theValue) {
    make<WscAstLiteral>().setDecimalValue(static_cast<std::int32_t>(theValue));
    return last();
}

std::size_t WscParser::floatLiteral(double theValue) {
    make<WscAstLiteral>().setFloatingPointValue(narrowed(theValue));
    return last();
}

std::int32_t WscParser::negated(std::int64_t theValue) noexcept {
    return static_cast<std::int32_t>(0u - static_cast<std::uint32_t>(theValue));
}

std::size_t WscParser::sequence(std::size_t theLeft, std::size_t theOperator,
                                std::size_t theRight) {
    return node<WscAstBinaryExpressionSequence>(theLeft, theOperator, theRight);
}

std::size_t WscParser::extend(std::size_t theSequence, std::size_t theOperator,
                              std::size_t theRight) {
    addChild(theSequence, theOperator);
    addChild(theSequence, theRight);
    return theSequence;
}

std::size_t WscParser::function(std::size_t theExtern, std::size_t theName,
                                std::size_t theParameters, std::size_t theBlock) {
    if (theParameters == theNoNode) {
        theParameters = node<WscAstFormalParameterList>();
    }
    return node<WscAstFunctionDeclaration>(theExtern, identifier(theName), theParameters, theBlock);
}

std::size_t WscParser::forLoop(std::size_t theInit, std::size_t theCondition,
                               std::size_t theIncrement, std::size_t theBody) {
    const auto orEmpty = [this](std::size_t theNode) {
        return theNode == theNoNode ? empty() : theNode;
    };
    return node<WscAstForStatement>(orEmpty(theInit), orEmpty(theCondition), orEmpty(theIncrement),
                                    theBody);
}

}  // namespace lumnis
