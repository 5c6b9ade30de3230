// The DTDs of the known document types, as they stand in the folder dtd. The build makes the
// constants from the files.
#pragma once

#include <string_view>

namespace lumnis {

extern const std::string_view theWml11DtdText;
extern const std::string_view theWml12DtdText;
extern const std::string_view theWml13DtdText;
extern const std::string_view theWtaWml12DtdText;

}  // namespace lumnis
