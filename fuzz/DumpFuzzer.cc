// Damaged WBXML and byte code through the readers and printers of the dump. The first byte of the
// input chooses how the format is told; the rest is the file.
//
// What must hold: the same input gives the same pieces; they follow each other without a gap, and
// cover a file without fault; a fault lies in the file or just behind it, and all forms agree on
// it; the markup has a tag for each that the pieces have.
#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "DumpPrinter.h"
#include "DumpReader.h"
#include "Require.h"

namespace {

using lumnis::DumpFormat;
using lumnis::DumpKind;
using lumnis::DumpListing;
using lumnis::DumpPiece;
using lumnis::fuzz::require;

void checkPieces(const DumpListing& theListing, std::string_view theFile) {
    std::size_t covered = 0;
    for (const DumpPiece& piece : theListing.pieces) {
        require(piece.offset == covered);
        require(piece.length != 0 || piece.kind == DumpKind::label);
        covered += piece.length;
    }
    require(covered <= theFile.size());
    require(theListing.fault ? theListing.fault->offset <= theFile.size()
                             : covered == theFile.size());
}

// Without CDATA sections, where anything may stand.
std::size_t countMarkup(std::string_view theXml) {
    std::size_t count = 0;
    for (std::size_t i = theXml.find('<'); i != std::string_view::npos; i = theXml.find('<', i)) {
        if (theXml.substr(i).starts_with("<![CDATA[")) {
            i = theXml.find("]]>", i);
            require(i != std::string_view::npos);
        } else {
            ++count;
            ++i;
        }
    }
    return count;
}

void checkMarkup(const DumpListing& theListing) {
    const std::string xml = lumnis::printDumpXml(theListing);
    require(xml == lumnis::printDumpXml(theListing));
    std::size_t count = theListing.publicId.empty() ? 1 : 2;  // declaration and DOCTYPE
    for (const DumpPiece& piece : theListing.pieces) {
        if (piece.kind == DumpKind::pi) {
            return;  // its data is not escaped
        }
        count += piece.kind == DumpKind::tag || piece.kind == DumpKind::elementEnd ? 1u : 0u;
    }
    require(count == countMarkup(xml));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* theData, std::size_t theSize) {
    if (theSize == 0) {
        return 0;
    }
    const std::string_view file(reinterpret_cast<const char*>(theData) + 1, theSize - 1);
    std::optional<DumpFormat> format;
    if (theData[0] % 3 != 0) {
        format = theData[0] % 3 == 1 ? DumpFormat::wbxml : DumpFormat::script;
    }
    const DumpListing listing = lumnis::readDump(file, format);
    checkPieces(listing, file);
    const std::string text = lumnis::printDumpText(listing, file);
    const std::string json = lumnis::printDumpJson(listing, file);
    const DumpListing again = lumnis::readDump(file, format);
    require(text == lumnis::printDumpText(again, file));
    require(json == lumnis::printDumpJson(again, file));
    require(listing.fault.has_value() == (json.find("\n],\"error\":{") != std::string::npos));
    // A line for each piece at least, and one object.
    require(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) >=
            listing.pieces.size());
    require(static_cast<std::size_t>(std::count(json.begin(), json.end(), '\n')) ==
            listing.pieces.size() + 2);
    if (!listing.fault && listing.format == DumpFormat::wbxml) {
        checkMarkup(listing);
    }
    return 0;
}
