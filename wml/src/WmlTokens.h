// The tokens of WML (WML 1.3, 14) and of WTA-WML: one table each, shared by the encoder and by
// whoever reads WBXML.
//
// Tables are in the order of their tokens. Tags are without the bits for attributes and content.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <string_view>

namespace lumnis {

struct WmlTagToken {
    unsigned char token;
    std::string_view name;
};

struct WmlAttrToken {
    unsigned char token;
    std::string_view name;
    std::string_view prefix;  // what the token says of the value; empty: the whole value follows
};

struct WmlAttrValueToken {
    unsigned char token;
    std::string_view text;  // anywhere in a value
};

// Code page of the tokens that only WTA-WML has.
inline constexpr unsigned theWtaCodePage = 1;

// Tags, code page 0.
// clang-format off
inline constexpr std::array theWmlTagTokens = std::to_array<WmlTagToken>({
    {0x1B, "pre"},
    {0x1C, "a"},
    {0x1D, "td"},
    {0x1E, "tr"},
    {0x1F, "table"},
    {0x20, "p"},
    {0x21, "postfield"},
    {0x22, "anchor"},
    {0x23, "access"},
    {0x24, "b"},
    {0x25, "big"},
    {0x26, "br"},
    {0x27, "card"},
    {0x28, "do"},
    {0x29, "em"},
    {0x2A, "fieldset"},
    {0x2B, "go"},
    {0x2C, "head"},
    {0x2D, "i"},
    {0x2E, "img"},
    {0x2F, "input"},
    {0x30, "meta"},
    {0x31, "noop"},
    {0x32, "prev"},
    {0x33, "onevent"},
    {0x34, "optgroup"},
    {0x35, "option"},
    {0x36, "refresh"},
    {0x37, "select"},
    {0x38, "small"},
    {0x39, "strong"},
    {0x3B, "template"},
    {0x3C, "timer"},
    {0x3D, "u"},
    {0x3E, "setvar"},
    {0x3F, "wml"},
});
// clang-format on

// Tags, code page 1.
inline constexpr std::array theWtaTagTokens = std::to_array<WmlTagToken>({
    {0x3F, "wta-wml"},
});

// Attribute starts, code page 0.
inline constexpr std::array theWmlAttrTokens = std::to_array<WmlAttrToken>({
    {0x05, "accept-charset", ""},
    {0x06, "align", "bottom"},
    {0x07, "align", "center"},
    {0x08, "align", "left"},
    {0x09, "align", "middle"},
    {0x0A, "align", "right"},
    {0x0B, "align", "top"},
    {0x0C, "alt", ""},
    {0x0D, "content", ""},
    {0x0F, "domain", ""},
    {0x10, "emptyok", "false"},
    {0x11, "emptyok", "true"},
    {0x12, "format", ""},
    {0x13, "height", ""},
    {0x14, "hspace", ""},
    {0x15, "ivalue", ""},
    {0x16, "iname", ""},
    {0x18, "label", ""},
    {0x19, "localsrc", ""},
    {0x1A, "maxlength", ""},
    {0x1B, "method", "get"},
    {0x1C, "method", "post"},
    {0x1D, "mode", "nowrap"},
    {0x1E, "mode", "wrap"},
    {0x1F, "multiple", "false"},
    {0x20, "multiple", "true"},
    {0x21, "name", ""},
    {0x22, "newcontext", "false"},
    {0x23, "newcontext", "true"},
    {0x24, "onpick", ""},
    {0x25, "onenterbackward", ""},
    {0x26, "onenterforward", ""},
    {0x27, "ontimer", ""},
    {0x28, "optional", "false"},
    {0x29, "optional", "true"},
    {0x2A, "path", ""},
    {0x2E, "scheme", ""},
    {0x2F, "sendreferer", "false"},
    {0x30, "sendreferer", "true"},
    {0x31, "size", ""},
    {0x32, "src", ""},
    {0x33, "ordered", "true"},
    {0x34, "ordered", "false"},
    {0x35, "tabindex", ""},
    {0x36, "title", ""},
    {0x37, "type", ""},
    {0x38, "type", "accept"},
    {0x39, "type", "delete"},
    {0x3A, "type", "help"},
    {0x3B, "type", "password"},
    {0x3C, "type", "onpick"},
    {0x3D, "type", "onenterbackward"},
    {0x3E, "type", "onenterforward"},
    {0x3F, "type", "ontimer"},
    {0x45, "type", "options"},
    {0x46, "type", "prev"},
    {0x47, "type", "reset"},
    {0x48, "type", "text"},
    {0x49, "type", "vnd."},
    {0x4A, "href", ""},
    {0x4B, "href", "http://"},
    {0x4C, "href", "https://"},
    {0x4D, "value", ""},
    {0x4E, "vspace", ""},
    {0x4F, "width", ""},
    {0x50, "xml:lang", ""},
    {0x52, "align", ""},
    {0x53, "columns", ""},
    {0x54, "class", ""},
    {0x55, "id", ""},
    {0x56, "forua", "false"},
    {0x57, "forua", "true"},
    {0x58, "src", "http://"},
    {0x59, "src", "https://"},
    {0x5A, "http-equiv", ""},
    {0x5B, "http-equiv", "Content-Type"},
    {0x5C, "content", "application/vnd.wap.wmlc;charset="},
    {0x5D, "http-equiv", "Expires"},
    {0x5E, "accesskey", ""},
    {0x5F, "enctype", ""},
    {0x60, "enctype", "application/x-www-form-urlencoded"},
    {0x61, "enctype", "multipart/form-data"},
    {0x62, "xml:space", "preserve"},
    {0x63, "xml:space", "default"},
    {0x64, "cache-control", "no-cache"},
});

// Attribute starts, code page 1.
// clang-format off
inline constexpr std::array theWtaAttrTokens = std::to_array<WmlAttrToken>({
    {0x05, "href", "wtai://"},
    {0x06, "href", "wtai://wp/mc;"},
    {0x07, "href", "wtai://wp/sd;"},
    {0x08, "href", "wtai://wp/ap;"},
    {0x09, "href", "wtai://ms/ec"},
    {0x10, "type", "wtaev-"},
    {0x11, "type", "wtaev-cc/"},
    {0x12, "type", "wtaev-cc/ic"},
    {0x13, "type", "wtaev-cc/cl"},
    {0x14, "type", "wtaev-cc/co"},
    {0x15, "type", "wtaev-cc/oc"},
    {0x16, "type", "wtaev-cc/cc"},
    {0x17, "type", "wtaev-cc/dtmf"},
    {0x20, "type", "wtaev-nt/"},
    {0x21, "type", "wtaev-nt/it"},
    {0x22, "type", "wtaev-nt/st"},
    {0x30, "type", "wtaev-pb/"},
    {0x38, "type", "wtaev-lg/"},
    {0x50, "type", "wtaev-ms/"},
    {0x51, "type", "wtaev-ms/ns"},
    {0x58, "type", "wtaev-gsm/"},
    {0x59, "type", "wtaev-gsm/ru"},
    {0x5A, "type", "wtaev-gsm/ch"},
    {0x5B, "type", "wtaev-gsm/ca"},
    {0x60, "type", "wtaev-pdc/"},
    {0x68, "type", "wtaev-ansi136/"},
    {0x69, "type", "wtaev-ansi136/ia"},
    {0x6A, "type", "wtaev-ansi136/if"},
    {0x70, "type", "wtaev-cdma/"},
});
// clang-format on

// Attribute values, code page 0.
inline constexpr std::array theWmlAttrValueTokens = std::to_array<WmlAttrValueToken>({
    {0x85, ".com/"},
    {0x86, ".edu/"},
    {0x87, ".net/"},
    {0x88, ".org/"},
    {0x89, "accept"},
    {0x8A, "bottom"},
    {0x8B, "clear"},
    {0x8C, "delete"},
    {0x8D, "help"},
    {0x8E, "http://"},
    {0x8F, "http://www."},
    {0x90, "https://"},
    {0x91, "https://www."},
    {0x93, "middle"},
    {0x94, "nowrap"},
    {0x95, "onpick"},
    {0x96, "onenterbackward"},
    {0x97, "onenterforward"},
    {0x98, "ontimer"},
    {0x99, "options"},
    {0x9A, "password"},
    {0x9B, "reset"},
    {0x9D, "text"},
    {0x9E, "top"},
    {0x9F, "unknown"},
    {0xA0, "wrap"},
    {0xA1, "Www."},  // with a capital: no token stands for a lower-case "www."
});
namespace wmltokens {

template <typename Rows>
constexpr bool areInTokenOrder(const Rows& theRows, unsigned theFirst, unsigned theLast) {
    // No token is below the one before, or the same.
    return std::adjacent_find(theRows.begin(), theRows.end(),
                              [](const auto& a, const auto& b) { return a.token >= b.token; }) ==
               theRows.end() &&
           theRows.front().token >= theFirst && theRows.back().token <= theLast;
}

template <typename Rows, typename Key>
constexpr bool areUnique(const Rows& theRows, Key theKey) {
    for (std::size_t i = 0; i < theRows.size(); ++i) {
        for (std::size_t k = i + 1; k < theRows.size(); ++k) {
            if (theKey(theRows[i], theRows[k])) {
                return false;
            }
        }
    }
    return true;
}

constexpr bool isSameTag(const WmlTagToken& a, const WmlTagToken& b) {
    return a.name == b.name;
}
constexpr bool isSameStart(const WmlAttrToken& a, const WmlAttrToken& b) {
    return a.name == b.name && a.prefix == b.prefix;
}
constexpr bool isSameText(const WmlAttrValueToken& a, const WmlAttrValueToken& b) {
    return a.text == b.text;
}

// WBXML 1.3, 5.8.2 and 5.8.3: tags are 0x05 to 0x3F, attribute starts 0x05 to 0x7F but for the
// global tokens 0x40 to 0x44, attribute values 0x85 to 0xFF but for 0xC0 to 0xC4; here up to 0xBF.
static_assert(areInTokenOrder(theWmlTagTokens, 0x05, 0x3F));
static_assert(areInTokenOrder(theWtaTagTokens, 0x05, 0x3F));
static_assert(areInTokenOrder(theWmlAttrTokens, 0x05, 0x7F));
static_assert(areInTokenOrder(theWtaAttrTokens, 0x05, 0x7F));
static_assert(areInTokenOrder(theWmlAttrValueTokens, 0x85, 0xBF));
static_assert(areUnique(theWmlTagTokens, isSameTag));
static_assert(areUnique(theWmlAttrTokens, isSameStart));
static_assert(areUnique(theWtaAttrTokens, isSameStart));
static_assert(areUnique(theWmlAttrValueTokens, isSameText));
static_assert(std::none_of(theWmlAttrTokens.begin(), theWmlAttrTokens.end(),
                           [](const auto& row) { return row.token >= 0x40 && row.token <= 0x44; }));

}  // namespace wmltokens

// The token of theName on its page. Throws std::runtime_error for a name that is in neither table:
// in a constant expression, a fault of the build.
constexpr unsigned char wmlTagToken(std::string_view theName) {
    for (const WmlTagToken& row : theWmlTagTokens) {
        if (row.name == theName) {
            return row.token;
        }
    }
    for (const WmlTagToken& row : theWtaTagTokens) {
        if (row.name == theName) {
            return row.token;
        }
    }
    throw std::runtime_error("Internal error: no such tag");
}

// The token on page 0 for an attribute start with exactly this prefix. Throws as wmlTagToken.
constexpr unsigned char wmlAttrToken(std::string_view theName, std::string_view thePrefix = "") {
    for (const WmlAttrToken& row : theWmlAttrTokens) {
        if (row.name == theName && row.prefix == thePrefix) {
            return row.token;
        }
    }
    throw std::runtime_error("Internal error: no such attribute start");
}

}  // namespace lumnis
