#include "CliXmlSource.h"

#include <algorithm>
#include <cstdint>

#include "CliCharset.h"
#include "PrintableText.h"

namespace lumnis {

namespace {

constexpr std::string_view theBlanks = " \t\r\n";

bool isBlank(char theCharacter) {
    return theBlanks.find(theCharacter) != std::string_view::npos;
}

int lineAt(std::string_view theText, std::size_t thePosition) {
    const std::string_view before = theText.substr(0, thePosition);
    return 1 + static_cast<int>(std::count(before.begin(), before.end(), '\n'));
}

// Bytes that mean the same in every charset but the wide ones, which no readable declaration can
// stand in: ASCII without the shifts of the Japanese and Korean 7-bit sets.
bool isPlainAscii(std::string_view theText) {
    return std::all_of(theText.begin(), theText.end(), [](char theCharacter) {
        const auto byte = static_cast<unsigned char>(theCharacter);
        return byte < 0x80 && byte != 0x0E && byte != 0x0F && byte != 0x1B;
    });
}

// What the XML declaration of theText names; empty where there is none. A malformed declaration
// is the parser's to tell of.
std::string_view declaredEncoding(std::string_view theText) {
    constexpr std::string_view start = "<?xml";
    constexpr std::string_view word = "encoding";
    if (!theText.starts_with(start) || theText.size() == start.size() ||
        !isBlank(theText[start.size()])) {
        return {};
    }
    std::string_view rest = theText.substr(0, theText.find("?>"));
    const std::size_t place = rest.find(word);
    if (place == std::string_view::npos) {
        return {};
    }
    rest.remove_prefix(place + word.size());
    const auto skipBlanks = [&rest] {
        rest.remove_prefix(std::min(rest.find_first_not_of(theBlanks), rest.size()));
    };
    skipBlanks();
    if (!rest.starts_with('=')) {
        return {};
    }
    rest.remove_prefix(1);
    skipBlanks();
    if (rest.empty() || (rest[0] != '"' && rest[0] != '\'')) {
        return {};
    }
    const std::size_t end = rest.find(rest[0], 1);
    return end == std::string_view::npos ? std::string_view() : rest.substr(1, end - 1);
}

void appendUtf8(std::uint32_t theCharacter, std::string& theText) {
    const auto append = [&theText](std::uint32_t theByte) {
        theText += static_cast<char>(static_cast<unsigned char>(theByte));
    };
    if (theCharacter < 0x80) {
        append(theCharacter);
    } else if (theCharacter < 0x800) {
        append(0xC0 | theCharacter >> 6);
        append(0x80 | (theCharacter & 0x3F));
    } else {
        if (theCharacter < 0x10000) {
            append(0xE0 | theCharacter >> 12);
        } else {
            append(0xF0 | theCharacter >> 18);
            append(0x80 | (theCharacter >> 12 & 0x3F));
        }
        append(0x80 | (theCharacter >> 6 & 0x3F));
        append(0x80 | (theCharacter & 0x3F));
    }
}

// theBytes follow the byte order mark. With a fault theResult is the text before it.
std::optional<CliTextFault> convertUtf16(std::string_view theBytes, bool isBigEndian,
                                         CpsString& theResult) {
    std::string text;
    const auto fault = [&] {
        theResult = std::string_view(text);
        return CliTextFault{"the file begins as UTF-16 and is malformed here",
                            lineAt(text, text.size())};
    };
    const auto unitAt = [&](std::size_t theIndex) -> std::uint32_t {
        const auto first = static_cast<unsigned char>(theBytes[theIndex]);
        const auto second = static_cast<unsigned char>(theBytes[theIndex + 1]);
        return isBigEndian ? first * 256u + second : second * 256u + first;
    };
    for (std::size_t i = 0; i < theBytes.size(); i += 2) {
        if (theBytes.size() - i < 2) {
            return fault();
        }
        std::uint32_t character = unitAt(i);
        if (character >= 0xD800 && character < 0xE000) {
            const std::uint32_t low = theBytes.size() - i < 4 ? 0 : unitAt(i + 2);
            if (character >= 0xDC00 || low < 0xDC00 || low >= 0xE000) {
                return fault();
            }
            character = 0x10000 + ((character - 0xD800) << 10) + (low - 0xDC00);
            i += 2;
        }
        appendUtf8(character, text);
    }
    theResult = std::string_view(text);
    return std::nullopt;
}

}  // namespace

std::optional<CliTextFault> convertXmlSource(CpsString& theSource) {
    const std::string_view source = theSource;
    for (const bool isBigEndian : {true, false}) {
        if (source.starts_with(isBigEndian ? "\xFE\xFF" : "\xFF\xFE")) {
            CpsString converted;
            const auto fault = convertUtf16(source.substr(2), isBigEndian, converted);
            theSource = converted;
            return fault;
        }
    }
    const std::string encoding(declaredEncoding(source));
    if (encoding.empty()) {  // no declaration, or one after a byte order mark of UTF-8
        std::string message;
        convertSource(theSource, theUtf8Charset, message);
        return std::nullopt;
    }
    if (isPlainAscii(source)) {
        return std::nullopt;
    }
    const std::optional<HedCharsetId> charset = declaredCharset(encoding);
    if (!charset) {
        return CliTextFault{"the encoding \"" + visibleText(encoding) +
                                "\" of the XML declaration is not supported (\"lumnis charsets\" "
                                "lists those that are)",
                            1};
    }
    std::string message;
    if (!convertSource(theSource, *charset, message)) {
        return CliTextFault{message, 1};
    }
    return std::nullopt;
}

std::optional<CliTextFault> findBadUtf8(std::string_view theText) {
    for (std::size_t i = 0; i < theText.size();) {
        const std::size_t length = utf8SequenceLength(theText, i);
        if (length == 0) {
            const std::string byte = hexByte(static_cast<unsigned char>(theText[i]));
            return CliTextFault{"the byte 0x" + byte +
                                    " is no UTF-8: the XML declaration must name the encoding "
                                    "that the file has",
                                lineAt(theText, i)};
        }
        i += length;
    }
    return std::nullopt;
}

std::string_view rootElementName(std::string_view theDocument) {
    constexpr std::string_view doctype = "<!DOCTYPE";
    for (std::size_t i = theDocument.find('<'); i < theDocument.size();
         i = theDocument.find('<', i)) {
        std::string_view rest = theDocument.substr(i);
        if (rest.starts_with("<!--")) {
            i = theDocument.find("-->", i + 4);
        } else if (rest.starts_with("<?")) {
            i = theDocument.find("?>", i + 2);
        } else {
            rest.remove_prefix(rest.starts_with(doctype) ? doctype.size() : 1);
            rest.remove_prefix(std::min(rest.find_first_not_of(theBlanks), rest.size()));
            return rest.substr(0, rest.find_first_of(" \t\r\n>/["));
        }
    }
    return {};
}

}  // namespace lumnis
