/* The grammar of WMLScript (WMLScript standard, "WMLScript Syntactic Grammar"), with the node
 * that each rule makes.
 *
 * A node bears the line of the last token read. Whether a rule is reduced before or after the
 * token behind it is read depends on the automaton's default reductions, so those stay as they
 * are, lists grow to the left, and no rule is empty. */

%code requires {
#include "WscTokenValue.h"

namespace lumnis {
class WscParser;
}
}

%code top {
/* Ahead of the macros that give the parser's names a prefix. */
#include <cstring>

#include "WscParser.h"
#include "WscUnitReductions.h"

namespace {

int wsclex(lumnis::WscTokenValue* theValue, lumnis::WscParser& theParser) {
    return theParser.nextToken(*theValue);
}

/* The generated parser has texts of its own for the two faults that it can meet. */
[[noreturn]] void wscerror(lumnis::WscParser& theParser, const char* theText) {
    const bool isStackFull = std::strcmp(theText, "memory exhausted") == 0;
    theParser.yyerror(isStackFull ? "parser stack overflow" : "parse error");
}

}  // namespace
}

%code {

/* The stack's memory belongs to the parser object, which wscparse has in scope. */
#define YYMALLOC(theSize) theParser.allocateStack(theSize)
#define YYFREE(thePlace) static_cast<void>(thePlace)
#define YYINITDEPTH 200
#define YYMAXDEPTH 10000

using namespace lumnis;

namespace {

/* Nonterminals whose rules of one symbol hand its value up and do nothing else. */
constexpr bool isTransparent(int theSymbol) noexcept {
    switch (theSymbol) {
        case YYSYMBOL_Expression:
        case YYSYMBOL_AssignmentExpression:
        case YYSYMBOL_ConditionalExpression:
        case YYSYMBOL_LogicalOr:
        case YYSYMBOL_LogicalAnd:
        case YYSYMBOL_BitOr:
        case YYSYMBOL_BitXor:
        case YYSYMBOL_BitAnd:
        case YYSYMBOL_Equality:
        case YYSYMBOL_Relational:
        case YYSYMBOL_Shift:
        case YYSYMBOL_Additive:
        case YYSYMBOL_Multiplicative:
        case YYSYMBOL_UnaryExpression:
        case YYSYMBOL_PostfixExpression:
        case YYSYMBOL_CallExpression:
            return true;
        default:
            return false;
    }
}

template <std::size_t theStates, class Tables>
int passUnitReductions(int theState, int theStateBelow, int theToken, const Tables& theTables) {
    static_assert(theStates <= UnitReductionMemo::theLimit);
    static const auto theUnitRules = findUnitRules<theStates>(theTables, isTransparent);
    static constinit UnitReductionMemo theMemo;
    return theUnitRules[static_cast<std::size_t>(theState)] == 0
               ? theState
               : passUnits(theState, theStateBelow, theToken, theTables, theUnitRules, theMemo);
}

}  // namespace
}

%define api.pure full
%define api.prefix {wsc}
%define api.token.prefix {WSC_}
%define api.value.type {lumnis::WscTokenValue}
%param {lumnis::WscParser& theParser}

/* The dangling else, and a minus in front of a number: shift takes the nearest if and the
 * literal. */
%expect 3

%token FLOAT_LITERAL 258 INTEGER_LITERAL 259 IDENTIFIER 260 STRING_LITERAL 261

%token ACCESS 262 "access"  AGENT 263 "agent"  BREAK 264 "break"  CONTINUE 265 "continue"
       DIV 266 "div"  DIV_ASSIGN 267 "div="  DOMAIN 268 "domain"  ELSE 269 "else"
       EQUIV 270 "equiv"  EXTERN 271 "extern"  FOR 272 "for"  FUNCTION 273 "function"
       HEADER 274 "header"  HTTP 275 "http"  IF 276 "if"  ISVALID 277 "isvalid"
       META 278 "meta"  NAME 279 "name"  PATH 280 "path"  RETURN 281 "return"
       TYPEOF 282 "typeof"  URL 283 "url"  USE 284 "use"  USER 285 "user"  VAR 286 "var"
       WHILE 287 "while"  TRUE 288 "true"  FALSE 289 "false"  INVALID 290 "invalid"

