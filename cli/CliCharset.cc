#include "CliCharset.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "CcCharsetConverter.h"
#include "CliError.h"
#include "CliSuggestion.h"
#include "CpsAscii.h"
#include "HedCharsetMap.h"
#include "PrintableText.h"

namespace lumnis {

namespace {

constexpr std::string_view theByteOrderMark = "\xEF\xBB\xBF";

bool isEqualWithoutCase(std::string_view theLeft, std::string_view theRight) {
    return std::equal(
        theLeft.begin(), theLeft.end(), theRight.begin(), theRight.end(),
        [](char theByte, char theOther) { return asciiLower(theByte) == asciiLower(theOther); });
}

// -1 for no name.
HedCharsetId numberOfName(std::string_view theName) {
    // What people write for UTF-8, beside the names of the table.
    if (isEqualWithoutCase(theName, "utf8") || isEqualWithoutCase(theName, "csutf8")) {
        return theUtf8Charset;
    }
    return HedCharsetMap::instance().getNumber(theName);
}

// -1 for what is neither a name nor a number.
HedCharsetId numberOf(std::string_view theName) {
    HedCharsetId number = HedNameMap::theUnknownNumber;
    const auto [end, error] =
        std::from_chars(theName.data(), theName.data() + theName.size(), number);
    if (error == std::errc() && end == theName.data() + theName.size()) {
        return number;
    }
    return numberOfName(theName);
}

}  // namespace

std::vector<std::string_view> charsetNames() {
    std::vector<std::string_view> result;
    for (const HedNameRow& row : HedCharsetMap::instance().names()) {
        if (CcCharsetConverter::canConvert(row.number)) {
            result.push_back(row.name);
        }
    }
    return result;
}

HedCharsetId charsetByName(std::string_view theOption, const std::string& theName) {
    const HedCharsetId number = numberOf(theName);
    if (!CcCharsetConverter::canConvert(number)) {
        throw CliUsageError(std::string(theOption) + ": charset \"" + visibleText(theName) +
                            "\" is not supported (\"lumnis charsets\" lists those that are)" +
                            suggestion(theName, charsetNames()));
    }
    return number;
}

std::optional<HedCharsetId> declaredCharset(std::string_view theName) {
    const HedCharsetId number = numberOfName(theName);
    const bool isWide = number == theUcs2Charset || number == theUcs4Charset;
    return !isWide && CcCharsetConverter::canConvert(number) ? std::optional<HedCharsetId>(number)
                                                             : std::nullopt;
}

bool convertSource(CpsString& theSource, HedCharsetId theCharset, std::string& theMessage) {
    if (theCharset == theUtf8Charset) {
        if (theSource.view().starts_with(theByteOrderMark)) {
            theSource.erase(0, static_cast<std::uint32_t>(theByteOrderMark.size()));
        }
        return true;
    }
    CcCharsetConverter converter;
    CpsString converted;
    if (!converter.convertToUtf8(theSource, converted, theCharset)) {
        theMessage = "cannot be read as " +
                     std::string(HedCharsetMap::instance().getName(theCharset).view()) + ": " +
                     std::string(converter.getErrorMessage().view());
        return false;
    }
    theSource = std::move(converted);
    return true;
}

}  // namespace lumnis
