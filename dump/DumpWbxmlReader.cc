#include "DumpWbxmlReader.h"

#include "DumpVocabulary.h"
#include "PrintableText.h"
#include "XaWbxmlToken.h"

namespace lumnis {

namespace {

constexpr unsigned theTokenMask = 0x3F;  // of a tag, without its two bits
constexpr unsigned theWmlRootToken = wmlTagToken("wml");

// Global tokens that the encoder does not write.
constexpr XaWbxmlToken::Type theEntity = 0x02;
constexpr XaWbxmlToken::Type theOpaque = 0xC3;
constexpr XaWbxmlToken::Type theExt0 = 0xC0;

// For a token that has no name.
std::string numberedName(const char* theKind, unsigned thePage, unsigned theToken) {
    const std::string name = theKind + hexByte(static_cast<unsigned char>(theToken));
    return thePage == 0 ? name : "p" + std::to_string(thePage) + "_" + name;
}

// Global tokens stand at 0 to 4 of each quarter (WBXML 1.3, 7.1).
bool isGlobal(std::uint8_t theToken) {
    return (theToken & theTokenMask) <= XaWbxmlToken::LITERAL;
}

std::string_view globalName(std::uint8_t theToken) {
    constexpr std::string_view theNames[] = {
        "SWITCH_PAGE", "END",     "ENTITY",  "STR_I",  "LITERAL",     // 0x00
        "EXT_I_0",     "EXT_I_1", "EXT_I_2", "PI",     "LITERAL_C",   // 0x40
        "EXT_T_0",     "EXT_T_1", "EXT_T_2", "STR_T",  "LITERAL_A",   // 0x80
        "EXT_0",       "EXT_1",   "EXT_2",   "OPAQUE", "LITERAL_AC",  // 0xC0
    };
    return theNames[(theToken >> 6) * 5 + (theToken & theTokenMask)];
}

std::string tagTokenName(std::uint8_t theToken) {
    std::string name = "tag " + hexByte(theToken & theTokenMask);
    if (theToken >= XaWbxmlToken::HAS_CONTENT) {
        name += ' ';
        name += (theToken & XaWbxmlToken::HAS_ATTRIBUTES) != 0 ? "A" : "";
        name += (theToken & XaWbxmlToken::HAS_CONTENT) != 0 ? "C" : "";
    }
    return name;
}

bool isPlainText(std::string_view theBytes) {
    for (std::size_t i = 0; i < theBytes.size();) {
        const std::size_t length = utf8SequenceLength(theBytes, i);
        const auto first = static_cast<unsigned char>(theBytes[i]);
        const bool isSpace = first == '\t' || first == '\n' || first == '\r';
        if (length == 0 || (first < 0x20 && !isSpace) || first == 0x7F) {
            return false;
        }
        i += length;
    }
    return true;
}

}  // namespace

DumpListing DumpWbxmlReader::read(std::string_view theFile) {
    DumpWbxmlReader reader(theFile, false);
    reader.run();
    if (reader.isUnregisteredM && reader.isWmlByRootM) {
        // Instructions in front of the root have names of WML as well.
        DumpWbxmlReader again(theFile, true);
        again.run();
        return std::move(again.listingM);
    }
    return std::move(reader.listingM);
}

DumpWbxmlReader::DumpWbxmlReader(std::string_view theFile, bool theIsWml)
    : fileM(theFile), cursorM(theFile) {
    listingM.isWml = theIsWml;
}

void DumpWbxmlReader::run() {
    try {
        prolog();
        body();
    } catch (DumpFault& fault) {
        listingM.fault = std::move(fault);
    }
}

void DumpWbxmlReader::fail(std::string theMessage) const {
    throw DumpFault{startM, std::move(theMessage)};
}

DumpPiece& DumpWbxmlReader::add(DumpKind theKind, std::string theToken, std::string theText,
                                std::string theName) {
    DumpPiece& piece = listingM.pieces.emplace_back();
    piece.kind = theKind;
    piece.offset = startM;
    piece.length = cursorM.position() - startM;
    piece.depth = static_cast<std::uint32_t>(openM.size());
    piece.token = std::move(theToken);
    piece.text = std::move(theText);
    piece.name = std::move(theName);
    startM = cursorM.position();
    checkTextLimit(piece.text);
    checkTextLimit(piece.name);
    return piece;
}

void DumpWbxmlReader::checkTextLimit(const std::string& theText) {
    textSizeM += theText.size();
    if (textSizeM > theTextLimit) {
        fail("the document has more than 16 MiB of text");
    }
}

void DumpWbxmlReader::prolog() {
    const std::uint8_t version = cursorM.byte("the version");
    if (version < 1 || version > 3) {
        fail("not WBXML 1.1 to 1.3: the version byte is " + hexByte(version));
    }
    add(DumpKind::header, "version", "WBXML 1." + std::to_string(version));

    const std::optional<std::uint32_t> idOffset = publicId();
    const std::size_t idPiece = listingM.pieces.size() - 1;

    const std::uint32_t charset = cursorM.multiByte("the charset");
    charsetM = DumpCharset(charset);
    add(DumpKind::header, "charset", DumpCharset::nameOf(charset));

    stringTable();
    if (idOffset) {
        DumpPiece& piece = listingM.pieces[idPiece];
        piece.text = listingM.publicId = lookUp(*idOffset, piece.offset);
        if (const DumpPublicId* const spelled = findPublicId(listingM.publicId)) {
            listingM.isWml = spelled->isWml;
        }
    }
}

std::optional<std::uint32_t> DumpWbxmlReader::publicId() {
    const std::uint32_t number = cursorM.multiByte("the public identifier");
    std::optional<std::uint32_t> offset;
    if (number == 0) {
        offset = cursorM.multiByte("the public identifier");
    }
    isUnregisteredM = number <= 1;
    const DumpPublicId* const known = findPublicId(number);
    if (known != nullptr) {
        listingM.publicId = known->name;
        listingM.isWml = known->isWml;
    }
    add(DumpKind::header, "public id",
        known != nullptr ? std::string(known->name)
        : number == 1    ? "unknown"
                         : "unregistered (" + std::to_string(number) + ")");
    return offset;
}

void DumpWbxmlReader::stringTable() {
    const std::uint32_t length = cursorM.multiByte("the length of the string table");
    if (length > cursorM.rest()) {
        fail("the string table has " + std::to_string(length) + " bytes, the file only " +
             std::to_string(cursorM.rest()) + " more");
    }
    add(DumpKind::header, "string table",
        std::to_string(length) + (length == 1 ? " byte" : " bytes"));
    tableM = fileM.substr(cursorM.position(), length);
    const std::uint32_t start = cursorM.position();
    const std::uint32_t width = charsetM.terminatorWidth();
    while (cursorM.position() - start < length) {
        const std::uint32_t offset = cursorM.position() - start;
        const std::string_view rest = tableM.substr(offset);
        const std::size_t textLength = DumpCursor::terminatedLength(rest, width);
        const bool hasEnd = textLength != std::string_view::npos;
        const std::string_view bytes = rest.substr(0, textLength);
        cursorM.take(static_cast<std::uint32_t>(hasEnd ? textLength + width : rest.size()),
                     "the string table");
        add(DumpKind::string, "string " + std::to_string(offset), charsetM.decode(bytes));
    }
}

std::string DumpWbxmlReader::lookUp(std::uint32_t theTableOffset, std::uint32_t thePlace) {
    if (theTableOffset >= tableM.size()) {
        throw DumpFault{thePlace,
                        "the string table has no offset " + std::to_string(theTableOffset)};
    }
    const auto [entry, isNew] = decodedM.try_emplace(theTableOffset);
    if (isNew) {
        const std::string_view rest = tableM.substr(theTableOffset);
        const std::size_t length = DumpCursor::terminatedLength(rest, charsetM.terminatorWidth());
        if (length == std::string_view::npos) {
            throw DumpFault{thePlace, "the string at offset " + std::to_string(theTableOffset) +
                                          " of the string table has no end"};
        }
        entry->second = charsetM.decode(rest.substr(0, length));
        checkTextLimit(entry->second);
    }
    return entry->second;
}

std::string DumpWbxmlReader::reference(const char* theWhat) {
    return lookUp(cursorM.multiByte(theWhat), startM);
}

std::string DumpWbxmlReader::literalName(const char* theWhat) {
    std::string name = reference(theWhat);
    if (name.empty()) {
        fail(std::string("the name of ") + theWhat + " is empty");
    }
    return name;
}

void DumpWbxmlReader::body() {
    while (!(hasRootM && openM.empty() && cursorM.isAtEnd())) {
        startM = cursorM.position();
        if (cursorM.isAtEnd()) {
            fail(openM.empty()
                     ? "the file has no root element"
                     : "the file ends inside of element \"" + visibleText(openM.back()) + "\"");
        }
        const std::uint8_t token = cursorM.byte("the body");
        if (token == XaWbxmlToken::SWITCH_PAGE) {
            switchPage(tagPageM);
        } else if (token == XaWbxmlToken::END) {
            end();
        } else if (token == XaWbxmlToken::PI) {
            attributes(Place::instruction);
        } else if (!isGlobal(token) || (token & theTokenMask) == XaWbxmlToken::LITERAL) {
            tag(token);
        } else if (openM.empty()) {
            fail(std::string(globalName(token)) + " stands outside of the root element");
        } else {
            value(token);
        }
    }
}

void DumpWbxmlReader::end() {
    if (openM.empty()) {
        fail("END without an element that it could end");
    }
    std::string name = std::move(openM.back());
    openM.pop_back();
    add(DumpKind::elementEnd, "END", {}, std::move(name));
}

void DumpWbxmlReader::switchPage(unsigned& thePage) {
    thePage = cursorM.byte("SWITCH_PAGE");
    add(DumpKind::page, "SWITCH_PAGE").value = thePage;
}

void DumpWbxmlReader::tag(std::uint8_t theToken) {
    if (openM.empty() && hasRootM) {
        fail("a second root element");
    }
    const unsigned number = theToken & theTokenMask;
    if (!hasRootM) {
        isWmlByRootM = number == theWmlRootToken && tagPageM <= theWtaCodePage;
    }
    hasRootM = true;
    std::string token;
    std::string name;
    if (number == XaWbxmlToken::LITERAL) {
        token = globalName(theToken);
        name = literalName("an element");
    } else {
        const WmlTagToken* const known = listingM.isWml ? findWmlTag(tagPageM, number) : nullptr;
        token = tagTokenName(theToken);
        name = known != nullptr ? std::string(known->name) : numberedName("tag_", tagPageM, number);
    }
    DumpPiece& piece = add(DumpKind::tag, std::move(token), {}, name);
    piece.hasAttributes = (theToken & XaWbxmlToken::HAS_ATTRIBUTES) != 0;
    piece.hasContent = (theToken & XaWbxmlToken::HAS_CONTENT) != 0;
    const bool hasContent = piece.hasContent;
    if (piece.hasAttributes) {
        attributes(Place::attributes);
        // The printers close the tag here, and must know how.
        listingM.pieces.back().hasContent = hasContent;
    }
    if (hasContent) {
        openM.push_back(std::move(name));
    }
}

// Also an instruction: it is one attribute between PI and END.
void DumpWbxmlReader::attributes(Place thePlace) {
    const bool isInstruction = thePlace == Place::instruction;
    const char* const what = isInstruction ? "a processing instruction" : "attributes";
    // The token PI and the start behind it are one piece, unless a page switch parts them.
    bool hasStart = false;
    for (;;) {
        if (!isInstruction || hasStart) {
            startM = cursorM.position();
        }
        const std::uint8_t token = cursorM.byte(what);
        if (token == XaWbxmlToken::SWITCH_PAGE) {
            switchPage(attrPageM);
        } else if (token == XaWbxmlToken::END) {
            if (isInstruction && !hasStart) {
                fail("a processing instruction without a target");
            }
            add(isInstruction ? DumpKind::piEnd : DumpKind::attributesEnd, "END");
            return;
        } else if (token == XaWbxmlToken::LITERAL || (!isGlobal(token) && token < 0x80)) {
            if (isInstruction && hasStart) {
                fail("a processing instruction with two targets");
            }
            attributeStart(token, thePlace);
            hasStart = true;
        } else if (isGlobal(token) &&
                   (token == XaWbxmlToken::PI || (token & theTokenMask) == XaWbxmlToken::LITERAL)) {
            fail(std::string(globalName(token)) + " stands inside of " + what);
        } else if (!hasStart) {
            fail("a value in front of the first attribute");
        } else {
            value(token);
        }
    }
}

void DumpWbxmlReader::attributeStart(std::uint8_t theToken, Place thePlace) {
    std::string token;
    std::string name;
    std::string prefix;
    if (theToken == XaWbxmlToken::LITERAL) {
        token = globalName(theToken);
        name = literalName("an attribute");
    } else {
        const WmlAttrToken* const known =
            listingM.isWml ? findWmlAttr(attrPageM, theToken) : nullptr;
        token = "attr " + hexByte(theToken);
        name = known != nullptr ? std::string(known->name)
                                : numberedName("attr_", attrPageM, theToken);
        prefix = known != nullptr ? known->prefix : std::string_view();
    }
    const bool isInstruction = thePlace == Place::instruction;
    add(isInstruction ? DumpKind::pi : DumpKind::attribute, (isInstruction ? "PI " : "") + token,
        std::move(prefix), std::move(name));
}

void DumpWbxmlReader::value(std::uint8_t theToken) {
    if (!isGlobal(theToken)) {
        attributeValue(theToken);
    } else if (theToken == theEntity) {
        entity();
    } else if (theToken == XaWbxmlToken::STR_I) {
        std::string text = charsetM.decode(cursorM.terminated(charsetM.terminatorWidth(), "STR_I"));
        add(DumpKind::text, "STR_I", std::move(text));
    } else if (theToken == XaWbxmlToken::STR_T) {
        std::string text = reference("STR_T");
        add(DumpKind::text, "STR_T", std::move(text));
    } else if (theToken == theOpaque) {
        opaque();
    } else {
        extension(theToken);
    }
}

void DumpWbxmlReader::attributeValue(std::uint8_t theToken) {
    const WmlAttrValueToken* const known =
        listingM.isWml ? findWmlAttrValue(attrPageM, theToken) : nullptr;
    if (known != nullptr) {
        add(DumpKind::text, "value " + hexByte(theToken), std::string(known->text));
    } else {
        add(DumpKind::extension, "value " + hexByte(theToken),
            numberedName("value_", attrPageM, theToken));
    }
}

void DumpWbxmlReader::entity() {
    const std::uint32_t code = cursorM.multiByte("ENTITY");
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code == 0 || isSurrogate || code > 0x10FFFF) {
        fail("ENTITY of " + std::to_string(code) + ", which is no character");
    }
    add(DumpKind::entity, "ENTITY").value = code;
}

