// The string table of a WBXML document (WBXML 1.3, 5.7), and the choice between an inline string
// and a reference into the table.
//
// Strings are in their final form: in the charset of the document, with their terminator. So equal
// text means equal key, and an offset is an offset in bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "CpsString.h"
#include "XaWbxmlCtrl.h"

namespace lumnis {

class XaWbxmlCtrl::StringTable {
  public:
    // What is known of one string of the document.
    struct Usage {
        static constexpr std::int64_t theNoOffset = -1;

        std::uint32_t count = 0;            // occurrences as a string of the body
        std::int64_t offset = theNoOffset;  // in the table, or theNoOffset
    };
    // Stays where it is as long as the table lives.
    using Entry = std::pair<const CpsString, Usage>;

    StringTable() = default;
    StringTable(const StringTable&) = delete;
    StringTable& operator=(const StringTable&) = delete;

    // The entry of theString, made if there is none.
    Entry& obtainEntry(std::string_view theString);
    // The offset of the string, which is put into the table if it is not there.
    std::uint32_t addString(Entry& theEntry);
    // Writes the string to theOutput: inline, or as a reference to the table, into which it may
    // come by that. The counts of all strings must be complete. True for a reference.
    bool conditionalAddString(Entry& theEntry, std::string& theOutput);

    // As they go into the document.
    const std::string& getStringTableContent() const { return contentM; }
    CpsString getLength() const;

  private:
    struct ByBytes {
        using is_transparent = void;
        bool operator()(std::string_view theLeft, std::string_view theRight) const noexcept {
            return theLeft < theRight;
        }
    };

    std::string contentM;
    std::map<CpsString, Usage, ByBytes> usageM;
};

// A slot of the body: the string that belongs in front of the byte at position.
struct XaWbxmlCtrl::OutputStringBlock {
    std::size_t position;
    StringTable::Entry* entry;
};

}  // namespace lumnis
