// The grammar of XML: of a document's prolog, of its body and of an external DTD, chosen by the
// first token. Documents are validated by the actions; there is no tree.
//
// Where an action stands inside of a rule, and where the automaton reduces without a look at the
// next token, is part of what this file says: an action may change the condition of the scanner
// or use the text of a token, and lines and the order of the actors' calls follow from it. Bison
// reduces without lookahead where a state allows nothing else, so take care when a rule changes.
%define api.pure full
%define api.prefix {xp}
%define api.token.prefix {XP_}
%define api.value.type {lumnis::XpTokenValue}
%param {lumnis::XpParserBase& theParser}
// In five places more may be read where a rule could end, and then more is read. Bison counts a
// conflict for each token: Space behind externalDecls 4, CharData in content 3, in a replacement
// text 2, ExternalID in front of NDATA 4, PUBLIC with a second literal 4.
%expect 17

// In front of the macros by which bison renames yylex.
%code top {
#include "XpLexer.h"
#include "XpPlainContent.h"
}

%code requires {
#include "XpParserBase.h"
#include "XpTokenValue.h"
}

%code {
// The stack grows beyond yyparse's frame for deep documents. The parser owns that memory, so it is
// freed when an exception passes through.
#define YYMALLOC(theSize) theParser.allocateStack(theSize)
#define YYFREE(theBlock) theParser.freeStack(theBlock)

static int xplex(XPSTYPE* theValue, lumnis::XpParserBase& theParser) {
    return theParser.getLexer().readToken(*theValue);
}

static void xperror(lumnis::XpParserBase& theParser, const char* theMessage) {
    theParser.failToParse(theMessage);
}

// Reads plain content in one go. cmake/ReadPlainContent.cmake puts the call into the generated
// parser, in front of each decision of a state where content may follow.
static const lumnis::XpPlainContent& xpplainContent();
}

// Those that stand for text have no value: the scanner holds the text until the next token.
%token SPACE CHARDATA CDSECT COMMENT
%token <string> NAME NAME_TOKEN STRING
%token <codePoint> CHARREF
%token ENTITY_REFERENCE PE_REFERENCE
%token ELEMENTDECLSTART ATTLISTDECLSTART NOTATIONDECLSTART ENTITYDECLSTART DOCTYPESTART
%token RANGLE LPAREN RPAREN PCDATA REQUIRED IMPLIED FIXED
%token PIPE COMMA QUERY STAR PLUS PERCENT EQ
%token EMPTY ANY CDATA ID IDREF IDREFS ENTITY ENTITIES NMTOKEN NMTOKENS NOTATION
%token SYSTEM PUBLIC NDATA
%token <string> PI_TARGET
%token PI_EMPTY
%token <string> PI_STRING
%token START_COND_SECT END_COND_SECT LBRACK RBRACK IGNORE INCLUDE
%token <string> BEGIN_STAG ETAG
%token END_EMPTYTAG L_XMLDECL R_XMLDECL ENCODING STANDALONE
%token END_EXPANSION END_EXT_EXPANSION END_REFERENCE END_EXT_REFERENCE END_PROLOG
%token NORMAL_CHARS
%token PARSE_DTD PARSE_PROLOG PARSE_DOCUMENT TOKENS_DEFINED

%type <flag> sepSpace optStar
%type <string> Name Nmtoken
%type <modifier> optQueryStarPlus

%%

// What is parsed.

input:
    PARSE_PROLOG prolog flushCharData freeStrings { theParser.endProlog(yychar != XP_XPEMPTY); YYACCEPT; }
  | PARSE_PROLOG prolog flushCharData END_PROLOG freeStrings { YYACCEPT; }
  | PARSE_DTD externalDecls {
        if (yychar == XP_XPEMPTY) {
            yychar = xplex(&yylval, theParser);
        }
        theParser.endDtd(yychar == XP_YYEOF);
    }
  | PARSE_DOCUMENT element freeStrings Misc flushCharData freeStrings {
        if (yychar == XP_XPEMPTY) {
            yychar = xplex(&yylval, theParser);
        }
        theParser.endDocument(yychar == XP_YYEOF);
    }
  ;

// White space, with parameter entities that come and go, where declarations allow them.

Space:
    SPACE
  | PERef { theParser.enterParameterEntity(); }
  | EndPERef { theParser.leaveParameterEntity(); }
  | Space SPACE
  | Space PERef { theParser.enterParameterEntity(); }
  | Space EndPERef { theParser.leaveParameterEntity(); }
  ;

optSpc:
    %empty
  | Space
  ;

