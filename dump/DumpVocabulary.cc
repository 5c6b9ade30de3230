#include "DumpVocabulary.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace lumnis {

namespace {

// clang-format off
constexpr DumpPublicId thePublicIds[] = {
    {0x02, "-//WAPFORUM//DTD WML 1.0//EN",     "http://www.wapforum.org/DTD/wml.xml",         true},
    {0x03, "-//WAPFORUM//DTD WTA 1.0//EN",     "",                                            false},
    {0x04, "-//WAPFORUM//DTD WML 1.1//EN",     "http://www.wapforum.org/DTD/wml_1.1.xml",     true},
    {0x05, "-//WAPFORUM//DTD SI 1.0//EN",      "",                                            false},
    {0x06, "-//WAPFORUM//DTD SL 1.0//EN",      "",                                            false},
    {0x07, "-//WAPFORUM//DTD CO 1.0//EN",      "",                                            false},
    {0x08, "-//WAPFORUM//DTD CHANNEL 1.1//EN", "",                                            false},
    {0x09, "-//WAPFORUM//DTD WML 1.2//EN",     "http://www.wapforum.org/DTD/wml12.dtd",       true},
    {0x0A, "-//WAPFORUM//DTD WML 1.3//EN",     "http://www.wapforum.org/DTD/wml13.dtd",       true},
    {0x0B, "-//WAPFORUM//DTD PROV 1.0//EN",    "",                                            false},
    {0x0C, "-//WAPFORUM//DTD WTA-WML 1.2//EN", "http://www.wapforum.org/DTD/wta-wml12.dtd",   true},
    {0x0D, "-//WAPFORUM//DTD EMN 1.0//EN",     "",                                            false},
};
// clang-format on

constexpr std::string_view theElementContentTags[] = {
    "card",    "do",     "go",    "head",     "onevent", "optgroup", "prev",
    "refresh", "select", "table", "template", "tr",      "wml",      "wta-wml",
};

// theRows are in the order of their tokens.
template <typename Row, std::size_t theSize>
const Row* findToken(const std::array<Row, theSize>& theRows, unsigned theToken) {
    const auto row = std::lower_bound(
        theRows.begin(), theRows.end(), theToken,
        [](const Row& theRow, unsigned theValue) { return theRow.token < theValue; });
    return row != theRows.end() && row->token == theToken ? &*row : nullptr;
}

}  // namespace

const DumpPublicId* findPublicId(std::uint32_t theNumber) {
    for (const DumpPublicId& row : thePublicIds) {
        if (row.number == theNumber) {
            return &row;
        }
    }
    return nullptr;
}

const DumpPublicId* findPublicId(std::string_view theName) {
    for (const DumpPublicId& row : thePublicIds) {
        if (row.name == theName) {
            return &row;
        }
    }
    return nullptr;
}

const WmlTagToken* findWmlTag(unsigned thePage, unsigned theToken) {
    return thePage == 0                ? findToken(theWmlTagTokens, theToken)
           : thePage == theWtaCodePage ? findToken(theWtaTagTokens, theToken)
                                       : nullptr;
}

const WmlAttrToken* findWmlAttr(unsigned thePage, unsigned theToken) {
    return thePage == 0                ? findToken(theWmlAttrTokens, theToken)
           : thePage == theWtaCodePage ? findToken(theWtaAttrTokens, theToken)
                                       : nullptr;
}

const WmlAttrValueToken* findWmlAttrValue(unsigned thePage, unsigned theToken) {
    return thePage == 0 ? findToken(theWmlAttrValueTokens, theToken) : nullptr;
}

bool hasElementContent(std::string_view theWmlTag) {
    return std::find(std::begin(theElementContentTags), std::end(theElementContentTags),
                     theWmlTag) != std::end(theElementContentTags);
}

}  // namespace lumnis
