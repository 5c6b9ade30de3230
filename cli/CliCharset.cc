#include "CliCharset.h"

#include <charconv>
#include <utility>

#include "CcCharsetConverter.h"
#include "CliError.h"
#include "CliText.h"
#include "HedCharsetMap.h"

namespace lumnis {

namespace {

constexpr std::string_view theByteOrderMark = "\xEF\xBB\xBF";

// -1 for no name.
HedCharsetId numberOfName(std::string_view theName) {
    // What people write for UTF-8 without the hyphen is no name of the registry.
    if (theName == "utf8" || theName == "UTF8" || theName == "csUTF8") {
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

HedCharsetId charsetByName(std::string_view theOption, const std::string& theName,
                           CliCharsetUse theUse) {
    const HedCharsetId number = numberOf(theName);
    const bool isConvertible = theUse == CliCharsetUse::input
                                   ? CcCharsetConverter::canConvertToUtf8(number)
                                   : CcCharsetConverter::canConvertFromUtf8(number);
    if (!isConvertible) {
        throw CliUsageError(std::string(theOption) + ": charset \"" + visibleText(theName) +
                            "\" is not supported (\"lumnis charsets\" lists those that are)");
    }
    return number;
}

std::optional<HedCharsetId> declaredCharset(std::string_view theName) {
    const HedCharsetId number = numberOfName(theName);
    const bool isWide = number == theUcs2Charset || number == theUcs4Charset;
    return !isWide && CcCharsetConverter::canConvertToUtf8(number)
               ? std::optional<HedCharsetId>(number)
               : std::nullopt;
}

bool convertSource(CpsString& theSource, HedCharsetId theCharset, std::string& theMessage) {
    if (theCharset == theUtf8Charset) {
        if (theSource.view().starts_with(theByteOrderMark)) {
            theSource.erase(0, static_cast<std::uint32_t>(theByteOrderMark.size()));
        }
        return true;
    }
    if (theSource.empty()) {
        return true;  // what is to be said of it is the compiler's to say
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