sepSpace:
    %empty { $$ = 0; }
  | SPACE { theParser.addSpace(theParser.getLexer().getTokenText()); $$ = 1; }
  ;

freeStrings:
    %empty { theParser.freeStrings(yychar != XP_XPEMPTY); }
  ;

// Keywords are names, too.

Name:
    NAME
  | EMPTY { $$ = theParser.keyword("EMPTY"); }
  | ANY { $$ = theParser.keyword("ANY"); }
  | CDATA { $$ = theParser.keyword("CDATA"); }
  | ID { $$ = theParser.keyword("ID"); }
  | IDREF { $$ = theParser.keyword("IDREF"); }
  | IDREFS { $$ = theParser.keyword("IDREFS"); }
  | ENTITY { $$ = theParser.keyword("ENTITY"); }
  | ENTITIES { $$ = theParser.keyword("ENTITIES"); }
  | NMTOKEN { $$ = theParser.keyword("NMTOKEN"); }
  | NMTOKENS { $$ = theParser.keyword("NMTOKENS"); }
  | NOTATION { $$ = theParser.keyword("NOTATION"); }
  | SYSTEM { $$ = theParser.keyword("SYSTEM"); }
  | PUBLIC { $$ = theParser.keyword("PUBLIC"); }
  | NDATA { $$ = theParser.keyword("NDATA"); }
  | IGNORE { $$ = theParser.keyword("IGNORE"); }
  | INCLUDE { $$ = theParser.keyword("INCLUDE"); }
  | ENCODING { $$ = theParser.keyword("encoding"); }
  | STANDALONE { $$ = theParser.keyword("standalone"); }
  ;

Nmtoken:
    NAME_TOKEN
  | Name
  ;

// Text and processing instructions.

CharData:
    singleCharData
  | CharData singleCharData
  | CharData EntityRef sepSpace EndRef
  ;

singleCharData:
    CHARDATA { theParser.addCharData(theParser.getLexer().getTokenText()); }
  | CHARREF { theParser.addCharacter($1); }
  | EntityRef CharData EndRef
  ;

PI:
    PI_TARGET PI_EMPTY { theParser.processInstruction(*$1, lumnis::CpsString()); }
  | PI_TARGET PI_STRING { theParser.processInstruction(*$1, *$2); }
  ;

// The prolog.

prolog:
    XMLDecl Misc flushCharData doctypedecl
  ;

XMLDecl:
    %empty
  | L_XMLDECL SPACE NAME optSpc EQ optSpc STRING EncSDDecl R_XMLDECL { theParser.declareVersion(*$3, *$7); }
  ;

EncSDDecl:
    %empty
  | SPACE EncodingDecl
  | SPACE SDDecl
  | SPACE EncodingDecl SPACE SDDecl
  ;

Misc:
    sepSpace
  | Misc flushCharData COMMENT sepSpace
  | Misc flushCharData PI sepSpace
  ;

doctypedecl:
    %empty
  | DOCTYPESTART SPACE Name optExternalIDIntSubset RANGLE Misc { theParser.setDoctypeName(*$3); }
  ;

optIntSubset:
    %empty
  | LBRACK { theParser.beginInternalSubset(); } intSubsetDecl RBRACK { theParser.endInternalSubset(); }
  ;

intSubsetDecl:
    %empty
  | intSubsetDecl markupdecl { theParser.freeStrings(yychar != XP_XPEMPTY); }
  | intSubsetDecl SPACE
  | intSubsetDecl PERef intSubsetDecl EndPERef
  ;

optExternalIDIntSubset:
    optIntSubset
  | SPACE optIntSubset
  | SPACE ExternalID { theParser.setExternalId(); } optSpc optIntSubset
  ;

markupdecl:
    elementdecl
  | AttlistDecl
  | EntityDecl
  | NotationDecl
  | PI
  | COMMENT
  ;

externalDecls:
    %empty
  | externalDecls PENestBegin markupdecl PENestEnd freeStrings
  | externalDecls conditionalSect freeStrings
  | externalDecls Space
  ;

SDDecl:
    STANDALONE optSpc EQ optSpc STRING { theParser.declareStandalone(*$5); }
  ;

PENestBegin:
    %empty { theParser.beginNesting(); }
  ;

PENestEnd:
    %empty { theParser.endNesting(); }
  ;

// Elements.

element:
    BEGIN_STAG { theParser.beginElement(*$1); } continueElement
  ;

continueElement:
    Attributes END_EMPTYTAG { theParser.endEmptyElement(); }
  | Attributes RANGLE { theParser.endStartTag(); } content flushCharData ETAG { theParser.endElement(*$6); }
  ;

