#include "WmlActor.h"

#include <algorithm>

#include "CpsBytes.h"
#include "WmlActorException.h"
#include "WmlTokens.h"

namespace lumnis {
namespace {

constexpr unsigned char theIdToken = wmlAttrToken("id");
constexpr unsigned char theClassToken = wmlAttrToken("class");

void sortByBytes(WmlActor::PrefixTable& theTable) {
    std::sort(theTable.begin(), theTable.end(),
              [](const auto& a, const auto& b) { return a.text < b.text; });
}

// The start token for theValue; what it stands for is cut from theValue. Null without prefix.
const WmlActor::Prefix* cutPrefix(std::string_view& theValue,
                                  const WmlActor::PrefixTable& thePrefixes) {
    for (const WmlActor::Prefix& prefix : thePrefixes) {
        if (CpsBytes::beginsWith(theValue, prefix.text)) {
            theValue.remove_prefix(prefix.text.size());
            return &prefix;
        }
    }
    return nullptr;
}

const WmlActor::Prefix* findLongest(std::string_view theValue,
                                    const WmlActor::PrefixTable& thePrefixes) {
    const WmlActor::Prefix* longest = nullptr;
    for (const WmlActor::Prefix& prefix : thePrefixes) {
        if (CpsBytes::beginsWith(theValue, prefix.text) &&
            (longest == nullptr || prefix.text.size() > longest->text.size())) {
            longest = &prefix;
        }
    }
    return longest;
}

// Writes the start token for theValue, theToken without prefix, and the switch to its page. What
// it stands for is cut from theValue.
void writeStart(unsigned char theToken, std::string_view& theValue, WmlCtrl& theCtrl,
                const WmlActor::PagedPrefixTable& thePrefixes) {
    const unsigned current = theCtrl.getAttrPage();
    unsigned page = current;
    const WmlActor::Prefix* found =
        current < thePrefixes.size() ? findLongest(theValue, thePrefixes[current]) : nullptr;
    if (found == nullptr) {
        page = 0;
        for (unsigned other = 0; other < thePrefixes.size(); ++other) {
            const WmlActor::Prefix* candidate = findLongest(theValue, thePrefixes[other]);
            if (candidate != nullptr &&
                (found == nullptr || candidate->text.size() > found->text.size())) {
                found = candidate;
                page = other;
            }
        }
    }
    theCtrl.switchAttrPage(page);
    theCtrl.addToOutput(found == nullptr ? theToken : found->token);
    if (found != nullptr) {
        theValue.remove_prefix(found->text.size());
    }
}

void writeVdata(std::string_view theValue, WmlCtrl& theCtrl, bool theEscapeDefault,
                const char* theErrorPrefix) {
    CpsString error;
    if (!theCtrl.parseVData(theValue, error, true, theEscapeDefault)) {
        throw WmlActorException(theErrorPrefix + error);
    }
}

// theValue with each "$$" made "$". Throws WmlActorException for a "$" that stands alone.
CpsString unescapeDollars(std::string_view theValue) {
    CpsString result;
    for (;;) {
        const std::size_t dollar = theValue.find('$');
        if (dollar == std::string_view::npos) {
            result.appendPiece(theValue);
            return result;
        }
        if (!theValue.substr(dollar + 1).starts_with('$')) {
            throw WmlActorException("error in Cdata: Variable references are not allowed");
        }
        result.appendPiece(theValue.substr(0, dollar + 1));
        theValue.remove_prefix(dollar + 2);
    }
}

void writeCdata(std::string_view theValue, WmlCtrl& theCtrl) {
    if (theValue.find('$') == std::string_view::npos) {
        if (!theValue.empty()) {
            theCtrl.tokenizeAttributeValue(theValue);
        }
        return;
    }
    const CpsString value = unescapeDollars(theValue);
    if (!value.empty()) {
        theCtrl.tokenizeAttributeValue(value);
    }
}

// The texts of errors: with a prefix table it matters whether a prefix fitted.
constexpr const char* theVdataError = "error in Vdata: ";
constexpr const char* thePlainError = "error: ";

}  // namespace

WmlActor::PrefixTable WmlActor::makePrefixTable(
    std::string_view theName, std::initializer_list<std::string_view> thePrefixes) {
    PrefixTable result;
    for (const std::string_view prefix : thePrefixes) {
        result.push_back({prefix, wmlAttrToken(theName, prefix)});
    }
    sortByBytes(result);
    return result;
}

WmlActor::PrefixTable WmlActor::makeWtaPrefixTable(std::string_view theName) {
    PrefixTable result;
    for (const WmlAttrToken& row : theWtaAttrTokens) {
        if (row.name == theName) {
            result.push_back({row.prefix, row.token});
        }
    }
    sortByBytes(result);
    return result;
}

WmlActor::WmlActor(const XpDtd::Element& theElement)
    : idAttrM(&theElement.getAttribute("id")), classAttrM(&theElement.getAttribute("class")) {}

void WmlActor::addAttrToken(unsigned char theToken, WmlCtrl& theCtrl) {
    theCtrl.switchAttrPage(0);
    theCtrl.addToOutput(theToken);
}

bool WmlActor::tokenizeVdata(unsigned char theToken, const XpDtd::Attribute& theAttr,
                             const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl,
                             bool theEscapeDefault) {
    const XpDtd::AttValue* value = findStated(theAttr, theAttributes);
    if (value == nullptr) {
        return false;
    }
    addAttrToken(theToken, theCtrl);
    CpsString buffer;
    writeVdata(value->text(buffer), theCtrl, theEscapeDefault, theVdataError);
    return true;
}

bool WmlActor::tokenizeVdata(unsigned char theToken, const XpDtd::Attribute& theAttr,
                             const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl,
                             const PrefixTable& thePrefixes, bool theEscapeDefault) {
    const XpDtd::AttValue* value = findStated(theAttr, theAttributes);
    if (value == nullptr) {
        return false;
    }
    CpsString buffer;
    std::string_view rest = value->text(buffer);
    const Prefix* prefix = cutPrefix(rest, thePrefixes);
    addAttrToken(prefix == nullptr ? theToken : prefix->token, theCtrl);
    writeVdata(rest, theCtrl, theEscapeDefault, prefix == nullptr ? thePlainError : theVdataError);
    return true;
}

bool WmlActor::tokenizeVdata(unsigned char theToken, const XpDtd::Attribute& theAttr,
                             const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl,
                             const PagedPrefixTable& thePrefixes, bool theEscapeDefault) {
    const XpDtd::AttValue* value = findStated(theAttr, theAttributes);
    if (value == nullptr) {
        return false;
    }
    CpsString buffer;
    std::string_view rest = value->text(buffer);
    writeStart(theToken, rest, theCtrl, thePrefixes);
    writeVdata(rest, theCtrl, theEscapeDefault, thePlainError);
    return true;
}

bool WmlActor::tokenizeCdata(unsigned char theToken, const XpDtd::Attribute& theAttr,
                             const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl) {
    return tokenizeCdata(theToken, theAttr, theAttributes, theCtrl, PrefixTable());
}

bool WmlActor::tokenizeCdata(unsigned char theToken, const XpDtd::Attribute& theAttr,
                             const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl,
                             const PrefixTable& thePrefixes) {
    const XpDtd::AttValue* value = findStated(theAttr, theAttributes);
    if (value == nullptr) {
        return false;
    }
    CpsString buffer;
    std::string_view rest = value->text(buffer);
    const Prefix* prefix = cutPrefix(rest, thePrefixes);
    addAttrToken(prefix == nullptr ? theToken : prefix->token, theCtrl);
    writeCdata(rest, theCtrl);
    return true;
}

bool WmlActor::tokenizeCdata(unsigned char theToken, const XpDtd::Attribute& theAttr,
                             const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl,
                             const PagedPrefixTable& thePrefixes) {
    const XpDtd::AttValue* value = findStated(theAttr, theAttributes);
    if (value == nullptr) {
        return false;
    }
    CpsString buffer;
    std::string_view rest = value->text(buffer);
    writeStart(theToken, rest, theCtrl, thePrefixes);
    // This form alone writes an empty string where nothing follows the prefix.
    theCtrl.tokenizeAttributeValue(unescapeDollars(rest));
    return true;
}

bool WmlActor::tokenizeNumber(unsigned char theToken, const XpDtd::Attribute& theAttr,
                              const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl) {
    const XpDtd::AttValue* value = theAttributes.find(&theAttr);
    if (value == nullptr) {
        return false;
    }
    CpsString buffer;
    const std::string_view text = value->text(buffer);
    if (!WmlCtrl::checkNumber(text)) {
        throw WmlActorException("error: illegal number in attribute: " + theAttr.getName());
    }
    addAttrToken(theToken, theCtrl);
    theCtrl.addStringToOutput(text);
    return true;
}

bool WmlActor::tokenizeLength(unsigned char theToken, const XpDtd::Attribute& theAttr,
                              const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl) {
    const XpDtd::AttValue* value = theAttributes.find(&theAttr);
    if (value == nullptr) {
        return false;
    }
    CpsString buffer;
    const std::string_view text = value->text(buffer);
    if (!WmlCtrl::validateLength(text)) {
        throw WmlActorException("error: illegal length in attribute: " + theAttr.getName());
    }
    addAttrToken(theToken, theCtrl);
    theCtrl.addStringToOutput(text);
    return true;
}

bool WmlActor::tokenizeCoreAttrs(const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl) const {
    CpsString buffer;
    bool isAny = false;
    for (const auto& [attr, token] :
         {std::pair(idAttrM, theIdToken), std::pair(classAttrM, theClassToken)}) {
        if (const XpDtd::AttValue* value = theAttributes.find(attr)) {
            addAttrToken(token, theCtrl);
            theCtrl.addStringToOutput(value->text(buffer));
            isAny = true;
        }
    }
    return isAny;
}

}  // namespace lumnis
