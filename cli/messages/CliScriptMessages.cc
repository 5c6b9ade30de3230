// Messages about scripts.
#include "CliMessageTables.h"

namespace lumnis {

namespace {

// clang-format off
constexpr CliMessageRow theScriptMessages[] = {
    {R"(parse error)",
     R"(The text does not follow the grammar of WMLScript. The line is that of the first word that does not fit, which may stand behind the mistake.)",
     R"(A semicolon, bracket, brace or operand is missing or too many just in front; a pragma stands behind a function; or the file holds no function.)",
     R"(extern function area(w, h) {
    return w * ;
})",
     R"(extern function area(w, h) {
    return w * h;
})"},
    {R"(parser stack overflow)",
     R"(Brackets, blocks or operators are nested more than some thousand levels deep.)",
     R"(A program has generated the source, or a bracket is repeated by mistake.)",
     R"($ { printf 'function f() { return '; head -c 20000 /dev/zero | tr '\0' '('; } | lumnis compile -)",
     R"($ echo 'function f() { return ((1)); }' | lumnis compile -)"},
    {R"(Error in lexical stage. Unterminated string literal: {})",
     R"(A string has no closing quote on its line.)",
     R"(The quote was forgotten, or the string goes on in the next line; a line end in a string is written \n.)",
     R"(function f() {
    return "two
lines";
})",
     R"(function f() {
    return "two\nlines";
})"},
    {R"(Error in lexical stage. Bad octal escape sequence: {})",
     R"(Behind the back-slash stands a number that is no character: an octal one goes from \0 to \377.)",
     R"(Digits follow a back-slash that was meant as text, or 8 or 9 stands in an octal number.)",
     R"(function f() {
    return "C:\9";
})",
     R"(function f() {
    return "C:\\9";
})"},
    {R"(Error in lexical stage. Bad escape sequence: {})",
     R"(A back-slash in a string begins an escape, and there is none with the letter behind it. There are \' \" \\ \/ \b \f \n \r \t, octal \0 to \377, \xHH and \uHHHH.)",
     R"(A back-slash was meant as text: it is written twice.)",
     R"(function f() {
    return "50 \% off";
})",
     R"(function f() {
    return "50 % off";
})"},
    {R"(Error in lexical stage. The word {} is reserved by or not used in WML-script.)",
     R"(The word is kept for later versions of the language and cannot name anything, or it is a word of JavaScript that WMLScript does not have.)",
     R"(A variable or function has that name, or JavaScript was copied.)",
     R"(function f() {
    var class = 1;
    return class;
})",
     R"(function f() {
    var grade = 1;
    return grade;
})"},
    {R"(Error in lexical stage. Unknown character: {})",
     R"(No word, number, string or sign of the language begins with this byte.)",
     R"(A character that programs of other languages know (@, $, a letter with an accent) stands outside of strings and comments, or the file is in another charset than UTF-8.)",
     R"(function f(price) {
    return $price;
})",
     R"(function f(price) {
    return price;
})"},
    {R"(Semantic error: Number of constants too many (>65535))",
     R"(The unit has more than 65535 different numbers and strings, and the byte code counts them in two bytes.)",
     R"(A table was written as code; split the unit.)",
     R"($ { echo 'function f() {'; seq 70000 | sed 's/$/;/'; echo '}'; } | lumnis compile -)",
     R"($ { echo 'function f() {'; seq 700 | sed 's/$/;/'; echo '}'; } | lumnis compile -)"},
    {R"(Semantic error: External function name "{}" too long (>255))",
     R"(The byte code has one byte for the length of the name of an extern function.)",
     R"(The name has more than 255 bytes in UTF-8.)",
     R"($ { printf 'extern function '; head -c 256 /dev/zero | tr '\0' a; echo '() {}'; } | lumnis compile -)",
     R"($ { printf 'extern function '; head -c 255 /dev/zero | tr '\0' a; echo '() {}'; } | lumnis compile -)"},
    {R"(Semantic error: Number of formal parameters in function "{}" too many (>255))",
     R"(A function takes at most 255 parameters.)",
     R"(A program has generated the function.)",
     R"($ { printf 'function f(a'; seq -f ',p%g' 255 | tr -d '\n'; echo ') {}'; } | lumnis compile -)",
     R"($ { printf 'function f(a'; seq -f ',p%g' 254 | tr -d '\n'; echo ') {}'; } | lumnis compile -)"},
    {R"(Semantic error: Function "{}" multiply defined)",
     R"(Two functions of the unit have one name. The line is that behind the second head.)",
     R"(The function was copied, or exists with another number of parameters, which does not tell functions apart.)",
     R"(extern function show() {}
extern function show(who) {})",
     R"(extern function show() {}
