// What a reader finds in a file: a flat list of annotated pieces, in the order of their bytes.
// Nesting is a number in the pieces, so that neither readers nor printers need a stack for it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace lumnis {

enum class DumpFormat : std::uint8_t { wbxml, script };

enum class DumpKind : std::uint8_t {
    header,  // a field: token is its name, text its value
    string,  // of the string table: token tells its offset there
    // WBXML
    page,           // SWITCH_PAGE: value is the page
    tag,            // name; depth is that of the element
    attribute,      // name, and in text what the token says of the value
    attributesEnd,  // the END after the attributes of a tag
    elementEnd,     // name of the element that ends
    text,           // in content, in an attribute or in an instruction
    variable,       // name, and in text the conversion: "e", "u" or "n"
    entity,         // value is the code of the character
    opaque,         // text: as it is if it is UTF-8 without control characters, else hexadecimal
    extension,      // of an unknown vocabulary, or without meaning in WML
    pi,             // target in name, what the token says of the data in text
    piEnd,
    // byte code
    constant,      // value is its index
    pragma,        // text the indices of its constants, name their texts
    functionName,  // value is the number of the function
    function,      // the first field of a function, whose name and number these are
    label,         // no bytes: value is its number, from 1 in each function
    instruction    // token is its name, text the operands, name what they stand for
};

// Texts are UTF-8. A byte that the charset of the file gives no meaning is \xHH there.
struct DumpPiece {
    DumpKind kind = DumpKind::header;
    bool hasAttributes = false;  // of a tag
    bool hasContent = false;     // of a tag
    std::uint32_t offset = 0;    // in bytes from the start of the file
    std::uint32_t length = 0;    // in bytes
    std::uint32_t depth = 0;     // of elements around it
    std::uint32_t value = 0;
    std::string token;
    std::string name;
    std::string text;
};

struct DumpFault {
    std::uint32_t offset;  // of the first byte that cannot be right
    std::string message;
};

struct DumpListing {
    DumpFormat format = DumpFormat::wbxml;
    bool isWml = false;             // the WBXML has the vocabulary of WML or WTA-WML
    std::string publicId;           // of WBXML; empty if it has none
    std::vector<DumpPiece> pieces;  // as far as the file could be read
    std::optional<DumpFault> fault;
};

}  // namespace lumnis
