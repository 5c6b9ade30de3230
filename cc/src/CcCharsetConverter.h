// Conversion of text from and to UTF-8.
//
// The converter does the Unicode encodings itself; all other sets go through the code-page
// conversion service of the platform (FwCodePageConverter.h). docs/charsets.md lists what can be
// converted, and what becomes of a character that a set lacks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "CpsString.h"
#include "FwCodePageConverter.h"
#include "HedCharsetId.h"

namespace lumnis {

// A set that goes through the code-page service.
struct CcCodePage {
    HedCharsetId charset;
    std::uint32_t codePage;
};

// One user at a time, but any number of converters side by side. It lives as long as one
// compilation or one output document; the service objects are shared through a pool of ten.
//
// Conversions report by result and by getErrorMessage. An output string must not be the input.
class CcCharsetConverter {
  public:
    // A 16-bit Unicode form: read as UCS-2, written as UTF-16.
    static constexpr HedCharsetId theUtf16FormCharset = -4;
    // UTF-8 passed through unchanged; convertFromUtf8 alone knows it.
    static constexpr HedCharsetId thePassedUtf8Charset = -2;

    // Throws CCException when no service object can be had.
    CcCharsetConverter();
    CcCharsetConverter(const CcCharsetConverter&) = delete;
    CcCharsetConverter& operator=(const CcCharsetConverter&) = delete;
    virtual ~CcCharsetConverter();

    // Replaces theOutput by theInput in UTF-8. False with a message for empty input, a set that
    // cannot be read, and input that is malformed; theOutput is then empty. UTF-8 (106) is copied
    // without a look at it.
    bool convertToUtf8(std::string_view theInput, CpsString& theOutput, HedCharsetId theCharset);

    // Replaces theOutput by theInput, which is UTF-8, in theCharset. With useEscape a character
    // that the set lacks is written as the ENTITY token of WBXML if entity tokenization is on,
    // else as the service writes it. Without it such a character makes the conversion fail.
    // False with a message for empty input and for characters that the set lacks, theOutput being
    // as it was; and for a set that cannot be written, theOutput being empty.
    // Always with escapes, whatever useEscape says: the sets 1000 and -4. 1001 lacks no character.
    bool convertFromUtf8(std::string_view theInput, CpsString& theOutput, HedCharsetId theCharset,
                         bool useEscape);

    // Converts between two code pages, one of them UTF-8 (65001). As convertFromUtf8 on failure:
    // theOutput stays as it was.
    bool convert(std::uint32_t theSource, std::uint32_t theDestination, std::string_view theInput,
                 CpsString& theOutput, bool useEscape);

    // theInput, which is UTF-8, character by character with the code pages of the latest convert,
    // the ENTITY token standing for each character that does not go. Stops at malformed input.
    CpsString getWbxmlString(std::string_view theInput);

    // The text of the latest failure.
    CpsString getErrorMessage() const { return errorMessageM; }

    // Whether theInput is a row of sequences of one to six bytes with proper lead and further
    // bytes. Overlong forms and values above U+10FFFF are not looked for.
    static bool isValidUtf8(std::string_view theInput);
    // One code value in UTF-8, up to six bytes; the empty string from 0x80000000 on.
    static CpsString getAsUtf8(std::uint32_t theValue);
    // Appends elements of theSize bytes each, code values with the most significant byte first.
    // False if theInput is empty or not a row of whole elements.
    static bool getAsUtf8(std::string_view theInput, std::uint32_t theSize, CpsString& theOutput);
    // The bytes as an unsigned number, most significant first; its low 32 bits.
    static std::uint32_t getElementAsInt(std::string_view theElement);

    // Whether convertToUtf8 and convertFromUtf8 know the number, not counting the private ones.
    static bool canConvert(HedCharsetId theCharset);
    // The sets that go through the code-page service, by number.
    static std::span<const CcCodePage> codePages();

  private:
    struct Shared;

    static Shared& shared();
    // Start-up of what all converters share; runs once, in the first constructor.
    static void init();
    static void createObjectPool();

    // Takes an object out of the pool; false when the pool is empty.
    bool getConversionObject();
    void putConversionObject();
    void fail(const char* theTrace, std::string_view theMessage, int theLine = __builtin_LINE());

    CpsString errorMessageM;
    std::uint32_t sourceM;       // the pair for which conversionObjectM is set up, as far as
    std::uint32_t destinationM;  // this converter knows
    std::unique_ptr<FwCodePageConverter> conversionObjectM;
};

}  // namespace lumnis
