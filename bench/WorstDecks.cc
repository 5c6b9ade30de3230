#include <string_view>

#include "InputText.h"
#include "WorstInputs.h"

namespace lumnis::bench {

namespace {

using Inputs = std::vector<WorstInput>;

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

}  // namespace lumnis::bench
