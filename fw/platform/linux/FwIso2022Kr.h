// ISO-2022-KR (RFC 1557), code page 50225, in both directions.
//
// The header ESC $ ) C stands at the start of a text that has characters of KS X 1001, and only
// there: a text of ASCII alone needs none. Where there is room for the text and not for the
// header as well, as when one character is converted by itself, the header is left out.
#pragma once

#include "FwTableTranscoder.h"

namespace lumnis {

class FwIso2022KrEncoder final : public FwTranscoder {
  public:
    FwIso2022KrEncoder();

    void convert(std::string_view theSource, FwConversionSink& theSink) override;

  private:
    FwTableEncoder eucM;
};

class FwIso2022KrDecoder final : public FwTranscoder {
  public:
    FwIso2022KrDecoder();

    void convert(std::string_view theSource, FwConversionSink& theSink) override;

  private:
    FwTableDecoder eucM;
};

}  // namespace lumnis
