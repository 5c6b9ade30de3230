// One direction of a conversion between UTF-8 and a code page.
#pragma once

#include <string_view>

#include "FwConversionSink.h"

namespace lumnis {

// What stands for a character that a code page lacks, and for bytes that are no character.
constexpr std::string_view theMissingCharacter = "?";
constexpr std::string_view theReplacementCharacter = "\xEF\xBF\xBD";  // U+FFFD

class FwTranscoder {
  public:
    FwTranscoder() = default;
    FwTranscoder(const FwTranscoder&) = delete;
    FwTranscoder& operator=(const FwTranscoder&) = delete;
    virtual ~FwTranscoder() = default;

    // All of theSource, a text of its own, as FwCodePageConverter.h tells. Stops when theSink is
    // full.
    virtual void convert(std::string_view theSource, FwConversionSink& theSink) = 0;
};

}  // namespace lumnis