%token SHIFT_RIGHT_ZERO_ASSIGN 291 ">>>="  SHIFT_RIGHT_ZERO 292 ">>>"
       SHIFT_RIGHT_ASSIGN 293 ">>="  SHIFT_LEFT_ASSIGN 294 "<<="
       ADD_ASSIGN 295 "+="  SUB_ASSIGN 296 "-="  MUL_ASSIGN 297 "*="  DIVIDE_ASSIGN 298 "/="
       REM_ASSIGN 299 "%="  AND_ASSIGN 300 "&="  XOR_ASSIGN 301 "^="  OR_ASSIGN 302 "|="
       SHIFT_RIGHT 303 ">>"  SHIFT_LEFT 304 "<<"  INCREMENT 305 "++"  DECREMENT 306 "--"
       AND 307 "&&"  OR 308 "||"  LESS_EQUAL 309 "<="  GREATER_EQUAL 310 ">="
       EQUAL 311 "=="  NOT_EQUAL 312 "!="

/* No tokens of the scanner: what an operator node holds for the signs. */
%token UNARY_MINUS 313 UNARY_PLUS 314

%start CompilationUnit

%%

/* The unit */

CompilationUnit:
    FunctionDeclarations            { theParser.setRoot(theParser.node<WscAstCompilationUnit>(theParser.node<WscAstPragmas>(), $1.node)); }
  | Pragmas FunctionDeclarations    { theParser.setRoot(theParser.node<WscAstCompilationUnit>($1.node, $2.node)); }
  ;

FunctionDeclarations:
    FunctionDeclaration                         { $$.node = theParser.node<WscAstFunctionDeclarations>($1.node); }
  | FunctionDeclarations FunctionDeclaration    { theParser.addChild($1.node, $2.node); $$ = $1; }
  ;

Pragmas:
    Pragma              { $$.node = theParser.node<WscAstPragmas>($1.node); }
  | Pragmas Pragma      { theParser.addChild($1.node, $2.node); $$ = $1; }
  ;

Pragma: "use" PragmaBody ';'    { $$ = $2; };

PragmaBody:
    "url" IDENTIFIER STRING_LITERAL
        { $$.node = theParser.node<WscAstExternalCompilationUnitPragma>(theParser.identifier($2.name), theParser.literal($3.text)); }
  | "access" "domain" STRING_LITERAL
        { $$.node = theParser.node<WscAstAccessControlDomain>(theParser.literal($3.text)); }
  | "access" "path" STRING_LITERAL
        { $$.node = theParser.node<WscAstAccessControlPath>(theParser.literal($3.text)); }
  | "access" "domain" STRING_LITERAL "path" STRING_LITERAL
        { $$.node = theParser.node<WscAstAccessControlDomainPath>(theParser.literal($3.text), theParser.literal($5.text)); }
  | "meta" "name" STRING_LITERAL STRING_LITERAL
        { $$.node = theParser.node<WscAstMetaName>(theParser.literal($3.text), theParser.literal($4.text), theParser.empty()); }
  | "meta" "name" STRING_LITERAL STRING_LITERAL STRING_LITERAL
        { $$.node = theParser.node<WscAstMetaName>(theParser.literal($3.text), theParser.literal($4.text), theParser.literal($5.text)); }
  | "meta" "http" "equiv" STRING_LITERAL STRING_LITERAL
        { $$.node = theParser.node<WscAstMetaHttpEquiv>(theParser.literal($4.text), theParser.literal($5.text), theParser.empty()); }
  | "meta" "http" "equiv" STRING_LITERAL STRING_LITERAL STRING_LITERAL
        { $$.node = theParser.node<WscAstMetaHttpEquiv>(theParser.literal($4.text), theParser.literal($5.text), theParser.literal($6.text)); }
  | "meta" "user" "agent" STRING_LITERAL STRING_LITERAL
        { $$.node = theParser.node<WscAstMetaUserAgent>(theParser.literal($4.text), theParser.literal($5.text), theParser.empty()); }
  | "meta" "user" "agent" STRING_LITERAL STRING_LITERAL STRING_LITERAL
        { $$.node = theParser.node<WscAstMetaUserAgent>(theParser.literal($4.text), theParser.literal($5.text), theParser.literal($6.text)); }
  ;

