// ISO-8859-1 to UTF-8. Its bytes are the first 256 characters of Unicode, so no table is needed;
// and it is the charset that every deck of a caller comes in.
#pragma once

#include "FwTranscoder.h"

namespace lumnis {

class FwLatin1Decoder final : public FwTranscoder {
  public:
    void convert(std::string_view theSource, FwConversionSink& theSink) override;
};

}  // namespace lumnis
