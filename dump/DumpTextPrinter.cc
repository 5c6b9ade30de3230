#include <algorithm>
#include <cstdio>

#include "DumpPrinter.h"
#include "PrintableText.h"

namespace lumnis {

namespace {

constexpr std::size_t theBytesPerLine = 8;
constexpr std::size_t theTokenWidth = 14;
constexpr std::uint32_t theDepthShown = 32;

std::string quoted(std::string_view theText) {
    return '"' + visibleText(theText) + '"';
}

std::string functionTitle(const DumpPiece& thePiece) {
    return "function " + std::to_string(thePiece.value) +
           (thePiece.name.empty() ? ", not extern" : " " + quoted(thePiece.name));
}

std::string entityText(std::uint32_t theCode) {
    char text[16];
    std::snprintf(text, sizeof text, "&#x%X;", static_cast<unsigned>(theCode));
    return text;
}

std::string meaningOf(const DumpPiece& thePiece) {
    const std::string name = visibleText(thePiece.name);
    switch (thePiece.kind) {
        case DumpKind::header:
        case DumpKind::function:
            return visibleText(thePiece.text);
        case DumpKind::string:
        case DumpKind::text:
        case DumpKind::opaque:
            return quoted(thePiece.text);
        case DumpKind::page:
            return "page " + std::to_string(thePiece.value);
        case DumpKind::tag:
            return '<' + name + (thePiece.hasAttributes ? "" : thePiece.hasContent ? ">" : "/>");
        case DumpKind::attribute:
            return ' ' + name + '=' + (thePiece.text.empty() ? "" : quoted(thePiece.text));
        case DumpKind::attributesEnd:
            return thePiece.hasContent ? ">" : "/>";
        case DumpKind::elementEnd:
            return "</" + name + '>';
        case DumpKind::variable:
            return "$(" + name + ':' + thePiece.text + ')';
        case DumpKind::entity:
            return entityText(thePiece.value);
        case DumpKind::extension:
            return '{' + visibleText(thePiece.text) + '}';
        case DumpKind::pi:
            return "<?" + name + (thePiece.text.empty() ? "" : ' ' + quoted(thePiece.text));
        case DumpKind::piEnd:
            return "?>";
        case DumpKind::constant:
            return '[' + std::to_string(thePiece.value) + "] " +
                   (thePiece.token.ends_with("string") ? quoted(thePiece.text) : thePiece.text);
        case DumpKind::functionName:
            return quoted(thePiece.name);
        case DumpKind::pragma:
        case DumpKind::instruction:
            return thePiece.text + (name.empty() ? "" : "  ; " + name);
        case DumpKind::label:
            break;
    }
    return {};
}

// Values stand deeper than the start of their attribute, and that deeper than its tag.
std::uint32_t indentation(const DumpPiece& thePiece, bool theIsInTag) {
    const bool isValue = thePiece.kind != DumpKind::attribute;
    return 2 * std::min(thePiece.depth, theDepthShown) +
           (theIsInTag ? (isValue && thePiece.kind != DumpKind::attributesEnd ? 4u : 1u) : 0u);
}

void appendLine(std::string& theOutput, std::string_view theLine) {
    theOutput += theLine.substr(0, theLine.find_last_not_of(' ') + 1);
    theOutput += '\n';
}

std::string byteColumn(std::string_view theFile, std::size_t theOffset, std::size_t theCount) {
    char text[16];
    std::snprintf(text, sizeof text, "%06X ", static_cast<unsigned>(theOffset));
    std::string result = text;
    for (std::size_t i = 0; i < theBytesPerLine; ++i) {
        result += i < theCount ? ' ' + hexByte(static_cast<unsigned char>(theFile[theOffset + i]))
                               : std::string("   ");
    }
    return result + "  ";
}

}  // namespace

std::string printDumpText(const DumpListing& theListing, std::string_view theFile) {
    std::string result;
    bool isInTag = false;
    for (const DumpPiece& piece : theListing.pieces) {
        if (piece.kind == DumpKind::function) {
            result += '\n' + functionTitle(piece) + '\n';
        }
        if (piece.kind == DumpKind::label) {
            result += piece.text + ":\n";
            continue;
        }
        const std::size_t count = std::min<std::size_t>(piece.length, theBytesPerLine);
        std::string token = piece.token;
        token.resize(std::max(token.size() + 1, theTokenWidth), ' ');
        appendLine(result, byteColumn(theFile, piece.offset, count) + token +
                               std::string(indentation(piece, isInTag), ' ') + meaningOf(piece));
        for (std::size_t i = count; i < piece.length; i += theBytesPerLine) {
            const std::size_t rest = std::min<std::size_t>(piece.length - i, theBytesPerLine);
            appendLine(result, byteColumn(theFile, piece.offset + i, rest));
        }
        if (piece.kind == DumpKind::tag) {
            isInTag = piece.hasAttributes;
        } else if (piece.kind == DumpKind::attributesEnd) {
            isInTag = false;
        }
    }
    return result;
}

}  // namespace lumnis