FunctionDeclaration:
    "function" IDENTIFIER '(' ')' Block
        { $$.node = theParser.function(theParser.empty(), $2.name, WscParser::theNoNode, $5.node); }
  | "function" IDENTIFIER '(' ')' Block ';'
        { $$.node = theParser.function(theParser.empty(), $2.name, WscParser::theNoNode, $5.node); }
  | "function" IDENTIFIER '(' FormalParameterList ')' Block
        { $$.node = theParser.function(theParser.empty(), $2.name, $4.node, $6.node); }
  | "function" IDENTIFIER '(' FormalParameterList ')' Block ';'
        { $$.node = theParser.function(theParser.empty(), $2.name, $4.node, $6.node); }
  | "extern" "function" IDENTIFIER '(' ')' Block
        { $$.node = theParser.function(theParser.node<WscAstExtern>(), $3.name, WscParser::theNoNode, $6.node); }
  | "extern" "function" IDENTIFIER '(' ')' Block ';'
        { $$.node = theParser.function(theParser.node<WscAstExtern>(), $3.name, WscParser::theNoNode, $6.node); }
  | "extern" "function" IDENTIFIER '(' FormalParameterList ')' Block
        { $$.node = theParser.function(theParser.node<WscAstExtern>(), $3.name, $5.node, $7.node); }
  | "extern" "function" IDENTIFIER '(' FormalParameterList ')' Block ';'
        { $$.node = theParser.function(theParser.node<WscAstExtern>(), $3.name, $5.node, $7.node); }
  ;

FormalParameterList:
    IDENTIFIER                              { $$.node = theParser.node<WscAstFormalParameterList>(theParser.identifier($1.name)); }
  | FormalParameterList ',' IDENTIFIER      { theParser.addChild($1.node, theParser.identifier($3.name)); $$ = $1; }
  ;

/* Statements */

Statement:
    Block                                   { $$.node = theParser.node<WscAstStatement>($1.node); }
  | "var" VariableDeclarationList ';'       { $$.node = theParser.node<WscAstStatement>($2.node); }
  | ';'                                     { $$.node = theParser.node<WscAstStatement>(theParser.empty()); }
  | Expression ';'                          { $$.node = theParser.node<WscAstStatement>($1.node); }
  | IfStatement                             { $$.node = theParser.node<WscAstStatement>($1.node); }
  | WhileStatement                          { $$.node = theParser.node<WscAstStatement>($1.node); }
  | ForStatement                            { $$.node = theParser.node<WscAstStatement>($1.node); }
  | ContinueStatement                       { $$.node = theParser.node<WscAstStatement>($1.node); }
  | BreakStatement                          { $$.node = theParser.node<WscAstStatement>($1.node); }
  | ReturnStatement                         { $$.node = theParser.node<WscAstStatement>($1.node); }
  ;

Block:
    '{' '}'                     { $$.node = theParser.node<WscAstBlock>(theParser.node<WscAstStatementList>()); }
  | '{' StatementList '}'       { $$.node = theParser.node<WscAstBlock>($2.node); }
  ;

StatementList:
    Statement                   { $$.node = theParser.node<WscAstStatementList>($1.node); }
  | StatementList Statement     { theParser.addChild($1.node, $2.node); $$ = $1; }
  ;

VariableDeclarationList:
    VariableDeclaration
  | VariableDeclarations
  ;

VariableDeclarations:
    VariableDeclaration ',' VariableDeclaration     { $$.node = theParser.node<WscAstStatementList>($1.node, $3.node); }
  | VariableDeclarations ',' VariableDeclaration    { theParser.addChild($1.node, $3.node); $$ = $1; }
  ;

VariableDeclaration:
    IDENTIFIER                              { $$.node = theParser.node<WscAstVariableDeclaration>(theParser.identifier($1.name), theParser.empty()); }
  | IDENTIFIER '=' ConditionalExpression    { $$.node = theParser.node<WscAstVariableDeclaration>(theParser.identifier($1.name), $3.node); }
  ;

IfStatement:
    "if" '(' Expression ')' Statement                   { $$.node = theParser.node<WscAstIfStatement>($3.node, $5.node, theParser.empty()); }
  | "if" '(' Expression ')' Statement "else" Statement  { $$.node = theParser.node<WscAstIfStatement>($3.node, $5.node, $7.node); }
  ;

WhileStatement:
    "while" '(' Expression ')' Statement    { $$.node = theParser.node<WscAstWhileStatement>($3.node, $5.node); }
  ;

