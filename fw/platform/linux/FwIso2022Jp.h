// ISO-2022-JP (RFC 1468) as code page 50221 has it, in both directions.
//
// Beside ASCII, JIS X 0201 Roman and JIS X 0208 it has the half-width katakana of JIS X 0201 under
// the sequence ESC ( I. The table of JIS X 0208 is that of the other Japanese code pages, so a
// text goes from each of them to each other.
#pragma once

#include "FwTableTranscoder.h"

namespace lumnis {

class FwIso2022JpEncoder final : public FwTranscoder {
  public:
    FwIso2022JpEncoder();

    void convert(std::string_view theSource, FwConversionSink& theSink) override;

  private:
    FwTableEncoder eucM;
};

class FwIso2022JpDecoder final : public FwTranscoder {
  public:
    FwIso2022JpDecoder();

    void convert(std::string_view theSource, FwConversionSink& theSink) override;

  private:
    FwTableDecoder eucM;
};

}  // namespace lumnis
