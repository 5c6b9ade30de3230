#include <iterator>

#include "DumpPrinter.h"
#include "PrintableText.h"

namespace lumnis {

namespace {

// In the order of DumpKind.
constexpr std::string_view theKindNames[] = {
    "header",        "string",       "page",     "tag",      "attribute",
    "attributesEnd", "elementEnd",   "text",     "variable", "entity",
    "opaque",        "extension",    "pi",       "piEnd",    "constant",
    "pragma",        "functionName", "function", "label",    "instruction"};
static_assert(std::size(theKindNames) == static_cast<std::size_t>(DumpKind::instruction) + 1);

std::string hexText(std::string_view theBytes) {
    std::string result;
    for (const char byte : theBytes) {
        result += hexByte(static_cast<unsigned char>(byte));
    }
    return result;
}

bool hasValue(DumpKind theKind) {
    return theKind == DumpKind::page || theKind == DumpKind::entity ||
           theKind == DumpKind::constant || theKind == DumpKind::functionName ||
           theKind == DumpKind::function || theKind == DumpKind::label;
}

std::string pieceText(const DumpPiece& thePiece, std::string_view theFile) {
    std::string result = "{\"offset\":" + std::to_string(thePiece.offset) +
                         ",\"length\":" + std::to_string(thePiece.length) + ",\"bytes\":\"" +
                         hexText(theFile.substr(thePiece.offset, thePiece.length)) +
                         "\",\"depth\":" + std::to_string(thePiece.depth) + ",\"kind\":\"" +
                         std::string(theKindNames[static_cast<std::size_t>(thePiece.kind)]) + '"';
    const auto field = [&](const char* theName, const std::string& theText) {
        if (!theText.empty()) {
            result += std::string(",\"") + theName + "\":" + jsonString(theText);
        }
    };
    field("token", thePiece.token);
    field("name", thePiece.name);
    field("text", thePiece.text);
    if (hasValue(thePiece.kind)) {
        result += ",\"value\":" + std::to_string(thePiece.value);
    }
    if (thePiece.kind == DumpKind::tag) {
        result += std::string(",\"attributes\":") + (thePiece.hasAttributes ? "true" : "false") +
                  ",\"content\":" + (thePiece.hasContent ? "true" : "false");
    }
    return result + "}";
}

}  // namespace

std::string printDumpJson(const DumpListing& theListing, std::string_view theFile) {
    std::string result = "{\"format\":";
    result += theListing.format == DumpFormat::wbxml ? "\"wbxml\"" : "\"wmlscript\"";
    result += ",\"pieces\":[";
    const char* separator = "\n";
    for (const DumpPiece& piece : theListing.pieces) {
        result += separator + pieceText(piece, theFile);
        separator = ",\n";
    }
    result += "\n]";
    if (theListing.fault) {
        result += ",\"error\":{\"offset\":" + std::to_string(theListing.fault->offset) +
                  ",\"message\":" + jsonString(theListing.fault->message) + "}";
    }
    return result + "}\n";
}

}  // namespace lumnis