Attributes:
    %empty
  | Attributes SPACE NAME optSpc EQ optSpc STRING { theParser.addAttribute(*$3, *$7); }
  ;

content:
    sepSpace { theParser.beginWithoutContent($1 != 0); }
  | moreContent singleContent sepSpace
  ;

flushCharData:
    %empty { theParser.flushCharData(); }
  ;

singleContent:
    flushCharData element freeStrings
  | CharData
  | flushCharData CDSECT freeStrings { theParser.addCdSection(); }
  | flushCharData PI freeStrings
  | flushCharData COMMENT freeStrings
  | EntityRef singleContent sepSpace EndRef
  | EntityRef sepSpace EndRef
  ;

moreContent:
    sepSpace { theParser.beginWithContent(); }
  | moreContent singleContent sepSpace
  ;

// Element declarations.

elementdecl:
    ELEMENTDECLSTART Space Name Space contentspec optSpc RANGLE { theParser.declareElement(*$3); }
  ;

contentspec:
    EMPTY { theParser.specifyEmpty(); }
  | ANY { theParser.specifyAny(); }
  | Mixed { theParser.specifyMixed(); }
  | children { theParser.specifyChildren(); }
  ;

children:
    singleCpChoiceSeq optQueryStarPlus { theParser.finishModel($2); }
  ;

singleCpChoiceSeq:
    singleCp
  | choice { theParser.choiceToUnit(); }
  | seq { theParser.seqToUnit(); }
  ;

cp:
    Name optQueryStarPlus { theParser.addName(*$1, $2); }
  | singleCpChoiceSeq optQueryStarPlus { theParser.modifyGroup($2); }
  ;

optQueryStarPlus:
    %empty { $$ = 0; }
  | QUERY { $$ = lumnis::XpModifier::OPTIONAL; }
  | STAR { $$ = lumnis::XpModifier::OPTIONAL | lumnis::XpModifier::REPEATED; }
  | PLUS { $$ = lumnis::XpModifier::REPEATED; }
  ;

singleCp:
    PENestBegin LPAREN optSpc cp optSpc RPAREN PENestEnd
  ;

choice:
    PENestBegin LPAREN optSpc moreChoice cp optSpc RPAREN PENestEnd { theParser.addToChoice(); }
  ;

moreChoice:
    cp optSpc PIPE optSpc { theParser.beginChoice(); }
  | moreChoice cp optSpc PIPE optSpc { theParser.addToChoice(); }
  ;

seq:
    PENestBegin LPAREN optSpc moreSeq cp optSpc RPAREN PENestEnd { theParser.addToSeq(); }
  ;

moreSeq:
    cp optSpc COMMA optSpc { theParser.beginSeq(); }
  | moreSeq cp optSpc COMMA optSpc { theParser.addToSeq(); }
  ;

Mixed:
    PENestBegin LPAREN optSpc PCDATA optSpc RPAREN optStar PENestEnd { theParser.mixText($7 != 0); }
  | PENestBegin LPAREN optSpc PCDATA optSpc PIPE optSpc mixedChoice optSpc RPAREN PENestEnd STAR { theParser.closeMixed(); }
  ;

mixedChoice:
    mixedChoice optSpc PIPE optSpc Name { theParser.mixElement(*$5); }
  | Name { theParser.mixFirstElement(*$1); }
  ;

optStar:
    %empty { $$ = 0; }
  | STAR { $$ = 1; }
  ;

// Attribute declarations.

AttlistDecl:
    ATTLISTDECLSTART Space Name AttDefs optSpc RANGLE { theParser.declareAttributes(*$3); }
  ;

AttDefs:
    %empty
  | AttDefs Space Name Space AttType Space DefaultDecl { theParser.defineAttribute(*$3); }
  | AttDefs Space Name Space AttType optSpc RANGLE { theParser.fail("attribute missing default declaration"); }
  | AttDefs Space Name optSpc RANGLE { theParser.fail("attribute missing type and default declaration"); }
  ;

AttType:
    CDATA { theParser.typeCData(); }
  | ID { theParser.typeId(); }
  | IDREF { theParser.typeIdRef(); }
  | IDREFS { theParser.typeIdRefs(); }
  | ENTITY { theParser.typeEntity(); }
  | ENTITIES { theParser.typeEntities(); }
  | NMTOKEN { theParser.typeNmToken(); }
  | NMTOKENS { theParser.typeNmTokens(); }
  | NOTATION Space LPAREN optSpc notationChoice optSpc RPAREN { theParser.typeNotation(); }
  | LPAREN optSpc enumChoice optSpc RPAREN { theParser.typeEnum(); }
  ;

