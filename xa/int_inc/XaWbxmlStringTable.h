// The string table of a WBXML document (WBXML 1.3, 5.7), and the choice between an inline string
// and a reference into the table.
//
// Strings are in their final form: in the charset of the document, with their terminator. So equal
// text means equal key, and an offset is an offset in bytes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "CpsNumberTable.h"
#include "CpsString.h"
#include "FwArena.h"
#include "XaWbxmlCtrl.h"

namespace lumnis {

class XaWbxmlCtrl::StringTable {
  public:
    // Names a string of the document as long as the table lives.
    using Number = std::uint32_t;

    StringTable() = default;
    StringTable(const StringTable&) = delete;
    StringTable& operator=(const StringTable&) = delete;

    // The number of theString, which is new if it has not been there before. With isBare it lacks
    // its terminator, which is one NUL then; all strings of a table are alike in that.
    Number obtainNumber(std::string_view theString, bool isBare);
    // One more occurrence as a string of the body.
    void count(Number theNumber) { stringsM[theNumber].count++; }
    // The offset of the string, which is put into the table if it is not there.
    std::uint32_t addString(Number theNumber);
    // Writes the string to theOutput: inline, or as a reference to the table, into which it may
    // come by that. The counts of all strings must be complete. True for a reference.
    bool conditionalAddString(Number theNumber, XaByteBuffer& theOutput);

    // As they go into the document.
    const std::string& getStringTableContent() const { return contentM; }
    CpsString getLength() const;

  private:
    static constexpr std::int64_t theNoOffset = -1;

    // What is known of one string.
    struct Usage {
        std::string_view text;              // with its terminator, in memoryM
        std::int64_t offset = theNoOffset;  // in the table, or theNoOffset
        std::uint32_t count = 0;            // occurrences as a string of the body
    };

    std::string contentM;
    std::vector<Usage> stringsM;
    CpsNumberTable<std::string_view> numbersM;
    FwArena memoryM;
};

// A slot of the body, and how many bytes lie between it and the one before.
struct XaWbxmlCtrl::OutputStringBlock {
    std::uint32_t distance;
    StringTable::Number string;
};

}  // namespace lumnis