ForStatement:
    "for" '(' ';' ';' ')' Statement
        { $$.node = theParser.forLoop(WscParser::theNoNode, WscParser::theNoNode, WscParser::theNoNode, $6.node); }
  | "for" '(' ';' ';' Expression ')' Statement
        { $$.node = theParser.forLoop(WscParser::theNoNode, WscParser::theNoNode, $5.node, $7.node); }
  | "for" '(' ';' Expression ';' ')' Statement
        { $$.node = theParser.forLoop(WscParser::theNoNode, $4.node, WscParser::theNoNode, $7.node); }
  | "for" '(' ';' Expression ';' Expression ')' Statement
        { $$.node = theParser.forLoop(WscParser::theNoNode, $4.node, $6.node, $8.node); }
  | "for" '(' Expression ';' ';' ')' Statement
        { $$.node = theParser.forLoop($3.node, WscParser::theNoNode, WscParser::theNoNode, $7.node); }
  | "for" '(' Expression ';' ';' Expression ')' Statement
        { $$.node = theParser.forLoop($3.node, WscParser::theNoNode, $6.node, $8.node); }
  | "for" '(' Expression ';' Expression ';' ')' Statement
        { $$.node = theParser.forLoop($3.node, $5.node, WscParser::theNoNode, $8.node); }
  | "for" '(' Expression ';' Expression ';' Expression ')' Statement
        { $$.node = theParser.forLoop($3.node, $5.node, $7.node, $9.node); }
  | "for" '(' "var" VariableDeclarationList ';' ';' ')' Statement
        { $$.node = theParser.forLoop($4.node, WscParser::theNoNode, WscParser::theNoNode, $8.node); }
  | "for" '(' "var" VariableDeclarationList ';' ';' Expression ')' Statement
        { $$.node = theParser.forLoop($4.node, WscParser::theNoNode, $7.node, $9.node); }
  | "for" '(' "var" VariableDeclarationList ';' Expression ';' ')' Statement
        { $$.node = theParser.forLoop($4.node, $6.node, WscParser::theNoNode, $9.node); }
  | "for" '(' "var" VariableDeclarationList ';' Expression ';' Expression ')' Statement
        { $$.node = theParser.forLoop($4.node, $6.node, $8.node, $10.node); }
  ;

ContinueStatement: "continue" ';'   { $$.node = theParser.node<WscAstContinueStatement>(); };

BreakStatement: "break" ';'         { $$.node = theParser.node<WscAstBreakStatement>(); };

ReturnStatement:
    "return" ';'                { $$.node = theParser.node<WscAstReturnStatement>(theParser.empty()); }
  | "return" Expression ';'     { $$.node = theParser.node<WscAstReturnStatement>($2.node); }
  ;

/* Expressions, from the loosest binding to the tightest. A level with one operand is that
 * operand; with more it is a sequence, made at its first operator. */

Expression:
    AssignmentExpression
  | ExpressionList
  ;

ExpressionList:
    AssignmentExpression ',' AssignmentExpression   { $$.node = theParser.node<WscAstExpressionList>($1.node, $3.node); }
  | ExpressionList ',' AssignmentExpression         { theParser.addChild($1.node, $3.node); $$ = $1; }
  ;

AssignmentExpression:
    ConditionalExpression
  | IDENTIFIER AssignmentOperator AssignmentExpression
        { $$.node = theParser.node<WscAstAssignmentExpression>(theParser.identifier($1.name), $2.node, $3.node); }
  ;

AssignmentOperator:
    '='         { $$.node = theParser.anOperator($1.token); }
  | "+="        { $$.node = theParser.anOperator($1.token); }
  | "-="        { $$.node = theParser.anOperator($1.token); }
  | "*="        { $$.node = theParser.anOperator($1.token); }
  | "/="        { $$.node = theParser.anOperator($1.token); }
  | "%="        { $$.node = theParser.anOperator($1.token); }
  | "&="        { $$.node = theParser.anOperator($1.token); }
  | "|="        { $$.node = theParser.anOperator($1.token); }
  | "^="        { $$.node = theParser.anOperator($1.token); }
  | "<<="       { $$.node = theParser.anOperator($1.token); }
  | ">>="       { $$.node = theParser.anOperator($1.token); }
  | ">>>="      { $$.node = theParser.anOperator($1.token); }
  | "div="      { $$.node = theParser.anOperator($1.token); }
  ;

ConditionalExpression:
    LogicalOr
  | LogicalOr '?' AssignmentExpression ':' AssignmentExpression
        { $$.node = theParser.node<WscAstConditionalExpression>($1.node, $3.node, $5.node); }
  ;

