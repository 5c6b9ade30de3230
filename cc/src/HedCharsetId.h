// Numbers of character sets as they travel through the system.
#pragma once

#include <cstdint>

namespace lumnis {

// The IANA MIBenum value of a character set; negative for sets to which this library gave a number
// of its own.
using HedCharsetId = std::int32_t;

constexpr HedCharsetId theUnknownCharset = -1;
constexpr HedCharsetId theUsAsciiCharset = 3;
constexpr HedCharsetId theIso88591Charset = 4;
constexpr HedCharsetId theUtf8Charset = 106;
constexpr HedCharsetId theUcs2Charset = 1000;
constexpr HedCharsetId theUcs4Charset = 1001;

}  // namespace lumnis