notationChoice:
    notationChoice optSpc PIPE optSpc Name { theParser.chooseNotation(*$5); }
  | Name { theParser.chooseFirstNotation(*$1); }
  ;

enumChoice:
    enumChoice optSpc PIPE optSpc Nmtoken { theParser.chooseEnum(*$5); }
  | Nmtoken { theParser.chooseFirstEnum(*$1); }
  ;

DefaultDecl:
    REQUIRED { theParser.defaultRequired(); }
  | IMPLIED { theParser.defaultImplied(); }
  | FIXED Space STRING { theParser.defaultFixed(*$3); }
  | STRING { theParser.defaultValue(*$1); }
  ;

// Conditional sections.

conditionalSect:
    START_COND_SECT optSpc INCLUDE optSpc LBRACK externalDecls END_COND_SECT
  | START_COND_SECT optSpc IGNORE optSpc LBRACK { theParser.beginIgnored(); } ignoreSectContents END_COND_SECT { theParser.endIgnored(); }
  ;

ignoreSectContents:
    %empty
  | ignoreSectContents START_COND_SECT ignoreSectContents END_COND_SECT
  ;

// References.

EntityRef:
    ENTITY_REFERENCE { theParser.enterEntity(); }
  ;

EndRef:
    END_REFERENCE { theParser.leaveEntity(); }
  | END_EXT_REFERENCE { theParser.leaveExternalEntity(); }
  ;

PERef:
    PE_REFERENCE { theParser.expandParameterEntity(); }
  ;

EndPERef:
    END_EXPANSION
  | END_EXT_EXPANSION { theParser.releaseExternalText(); }
  ;

// Declarations of entities and notations.

EntityDecl:
    ENTITYDECLSTART Space Name Space EntityDef optSpc RANGLE { theParser.declareEntity(*$3); }
  | ENTITYDECLSTART Space PERCENT Space Name Space PEDef optSpc RANGLE { theParser.declareParameterEntity(*$5); }
  ;

EntityDef:
    STRING { theParser.setEntityText(*$1); }
  | ExternalID
  | ExternalID Space NDATA Space Name { theParser.setUnparsed(*$5); }
  ;

PEDef:
    STRING { theParser.setEntityText(*$1); }
  | ExternalID
  ;

ExternalID:
    SYSTEM Space STRING { theParser.setSystemId(*$3); }
  | PUBLIC Space STRING Space STRING { theParser.setPublicId(*$3, *$5); }
  ;

EncodingDecl:
    ENCODING optSpc EQ optSpc STRING
  ;

NotationDecl:
    NOTATIONDECLSTART Space Name Space ExternalOrPublicID optSpc RANGLE { theParser.declareNotation(*$3); }
  ;

ExternalOrPublicID:
    ExternalID
  | PUBLIC Space STRING { theParser.setPublicId(*$3); }
  ;

%%

namespace {

// The state behind theState and theSymbol, as the tables have it.
int stateBehind(int theState, int theSymbol) {
    if (theSymbol < YYNTOKENS) {
        return yytable[yypact[theState] + theSymbol];
    }
    const int nonterminal = theSymbol - YYNTOKENS;
    const int index = yypgoto[nonterminal] + theState;
    return 0 <= index && index <= YYLAST && yycheck[index] == theState ? yytable[index]
                                                                       : yydefgoto[nonterminal];
}

// The state behind the empty rule that is all that theState allows.
int stateBehindEmptyRule(int theState) {
    return stateBehind(theState, yyr1[yydefact[theState]]);
}

lumnis::XpPlainContent::States findContentStates() {
    const auto state = [](int theState) {
        return static_cast<lumnis::XpPlainContent::State>(theState);
    };
    lumnis::XpPlainContent::States states{};
    states.beginStag = state(stateBehind(stateBehind(0, YYSYMBOL_PARSE_DOCUMENT),
                                         YYSYMBOL_BEGIN_STAG));
    states.begun = state(stateBehindEmptyRule(states.beginStag));
    states.attributes = state(stateBehindEmptyRule(states.begun));
    states.rangle = state(stateBehind(states.attributes, YYSYMBOL_RANGLE));
    states.opened = state(stateBehindEmptyRule(states.rangle));
    states.content = state(stateBehind(states.opened, YYSYMBOL_moreContent));
    states.flushed = state(stateBehind(states.content, YYSYMBOL_flushCharData));
    states.singleContent = state(stateBehind(states.content, YYSYMBOL_singleContent));
    return states;
}

}  // namespace

static const lumnis::XpPlainContent& xpplainContent() {
    static const lumnis::XpPlainContent theContent(findContentStates());
    return theContent;
}