LogicalOr:
    LogicalAnd
  | LogicalOrSequence
  ;
LogicalOrSequence:
    LogicalAnd "||" LogicalAnd          { $$.node = theParser.node<WscAstOrExpressionSequence>($1.node, $3.node); }
  | LogicalOrSequence "||" LogicalAnd   { theParser.addChild($1.node, $3.node); $$ = $1; }
  ;

LogicalAnd:
    BitOr
  | LogicalAndSequence
  ;
LogicalAndSequence:
    BitOr "&&" BitOr                    { $$.node = theParser.node<WscAstAndExpressionSequence>($1.node, $3.node); }
  | LogicalAndSequence "&&" BitOr       { theParser.addChild($1.node, $3.node); $$ = $1; }
  ;

BitOr:
    BitXor
  | BitOrSequence
  ;
BitOrSequence:
    BitXor BitOrOperator BitXor         { $$.node = theParser.sequence($1.node, $2.node, $3.node); }
  | BitOrSequence BitOrOperator BitXor  { $$.node = theParser.extend($1.node, $2.node, $3.node); }
  ;
BitOrOperator: '|'                      { $$.node = theParser.anOperator($1.token); };

BitXor:
    BitAnd
  | BitXorSequence
  ;
BitXorSequence:
    BitAnd BitXorOperator BitAnd            { $$.node = theParser.sequence($1.node, $2.node, $3.node); }
  | BitXorSequence BitXorOperator BitAnd    { $$.node = theParser.extend($1.node, $2.node, $3.node); }
  ;
BitXorOperator: '^'                     { $$.node = theParser.anOperator($1.token); };

BitAnd:
    Equality
  | BitAndSequence
  ;
BitAndSequence:
    Equality BitAndOperator Equality        { $$.node = theParser.sequence($1.node, $2.node, $3.node); }
  | BitAndSequence BitAndOperator Equality  { $$.node = theParser.extend($1.node, $2.node, $3.node); }
  ;
BitAndOperator: '&'                     { $$.node = theParser.anOperator($1.token); };

Equality:
    Relational
  | EqualitySequence
  ;
EqualitySequence:
    Relational EqualityOperator Relational          { $$.node = theParser.sequence($1.node, $2.node, $3.node); }
  | EqualitySequence EqualityOperator Relational    { $$.node = theParser.extend($1.node, $2.node, $3.node); }
  ;
EqualityOperator:
    "=="        { $$.node = theParser.anOperator($1.token); }
  | "!="        { $$.node = theParser.anOperator($1.token); }
  ;

Relational:
    Shift
  | RelationalSequence
  ;
RelationalSequence:
    Shift RelationalOperator Shift              { $$.node = theParser.sequence($1.node, $2.node, $3.node); }
  | RelationalSequence RelationalOperator Shift { $$.node = theParser.extend($1.node, $2.node, $3.node); }
  ;
RelationalOperator:
    '<'         { $$.node = theParser.anOperator($1.token); }
  | '>'         { $$.node = theParser.anOperator($1.token); }
  | "<="        { $$.node = theParser.anOperator($1.token); }
  | ">="        { $$.node = theParser.anOperator($1.token); }
  ;

Shift:
    Additive
  | ShiftSequence
  ;
ShiftSequence:
    Additive ShiftOperator Additive         { $$.node = theParser.sequence($1.node, $2.node, $3.node); }
  | ShiftSequence ShiftOperator Additive    { $$.node = theParser.extend($1.node, $2.node, $3.node); }
  ;
ShiftOperator:
    "<<"        { $$.node = theParser.anOperator($1.token); }
  | ">>"        { $$.node = theParser.anOperator($1.token); }
  | ">>>"       { $$.node = theParser.anOperator($1.token); }
  ;

Additive:
    Multiplicative
  | AdditiveSequence
  ;
AdditiveSequence:
    Multiplicative AdditiveOperator Multiplicative      { $$.node = theParser.sequence($1.node, $2.node, $3.node); }
  | AdditiveSequence AdditiveOperator Multiplicative    { $$.node = theParser.extend($1.node, $2.node, $3.node); }
  ;
AdditiveOperator:
    '+'         { $$.node = theParser.anOperator($1.token); }
  | '-'         { $$.node = theParser.anOperator($1.token); }
  ;

