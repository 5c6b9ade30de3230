// What WMLEncode runs: the encoding of one document, from the caller's source to a result that
// malloc has allocated.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "CpsString.h"
#include "WmlDirector.h"
#include "XaOutput.h"

namespace lumnis {

class WmlEncodeDriver {
  public:
    enum class Outcome {
        ENCODED,
        NOT_CONVERTIBLE,  // the source cannot be converted from its charset to UTF-8
        REFUSED           // the document is faulty, or its encoding failed
    };

    // Without a call of these the settings are those of WMLEncode: ISO-8859-1, UTF-8 and WML.
    // Charsets by their names in HedCharsetMap, the media type of the source by its number in
    // HedMediaTypeMap.
    void setInputCharset(std::string_view theName) { inputCharsetM = theName; }
    void setOutputCharset(std::string_view theName) { outputCharsetM = theName; }
    void setMediaType(int theMediaType) { mediaTypeM = theMediaType; }

    // Encodes one document. Throws std::bad_alloc and CCException before the document is parsed;
    // whatever goes wrong from then on is an outcome, if there is memory to put it into words.
    Outcome encode(std::string_view theSource);

    // What has come of the latest encode. The output is empty unless it succeeded.
    const CpsString& getOutput() const { return outputM; }
    int getOutputMediaType() const { return outputMediaTypeM; }
    // The meta data that goes beside the output; null unless encode succeeded.
    XaOutput* getRunOutput() const { return runOutputM.get(); }
    // The text of the failure: the converter's, or the message in the frame of WMLEncode.
    const CpsString& getErrorText() const { return errorTextM; }
    // The message without its frame, and its line, 0 if it has none.
    const CpsString& getErrorMessage() const { return errorMessageM; }
    unsigned getErrorLine() const { return errorLineM; }

    // WMLEncode, but for the size of the result, which has 32 bits here. True on success. A refused
    // document leaves an empty block in *theResult and its text in *theErrorText.
    bool run(std::string_view theSource, char** theResult, std::uint32_t& theResultLength,
             char** theErrorText);

    // Stores theText in the buffer of this thread and the buffer's address in *theErrorText, unless
    // theErrorText is null. A text that is too long is cut between two characters. It stays until
    // the next call on this thread.
    static void storeErrorText(std::string_view theText, char** theErrorText) noexcept;

  private:
    void process(const CpsString& theDocument);
    void refuse(std::string_view thePrefix, const char* theMessage, std::string_view theSuffix);

    CpsString inputCharsetM = "ISO-8859-1";
    CpsString outputCharsetM = "UTF-8";
    int mediaTypeM = WmlDirector::theWmlMediaType;
    CpsString outputM;
    int outputMediaTypeM = 0;
    std::unique_ptr<XaOutput> runOutputM;
    CpsString errorTextM;
    CpsString errorMessageM;
    unsigned errorLineM = 0;
};

}  // namespace lumnis
