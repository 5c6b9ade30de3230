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
    // Ordered by hash first: most comparisons need no look at the bytes, and texts that were made
    // to share a hash cost no more than in a map by bytes.
    struct Key {
        std::size_t hash;
        CpsString text;
    };
    // Stays where it is as long as the table lives.
    using Entry = std::pair<const Key, Usage>;

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
    struct KeyView {
        std::size_t hash;
        std::string_view text;
    };
    struct Less {
        using is_transparent = void;
        template <typename Left, typename Right>
        bool operator()(const Left& theLeft, const Right& theRight) const noexcept {
            return theLeft.hash != theRight.hash
                       ? theLeft.hash < theRight.hash
                       : std::string_view(theLeft.text) < std::string_view(theRight.text);
        }
    };

    std::string contentM;
    std::map<Key, Usage, Less> usageM;
};

// A slot of the body: the string that belongs in front of the byte at position.
struct XaWbxmlCtrl::OutputStringBlock {
    std::size_t position;
    StringTable::Entry* entry;
};

}  // namespace lumnis