Multiplicative:
    UnaryExpression
  | MultiplicativeSequence
  ;
MultiplicativeSequence:
    UnaryExpression MultiplicativeOperator UnaryExpression          { $$.node = theParser.sequence($1.node, $2.node, $3.node); }
  | MultiplicativeSequence MultiplicativeOperator UnaryExpression   { $$.node = theParser.extend($1.node, $2.node, $3.node); }
  ;
MultiplicativeOperator:
    '*'         { $$.node = theParser.anOperator($1.token); }
  | '/'         { $$.node = theParser.anOperator($1.token); }
  | "div"       { $$.node = theParser.anOperator($1.token); }
  | '%'         { $$.node = theParser.anOperator($1.token); }
  ;

UnaryExpression:
    PostfixExpression
  | "typeof" UnaryExpression        { $$.node = theParser.node<WscAstUnaryExpression>(theParser.anOperator($1.token), $2.node); }
  | "isvalid" UnaryExpression       { $$.node = theParser.node<WscAstUnaryExpression>(theParser.anOperator($1.token), $2.node); }
  | "++" IDENTIFIER                 { $$.node = theParser.node<WscAstUnaryExpression>(theParser.anOperator($1.token), theParser.identifier($2.name)); }
  | "--" IDENTIFIER                 { $$.node = theParser.node<WscAstUnaryExpression>(theParser.anOperator($1.token), theParser.identifier($2.name)); }
  | '-' FLOAT_LITERAL               { $$.node = theParser.floatLiteral(-$2.floatValue); }
  | '-' INTEGER_LITERAL             { $$.node = theParser.integerLiteral(theParser.negated($2.integerValue)); }
  | UnaryOperator UnaryExpression   { $$.node = theParser.node<WscAstUnaryExpression>($1.node, $2.node); }
  ;

UnaryOperator:
    '+'         { $$.node = theParser.anOperator(WSC_UNARY_PLUS); }
  | '-'         { $$.node = theParser.anOperator(WSC_UNARY_MINUS); }
  | '~'         { $$.node = theParser.anOperator($1.token); }
  | '!'         { $$.node = theParser.anOperator($1.token); }
  ;

PostfixExpression:
    CallExpression
  | IDENTIFIER "++"     { $$.node = theParser.node<WscAstPostfixExpression>(theParser.identifier($1.name), theParser.anOperator($2.token)); }
  | IDENTIFIER "--"     { $$.node = theParser.node<WscAstPostfixExpression>(theParser.identifier($1.name), theParser.anOperator($2.token)); }
  ;

CallExpression:
    IDENTIFIER Arguments                    { $$.node = theParser.node<WscAstLocalScriptFunctionCall>(theParser.identifier($1.name), $2.node); }
  | IDENTIFIER '#' IDENTIFIER Arguments     { $$.node = theParser.node<WscAstExternalScriptFunctionCall>(theParser.identifier($1.name), theParser.identifier($3.name), $4.node); }
  | IDENTIFIER '.' IDENTIFIER Arguments     { $$.node = theParser.node<WscAstLibraryFunctionCall>(theParser.identifier($1.name), theParser.identifier($3.name), $4.node); }
  | PrimaryExpression
  ;

Arguments:
    '(' ')'                     { $$.node = theParser.node<WscAstArgumentList>(); }
  | '(' ArgumentList ')'        { $$ = $2; }
  ;

ArgumentList:
    AssignmentExpression                    { $$.node = theParser.node<WscAstArgumentList>($1.node); }
  | ArgumentList ',' AssignmentExpression   { theParser.addChild($1.node, $3.node); $$ = $1; }
  ;

PrimaryExpression:
    IDENTIFIER              { $$.node = theParser.identifier($1.name); }
  | Literal
  | '(' Expression ')'      { $$.node = theParser.node<WscAstExpression>($2.node); }
  ;

Literal:
    "invalid"               { $$.node = theParser.invalidLiteral(); }
  | "true"                  { $$.node = theParser.booleanLiteral(true); }
  | "false"                 { $$.node = theParser.booleanLiteral(false); }
  | FLOAT_LITERAL           { $$.node = theParser.floatLiteral($1.floatValue); }
  | INTEGER_LITERAL         { $$.node = theParser.integerLiteral($1.integerValue); }
  | STRING_LITERAL          { $$.node = theParser.literal($1.text); }
  ;
