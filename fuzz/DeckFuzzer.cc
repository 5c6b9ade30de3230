// WMLEncode under any bytes and under changed decks.
//
// If the first byte of the input is even, the rest is a deck. Otherwise it chooses one of the
// decks below, and each four bytes that follow are a change: what, where (two bytes), how much.
//
// What must hold: the same deck gives the same bytes or the same message; a line that a message
// names is there; what is written reads back; and the markup made of it encodes to the same bytes
// again, for decks of the four known identifiers without internal subset, processing instructions
// and meta elements. A reader sees a string end at a NUL, so that decks with one are exempt from
// the last two; so are those with other control characters, which XML has no place for.
#include <lumnisutil.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <string>
#include <string_view>

#include "DumpPrinter.h"
#include "DumpReader.h"
#include "Require.h"
#include "WmlDirector.h"
#include "XaProducer.h"

namespace {

using lumnis::CpsString;
using lumnis::DumpKind;
using lumnis::DumpListing;
using lumnis::DumpPiece;
using lumnis::fuzz::require;
using lumnis::fuzz::requireLine;

constexpr std::string_view theDecks[] = {
    R"deck(<?xml version="1.0"?><!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.1//EN" "x">
<wml><head><access domain="a.com" path="/p"/></head><template><do type="prev"><prev/></do></template>
<card id="a" title="T $(v:e)" newcontext="true" ontimer="#b">
<onevent type="onenterforward"><go href="http://www.x.com/?q=$v"/></onevent><timer value="10"/>
<p align="center" mode="nowrap">Text $$ &amp; $(v) <b>bold</b><br/><img src="a.wbmp" alt="i"/>
<a href="#b" title="go">link</a> <anchor>there<go href="b" method="post"><postfield name="n" value="$n"/>
<setvar name="s" value="1"/></go></anchor></p></card></wml>)deck",
    R"deck(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.2//EN" "x">
<wml><card><pre xml:space="preserve">  as
 it is</pre><p><select name="s" ivalue="1" multiple="true"><optgroup title="g"><option value="1"
 onpick="#c">one</option></optgroup><option><onevent type="onpick"><refresh><setvar name="a"
 value="b"/></refresh></onevent>two</option></select><input name="i" type="password" format="*N"
 emptyok="true" maxlength="4"/><fieldset title="f">f</fieldset></p></card></wml>)deck",
    R"deck(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "x">
<wml xml:lang="en"><card class="c"><do type="accept" name="n" optional="true" label="l"><noop/></do>
<p><table columns="2" align="LR"><tr><td>1</td><td><em>2</em></td></tr></table><![CDATA[a  <b>]]>
&#8364;&shy;<big><i><small><strong><u>x</u></strong></small></i></big></p></card></wml>)deck",
    R"deck(<!DOCTYPE wta-wml PUBLIC "-//WAPFORUM//DTD WTA-WML 1.2//EN" "x">
<wta-wml><card><onevent type="wtaev-cc/ic"><go href="wtai://wp/mc;123"/></onevent><p>x</p></card></wta-wml>)deck",
};

constexpr std::string_view thePieces[] = {
    "<p>",
    "</p>",
    "<b>",
    "</b>",
    "<br/>",
    "<card>",
    "</card>",
    "$(x:e)",
    "$y",
    "$$",
    "$(",
    "<pre>",
    "</pre>",
    "<td></td>",
    "  ",
    "\n",
    "&#32;",
    "&#13;",
    "&#8364;",
    "&lt;",
    "<![CDATA[ a  ]]>",
    "]]>",
    "<a href=\"",
    "\"",
    "'",
    " title=\"",
    ".com/",
    "http://www.",
    "<do/>",
    "<prev/>",
    "<noop/>",
    "<!-- -->",
    "<?p d?>",
    "<meta/>",
    "<p align=\"left\"/>",
    "\xE4",
    "text",
    "<option/>",
    "<go href=\"x\"></go>",
    " class=\"$\"",
    " id=\"i\"",
    "&nbsp;",
    "<fieldset>",
    "</fieldset>",
    "<anchor>",
    "</anchor>",
};

