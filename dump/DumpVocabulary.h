// From the numbers of WBXML to names: the tables of the encoder, read the other way round, and the
// public identifiers of the registry.
#pragma once

#include <cstdint>
#include <string_view>

#include "WmlTokens.h"

namespace lumnis {

// A registered public identifier: WBXML 1.3, 7.2. The encoder writes 13 for "CHANNEL 1.2" as well,
// which the registry does not list.
struct DumpPublicId {
    std::uint32_t number;
    std::string_view name;
    std::string_view systemId;  // where the DTD is published; empty where it is not WML
    bool isWml;                 // the tokens are those of WML or WTA-WML
};

// By number, or by the identifier itself. Null for one that is not registered, and for the numbers
// 0 and 1, which stand for an identifier in the string table and for an unknown one.
const DumpPublicId* findPublicId(std::uint32_t theNumber);
const DumpPublicId* findPublicId(std::string_view theName);

// Names of WML and WTA-WML by code page and token. Null where the page has no such token.
const WmlTagToken* findWmlTag(unsigned thePage, unsigned theToken);
const WmlAttrToken* findWmlAttr(unsigned thePage, unsigned theToken);
const WmlAttrValueToken* findWmlAttrValue(unsigned thePage, unsigned theToken);

// Whether a WML element has only elements in it: white space between them means nothing.
bool hasElementContent(std::string_view theWmlTag);

}  // namespace lumnis