extern function showWho(who) {})"},
    {R"(Semantic Error: Number of functions too many (>255))",
     R"(A unit holds at most 255 functions, since the byte code counts them in one byte.)",
     R"(The unit is a library that should be split: other units call its functions by "use url".)",
     R"($ seq -f 'function f%g() {}' 256 | lumnis compile -)",
     R"($ seq -f 'function f%g() {}' 255 | lumnis compile -)"},
    {R"(Semantic Error: Function parameter "{}" has already been defined)",
     R"(Two parameters of a function have one name.)",
     R"(A parameter was copied, or one was renamed to a name that is taken.)",
     R"(function add(a, a) {
    return a + a;
})",
     R"(function add(a, b) {
    return a + b;
})"},
    {R"(Semantic Error: Number of variables in function "{}" too many (>255))",
     R"(A function holds at most 255 variables. Each "var" counts, in inner blocks, too.)",
     R"(A program has generated the function; split it.)",
     R"($ { echo 'function f() {'; seq -f 'var v%g;' 256; echo '}'; } | lumnis compile -)",
     R"($ { echo 'function f() {'; seq -f 'var v%g;' 255; echo '}'; } | lumnis compile -)"},
    {R"(SemanticError: Number of variables & formal parameters in function "{}" too many (>256))",
     R"(A function has one numbering for parameters and variables, in one byte: 256 of both together.)",
     R"(Many parameters meet many variables; split the function.)",
     R"($ { echo 'function f(a, b) {'; seq -f 'var v%g;' 255; echo '}'; } | lumnis compile -)",
     R"($ { echo 'function f(a, b) {'; seq -f 'var v%g;' 254; echo '}'; } | lumnis compile -)"},
    {R"(Semantic Error: Unable to generate code for function "{}", too long jump range (>65535))",
     R"(A jump in the function would be longer than the 65535 bytes that the byte code can tell.)",
     R"(The body of a loop or of an if is as large as a whole unit may be; move it to functions of its own.)",
     R"($ { echo 'function f(a) { if (a) {'; yes 'f(a);' | head -n 30000; echo '} }'; } | lumnis compile -)",
     R"($ { echo 'function f(a) { if (a) {'; yes 'f(a);' | head -n 3000; echo '} }'; } | lumnis compile -)"},
    {R"(Semantic error: URL identifier "{}" multiply defined)",
     R"(Two "use url" pragmas have one name.)",
     R"(A pragma was copied; each unit that is called needs a name of its own.)",
     R"(use url math "a.wmlsc";
use url math "b.wmlsc";
function f() {
    return math#f();
})",
     R"(use url math "a.wmlsc";
use url other "b.wmlsc";
function f() {
    return math#f();
})"},
    {R"(Semantic Error: Domain "{}" access control already defined)",
     R"(A unit has at most one access domain.)",
     R"(Several hosts were listed in several pragmas; name the domain that they share.)",
     R"(use access domain "a.example.com";
use access domain "b.example.com";
extern function f() {})",
     R"(use access domain "example.com";
extern function f() {})"},
    {R"(Semantic error: path "{}" access control already defined)",
     R"(A unit has at most one access path.)",
     R"(Several folders were listed in several pragmas; name the path that they share.)",
     R"(use access path "/bank/a";
use access path "/bank/b";
extern function f() {})",
     R"(use access path "/bank";
extern function f() {})"},
    {R"(Semantic Error: Domain or path"{}" access control already defined)",
     R"(A unit has at most one access domain and one access path, and an earlier pragma has set one of those that this one sets.)",
     R"(Both stand in this pragma, and one of them in another pragma.)",
     R"(use access path "/bank";
use access domain "example.com" path "/bank";
extern function f() {})",
     R"(use access domain "example.com" path "/bank";
