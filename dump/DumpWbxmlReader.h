// Reader of WBXML 1.1 to 1.3 (WBXML 1.3, chapter 5), of any vocabulary.
//
// Names of WML and WTA-WML come from the encoder's tables. A document without a registered public
// identifier counts as WML if its root element is WML's; in others, and for tokens that no table
// has, a name is made of the number: "tag_05", "p1_tag_05" on code page 1, "attr_05". Those are
// XML names, so that the markup of such a document can be written, too.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "DumpCharset.h"
#include "DumpCursor.h"
#include "DumpListing.h"

namespace lumnis {

class DumpWbxmlReader {
  public:
    // Of texts and names of all pieces: a small file could name a long string again and again.
    static constexpr std::size_t theTextLimit = std::size_t{16} << 20;

    // The pieces and, for a damaged file, the fault. theFile has less than 4 GiB.
    static DumpListing read(std::string_view theFile);

  private:
    enum class Place { attributes, instruction };

    DumpWbxmlReader(std::string_view theFile, bool theIsWml);

    void run();
    void prolog();
    // The offset of its text in the string table, if it stands there.
    std::optional<std::uint32_t> publicId();
    void stringTable();
    void body();
    void tag(std::uint8_t theToken);
    void attributes(Place thePlace);
    void attributeStart(std::uint8_t theToken, Place thePlace);
    // A token that is text in some way: any but tags, attribute starts, literals, PI, END and
    // SWITCH_PAGE.
    void value(std::uint8_t theToken);
    void attributeValue(std::uint8_t theToken);
    void entity();
    void extension(std::uint8_t theToken);
    void opaque();
    void switchPage(unsigned& thePage);
    void end();

    // A piece that begins at startM and ends at the cursor.
    DumpPiece& add(DumpKind theKind, std::string theToken, std::string theText = {},
                   std::string theName = {});
    [[noreturn]] void fail(std::string theMessage) const;  // at startM
    void checkTextLimit(const std::string& theText);
    // The string of the table whose offset comes next.
    std::string reference(const char* theWhat);
    std::string lookUp(std::uint32_t theTableOffset, std::uint32_t thePlace);
    std::string literalName(const char* theWhat);

    std::string_view fileM;
    DumpCursor cursorM;
    DumpCharset charsetM{DumpCharset::theUtf8};
    DumpListing listingM;
    std::string_view tableM;
    std::map<std::uint32_t, std::string> decodedM;  // strings of the table by offset
    std::vector<std::string> openM;                 // names of the elements around
    std::uint32_t startM = 0;                       // of the token at hand
    std::size_t textSizeM = 0;
    unsigned tagPageM = 0;
    unsigned attrPageM = 0;
    bool hasRootM = false;
    bool isWmlByRootM = false;
    bool isUnregisteredM = false;
};

}  // namespace lumnis
