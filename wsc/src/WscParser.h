// The parser of WMLScript: builds the syntax tree of one compilation unit and does nothing else.
// The grammar stands in WscGrammar.y, whose rules call the operations below.
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>

#include "CpsArray.h"
#include "CpsString.h"
#include "FwArena.h"
#include "WscAstDeclarations.h"
#include "WscAstExpressions.h"
#include "WscAstPrimaries.h"
#include "WscAstStatements.h"
#include "WscLexer.h"

namespace lumnis {

class WscParser {
  public:
    // A node that is missing.
    static constexpr std::size_t theNoNode = static_cast<std::size_t>(-1);

    // theSource and theTexts, which takes its names and literals, must outlive the parser.
    WscParser(const CpsString& theSource, WscSourceTexts& theTexts);
    WscParser(const WscParser&) = delete;
    WscParser& operator=(const WscParser&) = delete;
    virtual ~WscParser();

    // Null until the unit is complete. The tree lives as long as the parser.
    const WscSimpleNode* getAstRootNode() const noexcept {
        return rootM == theNoNode ? nullptr : &nodesM[rootM];
    }

    // Parses the whole source. Returns 0; every fault is thrown as WscCompilerException.
    int yyparse();
    // Ends the parse with theText and the lexer's line.
    [[noreturn]] void yyerror(const CpsString& theText) const;

    // For the grammar's rules. A node is named by its number until the tree is complete: the array
    // of the nodes moves when it grows.

    int nextToken(WscTokenValue& theValue) { return lexerM.yylex(theValue); }
    // A node on the lexer's line, with its children in order.
    template <class Node, class... Children>
    std::size_t node(Children... theChildren) {
        const std::size_t result = nodesM.size();
        make<Node>();
        if constexpr (sizeof...(theChildren) != 0) {
            nodesM[result].setChildren(nodesM[theChildren]...);
        }
        return result;
    }
    void addChild(std::size_t theParent, std::size_t theChild) noexcept {
        nodesM[theParent].addChild(nodesM[theChild]);
    }
    // theName: number of a name in WscSourceTexts.
    std::size_t identifier(std::size_t theName);
    std::size_t anOperator(std::int64_t theOperator);
    // theText: number of a string in WscSourceTexts.
    std::size_t literal(std::size_t theText);
    std::size_t invalidLiteral();
    std::size_t booleanLiteral(bool theValue);
    std::size_t integerLiteral(std::int64_t theValue);
    // Narrowed to single precision.
    std::size_t floatLiteral(double theValue);
    // Of 32 bits: the smallest number is its own negation.
    static std::int32_t negated(std::int64_t theValue) noexcept;
    // For an optional part that is missing.
    std::size_t empty() { return node<WscAstEmpty>(); }
    // Begins a sequence of operands and operators of one level, and makes it longer.
    std::size_t sequence(std::size_t theLeft, std::size_t theOperator, std::size_t theRight);
    std::size_t extend(std::size_t theSequence, std::size_t theOperator, std::size_t theRight);
    // theParameters is theNoNode for none.
    std::size_t function(std::size_t theExtern, std::size_t theName, std::size_t theParameters,
                         std::size_t theBlock);
    // Each of the first three is theNoNode if it is missing.
    std::size_t forLoop(std::size_t theInit, std::size_t theCondition, std::size_t theIncrement,
                        std::size_t theBody);
    void setRoot(std::size_t theRoot) noexcept { rootM = theRoot; }
    // Memory for the generated parser's stack once it has grown. It belongs to this object, since
    // an exception passes by the generated code that would free it.
    void* allocateStack(std::size_t theSize) { return stackM.allocate(theSize); }

  private:
    // As many as the distances between nodes, of 32 bits, can tell apart; 32 GiB.
    static constexpr std::size_t theMostNodes = std::size_t{1} << 31;

    template <class Node>
    Node& make() {
        if (nodesM.size() == theMostNodes) {
            throw std::bad_alloc();
        }
        return nodesM.appendAs<Node>(Node::theNodeType, lexerM.getCurrentLineNumber());
    }
    // The number of the node made last.
    std::size_t last() const noexcept { return nodesM.size() - 1; }

    WscLexer lexerM;
    CpsArray<WscSimpleNode, 64> nodesM;
    std::size_t rootM = theNoNode;
    FwArena stackM;
};

}  // namespace lumnis
