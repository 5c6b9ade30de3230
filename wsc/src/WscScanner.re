// The scanner's rules. Longest match wins; of two that match the same length, the earlier.
#include "WscGrammar.h"
#include "WscLexer.h"

namespace lumnis {

// clang-format off
/*!re2c
    re2c:define:YYCTYPE = "unsigned char";
    re2c:define:YYCURSOR = cursor;
    re2c:define:YYLIMIT = limitM;
    re2c:define:YYMARKER = marker;
    re2c:yyfill:enable = 0;
    re2c:eof = 0;

    any = [\x00-\xff];
    decimal = "0" | [1-9][0-9]*;
    exponent = [eE][+-]?[0-9]+;
    reserved = "delete" | "in" | "lib" | "new" | "null" | "this" | "void" | "with" | "case" |
               "catch" | "class" | "const" | "debugger" | "default" | "do" | "enum" | "export" |
               "extends" | "finally" | "import" | "private" | "sizeof" | "struct" | "super" |
               "switch" | "throw" | "try" | "public";
*/
// clang-format on

int WscLexer::scan() {
    for (;;) {
        const unsigned char* cursor = cursorM;
        const unsigned char* marker;
        // clang-format off
        /*!re2c
            $                { return 0; }

            "\"" | "'"       { take(cursor); return scanString() ? WSC_STRING_LITERAL : 0; }
            "/*"             { take(cursor); skipBlockComment(); continue; }
            "//"             { take(cursor); skipLineComment(); continue; }

            "access"         { return token(cursor, WSC_ACCESS); }
            "agent"          { return token(cursor, WSC_AGENT); }
            "break"          { return token(cursor, WSC_BREAK); }
            "continue"       { return token(cursor, WSC_CONTINUE); }
            "div"            { return token(cursor, WSC_DIV); }
            "div="           { return token(cursor, WSC_DIV_ASSIGN); }
            "domain"         { return token(cursor, WSC_DOMAIN); }
            "else"           { return token(cursor, WSC_ELSE); }
            "equiv"          { return token(cursor, WSC_EQUIV); }
            "extern"         { return token(cursor, WSC_EXTERN); }
            "for"            { return token(cursor, WSC_FOR); }
            "function"       { return token(cursor, WSC_FUNCTION); }
            "header"         { return token(cursor, WSC_HEADER); }
            "http"           { return token(cursor, WSC_HTTP); }
            "if"             { return token(cursor, WSC_IF); }
            "isvalid"        { return token(cursor, WSC_ISVALID); }
            "meta"           { return token(cursor, WSC_META); }
            "name"           { return token(cursor, WSC_NAME); }
            "path"           { return token(cursor, WSC_PATH); }
            "return"         { return token(cursor, WSC_RETURN); }
            "typeof"         { return token(cursor, WSC_TYPEOF); }
            "url"            { return token(cursor, WSC_URL); }
            "use"            { return token(cursor, WSC_USE); }
            "user"           { return token(cursor, WSC_USER); }
            "var"            { return token(cursor, WSC_VAR); }
            "while"          { return token(cursor, WSC_WHILE); }
            "true"           { return token(cursor, WSC_TRUE); }
            "false"          { return token(cursor, WSC_FALSE); }
            "invalid"        { return token(cursor, WSC_INVALID); }

            reserved         { take(cursor); reservedWord(textM); }

            [a-zA-Z_][a-zA-Z0-9_]* { take(cursor); return identifier(textM); }

            "0"[xX][0-9a-fA-F]+ | "0"[0-7]+ | decimal { take(cursor); return integerLiteral(textM); }

            decimal exponent | "."[0-9]+ exponent? | decimal "."[0-9]* exponent? {
                take(cursor);
                return floatLiteral(textM);
            }

            ">>>="           { return token(cursor, WSC_SHIFT_RIGHT_ZERO_ASSIGN); }
            ">>>"            { return token(cursor, WSC_SHIFT_RIGHT_ZERO); }
            ">>="            { return token(cursor, WSC_SHIFT_RIGHT_ASSIGN); }
            "<<="            { return token(cursor, WSC_SHIFT_LEFT_ASSIGN); }
            "+="             { return token(cursor, WSC_ADD_ASSIGN); }
            "-="             { return token(cursor, WSC_SUB_ASSIGN); }
            "*="             { return token(cursor, WSC_MUL_ASSIGN); }
            "/="             { return token(cursor, WSC_DIVIDE_ASSIGN); }
            "%="             { return token(cursor, WSC_REM_ASSIGN); }
            "&="             { return token(cursor, WSC_AND_ASSIGN); }
            "^="             { return token(cursor, WSC_XOR_ASSIGN); }
            "|="             { return token(cursor, WSC_OR_ASSIGN); }
            ">>"             { return token(cursor, WSC_SHIFT_RIGHT); }
            "<<"             { return token(cursor, WSC_SHIFT_LEFT); }
            "++"             { return token(cursor, WSC_INCREMENT); }
            "--"             { return token(cursor, WSC_DECREMENT); }
            "&&"             { return token(cursor, WSC_AND); }
            "||"             { return token(cursor, WSC_OR); }
            "<="             { return token(cursor, WSC_LESS_EQUAL); }
            ">="             { return token(cursor, WSC_GREATER_EQUAL); }
            "=="             { return token(cursor, WSC_EQUAL); }
            "!="             { return token(cursor, WSC_NOT_EQUAL); }
            [-;,:={}().&!~+*/%<>^|#?] { return token(cursor, *cursorM); }

            [ \t\v\f\r]+     { take(cursor); continue; }
            "\n"[ \t\v\f\r]* { take(cursor); ++lineNumberM; continue; }
            *                { take(cursor); unknownCharacter(textM); }
        */
        // clang-format on
    }
}

bool WscLexer::scanEscape(CpsString& theString) {
    const unsigned char* cursor = cursorM;
    const unsigned char* marker;
    // clang-format off
    /*!re2c
        "\\" [0-7]{1,2}         { take(cursor); addEscapedByte(theString, textM.substr(1)); return true; }
        "\\" [0-3][0-7][0-7]    { take(cursor); addEscapedCharacter(theString, textM.substr(1), 8); return true; }
        "\\" [xX][0-9a-fA-F]{2} { take(cursor); addEscapedCharacter(theString, textM.substr(2), 16); return true; }
        "\\" [uU][0-9a-fA-F]{4} { take(cursor); addEscapedCharacter(theString, textM.substr(2), 16); return true; }
        "\\" [0-9]+             { take(cursor); LexerError("Error in lexical stage. Bad octal escape sequence: " + CpsString(textM)); }
        "\\n"                   { take(cursor); theString += '\n'; return true; }
        "\\t"                   { take(cursor); theString += '\t'; return true; }
        "\\r"                   { take(cursor); theString += '\r'; return true; }
        "\\b"                   { take(cursor); theString += '\b'; return true; }
        "\\f"                   { take(cursor); theString += '\f'; return true; }
        "\\" ['"\\/]            { take(cursor); theString += textM[1]; return true; }
        "\\" any                { take(cursor); LexerError("Error in lexical stage. Bad escape sequence: " + CpsString(textM)); }
        "\\"                    { return false; }
        *                       { return false; }
        $                       { return false; }
    */
    // clang-format on
}

}  // namespace lumnis
