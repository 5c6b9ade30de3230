#include "DumpCharset.h"

#include <algorithm>
#include <climits>
#include <iterator>

#include "CcCharsetConverter.h"
#include "HedCharsetMap.h"
#include "PrintableText.h"

namespace lumnis {

namespace {

constexpr std::uint32_t theTwoByteSets[] = {1000, 1013, 1014, 1015};   // UCS-2 and UTF-16
constexpr std::uint32_t theFourByteSets[] = {1001, 1017, 1018, 1019};  // UCS-4 and UTF-32

template <typename Sets>
bool isOneOf(const Sets& theSets, std::uint32_t theNumber) {
    return std::find(std::begin(theSets), std::end(theSets), theNumber) != std::end(theSets);
}

// The bytes as they are where they are ASCII or, with theIsUtf8, well-formed UTF-8; \xHH for
// others.
std::string escapeOthers(std::string_view theBytes, bool theIsUtf8) {
    std::string result;
    for (std::size_t i = 0; i < theBytes.size();) {
        std::size_t length = utf8SequenceLength(theBytes, i);
        if (length == 0 || (length > 1 && !theIsUtf8)) {
            result += "\\x" + hexByte(static_cast<unsigned char>(theBytes[i]));
            length = 1;
        } else {
            result += theBytes.substr(i, length);
        }
        i += length;
    }
    return result;
}

}  // namespace

DumpCharset::DumpCharset(std::uint32_t theNumber)
    : numberM(theNumber),
      terminatorWidthM(isOneOf(theTwoByteSets, theNumber)    ? 2
                       : isOneOf(theFourByteSets, theNumber) ? 4
                                                             : 1) {}

DumpCharset::DumpCharset(DumpCharset&&) noexcept = default;
DumpCharset& DumpCharset::operator=(DumpCharset&&) noexcept = default;
DumpCharset::~DumpCharset() = default;

bool DumpCharset::isKnown(std::uint32_t theNumber) {
    return theNumber != 0 && theNumber <= INT_MAX &&
           !HedCharsetMap::instance().getName(static_cast<HedCharsetId>(theNumber)).empty();
}

std::string DumpCharset::nameOf(std::uint32_t theNumber) {
    if (!isKnown(theNumber)) {
        return "unknown (" + std::to_string(theNumber) + ")";
    }
    return std::string(HedCharsetMap::instance().getName(static_cast<HedCharsetId>(theNumber)));
}

std::string DumpCharset::decode(std::string_view theBytes) {
    if (numberM == theUtf8 || theBytes.empty()) {
        return escapeOthers(theBytes, true);
    }
    const auto charset = static_cast<HedCharsetId>(numberM);
    if (numberM <= INT_MAX && CcCharsetConverter::canConvert(charset)) {
        if (converterM == nullptr) {
            converterM = std::make_unique<CcCharsetConverter>();
        }
        CpsString text;
        if (converterM->convertToUtf8(theBytes, text, charset)) {
            return escapeOthers(text, true);
        }
    }
    return escapeOthers(theBytes, false);
}

}  // namespace lumnis
