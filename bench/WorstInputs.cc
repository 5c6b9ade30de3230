#include "WorstInputs.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "ScriptPrograms.h"
#include "WmlDtd.h"
#include "lumnisutil.h"

namespace lumnis::bench {

namespace {

using Inputs = std::vector<WorstInput>;

// theUnit with theNumber for each @ in it.
void appendUnit(std::string& theText, std::string_view theUnit, std::size_t theNumber) {
    for (const char byte : theUnit) {
        theText += byte == '@' ? std::to_string(theNumber) : std::string(1, byte);
    }
}

// theUnit theCount times, each @ in it the number of the repetition, from 0.
std::string repeat(std::string_view theUnit, std::size_t theCount) {
    std::string result;
    for (std::size_t i = 0; i < theCount; ++i) {
        appendUnit(result, theUnit, i);
    }
    return result;
}

// The same, as often as it fits into theSize bytes; theCount gets how often. The numbers begin
// again at theNumbers.
std::string fill(std::size_t theSize, std::string_view theUnit, std::size_t theNumbers = SIZE_MAX,
                 std::size_t* theCount = nullptr) {
    std::string result;
    std::size_t count = 0;
    for (std::size_t length = 0; !theUnit.empty(); ++count) {
        appendUnit(result, theUnit, count % theNumbers);
        if (result.size() > theSize) {
            result.resize(length);
            break;
        }
        length = result.size();
    }
    if (theCount != nullptr) {
        *theCount = count;
    }
    return result;
}

// theHead and theTail, and between them as much of theUnit as theSize allows.
std::string filled(std::size_t theSize, std::string_view theHead, std::string_view theUnit,
                   std::string_view theTail) {
    const std::size_t around = theHead.size() + theTail.size();
    std::string result(theHead);
    result += fill(theSize > around ? theSize - around : 0, theUnit);
    return result += theTail;
}

// One half repeats theFirst, which declares something, the other half theSecond, which uses it.
std::string halves(std::size_t theSize, std::string_view theHead, std::string_view theFirst,
                   std::string_view theMiddle, std::string_view theSecond,
                   std::string_view theTail) {
    const std::size_t half = theSize / 2 - theHead.size() - theMiddle.size();
    std::size_t count = 0;
    std::string result(theHead);
    result += fill(half, theFirst, SIZE_MAX, &count);
    result += theMiddle;
    result += fill(half, theSecond, count);
    return result += theTail;
}

// theOpen and theClose around each other, theLevels at most, innermost as much of theFilling as
// fits.
std::string nested(std::size_t theSize, std::size_t theLevels, std::string_view theHead,
                   std::string_view theOpen, std::string_view theFilling, std::string_view theClose,
                   std::string_view theTail) {
    const std::size_t levels =
        std::min(theLevels, (theSize - theHead.size() - theTail.size()) /
                                std::max<std::size_t>(1, theOpen.size() + theClose.size()));
    std::string close;
    for (std::size_t i = 0; i < levels; ++i) {
        close += theClose;
    }
    return filled(theSize, std::string(theHead) + repeat(theOpen, levels), theFilling,
                  close + std::string(theTail));
}

constexpr const char* theDoctype =
    "<!DOCTYPE wml PUBLIC \"-//WAPFORUM//DTD WML 1.3//EN\" \"wml13.dtd\">\n";
constexpr const char* theDeckStart =
    "<!DOCTYPE wml PUBLIC \"-//WAPFORUM//DTD WML 1.3//EN\" \"wml13.dtd\">\n<wml><card><p>";
constexpr const char* theDeckEnd = "</p></card></wml>";

std::string deckOf(std::size_t theSize, std::string_view theUnit) {
    return filled(theSize, theDeckStart, theUnit, theDeckEnd);
}

// The subset declares, the content uses; the root may have anything in it.
std::string declaring(std::size_t theSize, std::string_view theDeclarations,
                      std::string_view theUnit) {
    return halves(theSize, "<!DOCTYPE wml [<!ELEMENT wml ANY>\n", theDeclarations, "]>\n<wml>",
                  theUnit, "</wml>");
}

std::string functionOf(std::size_t theSize, std::string_view theUnit,
                       std::string_view theTail = "") {
    return filled(theSize, "extern function f(a, b) {\n", theUnit, std::string(theTail) + "\n}\n");
}

using Export = decltype(WMLEncode)&;

// Empty if theSource is refused.
std::string compiled(Export theExport, const std::string& theSource) {
    char* block = nullptr;
    char* text = nullptr;
    unsigned short length = 0;
    std::string result;
    if (theExport(theSource.data(), static_cast<int>(theSource.size()), &block, &length, &text) ==
        0) {
        result.assign(block, length);
    }
    std::free(block);
    return result;
}

std::string bytes(std::initializer_list<unsigned char> theBytes) {
    std::string result;
    for (const unsigned char byte : theBytes) {
        result += static_cast<char>(byte);
    }
    return result;
}

std::string multiByte(std::size_t theNumber) {
    std::string result(1, static_cast<char>(theNumber & 0x7F));
    while ((theNumber >>= 7) != 0) {
        result.insert(result.begin(), static_cast<char>(0x80 | (theNumber & 0x7F)));
    }
    return result;
}

}  // namespace

Inputs ordinaryDecks(std::size_t theSize) {
    return {
        {"text", deckOf(theSize,
                        "News of the <b>day</b>, &#169; and <i>more</i> text that goes on "
                        "for a while, as text does in a deck.<br/>\n")},
        {"cards",
         filled(
             theSize, std::string(theDoctype) + "<wml>\n",
             "<card id=\"c@\" title=\"Card @\">\n<do type=\"accept\" label=\"Next\">"
             "<go href=\"#c@\" method=\"post\"><postfield name=\"q\" value=\"$(q)\"/></go></do>\n"
             "<p align=\"center\">Some text <a href=\"http://www.example.com/@\">a link</a> "
             "<img src=\"i.wbmp\" alt=\"An image\"/><br/>\n</p></card>\n",
             "</wml>\n")},
        {"forms", deckOf(theSize,
                         "<select name=\"s@\"><option value=\"1\">One</option>"
                         "<option value=\"2\">Two</option></select>\n"
                         "<input name=\"i@\" type=\"text\" maxlength=\"20\"/>\n"
                         "<table columns=\"2\"><tr><td>left</td><td>right</td></tr>"
                         "</table>\n")},
    };
}

Inputs ordinaryScripts(std::size_t theSize) {
    return {{"program", makeProgram(Dialect::WmlScript, theSize)},
            {"function", makeLongFunction(theSize / 12)},
            {"jumps", makeJumpingFunction(theSize / 40)}};
}

Inputs ordinaryDtds(std::size_t) {
    return {{"WML 1.3", theWmlDtd}};
}

Inputs ordinaryFiles(std::size_t theSize) {
    Inputs result;
    for (const WorstInput& deck : ordinaryDecks(theSize)) {
        result.push_back({deck.name, compiled(WMLEncode, deck.text)});
    }
    result.push_back({"program", compiled(WMLSCompile, makeProgram(Dialect::WmlScript, theSize))});
    return result;
}

Inputs ordinarySettings(std::size_t theSize) {
    return {{"lines", filled(theSize, "",
                             "# Of the log\n[Software\\Halvern\\Qir\\@]\nTrace = 1\n"
                             "LogFile = \"/var/log/lumnis.log\"\n",
                             "")}};
}

Inputs ordinaryTexts(std::size_t theSize) {
    return {{"ASCII", fill(theSize, "An ordinary line of text that any charset has.\n")}};
}

Inputs worstDecks(std::size_t theSize) {
    const std::string name(theSize / 2, 'n');
    const std::size_t root = theSize < 10000 ? 100 : 2000;
    return {
        {"nothing but blanks", deckOf(theSize, " ")},
        {"many lines", deckOf(theSize, "\n")},
        {"letters without end", deckOf(theSize, "x")},
        {"single letters and blanks", deckOf(theSize, "x ")},
        {"variables", deckOf(theSize, "$(a)")},
        {"distinct variables", deckOf(theSize, "$a@ ")},
        {"a long variable",
         filled(theSize, std::string(theDeckStart) + "$(", "v", std::string(")") + theDeckEnd)},
        {"dollars", deckOf(theSize, "$$")},
        {"references", deckOf(theSize, "&#9;&#x20AC;")},
        {"entities of the DTD", deckOf(theSize, "&amp;&nbsp;")},
        {"empty elements", deckOf(theSize, "<br/>")},
        {"small elements", deckOf(theSize, "<b></b>")},
        {"small anchors", deckOf(theSize, "<a href=''>x</a>")},
        {"deep elements",
         nested(theSize, 1424, theDeckStart, "<b>", "x<i>y</i>", "</b>", theDeckEnd)},
        {"elements deeper than allowed",
         nested(theSize, 1 << 20, theDeckStart, "<b>", "", "</b>", theDeckEnd)},
        {"open elements", filled(theSize, theDeckStart, "<b>", "")},
        {"comments", deckOf(theSize, "<!---->")},
        {"dashes in a comment", filled(theSize, std::string(theDeckStart) + "<!--", "- ",
                                       std::string("-->") + theDeckEnd)},
        {"an open comment", filled(theSize, std::string(theDeckStart) + "<!--", "- ", "")},
        {"CDATA sections", deckOf(theSize, "<![CDATA[x]]>")},
        {"brackets in CDATA", filled(theSize, std::string(theDeckStart) + "<![CDATA[", "]",
                                     std::string("]]>") + theDeckEnd)},
        {"brackets in text", deckOf(theSize, "]")},
        {"instructions", deckOf(theSize, "<?p d?>")},
        {"question marks in an instruction",
         filled(theSize, std::string(theDeckStart) + "<?p ", "?", std::string(" ?>") + theDeckEnd)},
        {"prolog instructions",
         filled(theSize, "", "<?p d@?>", std::string(theDoctype) + "<wml><card/></wml>")},
        {"one long attribute",
         filled(theSize, std::string(theDoctype) + "<wml><card title='", "x", "'/></wml>")},
        {"value tokens", filled(theSize, std::string(theDoctype) + "<wml><card><p><a href='",
                                ".com/http://www.", "'/></p></card></wml>")},
        {"nearly value tokens", filled(theSize, std::string(theDoctype) + "<wml><card><p><a href='",
                                       "http://ww.co.or", "'/></p></card></wml>")},
        {"variables in an attribute",
         filled(theSize, std::string(theDoctype) + "<wml><card title='", "$(a)", "'/></wml>")},
        {"references in an attribute",
         filled(theSize, std::string(theDoctype) + "<wml><card title='", "&#9;", "'/></wml>")},
        {"distinct texts", deckOf(theSize, "t@<br/>")},
        {"equal texts", deckOf(theSize, "some text<br/>")},
        {"two equal long texts", std::string(theDeckStart) + std::string(theSize / 2 - 100, 'x') +
                                     "<br/>" + std::string(theSize / 2 - 100, 'x') + theDeckEnd},
        {"texts that are ends of others",
         [&] {
             std::string text;
             for (std::size_t i = 1; text.size() + i + 5 < theSize - 200; i += 1) {
                 text += std::string(i, 'x') + "<br/>";
             }
             return theDeckStart + text + theDeckEnd;
         }()},
        {"ids", filled(theSize, std::string(theDoctype) + "<wml>", "<card id='i@'/>", "</wml>")},
        {"ids in the opposite order",
         [&] {
             std::string text = std::string(theDoctype) + "<wml>";
             for (std::size_t i = theSize / 20; i > 0; --i) {
                 text += "<card id='i" + std::to_string(100000 + i) + "'/>";
             }
             return text + "</wml>";
         }()},
        {"one id again and again",
         filled(theSize, std::string(theDoctype) + "<wml>", "<card id='i'/>", "</wml>")},
        {"postfields",
         deckOf(theSize, "<anchor><go href='x'><postfield name='a' value='b'/></go></anchor>")},
        {"tables", deckOf(theSize, "<table columns='1'><tr><td/></tr></table>")},
        {"many rows", filled(theSize, std::string(theDeckStart) + "<table columns='1'>",
                             "<tr><td>x</td></tr>", std::string("</table>") + theDeckEnd)},
        {"options", filled(theSize, std::string(theDeckStart) + "<select>", "<option value='@'/>",
                           std::string("</select>") + theDeckEnd)},
        {"metas", filled(theSize, std::string(theDoctype) + "<wml><head>",
                         "<meta name='@' content='c'/>", "</head><card/></wml>")},
        // Without a document type: what is used is implied.
        {"implied attributes", filled(theSize, "<wml", " a@=''", "/>")},
        {"implied attributes of one name", filled(theSize, "<wml", " a=''", "/>")},
        {"implied elements", filled(theSize, "<wml>", "<e@/>", "</wml>")},
        {"implied elements, again",
         "<wml>" + repeat("<e@/>", theSize / 18) + repeat("<e@/>", theSize / 18) + "</wml>"},
        {"implied elements in each other", nested(theSize, 1420, "<wml>", "<e@>", "x", "", "")},
        {"a long name", "<wml><" + name + "/></wml>"},
        {"a long name twice", "<wml><" + name.substr(0, theSize / 2 - 20) + "></" +
                                  name.substr(0, theSize / 2 - 20) + "></wml>"},
        {"a long name, again and again",
         "<wml><" + std::string(200, 'n') + ">" +
             fill(theSize - 500, "<" + std::string(200, 'n') + "/>") + "</" +
             std::string(200, 'n') + "></wml>"},
        {"implied attributes of many elements", filled(theSize, "<wml>", "<e@ a@='x'/>", "</wml>")},
        // Declared in the document.
        {"declared entities", declaring(theSize, "<!ENTITY e@ 'x'>", "&e@;")},
        {"one entity", declaring(theSize, "<!ENTITY e 'x'>", "&e;")},
        {"a chain of entities",
         [&] {
             std::string text = "<!DOCTYPE wml [<!ELEMENT wml ANY><!ENTITY e0 'x'>";
             std::size_t i = 0;
             while (text.size() < theSize / 2) {
                 ++i;
                 text += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i - 1) + ";'>";
             }
             return text + "]><wml>" +
                    fill(theSize / 2, "&e" + std::to_string(std::min<std::size_t>(i, 9000)) + ";") +
                    "</wml>";
         }()},
        {"an entity of text as often as the limit allows",
         "<!DOCTYPE wml [<!ELEMENT wml ANY><!ENTITY e '" + std::string(theSize / 2, 'x') +
             "'>]><wml>" + fill(std::min<std::size_t>(theSize / 2, 3 * 255), "&e;") + "</wml>"},
        {"an entity of runs of blanks as often as the limit allows",
         "<!DOCTYPE wml [<!ELEMENT wml ANY><!ENTITY e '" + fill(theSize / 2, "ab  ") + "'>]><wml>" +
             fill(std::min<std::size_t>(theSize / 2, 3 * 255), "&e;") + "</wml>"},
        {"an entity of doubled dollars as often as the limit allows",
         "<!DOCTYPE wml [<!ELEMENT wml ANY><!ENTITY e '" + fill(theSize / 2, "a$$b") + "'>]><wml>" +
             fill(std::min<std::size_t>(theSize / 2, 3 * 255), "&e;") + "</wml>"},
        {"an entity of elements as often as the limit allows",
         "<!DOCTYPE wml [<!ELEMENT wml ANY><!ENTITY e '<wml>" + fill(theSize / 2, "<wml/>") +
             "</wml>'>]><wml>" + fill(std::min<std::size_t>(theSize / 2, 3 * 255), "&e;") +
             "</wml>"},
        {"an entity of elements in an entity, beyond the limit",
         "<!DOCTYPE wml [<!ELEMENT wml ANY><!ENTITY e '<wml>" + fill(theSize / 2, "<wml/>") +
             "</wml>'><!ENTITY f '<wml>" + fill(theSize / 2 - 300, "&e;") +
             "</wml>'>]><wml>&f;&f;</wml>"},
        {"an entity in an attribute",
         "<!DOCTYPE wml [<!ELEMENT wml ANY><!ATTLIST wml a CDATA ''><!ENTITY e '" +
             std::string(theSize / 2, 'x') + "'>]><wml a='" + fill(3 * 255, "&e;") + "'/>"},
        {"an entity in many attributes",
         declaring(theSize, "<!ATTLIST wml a CDATA ''><!ENTITY e@ 'x'>", "<wml a='&e@;'/>")},
        {"declared elements", declaring(theSize, "<!ELEMENT e@ EMPTY>", "<e@/>")},
        {"declared attributes", halves(theSize, "<!DOCTYPE wml [<!ELEMENT wml ANY><!ATTLIST wml ",
                                       " a@ CDATA #IMPLIED", ">]>\n<wml", " a@=''", "/>")},
        {"attributes by default", halves(theSize, "<!DOCTYPE wml [<!ELEMENT wml ANY><!ATTLIST wml ",
                                         " a@ CDATA ''", ">]>\n<wml>", "<wml/>", "</wml>")},
        {"attributes that are implied",
         halves(theSize, "<!DOCTYPE wml [<!ELEMENT wml ANY><!ATTLIST wml ", " a@ CDATA #IMPLIED",
                ">]>\n<wml>", "<wml/>", "</wml>")},
        {"a long attribute by default", "<!DOCTYPE wml [<!ELEMENT wml ANY><!ATTLIST wml a CDATA '" +
                                            std::string(theSize / 2, 'x') + "'>]><wml>" +
                                            fill(theSize / 2, "<wml/>") + "</wml>"},
        {"an entity of default attributes",
         "<!DOCTYPE wml [<!ELEMENT wml ANY><!ATTLIST wml" + fill(theSize / 2, " a@ CDATA ''") +
             "><!ENTITY e '<wml>" + fill(theSize / 4, "<wml/>") + "</wml>'>]><wml>" +
             fill(theSize / 4, "&e;") + "</wml>"},
        {"an enumeration", halves(theSize, "<!DOCTYPE wml [<!ELEMENT wml ANY><!ATTLIST wml a (x",
                                  "|x@", ") 'x'>]>\n<wml>", "<wml a='x@'/>", "</wml>")},
        {"notations",
         halves(theSize, "<!DOCTYPE wml [<!ELEMENT wml ANY>", "<!NOTATION n@ PUBLIC 'x'>",
                "<!ATTLIST wml a NOTATION (n0) #IMPLIED>]>\n<wml>", "<wml a='n0'/>", "</wml>")},
        {"a notation attribute of many",
         halves(theSize, "<!DOCTYPE wml [<!ELEMENT wml ANY>", "<!NOTATION n@ PUBLIC 'x'>",
                "<!ATTLIST wml a NOTATION (n0", "|n@", ") #IMPLIED>]><wml/>")},
        {"declared ids", halves(theSize,
                                "<!DOCTYPE wml [<!ELEMENT wml ANY><!ATTLIST wml i ID #IMPLIED j "
                                "IDREFS #IMPLIED>]>\n<wml>",
                                "<wml i='i@'/>", "<wml j='", "i@ ", "'/></wml>")},
        {"references without ids",
         filled(theSize,
                "<!DOCTYPE wml [<!ELEMENT wml ANY><!ATTLIST wml j IDREFS #IMPLIED>]>\n<wml j='",
                "i@ ", "'/>")},
        {"name tokens",
         filled(theSize,
                "<!DOCTYPE wml [<!ELEMENT wml ANY><!ATTLIST wml j NMTOKENS #IMPLIED>]>\n<wml j='",
                "i ", "'/>")},
        {"unparsed entities", halves(theSize,
                                     "<!DOCTYPE wml [<!ELEMENT wml ANY><!NOTATION n PUBLIC "
                                     "'x'><!ATTLIST wml j ENTITIES #IMPLIED>",
                                     "<!ENTITY u@ SYSTEM '' NDATA n>", "]><wml j='", "u@ ", "'/>")},
        {"a choice and its children", halves(theSize, "<!DOCTYPE wml [<!ELEMENT wml (x", "|e@",
                                             ")*>]><wml>", "<e@/>", "</wml>")},
        {"a mixed model and its children", halves(theSize, "<!DOCTYPE wml [<!ELEMENT wml (#PCDATA",
                                                  "|wml|e@", ")*>]><wml>", "<wml/>", "</wml>")},
        {"a sequence", halves(theSize, "<!DOCTYPE wml [<!ELEMENT wml (wml?", ",e@?", ")>]><wml>",
                              "<wml/>", "</wml>")},
        {"a sequence that ends the parse late", "<!DOCTYPE wml [<!ELEMENT wml (" +
                                                    repeat("e@?,", 1990) + "wml*)>]><wml>" +
                                                    fill(theSize - 20000, "<wml/>") + "</wml>"},
        {"parameter entities",
         filled(theSize, "<!DOCTYPE wml [<!ENTITY % p ''>", "%p;", "]><wml/>")},
        {"open subsets", filled(theSize, "<!DOCTYPE wml [", "<!ENTITY e@ '", "")},
        {"many attribute lists",
         filled(theSize, "<!DOCTYPE wml [", "<!ATTLIST wml a@ CDATA ''>", "]><wml/>")},
        {"many attribute lists of elements",
         filled(theSize, "<!DOCTYPE wml [", "<!ATTLIST e@ a CDATA ''>", "]><wml/>")},
        {"deep documents with defaults",
         nested(theSize, root,
                "<!DOCTYPE wml [<!ELEMENT wml ANY><!ATTLIST wml a CDATA 'x' b CDATA 'y'>]>",
                "<wml>", "", "</wml>", "")},
    };
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

Inputs worstDtds(std::size_t theSize) {
    const auto chain = [&](std::string_view theUse) {
        std::string text = "<!ENTITY % p0 'EMPTY'>";
        std::size_t i = 0;
        while (text.size() < theSize / 2) {
            ++i;
            text += "<!ENTITY % p" + std::to_string(i) + " '&#37;p" + std::to_string(i - 1) + ";'>";
        }
        std::string unit(theUse);
        unit.replace(unit.find('#'), 1, std::to_string(i));
        return text + fill(theSize / 2, unit);
    };
    return {
        {"elements", fill(theSize, "<!ELEMENT e@ EMPTY>")},
        {"elements with models", fill(theSize, "<!ELEMENT e@ (a,b*,(c|d)+)>")},
        {"a sequence", filled(theSize, "<!ELEMENT a (z", ",a@", ")>")},
        {"a sequence of one name", filled(theSize, "<!ELEMENT a (a", ",a", ")>")},
        {"a sequence of optional names", filled(theSize, "<!ELEMENT a (z", ",a@?", ")>")},
        {"sequences of optional names",
         fill(theSize, "<!ELEMENT e@ (" + repeat("a@?,", 250) + "z)>")},
        {"sequences of repeated names",
         fill(theSize, "<!ELEMENT e@ (" + repeat("a@*,", 250) + "z)>")},
        {"larger sequences of optional names",
         fill(theSize, "<!ELEMENT e@ (" + repeat("a@?,", 1990) + "z?)>")},
        {"a choice", filled(theSize, "<!ELEMENT a (z", "|a@", ")*>")},
        {"choices in repeated groups", fill(theSize, "<!ELEMENT e@ ((" + repeat("a@|", 250) +
                                                         "z)+,(" + repeat("b@|", 250) + "z)+)*>")},
        {"a mixed model", filled(theSize, "<!ELEMENT a (#PCDATA", "|a@", ")*>")},
        {"nested groups",
         nested(theSize, 3300, "<!ELEMENT a ", "(", "", ")", ">") + "<!ELEMENT b (c)>"},
        {"nested optional groups",
         nested(theSize, 3300, "<!ELEMENT a (z,", "(", "z,", "z)?", ")>")},
        {"nested repeated groups", nested(theSize, 400, "<!ELEMENT a ", "(a@|", "z|", "y)*", ">")},
        {"nested groups of two",
         nested(theSize, 400, "<!ELEMENT a ", "((a@,b@?)*,", "z,", "y?)*", ">")},
        {"ambiguous models", fill(theSize, "<!ELEMENT e@ ((a,b)|(a,c))>")},
        {"attributes", filled(theSize, "<!ATTLIST a", " a@ CDATA #IMPLIED", ">")},
        {"attributes of one name", filled(theSize, "<!ATTLIST a", " a CDATA #IMPLIED", ">")},
        {"attribute lists", fill(theSize, "<!ATTLIST a a@ CDATA #IMPLIED>")},
        {"attribute lists of elements", fill(theSize, "<!ATTLIST a@ a CDATA #IMPLIED>")},
        {"an enumeration", filled(theSize, "<!ATTLIST a a (z", "|a@", ") 'z'>")},
        {"enumerations", filled(theSize, "<!ATTLIST a", " a@ (z|y) 'z'", ">")},
        {"defaults", filled(theSize, "<!ATTLIST a", " a@ CDATA 'x'", ">")},
        {"a long default", filled(theSize, "<!ATTLIST a a CDATA '", "x", "'>")},
        {"notations", fill(theSize, "<!NOTATION n@ PUBLIC 'x'>")},
        {"a notation attribute", halves(theSize, "", "<!NOTATION n@ PUBLIC 'x'>",
                                        "<!ATTLIST a a NOTATION (n0", "|n@", ") #IMPLIED>")},
        {"entities", fill(theSize, "<!ENTITY e@ 'x'>")},
        {"one entity again and again", fill(theSize, "<!ENTITY e 'x'>")},
        {"entities that name others", fill(theSize, "<!ENTITY e@ '&e@;'>")},
        {"parameter entities", fill(theSize, "<!ENTITY % e@ 'x'>")},
        {"uses of a parameter entity", filled(theSize, "<!ENTITY % e ''>", "%e;", "")},
        {"uses of a parameter entity in a text",
         filled(theSize, "<!ENTITY % e 'x'><!ENTITY x '", "%e;", "'>")},
        {"a long parameter entity in texts", "<!ENTITY % e '" + std::string(theSize / 2, 'x') +
                                                 "'><!ENTITY x '" + fill(700, "%e;") + "'>"},
        {"a parameter entity of declarations", "<!ENTITY % e '" +
                                                   fill(theSize / 2, "<!ELEMENT e@ EMPTY>") + "'>" +
                                                   fill(theSize / 2, "%e;")},
        {"a parameter entity of entities",
         "<!ENTITY % e '" + fill(theSize / 2, "<!ENTITY e \"\">") + "'>" + fill(750, "%e;")},
        {"a parameter entity of attributes", "<!ENTITY % e '" +
                                                 fill(theSize / 2, " a CDATA #IMPLIED") +
                                                 "'><!ATTLIST a" + fill(750, "%e;") + ">"},
        {"a parameter entity of spaces",
         "<!ENTITY % e '" + fill(theSize / 2, " ") + "'>" + fill(750, "%e;")},
        {"a chain of parameter entities", chain("%p#;")},
        {"a chain in declarations", chain("<!ELEMENT e@ %p#;>")},
        {"include sections", fill(theSize, "<![INCLUDE[]]>")},
        {"nested include sections",
         nested(theSize, 1600, "", "<![INCLUDE[", "<!ELEMENT e@ EMPTY>", "]]>", "")},
        {"ignore sections", fill(theSize, "<![IGNORE[]]>")},
        {"nested ignore sections", nested(theSize, 4900, "<![IGNORE[", "<![", "x", "]]>", "]]>")},
        {"signs in an ignore section", filled(theSize, "<![IGNORE[", "<", "]]>")},
        {"brackets in an ignore section", filled(theSize, "<![IGNORE[", "] ", "]]>")},
        {"an open ignore section", filled(theSize, "<![IGNORE[", "<!", "")},
        {"comments", fill(theSize, "<!---->")},
        {"blanks", fill(theSize, " ")},
    };
}

Inputs worstFiles(std::size_t theSize) {
    const auto table = [](const std::string& theTable, const std::string& theBody) {
        return bytes({3, 4, 0x6A}) + multiByte(theTable.size()) + theTable + theBody;
    };
    const std::string text = std::string(theSize / 2, 'x') + '\0';
    const std::string end(1, '\x01');
    Inputs result = {
        {"nested elements", bytes({3, 4, 0x6A, 0}) + std::string(theSize / 2, '\x60') +
                                std::string(theSize / 2, '\x01')},
        {"open elements", bytes({3, 4, 0x6A, 0}) + std::string(theSize, '\x60')},
        {"empty elements", bytes({3, 4, 0x6A, 0, 0x7F}) + std::string(theSize, '\x26') + end},
        {"literal names",
         table(text, bytes({0x44, 0}) + fill(theSize / 2, std::string_view("\x04\0", 2)) + end)},
        {"references to one long string",
         table(text, '\x60' + fill(700, std::string_view("\x83\0", 2)) + end)},
        {"references into one long string",
         [&] {
             std::string body(1, '\x60');
             for (std::size_t i = 0; i < 900; ++i) {
                 body += '\x83' + multiByte(i);
             }
             return table(text, body + end);
         }()},
        {"references beyond the limit",
         table(text, '\x60' + fill(theSize / 2, std::string_view("\x83\0", 2)) + end)},
        {"references to an empty string",
         table(std::string(1, '\0'), '\x60' + fill(theSize, std::string_view("\x83\0", 2)) + end)},
        {"empty strings in the table", table(std::string(theSize, '\0'), "\x20")},
        {"entities", bytes({3, 4, 0x6A, 0, 0x60}) + fill(theSize, "\x02\x21") + end},
        {"empty strings",
         bytes({3, 4, 0x6A, 0, 0x60}) + fill(theSize, std::string_view("\x03\0", 2)) + end},
        {"one long string",
         bytes({3, 4, 0x6A, 0, 0x60, 3}) + std::string(theSize, 'x') + '\0' + end},
        {"one string of signs",
         bytes({3, 4, 0x6A, 0, 0x60, 3}) + std::string(theSize, '<') + '\0' + end},
        {"one string of control characters",
         bytes({3, 4, 0x6A, 0, 0x60, 3}) + std::string(theSize, '\x02') + '\0' + end},
        {"one string of bad bytes",
         bytes({3, 4, 0x6A, 0, 0x60, 3}) + std::string(theSize, '\xFF') + '\0' + end},
        {"one opaque block", bytes({3, 4, 0x6A, 0, 0x60, 0xC3}) + multiByte(theSize) +
                                 std::string(theSize, '\x01') + end},
        {"small opaque blocks", bytes({3, 4, 0x6A, 0, 0x60}) + fill(theSize, "\xC3\x01\x01") + end},
        {"variables",
         bytes({3, 4, 0x6A, 0, 0x60}) + fill(theSize, std::string_view("\x41v\0", 3)) + end},
        {"extensions", bytes({3, 4, 0x6A, 0, 0x60}) + fill(theSize, "\xC0") + end},
        {"page switches",
         bytes({3, 4, 0x6A, 0, 0x60}) + fill(theSize, std::string_view("\0\0", 2)) + end},
        {"attributes", bytes({3, 4, 0x6A, 0, 0xA0}) + fill(theSize, "\x11") + end},
        {"attribute values", bytes({3, 4, 0x6A, 0, 0xA0, 0x11}) + fill(theSize, "\x85") + end},
        {"unknown attributes", bytes({3, 1, 0x6A, 0, 0x88}) + fill(theSize, "\x7F") + end},
        {"instructions", bytes({3, 4, 0x6A, 0}) + fill(theSize, "\x43\x11\x01") + '\x20'},
        {"UCS-2", bytes({3, 4, 0x87, 0x68, 0, 0x60}) +
                      fill(theSize, std::string_view("\x03\x20\xAC\0\0", 5)) + end},
        {"nothing", std::string(theSize, '\0')},
    };
    // Each constant that is large is loaded as often as the rest of the file allows.
    const std::pair<const char*, std::string> scripts[] = {
        {"loads of one long constant",
         filled(theSize, "extern function f() { return \"" + std::string(theSize / 2, 'x') + "\"",
                "+ \"" + std::string(theSize / 2, 'x') + "\"", "; }")},
        {"functions", fill(theSize / 4, "") + repeat("extern function f@() {}\n", 255)},
        {"calls", functionOf(theSize, "f(a,b);")},
        {"jumps", makeJumpingFunction(theSize / 40)},
        {"jumps to one label", filled(30000, "function f(a) { return a", "||a", "; }")},
        {"user agent pragmas",
         filled(theSize / 2, "", "use meta user agent \"n\" \"c\";", "function f() {}")},
        {"distinct numbers", functionOf(theSize, "a=@;")},
    };
    for (const auto& [name, source] : scripts) {
        const std::string file = compiled(WMLSCompile, source);
        if (!file.empty()) {
            result.push_back({std::string("script: ") + name, file});
        }
    }
    // By hand, since the compiler makes no such thing: a constant of half the file, and loads.
    const std::string body = fill(theSize / 2, std::string_view("\x60\x37", 2));  // constant 0, POP
    const std::string constant =
        bytes({3}) + multiByte(theSize / 2) + std::string(theSize / 2, 'x');
    std::string rest = bytes({1, 0x6A}) + constant + bytes({0}) + bytes({1, 1, 0, 1, 'f'}) +
                       bytes({0, 0}) + multiByte(body.size()) + body;
    result.push_back(
        {"script: a long constant and its loads", bytes({1}) + multiByte(rest.size()) + rest});
    return result;
}

Inputs worstSettings(std::size_t theSize) {
    return {
        {"blanks", fill(theSize, " ")},
        {"lines", fill(theSize, "\n")},
        {"comments", fill(theSize, "#\n")},
        {"sections", fill(theSize, "[@]\n")},
        {"one section", fill(theSize, "[s]\n")},
        {"one long section", filled(theSize, "[", "s", "]\n")},
        {"values", filled(theSize, "[s]\n", "@=\n", "")},
        {"one value", filled(theSize, "[s]\n", "n=\n", "")},
        {"values of long names", filled(theSize, "[s]\n", std::string(500, 'N') + "@=\n", "")},
        {"one long value", filled(theSize, "[s]\nn=", "v", "\n")},
        {"blanks in a line", filled(theSize, "[s]\n", " ", "n=v")},
        {"quotes", filled(theSize, "[s]\nn=", "\"", "\n")},
    };
}

Inputs worstTexts(std::size_t theSize) {
    return {
        {"letters", fill(theSize, "x")},
        {"NULs", fill(theSize, std::string_view("\0", 1))},
        {"bytes of 0x80", fill(theSize, "\x80")},
        {"bytes of 0xA4", fill(theSize, "\xA4")},
        {"bytes of 0xFE", fill(theSize, "\xFE")},
        {"bytes of 0xFF", fill(theSize, "\xFF")},
        {"two bytes each in UTF-8", fill(theSize, "\xC3\xA9")},
        {"three bytes each in UTF-8", fill(theSize, "\xE4\xB8\xAD")},
        {"Hangul", fill(theSize, "\xEA\xB0\x80")},
        {"four bytes each in UTF-8", fill(theSize, "\xF0\x9F\x98\x80")},
        {"Euro signs", fill(theSize, "\xE2\x82\xAC")},
        {"surrogates", fill(theSize, "\xED\xA0\x80")},
        {"Shift JIS", fill(theSize, "\x88\x9F\xB1")},
        {"EUC", fill(theSize, "\xB0\xA1")},
        {"shifts of ISO-2022-JP", fill(theSize, "\x1B$B0!\x1B(B")},
        {"shifts without text", fill(theSize, "\x1B$B\x1B(B")},
        {"open escapes", fill(theSize, "\x1B")},
        {"shifts of ISO-2022-KR", filled(theSize, "\x1B$)C",
                                         "\x0E"
                                         "0!\x0F",
                                         "")},
        {"mixed scripts", fill(theSize, "a\xE4\xB8\xAD")},
        {"escapes of entities", fill(theSize, "&#8364;")},
        {"escapes of U+", fill(theSize, "\\u20AC")},
        {"private characters", fill(theSize, "\xEE\x80\x80")},
    };
}

}  // namespace lumnis::bench
