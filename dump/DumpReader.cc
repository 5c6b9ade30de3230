#include "DumpReader.h"

#include "DumpByteCodeReader.h"
#include "DumpWbxmlReader.h"

namespace lumnis {

namespace {

// Both formats: version, one number, and then a second one. In WBXML that is the charset; in byte
// code it is the number of constants, and the third is the charset.
bool hasCharsetAt(std::string_view theFile, int thePlace) {
    DumpCursor cursor(theFile);
    try {
        cursor.byte("");
        std::uint32_t number = 0;
        for (int i = 0; i <= thePlace; ++i) {
            number = cursor.multiByte("");
        }
        return DumpCharset::isKnown(number);
    } catch (const DumpFault&) {
        return false;
    }
}

}  // namespace

DumpListing readDump(std::string_view theFile, std::optional<DumpFormat> theFormat) {
    if (theFile.size() > theDumpFileLimit) {
        DumpListing listing;
        listing.fault =
            DumpFault{static_cast<std::uint32_t>(theDumpFileLimit), "the file has more than 4 MiB"};
        return listing;
    }
    if (theFormat == DumpFormat::wbxml) {
        return DumpWbxmlReader::read(theFile);
    }
    DumpListing script = DumpByteCodeReader::read(theFile);
    if (theFormat == DumpFormat::script || !script.fault) {
        return script;
    }
    DumpListing wbxml = DumpWbxmlReader::read(theFile);
    if (wbxml.fault && !hasCharsetAt(theFile, 1) && hasCharsetAt(theFile, 2)) {
        return script;
    }
    return wbxml;
}

}  // namespace lumnis