std::string changedDeck(const std::uint8_t* theData, std::size_t theSize) {
    std::string deck(theDecks[(theData[0] >> 1) % std::size(theDecks)]);
    for (std::size_t i = 1; i + 4 <= theSize && deck.size() < 20000; i += 4) {
        const std::uint8_t* const change = theData + i;
        const std::size_t place = (change[1] * 256u + change[2]) % (deck.size() + 1);
        const std::size_t size = std::min<std::size_t>(change[3], deck.size() - place);
        switch (change[0] % 4) {
            case 0:
                deck.insert(place, thePieces[change[3] % std::size(thePieces)]);
                break;
            case 1:
                deck.erase(place, size);
                break;
            case 2:
                deck.insert(place, deck.substr(place, size));
                break;
            default:
                deck.insert(place, 1, static_cast<char>(change[3]));
                break;
        }
    }
    return deck;
}

struct Outcome {
    std::string bytes;
    std::string message;
    bool operator==(const Outcome&) const = default;
};

Outcome encode(const std::string& theDeck) {
    char* result = nullptr;
    char* error = nullptr;
    unsigned short length = 0;
    const int status =
        WMLEncode(theDeck.data(), static_cast<int>(theDeck.size()), &result, &length, &error);
    Outcome outcome;
    if (status == 0) {
        require(length != 0 && length != 65535);
        outcome.bytes.assign(result, length);
    } else if (error != nullptr) {
        outcome.message = error;
    }
    std::free(result);
    return outcome;
}

void checkLine(const std::string& theMessage, const std::string& theDeck) {
    constexpr std::string_view theFrame = "(before or at line: ";
    const std::size_t place = theMessage.rfind(theFrame);
    if (place == std::string::npos) {
        return;
    }
    requireLine(std::stoul(theMessage.substr(place + theFrame.size())), theDeck);
}

bool hasControl(std::string_view theText) {
    return std::any_of(theText.begin(), theText.end(), [](char theByte) {
        const auto value = static_cast<unsigned char>(theByte);
        return value < 0x20 && value != '\t' && value != '\n';
    });
}

bool isExempt(const DumpListing& theListing) {
    return std::any_of(theListing.pieces.begin(), theListing.pieces.end(),
                       [](const DumpPiece& thePiece) {
                           return thePiece.kind == DumpKind::pi || thePiece.name == "meta" ||
                                  hasControl(thePiece.text);
                       });
}

void checkReadBack(const std::string& theBytes) {
    const DumpListing listing = lumnis::readDump(theBytes, std::nullopt);
    require(!listing.fault && listing.format == lumnis::DumpFormat::wbxml);
    const auto id = static_cast<unsigned char>(theBytes[1]);
    const bool isKnown = id == 0x04 || id == 0x09 || id == 0x0A || id == 0x0C;
    if (!isKnown || isExempt(listing)) {
        return;
    }
    CpsString output;
    int mediaType = 0;
    lumnis::XaProducer::instance().process(CpsString(std::string_view(printDumpXml(listing))),
                                           lumnis::WmlDirector::theWmlMediaType,
                                           lumnis::theUtf8Charset, &mediaType, output);
    require(output == std::string_view(theBytes));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* theData, std::size_t theSize) {
    if (theSize == 0) {
        return 0;
    }
    const std::string deck =
        theData[0] % 2 == 0 ? std::string(reinterpret_cast<const char*>(theData) + 1, theSize - 1)
                            : changedDeck(theData, theSize);
    const Outcome outcome = encode(deck);
    require(outcome == encode(deck));
    checkLine(outcome.message, deck);
    const bool mayHaveNul = deck.find('\0') != std::string::npos ||
                            deck.find("&#0") != std::string::npos ||
                            deck.find("&#x0") != std::string::npos;
    if (!outcome.bytes.empty() && !mayHaveNul) {
        checkReadBack(outcome.bytes);
    }
    return 0;
}
