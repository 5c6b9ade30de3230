// Collects what the actors of one document write, and makes the WBXML of it at the end.
//
// Whether a string stands inline or in the string table depends on how often it occurs in the
// whole document. So the body is kept with a slot for each string, and makeOutput fills the slots.
// Names, variables and whatever else needs its offset at once go into the table directly.
//
// A director makes one for each document and gives it to the parser as the context of all actors,
// as an XaWbxmlCtrl*: an actor gets it back by contextOf.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "CcCharsetConverter.h"
#include "CpsString.h"
#include "HedCharsetId.h"
#include "XaByteBuffer.h"
#include "XaWbxmlToken.h"
#include "XpDtd.h"

namespace lumnis {

class XaWbxmlCtrl {
  public:
    class ConversionFailure;
    class StringTable;
    class SimplePcDataActor;
    class SimplePiActor;

    // Bits of the trimming mode.
    static constexpr int theInnerSpaceBit = 1;  // each run of white space becomes one blank
    static constexpr int theOuterSpaceBit = 2;  // white space at both ends goes

    // Strings come out in theCharset. Throws CCException when no converter can be had.
    XaWbxmlCtrl(HedCharsetId theCharset, int theTrimMode);
    XaWbxmlCtrl(const XaWbxmlCtrl&) = delete;
    XaWbxmlCtrl& operator=(const XaWbxmlCtrl&) = delete;
    virtual ~XaWbxmlCtrl();

    // The controller behind the context of an actor.
    static XaWbxmlCtrl& contextOf(void* theContext) {
        return *static_cast<XaWbxmlCtrl*>(theContext);
    }

    // The bytes in front of the string table: version, public identifier, charset.
    void addProlog(const CpsString& theProlog) { prologM = theProlog; }

    // Bytes of the body.
    void addToOutput(unsigned char theByte) { bodyM.append(theByte); }
    void addToOutput(std::string_view theBytes) { bodyM.append(theBytes); }
    // Takes back the byte that has been written last; behind a string there is none.
    void popLastOutputByte();

    // Strings. theText is UTF-8; each throws ConversionFailure if it does not go into the charset
    // of the document.

    // A string of the body, in the shorter one of its two forms.
    void addStringToOutput(std::string_view theText);
    // The offset of theText in the string table as a multi-byte integer. Enters it at once.
    CpsString addStringToStringtable(std::string_view theText);
    // The same, written to the body.
    void addOffsetToOutput(std::string_view theText);
    // theText and a terminator in the charset of the document. Valid until the next string.
    const CpsString& convert(std::string_view theText);

    // Text between tags gathers until it is flushed: in front of the token of an element that can
    // stand behind text, and in front of the END of one that can hold it.
    void addPcData(std::string_view theText) { pcDataM += theText; }
    virtual void flushPcData();
    // Applies the trimming mode.
    void trimSpace(std::string& theText) const;

    // Notes whether the element that has just begun has no content, so that its end writes no END.
    // Returns what was noted before. A begin sets it, the end asks by resetting it.
    bool emptyContent(bool theValue);

    // The current code pages, 0 at first. A switch writes SWITCH_PAGE unless the page is current.
    unsigned getTagPage() const { return tagPageM; }
    unsigned getAttrPage() const { return attrPageM; }
    void switchTagPage(unsigned thePage) { switchPage(tagPageM, thePage); }
    void switchAttrPage(unsigned thePage) { switchPage(attrPageM, thePage); }

    HedCharsetId getCharset() const { return charsetM; }

    // The complete document. Once, at the end.
    CpsString makeOutput();

    // A multi-byte integer (mb_u_int32): groups of 7 bits, the most significant one first, the top
    // bit set in all bytes but the last. One to five bytes.
    static CpsString getAsMbUInt(std::uint32_t theValue);

  private:
    struct OutputStringBlock;

    // The number of theText among the strings of the document.
    std::uint32_t numberOf(std::string_view theText);
    void switchPage(unsigned& theCurrent, unsigned thePage);

    CpsString prologM;
    XaByteBuffer bodyM;                      // without its strings
    std::vector<OutputStringBlock> blocksM;  // the slots, in document order
    std::size_t slotM = 0;                   // where the last of them is
    std::unique_ptr<StringTable> stringTableM;
    CcCharsetConverter converterM;
    const HedCharsetId charsetM;
    CpsString convertedM;
    bool emptyContentM = false;
    std::string pcDataM;
    const int trimModeM;
    unsigned tagPageM = 0;
    unsigned attrPageM = 0;
};

// Through the parser it becomes an XpParserError with the line of the string.
class XaWbxmlCtrl::ConversionFailure final : public XpException {
  public:
    CpsString toString() const override;
};

// Actors for documents without DTD. Without fields: one object serves any number of documents.

class XaWbxmlCtrl::SimplePcDataActor final : public XpDtd::PcDataActor {
  public:
    void operator()(const CpsString& theText, void* theContext) override;
};

// Target and data in the string table.
class XaWbxmlCtrl::SimplePiActor : public XpDtd::PiActor {
  public:
    void operator()(const CpsString& theTarget, const CpsString& theData,
                    void* theContext) override;
};

}  // namespace lumnis
