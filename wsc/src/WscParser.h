// The parser of WMLScript: builds the syntax tree of one compilation unit and does nothing else.
// The grammar stands in WscGrammar.y, whose rules call the operations below.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "CpsString.h"
#include "FwArena.h"
#include "WscAstDeclarations.h"
#include "WscAstExpressions.h"
#include "WscAstPrimaries.h"
#include "WscAstStatements.h"
#include "WscLexer.h"
#include "WscUnitReductions.h"

namespace lumnis {

class WscParser {
  public:
    // theSource must outlive the parser.
    explicit WscParser(const CpsString& theSource);
    WscParser(const WscParser&) = delete;
    WscParser& operator=(const WscParser&) = delete;
    virtual ~WscParser();

    // Null until the unit is complete. The tree lives as long as the parser.
    const WscAstCompilationUnit* getAstRootNode() const noexcept { return rootM; }

    // Parses the whole source. Returns 0; every fault is thrown as WscCompilerException.
    int yyparse();
    // Ends the parse with theText and the lexer's line.
    [[noreturn]] void yyerror(const CpsString& theText) const;

    // For the grammar's rules.

    int nextToken(WscTokenValue& theValue) { return lexerM.yylex(theValue); }
    // A node on the lexer's line, with its children in order.
    template <class Node, class... Children>
    Node* node(Children*... theChildren) {
        static_assert(std::is_trivially_destructible_v<Node>);
        auto* result = nodesM.make<Node>(Node::theNodeType, lexerM.getCurrentLineNumber());
        (result->addChild(theChildren), ...);
        return result;
    }
    WscAstIdentifier* identifier(const WscName* theName) {
        auto* result = node<WscAstIdentifier>();
        result->setName(theName);
        return result;
    }
    WscAstOperator* anOperator(std::int64_t theOperator) {
        auto* result = node<WscAstOperator>();
        result->setOperator(static_cast<int>(theOperator));
        return result;
    }
    WscAstLiteral* literal(const CpsString* theString);
    WscAstLiteral* invalidLiteral();
    WscAstLiteral* booleanLiteral(bool theValue);
    WscAstLiteral* integerLiteral(std::int64_t theValue);
    // Narrowed to single precision.
    WscAstLiteral* floatLiteral(double theValue);
    // Of 32 bits: the smallest number is its own negation.
    static std::int32_t negated(std::int64_t theValue) noexcept;
    // Optional parts that are missing.
    WscSimpleNode* empty() { return node<WscAstEmpty>(); }
    // A sequence of one level of operators, begun and made longer.
    WscSimpleNode* sequence(WscSimpleNode* theLeft, WscSimpleNode* theOperator,
                            WscSimpleNode* theRight);
    WscSimpleNode* extend(WscSimpleNode* theSequence, WscSimpleNode* theOperator,
                          WscSimpleNode* theRight);
    // theParameters is null for none.
    WscSimpleNode* function(WscSimpleNode* theExtern, const WscName* theName,
                            WscSimpleNode* theParameters, WscSimpleNode* theBlock);
    // Null for each of the first three that is missing.
    WscSimpleNode* forLoop(WscSimpleNode* theInit, WscSimpleNode* theCondition,
                           WscSimpleNode* theIncrement, WscSimpleNode* theBody);
    void setRoot(WscAstCompilationUnit* theRoot) noexcept { rootM = theRoot; }
    UnitReductionMemo& unitReductions() noexcept { return unitReductionsM; }
    // The generated parser's stack once it has grown: it must go when an exception passes.
    void* allocateStack(std::size_t theSize) { return nodesM.allocate(theSize); }

  private:
    const WscAstCompilationUnit* rootM = nullptr;
    WscLexer lexerM;
    FwArena nodesM;
    UnitReductionMemo unitReductionsM;
};

}  // namespace lumnis
