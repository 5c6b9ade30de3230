// Conversion through the system's iconv, for encodings without shift states.
#pragma once

#include <iconv.h>

#include "FwTranscoder.h"

namespace lumnis {

// How a code page that has no shift states is named to iconv.
struct FwIconvTable {
    const char* name;
    // The bytes that code page 1252 leaves undefined are the control characters of the same
    // number.
    bool passesUndefined;
};

// Owns a conversion descriptor.
class FwIconv {
  public:
    // Throws std::system_error with the error of iconv_open: EINVAL when the system cannot
    // convert between the two.
    FwIconv(const char* theDestination, const char* theSource);
    FwIconv(const FwIconv&) = delete;
    FwIconv& operator=(const FwIconv&) = delete;
    ~FwIconv();

    // Converts from the start of theSource, which loses what has been converted. The result is 0
    // or the error: EILSEQ at a character that cannot be read or written, EINVAL at one that is
    // cut off, E2BIG when theSink is full.
    int convert(std::string_view& theSource, FwConversionSink& theSink);

  private:
    iconv_t descriptorM;
};

class FwTableEncoder final : public FwTranscoder {
  public:
    explicit FwTableEncoder(const FwIconvTable& theTable);

    void convert(std::string_view theSource, FwConversionSink& theSink) override;
    // One well-formed character; false, and nothing written, when the code page lacks it.
    bool encodeCharacter(std::string_view theCharacter, FwConversionSink& theSink);

  private:
    // Well-formed text.
    void encodeRun(std::string_view theText, FwConversionSink& theSink);

    const FwIconvTable tableM;
    FwIconv iconvM;
};

class FwTableDecoder final : public FwTranscoder {
  public:
    explicit FwTableDecoder(const FwIconvTable& theTable);

    void convert(std::string_view theSource, FwConversionSink& theSink) override;

  private:
    // Substitutes what iconv has refused. theSource is what is left; hasMoved tells whether
    // anything in front of it has just been converted.
    void stepOverRefused(std::string_view& theSource, bool hasMoved, FwConversionSink& theSink);
    // Whether the first bytes are a character, as far as the table can tell.
    bool beginsWithCharacter(std::string_view theSource);

    const FwIconvTable tableM;
    FwIconv iconvM;
};

}  // namespace lumnis
