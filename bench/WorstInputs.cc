#include "WorstInputs.h"

#include <cstdlib>
#include <string_view>

#include "InputText.h"
#include "ScriptPrograms.h"
#include "WmlDtd.h"
#include "lumnisutil.h"

namespace lumnis::bench {

namespace {

using Inputs = std::vector<WorstInput>;

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
