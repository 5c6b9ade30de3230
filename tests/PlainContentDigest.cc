// Checks many small documents, made of plain and of unusual pieces, and prints for each what its
// events and its message come to. CTest compares the output of this program with that of its
// twin, in which the generated parser takes every step itself (PlainContent.cmake).
//
// With a number as its argument it prints that document and its events instead.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <random>
#include <sstream>
#include <string>

#include "DocumentChecker.h"

namespace lumnis {
namespace {

constexpr unsigned theDocuments = 20000;

constexpr const char* theSubset =
    "<!DOCTYPE r [\n"
    "<!ELEMENT r (#PCDATA|a|b|c|d|e)*>\n"
    "<!ELEMENT a ANY><!ATTLIST a x CDATA #IMPLIED id ID #IMPLIED n NMTOKEN #IMPLIED\n"
    "  f CDATA #FIXED 'f' k (u|v) 'u'>\n"
    "<!ELEMENT b (c,d?)><!ELEMENT c EMPTY><!ATTLIST c q CDATA #REQUIRED>\n"
    "<!ELEMENT d (#PCDATA)><!ELEMENT e (a|b)*>\n"
    "<!ENTITY t 'text'><!ENTITY m 'x<a>in\n</a>y'><!ENTITY o '<a>'><!ENTITY s ' \n '>\n"
    "<!ENTITY w '<a><a/>t&#10;<a x=\"1\">u\n</a>&#38;#65;&t; <a k=\"w\"/></a>'>\n"
    "<!ENTITY v '<a>&w;\n<a/></a>'><!ENTITY x '<a><a x=\"'><!ENTITY y '<a><a></'>\n"
    "]>\n";

constexpr const char* thePieces[] = {"<a>",
                                     "</a>",
                                     "<a>",
                                     "</a>",
                                     "<a>",
                                     "</a>",
                                     "<b>",
                                     "</b>",
                                     "<c q='1'/>",
                                     "<c/>",
                                     "<d>",
                                     "</d>",
                                     "<d>word</d>",
                                     "<e>",
                                     "</e>",
                                     "<e></e>",
                                     "<b><c q=\"\"></c></b>",
                                     "<a/>",
                                     "<a />",
                                     "<a\n>",
                                     "</a\n>",
                                     "</a >",
                                     "<a x='1' n=\"tok\">",
                                     "<a x='&t;'>",
                                     "<a x=\"a\nb\">",
                                     "<a x='a&amp;\nb' id=\"k&t;\">",
                                     "<a n=' tok ' x='>'>",
                                     "<a n='1.x' k=' u'>",
                                     "<a n='a b'>",
                                     "<a n='' x=''>",
                                     "<a id='1'>",
                                     "<a x = 'y'>",
                                     "<a\n x='1'\n>",
                                     "<a x='1'x='2'>",
                                     "<a id='i'>",
                                     "<a f='f'>",
                                     "<a f='g'>",
                                     "<a k='v'>",
                                     "<a k='w'>",
                                     "<a x='<'>",
                                     "<a x='",
                                     "<a \xC3\xA4='1'>",
                                     "<\xC3\xA4>",
                                     "<a:b-c.d>",
                                     "<1>",
                                     "< a>",
                                     "text",
                                     "more text\n",
                                     " ",
                                     "\n",
                                     "\r\n",
                                     "\t",
                                     "]",
                                     "]]",
                                     "]]>",
                                     "a]b",
                                     "&t;",
                                     "&m;",
                                     "&w;",
                                     "&v;",
                                     "&x;",
                                     "&y;",
                                     "&o;",
                                     "&s;",
                                     "&amp;",
                                     "&#10;",
                                     "&#x20;",
                                     "text&#65;text",
                                     "&#169;\n ",
                                     "\n&#xA9;x",
                                     "&#0;",
                                     "&#x110000;",
                                     "&#;",
                                     "&#12",
                                     "&#x;",
                                     "&u;",
                                     "&",
                                     "<!-- c\n -->",
                                     "<!---->",
                                     "<?pi data\n?>",
                                     "<?pi?>",
                                     "<![CDATA[\n<c>]]>",
                                     "<![CDATA[]]>",
                                     "<!x",
                                     ">",
                                     "/>",
                                     "<",
                                     "\xFF",
                                     "\xC3\xA4"};

std::string makeDocument(unsigned theNumber) {
    std::mt19937 random(theNumber);
    const auto below = [&](std::size_t theLimit) { return random() % theLimit; };
    std::string document = below(8) == 0 ? "" : theSubset;
    document += below(4) == 0 ? "<r\n>" : "<r>";
    // Short ones go through without a fault more often, and reach what is behind them.
    for (std::size_t left = 1 + below(1 + theNumber % 24); left != 0; --left) {
        document += thePieces[below(std::size(thePieces))];
    }
    if (below(16) == 0) {
        for (unsigned depth = 0; depth < 3000; ++depth) {
            document += "<a>";
        }
    }
    document += "</r>";
    if (below(8) == 0) {
        document[below(document.size())] = static_cast<char>(below(256));
    }
    return document;
}

std::string outcome(const std::string& theDocument, bool isNonvalidating) {
    std::ostringstream events;
    DocumentChecker checker(&events);
    checker.setNonvalidating(isNonvalidating);
    const CpsString text{std::string_view(theDocument)};
    if (const auto fault = checker.check(text, nullptr)) {
        events << fault->line << ": " << fault->message.view() << '\n';
    }
    return events.str();
}

std::uint64_t digest(const std::string& theText) {
    std::uint64_t result = 14695981039346656037u;  // FNV-1a
    for (const char c : theText) {
        result = (result ^ static_cast<unsigned char>(c)) * 1099511628211u;
    }
    return result;
}

}  // namespace
}  // namespace lumnis

int main(int argc, char** argv) {
    if (argc > 1) {
        const std::string document =
            lumnis::makeDocument(static_cast<unsigned>(std::strtoul(argv[1], nullptr, 10)));
        std::printf("%s\n----\n%s", document.c_str(), lumnis::outcome(document, false).c_str());
        return 0;
    }
    for (unsigned number = 0; number < lumnis::theDocuments; ++number) {
        const std::string document = lumnis::makeDocument(number);
        std::printf("%u %016jx\n", number,
                    static_cast<std::uintmax_t>(
                        lumnis::digest(lumnis::outcome(document, number % 4 == 0))));
    }
}
