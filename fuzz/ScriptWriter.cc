#include "ScriptWriter.h"

#include <array>

namespace lumnis::fuzz {

namespace {

// Statements and expressions within each other, so that the writer's own recursion ends. What
// nests deeper is the other fuzzer's and the tests' matter.
constexpr unsigned theMaxDepth = 24;
// A few bytes may ask for many repetitions; this bounds what they get.
constexpr std::size_t theMaxLength = 30'000;

constexpr std::array<std::string_view, 20> theBinaryOperators = {
    "+",  "-",  "*",  "/",  "%",   "div", "==", "!=", "<",  ">",
    "<=", ">=", "<<", ">>", ">>>", "&",   "|",  "^",  "&&", "||"};

constexpr std::array<std::string_view, 13> theAssignments = {
    "=", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", "<<=", ">>=", ">>>=", "div="};

// Numbers at the borders of their encodings, and forms of literals.
constexpr std::array<std::string_view, 27> theNumbers = {
    "0",    "1",    "2",     "-1",         "127",        "128",        "-128",
    "-129", "255",  "256",   "32767",      "32768",      "-32768",     "-32769",
    "017",  "0x7F", "0xABC", "2147483647", "2147483648", "4294967296", "99999999999999999999",
    "0.5",  ".5",   "1.",    "1e3",        "1e-50",      "3.5e999"};

constexpr std::array<std::string_view, 19> thePieces = {
    "a",       "bc",      "\\n",      "\\t",          "\\'",   "\\\"",  "\\\\",
    "\\/",     "\\1",     "\\41",     "\\101",        "\\341", "\\x41", "\\xE4",
    "\\u0041", "\\u20AC", "\xC3\xA4", "\xE2\x82\xAC", "\xFF"};

// A library function of each encoding: library and function in one byte, in two, in three, and
// each count of arguments.
struct LibraryFunction {
    std::string_view name;
    unsigned arguments;
};
constexpr std::array<LibraryFunction, 14> theLibrary = {{{"Lang.abs", 1},
                                                         {"Lang.min", 2},
                                                         {"Lang.float", 0},
                                                         {"Lang.characterSet", 0},
                                                         {"Float.sqrt", 1},
                                                         {"String.subString", 3},
                                                         {"String.insertAt", 4},
                                                         {"String.format", 2},
                                                         {"URL.loadString", 2},
                                                         {"WMLBrowser.refresh", 0},
                                                         {"Dialogs.confirm", 3},
                                                         {"WTAPublic.makeCall", 1},
                                                         {"WTAGSM.sendUSSD", 4},
                                                         {"Crypto.signText", 4}}};

constexpr std::array<std::string_view, 38> theTokens = {
    "access", "agent", "break", "continue", "domain", "else", "equiv",  "extern", "for", "function",
    "header", "http",  "if",    "meta",     "name",   "path", "return", "url",    "use", "user",
    "var",    "while", "new",   "switch",   "(",      ")",    "{",      "}",      ";",   ",",
    ":",      "?",     "#",     ".",        "\"",     "\\",   "\n",     "/*"};

}  // namespace

unsigned ScriptWriter::choose(unsigned theCount) {
    if (bytesM.empty()) {
        return 0;
    }
    const unsigned byte = bytesM.front();
    bytesM = bytesM.subspan(1);
    return byte % theCount;
}

void ScriptWriter::put(std::string_view theText) {
    textM += theText;
}

void ScriptWriter::putNumber(unsigned theNumber) {
    textM += std::to_string(theNumber);
}

void ScriptWriter::variable() {
    // One in 64 is a variable that is not there.
    const bool isThere = choose(64) != 63;
    if (isThere && variablesM == 0) {
        literal();
        return;
    }
    put("v");
    putNumber(isThere ? choose(variablesM) : variablesM);
}

void ScriptWriter::functionName(unsigned theNumber) {
    put("f");
    putNumber(theNumber);
}

std::string ScriptWriter::write() {
    for (unsigned count = choose(4); count != 0; --count) {
        pragma();
    }
    // Parameters first: calls go to any function.
    const unsigned count = 1 + choose(10);
    for (unsigned i = 0; i < count; ++i) {
        const bool isExtern = choose(2) == 0;
        functionsM.push_back({isExtern, choose(5)});
    }
    for (unsigned i = 0; i < count; ++i) {
        function(i);
    }
    return textM;
}

void ScriptWriter::pragma() {
    put("use ");
    const unsigned kind = choose(7);
    switch (kind) {
        case 0:
            put("url u");
            putNumber(urlsM++);
            put(" ");
            stringLiteral();
            break;
        case 1:
            put("access domain ");
            stringLiteral();
            break;
        case 2:
            put("access path ");
            stringLiteral();
            break;
        case 3:
            put("access domain ");
            stringLiteral();
            put(" path ");
            stringLiteral();
            break;
        default:
            put(kind == 4 ? "meta name " : kind == 5 ? "meta http equiv " : "meta user agent ");
            stringLiteral();
            stringLiteral();
            if (choose(2) != 0) {
                stringLiteral();
            }
            break;
    }
    put(";\n");
}

void ScriptWriter::function(unsigned theNumber) {
    const Function& function = functionsM[theNumber];
    put(function.isExtern ? "extern function " : "function ");
    functionName(theNumber);
    put("(");
    for (unsigned i = 0; i < function.parameters; ++i) {
        put(i == 0 ? "v" : ", v");
        putNumber(i);
    }
    put(") ");
    variablesM = function.parameters;
    block(0, false);
    put("\n");
}

void ScriptWriter::block(unsigned theDepth, bool isInLoop) {
    put("{\n");
    // The last function goes on while there are bytes; at depth it would starve what follows.
    const unsigned most = theDepth == 0 ? 255 : 8;
    for (unsigned count = choose(most); count != 0 && !isAtEnd(); --count) {
        statement(theDepth + 1, isInLoop);
    }
    put("}");
}

void ScriptWriter::statement(unsigned theDepth, bool isInLoop) {
    if (theDepth > theMaxDepth || textM.size() > theMaxLength) {
        put(";\n");
        return;
    }
    switch (choose(16)) {
        case 0:
        case 1:
        case 2:
            expression(theDepth);
            put(";\n");
            break;
        case 3:
        case 4:
            put("var ");
            declarations(theDepth);
            put(";\n");
            break;
        case 5:
        case 6:
            put("if (");
            expression(theDepth);
            put(") ");
            statement(theDepth + 1, isInLoop);
            break;
        case 7:
            put("if (");
            expression(theDepth);
            put(") ");
            statement(theDepth + 1, isInLoop);
            put("else ");
            statement(theDepth + 1, isInLoop);
            break;
        case 8:
            put("while (");
            expression(theDepth);
            put(") ");
            statement(theDepth + 1, true);
            break;
        case 9:
            forHead(theDepth);
            statement(theDepth + 1, true);
            break;
        case 10:
            block(theDepth, isInLoop);
            break;
        case 11:
            // One in 32 stands outside of a loop.
            put(!isInLoop && choose(32) != 31 ? ";\n"
                : choose(2) == 0              ? "break;\n"
                                              : "continue;\n");
            break;
        case 12:
            put("return");
            if (choose(2) != 0) {
                put(" ");
                expression(theDepth);
            }
            put(";\n");
            break;
        case 13: {
            // Code that pushes jumps over the limits of their forms.
            const unsigned count = choose(256) * (1 + 15 * choose(2));
            for (unsigned i = 0; i < count && textM.size() < theMaxLength; ++i) {
                put(variablesM == 0 ? "Lang.seed(0);" : "v0*v0;");
            }
            put("\n");
            break;
        }
        case 14:
            put(choose(2) == 0 ? "// comment\n" : "/* comment\n */ ");
            put(";\n");
            break;
        default:
            if (choose(16) == 15) {
                anyToken();
            } else {
                put(";\n");
            }
            break;
    }
}

void ScriptWriter::declarations(unsigned theDepth) {
    const unsigned count = 1 + choose(3);
    for (unsigned i = 0; i < count; ++i) {
        put(i == 0 ? "v" : ", v");
        putNumber(variablesM);
        if (choose(2) != 0) {
            put(" = (");
            expression(theDepth + 1);
            put(")");
        }
        ++variablesM;
    }
}

void ScriptWriter::forHead(unsigned theDepth) {
    put("for (");
    switch (choose(3)) {
        case 1:
            expression(theDepth);
            break;
        case 2:
            put("var ");
            declarations(theDepth);
            break;
        default:
            break;
    }
    put("; ");
    for (const std::string_view behind : {"; ", ") "}) {
        if (choose(2) != 0) {
            expression(theDepth);
        }
        put(behind);
    }
}

void ScriptWriter::expression(unsigned theDepth) {
    if (theDepth > theMaxDepth || textM.size() > theMaxLength) {
        put("0");
        return;
    }
    switch (choose(12)) {
        case 0:
        case 1:
            operand(theDepth + 1);
            break;
        case 2:
        case 3:
            if (variablesM == 0) {
                operand(theDepth + 1);
                break;
            }
            variable();
            put(" ");
            put(theAssignments[choose(theAssignments.size())]);
            put(" ");
            expression(theDepth + 1);
            break;
        case 4:
            operand(theDepth + 1);
            put(" ? ");
            expression(theDepth + 1);
            put(" : ");
            expression(theDepth + 1);
            break;
        case 5:
            put("(");
            expression(theDepth + 1);
            put(", ");
            expression(theDepth + 1);
            put(")");
            break;
        case 6:
        case 7: {
            // The shapes that the peephole optimizer looks for: v = v + 1 and their like.
            if (variablesM == 0) {
                operand(theDepth + 1);
                break;
            }
            const unsigned number = choose(variablesM);
            put("v");
            putNumber(number);
            put(" = v");
            putNumber(number);
            put(choose(2) == 0 ? " + " : " - ");
            operand(theDepth + 1);
            break;
        }
        default:
            operand(theDepth + 1);
            for (unsigned count = 1 + choose(4); count != 0; --count) {
                put(" ");
                put(theBinaryOperators[choose(theBinaryOperators.size())]);
                put(" ");
                operand(theDepth + 1);
            }
            break;
    }
}

void ScriptWriter::operand(unsigned theDepth) {
    static constexpr std::array<std::string_view, 6> theUnary = {"-", "+",       "!",
                                                                 "~", "typeof ", "isvalid "};
    if (theDepth > theMaxDepth || isAtEnd()) {
        put("0");
        return;
    }
    switch (choose(12)) {
        case 0:
        case 1:
        case 2:
            literal();
            break;
        case 3:
        case 4:
        case 5:
            variable();
            break;
        case 6:
            put("(");
            expression(theDepth + 1);
            put(")");
            break;
        case 7:
            put(" ");
            put(theUnary[choose(theUnary.size())]);
            put(" ");
            operand(theDepth + 1);
            break;
        case 8:
        case 9:
            // The blanks keep the signs of neighbours apart.
            if (variablesM == 0) {
                literal();
            } else if (choose(2) == 0) {
                put(choose(2) == 0 ? " ++" : " --");
                variable();
            } else {
                variable();
                put(choose(2) == 0 ? "++ " : "-- ");
            }
            break;
        default:
            call(theDepth + 1);
            break;
    }
}

void ScriptWriter::call(unsigned theDepth) {
    switch (choose(urlsM == 0 ? 2 : 3)) {
        case 0: {
            const unsigned number = choose(static_cast<unsigned>(functionsM.size()));
            functionName(number);
            arguments(theDepth, functionsM[number].parameters);
            break;
        }
        case 1: {
            const LibraryFunction& function = theLibrary[choose(theLibrary.size())];
            put(function.name);
            arguments(theDepth, function.arguments);
            break;
        }
        default:
            put("u");
            putNumber(choose(urlsM));
            put("#g");
            putNumber(choose(256));
            arguments(theDepth, choose(6));
            break;
    }
}

void ScriptWriter::arguments(unsigned theDepth, unsigned theCount) {
    put("(");
    // One in 64 has an argument too many.
    const unsigned count = theCount + (choose(64) == 63 ? 1 : 0);
    for (unsigned i = 0; i < count; ++i) {
        put(i == 0 ? "" : ", ");
        expression(theDepth + 1);
    }
    put(")");
}

void ScriptWriter::literal() {
    switch (choose(8)) {
        case 0:
        case 1:
            put(theNumbers[choose(theNumbers.size())]);
            break;
        case 2:
        case 3:
            // Many constants that differ, to reach the wider forms.
            putNumber(choose(256) * 256 + choose(256));
            break;
        case 4:
            put("true");
            break;
        case 5:
            put("false");
            break;
        case 6:
            put("invalid");
            break;
        default:
            stringLiteral();
            break;
    }
}

void ScriptWriter::stringLiteral() {
    const std::string_view quote = choose(2) == 0 ? "\"" : "'";
    put(quote);
    for (unsigned count = choose(6); count != 0; --count) {
        put(thePieces[choose(thePieces.size())]);
    }
    put(quote);
}

void ScriptWriter::anyToken() {
    put(theTokens[choose(theTokens.size())]);
    put(" ");
}

}  // namespace lumnis::fuzz