extern function f() {})"},
    {R"(Semantic Error: Variable "{}" not found)",
     R"(No "var" and no parameter in front of this place declares the name. Names differ by letter case, and a variable of a function is not known in another one.)",
     R"(The name is mistyped, the "var" is missing, or a function is used as if it were a variable.)",
     R"(function f() {
    total = 1;
    return total;
})",
     R"(function f() {
    var total = 1;
    return total;
})"},
    {R"(Semantic Error: Variable "{}" multiply defined)",
     R"(The function declares the name twice. A function has one set of names: inner blocks and parameters share it.)",
     R"(The variable was declared again in another block or loop, or has the name of a parameter.)",
     R"(function f(n) {
    for (var i = 0; i < n; i++) {}
    for (var i = 0; i < n; i++) {}
})",
     R"(function f(n) {
    for (var i = 0; i < n; i++) {}
    for (i = 0; i < n; i++) {}
})"},
    {R"(Semantic Error: Function "{}" not found)",
     R"(No function of this unit has the name. Functions of another unit are called as NAME#FUNCTION, those of a standard library as LIBRARY.FUNCTION.)",
     R"(The name is mistyped, or the library is missing in front of it.)",
     R"(function f(x) {
    return abs(x);
})",
     R"(function f(x) {
    return Lang.abs(x);
})"},
    {R"(Semantic Error: Wrong number of arguments in call of function "{}")",
     R"(The call has more or fewer arguments than the function or library function has parameters. There are no optional ones.)",
     R"(An argument was left out as in other languages, or the function has got another parameter since.)",
     R"(function add(a, b) {
    return a + b;
}
extern function main() {
    return add(1);
})",
     R"(function add(a, b) {
    return a + b;
}
extern function main() {
    return add(1, 0);
})"},
    {R"(URL reference "{}" not found)",
     R"(No "use url" pragma gives the name in front of the #.)",
     R"(The pragma is missing, or one of both names is mistyped.)",
     R"(extern function f() {
    return math#g();
})",
     R"(use url math "lib.wmlsc";
extern function f() {
    return math#g();
})"},
    {R"(Semantic Error: Too many arguments in call of function "{}" (>255))",
     R"(A call of a function of another unit carries at most 255 arguments.)",
     R"(A program has generated the call.)",
     R"($ { echo 'use url u "x"; function f() { u#g('; yes '1,' | head -n 255; echo '1); }'; } | lumnis compile -)",
     R"($ { echo 'use url u "x"; function f() { u#g('; yes '1,' | head -n 254; echo '1); }'; } | lumnis compile -)"},
    {R"(Semantic Error: Library or function not found)",
     R"(No standard library has a function of this name. The libraries are Lang, Float, String, URL, WMLBrowser, Dialogs and those of the telephone; letter case counts.)",
     R"(A name is mistyped, or a method of a JavaScript object was meant: strings have functions, not methods.)",
     R"(function f(s) {
    return String.len(s);
})",
     R"(function f(s) {
    return String.length(s);
})"},
    {R"(Semantic Error: Continue without for or while)",
     R"(The "continue" stands in no loop.)",
     R"(The loop was taken away, or the brace that closes it comes too early.)",
     R"(function f(n) {
    if (n > 0) { continue; }
})",
     R"(function f(n) {
    while (n-- > 0) { continue; }
})"},
    {R"(Semantic Error: Break without for or while)",
     R"(The "break" stands in no loop.)",
     R"(The loop was taken away, the brace that closes it comes too early, or a "switch" was meant, which the language does not have.)",
     R"(function f(n) {
    if (n > 0) { break; }
})",
     R"(function f(n) {
    while (n > 0) { break; }
})"},
    {R"(Internal error{})",
     R"(A step of the compiler or of the encoder has met a state that no source should lead to.)",
     R"(Nothing an author writes should give it; please report it with the source.)",
     "",
     ""},
};
// clang-format on

}  // namespace

std::span<const CliMessageRow> scriptMessages() {
    return theScriptMessages;
}

}  // namespace lumnis