// EXT_I_n has a string, EXT_T_n an index, EXT_n nothing. In WML the first two are variables, by
// name and by offset, n telling the conversion (WML 1.3, 14.4).
void DumpWbxmlReader::extension(std::uint8_t theToken) {
    constexpr const char* theConversions[] = {"e", "u", "n"};
    const std::string token(globalName(theToken));
    const unsigned number = theToken & theTokenMask;
    std::string text;
    if (theToken < XaWbxmlToken::EXT_T_0) {
        text = charsetM.decode(cursorM.terminated(charsetM.terminatorWidth(), "EXT_I"));
    } else if (theToken < theExt0) {
        const std::uint32_t index = cursorM.multiByte("EXT_T");
        text = listingM.isWml ? lookUp(index, startM) : std::to_string(index);
    } else {
        add(DumpKind::extension, token);
        return;
    }
    if (listingM.isWml) {
        add(DumpKind::variable, token, theConversions[number], std::move(text));
    } else {
        add(DumpKind::extension, token, std::move(text));
    }
}

void DumpWbxmlReader::opaque() {
    const std::uint32_t length = cursorM.multiByte("OPAQUE");
    const std::string_view bytes = cursorM.take(length, "OPAQUE");
    std::string text;
    if (isPlainText(bytes)) {
        text = bytes;
    } else {
        for (const char byte : bytes) {
            text += hexByte(static_cast<unsigned char>(byte));
        }
    }
    add(DumpKind::opaque, "OPAQUE", std::move(text));
}

}  // namespace lumnis
