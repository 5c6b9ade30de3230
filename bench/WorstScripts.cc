#include <string_view>

#include "InputText.h"
#include "ScriptPrograms.h"
#include "WorstInputs.h"

namespace lumnis::bench {

namespace {

using Inputs = std::vector<WorstInput>;

}  // namespace

Inputs ordinaryScripts(std::size_t theSize) {
    return {{"program", makeProgram(Dialect::WmlScript, theSize)},
            {"function", makeLongFunction(theSize / 12)},
            {"jumps", makeJumpingFunction(theSize / 40)}};
}

Inputs worstScripts(std::size_t theSize) {
    const std::string name(theSize / 4, 'n');
    const auto functions = [&](std::string_view theBody) {
        const std::string unit = "function f@() {" + fill(theSize / 260, theBody) + "}\n";
        return fill(theSize, unit);
    };
    return {
        {"blanks", functionOf(theSize, " ")},
        {"many lines", functionOf(theSize, "\n")},
        {"line comments", functionOf(theSize, "//\n")},
        {"block comments", functionOf(theSize, "/**/")},
        {"stars in a comment", filled(theSize, "/*", "* ", "*/ function f() {}")},
        {"an open comment", filled(theSize, "/*", "* ", "")},
        {"one long line of a comment", filled(theSize, "//", "x", "\nfunction f() {}")},
        {"NULs", functionOf(theSize, std::string_view("\0", 1))},
        {"NULs in a comment",
         filled(theSize, "/*", std::string_view("\0", 1), "*/ function f() {}")},
        {"NULs in a text",
         filled(theSize, "function f() { \"", std::string_view("\0", 1), "\"; }")},
        {"empty statements", functionOf(theSize, ";")},
        {"numbers", functionOf(theSize, "1;")},
        {"distinct numbers", functionOf(theSize, "@;")},
        {"distinct floats", functionOf(theSize, "a=@.5;")},
        {"long floats", functionOf(theSize, "a=0." + std::string(300, '3') + "e-30;")},
        {"one long number", filled(theSize, "function f() { return ", "7", "; }")},
        {"one long float", filled(theSize, "function f() { return 0.", "3", "; }")},
        {"one float with a long exponent",
         filled(theSize, "function f() { return 1e", "0", "1; }")},
        {"distinct texts", functionOf(theSize, "a=\"@\";")},
        {"equal texts", functionOf(theSize, "a=\"text\";")},
        {"one long text", filled(theSize, "function f() { return \"", "x", "\"; }")},
        {"one long text of escapes",
         filled(theSize, "function f() { return \"", "\\u20AC", "\"; }")},
        {"one long text of octal escapes",
         filled(theSize, "function f() { return \"", "\\7", "\"; }")},
        {"equal long texts", functionOf(theSize, "a=\"" + std::string(1000, 'x') + "\";")},
        {"a sum of texts", filled(theSize, "function f() { return \"\"", "+\"x\"", "; }")},
        {"a sum of numbers", filled(theSize, "function f() { return 1", "+1", "; }")},
        {"a long name",
         "function " + name.substr(0, 255) + "(" + name + ") { " + name + " = " + name + "; }"},
        {"equal long names", "function f(" + std::string(200, 'n') + ") {" +
                                 fill(theSize - 500, std::string(200, 'n') + ";") + "}"},
        {"distinct long names", functions("var " + std::string(100, 'n') + "@;")},
        {"many functions", fill(theSize, "function f@() {}\n")},
        {"many functions with an error in the last",
         filled(theSize, "", "function f@() {}\n", "function x( {")},
        {"functions with bodies", functions("f1();")},
        {"many locals",
         "function f() { " + repeat("var v@; ", 254) + fill(theSize - 6000, "v253=v252;") + "}"},
        {"locals of functions", functions("var v@;")},
        {"locals of blocks", functions("{var v@;}")},
        {"many parameters", fill(theSize, "function f@(" + repeat("a@,", 254) + "z) {}\n")},
        {"too many parameters", filled(theSize, "function f(z", ",a@", ") {}")},
        {"too many locals", functionOf(theSize, "var v@;")},
        {"one variable declared again", functionOf(theSize, "{var v;}")},
        {"a list of declarations", filled(theSize, "function f() { var z", ",a@=1", "; }")},
        {"conditions", functionOf(theSize, "if(a){}")},
        {"conditions with else", functionOf(theSize, "if(a);else;")},
        {"else chain", filled(theSize, "function f(a) { ", "if(a);else ", ";}")},
        {"else chain to the limit",
         nested(theSize, 1660, "function f(a) { ", "if(a);else ", "", "", ";}")},
        {"nested conditions", nested(theSize, 2490, "function f(a) { ", "if(a)", "a;", "", "}")},
        {"nested blocks of conditions",
         nested(theSize, 1600, "function f(a) { ", "if(a){", "a++;", "}", "}")},
        {"nested loops", nested(theSize, 1900, "function f(a) { ", "while(a){", "a++;", "}", "}")},
        {"nested loops with breaks",
         nested(theSize, 1900, "function f(a) { ", "while(a){", "break;continue;", "break;}", "}")},
        {"loops with everything",
         nested(theSize, 1200, "function f(a) { ", "for(a;a;a)", ";", "", "}")},
        {"loops", functionOf(theSize, "while(a);")},
        {"for loops", functionOf(theSize, "for(;;);")},
        {"breaks", functionOf(theSize, "break;")},
        {"breaks in a loop", filled(theSize, "function f() { while(1) { ", "break;", "} }")},
        {"conditional breaks",
         filled(theSize, "function f(a) { while(a) { ", "if(a)break;", "} }")},
        {"conditional continues",
         filled(theSize, "function f(a) { for(;a;a++) { ", "if(a)continue;", "} }")},
        {"ors", filled(theSize, "function f(a) { return a", "||a", "; }")},
        {"ands and ors", filled(theSize, "function f(a) { return a", "||a&&a", "; }")},
        {"ors to the range of a jump",
         filled(std::min<std::size_t>(theSize, 30000), "function f(a) { return a", "||a", "; }")},
        {"conditional expressions", filled(theSize, "function f(a) { return ", "a?a:", "a; }")},
        {"conditional expressions to the limit",
         nested(theSize, 2490, "function f(a) { return ", "a?a:", "", "", "a; }")},
        {"conditional expressions, one behind the other", functionOf(theSize, "a?a:b;")},
        {"jumps of growing distance", makeJumpingFunction(theSize / 30)},
        {"jumps that grow each other",
         [&] {
             // Each is a byte short of the long form until the one inside of it grows.
             std::string text = "function f(a) { ";
             for (int i = 0; i < 1600; ++i) {
                 text += "if(a){" + std::string(i % 2 == 0 ? "a;a;a;a;" : "a++;a++;");
             }
             return text + std::string(1600, '}') + "}";
         }()},
        {"returns", functionOf(theSize, "return;")},
        {"returns of values", functionOf(theSize, "return a;")},
        {"parentheses to the limit",
         nested(theSize, 9980, "function f(a) { return ", "(", "a,", ")", "; }")},
        {"open parentheses", filled(theSize, "function f() { return ", "(", "")},
        {"rows of parentheses", functionOf(theSize, "((((((((a))))))));")},
        {"nots", nested(theSize, 9980, "function f(a) { return ", "!", "", "", "a; }")},
        {"rows of nots", functionOf(theSize, "a=!!!!!!!!a;")},
        {"signs", functionOf(theSize, "a=- - - -1;")},
        {"increments", functionOf(theSize, "a++;")},
        {"unused increments", functionOf(theSize, "a++,b--;")},
        {"assignments", functionOf(theSize, "a=a;")},
        {"chained assignments", functionOf(theSize, "a=b=a=b=1;")},
        {"a long list of commas", filled(theSize, "function f(a) { a", ",a", "; }")},
        {"calls", functionOf(theSize, "f(a,b);")},
        {"calls of a library", functionOf(theSize, "Lang.abs(a);")},
        {"calls of an unknown library", functionOf(theSize, "Lung.abs(a);")},
        {"calls of an unknown function", functionOf(theSize, "g(a);")},
        {"calls of the last function", fill(theSize / 4, "") + "extern function a() {" +
                                           fill(theSize - 4500, "f249();") + "}" +
                                           repeat("function f@() {}", 250)},
        {"external calls", filled(theSize, "use url u \"x\"; function f() { ", "u#g();", "}")},
        {"distinct external calls",
         filled(theSize, "use url u \"x\"; function f() { ", "u#g@();", "}")},
        {"urls", filled(theSize, "", "use url u@ \"x@\";", "function f() {}")},
        {"urls that are used",
         halves(theSize, "", "use url u@ \"x@\";", "function f() {", "u@#g();", "}")},
        {"metas", filled(theSize, "", "use meta name \"n\" \"c\";", "function f() {}")},
        {"user agent metas",
         filled(theSize, "", "use meta user agent \"n@\" \"c\";", "function f() {}")},
        {"access pragmas", filled(theSize, "", "use access domain \"d\";", "function f() {}")},
        {"unknown characters", filled(theSize, "", "@", "")},
        {"invalid UTF-8", filled(theSize, "function f() { return \"", "\xC3", "\"; }")},
        {"typeofs", functionOf(theSize, "a=typeof isvalid a;")},
    };
}

}  // namespace lumnis::bench
