// The rules of the scanner: longest match, and of equally long ones the first.
//
// Several rules have no word of their own in XML: they match what has gone wrong, so that the
// message is about that. Most match the beginning of the right thing, and win where it does not go
// on; some match more than the right thing on purpose, such as "#REQUIREDx" or "]]" for "]".

#include "XpGrammar.h"
#include "XpInternalError.h"
#include "XpLexer.h"

namespace lumnis {

/*!include:re2c "XpNames.re" */

int XpLexer::yylex() {
    for (;;) {
        const unsigned char* cursor = cursorM;
        const unsigned char* const limit = limitM;
        const unsigned char* marker;
        // clang-format off
        /*!re2c
            re2c:define:YYCTYPE = "unsigned char";
            re2c:define:YYCURSOR = cursor;
            re2c:define:YYLIMIT = limit;
            re2c:define:YYMARKER = marker;
            re2c:define:YYGETCONDITION = "conditionM";
            re2c:define:YYGETCONDITION:naked = 1;
            re2c:condenumprefix = "";
            re2c:yyfill:enable = 0;
            re2c:eof = 0;

            any = [\x00-\xff];
            S = [\t\n\r ]+;
            optS = [\t\n\r ]*;
            name = nameStart nameChar*;
            nmtoken = nameChar+;
            // Of the text in which a comment, a CDATA section, an instruction does not end.
            inComment = [^-] | "-" [^-];
            inCdata = [^\]] | "]" [^\]] | "]]" "]"* [^\]>];
            inPi = [^?] | "?"+ [^?>];
            // Of a run of character data in which "]]>" does not occur.
            inText = [^<&\]] | "]" [^<&\]] | "]]" "]"* [^<&\]>];
            // Of ignored text. A "<" that the byte behind it makes part of a mark is not in it, nor
            // are the "<" directly in front of that one, which each rule adds.
            inIgnored = [^<\]] | "<"+ [^<!\]];
            ignored = inIgnored*;
            ignoredUpTo = ignored "<"*;

            <*> $ { return endInput(); }

            <PROLOG> "<?xml"    { takeWord(cursor); return XP_L_XMLDECL; }
            <PROLOG> optS "?>"  { take(cursor); return XP_R_XMLDECL; }
            <PROLOG> optS "?"   { take(cursor); fail("syntax error at ?"); }
            <PROLOG> "encoding"   { takeWord(cursor); return XP_ENCODING; }
            <PROLOG> "standalone" { takeWord(cursor); return XP_STANDALONE; }

            <DTD, PROLOG, CONTENT> "<!--" inComment* "-->" {
                takeRun(cursor);
                return textToken(XP_COMMENT, inner(4, 3));
            }
            <DTD, PROLOG, CONTENT> "<!--" inComment* "--" { takeRun(cursor); fail("-- inside comment"); }
            <DTD, PROLOG, CONTENT> "<!--" inComment* "-"? { takeRun(cursor); fail("unterminated comment"); }
            <DTD, PROLOG, CONTENT> "<!" "-"? { takeWord(cursor); fail("syntax error at <!"); }

            <DTD> "<!ELEMENT"     { takeWord(cursor); return XP_ELEMENTDECLSTART; }
            <DTD> "<!ATTLIST"     { takeWord(cursor); return XP_ATTLISTDECLSTART; }
            <DTD> "<!NOTATION"    { takeWord(cursor); return XP_NOTATIONDECLSTART; }
            <DTD> "<!ENTITY"      { takeWord(cursor); return XP_ENTITYDECLSTART; }
            <PROLOG> "<!DOCTYPE"  { takeWord(cursor); return XP_DOCTYPESTART; }

            <DTD> "<![" optS  { take(cursor); return XP_START_COND_SECT; }
            <DTD> "]]>"       { takeWord(cursor); return XP_END_COND_SECT; }
            <DTD> "]]"        { takeWord(cursor); fail("syntax error at ]]"); }
            <IGNORESECT> ignoredUpTo "<!["     { takeRun(cursor); return XP_START_COND_SECT; }
            <IGNORESECT> ignored "]" "]"+ ">"  { takeRun(cursor); return XP_END_COND_SECT; }
            <IGNORESECT> inIgnored+            { takeRun(cursor); continue; }
            // What is matched is counted: a line feed that is given back counts here, and once more
            // when it is read again.
            <IGNORESECT> ignoredUpTo "<!" [^[]  { takeRun(cursor); --cursorM; continue; }
            <IGNORESECT> ignored "]"+ [^\]>]    { takeRun(cursor); --cursorM; continue; }
            <IGNORESECT> ignored "]>"           { takeRun(cursor); continue; }
            <IGNORESECT> ignoredUpTo ("<" | "<!") | ignored ("]" | "]]") {
                takeRun(cursor);
                fail("unterminated conditional section");
            }

            <DTD, PROLOG> "<!" nmtoken { takeWord(cursor); failAtText("syntax error: "); }

            <DTD, PROLOG, CONTENT> "<?" name {
                takeWord(cursor);
                yy_push_state(PITARGET);
                return stringToken(XP_PI_TARGET, inner(2, 0));
            }
            <DTD, PROLOG, CONTENT> "<?" { takeWord(cursor); fail("expected processor instruction target"); }
            <PITARGET> "?>" { takeWord(cursor); yy_pop_state(); return XP_PI_EMPTY; }
            <PITARGET> S    { take(cursor); conditionM = PIDATA; continue; }
            <PITARGET> any  { take(cursor); fail("processor instruction syntax error"); }
            <PIDATA> inPi* "?"+ ">" {
                takeRun(cursor);
                yy_pop_state();
                return stringToken(XP_PI_STRING, inner(0, 2));
            }
            <PIDATA> inPi+ "?"* | "?"+ { takeRun(cursor); fail("unterminated processor instruction"); }

            <DTD, PROLOG, TAG> optS ">" { take(cursor); return XP_RANGLE; }
            <DTD> "(" optS          { take(cursor); return XP_LPAREN; }
            <DTD> optS ")"          { take(cursor); return XP_RPAREN; }
            <DTD, PROLOG> "[" optS  { take(cursor); return XP_LBRACK; }
            <DTD> "]"               { takeWord(cursor); return XP_RBRACK; }
            <DTD> "#PCDATA" optS    { take(cursor); return XP_PCDATA; }
            <DTD> optS "|" optS     { take(cursor); return XP_PIPE; }
            <DTD> optS "," optS     { take(cursor); return XP_COMMA; }
            <DTD> "?"               { takeWord(cursor); return XP_QUERY; }
            <DTD> "*"               { takeWord(cursor); return XP_STAR; }
            <DTD> "+"               { takeWord(cursor); return XP_PLUS; }
            <DTD> "%"               { takeWord(cursor); return XP_PERCENT; }
            <PROLOG, TAG> "="       { takeWord(cursor); return XP_EQ; }
            <DTD, PROLOG, CONTENT, TAG> S { take(cursor); return textToken(XP_SPACE, yytextM); }
            <ATTNAME, ATTNMTOKEN> S { take(cursor); continue; }

            <DTD> "EMPTY"           { takeWord(cursor); return XP_EMPTY; }
            <DTD> "ANY"             { takeWord(cursor); return XP_ANY; }
            <DTD> "CDATA"           { takeWord(cursor); return XP_CDATA; }
            <DTD> "ID"              { takeWord(cursor); return XP_ID; }
            <DTD> "IDREF"           { takeWord(cursor); return XP_IDREF; }
            <DTD> "IDREFS"          { takeWord(cursor); return XP_IDREFS; }
            <DTD> "ENTITY"          { takeWord(cursor); return XP_ENTITY; }
            <DTD> "ENTITIES"        { takeWord(cursor); return XP_ENTITIES; }
            <DTD> "NMTOKEN"         { takeWord(cursor); return XP_NMTOKEN; }
            <DTD> "NMTOKENS"        { takeWord(cursor); return XP_NMTOKENS; }
            <DTD> "NOTATION"        { takeWord(cursor); return XP_NOTATION; }
            <DTD, PROLOG> "SYSTEM"  { takeWord(cursor); return XP_SYSTEM; }
            <DTD, PROLOG> "PUBLIC"  { takeWord(cursor); return XP_PUBLIC; }
            <DTD> "NDATA"           { takeWord(cursor); return XP_NDATA; }
            <DTD> "INCLUDE"         { takeWord(cursor); return XP_INCLUDE; }
            <DTD> "IGNORE"          { takeWord(cursor); return XP_IGNORE; }
            <DTD> "#REQUIRED"       { takeWord(cursor); return XP_REQUIRED; }
            <DTD> "#IMPLIED"        { takeWord(cursor); return XP_IMPLIED; }
            <DTD> "#FIXED"          { takeWord(cursor); return XP_FIXED; }
            <DTD> "#" nameChar+     { takeWord(cursor); failAtText("syntax error: "); }

            <DTD, PROLOG, TAG> name {
                takeWord(cursor);
                return stringToken(XP_NAME, yytextM);
            }
            <ATTNAME> name { takeWord(cursor); return textToken(XP_NAME, yytextM); }
            <DTD> nmtoken {
                takeWord(cursor);
                return stringToken(XP_NAME_TOKEN, yytextM);
            }
            <ATTNMTOKEN> nmtoken { takeWord(cursor); return textToken(XP_NAME_TOKEN, yytextM); }
            <DTD, PROLOG, TAG> ["] [^"]* ["] { takeRun(cursor); return stringToken(XP_STRING, inner(1, 1)); }
            <DTD, PROLOG, TAG> ['] [^']* ['] { takeRun(cursor); return stringToken(XP_STRING, inner(1, 1)); }
            <DTD, PROLOG, TAG> ["] { takeWord(cursor); fail("unmatched \""); }
            <DTD, PROLOG, TAG> ['] { takeWord(cursor); fail("unmatched '"); }

            <CONTENT> "<" name {
                takeWord(cursor);
                return stringToken(XP_BEGIN_STAG, inner(1, 0));
            }
            <CONTENT> "</" name optS ">" {
                take(cursor);
                const std::size_t end = yytextM.find_last_not_of("\t\n\r >") + 1;
                return stringToken(XP_ETAG, yytextM.substr(2, end - 2));
            }
            <CONTENT> "</" name? optS { take(cursor); failAtText("syntax error: "); }
            <TAG> optS "/>" { take(cursor); return XP_END_EMPTYTAG; }
            <TAG> optS "/"  { take(cursor); failAtText("syntax error: "); }

            <CONTENT> inText+ "]"* | "]"+ { takeRun(cursor); return textToken(XP_CHARDATA, yytextM); }
            <CONTENT> inText* "]" "]"+ ">" { takeRun(cursor); fail("unexpected ]]>"); }
            <CONTENT> "<![CDATA[" inCdata* "]" "]"+ ">" {
                takeRun(cursor);
                return textToken(XP_CDSECT, inner(9, 3));
            }
            <CONTENT> "<![" nmtoken? "["? { takeWord(cursor); failAtText("syntax error: "); }
            <CONTENT> "<![CDATA[" inCdata* "]"* { takeRun(cursor); fail("unterminated CDATA section"); }

            <ENTITYVALUE> [^%&]+ { takeRun(cursor); return textToken(XP_NORMAL_CHARS, yytextM); }
            <ATTVALUE> [^<&]+    { takeRun(cursor); return textToken(XP_NORMAL_CHARS, yytextM); }
            <DTD, ENTITYVALUE> "%" name ";" {
                takeWord(cursor);
                return textToken(XP_PE_REFERENCE, inner(1, 1));
            }
            <DTD, ENTITYVALUE> "%" nmtoken { takeWord(cursor); failAtText("missing ; following "); }
            <ENTITYVALUE> "%" { takeWord(cursor); fail("illegal token following %"); }
            <CONTENT, ENTITYVALUE, ATTVALUE> "&" name ";" {
                takeWord(cursor);
                return textToken(XP_ENTITY_REFERENCE, inner(1, 1));
            }
            <CONTENT, ENTITYVALUE, ATTVALUE> "&" name { takeWord(cursor); failAtText("missing ; following "); }
            <CONTENT, ENTITYVALUE, ATTVALUE> "&#" [0-9]+ ";" {
                takeWord(cursor);
                return characterToken(inner(2, 1), 10);
            }
            <CONTENT, ENTITYVALUE, ATTVALUE> "&#" [0-9]* {
                takeWord(cursor);
                failAtText("missing ; or illegal character in character entity ");
            }
            <CONTENT, ENTITYVALUE, ATTVALUE> "&#x" [0-9A-Fa-f]+ ";" {
                takeWord(cursor);
                return characterToken(inner(3, 1), 16);
            }
            <CONTENT, ENTITYVALUE, ATTVALUE> "&#x" [0-9A-Fa-f]* {
                takeWord(cursor);
                failAtText("missing ; or illegal character in character entity ");
            }
            <CONTENT, ENTITYVALUE, ATTVALUE> "&" { takeWord(cursor); fail("syntax error at &"); }
            <PROLOG> any { return XP_END_PROLOG; }
            <DTD, CONTENT, TAG, ATTVALUE> any { takeWord(cursor); failAtText("unexpected or illegal character: "); }
            <ATTNAME, ATTNMTOKEN> any { takeWord(cursor); fail("name token expected"); }
            <*> * { throw XpInternalError("flex scanner jammed"); }
        */
        // clang-format on
    }
}

}  // namespace lumnis
